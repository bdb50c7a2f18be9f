// Si están los ficheros de preguntas elegidos, y si un canal está abierto.
#include "storage/ficheros_preguntas.h"

#include <gtest/gtest.h>

#include "apoyo/datos_prueba.h"
#include "apoyo/juego_prueba.h"

namespace sabelot {
namespace {

using prueba::JuegoPrueba;

TEST(FicherosPreguntas, FaltanFicherosYCanalAbierto) {
    JuegoPrueba jp;  // primer arranque: sin nombres
    EXPECT_TRUE(jp.f().FaltanFicheros());
    for (const std::string n : {"a", "b", "c", "d", "e", "f", "Mezcla", ""})
        jp.p.carpeta.Escribir("preguntas/" + n + ".qzf", "q>x\r\n");
    jp.p.carpeta.Escribir("g.qzf", "q>x\r\n");
    // Uno que no está basta, y un tema vaciado en el editor también aunque haya un ".qzf" a secas. En
    // otra carpeta no cuenta.
    for (const auto& [nombres, faltan] :
         std::vector<std::pair<std::string, bool>>{{"a,b,c,no_esta,e,f", true},
                                                   {"Mezcla,Mezcla,Mezcla,,Mezcla,Mezcla", true},
                                                   {"Mezcla,Mezcla,Mezcla,Mezcla,Mezcla,Mezcla", false},
                                                   {"g,g,g,g,g,g", true},
                                                   {"a,b,c,d,e,f", false}}) {
        const auto n = prueba::Campos(nombres, ',');
        std::copy(n.begin(), n.end(), jp.m().FicheroTema.begin() + 1);
        EXPECT_EQ(faltan, jp.f().FaltanFicheros()) << nombres;
    }

    // Un canal abierto sigue abierto aunque se borre su fichero.
    Canales& canales = jp.juego->canales;
    for (int canal : {0, 3, -1}) EXPECT_FALSE(CanalAbierto(canales, canal));
    const std::string ruta = Ruta(jp.p.CarpetaPrograma(), {"preguntas", "c.qzf"});
    ASSERT_EQ(0, canales.Abrir(3, ruta));
    EXPECT_TRUE(CanalAbierto(canales, 3));
    std::string linea;
    canales.Get(3)->LeerLinea(linea);
    EXPECT_TRUE(CanalAbierto(canales, 3));
    jp.p.Ficheros().Borrar(ruta);
#ifdef _WIN32
    // En Windows un fichero abierto no se deja borrar: sigue ahí y no falta.
    EXPECT_FALSE(jp.f().FaltanFicheros());
#else
    // Se borra el fichero con el canal abierto: falta, pero su canal sigue abierto.
    EXPECT_TRUE(jp.f().FaltanFicheros());
#endif
    EXPECT_TRUE(CanalAbierto(canales, 3));
    canales.Cerrar(3);
    EXPECT_FALSE(CanalAbierto(canales, 3));
}

}  // namespace
}  // namespace sabelot

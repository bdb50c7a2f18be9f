// Si están los ficheros de preguntas elegidos, y si un canal está abierto.
#include "storage/ficheros_preguntas.h"

#include <gtest/gtest.h>

#include "apoyo/juego_prueba.h"

namespace sabelot {
namespace {

using prueba::JuegoPrueba;

void PonerFicheros(JuegoPrueba& jp, std::array<std::string, 7> nombres) {
    jp.m().FicheroTema = nombres;
    for (std::size_t t = 1; t <= 6; ++t) {
        if (!nombres[t].empty()) jp.p.carpeta.Escribir("preguntas/" + nombres[t] + ".qzf", "q>x\r\n");
    }
}

TEST(FicherosPreguntas, FaltanFicherosYCanalAbierto) {
    JuegoPrueba jp;  // primer arranque: sin nombres
    EXPECT_TRUE(jp.f().FaltanFicheros());
    PonerFicheros(jp, {"", "a", "b", "c", "d", "e", "f"});
    EXPECT_FALSE(jp.f().FaltanFicheros());
    jp.m().FicheroTema[4] = "no_esta";  // uno solo basta
    EXPECT_TRUE(jp.f().FaltanFicheros());
    jp.m().FicheroTema[4] = "";  // un tema vaciado en el editor
    EXPECT_TRUE(jp.f().FaltanFicheros());
    PonerFicheros(jp, {"", "Mezcla", "Mezcla", "Mezcla", "Mezcla", "Mezcla", "Mezcla"});
    EXPECT_FALSE(jp.f().FaltanFicheros());
    // Un ".qzf" a secas no es el fichero de un tema sin nombre.
    jp.p.carpeta.Escribir("preguntas/.qzf", "q>x\r\n");
    jp.m().FicheroTema[6] = "";
    EXPECT_TRUE(jp.f().FaltanFicheros());
    // En otra carpeta no cuenta.
    jp.p.carpeta.Escribir("g.qzf", "q>x\r\n");
    jp.m().FicheroTema = {"", "g", "g", "g", "g", "g", "g"};
    EXPECT_TRUE(jp.f().FaltanFicheros());

    // Un canal abierto sigue abierto aunque se borre su fichero.
    PonerFicheros(jp, {"", "a", "b", "c", "d", "e", "f"});
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

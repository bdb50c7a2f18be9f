// Sabelot.ini: lo que se escribe, lo que se lee, y que uno roto no cuesta nada.
#include "storage/opciones.h"

#include <gtest/gtest.h>

#include "apoyo/datos_prueba.h"
#include "apoyo/formas_prueba.h"

namespace sabelot::prueba {
namespace {

// Los de tests/datos/opciones.txt: se leen todos sus campos, con el primer canal libre que después se
// cierra, y se vuelven a escribir iguales.
TEST(Opciones, LeidoYEscritoIgualByteAByte) {
    const auto filas = LineasDeDatos("opciones.txt");
    ASSERT_EQ(filas.size(), 2u);
    for (const std::string& fila : filas) {
        Entorno e;
        e.p.carpeta.Escribir("preguntas/a.qzf", "x\r\n");
        for (int canal : {1, 2})
            ASSERT_EQ(0, e.canales.Abrir(canal, Ruta(e.p.carpeta.Ruta(), {"preguntas", "a.qzf"})));
        e.p.carpeta.Escribir("Sabelot.ini", IniDeDatos(fila));
        LeerOpciones(e.m, e.p, e.canales);
        EXPECT_EQ(Opciones(e.m), fila);
        EXPECT_EQ(3, e.canales.Libre());
        e.p.carpeta.Escribir("Sabelot.ini", "");
        // Dos veces lo mismo, el mismo fichero; y ningún temporal al lado.
        for (int vez = 0; vez < 2; ++vez) {
            ASSERT_TRUE(GuardarOpciones(e.m, e.p));
            EXPECT_EQ(e.p.carpeta.Leer("Sabelot.ini"), IniDeDatos(fila));
        }
        EXPECT_EQ(e.p.Ficheros().Listar(e.p.carpeta.Ruta(), ""), std::vector<std::string>{"Sabelot.ini"});
    }
}

// Cada Sabelot.ini roto de tests/corpus/opciones_rotas, uno enorme o ninguno: se ignora entero, y
// el fichero se queda como está.
TEST(Opciones, FicheroRotoSeIgnoraEnteroYNoSeToca) {
    auto rotos = FicherosDelCorpus("opciones_rotas");
    ASSERT_EQ(rotos.size(), 29u);
    std::string enorme = "3,4\r\n";
    for (int t = 0; t < 6; ++t) enorme += "\"Cine\",\"Cine \",1\r\n";
    rotos.emplace_back("Enorme", enorme + std::string(200 * 1024, ' '));
    rotos.emplace_back("", "");
    for (const auto& [nombre, bytes] : rotos) {
        Entorno e;
        if (!nombre.empty()) e.p.carpeta.Escribir("Sabelot.ini", bytes);
        LeerOpciones(e.m, e.p, e.canales);
        EXPECT_EQ(Opciones(e.m), Opciones(Module1{})) << nombre;
        const bool hay = e.p.carpeta.Existe("Sabelot.ini");
        EXPECT_EQ(hay ? e.p.carpeta.Leer("Sabelot.ini") : "(ninguno)", nombre.empty() ? "(ninguno)" : bytes);
        EXPECT_EQ(1, e.canales.Libre()) << nombre << ": el canal quedó abierto";
    }
}

}  // namespace
}  // namespace sabelot::prueba

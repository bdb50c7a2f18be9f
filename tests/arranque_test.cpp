// El arranque: bienvenida, semilla y partida nueva (tests/datos/bienvenida.txt y arranque.txt).
#include "engine/arranque.h"

#include <gtest/gtest.h>

#include "apoyo/juego_casos.h"

namespace sabelot {
namespace {

// Los casos de tests/datos/bienvenida.txt.
TEST(Bienvenida, TextoSegunJugadoresYQuesitos) {
    const std::vector<std::string> filas = prueba::LineasDeDatos("bienvenida.txt");
    ASSERT_EQ(filas.size(), 6u);
    for (const std::string& fila : filas) {
        const std::vector<std::string> campos = prueba::Campos(fila);
        ASSERT_EQ(campos.size(), 4u) << fila;
        Module1 m;
        m.NumJugadores = std::stoi(campos[0]);
        m.QuesitosParaGanar = std::stoi(campos[1]);
        const std::vector<std::string> etiquetas = prueba::Campos(campos[2], '|');
        for (std::size_t t = 1; t <= 6; ++t) m.EtiquetaTema[t] = etiquetas.at(t - 1);
        EXPECT_EQ(MensajeBienvenida(m), prueba::Bytes(campos[3])) << fila;
    }
}

class ArranqueTest : public ::testing::TestWithParam<prueba::Caso> {};
TEST_P(ArranqueTest, Caso) { prueba::Jugar(GetParam()); }
INSTANTIATE_TEST_SUITE_P(Arranque, ArranqueTest, ::testing::ValuesIn(prueba::Casos("arranque.txt")),
                         prueba::NombreDelCaso);

}  // namespace
}  // namespace sabelot

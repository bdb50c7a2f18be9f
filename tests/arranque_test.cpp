// El arranque: bienvenida, semilla y partida nueva (tests/datos/bienvenida.txt y arranque.txt).
#include "engine/arranque.h"

#include <gtest/gtest.h>

#include "apoyo/juego_casos.h"

namespace sabelot {
namespace {

// Los casos de tests/datos/bienvenida.txt.
TEST(Bienvenida, TextoSegunJugadoresYQuesitos) {
    for (const std::vector<std::string>& c : prueba::Tabla("bienvenida.txt", 4)) {
        Module1 m;
        m.NumJugadores = std::stoi(c[0]);
        m.QuesitosParaGanar = std::stoi(c[1]);
        const std::vector<std::string> etiquetas = prueba::Campos(c[2], '|');
        for (std::size_t t = 1; t <= 6; ++t) m.EtiquetaTema[t] = etiquetas.at(t - 1);
        EXPECT_EQ(MensajeBienvenida(m), prueba::Bytes(c[3])) << c[2];
    }
}

SABELOT_CASOS_JUGADOS(Arranque, "arranque.txt");

}  // namespace
}  // namespace sabelot

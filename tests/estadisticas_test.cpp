// El informe del jugador: quesitos, aciertos y porcentajes redondeados al par (tests/datos/estadisticas.txt).
#include <gtest/gtest.h>

#include "apoyo/juego_casos.h"

namespace sabelot {
namespace {

class EstadisticasTest : public ::testing::TestWithParam<prueba::Caso> {};
TEST_P(EstadisticasTest, Informe) { prueba::Jugar(GetParam()); }
INSTANTIATE_TEST_SUITE_P(Estadisticas, EstadisticasTest,
                         ::testing::ValuesIn(prueba::Casos("estadisticas.txt")), prueba::NombreDelCaso);

}  // namespace
}  // namespace sabelot

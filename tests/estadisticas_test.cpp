// El informe del jugador: quesitos, aciertos y porcentajes redondeados al par (tests/datos/estadisticas.txt).
#include <gtest/gtest.h>

#include "apoyo/juego_casos.h"

namespace sabelot {
namespace {

SABELOT_CASOS_JUGADOS(Estadisticas, "estadisticas.txt");

}  // namespace
}  // namespace sabelot

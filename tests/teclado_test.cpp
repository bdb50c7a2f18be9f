// El mapa de teclas de la ventana principal: los casos de tests/datos/teclado.txt.
#include <gtest/gtest.h>

#include "apoyo/juego_casos.h"

namespace sabelot {
namespace {

SABELOT_CASOS_JUGADOS(Teclado, "teclado.txt");

}  // namespace
}  // namespace sabelot

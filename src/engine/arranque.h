// El arranque del juego y lo que dice al empezar.
#pragma once

#include <string>

#include "comun/estado.h"

namespace sabelot {

// El mensaje de bienvenida: jugadores, quesitos y las etiquetas de las categorías.
std::string MensajeBienvenida(const Module1& m);

}  // namespace sabelot

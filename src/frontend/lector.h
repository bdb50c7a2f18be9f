// El lector del tablero: las palabras de una casilla, de lo que la rodea y de las fichas
// que hay en ella, y el nombre de cada categoría. No hay dibujo del tablero: esto es lo
// que el jugador ve de él.
#pragma once

#include <string>

#include "comun/estado.h"

namespace sabelot {

// El rótulo de una categoría o de un tipo de casilla, con sus blancos. 0 y -1 son el centro,
// y el valor pasa a 7: así cambia el tema del centro la primera vez que se nombra.
std::string NombreTema(const Module1& m, int& Tema);

// El texto de la casilla Posicion (-1: la del cursor). En el centro, Rumbo pasa a ser el
// radio al que mira el jugador y CasillaPrevia se gasta.
std::string TextoCasilla(CamposForm1& f, const Module1& m, int& Posicion, int& Rumbo);

}  // namespace sabelot

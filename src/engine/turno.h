// El paso del turno, que dicen igual la pregunta normal y la del centro.
#pragma once

#include <string>

#include "engine/estado.h"

namespace sabelot {

// Lo que se añade al panel cuando el turno pasa a 'jugador'.
inline std::string LineaTurno(int jugador) {
    return std::string(CRLF) + "Turno del jugador " + std::to_string(jugador) +
           ". Pulsa espacio para lanzar los dados.";
}

}  // namespace sabelot

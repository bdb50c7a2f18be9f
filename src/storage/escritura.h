// La única manera en que el juego y sus herramientas escriben un fichero: nunca se pierde el
// que había ni se escribe fuera de donde toca.
#pragma once

#include <string>

#include "comun/plataforma.h"

namespace sabelot {

// Escribe los bytes como el fichero 'ruta', de una vez: primero en un fichero nuevo de la misma
// carpeta con un nombre que no existía (nunca uno que ya estuviera, ni siguiendo un enlace),
// llevado al disco, y después puesto en su lugar. El fichero que había conserva sus permisos, y
// si el jugador lo protegió contra escritura no se toca. Falso si no se pudo: entonces el
// fichero anterior queda como estaba y no queda nada más en la carpeta. Dos copias del juego
// que escriben a la vez dejan el fichero entero de una de las dos.
bool EscribirDeUnaVez(SistemaFicheros& ficheros, const std::string& ruta, const std::string& bytes);

}  // namespace sabelot

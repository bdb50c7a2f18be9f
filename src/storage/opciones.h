// El fichero de opciones Sabelot.ini: siete registros en el texto delimitado.
#pragma once

#include "engine/estado.h"
#include "engine/plataforma.h"
#include "storage/canales.h"

namespace sabelot {

// Si el fichero existe y se lee entero y bien, cambia las opciones del estado; si no
// existe, o está roto, no cambia nada ni dice nada (y no lo toca).
void LeerOpciones(Module1& m, Plataforma& p, Canales& canales);
// Escribe el fichero de una vez (temporal y renombrar). Falso si no se pudo; el
// fichero anterior queda como estaba.
bool GuardarOpciones(const Module1& m, Plataforma& p, Canales& canales);

}  // namespace sabelot

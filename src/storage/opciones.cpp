#include "storage/opciones.h"

namespace sabelot {

void LeerOpciones(Module1&, Plataforma&, Canales&) {}
bool GuardarOpciones(const Module1&, Plataforma&, Canales&) { return false; }

}  // namespace sabelot

#include "engine/form1.h"

namespace sabelot {

void Form1::GuardarPartida() {}
void Form1::CargarPartida() {}

}  // namespace sabelot

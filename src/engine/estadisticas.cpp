#include "engine/form1.h"

namespace sabelot {

void Form1::MostrarEstadisticas() {}

}  // namespace sabelot

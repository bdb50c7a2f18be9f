#include "engine/form1.h"

namespace sabelot {

bool Form1::FaltanFicheros() { return false; }

}  // namespace sabelot

#include "engine/form1.h"

namespace sabelot {

void Form1::Form_Load() {}

}  // namespace sabelot

#include "engine/form1.h"

namespace sabelot {

void Form1::ResolverTirada() {}

}  // namespace sabelot

#include "engine/form1.h"

namespace sabelot {

std::string Form1::NombreTema(int&) { return ""; }
void Form1::DescribirCasilla(int&, int&) {}
void Form1::DescribirCasilla() {}

}  // namespace sabelot

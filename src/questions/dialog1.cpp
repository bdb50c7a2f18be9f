#include "questions/dialog1.h"

namespace sabelot {

void Dialog1::Form_Activate() {}
void Dialog1::Text2_KeyDown(int&, int) { Visible = false; }
void Dialog1::Text2_KeyPress(int& KeyAscii) { KeyAscii = 0; }

}  // namespace sabelot

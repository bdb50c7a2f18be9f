#include "engine/form1.h"

namespace sabelot {

void Form1::Form_KeyDown(int KeyCode, int Shift) { Picture1_KeyDown(KeyCode, Shift); }
void Form1::Picture1_KeyDown(int, int) {}
void Form1::MediaPlayer1_PlayStateChange(int) {}

}  // namespace sabelot

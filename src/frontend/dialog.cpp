#include "frontend/dialog.h"

namespace sabelot {

void Dialog::Form_Load() { Cargado = true; }
void Dialog::Form_Activate() {}
void Dialog::Command1_Click(int) { Cargado = false; }
bool Dialog::Form_QueryUnload() { return false; }
void Dialog::AnalizarMensaje() {}
void Dialog::ColocarBotones() {}
void Dialog::Descargar() {}

}  // namespace sabelot

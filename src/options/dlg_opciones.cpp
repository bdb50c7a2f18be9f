#include "options/dlg_opciones.h"

namespace sabelot {

void DlgOpciones::Form_Load() { Cargado = true; }

}  // namespace sabelot

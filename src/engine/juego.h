// El juego entero: el estado compartido, los canales y los cuatro formularios,
// unidos sobre una plataforma. La ventana real y las pruebas crean uno cada una.
#pragma once

#include "comun/estado.h"
#include "comun/plataforma.h"
#include "engine/form1.h"
#include "frontend/dialog.h"
#include "options/dlg_opciones.h"
#include "questions/dialog1.h"
#include "storage/canales.h"

namespace sabelot {

struct Juego {
    explicit Juego(Plataforma& p)
        : canales(p.Ficheros()),
          dialog(m, p),
          dialog1(m, p, canales),
          opciones(m, p, canales),
          form1(m, p, canales, dialog, dialog1, opciones) {}

    Module1 m;
    Canales canales;
    Dialog dialog;
    Dialog1 dialog1;
    DlgOpciones opciones;
    Form1 form1;
};

}  // namespace sabelot

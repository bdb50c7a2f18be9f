// Los diálogos del juego. Al cerrarse uno, la ventana se queda en pantalla hasta que sale la
// siguiente o el juego queda a la espera (ver PlataformaWx): si no, el gestor de ventanas daría
// el foco un momento a la ventana principal entre un diálogo y el siguiente, y el lector la
// anunciaría sin nada nuevo; y lo que la partida dice justo al cerrarse (la casilla a la que se
// llega) se dice por el control que aún tiene el foco.
#pragma once

#include <wx/dialog.h>

class DialogoJuego : public wxDialog {
public:
    using wxDialog::wxDialog;

    // Mientras está puesto, terminar el modal no quita la ventana: la quita Retirar().
    void QuedarseAlCerrar(bool quedarse) { quedarse_ = quedarse; }
    void Retirar() {
        quedarse_ = false;
        if (IsShown()) wxDialog::Show(false);
    }

    bool Show(bool mostrar = true) override {
        if (!mostrar && quedarse_ && IsShown() && !IsModal()) return true;
        return wxDialog::Show(mostrar);
    }

private:
    bool quedarse_ = false;
};

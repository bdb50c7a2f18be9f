// Cuadro de entrada propio: una indicación, un campo con el texto inicial, Aceptar y Cancelar.
#pragma once

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/textctrl.h>
#include <wx/timer.h>

#include "anuncio.h"

class CajaEntrada : public wxDialog {
public:
    CajaEntrada(wxWindow* padre, const wxString& indicacion, const wxString& titulo,
                const wxString& inicial, Anunciador& anunciador);
    // Modal. El texto escrito, o "" si se cancela.
    wxString Mostrar();

    wxTextCtrl* Campo() const { return campo_; }
    const wxString& Indicacion() const { return indicacion_; }

private:
    void AlTecla(wxKeyEvent& evento);
    void Terminar(bool aceptar);
    void AnunciarApertura();

    Anunciador& anunciador_;
    wxString indicacion_;
    wxTextCtrl* campo_ = nullptr;
    wxButton* aceptar_ = nullptr;
    wxButton* cancelar_ = nullptr;
    wxTimer reserva_;
    bool anunciado_ = false;
    bool aceptado_ = false;
};

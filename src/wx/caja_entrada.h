// Cuadro de entrada propio: una indicación, un campo con el texto inicial, Aceptar y Cancelar.
// La indicación es el rótulo del campo: el lector la dice una vez, al llegar al campo.
#pragma once

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/textctrl.h>
#include <wx/timer.h>

#include "anuncio.h"
#include "wx/dialogo_juego.h"

class CajaEntrada : public DialogoJuego {
public:
    CajaEntrada(wxWindow* padre, const wxString& indicacion, const wxString& titulo, const wxString& inicial,
                Anunciador& anunciador);
    // Modal. El texto escrito, o "" si se cancela.
    wxString Mostrar();

    wxTextCtrl* Campo() const { return campo_; }
    const wxString& Indicacion() const { return indicacion_; }

private:
    void AlTecla(wxKeyEvent& evento);
    void Terminar(bool aceptar);

    wxString indicacion_;
    wxTextCtrl* campo_ = nullptr;
    wxButton* aceptar_ = nullptr;
    wxButton* cancelar_ = nullptr;
    wxTimer reserva_;  // por si el gestor de ventanas no llega a activar el cuadro
    bool aceptado_ = false;
};

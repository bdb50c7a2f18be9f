// Cuadro de mensaje propio: el texto va en un cuadro de solo lectura y es la descripción de la
// ventana, así que el lector de pantalla lo dice entero al abrirse, con el título y el botón
// que tiene el foco (el cuadro de GTK solo diría el título).
#pragma once

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/textctrl.h>
#include <wx/timer.h>

#include <vector>

#include "anuncio.h"
#include "wx/dialogo_juego.h"

class CajaMensaje : public DialogoJuego {
public:
    // estilo: 0 Aceptar, 4 Sí y No, 48 Aceptar con el icono de exclamación.
    CajaMensaje(wxWindow* padre, const wxString& texto, int estilo, const wxString& titulo,
                Anunciador& anunciador);
    // Modal. Devuelve 1 (Aceptar), 6 (Sí) o 7 (No).
    int Mostrar();

    const wxString& Texto() const { return texto_; }
    const std::vector<wxButton*>& Botones() const { return botones_; }

private:
    void Pulsar(wxButton* boton);
    void AlTecla(wxKeyEvent& evento);
    void AlCerrar(wxCloseEvent& evento);

    wxString texto_;
    bool siNo_;
    std::vector<wxButton*> botones_;
    wxTextCtrl* cuadro_ = nullptr;
    wxTimer reserva_;  // por si el gestor de ventanas no llega a activar el cuadro
    int resultado_ = 1;
};

// Texto de un botón tal como lo dice el lector (sin el marcador de tecla de acceso).
wxString EtiquetaDicha(wxButton* boton);

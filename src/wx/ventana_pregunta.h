// La ventana de Dialog1: la pregunta arriba y, debajo, la respuesta que se ve ahora. Se hace de
// nuevo para cada pregunta; lo que pasa de una a otra lo guarda la lógica.
#pragma once

#include <wx/dialog.h>
#include <wx/textctrl.h>

#include "questions/dialog1.h"
#include "wx/anuncio.h"
#include "wx/dialogo_juego.h"

// La respuesta que se ve: un cuadro que toma el foco y atiende las teclas de la pregunta. No es
// un campo de texto: nada se escribe en él, y el lector dice la respuesta una sola vez, sin
// leerla además como contenido de un campo.
class CuadroRespuesta : public wxWindow {
public:
    CuadroRespuesta(wxWindow* madre, const wxPoint& pos, const wxSize& tam);
    bool AcceptsFocus() const override { return true; }
    bool AcceptsFocusFromKeyboard() const override { return true; }
    void PonerTexto(const wxString& texto);
    const wxString& Texto() const { return texto_; }

private:
    wxString texto_;
    void AlPintar(wxPaintEvent& e);
};

class VentanaPregunta : public DialogoJuego, public sabelot::VistaDialog1 {
public:
    VentanaPregunta(wxWindow* padre, sabelot::Dialog1& logica, Anunciador& anunciador);
    ~VentanaPregunta() override;

    // Activa la lógica y espera hasta que se oculte.
    void MostrarModal();

    void Refrescar() override;
    void Ocultar() override;

    // El control por el que se dice lo que cambia: el que tiene el foco, la respuesta o la
    // pregunta, que atienden las mismas teclas.
    wxWindow* ControlQueHabla() const;

    // Para las pruebas.
    wxTextCtrl* Pregunta() const { return text1_; }
    CuadroRespuesta* Respuesta() const { return text2_; }

private:
    sabelot::Dialog1& logica_;
    Anunciador& anunciador_;
    wxTextCtrl* text1_ = nullptr;
    CuadroRespuesta* text2_ = nullptr;

    void AlTeclaAbajo(wxKeyEvent& e);
    void AlCaracter(wxKeyEvent& e);
    void AlCerrar(wxCloseEvent& e);
};

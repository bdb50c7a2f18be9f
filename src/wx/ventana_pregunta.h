// La ventana de Dialog1: la pregunta arriba y, debajo, la respuesta que se ve ahora.
// Se crea una vez y solo se oculta entre pregunta y pregunta.
#pragma once

#include <wx/dialog.h>
#include <wx/textctrl.h>
#include <wx/timer.h>

#include "questions/dialog1.h"
#include "wx/anuncio.h"

class VentanaPregunta : public wxDialog, public sabelot::VistaDialog1 {
public:
    VentanaPregunta(wxWindow* padre, sabelot::Dialog1& logica, Anunciador& anunciador);
    ~VentanaPregunta() override;

    // Activa la lógica y espera hasta que se oculte.
    void MostrarModal();

    void Refrescar() override;
    void Ocultar() override;

    // Para las pruebas.
    wxTextCtrl* Pregunta() const { return text1_; }
    wxTextCtrl* Respuesta() const { return text2_; }

private:
    sabelot::Dialog1& logica_;
    Anunciador& anunciador_;
    wxTextCtrl* text1_ = nullptr;
    wxTextCtrl* text2_ = nullptr;
    wxTimer temporizador_;
    bool anunciarPendiente_ = false;

    void Enfocar();
    void Anunciar();
    void AlTeclaAbajo(wxKeyEvent& e);
    void AlCaracter(wxKeyEvent& e);
    void AlTexto(wxCommandEvent& e);
    void AlCerrar(wxCloseEvent& e);
    void AlActivar(wxActivateEvent& e);
};

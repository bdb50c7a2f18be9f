// La ventana de Dialog: el texto de la oferta y siete botones, todo sacado de la lógica.
// Cada botón se alcanza con Tab y con las flechas; Enter y Espacio pulsan el que tiene el foco.
#pragma once

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/textctrl.h>

#include <array>

#include "frontend/dialog.h"
#include "wx/anuncio.h"
#include "wx/dialogo_juego.h"

class VentanaEleccion : public DialogoJuego, public sabelot::VistaDialog {
public:
    VentanaEleccion(wxWindow* padre, sabelot::Dialog& logica, Anunciador& anunciador);
    ~VentanaEleccion() override;

    // Carga, activa y espera a que la lógica se descargue.
    void MostrarModal();

    void Refrescar() override;
    void Descargar() override;

    // Para las pruebas: el botón Command1(indice) y Text1.
    wxButton* Boton(int indice) const { return botones_[static_cast<std::size_t>(indice)]; }
    wxTextCtrl* Texto() const { return text1_; }

private:
    sabelot::Dialog& logica_;
    Anunciador& anunciador_;
    wxTextCtrl* text1_ = nullptr;
    std::array<wxButton*, 7> botones_{};
    bool descargado_ = false;

    void Colocar();
    int IndiceDe(const wxWindow* ventana) const;
    bool EnUso(int indice) const;
    void Pulsar(int indice);
    void Mover(int desde, int paso);
    void EnfocarBoton();
    void AlTecla(wxKeyEvent& e);
    void AlCerrar(wxCloseEvent& e);
};

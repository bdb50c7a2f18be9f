// La ventana de DlgOpciones: rótulos con tecla de acceso, cinco listas, la línea de ayuda y
// dos botones, todo sacado de la lógica. Se crea una vez y se oculta entre apertura y apertura.
#pragma once

#include <array>

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/listbox.h>
#include <wx/stattext.h>
#include <wx/timer.h>

#include "engine/plataforma.h"
#include "options/dlg_opciones.h"
#include "wx/anuncio.h"

class VentanaOpciones : public wxDialog, public sabelot::VistaDlgOpciones {
public:
    VentanaOpciones(wxWindow* padre, sabelot::DlgOpciones& logica, Anunciador& anunciador,
                    sabelot::Plataforma& plataforma);
    ~VentanaOpciones() override;

    // Carga la lógica la primera vez, muestra y espera a que se oculte.
    void MostrarModal();

    void Refrescar() override;
    void Ocultar() override;

    // Para las pruebas: List1(0), List1(1), List2(0), List2(1), List2(2) por ese orden.
    wxListBox* Lista(int indice) const { return listas_[static_cast<std::size_t>(indice)]; }
    wxButton* Aceptar() const { return ok_; }
    wxButton* Cancelar() const { return cancelar_; }
    wxStaticText* Rotulo(int indice) const { return rotulos_[static_cast<std::size_t>(indice)]; }

private:
    sabelot::DlgOpciones& logica_;
    Anunciador& anunciador_;
    [[maybe_unused]] sabelot::Plataforma& plataforma_;
    std::array<wxStaticText*, 5> rotulos_{};
    std::array<wxListBox*, 5> listas_{};
    wxStaticText* ayuda_ = nullptr;
    wxButton* ok_ = nullptr;
    wxButton* cancelar_ = nullptr;
    wxTimer temporizador_;
    // Mientras se abre, el foco que pone el sistema no es del jugador.
    bool abriendo_ = false;
    // Mientras se pinta, los cambios de selección son nuestros, no del jugador.
    bool pintando_ = false;

    wxWindow* Control(sabelot::ControlOpciones c) const;
    void PintarLista(int indice, const sabelot::ListaOpciones& lista);
    void Enfocar();
    void AnunciarFoco();
    void AlFoco(sabelot::ControlOpciones control);
    void AlTecla(sabelot::ControlOpciones control, wxKeyEvent& e);
    void AlElegir(sabelot::ControlOpciones control, wxCommandEvent& e);
    void AlActivarFila(sabelot::ControlOpciones control);
    void AlTeclaVentana(wxKeyEvent& e);
    void AlPulsar(sabelot::ControlOpciones boton);
    void AlCerrar(wxCloseEvent& e);
    void AlActivar(wxActivateEvent& e);
};

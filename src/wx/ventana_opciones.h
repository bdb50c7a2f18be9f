// La ventana de DlgOpciones: rótulos con tecla de acceso, cinco listas, la línea de ayuda y
// dos botones, todo sacado de la lógica. Se hace de nuevo cada vez que se abre: la lógica
// guarda lo que el diálogo tiene entre apertura y apertura, y una ventana nueva no arrastra
// lo que el lector de pantalla recordaba de la anterior.
#pragma once

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/listbox.h>
#include <wx/stattext.h>

#include <array>

#include "options/dlg_opciones.h"
#include "wx/anuncio.h"
#include "wx/dialogo_juego.h"

class VentanaOpciones : public DialogoJuego, public sabelot::VistaDlgOpciones {
public:
    VentanaOpciones(wxWindow* padre, sabelot::DlgOpciones& logica, Anunciador& anunciador);
    ~VentanaOpciones() override;

    // Carga la lógica si hace falta, muestra y espera a que se oculte.
    void MostrarModal();

    void Refrescar() override;
    void Ocultar() override;

    // Para las pruebas: List1(0), List1(1), List2(0), List2(1), List2(2) por ese orden.
    wxListBox* Lista(int indice) const { return listas_[static_cast<std::size_t>(indice)]; }
    wxButton* Aceptar() const { return ok_; }
    wxButton* Cancelar() const { return cancelar_; }

private:
    sabelot::DlgOpciones& logica_;
    Anunciador& anunciador_;
    std::array<wxStaticText*, 5> rotulos_{};
    std::array<wxListBox*, 5> listas_{};
    wxStaticText* ayuda_ = nullptr;
    wxButton* ok_ = nullptr;
    wxButton* cancelar_ = nullptr;
    // Mientras se pinta, los cambios de selección y de foco son nuestros, no del jugador.
    bool pintando_ = false;

    wxWindow* Control(sabelot::ControlOpciones c) const;
    void PintarLista(int indice, const sabelot::ListaOpciones& lista);
    void Enfocar();
    void AlFoco(sabelot::ControlOpciones control, wxWindow* ventana);
    void AlTecla(sabelot::ControlOpciones control, wxKeyEvent& e);
    void AlElegir(sabelot::ControlOpciones control, wxCommandEvent& e);
    void AlActivarFila(sabelot::ControlOpciones control);
    void AlTeclaVentana(wxKeyEvent& e);
    void LlevarFoco(sabelot::ControlOpciones destino);
    void AlPulsar(sabelot::ControlOpciones boton);
    void AlCerrar(wxCloseEvent& e);
};

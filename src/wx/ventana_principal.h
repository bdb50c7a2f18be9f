// La ventana principal: Picture1 tiene el foco y recibe las teclas; Text1 muestra lo dicho.
#pragma once

#include <wx/frame.h>
#include <wx/textctrl.h>

#include <functional>

#include "anuncio.h"
#include "engine/form1.h"

class VentanaPrincipal : public wxFrame, public sabelot::VistaForm1 {
public:
    // alCerrar: lo que pasa al cerrar la ventana (la cierra quien la creó).
    VentanaPrincipal(sabelot::Form1& form1, Anunciador& anunciador, std::function<void()> alCerrar);
    ~VentanaPrincipal() override;

    wxWindow* Picture1() const { return picture1_; }
    wxTextCtrl* Text1() const { return text1_; }

    // Se muestra centrada por primera vez, con el foco en Picture1.
    void Aparecer();

    void PonerTexto1(const std::string& texto) override;
    void PonerTitulo(const std::string& titulo) override;
    void Mostrar() override;
    void Ocultar() override;
    bool FocoEnPicture1() override;
    void FocoAPicture1() override;

private:
    void AlTecla(wxKeyEvent& evento);
    void AlCerrar(wxCloseEvent& evento);

    sabelot::Form1& form1_;
    Anunciador& anunciador_;
    std::function<void()> alCerrar_;
    wxWindow* picture1_ = nullptr;
    wxTextCtrl* text1_ = nullptr;
};

// El programa con ventanas montado sobre una carpeta: lo usan el ejecutable y las pruebas.
#pragma once

#include <memory>
#include <string>

#include "anuncio.h"
#include "engine/juego.h"
#include "plataforma_wx.h"
#include "ventana_principal.h"

class ProgramaWx {
public:
    // Sin anunciador, el del sistema; las pruebas pueden poner uno que apunte lo dicho.
    explicit ProgramaWx(const std::string& carpeta, std::unique_ptr<Anunciador> anunciador = nullptr);
    ~ProgramaWx();
    ProgramaWx(const ProgramaWx&) = delete;
    ProgramaWx& operator=(const ProgramaWx&) = delete;

    // La carga de Form1 (con sus mensajes, antes de que haya ventana) y después la ventana.
    void Arrancar();

    Anunciador& anunciador() { return *anunciador_; }
    PlataformaWx& plataforma() { return *plataforma_; }
    sabelot::Juego& juego() { return *juego_; }
    // Nulo antes de Arrancar y cuando la ventana ya se ha destruido.
    VentanaPrincipal* ventana() { return ventana_; }

private:
    void CrearVentana();
    void CerrarVentana();

    std::unique_ptr<Anunciador> anunciador_;
    std::unique_ptr<PlataformaWx> plataforma_;
    std::unique_ptr<sabelot::Juego> juego_;
    VentanaPrincipal* ventana_ = nullptr;
};

// La carpeta del ejecutable.
std::string CarpetaDelEjecutable();

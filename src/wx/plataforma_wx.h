// La plataforma de verdad: cuadros propios, sonido con SDL, reloj, azar y ficheros reales.
#pragma once

#include <functional>
#include <memory>
#include <random>
#include <string>

#include <wx/event.h>
#include <wx/window.h>

#include "anuncio.h"
#include "engine/plataforma.h"
#include "sonido_sdl.h"
#include "storage/sistema_ficheros.h"

class VentanaPregunta;
class VentanaOpciones;

class PlataformaWx : public wxEvtHandler, public sabelot::Plataforma {
public:
    PlataformaWx(std::string carpetaPrograma, Anunciador& anunciador);
    ~PlataformaWx() override;

    // La ventana principal: madre de los diálogos y última en cerrarse.
    void PonerVentanaPrincipal(wxWindow* ventana);
    // Quién recibe el final del sonido del dado (Form1::MediaPlayer1_PlayStateChange(0)).
    void AlTerminarDado(std::function<void()> alTerminar) { alTerminarDado_ = std::move(alTerminar); }
    // Diálogos y cuadros modales abiertos ahora mismo.
    int ModalesAbiertos() const { return modales_; }
    // Destruye las ventanas de Dialog, Dialog1 y DlgOpciones, en este orden.
    void CerrarDialogos();

    int MsgBox(const std::string& texto, int estilo, const std::string& titulo) override;
    std::string InputBox(const std::string& indicacion, const std::string& titulo,
                         const std::string& inicial) override;
    void Beep() override;
    void Reproducir(sabelot::Reproductor reproductor, const std::string& ruta) override;
    void Hora(int& hora, int& minuto, int& segundo) override;
    void Randomize(std::int64_t semilla) override;
    double Rnd() override;
    std::string CarpetaPrograma() override { return carpeta_; }
    sabelot::SistemaFicheros& Ficheros() override { return ficheros_; }
    void MostrarDialog(sabelot::Dialog& dialogo) override;
    void MostrarDialog1(sabelot::Dialog1& dialogo) override;
    void MostrarDlgOpciones(sabelot::DlgOpciones& dialogo) override;
    [[noreturn]] void TerminarPrograma() override;

private:
    // Cuenta un modal mientras dura; al cerrarse el último entrega el final del dado que
    // haya llegado entretanto.
    class Modal {
    public:
        explicit Modal(PlataformaWx& p) : p_(p) { ++p_.modales_; }
        ~Modal();
        Modal(const Modal&) = delete;
        Modal& operator=(const Modal&) = delete;

    private:
        PlataformaWx& p_;
    };

    void FinDado();
    wxWindow* Madre() const;

    std::string carpeta_;
    Anunciador& anunciador_;
    sabelot::SistemaFicherosReal ficheros_;
    std::mt19937 azar_;
    std::uniform_real_distribution<double> reparto_{0.0, 1.0};
    std::unique_ptr<SonidoSdl> sonido_;
    std::function<void()> alTerminarDado_;
    bool finPendiente_ = false;
    int modales_ = 0;

    wxWindow* principal_ = nullptr;
    wxWindow* eleccion_ = nullptr;  // la de Dialog, solo mientras se muestra
    VentanaPregunta* pregunta_ = nullptr;
    VentanaOpciones* opciones_ = nullptr;
};

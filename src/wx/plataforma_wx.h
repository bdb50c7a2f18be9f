// La plataforma de verdad: cuadros propios, sonido con SDL, reloj, azar y ficheros reales.
#pragma once

#include <wx/event.h>
#include <wx/timer.h>
#include <wx/window.h>

#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "anuncio.h"
#include "comun/plataforma.h"
#include "dialogo_juego.h"
#include "sonido_sdl.h"
#include "storage/sistema_ficheros.h"

class VentanaPregunta;
class VentanaOpciones;

class PlataformaWx : public wxEvtHandler, public sabelot::Plataforma {
public:
    PlataformaWx(std::string carpetaPrograma, Anunciador& anunciador);
    ~PlataformaWx() override;

    // La ventana principal: madre de los diálogos y última en cerrarse. 'panel' es el control
    // que tiene el foco en ella y por el que se dice lo del panel; lo que se le dijo antes de
    // que hubiera ventana se le dice al ponerla.
    void PonerVentanaPrincipal(wxWindow* principal, wxWindow* panel);
    // Quién recibe el final del sonido del dado (Form1::MediaPlayer1_PlayStateChange(0)).
    void AlTerminarDado(std::function<void()> alTerminar) { alTerminarDado_ = std::move(alTerminar); }
    // Diálogos y cuadros modales abiertos ahora mismo.
    int ModalesAbiertos() const { return modales_; }
    // Quita las ventanas de los diálogos, las abiertas y las que se quedaron en pantalla.
    void CerrarDialogos();

    void Beep() override;
    void Reproducir(sabelot::Reproductor reproductor, const std::string& ruta) override;
    void Hora(int& hora, int& minuto, int& segundo) override;
    void Randomize(std::int64_t semilla) override;
    double Rnd() override;
    std::string CarpetaPrograma() override { return carpeta_; }
    sabelot::SistemaFicheros& Ficheros() override { return ficheros_; }
    [[noreturn]] void TerminarPrograma() override;

protected:
    int CuadroMensaje(const std::string& texto, int estilo, const std::string& titulo) override;
    std::string CuadroEntrada(const std::string& indicacion, const std::string& titulo,
                              const std::string& inicial) override;
    void AbrirDialog(sabelot::Dialog& dialogo) override;
    void AbrirDialog1(sabelot::Dialog1& dialogo) override;
    void AbrirDlgOpciones(sabelot::DlgOpciones& dialogo) override;
    void Decir(const std::string& texto, sabelot::Anuncios::Lugar lugar) override;

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
    // Un diálogo que, al cerrarse, se queda en pantalla hasta RetirarDiferidos.
    void Diferir(DialogoJuego* dialogo);
    void RetirarDiferidos();
    // Destruye los diálogos ocultos hace rato (o todos).
    void DestruirRetirados(bool todos);

    std::string carpeta_;
    Anunciador& anunciador_;
    sabelot::SistemaFicherosReal ficheros_;
    std::mt19937 azar_;
    std::uniform_real_distribution<double> reparto_{0.0, 1.0};
    std::unique_ptr<SonidoSdl> sonido_;
    std::function<void()> alTerminarDado_;
    bool finPendiente_ = false;
    bool huboVentana_ = false;
    std::vector<wxString> paraElPanel_;
    int modales_ = 0;

    wxWindow* principal_ = nullptr;
    wxWindow* panel_ = nullptr;
    // Los diálogos abiertos ahora, y los cerrados que aún no se han quitado de la pantalla.
    DialogoJuego* eleccion_ = nullptr;
    std::vector<DialogoJuego*> diferidos_;
    struct Retirado {
        DialogoJuego* dialogo;
        wxLongLong cuando;
    };
    std::vector<Retirado> retirados_;
    static constexpr int kVidaRetirados = 3000;  // ms
    wxTimer limpieza_;
    VentanaPregunta* pregunta_ = nullptr;
    DialogoJuego* opciones_ = nullptr;
};

// Apoyo de las pruebas con ventanas de verdad: una carpeta del programa con los datos del
// juego, esperar a que pase algo sin bloquear los eventos, y un vigilante que contesta con
// teclas de verdad a los diálogos modales que se abren.
#pragma once

#include <wx/dialog.h>
#include <wx/timer.h>
#include <wx/weakref.h>

#include <functional>
#include <string>
#include <vector>

namespace prueba_gui {

// Carpeta temporal con Sabelot.ini, preguntas y sonidos copiados de los datos del juego.
class CarpetaPrograma {
public:
    CarpetaPrograma();
    ~CarpetaPrograma();
    CarpetaPrograma(const CarpetaPrograma&) = delete;
    CarpetaPrograma& operator=(const CarpetaPrograma&) = delete;
    const std::string& Ruta() const { return ruta_; }
    void Borrar(const std::string& relativa) const;

private:
    std::string ruta_;
};

// Atiende los eventos hasta que se cumpla la condición o pase el tiempo; dice si se cumplió.
bool EsperarHasta(const std::function<bool()>& condicion, int milisegundos = 5000);
// Atiende los eventos durante un rato.
void Bombear(int milisegundos);

// Una tecla de verdad (por XTest) a la ventana que tenga el foco.
void PulsarTecla(int codigoWx, int modificadores = 0);

struct DialogoVisto {
    enum Clase { Mensaje, Entrada, Otro } clase;
    std::string titulo;
    std::string texto;      // el del cuadro de mensaje, o la indicación
    bool principalVisible;  // si la ventana principal se veía entonces
    bool hayOtroModalDebajo;
};

// Mira cada poco qué diálogo modal está activo; apunta cada uno nuevo y, cuando ya tiene el
// foco y ha pasado la espera, le pulsa la tecla que diga 'contestar' (Enter por omisión).
class Vigilante : public wxTimer {
public:
    explicit Vigilante(std::function<wxWindow*()> principal);
    ~Vigilante() override;

    std::vector<DialogoVisto> vistos;
    std::function<int(const DialogoVisto&)> contestar;
    // Cuánto se deja abierto cada diálogo antes de contestar.
    std::function<int(const DialogoVisto&)> espera;

    // Los diálogos vistos, uno por línea, para los mensajes de fallo.
    std::string Resumen() const;
    void Notify() override;

private:
    std::function<wxWindow*()> principal_;
    wxWeakRef<wxDialog> actual_;
    wxWeakRef<wxDialog> sinFoco_;
    long long sinFocoDesde_ = 0;
    long long desde_ = 0;
    int esperaActual_ = 50;
    bool pulsado_ = false;
};

}  // namespace prueba_gui

// Dialog: el diálogo en que el jugador elige entre hasta siete opciones con botones.
// La lógica guarda todo lo que se ve (título, texto, botones, foco); la vista lo pinta
// con Refrescar() y devuelve los eventos.
#pragma once

#include <array>
#include <string>

#include "comun/estado.h"
#include "comun/plataforma.h"

namespace sabelot {

// Los valores de ValorEnDado que no son una tirada y ponen otro título al diálogo.
inline constexpr int kElegirEnElCentro = -1;       // "Casilla central"
inline constexpr int kElegirEnLaPruebaFinal = -2;  // "PRUEBA FINAL"

class VistaDialog {
public:
    virtual ~VistaDialog() = default;
    // Vuelve a pintar título, Text1, botones y foco desde la lógica.
    virtual void Refrescar() = 0;
    // El diálogo se descarga: termina la llamada modal.
    virtual void Descargar() = 0;
};

class Dialog {
public:
    Dialog(Module1& m, Plataforma& p) : m_(m), p_(p) {}
    void PonerVista(VistaDialog* vista) { vista_ = vista; }
    // La vista que se va deja de pintar, si era la de ahora.
    void QuitarVista(const VistaDialog* vista) {
        if (vista_ == vista) vista_ = nullptr;
    }

    // Propiedades que pone quien lo llama.
    std::string Mensaje;
    int ValorEnDado = 0;

    // Campos.
    int NumOpciones = 0;
    std::array<int, 7> ValorOpcion{};
    std::array<std::string, 7> TextoOpcion{};

    // Lo que se ve.
    struct Boton {
        std::string Caption = "Command1";
        bool Visible = true;
        bool Enabled = true;
    };
    std::string Titulo = "Mover ficha";
    std::string Text1;
    std::array<Boton, 7> Command1{};
    int Foco = -1;  // índice del botón con el foco; -1 ninguno
    bool Cargado = false;

    // Eventos.
    void Form_Load();  // estado inicial de cada carga
    void Form_Activate();
    void Command1_Click(int Index);
    // Verdadero si se cancela el cierre (el jugador dijo No).
    bool Form_QueryUnload();

    void AnalizarMensaje();
    void ColocarBotones();

private:
    Module1& m_;
    Plataforma& p_;
    VistaDialog* vista_ = nullptr;
    void Descargar();
};

}  // namespace sabelot

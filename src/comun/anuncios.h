// Qué oye el jugador. El foco se queda en un control vacío (Picture1) o en el diálogo
// abierto, así que cada texto nuevo hay que mandárselo al lector de pantalla. Aquí se
// decide qué es nuevo; la plataforma solo lo entrega.
//
// - Un texto del panel que se reemplaza se dice entero; uno al que se le añade algo,
//   solo lo añadido.
// - Lo pendiente se dice al acabar la tecla o el evento (un tramo) y antes de abrir un
//   cuadro o un diálogo, para que vaya en su orden. Un texto que se reemplaza antes de
//   llegar a decirse ya no vale y no se dice.
// - Dentro de una misma tecla, el panel no repite lo que ya dijo.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace sabelot {

class Anuncios {
public:
    // Panel: el texto de Text1 de la ventana principal. Dialogo: algo del diálogo abierto.
    enum class Lugar { Panel, Dialogo };
    using Entrega = std::function<void(const std::string& texto, Lugar lugar)>;

    explicit Anuncios(Entrega entrega) : entrega_(std::move(entrega)) {}

    // El panel pasa a tener este texto entero.
    void Reemplazar(const std::string& texto);
    // Al panel se le añade esto detrás.
    void Anadir(const std::string& cola);
    // Un texto nuevo de un diálogo, como la respuesta que se ve ahora.
    void Decir(const std::string& texto);
    // Entrega ya lo pendiente, en orden.
    void Soltar();

    // Una tecla o un evento de principio a fin; al acabar se entrega lo pendiente. Se
    // anidan: una tecla de un diálogo abierto durante una tirada es un tramo dentro de otro.
    class Tramo {
    public:
        explicit Tramo(Anuncios& a);
        ~Tramo();
        Tramo(const Tramo&) = delete;
        Tramo& operator=(const Tramo&) = delete;

    private:
        Anuncios& a_;
    };

private:
    struct Pendiente {
        std::string texto;
        Lugar lugar;
    };

    Entrega entrega_;
    std::vector<Pendiente> pendientes_;
    // Lo que el panel ya dijo en cada tramo abierto, del de fuera al de dentro.
    std::vector<std::vector<std::string>> dichos_;

    void AlCambiar();
};

}  // namespace sabelot

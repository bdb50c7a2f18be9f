// Cómo llega al lector de pantalla lo que la lógica decide decir. El foco se queda en
// Picture1, un control vacío, o en los controles de un diálogo, así que cada texto nuevo hay que
// empujarlo. Una implementación por sistema (anuncio_gtk.cpp, anuncio_win.cpp, anuncio_mac.mm),
// elegida al construir.
#pragma once

#include <wx/string.h>
#include <wx/window.h>

#include <memory>

class Anunciador {
public:
    virtual ~Anunciador() = default;
    // Dice el texto ya, por el control que tenga el foco. Si ningún control del programa lo
    // tiene (la ventana principal aún no ha salido), espera a que lo tenga 'casa'. Un texto
    // repetido se vuelve a decir.
    virtual void Anunciar(wxWindow* casa, const wxString& texto) = 0;
    // Dice el texto por 'control' en cuanto tenga el foco: lo que una ventana presenta al
    // abrirse, detrás de su título.
    virtual void AnunciarAlEnfocar(wxWindow* control, const wxString& texto) = 0;
    // Nombre y descripción accesibles fijos de un control o de una ventana (la descripción de
    // un cuadro de mensaje es su texto). Un nombre vacío deja el que tenga.
    virtual void Nombrar(wxWindow* control, const wxString& nombre, const wxString& descripcion) = 0;
};

std::unique_ptr<Anunciador> CrearAnunciador();

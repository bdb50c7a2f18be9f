// Lo que el lector de pantalla debe decir. El foco se queda en Picture1, un control
// vacío, así que cada texto nuevo hay que empujarlo al lector: una implementación por
// sistema (anuncio_gtk.cpp, anuncio_win.cpp, anuncio_mac.mm), elegida al construir.
#pragma once

#include <memory>

#include <wx/string.h>
#include <wx/window.h>

class Anunciador {
public:
    virtual ~Anunciador() = default;
    // Dice el texto a través del control 'foco' (el que tiene el foco del teclado).
    // Un texto repetido se vuelve a decir.
    virtual void Anunciar(wxWindow* foco, const wxString& texto) = 0;
    // Da al control un nombre y una descripción accesibles fijos (p. ej. el texto de un cuadro
    // de mensaje en la ventana del diálogo).
    virtual void Nombrar(wxWindow* control, const wxString& nombre, const wxString& descripcion) = 0;
};

std::unique_ptr<Anunciador> CrearAnunciador();

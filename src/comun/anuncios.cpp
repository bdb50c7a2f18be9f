#include "comun/anuncios.h"

#include <algorithm>

namespace sabelot {

namespace {

// Un texto de solo blancos y saltos de línea no dice nada.
bool SinNadaQueDecir(const std::string& s) { return s.find_first_not_of(" \r\n") == std::string::npos; }

}  // namespace

void Anuncios::Reemplazar(const std::string& texto) {
    // Lo que el panel tenía pendiente ya no es verdad: no se dice.
    pendientes_.erase(std::remove_if(pendientes_.begin(), pendientes_.end(),
                                     [](const Pendiente& p) { return p.lugar == Lugar::Panel; }),
                      pendientes_.end());
    pendientes_.push_back({texto, Lugar::Panel});
    AlCambiar();
}

void Anuncios::Anadir(const std::string& cola) {
    auto panel = std::find_if(pendientes_.begin(), pendientes_.end(),
                              [](const Pendiente& p) { return p.lugar == Lugar::Panel; });
    if (panel != pendientes_.end())
        panel->texto += cola;
    else
        pendientes_.push_back({cola, Lugar::Panel});
    AlCambiar();
}

void Anuncios::Decir(const std::string& texto) {
    pendientes_.push_back({texto, Lugar::Dialogo});
    AlCambiar();
}

void Anuncios::AlCambiar() {
    // Fuera de un tramo nadie va a soltarlo después: se dice ya.
    if (dichos_.empty()) Soltar();
}

void Anuncios::Soltar() {
    std::vector<Pendiente> ahora;
    ahora.swap(pendientes_);
    for (Pendiente& p : ahora) {
        const std::string& texto = p.texto;
        if (SinNadaQueDecir(texto)) continue;
        if (p.lugar == Lugar::Panel && !dichos_.empty()) {
            std::vector<std::string>& dichos = dichos_.back();
            if (std::find(dichos.begin(), dichos.end(), texto) != dichos.end()) continue;
            dichos.push_back(texto);
        }
        entrega_(texto, p.lugar);
    }
}

Anuncios::Tramo::Tramo(Anuncios& a) : a_(a) { a_.dichos_.emplace_back(); }

Anuncios::Tramo::~Tramo() {
    a_.Soltar();
    a_.dichos_.pop_back();
}

}  // namespace sabelot

// Apoyo de las pruebas con ventanas: teclas de verdad mientras un diálogo modal espera,
// y un anunciador que apunta lo que se le manda decir.
#pragma once

#include <gtest/gtest.h>
#include <wx/dialog.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "wx/anuncio.h"

namespace sabelot::prueba {

class AnunciadorPrueba : public Anunciador {
public:
    std::vector<wxString> dichos;
    std::map<const wxWindow*, std::pair<wxString, wxString>> nombres;

    void Anunciar(wxWindow*, const wxString& texto) override { dichos.push_back(texto); }
    void AnunciarAlEnfocar(wxWindow*, const wxString& texto) override { dichos.push_back(texto); }
    void Nombrar(wxWindow* control, const wxString& nombre, const wxString& descripcion) override {
        nombres[control] = {nombre, descripcion};
    }
};

// Corre los pasos uno a uno, con una pausa entre ellos para que el sistema reparta las
// teclas. Si el diálogo sigue abierto al acabar, lo cierra y la prueba falla.
class Pasos : public wxTimer {
public:
    Pasos(wxDialog& dialogo, std::vector<std::function<void()>> pasos, int pausaMs = 300)
        : dialogo_(dialogo), pasos_(std::move(pasos)) {
        Start(pausaMs);
    }
    ~Pasos() override { Stop(); }

    bool Acabados() const { return siguiente_ >= pasos_.size(); }

    void Notify() override {
        // Las teclas van a la ventana activa: hasta que el gestor de ventanas la active, se espera.
        if (siguiente_ == 0 && !dialogo_.IsActive() && ++esperas_ < 20) return;
        if (siguiente_ < pasos_.size()) {
            pasos_[siguiente_++]();
            return;
        }
        // Un paso de más: el último paso debía haber cerrado el diálogo.
        Stop();
        if (dialogo_.IsModal()) {
            ADD_FAILURE() << "El diálogo sigue abierto tras el último paso";
            dialogo_.EndModal(wxID_CANCEL);
        }
    }

private:
    wxDialog& dialogo_;
    std::vector<std::function<void()>> pasos_;
    std::size_t siguiente_ = 0;
    int esperas_ = 0;
};

inline std::function<void()> Tecla(int codigo, int modificadores = wxMOD_NONE) {
    return [codigo, modificadores] {
        wxUIActionSimulator sim;
        sim.Char(codigo, modificadores);
    };
}

}  // namespace sabelot::prueba

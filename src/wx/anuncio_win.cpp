// Anuncios en Windows: el puente entre las ventanas wxWidgets y la cadena de lectores
// (lectores_win.cpp), que no sabe nada de wxWidgets.
#include <wx/control.h>
#include <wx/msw/wrapwin.h>

#include "anuncio_tecla.h"

#if wxUSE_ACCESSIBILITY
#include <wx/access.h>
#endif

#include "lectores_win.h"

namespace {

HWND Ventana(wxWindow* w) { return w ? reinterpret_cast<HWND>(w->GetHWND()) : nullptr; }

#if wxUSE_ACCESSIBILITY
// Nombre y descripción propios para MSAA sin tocar lo que se ve: lo que no se fija aquí lo
// sigue contestando Windows como siempre.
class Accesible : public wxAccessible {
public:
    explicit Accesible(wxWindow* w) : wxAccessible(w) {}

    wxAccStatus GetName(int hijo, wxString* nombre) override {
        const wxString& n = dicho_.empty() ? nombre_ : dicho_;
        if (hijo != wxACC_SELF || n.empty()) return wxACC_NOT_IMPLEMENTED;
        *nombre = n;
        return wxACC_OK;
    }
    wxAccStatus GetDescription(int hijo, wxString* descripcion) override {
        if (hijo != wxACC_SELF || descripcion_.empty()) return wxACC_NOT_IMPLEMENTED;
        *descripcion = descripcion_;
        return wxACC_OK;
    }

    wxString nombre_;
    wxString descripcion_;
    wxString dicho_;  // lo último anunciado por MSAA, hasta que el control pierde el foco
};

// El objeto propio del control, creado la primera vez.
Accesible* AccesibleDe(wxWindow* w) {
    if (!w) return nullptr;
    if (auto* a = dynamic_cast<Accesible*>(w->GetAccessible())) return a;
    auto* a = new Accesible(w);
    w->SetAccessible(a);  // la ventana se queda con él
    // Un anuncio es del momento: al volver al control más tarde se oye su nombre de siempre.
    w->Bind(wxEVT_KILL_FOCUS, [w](wxFocusEvent& e) {
        if (auto* acc = dynamic_cast<Accesible*>(w->GetAccessible())) acc->dicho_.clear();
        e.Skip();
    });
    return a;
}
#endif

class AnunciadorWin : public AnunciadorPorTecla {
public:
    AnunciadorWin() {
        // En la vía MSAA el texto va al nombre accesible, no al texto de la ventana, que en
        // un botón es lo que se ve.
        cadena_.PonerNombre = [this](HWND v, const std::wstring& texto) {
            wxWindow* w = actual_;
            if (!w) return;
#if wxUSE_ACCESSIBILITY
            if (Accesible* a = AccesibleDe(w)) a->dicho_ = wxString(texto.c_str());
            wxUnusedVar(v);  // el texto de la ventana no se toca
#else
            // Sin accesibilidad en wxWidgets, solo en un control sin rótulo visible.
            if (!dynamic_cast<wxControl*>(w)) SetWindowTextW(v, texto.c_str());
#endif
        };
    }

    void Anunciar(wxWindow* foco, const wxString& texto) override {
        wxWindow* w = wxWindow::FindFocus();
        if (!w) w = foco;
        const bool interrumpir = Interrumpe();
        actual_ = w;
        cadena_.Decir(Ventana(w), std::wstring(texto.wc_str()), interrumpir);
        actual_ = nullptr;
    }

    void Nombrar(wxWindow* control, const wxString& nombre, const wxString& descripcion) override {
        if (!control) return;
#if wxUSE_ACCESSIBILITY
        if (Accesible* a = AccesibleDe(control)) {
            a->nombre_ = nombre;
            a->descripcion_ = descripcion;
        }
#else
        // Un control sin texto propio se nombra por el texto de su ventana; las de arriba ya
        // se nombran por su título.
        if (!nombre.empty() && !control->IsTopLevel()) control->SetLabel(nombre);
        wxUnusedVar(descripcion);  // sin objeto accesible propio no hay dónde ponerla
#endif
    }

private:
    lectores::Cadena cadena_;
    wxWindow* actual_ = nullptr;  // el control que recibe el texto mientras se dice
};

}  // namespace

std::unique_ptr<Anunciador> CrearAnunciador() { return std::make_unique<AnunciadorWin>(); }

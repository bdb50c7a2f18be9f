// Anuncios en macOS: VoiceOver dice lo que se le pide con la notificación de anuncio, sin
// que cambie el foco ni nada de la ventana.
#import <AppKit/AppKit.h>

#include <wx/eventfilter.h>

#include <map>

#include "anuncio.h"

namespace {

// Nunca nil: un nil en el diccionario del anuncio sería una excepción.
NSString* Texto(const wxString& s) {
    NSString* r = [NSString stringWithUTF8String:s.utf8_str().data()];
    return r ? r : @"";
}

// En wxOSX GetHandle() es la NSView del control.
NSView* Vista(wxWindow* w) { return w ? static_cast<NSView*>(w->GetHandle()) : nil; }

// Un texto corta al anterior solo si entre medias se ha pulsado una tecla o el ratón: los
// textos de una misma tecla, aunque lleguen por temporizador, van uno tras otro.
class AnunciadorMac : public Anunciador, public wxEventFilter {
public:
    AnunciadorMac() { wxEvtHandler::AddFilter(this); }
    ~AnunciadorMac() override { wxEvtHandler::RemoveFilter(this); }

    int FilterEvent(wxEvent& evento) override {
        const wxEventType tipo = evento.GetEventType();
        if (tipo == wxEVT_CHAR_HOOK || tipo == wxEVT_LEFT_DOWN) teclaNueva_ = true;
        if (tipo == wxEVT_SET_FOCUS) {
            // Lo que espera a este control se dice detrás de lo que el lector dice al llegar.
            auto* w = dynamic_cast<wxWindow*>(evento.GetEventObject());
            auto it = alEnfocar_.find(w);
            if (it != alEnfocar_.end()) {
                const wxString texto = it->second;
                alEnfocar_.erase(it);
                w->CallAfter([this, w, texto] { Anunciar(w, texto); });
            }
        } else if (tipo == wxEVT_DESTROY) {
            alEnfocar_.erase(dynamic_cast<wxWindow*>(evento.GetEventObject()));
        }
        return Event_Skip;
    }

    void AnunciarAlEnfocar(wxWindow* control, const wxString& texto) override {
        if (!control) return;
        if (wxWindow::FindFocus() == control) {
            Anunciar(control, texto);
            return;
        }
        alEnfocar_[control] = texto;
    }

    void Anunciar(wxWindow* foco, const wxString& texto) override {
        // La ventana principal de la aplicación es donde VoiceOver escucha con seguridad;
        // si aún no hay, vale la vista del control.
        id origen = NSApp.mainWindow;
        if (!origen) origen = Vista(foco);
        if (!origen) return;
        // Prioridad alta: corta lo que se esté diciendo; media: va detrás.
        const bool interrumpir = teclaNueva_;
        teclaNueva_ = false;
        NSDictionary* datos = @{
            NSAccessibilityAnnouncementKey : Texto(texto),
            NSAccessibilityPriorityKey :
                @(interrumpir ? NSAccessibilityPriorityHigh : NSAccessibilityPriorityMedium)
        };
        NSAccessibilityPostNotificationWithUserInfo(origen, NSAccessibilityAnnouncementRequestedNotification,
                                                    datos);
    }

    void Nombrar(wxWindow* control, const wxString& nombre, const wxString& descripcion) override {
        NSView* v = Vista(control);
        if (!v) return;
        if (!nombre.empty()) [v setAccessibilityLabel:Texto(nombre)];
        [v setAccessibilityHelp:descripcion.empty() ? nil : Texto(descripcion)];
    }

private:
    std::map<wxWindow*, wxString> alEnfocar_;
    bool teclaNueva_ = true;  // el primer texto no espera a nadie
};

}  // namespace

std::unique_ptr<Anunciador> CrearAnunciador() { return std::make_unique<AnunciadorMac>(); }

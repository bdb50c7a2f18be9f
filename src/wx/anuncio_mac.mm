// Anuncios en macOS: VoiceOver dice lo que se le pide con la notificación de anuncio, sin
// que cambie el foco ni nada de la ventana.
#import <AppKit/AppKit.h>

#include <wx/app.h>

#include "anuncio.h"

namespace {

NSString* Texto(const wxString& s) { return [NSString stringWithUTF8String:s.utf8_str().data()]; }

// En wxOSX GetHandle() es la NSView del control.
NSView* Vista(wxWindow* w) { return w ? static_cast<NSView*>(w->GetHandle()) : nil; }

class AnunciadorMac : public Anunciador {
public:
    void Anunciar(wxWindow* foco, const wxString& texto) override {
        // La ventana principal de la aplicación es donde VoiceOver escucha con seguridad;
        // si aún no hay, vale la vista del control.
        id origen = NSApp.mainWindow ? static_cast<id>(NSApp.mainWindow) : static_cast<id>(Vista(foco));
        if (!origen) return;
        // El primer texto de una tecla va con prioridad alta y corta lo que se esté diciendo;
        // los demás de la misma tecla van detrás. La ráfaga acaba al quedar libre el bucle.
        const bool interrumpir = !*enRafaga_;
        if (interrumpir && wxTheApp) {
            *enRafaga_ = true;
            std::shared_ptr<bool> rafaga = enRafaga_;
            wxTheApp->CallAfter([rafaga] { *rafaga = false; });
        }
        NSDictionary* datos = @{
            NSAccessibilityAnnouncementKey : Texto(texto),
            NSAccessibilityPriorityKey : @(interrumpir ? NSAccessibilityPriorityHigh : NSAccessibilityPriorityMedium)
        };
        NSAccessibilityPostNotificationWithUserInfo(origen, NSAccessibilityAnnouncementRequestedNotification, datos);
    }

    void Nombrar(wxWindow* control, const wxString& nombre, const wxString& descripcion) override {
        NSView* v = Vista(control);
        if (!v) return;
        if (!nombre.empty()) [v setAccessibilityLabel:Texto(nombre)];
        [v setAccessibilityHelp:descripcion.empty() ? nil : Texto(descripcion)];
    }

private:
    std::shared_ptr<bool> enRafaga_ = std::make_shared<bool>(false);
};

}  // namespace

std::unique_ptr<Anunciador> CrearAnunciador() { return std::make_unique<AnunciadorMac>(); }

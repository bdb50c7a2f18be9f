// Anuncios en macOS: VoiceOver dice lo que se le pide con la notificación de anuncio, sin
// que cambie el foco ni nada de la ventana.
#import <AppKit/AppKit.h>

#include "anuncio_tecla.h"

namespace {

// Nunca nil: un nil en el diccionario del anuncio sería una excepción.
NSString* Texto(const wxString& s) {
    NSString* r = [NSString stringWithUTF8String:s.utf8_str().data()];
    return r ? r : @"";
}

// En wxOSX GetHandle() es la NSView del control.
NSView* Vista(wxWindow* w) { return w ? static_cast<NSView*>(w->GetHandle()) : nil; }

class AnunciadorMac : public AnunciadorPorTecla {
public:
    void Anunciar(wxWindow* foco, const wxString& texto) override {
        // La ventana principal de la aplicación es donde VoiceOver escucha con seguridad;
        // si aún no hay, vale la vista del control.
        id origen = NSApp.mainWindow;
        if (!origen) origen = Vista(foco);
        if (!origen) return;
        // Prioridad alta: corta lo que se esté diciendo; media: va detrás.
        const bool interrumpir = Interrumpe();
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
};

}  // namespace

std::unique_ptr<Anunciador> CrearAnunciador() { return std::make_unique<AnunciadorMac>(); }

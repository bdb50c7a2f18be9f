// Lo que comparten los anuncios de Windows y de macOS, donde el lector recibe cada texto como
// un anuncio suelto: un texto nuevo corta el anterior solo si entre medias se ha pulsado una
// tecla (o el ratón), y lo que una ventana presenta espera a que su control tenga el foco.
// wxEVT_CHAR_HOOK llega una vez por pulsación y antes que cualquier manejador de la tecla.
#pragma once

#include <wx/eventfilter.h>

#include <map>

#include "anuncio.h"

class AnunciadorPorTecla : public Anunciador, public wxEventFilter {
public:
    AnunciadorPorTecla() { wxEvtHandler::AddFilter(this); }
    ~AnunciadorPorTecla() override { wxEvtHandler::RemoveFilter(this); }
    AnunciadorPorTecla(const AnunciadorPorTecla&) = delete;
    AnunciadorPorTecla& operator=(const AnunciadorPorTecla&) = delete;

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

protected:
    // Si este texto corta lo que se esté diciendo: solo el primero tras una tecla.
    bool Interrumpe() {
        const bool si = teclaNueva_;
        teclaNueva_ = false;
        return si;
    }

private:
    std::map<wxWindow*, wxString> alEnfocar_;
    bool teclaNueva_ = true;  // el primer texto no espera a nadie
};

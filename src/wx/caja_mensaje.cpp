#include "caja_mensaje.h"

#include <wx/artprov.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/tokenzr.h>

#include <algorithm>

namespace {

// Tamaño del cuadro de texto para que el mensaje se vea sin desplazarse, con un tope.
wxSize MedidaTexto(wxWindow* w, const wxString& texto) {
    int ancho = 0, lineas = 0;
    wxStringTokenizer partes(texto, "\n", wxTOKEN_RET_EMPTY_ALL);
    const int tope = w->FromDIP(560);
    int alto = w->GetCharHeight();
    while (partes.HasMoreTokens()) {
        wxString l = partes.GetNextToken();
        l.Replace("\r", "");
        int a = 0, h = 0;
        w->GetTextExtent(l.empty() ? wxString(" ") : l, &a, &h);
        alto = std::max(alto, h);
        ancho = std::max(ancho, a);
        lineas += 1 + a / tope;
    }
    ancho = std::clamp(ancho + w->FromDIP(24), w->FromDIP(260), tope + w->FromDIP(24));
    const int altura = std::min(lineas * alto + w->FromDIP(16), w->FromDIP(420));
    return {ancho, altura};
}

}  // namespace

wxString EtiquetaDicha(wxButton* boton) { return wxStripMenuCodes(boton->GetLabel()); }

CajaMensaje::CajaMensaje(wxWindow* padre, const wxString& texto, int estilo, const wxString& titulo,
                         Anunciador& anunciador)
    : DialogoJuego(padre, wxID_ANY, titulo, wxDefaultPosition, wxDefaultSize,
                   wxDEFAULT_DIALOG_STYLE & ~wxRESIZE_BORDER),
      texto_(texto),
      siNo_((estilo & 7) == 4),
      reserva_() {
    auto* fila = new wxBoxSizer(wxHORIZONTAL);
    if ((estilo & 48) == 48) {
        fila->Add(
            new wxStaticBitmap(this, wxID_ANY, wxArtProvider::GetBitmap(wxART_WARNING, wxART_MESSAGE_BOX)), 0,
            wxALL | wxALIGN_TOP, FromDIP(10));
    }
    cuadro_ = new wxTextCtrl(this, wxID_ANY, texto, wxDefaultPosition, wxDefaultSize,
                             wxTE_MULTILINE | wxTE_READONLY | wxTE_WORDWRAP);
    cuadro_->SetMinSize(MedidaTexto(cuadro_, texto));
    fila->Add(cuadro_, 1, wxALL | wxEXPAND, FromDIP(10));

    auto* pie = new wxBoxSizer(wxHORIZONTAL);
    auto boton = [&](const char* etiqueta, int resultado) {
        auto* b = new wxButton(this, wxID_ANY, wxString::FromUTF8(etiqueta));
        b->Bind(wxEVT_BUTTON, [this, resultado](wxCommandEvent&) {
            resultado_ = resultado;
            EndModal(wxID_OK);
        });
        pie->Add(b, 0, wxALL, FromDIP(5));
        botones_.push_back(b);
    };
    if (siNo_) {
        boton("Sí", 6);
        boton("No", 7);
    } else {
        boton("Aceptar", 1);
    }
    auto* todo = new wxBoxSizer(wxVERTICAL);
    todo->Add(fila, 1, wxEXPAND);
    todo->Add(pie, 0, wxALIGN_CENTER | wxBOTTOM, FromDIP(5));
    SetSizerAndFit(todo);
    CentreOnParent();

    // El primer botón tiene el foco antes de mostrarse, como en cualquier cuadro de mensaje:
    // así el lector lo dice una vez, detrás del texto.
    botones_.front()->SetDefault();
    botones_.front()->SetFocus();
    anunciador.Nombrar(this, titulo, texto);

    Bind(wxEVT_CHAR_HOOK, &CajaMensaje::AlTecla, this);
    Bind(wxEVT_CLOSE_WINDOW, &CajaMensaje::AlCerrar, this);
    // Sin gestor de ventanas nadie activa el cuadro: se pide el foco para él.
    reserva_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) {
        if (IsShown() && !IsActive()) {
            Raise();
            botones_.front()->SetFocus();
        }
    });
}

int CajaMensaje::Mostrar() {
    resultado_ = siNo_ ? 7 : 1;
    reserva_.StartOnce(700);
    ShowModal();
    reserva_.Stop();
    return resultado_;
}

void CajaMensaje::Pulsar(wxButton* boton) {
    wxCommandEvent clic(wxEVT_BUTTON, boton->GetId());
    clic.SetEventObject(boton);
    boton->GetEventHandler()->ProcessEvent(clic);
}

void CajaMensaje::AlTecla(wxKeyEvent& evento) {
    const int c = evento.GetKeyCode();
    wxWindow* foco = FindFocus();
    wxButton* enfocado = nullptr;
    for (wxButton* b : botones_)
        if (b == foco) enfocado = b;
    if (c == WXK_RETURN || c == WXK_NUMPAD_ENTER) {
        Pulsar(enfocado ? enfocado : botones_.front());
    } else if ((c == WXK_SPACE || c == WXK_NUMPAD_SPACE) && enfocado) {
        Pulsar(enfocado);
    } else if (c == WXK_ESCAPE) {
        Pulsar(botones_.back());  // el único, o No
    } else {
        evento.Skip();
    }
}

void CajaMensaje::AlCerrar(wxCloseEvent&) {
    resultado_ = siNo_ ? 7 : 1;
    EndModal(wxID_CANCEL);
}

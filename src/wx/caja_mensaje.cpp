#include "caja_mensaje.h"

#include <algorithm>

#include <wx/artprov.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/tokenzr.h>

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
    : wxDialog(padre, wxID_ANY, titulo, wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE & ~wxRESIZE_BORDER),
      anunciador_(anunciador),
      texto_(texto),
      siNo_((estilo & 7) == 4),
      reserva_() {
    auto* fila = new wxBoxSizer(wxHORIZONTAL);
    if ((estilo & 48) == 48) {
        fila->Add(new wxStaticBitmap(this, wxID_ANY, wxArtProvider::GetBitmap(wxART_WARNING, wxART_MESSAGE_BOX)),
                  0, wxALL | wxALIGN_TOP, FromDIP(10));
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

    // El primer botón recibe el foco, como en cualquier cuadro de mensaje.
    botones_.front()->SetDefault();
    botones_.front()->SetFocus();
    anunciador_.Nombrar(this, titulo, texto);

    Bind(wxEVT_CHAR_HOOK, &CajaMensaje::AlTecla, this);
    Bind(wxEVT_ACTIVATE, &CajaMensaje::AlActivar, this);
    Bind(wxEVT_CLOSE_WINDOW, &CajaMensaje::AlCerrar, this);
    reserva_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { AnunciarApertura(); });
    etiqueta_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { AnunciarBoton(); });
}

int CajaMensaje::Mostrar() {
    resultado_ = siNo_ ? 7 : 1;
    anunciado_ = false;
    reserva_.StartOnce(700);
    ShowModal();
    reserva_.Stop();
    etiqueta_.Stop();
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

void CajaMensaje::AlActivar(wxActivateEvent& evento) {
    evento.Skip();
    // El foco del control ya está puesto cuando se procese esto.
    if (evento.GetActive() && !anunciado_) CallAfter(&CajaMensaje::AnunciarApertura);
}

void CajaMensaje::AlCerrar(wxCloseEvent&) {
    resultado_ = siNo_ ? 7 : 1;
    EndModal(wxID_CANCEL);
}

void CajaMensaje::AnunciarApertura() {
    if (anunciado_ || !IsShown()) return;
    anunciado_ = true;
    reserva_.Stop();
    // Si el gestor de ventanas no le ha dado el foco, se le pide.
    if (!IsActive()) Raise();
    anunciador_.Anunciar(FindFocus(), texto_);
    // El botón, después del texto y un momento más tarde, para que no se pisen.
    etiqueta_.StartOnce(150);
}

void CajaMensaje::AnunciarBoton() {
    if (!IsShown()) return;
    wxWindow* foco = FindFocus();
    wxButton* boton = botones_.front();
    for (wxButton* b : botones_)
        if (b == foco) boton = b;
    anunciador_.Anunciar(foco ? foco : boton, EtiquetaDicha(boton));
}

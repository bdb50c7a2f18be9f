#include "caja_entrada.h"

#include <wx/sizer.h>
#include <wx/stattext.h>

CajaEntrada::CajaEntrada(wxWindow* padre, const wxString& indicacion, const wxString& titulo,
                         const wxString& inicial, Anunciador& anunciador)
    : wxDialog(padre, wxID_ANY, titulo), anunciador_(anunciador), indicacion_(indicacion), reserva_() {
    auto* etiqueta = new wxStaticText(this, wxID_ANY, indicacion);
    etiqueta->Wrap(FromDIP(420));
    campo_ = new wxTextCtrl(this, wxID_ANY, inicial, wxDefaultPosition, wxSize(FromDIP(420), -1));
    aceptar_ = new wxButton(this, wxID_ANY, wxString::FromUTF8("Aceptar"));
    cancelar_ = new wxButton(this, wxID_ANY, wxString::FromUTF8("Cancelar"));
    aceptar_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Terminar(true); });
    cancelar_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Terminar(false); });

    auto* pie = new wxBoxSizer(wxHORIZONTAL);
    pie->Add(aceptar_, 0, wxALL, FromDIP(5));
    pie->Add(cancelar_, 0, wxALL, FromDIP(5));
    auto* todo = new wxBoxSizer(wxVERTICAL);
    todo->Add(etiqueta, 0, wxALL, FromDIP(10));
    todo->Add(campo_, 0, wxLEFT | wxRIGHT | wxEXPAND, FromDIP(10));
    todo->Add(pie, 0, wxALIGN_RIGHT | wxALL, FromDIP(5));
    SetSizerAndFit(todo);
    CentreOnParent();

    anunciador_.Nombrar(this, titulo, indicacion);
    anunciador_.Nombrar(campo_, indicacion, wxString());
    aceptar_->SetDefault();
    campo_->SetFocus();
    campo_->SelectAll();

    Bind(wxEVT_CHAR_HOOK, &CajaEntrada::AlTecla, this);
    Bind(wxEVT_ACTIVATE, [this](wxActivateEvent& e) {
        e.Skip();
        if (e.GetActive() && !anunciado_) CallAfter(&CajaEntrada::AnunciarApertura);
    });
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { Terminar(false); });
    reserva_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { AnunciarApertura(); });
}

wxString CajaEntrada::Mostrar() {
    aceptado_ = false;
    anunciado_ = false;
    reserva_.StartOnce(700);
    ShowModal();
    reserva_.Stop();
    return aceptado_ ? campo_->GetValue() : wxString();
}

void CajaEntrada::Terminar(bool aceptar) {
    aceptado_ = aceptar;
    EndModal(aceptar ? wxID_OK : wxID_CANCEL);
}

void CajaEntrada::AlTecla(wxKeyEvent& evento) {
    const int c = evento.GetKeyCode();
    wxWindow* foco = FindFocus();
    if (c == WXK_RETURN || c == WXK_NUMPAD_ENTER) {
        Terminar(foco != cancelar_);
    } else if (c == WXK_ESCAPE) {
        Terminar(false);
    } else if ((c == WXK_SPACE || c == WXK_NUMPAD_SPACE) && (foco == aceptar_ || foco == cancelar_)) {
        Terminar(foco == aceptar_);
    } else {
        evento.Skip();
    }
}

void CajaEntrada::AnunciarApertura() {
    if (anunciado_ || !IsShown()) return;
    anunciado_ = true;
    reserva_.Stop();
    // Si el gestor de ventanas no le ha dado el foco, se le pide.
    if (!IsActive()) Raise();
    wxWindow* foco = FindFocus();
    if (!foco) foco = campo_;
    // La indicación y, si lo hay, el texto que ya trae el campo.
    wxString dicho = indicacion_;
    if (!campo_->GetValue().empty()) dicho << "\n" << campo_->GetValue();
    anunciador_.Anunciar(foco, dicho);
}

#include "caja_entrada.h"

#include <wx/sizer.h>
#include <wx/stattext.h>

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

CajaEntrada::CajaEntrada(wxWindow* padre, const wxString& indicacion, const wxString& titulo,
                         const wxString& inicial, Anunciador& anunciador)
    : DialogoJuego(padre, wxID_ANY, titulo), indicacion_(indicacion), reserva_() {
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

    // La ventana se dice por su título; la indicación, como nombre del campo, y el texto que
    // traiga el campo lo dice el lector al llegar a él.
    anunciador.Nombrar(this, titulo, wxString());
    anunciador.Nombrar(campo_, indicacion, wxString());
#ifdef __WXGTK__
    // El rótulo queda unido al campo: el lector no lo dice aparte, como texto suelto.
    if (GTK_IS_LABEL(etiqueta->GetHandle()))
        gtk_label_set_mnemonic_widget(GTK_LABEL(etiqueta->GetHandle()), GTK_WIDGET(campo_->GetHandle()));
#endif
    aceptar_->SetDefault();
    campo_->SetFocus();
    campo_->SelectAll();

    Bind(wxEVT_CHAR_HOOK, &CajaEntrada::AlTecla, this);
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { Terminar(false); });
    // Sin gestor de ventanas nadie activa el cuadro: se pide el foco para él.
    reserva_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) {
        if (IsShown() && !IsActive()) {
            Raise();
            campo_->SetFocus();
        }
    });
}

wxString CajaEntrada::Mostrar() {
    aceptado_ = false;
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

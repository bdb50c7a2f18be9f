#include "wx/ventana_pregunta.h"

#include <wx/font.h>
#include <wx/frame.h>

#include "wx/teclas.h"

namespace {

// Las medidas del formulario van en twips: 15 por punto a 96 ppp.
int Tw(int twips) { return twips / 15; }

}  // namespace

VentanaPregunta::VentanaPregunta(wxWindow* padre, sabelot::Dialog1& logica, Anunciador& anunciador)
    : wxDialog(padre, wxID_ANY, wxString::FromUTF8(logica.Titulo), wxDefaultPosition, wxDefaultSize,
               wxCAPTION | wxFRAME_NO_TASKBAR),
      logica_(logica),
      anunciador_(anunciador),
      temporizador_(this) {
    SetFont(wxFont(wxFontInfo(9.75).FaceName("Verdana")));
    // Text2 primero: es el primero del orden de tabulación y se queda con el foco.
    text2_ = new wxTextCtrl(this, wxID_ANY, wxString::FromUTF8(logica.Text2),
                            FromDIP(wxPoint(Tw(100), Tw(1800))), FromDIP(wxSize(Tw(10000), Tw(750))));
    text1_ = new wxTextCtrl(this, wxID_ANY, wxString(), FromDIP(wxPoint(Tw(100), Tw(100))),
                            FromDIP(wxSize(Tw(10000), Tw(1500))),
                            wxTE_MULTILINE | wxTE_READONLY | wxTE_WORDWRAP | wxTE_NOHIDESEL);
    text1_->SetFont(wxFont(wxFontInfo(9.75).FaceName("Verdana").Bold()));
    // Sin rótulo a la vista, el lector diría solo "texto": cada cuadro dice qué es.
    anunciador_.Nombrar(text1_, wxString::FromUTF8("Pregunta"), wxString());
    anunciador_.Nombrar(text2_, wxString::FromUTF8("Respuesta"), wxString());
    // El formulario deja Text2 medio fuera; aquí cabe entero.
    SetClientSize(FromDIP(wxSize(Tw(10110), Tw(1800 + 750 + 100))));

    // Nada cierra la ventana salvo juzgar: ni Escape ni botón por omisión.
    SetEscapeId(wxID_NONE);
    SetAffirmativeId(wxID_NONE);

    text2_->Bind(wxEVT_KEY_DOWN, &VentanaPregunta::AlTeclaAbajo, this);
    text2_->Bind(wxEVT_CHAR, &VentanaPregunta::AlCaracter, this);
    text2_->Bind(wxEVT_TEXT, &VentanaPregunta::AlTexto, this);
    Bind(wxEVT_CLOSE_WINDOW, &VentanaPregunta::AlCerrar, this);
    Bind(wxEVT_ACTIVATE, &VentanaPregunta::AlActivar, this);
    Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Anunciar(); }, temporizador_.GetId());
    logica_.PonerVista(this);
}

VentanaPregunta::~VentanaPregunta() {
    temporizador_.Stop();
    logica_.PonerVista(nullptr);
}

void VentanaPregunta::MostrarModal() {
    logica_.PonerVista(this);
    logica_.Visible = true;
    logica_.Form_Activate();
    if (!logica_.Visible) return;
    Refrescar();
    Enfocar();
    anunciarPendiente_ = true;
    ShowModal();
    temporizador_.Stop();
    anunciarPendiente_ = false;
}

void VentanaPregunta::Refrescar() {
    const wxString titulo = wxString::FromUTF8(logica_.Titulo);
    if (GetTitle() != titulo) {
        SetTitle(titulo);
        anunciador_.Nombrar(this, titulo, wxString());
    }
    const wxString pregunta = wxString::FromUTF8(logica_.Text1);
    if (text1_->GetValue() != pregunta) text1_->ChangeValue(pregunta);
    const long desde = logica_.Text1SelStart;
    text1_->SetSelection(desde, desde + logica_.Text1SelLength);
    const wxString respuesta = wxString::FromUTF8(logica_.Text2);
    if (text2_->GetValue() != respuesta) {
        text2_->ChangeValue(respuesta);
        text2_->SetInsertionPoint(0);
    }
}

void VentanaPregunta::Ocultar() {
    temporizador_.Stop();
    anunciarPendiente_ = false;
    if (IsModal())
        EndModal(wxID_OK);
    else
        Hide();
}

// Al tomar el foco el sistema selecciona la respuesta entera; no hay nada que seleccionar.
void VentanaPregunta::Enfocar() {
    text2_->SetFocus();
    text2_->SetInsertionPoint(0);
}

void VentanaPregunta::Anunciar() {
    if (!logica_.Visible) return;
    anunciador_.Anunciar(text2_, wxString::FromUTF8(logica_.Titulo));
    anunciador_.Anunciar(text2_, wxString::FromUTF8(logica_.Text2));
}

void VentanaPregunta::AlTeclaAbajo(wxKeyEvent& e) {
    const int original = CodigoTecla(e);
    int codigo = original;
    logica_.Text2_KeyDown(codigo, Modificadores(e));
    if (!logica_.Visible) return;  // juzgada: la ventana ya se fue
    Refrescar();
    if (original == 38 || original == 40) {
        // Cada paso se dice, aunque la respuesta sea la misma de antes.
        anunciador_.Anunciar(text2_, wxString::FromUTF8(logica_.Text2));
        return;
    }
    if (codigo == 0 || original == 13 || original == 32) return;
    e.Skip();
}

void VentanaPregunta::AlCaracter(wxKeyEvent& e) {
    // Tab es del sistema: mueve el foco a la pregunta y vuelve.
    if (e.GetKeyCode() == WXK_TAB) {
        e.Skip();
        return;
    }
    int ascii = e.GetUnicodeKey() != WXK_NONE ? static_cast<int>(e.GetUnicodeKey()) : e.GetKeyCode();
    logica_.Text2_KeyPress(ascii);
}

// Pegar con el ratón o el menú del texto tampoco cambia la respuesta.
void VentanaPregunta::AlTexto(wxCommandEvent&) {
    const wxString respuesta = wxString::FromUTF8(logica_.Text2);
    if (text2_->GetValue() != respuesta) text2_->ChangeValue(respuesta);
}

void VentanaPregunta::AlCerrar(wxCloseEvent& e) {
    if (e.CanVeto()) {
        e.Veto();
        return;
    }
    e.Skip();
}

void VentanaPregunta::AlActivar(wxActivateEvent& e) {
    e.Skip();
    if (e.GetActive() && anunciarPendiente_) {
        anunciarPendiente_ = false;
        Enfocar();
        // Tras el aviso de foco de la ventana, para que el lector no lo corte.
        temporizador_.StartOnce(150);
    }
}

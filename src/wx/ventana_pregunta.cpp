#include "wx/ventana_pregunta.h"

#include <wx/dcbuffer.h>
#include <wx/font.h>
#include <wx/frame.h>
#include <wx/settings.h>

#include "comun/teclas.h"
#include "wx/medidas.h"
#include "wx/teclas.h"

CuadroRespuesta::CuadroRespuesta(wxWindow* madre, const wxPoint& pos, const wxSize& tam)
    : wxWindow(madre, wxID_ANY, pos, tam, wxWANTS_CHARS | wxBORDER_SUNKEN, "Text2") {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Bind(wxEVT_PAINT, &CuadroRespuesta::AlPintar, this);
    // El foco se ve: se vuelve a pintar al llegar y al irse.
    Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& e) {
        e.Skip();
        Refresh();
    });
    Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& e) {
        e.Skip();
        Refresh();
    });
}

void CuadroRespuesta::PonerTexto(const wxString& texto) {
    if (texto == texto_) return;
    texto_ = texto;
    Refresh();
}

void CuadroRespuesta::AlPintar(wxPaintEvent&) {
    wxAutoBufferedPaintDC dc(this);
    dc.SetBackground(wxBrush(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW)));
    dc.Clear();
    dc.SetFont(GetFont());
    dc.SetTextForeground(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
    const int margen = FromDIP(4);
    dc.DrawText(texto_, margen, margen);
    if (HasFocus()) {
        dc.SetPen(wxPen(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT), FromDIP(2)));
        dc.SetBrush(*wxTRANSPARENT_BRUSH);
        dc.DrawRectangle(GetClientRect().Deflate(1));
    }
}

VentanaPregunta::VentanaPregunta(wxWindow* padre, sabelot::Dialog1& logica, Anunciador& anunciador)
    : DialogoJuego(padre, wxID_ANY, wxString::FromUTF8(logica.Titulo), wxDefaultPosition, wxDefaultSize,
                   wxCAPTION | wxFRAME_NO_TASKBAR),
      logica_(logica),
      anunciador_(anunciador) {
    SetFont(wxFont(wxFontInfo(9.75).FaceName("Verdana")));
    // Text2 primero: es el primero del orden de tabulación y se queda con el foco.
    text2_ = new CuadroRespuesta(this, FromDIP(wxPoint(Twips(100), Twips(1800))),
                                 FromDIP(wxSize(Twips(10000), Twips(750))));
    text2_->PonerTexto(wxString::FromUTF8(logica.Text2));
    text1_ = new wxTextCtrl(this, wxID_ANY, wxString(), FromDIP(wxPoint(Twips(100), Twips(100))),
                            FromDIP(wxSize(Twips(10000), Twips(1500))),
                            wxTE_MULTILINE | wxTE_READONLY | wxTE_WORDWRAP | wxTE_NOHIDESEL);
    text1_->SetFont(wxFont(wxFontInfo(9.75).FaceName("Verdana").Bold()));
    // Sin rótulo a la vista, el lector diría solo "texto": cada cuadro dice qué es.
    anunciador_.Nombrar(text1_, wxString::FromUTF8("Pregunta"), wxString());
    anunciador_.Nombrar(text2_, wxString::FromUTF8("Respuesta"), wxString());
    // El formulario deja Text2 medio fuera; aquí cabe entero.
    SetClientSize(FromDIP(wxSize(Twips(10110), Twips(1800 + 750 + 100))));

    // Nada cierra la ventana salvo juzgar: ni Escape ni botón por omisión.
    SetEscapeId(wxID_NONE);
    SetAffirmativeId(wxID_NONE);

    // La pregunta se alcanza con Tab y atiende las mismas teclas que la respuesta: desde ella
    // también se pasa de respuesta y se contesta.
    text2_->Bind(wxEVT_KEY_DOWN, &VentanaPregunta::AlTeclaAbajo, this);
    text2_->Bind(wxEVT_CHAR, &VentanaPregunta::AlCaracter, this);
    text1_->Bind(wxEVT_KEY_DOWN, &VentanaPregunta::AlTeclaAbajo, this);
    text1_->Bind(wxEVT_CHAR, &VentanaPregunta::AlCaracter, this);
    Bind(wxEVT_CLOSE_WINDOW, &VentanaPregunta::AlCerrar, this);
    logica_.PonerVista(this);
}

VentanaPregunta::~VentanaPregunta() { logica_.QuitarVista(this); }

wxWindow* VentanaPregunta::ControlQueHabla() const {
    wxWindow* foco = wxWindow::FindFocus();
    return foco == text1_ ? static_cast<wxWindow*>(text1_) : text2_;
}

void VentanaPregunta::MostrarModal() {
    logica_.PonerVista(this);
    logica_.Visible = true;
    logica_.Form_Activate();
    if (!logica_.Visible) return;
    Refrescar();
    // El foco antes de mostrarse: así el lector lo oye una vez, con la ventana. La pregunta va
    // en el título; la primera respuesta se dice por su cuadro en cuanto tiene el foco.
    text2_->SetFocus();
    anunciador_.AnunciarAlEnfocar(text2_, wxString::FromUTF8(logica_.Text2));
    ShowModal();
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
    text2_->PonerTexto(wxString::FromUTF8(logica_.Text2));
}

void VentanaPregunta::Ocultar() {
    if (IsModal())
        EndModal(wxID_OK);
    else
        Hide();
}

void VentanaPregunta::AlTeclaAbajo(wxKeyEvent& e) {
    const int original = CodigoTecla(e);
    // Tab y Mayúsculas+Tab pasan de la respuesta a la pregunta y vuelven.
    if (original == sabelot::vbKeyTab) {
        // Al volver a la respuesta se dice cuál es la que está puesta: se pudo cambiar desde la
        // pregunta, y el cuadro no tiene otro texto que el lector lea.
        if (wxWindow::FindFocus() == text1_)
            anunciador_.AnunciarAlEnfocar(text2_, wxString::FromUTF8(logica_.Text2));
        e.Skip();
        return;
    }
    int codigo = original;
    logica_.Text2_KeyDown(codigo, Modificadores(e));
    if (!logica_.Visible) return;  // juzgada: la ventana ya se fue
    Refrescar();
    // Las que la lógica deja pasar (por debajo de 32) siguen su camino.
    if (codigo != 0 && original != sabelot::vbKeyUp && original != sabelot::vbKeyDown &&
        original != sabelot::vbKeyReturn && original != sabelot::vbKeySpace)
        e.Skip();
}

void VentanaPregunta::AlCaracter(wxKeyEvent& e) {
    if (e.GetKeyCode() == WXK_TAB) {
        e.Skip();
        return;
    }
    int ascii = e.GetUnicodeKey() != WXK_NONE ? static_cast<int>(e.GetUnicodeKey()) : e.GetKeyCode();
    logica_.Text2_KeyPress(ascii);
}

void VentanaPregunta::AlCerrar(wxCloseEvent& e) {
    if (e.CanVeto()) {
        e.Veto();
        return;
    }
    e.Skip();
}

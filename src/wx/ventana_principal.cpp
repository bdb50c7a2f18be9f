#include "ventana_principal.h"

#include <wx/settings.h>

#include "plataforma_wx.h"
#include "teclas.h"

namespace {

// Un control vacío que acepta el foco del teclado: lo único que hace es tenerlo.
class Lienzo : public wxWindow {
public:
    Lienzo(wxWindow* madre, const wxPoint& pos, const wxSize& tam)
        : wxWindow(madre, wxID_ANY, pos, tam, wxWANTS_CHARS | wxBORDER_NONE, "Picture1") {}
    bool AcceptsFocus() const override { return true; }
    bool AcceptsFocusFromKeyboard() const override { return true; }
};

const char* const kNombrePicture1 = "Tablero";

// Medidas de la ventana en twips, a píxeles de 96 ppp.
int Px(int twips) { return twips / 15; }

}  // namespace

VentanaPrincipal::VentanaPrincipal(sabelot::Form1& form1, Anunciador& anunciador, PlataformaWx& plataforma)
    : wxFrame(nullptr, wxID_ANY, wxString::FromUTF8("SÁBELOT")),
      form1_(form1),
      anunciador_(anunciador),
      plataforma_(plataforma) {
    SetClientSize(FromDIP(wxSize(Px(4680), Px(3195))));
    picture1_ = new Lienzo(this, FromDIP(wxPoint(Px(1800), 0)), FromDIP(wxSize(Px(1215), Px(435))));
    text1_ = new wxTextCtrl(this, wxID_ANY, wxString(), FromDIP(wxPoint(0, Px(2000))),
                            FromDIP(wxSize(Px(3000), Px(3000))),
                            wxTE_MULTILINE | wxTE_READONLY | wxVSCROLL, wxDefaultValidator, "Text1");
    text1_->SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT));
    text1_->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHTTEXT));
    anunciador_.Nombrar(picture1_, wxString::FromUTF8(kNombrePicture1), wxString());

    Bind(wxEVT_CHAR_HOOK, &VentanaPrincipal::AlTecla, this);
    Bind(wxEVT_CLOSE_WINDOW, &VentanaPrincipal::AlCerrar, this);
    form1_.PonerVista(this);
    plataforma_.PonerVentanaPrincipal(this);
}

VentanaPrincipal::~VentanaPrincipal() {
    form1_.PonerVista(nullptr);
    plataforma_.PonerVentanaPrincipal(nullptr);
}

void VentanaPrincipal::Aparecer() {
    Centre();
    Show(true);
    yaMostrada_ = true;
    Raise();
    FocoAPicture1();
}

void VentanaPrincipal::PonerTexto1(const std::string& texto) {
    const wxString t = wxString::FromUTF8(texto);
    text1_->ChangeValue(t);
    // Antes de aparecer la ventana no se dice nada: el texto queda en Picture1 y se oye
    // cuando esta recibe el foco.
    if (yaMostrada_)
        anunciador_.Anunciar(picture1_, t);
    else
        anunciador_.Nombrar(picture1_, wxString::FromUTF8(kNombrePicture1), t);
}

void VentanaPrincipal::PonerTitulo(const std::string& titulo) { SetTitle(wxString::FromUTF8(titulo)); }

void VentanaPrincipal::Mostrar() {
    Show(true);
    yaMostrada_ = true;
}

void VentanaPrincipal::Ocultar() { Hide(); }

bool VentanaPrincipal::FocoEnPicture1() { return FindFocus() == picture1_; }

void VentanaPrincipal::FocoAPicture1() { picture1_->SetFocus(); }

void VentanaPrincipal::AlTecla(wxKeyEvent& evento) {
    const int codigo = CodigoTecla(evento);
    const int shift = Modificadores(evento);
    // Tab mueve el foco entre los controles, como siempre.
    if (codigo == 9 && (shift & ~sabelot::vbShiftMask) == 0) {
        evento.Skip();
        return;
    }
    form1_.Form_KeyDown(codigo, shift);
    // Alt+F4 sigue su camino y cierra la ventana.
    if (codigo == sabelot::vbKeyF4 && (shift & sabelot::vbAltMask)) evento.Skip();
}

void VentanaPrincipal::AlCerrar(wxCloseEvent&) {
    // Sin preguntar nada. Con un diálogo abierto, su llamada modal no puede volver: se acaba ahí.
    if (plataforma_.ModalesAbiertos() > 0) plataforma_.TerminarPrograma();
    plataforma_.CerrarDialogos();
    Destroy();
}

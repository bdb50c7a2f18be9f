#include "ventana_principal.h"

#include <wx/settings.h>

#include "comun/teclas.h"
#include "wx/medidas.h"
#include "wx/teclas.h"

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

}  // namespace

VentanaPrincipal::VentanaPrincipal(sabelot::Form1& form1, Anunciador& anunciador,
                                   std::function<void()> alCerrar)
    : wxFrame(nullptr, wxID_ANY, wxString::FromUTF8("SÁBELOT")),
      form1_(form1),
      anunciador_(anunciador),
      alCerrar_(std::move(alCerrar)) {
    SetClientSize(FromDIP(wxSize(Twips(4680), Twips(3195))));
    picture1_ = new Lienzo(this, FromDIP(wxPoint(Twips(1800), 0)), FromDIP(wxSize(Twips(1215), Twips(435))));
    text1_ = new wxTextCtrl(this, wxID_ANY, wxString(), FromDIP(wxPoint(0, Twips(2000))),
                            FromDIP(wxSize(Twips(3000), Twips(3000))),
                            wxTE_MULTILINE | wxTE_READONLY | wxVSCROLL, wxDefaultValidator, "Text1");
    text1_->SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT));
    text1_->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHTTEXT));
    anunciador_.Nombrar(picture1_, wxString::FromUTF8(kNombrePicture1), wxString());

    Bind(wxEVT_CHAR_HOOK, &VentanaPrincipal::AlTecla, this);
    Bind(wxEVT_CLOSE_WINDOW, &VentanaPrincipal::AlCerrar, this);
    form1_.PonerVista(this);
    // Se crea después de Form_Load: toma el título y el panel que Form1 ya tiene.
    if (!form1_.Titulo().empty()) SetTitle(wxString::FromUTF8(form1_.Titulo()));
    text1_->ChangeValue(wxString::FromUTF8(form1_.Texto1()));
}

VentanaPrincipal::~VentanaPrincipal() { form1_.PonerVista(nullptr); }

void VentanaPrincipal::Aparecer() {
    Centre();
    Show(true);
    Raise();
    FocoAPicture1();
}

// Solo se muestra: lo que se oye lo decide la lógica (comun/anuncios.h).
void VentanaPrincipal::PonerTexto1(const std::string& texto) {
    text1_->ChangeValue(wxString::FromUTF8(texto));
}

void VentanaPrincipal::PonerTitulo(const std::string& titulo) { SetTitle(wxString::FromUTF8(titulo)); }

void VentanaPrincipal::Mostrar() { Show(true); }

void VentanaPrincipal::Ocultar() { Hide(); }

bool VentanaPrincipal::FocoEnPicture1() { return FindFocus() == picture1_; }

void VentanaPrincipal::FocoAPicture1() { picture1_->SetFocus(); }

void VentanaPrincipal::AlTecla(wxKeyEvent& evento) {
    const int codigo = CodigoTecla(evento);
    const int shift = Modificadores(evento);
    // Tab y Mayúsculas+Tab mueven el foco entre los controles.
    if (codigo == sabelot::vbKeyTab && (shift & ~sabelot::vbShiftMask) == 0) {
        evento.Skip();
        return;
    }
    form1_.Form_KeyDown(codigo, shift);
    // Alt+F4 sigue su camino y cierra la ventana.
    if (codigo == sabelot::vbKeyF4 && (shift & sabelot::vbAltMask)) evento.Skip();
}

void VentanaPrincipal::AlCerrar(wxCloseEvent&) {
    // Sin preguntar nada: quien la creó cierra los diálogos y la destruye.
    if (alCerrar_) alCerrar_();
}

#include "wx/ventana_eleccion.h"

#include <wx/frame.h>
#include <wx/settings.h>

#include <algorithm>

#include "wx/medidas.h"

namespace {

// Sin atajos: un & del texto se ve tal cual.
wxString SinAtajos(const std::string& texto) {
    wxString s = wxString::FromUTF8(texto);
    s.Replace("&", "&&");
    return s;
}

// Un rótulo más ancho que esto se corta: la ventana no debe salirse de la pantalla.
constexpr int kAnchoMaximoBoton = 360;

struct Sitio {
    int izquierda, arriba;
};

// Índice = orden de tabulación: centro, izquierda, derecha de cada fila.
constexpr Sitio kSitios[7] = {{1750, 2800}, {125, 2800},  {3325, 2800}, {1750, 3500},
                              {125, 3500},  {3325, 3500}, {1750, 4200}};

}  // namespace

VentanaEleccion::VentanaEleccion(wxWindow* padre, sabelot::Dialog& logica, Anunciador& anunciador)
    : DialogoJuego(padre, wxID_ANY, wxString::FromUTF8(logica.Titulo), wxDefaultPosition, wxDefaultSize,
                   wxCAPTION | wxSYSTEM_MENU | wxCLOSE_BOX | wxFRAME_NO_TASKBAR),
      logica_(logica),
      anunciador_(anunciador) {
    text1_ = new wxTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                            wxTE_MULTILINE | wxTE_READONLY | wxTE_WORDWRAP);
    text1_->SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT));
    text1_->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHTTEXT));
    for (int i = 0; i < 7; ++i) {
        wxButton* b = new wxButton(this, wxID_ANY, "Command1");
        b->Bind(wxEVT_BUTTON, [this, i](wxCommandEvent&) { Pulsar(i); });
        // La lógica sabe siempre qué botón tiene el foco, así que refrescar no lo mueve.
        b->Bind(wxEVT_SET_FOCUS, [this, i](wxFocusEvent& e) {
            e.Skip();
            if (!descargado_) logica_.Foco = i;
        });
        botones_[static_cast<std::size_t>(i)] = b;
    }
    Colocar();

    // Ni botón por omisión ni de cancelar: Escape no hace nada.
    SetEscapeId(wxID_NONE);
    SetAffirmativeId(wxID_NONE);

    Bind(wxEVT_CHAR_HOOK, &VentanaEleccion::AlTecla, this);
    Bind(wxEVT_CLOSE_WINDOW, &VentanaEleccion::AlCerrar, this);
    logica_.PonerVista(this);
}

VentanaEleccion::~VentanaEleccion() { logica_.QuitarVista(this); }

void VentanaEleccion::MostrarModal() {
    descargado_ = false;
    logica_.PonerVista(this);
    logica_.Form_Load();
    Refrescar();
    logica_.Form_Activate();
    if (descargado_ || !logica_.Cargado) return;
    Refrescar();
    CentreOnParent();
    // Con el foco ya en su botón: al mostrarse, el lector dice el título, la oferta entera (la
    // descripción de la ventana) y el botón, una vez.
    ShowModal();
}

void VentanaEleccion::Refrescar() {
    SetTitle(wxString::FromUTF8(logica_.Titulo));
    const wxString texto = wxString::FromUTF8(logica_.Text1);
    if (text1_->GetValue() != texto) text1_->ChangeValue(texto);
    for (std::size_t i = 0; i < botones_.size(); ++i) {
        const sabelot::Dialog::Boton& b = logica_.Command1[i];
        wxButton* boton = botones_[i];
        const wxString rotulo = SinAtajos(b.Caption);
        if (boton->GetLabel() != rotulo) boton->SetLabel(rotulo);
        boton->Show(b.Visible);
        boton->Enable(b.Enabled);
    }
    Colocar();
    // El foco trae la oferta entera con el nombre de la ventana.
    anunciador_.Nombrar(this, GetTitle(), texto);
    EnfocarBoton();
}

void VentanaEleccion::Descargar() {
    descargado_ = true;
    if (IsModal()) EndModal(wxID_OK);
}

// Las medidas del formulario, salvo que los botones se ensanchan para que se lea el
// rótulo más largo; Text1 y las columnas se corren lo mismo.
void VentanaEleccion::Colocar() {
    auto px = [this](int twips) { return FromDIP(Twips(twips)); };
    int ancho = px(1500);
    for (std::size_t i = 0; i < botones_.size(); ++i)
        if (logica_.Command1[i].Visible) ancho = std::max(ancho, botones_[i]->GetBestSize().x);
    ancho = std::min(ancho, FromDIP(kAnchoMaximoBoton));
    const int extra = ancho - px(1500);
    for (int i = 0; i < 7; ++i) {
        const Sitio& s = kSitios[i];
        const int columna = s.izquierda == 125 ? 0 : s.izquierda == 1750 ? 1 : 2;
        botones_[static_cast<std::size_t>(i)]->SetSize(px(s.izquierda) + columna * extra, px(s.arriba), ancho,
                                                       px(500));
    }
    text1_->SetSize(px(500), px(100), px(4000) + 3 * extra, px(2500));
    SetClientSize(px(4905) + 3 * extra, px(4935));
}

int VentanaEleccion::IndiceDe(const wxWindow* ventana) const {
    for (std::size_t i = 0; i < botones_.size(); ++i)
        if (botones_[i] == ventana) return static_cast<int>(i);
    return -1;
}

bool VentanaEleccion::EnUso(int indice) const {
    const sabelot::Dialog::Boton& b = logica_.Command1[static_cast<std::size_t>(indice)];
    return b.Visible && b.Enabled;
}

void VentanaEleccion::Pulsar(int indice) {
    if (descargado_ || !IsModal() || !EnUso(indice)) return;
    logica_.Command1_Click(indice);
    if (!descargado_) Refrescar();
}

// Las flechas van de botón en botón por el orden de tabulación, dando la vuelta.
void VentanaEleccion::Mover(int desde, int paso) {
    for (int n = 1; n <= 7; ++n) {
        int i = ((desde + paso * n) % 7 + 7) % 7;
        if (EnUso(i)) {
            botones_[static_cast<std::size_t>(i)]->SetFocus();
            return;
        }
    }
}

void VentanaEleccion::EnfocarBoton() {
    const int foco = logica_.Foco;
    if (foco >= 0 && foco < 7 && EnUso(foco)) botones_[static_cast<std::size_t>(foco)]->SetFocus();
}

void VentanaEleccion::AlTecla(wxKeyEvent& e) {
    const int tecla = e.GetKeyCode();
    const int mods = e.GetModifiers();
    const int i = IndiceDe(FindFocus());
    const bool enBoton = i >= 0 && EnUso(i);
    switch (tecla) {
        case WXK_ESCAPE: return;
        case WXK_RETURN:
        case WXK_NUMPAD_ENTER:
            // Enter nunca pulsa otro botón que el del foco.
            if (enBoton && (mods & (wxMOD_ALT | wxMOD_CONTROL)) == 0) Pulsar(i);
            return;
        case WXK_SPACE:
        case WXK_NUMPAD_SPACE:
            if (enBoton && (mods & (wxMOD_ALT | wxMOD_CONTROL)) == 0) {
                Pulsar(i);
                return;
            }
            break;
        case WXK_LEFT:
        case WXK_UP:
        case WXK_NUMPAD_LEFT:
        case WXK_NUMPAD_UP:
            if (enBoton && mods == wxMOD_NONE) {
                Mover(i, -1);
                return;
            }
            break;
        case WXK_RIGHT:
        case WXK_DOWN:
        case WXK_NUMPAD_RIGHT:
        case WXK_NUMPAD_DOWN:
            if (enBoton && mods == wxMOD_NONE) {
                Mover(i, 1);
                return;
            }
            break;
        default: break;
    }
    e.Skip();
}

void VentanaEleccion::AlCerrar(wxCloseEvent& e) {
    if (!descargado_ && e.CanVeto()) {
        // Con Alt+F4 el gestor de ventanas se queda el teclado un momento y el foco
        // aparece vacío: lo que vale es el último botón que lo tuvo, que guarda la lógica.
        const bool enTexto = FindFocus() == text1_;
        if (logica_.Form_QueryUnload()) {
            // El jugador dijo No: todo sigue como estaba, foco incluido.
            e.Veto();
            if (enTexto)
                text1_->SetFocus();
            else
                EnfocarBoton();
            return;
        }
    }
    if (descargado_) {
        if (IsModal()) EndModal(wxID_CANCEL);
        return;
    }
    logica_.Cargado = false;
    Descargar();
}

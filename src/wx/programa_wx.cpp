#include "programa_wx.h"

#include <wx/filename.h>
#include <wx/stdpaths.h>

#include <utility>

ProgramaWx::ProgramaWx(const std::string& carpeta, std::unique_ptr<Anunciador> anunciador)
    : anunciador_(anunciador ? std::move(anunciador) : CrearAnunciador()),
      plataforma_(std::make_unique<PlataformaWx>(carpeta, *anunciador_)),
      juego_(std::make_unique<sabelot::Juego>(*plataforma_)) {
    plataforma_->AlTerminarDado([this] { juego_->form1.MediaPlayer1_PlayStateChange(0); });
}

void ProgramaWx::CrearVentana() {
    ventana_ = new VentanaPrincipal(juego_->form1, *anunciador_, [this] { CerrarVentana(); });
    plataforma_->PonerVentanaPrincipal(ventana_, ventana_->Picture1());
    // La ventana la destruye wx; aquí solo se deja de apuntar a ella.
    ventana_->Bind(wxEVT_DESTROY, [this](wxWindowDestroyEvent& e) {
        if (e.GetEventObject() == ventana_) {
            ventana_ = nullptr;
            plataforma_->PonerVentanaPrincipal(nullptr, nullptr);
        }
        e.Skip();
    });
}

ProgramaWx::~ProgramaWx() {
    // Fuera de sus eventos se puede borrar ya, antes que el juego al que apunta.
    if (ventana_) {
        plataforma_->CerrarDialogos();
        delete ventana_;
    }
    plataforma_->AlTerminarDado(nullptr);
}

void ProgramaWx::CerrarVentana() {
    // Sin preguntar nada. Con un diálogo abierto, su llamada modal no puede volver: se acaba ahí.
    if (plataforma_->ModalesAbiertos() > 0) plataforma_->TerminarPrograma();
    plataforma_->CerrarDialogos();
    if (ventana_) ventana_->Destroy();
}

void ProgramaWx::Arrancar() {
    // La ventana principal no se ve hasta que acaba Form_Load: se monta después, y así la
    // bienvenida sale antes, sin esperar a otra ventana de GTK que aún no hace falta.
    juego_->form1.Form_Load();
    CrearVentana();
    ventana_->Aparecer();
}

std::string CarpetaDelEjecutable() {
    return wxFileName(wxStandardPaths::Get().GetExecutablePath()).GetPath().utf8_string();
}

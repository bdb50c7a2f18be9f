#include "apoyo_gui.h"

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/toplevel.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

#include <chrono>
#include <filesystem>
#include <random>

#include "wx/caja_entrada.h"
#include "wx/caja_mensaje.h"

namespace fs = std::filesystem;

namespace prueba_gui {

namespace {

long long Ahora() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void Atender() {
    if (wxEventLoopBase* bucle = wxEventLoopBase::GetActive()) {
        bucle->YieldFor(wxEVT_CATEGORY_ALL);
    }
    if (wxTheApp) {
        wxTheApp->ProcessPendingEvents();
        wxTheApp->ProcessIdle();
    }
}

}  // namespace

CarpetaPrograma::CarpetaPrograma() {
    std::random_device azar;
    fs::path p = fs::temp_directory_path() / ("sabelot-gui-" + std::to_string(azar()));
    fs::create_directories(p);
    const fs::path datos = SABELOT_DATOS;
    fs::copy_file(datos / "Sabelot.ini", p / "Sabelot.ini");
    fs::copy(datos / "preguntas", p / "preguntas", fs::copy_options::recursive);
    fs::copy(datos / "sonidos", p / "sonidos", fs::copy_options::recursive);
    ruta_ = p.string();
}

CarpetaPrograma::~CarpetaPrograma() {
    std::error_code e;
    fs::remove_all(ruta_, e);
}

void CarpetaPrograma::Borrar(const std::string& relativa) const { fs::remove(fs::path(ruta_) / relativa); }

bool EsperarHasta(const std::function<bool()>& condicion, int milisegundos) {
    const long long fin = Ahora() + milisegundos;
    for (;;) {
        Atender();
        if (condicion()) return true;
        if (Ahora() > fin) return false;
        wxMilliSleep(5);
    }
}

void Bombear(int milisegundos) {
    EsperarHasta([] { return false; }, milisegundos);
}

void PulsarTecla(int codigoWx, int modificadores) {
    wxUIActionSimulator sim;
    sim.Char(codigoWx, modificadores);
}

Vigilante::Vigilante(std::function<wxWindow*()> principal) : principal_(std::move(principal)) { Start(20); }

Vigilante::~Vigilante() { Stop(); }

void Vigilante::Notify() {
    wxDialog* activo = nullptr;
    wxDialog* ultimo = nullptr;
    int modales = 0;
    for (wxWindow* w : wxTopLevelWindows) {
        auto* d = dynamic_cast<wxDialog*>(w);
        if (!d || !d->IsShown() || !d->IsModal()) continue;
        ++modales;
        ultimo = d;
        if (d->IsActive()) activo = d;
    }
    if (actual_ && !actual_->IsShown()) actual_ = nullptr;
    if (!activo) {
        // Un modal al que el gestor de ventanas no da el foco: se le pide, como haría el jugador.
        if (ultimo && ultimo == sinFoco_.get() && Ahora() - sinFocoDesde_ > 1000) {
            ultimo->Raise();
            sinFocoDesde_ = Ahora();
        } else if (ultimo != sinFoco_.get()) {
            sinFoco_ = ultimo;
            sinFocoDesde_ = Ahora();
        }
        return;
    }
    if (activo != actual_.get()) {
        actual_ = activo;
        pulsado_ = false;
        desde_ = Ahora();
        DialogoVisto v{DialogoVisto::Otro, activo->GetTitle().utf8_string(), std::string(), false,
                       modales > 1};
        if (auto* c = dynamic_cast<CajaMensaje*>(activo)) {
            v.clase = DialogoVisto::Mensaje;
            v.texto = c->Texto().utf8_string();
        } else if (auto* e = dynamic_cast<CajaEntrada*>(activo)) {
            v.clase = DialogoVisto::Entrada;
            v.texto = e->Indicacion().utf8_string();
        }
        wxWindow* p = principal_ ? principal_() : nullptr;
        v.principalVisible = p && p->IsShown();
        vistos.push_back(v);
        esperaActual_ = espera ? espera(v) : 50;
    }
    // Un diálogo que sigue ahí mucho después de la tecla (uno que se reutiliza y ha vuelto a
    // salir entre dos vistazos, o una tecla perdida) se contesta otra vez.
    if (pulsado_ && Ahora() - desde_ > esperaActual_ + 2500) {
        pulsado_ = false;
        desde_ = Ahora() - esperaActual_;
    }
    if (pulsado_ || Ahora() - desde_ < esperaActual_) return;
    // La tecla solo cuando el foco ya está dentro del diálogo.
    wxWindow* foco = wxWindow::FindFocus();
    if (!foco || wxGetTopLevelParent(foco) != activo) return;
    pulsado_ = true;
    const int tecla = contestar ? contestar(vistos.back()) : WXK_RETURN;
    if (tecla) PulsarTecla(tecla);
}

std::string Vigilante::Resumen() const {
    std::string r;
    for (const auto& v : vistos) r += "[" + v.titulo + "] " + v.texto.substr(0, 60) + "\n";
    return r;
}

}  // namespace prueba_gui

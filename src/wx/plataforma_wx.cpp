#include "plataforma_wx.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include <wx/app.h>
#include <wx/utils.h>

#include "caja_entrada.h"
#include "caja_mensaje.h"
#include "frontend/dialog.h"
#include "options/dlg_opciones.h"
#include "questions/dialog1.h"
#include "ventana_eleccion.h"
#include "ventana_opciones.h"
#include "ventana_pregunta.h"

PlataformaWx::PlataformaWx(std::string carpetaPrograma, Anunciador& anunciador)
    : carpeta_(std::move(carpetaPrograma)), anunciador_(anunciador) {
    sonido_ = std::make_unique<SonidoSdl>([this] { FinDado(); });
}

PlataformaWx::~PlataformaWx() = default;

PlataformaWx::Modal::~Modal() {
    if (--p_.modales_ > 0 || !p_.finPendiente_) return;
    // Se entrega después, cuando haya terminado de cerrarse lo que se cerraba.
    p_.CallAfter([&p = p_] {
        if (p.modales_ == 0 && p.finPendiente_) {
            p.finPendiente_ = false;
            if (p.alTerminarDado_) p.alTerminarDado_();
        }
    });
}

void PlataformaWx::PonerVentanaPrincipal(wxWindow* ventana) {
    // Los diálogos que se quedan cargados son hijos de la ventana y se van con ella.
    if (ventana != principal_) {
        pregunta_ = nullptr;
        opciones_ = nullptr;
    }
    principal_ = ventana;
}

void PlataformaWx::FinDado() {
    // Con un diálogo o un mensaje abierto la tirada no puede empezar: espera a que se cierre.
    if (modales_ > 0) {
        finPendiente_ = true;
        return;
    }
    if (alTerminarDado_) alTerminarDado_();
}

wxWindow* PlataformaWx::Madre() const {
    // Antes de que aparezca la ventana principal los mensajes van sueltos.
    if (principal_ && principal_->IsShown()) return principal_;
    return nullptr;
}

int PlataformaWx::MsgBox(const std::string& texto, int estilo, const std::string& titulo) {
    Modal m(*this);
    CajaMensaje caja(Madre(), wxString::FromUTF8(texto), estilo, wxString::FromUTF8(titulo), anunciador_);
    return caja.Mostrar();
}

std::string PlataformaWx::InputBox(const std::string& indicacion, const std::string& titulo,
                                   const std::string& inicial) {
    Modal m(*this);
    CajaEntrada caja(Madre(), wxString::FromUTF8(indicacion), wxString::FromUTF8(titulo),
                     wxString::FromUTF8(inicial), anunciador_);
    return caja.Mostrar().utf8_string();
}

void PlataformaWx::Beep() { wxBell(); }

void PlataformaWx::Reproducir(sabelot::Reproductor reproductor, const std::string& ruta) {
    // Un dado nuevo sustituye al final que estuviera esperando.
    if (reproductor == sabelot::Reproductor::MediaPlayer1) finPendiente_ = false;
    sonido_->Reproducir(reproductor, ruta);
}

void PlataformaWx::Hora(int& hora, int& minuto, int& segundo) {
    const std::time_t ahora = std::time(nullptr);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &ahora);
#else
    localtime_r(&ahora, &local);
#endif
    hora = local.tm_hour;
    minuto = local.tm_min;
    segundo = local.tm_sec;
}

void PlataformaWx::Randomize(std::int64_t semilla) {
    azar_.seed(static_cast<std::mt19937::result_type>(semilla));
    reparto_.reset();
}

double PlataformaWx::Rnd() {
    const double r = reparto_(azar_);
    return r < 1.0 ? r : std::nextafter(1.0, 0.0);
}

void PlataformaWx::MostrarDialog(sabelot::Dialog& dialogo) {
    Modal m(*this);
    // Se carga en cada muestra y se descarga al elegir.
    VentanaEleccion ventana(principal_, dialogo, anunciador_);
    eleccion_ = &ventana;
    ventana.MostrarModal();
    eleccion_ = nullptr;
}

void PlataformaWx::MostrarDialog1(sabelot::Dialog1& dialogo) {
    Modal m(*this);
    // Se crea la primera vez y después solo se oculta.
    if (!pregunta_) pregunta_ = new VentanaPregunta(principal_, dialogo, anunciador_);
    pregunta_->MostrarModal();
}

void PlataformaWx::MostrarDlgOpciones(sabelot::DlgOpciones& dialogo) {
    Modal m(*this);
    if (!opciones_) opciones_ = new VentanaOpciones(principal_, dialogo, anunciador_, *this);
    opciones_->MostrarModal();
}

void PlataformaWx::CerrarDialogos() {
    if (eleccion_) eleccion_->Hide();
    if (pregunta_) pregunta_->Destroy();
    pregunta_ = nullptr;
    if (opciones_) opciones_->Destroy();
    opciones_ = nullptr;
}

void PlataformaWx::TerminarPrograma() {
    // Se van de la pantalla en el orden de siempre y el proceso acaba sin más.
    if (eleccion_) eleccion_->Hide();
    if (pregunta_) pregunta_->Hide();
    if (opciones_) opciones_->Hide();
    if (principal_) principal_->Hide();
    std::fflush(nullptr);
    std::_Exit(0);
}

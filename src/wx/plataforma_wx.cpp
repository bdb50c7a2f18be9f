#include "plataforma_wx.h"

#include <wx/app.h>
#include <wx/time.h>
#include <wx/utils.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>

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
    limpieza_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { DestruirRetirados(false); });
}

PlataformaWx::~PlataformaWx() {
    // Lo que quedara en pantalla de un cuadro ya cerrado se va con la plataforma.
    limpieza_.Stop();
    CerrarDialogos();
}

PlataformaWx::Modal::~Modal() {
    // La ventana que se cierra se quita cuando salga la siguiente o cuando el juego vuelva a la
    // espera: lo que se llame después ya habrá puesto la suya en pantalla.
    p_.CallAfter([&p = p_] { p.RetirarDiferidos(); });
    if (--p_.modales_ > 0 || !p_.finPendiente_) return;
    // Se entrega después, cuando haya terminado de cerrarse lo que se cerraba.
    p_.CallAfter([&p = p_] {
        if (p.modales_ == 0 && p.finPendiente_) {
            p.finPendiente_ = false;
            if (p.alTerminarDado_) p.alTerminarDado_();
        }
    });
}

void PlataformaWx::PonerVentanaPrincipal(wxWindow* principal, wxWindow* panel) {
    principal_ = principal;
    panel_ = panel;
    if (!panel_) return;
    huboVentana_ = true;
    // Lo que se dijo al panel durante Form_Load, cuando aún no había ventana, se dice en cuanto
    // el panel tenga el foco: el cuadro de bienvenida que se acaba de cerrar aún puede tenerlo.
    for (const wxString& t : paraElPanel_) anunciador_.AnunciarAlEnfocar(panel_, t);
    paraElPanel_.clear();
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

int PlataformaWx::CuadroMensaje(const std::string& texto, int estilo, const std::string& titulo) {
    Modal m(*this);
    auto* caja =
        new CajaMensaje(Madre(), wxString::FromUTF8(texto), estilo, wxString::FromUTF8(titulo), anunciador_);
    Diferir(caja);
    return caja->Mostrar();
}

std::string PlataformaWx::CuadroEntrada(const std::string& indicacion, const std::string& titulo,
                                        const std::string& inicial) {
    Modal m(*this);
    auto* caja = new CajaEntrada(Madre(), wxString::FromUTF8(indicacion), wxString::FromUTF8(titulo),
                                 wxString::FromUTF8(inicial), anunciador_);
    Diferir(caja);
    return caja->Mostrar().utf8_string();
}

void PlataformaWx::Diferir(DialogoJuego* dialogo) {
    dialogo->QuedarseAlCerrar(true);
    if (std::find(diferidos_.begin(), diferidos_.end(), dialogo) == diferidos_.end())
        diferidos_.push_back(dialogo);
}

void PlataformaWx::RetirarDiferidos() {
    std::vector<DialogoJuego*> quedan;
    for (DialogoJuego* d : diferidos_) {
        if (d->IsModal()) {
            quedan.push_back(d);  // abierto otra vez: se retirará al cerrarse
            continue;
        }
        // Se oculta ya y se destruye más tarde: el lector aún puede estar atendiendo lo último
        // que se dijo por uno de sus controles, y con la ventana destruida no lo diría.
        d->Retirar();
        retirados_.push_back({d, wxGetLocalTimeMillis()});
    }
    diferidos_.swap(quedan);
    if (!retirados_.empty()) limpieza_.StartOnce(kVidaRetirados);
}

void PlataformaWx::DestruirRetirados(bool todos) {
    const wxLongLong ahora = wxGetLocalTimeMillis();
    std::vector<Retirado> quedan;
    for (const Retirado& r : retirados_) {
        if (todos || ahora - r.cuando >= kVidaRetirados)
            r.dialogo->Destroy();
        else
            quedan.push_back(r);
    }
    retirados_.swap(quedan);
    if (!retirados_.empty()) limpieza_.StartOnce(kVidaRetirados);
}

void PlataformaWx::Beep() { wxBell(); }

void PlataformaWx::Decir(const std::string& texto, sabelot::Anuncios::Lugar lugar) {
    const wxString t = wxString::FromUTF8(texto);
    if (lugar == sabelot::Anuncios::Lugar::Panel) {
        if (panel_)
            anunciador_.Anunciar(panel_, t);
        else if (!huboVentana_)
            paraElPanel_.push_back(t);
        return;
    }
    // Lo de un diálogo, por el control que tiene el foco en la pregunta abierta.
    wxWindow* donde = pregunta_ ? pregunta_->ControlQueHabla() : wxWindow::FindFocus();
    if (donde) anunciador_.Anunciar(donde, t);
}

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

void PlataformaWx::AbrirDialog(sabelot::Dialog& dialogo) {
    Modal m(*this);
    // Se carga en cada muestra y se descarga al elegir.
    auto* eleccion = new VentanaEleccion(principal_, dialogo, anunciador_);
    Diferir(eleccion);
    eleccion_ = eleccion;
    eleccion->MostrarModal();
    eleccion_ = nullptr;
}

void PlataformaWx::AbrirDialog1(sabelot::Dialog1& dialogo) {
    Modal m(*this);
    auto* pregunta = new VentanaPregunta(principal_, dialogo, anunciador_);
    Diferir(pregunta);
    pregunta_ = pregunta;
    pregunta->MostrarModal();
    pregunta_ = nullptr;
}

void PlataformaWx::AbrirDlgOpciones(sabelot::DlgOpciones& dialogo) {
    Modal m(*this);
    auto* opciones = new VentanaOpciones(principal_, dialogo, anunciador_);
    Diferir(opciones);
    opciones_ = opciones;
    opciones->MostrarModal();
    opciones_ = nullptr;
}

void PlataformaWx::CerrarDialogos() {
    for (DialogoJuego* d : diferidos_) {
        d->Retirar();
        d->Destroy();
    }
    diferidos_.clear();
    DestruirRetirados(true);
    eleccion_ = nullptr;
    pregunta_ = nullptr;
    opciones_ = nullptr;
}

void PlataformaWx::TerminarPrograma() {
    // Se van de la pantalla en orden, de la última ventana abierta a la principal, y el
    // proceso acaba sin más.
    for (auto it = diferidos_.rbegin(); it != diferidos_.rend(); ++it) (*it)->Retirar();
    if (principal_) principal_->Hide();
    std::fflush(nullptr);
    std::_Exit(0);
}

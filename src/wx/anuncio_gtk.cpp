// Anuncios en GTK, por ATK. Orca dice el cambio de descripción accesible del objeto que tiene el
// foco, y al recibir el foco un control dice su nombre y su descripción: por ahí se habla.
//
// - Un texto se dice por el control que tiene el foco, cambiando su descripción. Si el foco
//   va a llegar, se pone al llegar, antes del aviso de foco de GTK, y el lector lo dice con el
//   foco. Si acaba de llegar, se espera un momento: los lectores miran la descripción un poco
//   después del aviso de foco, y un cambio pegado a él se oiría dos veces.
// - Al recibir el foco, un control al que se le cambió la descripción la vuelve a tener vacía:
//   volver a él no repite lo que ya se oyó.
// - Los nombres y descripciones fijos se ponen al mostrarse la ventana, no antes: si el objeto
//   accesible de una ventana existe antes de que se muestre, GTK avisa dos veces del foco.
#include <gtk/gtk.h>
#include <wx/eventfilter.h>
#include <wx/toplevel.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include "anuncio.h"

namespace {

// Lo que tarda un lector en mirar el control tras el aviso de foco.
constexpr gint64 kAsiento = 120 * 1000;

// El control GTK que de verdad toma el foco: en un cuadro de texto de varias líneas la
// vista de texto va dentro de una ventana con barras.
GtkWidget* Enfocable(wxWindow* ventana) {
    if (!ventana) return nullptr;
    GtkWidget* w = static_cast<GtkWidget*>(ventana->GetHandle());
    if (w && GTK_IS_SCROLLED_WINDOW(w)) {
        GtkWidget* hijo = gtk_bin_get_child(GTK_BIN(w));
        if (hijo) w = hijo;
    }
    return w;
}

bool VentanaALaVista(GtkWidget* w) {
    GtkWidget* arriba = w ? gtk_widget_get_toplevel(w) : nullptr;
    return arriba && gtk_widget_get_mapped(arriba);
}

// El control del programa que tiene el foco en una ventana activa, o nulo.
wxWindow* ConElFoco() {
    wxWindow* foco = wxWindow::FindFocus();
    if (!foco) return nullptr;
    auto* arriba = dynamic_cast<wxTopLevelWindow*>(wxGetTopLevelParent(foco));
    return arriba && arriba->IsActive() ? foco : nullptr;
}

// Un texto igual al que ya hay no es un cambio: se alterna un blanco al final.
void CambiarDescripcion(AtkObject* acc, const std::string& texto) {
    if (!acc) return;
    const gchar* actual = atk_object_get_description(acc);
    std::string nuevo = texto;
    if (actual && nuevo == actual) nuevo += ' ';
    // ATK no avisa de la primera descripción que recibe un objeto: se le da una vacía antes.
    if (!acc->description) atk_object_set_description(acc, "");
    atk_object_set_description(acc, nuevo.c_str());
}

void PonerNombre(GtkWidget* w, const std::string& nombre, const std::string& descripcion) {
    AtkObject* acc = gtk_widget_get_accessible(w);
    if (!acc) return;
    if (!nombre.empty()) atk_object_set_name(acc, nombre.c_str());
    atk_object_set_description(acc, descripcion.c_str());
    // Un control vacío que toma el foco tiene que decir qué es.
    const AtkRole rol = atk_object_get_role(acc);
    if (rol == ATK_ROLE_UNKNOWN || rol == ATK_ROLE_FILLER) atk_object_set_role(acc, ATK_ROLE_PANEL);
}

// wxDialog es en GTK una ventana normal con la pista de diálogo, y ATK la da como marco: el
// lector diría «marco» en cada cuadro de mensaje. Se corrige al mostrarse, antes de que el
// lector la mire. Ahí se ponen también los nombres y descripciones que esperaban.
gboolean AlMostrarse(GSignalInvocationHint*, guint n, const GValue* valores, gpointer) {
    if (n < 1) return TRUE;
    GObject* o = static_cast<GObject*>(g_value_get_object(&valores[0]));
    if (!GTK_IS_WIDGET(o)) return TRUE;
    GtkWidget* w = GTK_WIDGET(o);
    if (GTK_IS_WINDOW(w) && gtk_window_get_type_hint(GTK_WINDOW(w)) == GDK_WINDOW_TYPE_HINT_DIALOG) {
        AtkObject* acc = gtk_widget_get_accessible(w);
        if (acc && atk_object_get_role(acc) == ATK_ROLE_FRAME) atk_object_set_role(acc, ATK_ROLE_DIALOG);
    }
    const char* nombre = static_cast<const char*>(g_object_get_data(o, "sabelot-nombre"));
    const char* descripcion = static_cast<const char*>(g_object_get_data(o, "sabelot-descripcion"));
    if (nombre || descripcion) {
        PonerNombre(w, nombre ? nombre : "", descripcion ? descripcion : "");
        g_object_set_data(o, "sabelot-nombre", nullptr);
        g_object_set_data(o, "sabelot-descripcion", nullptr);
    }
    return TRUE;  // el gancho se queda para las siguientes
}

class AnunciadorGtk : public Anunciador, public wxEventFilter {
public:
    AnunciadorGtk() {
        static const bool puesto = [] {
            g_signal_add_emission_hook(g_signal_lookup("map", GTK_TYPE_WIDGET), 0, AlMostrarse, nullptr,
                                       nullptr);
            return true;
        }();
        (void)puesto;
        wxEvtHandler::AddFilter(this);
    }
    ~AnunciadorGtk() override {
        wxEvtHandler::RemoveFilter(this);
        if (temporizador_) g_source_remove(temporizador_);
    }

    // Cada cambio de foco del programa, antes de que GTK avise a los lectores.
    int FilterEvent(wxEvent& evento) override {
        const wxEventType tipo = evento.GetEventType();
        if (tipo == wxEVT_SET_FOCUS) {
            if (auto* w = dynamic_cast<wxWindow*>(evento.GetEventObject())) AlEnfocar(w);
        } else if (tipo == wxEVT_ACTIVATE && static_cast<wxActivateEvent&>(evento).GetActive()) {
            // Al activarse la ventana, GTK avisa del foco del control que lo tiene dentro.
            if (wxWindow* w = wxWindow::FindFocus()) AlEnfocar(w);
        } else if (tipo == wxEVT_DESTROY) {
            if (auto* w = dynamic_cast<wxWindow*>(evento.GetEventObject())) Olvidar(w);
        }
        return Event_Skip;
    }

    void Anunciar(wxWindow* casa, const wxString& texto) override {
        const std::string t = texto.utf8_string();
        wxWindow* foco = ConElFoco();
        if (foco && foco == foco_ && Asentado()) {
            Decir(foco, t);
            return;
        }
        // Por quien tenga el foco en cuanto se asiente; sin foco, por la casa cuando lo tenga.
        Pendiente(foco ? foco : casa, t);
    }

    void AnunciarAlEnfocar(wxWindow* control, const wxString& texto) override {
        if (ConElFoco() == control && control == foco_ && Asentado()) {
            Decir(control, texto.utf8_string());
            return;
        }
        Pendiente(control, texto.utf8_string());
    }

    void Nombrar(wxWindow* control, const wxString& nombre, const wxString& descripcion) override {
        GtkWidget* w = Enfocable(control);
        if (!w) return;
        if (!VentanaALaVista(w)) {
            // Se pone al mostrarse la ventana.
            g_object_set_data_full(G_OBJECT(w), "sabelot-nombre", g_strdup(nombre.utf8_str()), g_free);
            g_object_set_data_full(G_OBJECT(w), "sabelot-descripcion", g_strdup(descripcion.utf8_str()),
                                   g_free);
            return;
        }
        PonerNombre(w, nombre.utf8_string(), descripcion.utf8_string());
    }

private:
    wxWindow* foco_ = nullptr;  // el último control que recibió el foco
    gint64 llegada_ = 0;        // cuándo lo recibió
    std::map<wxWindow*, std::string> pendientes_;
    std::set<wxWindow*> hablados_;  // controles cuya descripción se cambió para hablar
    guint temporizador_ = 0;

    bool Asentado() const { return g_get_monotonic_time() - llegada_ >= kAsiento; }

    void Decir(wxWindow* control, const std::string& texto) {
        GtkWidget* w = Enfocable(control);
        if (!w) return;
        hablados_.insert(control);
        CambiarDescripcion(gtk_widget_get_accessible(w), texto);
    }

    void Pendiente(wxWindow* control, const std::string& texto) {
        if (!control) return;
        std::string& p = pendientes_[control];
        p = p.empty() ? texto : p + "\r\n" + texto;
        if (ConElFoco() == control && control == foco_) Programar();
    }

    void AlEnfocar(wxWindow* w) {
        // Activarse la ventana y recibir el foco el control llegan los dos: el segundo aviso
        // del mismo control no es volver a él.
        const bool vuelve = w != foco_;
        foco_ = w;
        llegada_ = g_get_monotonic_time();
        if (vuelve && hablados_.count(w)) {
            // Volver al control no repite lo que ya se dijo por él.
            if (GtkWidget* g = Enfocable(w)) atk_object_set_description(gtk_widget_get_accessible(g), "");
        }
        // Lo que esperaba a este control se pone ya: GTK avisa del foco después, cuando está
        // libre, y el lector lo dice entonces una sola vez con el foco. Esperar a que se
        // asiente hacía que un lector lento lo leyera al llegar y otra vez por el cambio.
        auto it = pendientes_.find(w);
        if (it != pendientes_.end()) {
            const std::string texto = it->second;
            pendientes_.erase(it);
            Decir(w, texto);
        }
    }

    void Olvidar(wxWindow* w) {
        pendientes_.erase(w);
        hablados_.erase(w);
        if (foco_ == w) foco_ = nullptr;
    }

    // Dice lo pendiente del control con el foco cuando este se haya asentado.
    void Programar() {
        if (temporizador_) return;
        const gint64 falta = std::max<gint64>(0, llegada_ + kAsiento - g_get_monotonic_time());
        temporizador_ =
            g_timeout_add(static_cast<guint>(falta / 1000) + 1, &AnunciadorGtk::AlAsentarse, this);
    }

    static gboolean AlAsentarse(gpointer datos) {
        auto* yo = static_cast<AnunciadorGtk*>(datos);
        yo->temporizador_ = 0;
        if (wxWindow::FindFocus() != yo->foco_)
            return G_SOURCE_REMOVE;  // el foco se fue: ya se dirá al volver
        wxWindow* foco = ConElFoco();
        if (!foco || !yo->Asentado()) {
            // La ventana aún no está activa: al activarse vuelve a contar.
            if (!foco) yo->llegada_ = g_get_monotonic_time();
            yo->Programar();
            return G_SOURCE_REMOVE;
        }
        auto it = yo->pendientes_.find(foco);
        if (it != yo->pendientes_.end()) {
            const std::string texto = it->second;
            yo->pendientes_.erase(it);
            yo->Decir(foco, texto);
        }
        return G_SOURCE_REMOVE;
    }
};

}  // namespace

std::unique_ptr<Anunciador> CrearAnunciador() { return std::make_unique<AnunciadorGtk>(); }

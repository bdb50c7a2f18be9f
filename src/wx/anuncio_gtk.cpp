// Anuncios en GTK, por ATK: lo que llega al bus de accesibilidad es lo que oye el lector.
#include <gtk/gtk.h>

#include <string>

#include "anuncio.h"

namespace {

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

AtkObject* Accesible(GtkWidget* w) { return w ? gtk_widget_get_accessible(w) : nullptr; }

// El objeto que el lector tiene ahora como foco: el control con el foco de la ventana activa
// (visible), o la ventana misma. Nulo mientras no haya ninguna activa, p. ej. justo después de
// cerrar un diálogo, antes de que el gestor de ventanas devuelva el foco.
GtkWidget* WidgetConFoco() {
    GtkWidget* encontrado = nullptr;
    GList* lista = gtk_window_list_toplevels();
    for (GList* l = lista; l && !encontrado; l = l->next) {
        if (!GTK_IS_WINDOW(l->data)) continue;
        GtkWindow* v = GTK_WINDOW(l->data);
        if (!gtk_widget_get_mapped(GTK_WIDGET(v)) || !gtk_window_is_active(v)) continue;
        GtkWidget* f = gtk_window_get_focus(v);
        encontrado = (f && gtk_widget_has_focus(f)) ? f : GTK_WIDGET(v);
    }
    g_list_free(lista);
    return encontrado;
}

// Un texto igual al que ya hay no es un cambio: se alterna un blanco al final.
void PonerDescripcion(AtkObject* acc, const std::string& texto) {
    if (!acc) return;
    const gchar* actual = atk_object_get_description(acc);
    std::string nuevo = texto;
    if (actual && nuevo == actual) nuevo += ' ';
    // ATK no avisa de la primera descripción que recibe un objeto: se le da una vacía antes.
    if (!acc->description) atk_object_set_description(acc, "");
    atk_object_set_description(acc, nuevo.c_str());
}

// Aviso suelto, sin foco: la señal que tenga el ATK instalado y que el puente pase al bus.
void EmitirAviso(AtkObject* acc, const std::string& texto) {
    if (!acc) return;
    static const guint anuncio = g_signal_lookup("announcement", ATK_TYPE_OBJECT);
    static const guint notificacion = g_signal_lookup("notification", ATK_TYPE_OBJECT);
    if (anuncio) {
        g_signal_emit(acc, anuncio, 0, texto.c_str());
    } else if (notificacion) {
        GSignalQuery q;
        g_signal_query(notificacion, &q);
        if (q.n_params == 2) g_signal_emit(acc, notificacion, 0, texto.c_str(), 1 /* educado */);
    }
}

// wxDialog es en GTK una ventana normal con la pista de diálogo, y ATK la da como marco: el
// lector diría «marco» en cada cuadro de mensaje. Se corrige al mostrarse, antes de que el
// lector la mire.
gboolean DialogoComoTal(GSignalInvocationHint*, guint n, const GValue* valores, gpointer) {
    if (n < 1) return TRUE;
    GObject* o = static_cast<GObject*>(g_value_get_object(&valores[0]));
    if (!GTK_IS_WINDOW(o)) return TRUE;
    if (gtk_window_get_type_hint(GTK_WINDOW(o)) != GDK_WINDOW_TYPE_HINT_DIALOG) return TRUE;
    AtkObject* acc = gtk_widget_get_accessible(GTK_WIDGET(o));
    if (acc && atk_object_get_role(acc) == ATK_ROLE_FRAME) atk_object_set_role(acc, ATK_ROLE_DIALOG);
    return TRUE;  // el gancho se queda para las siguientes
}

// Al activarse un diálogo, el lector dice su título y su descripción y luego el control con
// el foco. Los dos primeros anuncios de un diálogo recién abierto (su texto, después su botón)
// repetirían eso mismo: se callan si coinciden. Después, todo se dice aunque se repita.
bool YaDichoAlActivarse(GtkWidget* foco, const std::string& texto) {
    GtkWidget* ventana = gtk_widget_get_toplevel(foco);
    if (!GTK_IS_WINDOW(ventana) || ventana == foco) return false;
    AtkObject* accVentana = Accesible(ventana);
    if (!accVentana || atk_object_get_role(accVentana) != ATK_ROLE_DIALOG) return false;
    GObject* o = G_OBJECT(ventana);
    const int paso = GPOINTER_TO_INT(g_object_get_data(o, "sabelot-anuncios"));
    if (paso >= 2) return false;
    g_object_set_data(o, "sabelot-anuncios", GINT_TO_POINTER(paso + 1));
    auto igual = [&](const gchar* dicho) { return dicho && texto == dicho; };
    bool repetido = false;
    if (paso == 0) {
        repetido = igual(atk_object_get_description(accVentana)) || igual(atk_object_get_name(accVentana));
    } else {
        // Solo un botón: el contenido de un cuadro de texto enfocado Orca no siempre lo lee.
        AtkObject* accFoco = Accesible(foco);
        repetido = atk_object_get_role(accFoco) == ATK_ROLE_PUSH_BUTTON && igual(atk_object_get_name(accFoco));
    }
    if (repetido) return true;
    g_object_set_data(o, "sabelot-anuncios", GINT_TO_POINTER(2));
    return false;
}

class AnunciadorGtk : public Anunciador {
public:
    AnunciadorGtk() {
        static const bool puesto = [] {
            g_signal_add_emission_hook(g_signal_lookup("map", GTK_TYPE_WIDGET), 0, DialogoComoTal, nullptr,
                                       nullptr);
            return true;
        }();
        (void)puesto;
    }

    void Anunciar(wxWindow* foco, const wxString& texto) override {
        const std::string t = texto.utf8_string();
        if (GtkWidget* w = WidgetConFoco()) {
            if (YaDichoAlActivarse(w, t)) return;
            PonerDescripcion(Accesible(w), t);
            return;
        }
        // Nadie tiene el foco todavía: el control guarda el texto para cuando lo tenga y,
        // mientras, se avisa sin foco.
        AtkObject* acc = Accesible(Enfocable(foco));
        if (!acc) acc = atk_get_root();
        PonerDescripcion(acc, t);
        EmitirAviso(acc, t);
    }

    void Nombrar(wxWindow* control, const wxString& nombre, const wxString& descripcion) override {
        AtkObject* acc = Accesible(Enfocable(control));
        if (!acc) return;
        if (!nombre.empty()) atk_object_set_name(acc, nombre.utf8_str());
        atk_object_set_description(acc, descripcion.utf8_str());
        // Un control vacío que toma el foco tiene que decir qué es.
        const AtkRole rol = atk_object_get_role(acc);
        if (rol == ATK_ROLE_UNKNOWN || rol == ATK_ROLE_FILLER) atk_object_set_role(acc, ATK_ROLE_PANEL);
    }
};

}  // namespace

std::unique_ptr<Anunciador> CrearAnunciador() { return std::make_unique<AnunciadorGtk>(); }

#include "wx/ventana_opciones.h"

#include <wx/control.h>
#include <wx/frame.h>
#include <wx/settings.h>
#include <wx/sizer.h>

#include <cctype>

#include "comun/teclas.h"
#include "wx/teclas.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

namespace {

using sabelot::ControlOpciones;

// Orden de las listas en la ventana, el mismo de tabulación.
constexpr ControlOpciones kListas[5] = {ControlOpciones::List1_0, ControlOpciones::List1_1,
                                        ControlOpciones::List2_0, ControlOpciones::List2_1,
                                        ControlOpciones::List2_2};

wxString Texto(const std::string& s) { return wxString::FromUTF8(s.c_str()); }

#ifdef __WXGTK__
// La vista de árbol que hay dentro de la ventana con barras de un wxListBox.
GtkWidget* VistaArbol(wxListBox* lista) {
    GtkWidget* w = static_cast<GtkWidget*>(lista->GetHandle());
    if (w && GTK_IS_SCROLLED_WINDOW(w)) w = gtk_bin_get_child(GTK_BIN(w));
    return w && GTK_IS_TREE_VIEW(w) ? w : nullptr;
}
#endif

// El rótulo queda unido a su lista para el lector de pantalla. Las teclas de acceso las
// atiende la ventana (AlTeclaVentana): las de GTK se pierden si la lista se queda la tecla.
void UnirRotulo(wxStaticText* rotulo, wxListBox* lista) {
#ifdef __WXGTK__
    GtkWidget* etiqueta = static_cast<GtkWidget*>(rotulo->GetHandle());
    GtkWidget* arbol = VistaArbol(lista);
    if (etiqueta && arbol && GTK_IS_LABEL(etiqueta))
        gtk_label_set_mnemonic_widget(GTK_LABEL(etiqueta), arbol);
    // Sin la búsqueda al escribir: su ventanita se llevaría el foco y las teclas de acceso.
    if (arbol) gtk_tree_view_set_enable_search(GTK_TREE_VIEW(arbol), FALSE);
#else
    (void)rotulo;
    (void)lista;
#endif
}

// El cursor nativo va con la selección: es la fila que dice el lector. Solo se mueve al llegar
// el foco a la lista: en una lista sin foco, GTK avisaría de un foco que no tiene.
void MoverCursor(wxListBox* lista, int posicion) {
#ifdef __WXGTK__
    GtkWidget* arbol = VistaArbol(lista);
    if (!arbol || posicion < 0) return;
    GtkTreePath* camino = gtk_tree_path_new_from_indices(posicion, -1);
    gtk_tree_view_set_cursor(GTK_TREE_VIEW(arbol), camino, nullptr, FALSE);
    gtk_tree_path_free(camino);
#else
    lista->EnsureVisible(posicion);
#endif
}

// La letra que sigue al '&' de un rótulo, en mayúscula; 0 si no tiene.
int LetraDeAcceso(const wxString& rotulo) {
    for (std::size_t i = 0; i + 1 < rotulo.length(); ++i) {
        if (rotulo[i] != '&') continue;
        if (rotulo[i + 1] == '&') {
            ++i;
            continue;
        }
        const wxUniChar c = rotulo[i + 1];
        return c.IsAscii() ? std::toupper(static_cast<int>(c.GetValue())) : 0;
    }
    return 0;
}

}  // namespace

VentanaOpciones::VentanaOpciones(wxWindow* padre, sabelot::DlgOpciones& logica, Anunciador& anunciador)
    : DialogoJuego(padre, wxID_ANY, Texto(logica.Caption), wxDefaultPosition, wxDefaultSize,
                   wxCAPTION | wxSYSTEM_MENU | wxCLOSE_BOX | wxFRAME_NO_TASKBAR),
      logica_(logica),
      anunciador_(anunciador) {
    // Se crean en el orden de tabulación: cada rótulo justo antes de su lista.
    const std::string* rotulos[5] = {&logica.Label1[0], &logica.Label1[1], &logica.Label2[0],
                                     &logica.Label2[1], &logica.Label2[2]};
    for (std::size_t i = 0; i < 5; ++i) {
        rotulos_[i] = new wxStaticText(this, wxID_ANY, Texto(*rotulos[i]));
        listas_[i] = new wxListBox(this, wxID_ANY, wxDefaultPosition,
                                   FromDIP(wxSize(i < 2 ? 200 : 170, i == 3 ? 170 : 130)), 0, nullptr,
                                   wxLB_SINGLE | wxLB_NEEDED_SB);
        UnirRotulo(rotulos_[i], listas_[i]);
    }
    ayuda_ = new wxStaticText(this, wxID_ANY, Texto(logica.LbAyuda));
    ayuda_->SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT));
    ayuda_->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHTTEXT));
    ok_ = new wxButton(this, wxID_ANY, Texto(logica.OKButton.Caption));
    cancelar_ = new wxButton(this, wxID_ANY, Texto(logica.CancelButton.Caption));

    auto columna = [this](std::size_t i) {
        auto* s = new wxBoxSizer(wxVERTICAL);
        s->Add(rotulos_[i], 0, wxBOTTOM, FromDIP(4));
        s->Add(listas_[i], 1, wxEXPAND);
        return s;
    };
    auto* arriba = new wxBoxSizer(wxHORIZONTAL);
    arriba->Add(columna(0), 1, wxEXPAND | wxRIGHT, FromDIP(12));
    arriba->Add(columna(1), 1, wxEXPAND);
    auto* abajo = new wxBoxSizer(wxHORIZONTAL);
    abajo->Add(columna(2), 1, wxEXPAND | wxRIGHT, FromDIP(12));
    abajo->Add(columna(3), 1, wxEXPAND | wxRIGHT, FromDIP(12));
    abajo->Add(columna(4), 1, wxEXPAND);
    auto* botones = new wxBoxSizer(wxHORIZONTAL);
    botones->AddStretchSpacer();
    botones->Add(ok_, 0, wxRIGHT, FromDIP(8));
    botones->Add(cancelar_);
    auto* todo = new wxBoxSizer(wxVERTICAL);
    todo->Add(arriba, 1, wxEXPAND | wxALL, FromDIP(10));
    todo->Add(abajo, 1, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(10));
    todo->Add(botones, 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(10));
    todo->Add(ayuda_, 0, wxEXPAND);
    SetSizerAndFit(todo);

    // Ni botón por omisión ni de cancelar: Enter pulsa solo el botón con el foco y Escape nada.
    SetEscapeId(wxID_NONE);
    SetAffirmativeId(wxID_NONE);

    for (std::size_t i = 0; i < 5; ++i) {
        const ControlOpciones c = kListas[i];
        wxListBox* l = listas_[i];
        l->Bind(wxEVT_SET_FOCUS, [this, c, l](wxFocusEvent& e) {
            e.Skip();
            AlFoco(c, l);
        });
        l->Bind(wxEVT_KEY_DOWN, [this, c](wxKeyEvent& e) { AlTecla(c, e); });
        l->Bind(wxEVT_LISTBOX, [this, c](wxCommandEvent& e) { AlElegir(c, e); });
        l->Bind(wxEVT_LISTBOX_DCLICK, [this, c](wxCommandEvent&) { AlActivarFila(c); });
        const sabelot::ListaOpciones& enLogica = i < 2 ? logica.List1[i] : logica.List2[i - 2];
        anunciador_.Nombrar(l, wxControl::RemoveMnemonics(rotulos_[i]->GetLabel()),
                            Texto(enLogica.ToolTipText));
    }
    ok_->Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& e) {
        e.Skip();
        AlFoco(ControlOpciones::OKButton, ok_);
    });
    cancelar_->Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& e) {
        e.Skip();
        AlFoco(ControlOpciones::CancelButton, cancelar_);
    });
    ok_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { AlPulsar(ControlOpciones::OKButton); });
    cancelar_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { AlPulsar(ControlOpciones::CancelButton); });
    // La ventana se dice por su título y la línea de ayuda; cada lista, por su rótulo, su ayuda
    // y la fila elegida, que dice el lector al llegar a ella.
    anunciador_.Nombrar(this, GetTitle(), Texto(logica.LbAyuda));

    Bind(wxEVT_CHAR_HOOK, &VentanaOpciones::AlTeclaVentana, this);
    Bind(wxEVT_CLOSE_WINDOW, &VentanaOpciones::AlCerrar, this);
    logica_.PonerVista(this);
}

VentanaOpciones::~VentanaOpciones() { logica_.QuitarVista(this); }

void VentanaOpciones::MostrarModal() {
    logica_.PonerVista(this);
    logica_.Mostrar();
    if (!logica_.Visible) return;
    // Todo pintado y el foco en su sitio antes de mostrarse: el lector dice la ventana y el
    // control con el foco una vez, ya con lo que tienen.
    Refrescar();
    if (auto* lista = dynamic_cast<wxListBox*>(Control(logica_.Foco)))
        MoverCursor(lista, lista->GetSelection());
    ShowModal();
}

wxWindow* VentanaOpciones::Control(ControlOpciones c) const {
    for (std::size_t i = 0; i < 5; ++i)
        if (kListas[i] == c) return listas_[i];
    if (c == ControlOpciones::OKButton) return ok_;
    if (c == ControlOpciones::CancelButton) return cancelar_;
    return nullptr;
}

void VentanaOpciones::PintarLista(int indice, const sabelot::ListaOpciones& lista) {
    wxListBox* l = listas_[static_cast<std::size_t>(indice)];
    const unsigned cuantas = static_cast<unsigned>(lista.List.size());
    bool cambiada = false;
    if (l->GetCount() != cuantas) {
        wxArrayString entradas;
        for (const std::string& e : lista.List) entradas.Add(Texto(e));
        l->Set(entradas);
        cambiada = true;
    } else {
        // Una entrada cambiada se cambia sola, sin rehacer la lista.
        for (unsigned i = 0; i < cuantas; ++i) {
            const wxString e = Texto(lista.List[i]);
            if (l->GetString(i) != e) {
                l->SetString(i, e);
                cambiada = true;
            }
        }
    }
    const int seleccion = lista.ListIndex < static_cast<int>(cuantas) ? lista.ListIndex : -1;
    if (cambiada || l->GetSelection() != seleccion) {
        l->SetSelection(seleccion < 0 ? wxNOT_FOUND : seleccion);
        // En la lista que tiene el foco, la fila que dice el lector también cambia.
        if (seleccion >= 0 && l->HasFocus()) MoverCursor(l, seleccion);
    }
    const wxString ayuda = Texto(lista.ToolTipText);
    if (!ayuda.empty() && l->GetToolTipText() != ayuda) l->SetToolTip(ayuda);
}

void VentanaOpciones::Refrescar() {
    pintando_ = true;
    const wxString titulo = Texto(logica_.Caption);
    if (GetTitle() != titulo) SetTitle(titulo);
    const std::string* rotulos[5] = {&logica_.Label1[0], &logica_.Label1[1], &logica_.Label2[0],
                                     &logica_.Label2[1], &logica_.Label2[2]};
    for (std::size_t i = 0; i < 5; ++i) {
        if (rotulos_[i]->GetLabel() != Texto(*rotulos[i])) rotulos_[i]->SetLabel(Texto(*rotulos[i]));
    }
    PintarLista(0, logica_.List1[0]);
    PintarLista(1, logica_.List1[1]);
    PintarLista(2, logica_.List2[0]);
    PintarLista(3, logica_.List2[1]);
    PintarLista(4, logica_.List2[2]);
    if (ayuda_->GetLabel() != Texto(logica_.LbAyuda)) ayuda_->SetLabel(Texto(logica_.LbAyuda));
    if (ok_->GetLabel() != Texto(logica_.OKButton.Caption)) ok_->SetLabel(Texto(logica_.OKButton.Caption));
    ok_->Enable(logica_.OKButton.Enabled);
    if (cancelar_->GetLabel() != Texto(logica_.CancelButton.Caption))
        cancelar_->SetLabel(Texto(logica_.CancelButton.Caption));
    cancelar_->Enable(logica_.CancelButton.Enabled);
    pintando_ = false;
    Enfocar();
}

void VentanaOpciones::Ocultar() {
    if (IsModal())
        EndModal(wxID_OK);
    else
        Hide();
}

void VentanaOpciones::Enfocar() {
    if (!logica_.Visible) return;
    wxWindow* w = Control(logica_.Foco);
    if (w && wxWindow::FindFocus() != w) {
        pintando_ = true;
        w->SetFocus();
        pintando_ = false;
    }
}

void VentanaOpciones::AlFoco(ControlOpciones control, wxWindow* ventana) {
    // La fila que el lector dice al llegar es la elegida, aunque la eligiera la lógica.
    if (auto* lista = dynamic_cast<wxListBox*>(ventana)) MoverCursor(lista, lista->GetSelection());
    if (pintando_ || !logica_.Visible) return;
    const ControlOpciones antes = logica_.Foco;
    logica_.CambiarFoco(control);
    if (logica_.Foco == antes) return;  // p. ej. vuelve de un cuadro de mensaje
    // Entrar en una lista pone al día las otras; salir de los ficheros puede llevar a Aceptar.
    CallAfter([this] {
        if (logica_.Visible) Refrescar();
    });
}

void VentanaOpciones::AlTecla(ControlOpciones control, wxKeyEvent& e) {
    const int codigo = CodigoTecla(e);
    if (codigo == 0) {
        e.Skip();
        return;
    }
    const bool atendida = logica_.Tecla(control, codigo, Modificadores(e));
    if (logica_.Visible) Refrescar();
    if (!atendida) e.Skip();
}

void VentanaOpciones::AlActivarFila(ControlOpciones control) {
#ifdef __WXGTK__
    // La lista de GTK se queda con Enter y lo da como fila activada, igual que el doble clic
    // y el espacio; solo Enter es una tecla para la lógica.
    GdkEvent* evento = gtk_get_current_event();
    if (!evento) return;
    const bool enter = evento->type == GDK_KEY_PRESS &&
                       (evento->key.keyval == GDK_KEY_Return || evento->key.keyval == GDK_KEY_KP_Enter ||
                        evento->key.keyval == GDK_KEY_ISO_Enter);
    const guint estado = evento->key.state;
    gdk_event_free(evento);
    if (!enter) return;
    logica_.Tecla(control, sabelot::vbKeyReturn,
                  Modificadores((estado & GDK_SHIFT_MASK) != 0, (estado & GDK_CONTROL_MASK) != 0,
                                (estado & GDK_MOD1_MASK) != 0));
    if (logica_.Visible) Refrescar();
#else
    (void)control;
#endif
}

void VentanaOpciones::AlTeclaVentana(wxKeyEvent& e) {
    // Las teclas de acceso: la de un rótulo lleva a su lista, la de un botón lo pulsa.
    const int mods = Modificadores(e);
    const int codigo = CodigoTecla(e);
    // Salir de la lista de ficheros puede acabar en Aceptar: se decide antes de mover el foco,
    // para que el lector no diga de paso una lista en la que el foco no se queda.
    if (logica_.Foco == ControlOpciones::List2_1 && codigo == sabelot::vbKeyTab &&
        (mods & ~sabelot::vbShiftMask) == 0) {
        LlevarFoco((mods & sabelot::vbShiftMask) ? ControlOpciones::List2_0 : ControlOpciones::List2_2);
        return;
    }
    if (mods == sabelot::vbAltMask && codigo >= sabelot::vbKeyA && codigo <= sabelot::vbKeyZ) {
        for (std::size_t i = 0; i < 5; ++i) {
            if (LetraDeAcceso(rotulos_[i]->GetLabel()) == codigo) {
                LlevarFoco(kListas[i]);
                return;
            }
        }
        if (LetraDeAcceso(Texto(logica_.OKButton.Caption)) == codigo && logica_.OKButton.Enabled) {
            AlPulsar(ControlOpciones::OKButton);
            return;
        }
        if (LetraDeAcceso(Texto(logica_.CancelButton.Caption)) == codigo && logica_.CancelButton.Enabled) {
            AlPulsar(ControlOpciones::CancelButton);
            return;
        }
    }
    e.Skip();
}

void VentanaOpciones::LlevarFoco(ControlOpciones destino) {
    logica_.CambiarFoco(destino);
    if (logica_.Visible) Refrescar();
}

void VentanaOpciones::AlElegir(ControlOpciones control, wxCommandEvent& e) {
    if (pintando_) return;
    logica_.ElegirEntrada(control, e.GetSelection());
    if (logica_.Visible) Refrescar();
}

void VentanaOpciones::AlPulsar(ControlOpciones boton) {
    logica_.Pulsar(boton);
    if (logica_.Visible) Refrescar();
}

void VentanaOpciones::AlCerrar(wxCloseEvent&) {
    // Desde la barra de título no corre nada del diálogo: se descarga y la próxima vez carga.
    if (logica_.Visible)
        logica_.Descargar();
    else if (IsModal())
        EndModal(wxID_CANCEL);
}

// Lo que queda en ATK, que es lo que el puente de accesibilidad pasa al lector de pantalla.
#ifdef __WXGTK__
#include <gtest/gtest.h>
#include <gtk/gtk.h>
#include <wx/frame.h>
#include <wx/textctrl.h>

#include <memory>
#include <string>

#include "apoyo_gui.h"
#include "wx/anuncio.h"
#include "wx/plataforma_wx.h"
#include "wx/programa_wx.h"

using prueba_gui::DialogoVisto;
using prueba_gui::EsperarHasta;

namespace {

GtkWidget* Widget(wxWindow* w) {
    GtkWidget* g = static_cast<GtkWidget*>(w->GetHandle());
    if (GTK_IS_SCROLLED_WINDOW(g)) g = gtk_bin_get_child(GTK_BIN(g));
    return g;
}
AtkObject* Atk(wxWindow* w) { return gtk_widget_get_accessible(Widget(w)); }
std::string Descripcion(wxWindow* w) {
    const gchar* d = atk_object_get_description(Atk(w));
    return d ? d : "";
}
std::string Nombre(wxWindow* w) {
    const gchar* n = atk_object_get_name(Atk(w));
    return n ? n : "";
}

class Enfocable : public wxWindow {
public:
    explicit Enfocable(wxWindow* madre) : wxWindow(madre, wxID_ANY, wxPoint(0, 0), wxSize(50, 30)) {}
    bool AcceptsFocus() const override { return true; }
};

class Anuncios : public ::testing::Test {
protected:
    void SetUp() override {
        anunciador = CrearAnunciador();
        marco = new wxFrame(nullptr, wxID_ANY, "Prueba");
        lienzo = new Enfocable(marco);
        texto = new wxTextCtrl(marco, wxID_ANY, "", wxPoint(0, 40), wxSize(200, 80), wxTE_MULTILINE);
    }
    void TearDown() override { delete marco; }
    void MostrarCon(wxWindow* foco) {
        marco->Show();
        foco->SetFocus();
        ASSERT_TRUE(EsperarHasta([&] { return marco->IsActive() && wxWindow::FindFocus() == foco; }));
    }

    std::unique_ptr<Anunciador> anunciador;
    wxFrame* marco = nullptr;
    wxWindow* lienzo = nullptr;
    wxTextCtrl* texto = nullptr;
};

TEST_F(Anuncios, ConElFocoAsentadoSeDiceYaYUnTextoRepetidoSigueSiendoUnCambio) {
    MostrarCon(lienzo);
    prueba_gui::Bombear(200);
    anunciador->Anunciar(lienzo, "Casilla central");
    EXPECT_EQ(Descripcion(lienzo), "Casilla central");
    anunciador->Anunciar(lienzo, "Casilla central");
    EXPECT_EQ(Descripcion(lienzo), "Casilla central ");
    anunciador->Anunciar(lienzo, wxString::FromUTF8("Énter\r\nsí"));
    EXPECT_EQ(Descripcion(lienzo), "Énter\r\nsí");
}

TEST_F(Anuncios, SeDicePorLoQueTieneElFocoYVolverAUnControlNoRepiteLoDicho) {
    MostrarCon(texto);
    prueba_gui::Bombear(200);
    anunciador->Anunciar(lienzo, "hola");
    EXPECT_EQ(Descripcion(texto), "hola");
    lienzo->SetFocus();
    ASSERT_TRUE(EsperarHasta([&] { return wxWindow::FindFocus() == lienzo; }));
    texto->SetFocus();
    ASSERT_TRUE(EsperarHasta([&] { return wxWindow::FindFocus() == texto; }));
    EXPECT_EQ(Descripcion(texto), "");
}

TEST_F(Anuncios, SinFocoElTextoEsperaAQueSuCasaLoTengaYVaConElFoco) {
    anunciador->Anunciar(lienzo, "para luego");
    anunciador->Anunciar(lienzo, "y esto");
    EXPECT_EQ(Descripcion(lienzo), "");
    // Se pone al llegar el foco, antes de que GTK avise de él: el lector lo dice con el foco.
    MostrarCon(lienzo);
    ASSERT_TRUE(EsperarHasta([&] { return !Descripcion(lienzo).empty(); }, 1000));
    EXPECT_EQ(Descripcion(lienzo), "para luego\r\ny esto");
}

TEST_F(Anuncios, LoQueUnaVentanaPresentaEsperaAlControlQueLoDice) {
    MostrarCon(texto);
    prueba_gui::Bombear(200);
    anunciador->AnunciarAlEnfocar(lienzo, "1. Cinco");
    prueba_gui::Bombear(200);
    EXPECT_EQ(Descripcion(texto), "") << "no por el control que tiene ahora el foco";
    lienzo->SetFocus();
    ASSERT_TRUE(EsperarHasta([&] { return Descripcion(lienzo) == "1. Cinco"; }, 1000));
}

TEST_F(Anuncios, NombrarDaNombreDescripcionYPapelAUnControlVacioAlMostrarse) {
    anunciador->Nombrar(lienzo, "Tablero", "Casilla central");
    MostrarCon(lienzo);
    EXPECT_EQ(Nombre(lienzo), "Tablero");
    EXPECT_EQ(Descripcion(lienzo), "Casilla central");
    EXPECT_EQ(atk_object_get_role(Atk(lienzo)), ATK_ROLE_PANEL);
}

TEST(AnunciosCajas, ElCuadroDeMensajeLlevaTituloYTextoEnteros) {
    prueba_gui::CarpetaPrograma carpeta;
    auto anunciador = CrearAnunciador();
    PlataformaWx plataforma(carpeta.Ruta(), *anunciador);
    prueba_gui::Vigilante vigilante(nullptr);
    std::string nombre, descripcion, botonDice;
    AtkRole papel = ATK_ROLE_INVALID;
    vigilante.espera = [](const DialogoVisto&) { return 600; };
    vigilante.contestar = [&](const DialogoVisto&) {
        wxWindow* foco = wxWindow::FindFocus();
        wxWindow* caja = wxGetTopLevelParent(foco);
        nombre = Nombre(caja);
        papel = atk_object_get_role(Atk(caja));
        descripcion = Descripcion(caja);
        botonDice = Nombre(foco) + "|" + Descripcion(foco);
        return WXK_RETURN;
    };
    const std::string texto = "Alguno/s de los ficheros \r\nEntre en el menú.";
    EXPECT_EQ(plataforma.MsgBox(texto, 48, "Atención"), 1);
    EXPECT_EQ(nombre, "Atención");
    // Un diálogo, no un marco: es lo que el lector dice al abrirse.
    EXPECT_EQ(papel, ATK_ROLE_DIALOG);
    EXPECT_EQ(descripcion, texto);
    // El lector dice al abrirse el título, el texto y el botón con el foco; nada más se
    // le manda repetir.
    EXPECT_EQ(botonDice, "Aceptar|");
}

TEST(AnunciosVentana, Picture1SeLlamaTableroYDiceLoQueMuestraText1) {
    prueba_gui::CarpetaPrograma carpeta;
    ProgramaWx programa(carpeta.Ruta());
    prueba_gui::Vigilante vigilante([&]() -> wxWindow* { return programa.ventana(); });
    programa.Arrancar();
    VentanaPrincipal* v = programa.ventana();
    ASSERT_TRUE(EsperarHasta([&] { return v->IsActive() && v->FocoEnPicture1(); }));
    EXPECT_EQ(Nombre(v->Picture1()), "Tablero");
    EXPECT_EQ(atk_object_get_role(Atk(v->Picture1())), ATK_ROLE_PANEL);
    // El texto del centro, puesto antes de que hubiera ventana, se oye cuando el foco llega.
    ASSERT_TRUE(EsperarHasta([&] { return !Descripcion(v->Picture1()).empty(); }, 1000));
    EXPECT_EQ(Descripcion(v->Picture1()), v->Text1()->GetValue().utf8_string());
    const wxString antes = v->Text1()->GetValue();
    prueba_gui::PulsarTecla(WXK_UP);
    ASSERT_TRUE(EsperarHasta([&] { return v->Text1()->GetValue() != antes; }));
    // Con el foco recién llegado, el texto espera a que se asiente y entonces se dice.
    const std::string ahora = v->Text1()->GetValue().utf8_string();
    EXPECT_TRUE(EsperarHasta(
        [&] { return Descripcion(v->Picture1()) == ahora || Descripcion(v->Picture1()) == ahora + " "; },
        1000))
        << Descripcion(v->Picture1());
}

}  // namespace
#endif

// La ventana de opciones con teclas de verdad: listas, F1, F2, teclas de acceso y Escape.
#include "wx/ventana_opciones.h"

#include <gtest/gtest.h>

#include <memory>

#include "apoyo/plataforma_guion.h"
#include "gui/pasos.h"
#include "storage/canales.h"

namespace sabelot::prueba {
namespace {

class VentanaOpcionesTest : public ::testing::Test {
protected:
    PlataformaGuion p;
    Module1 m;
    Canales canales{p.Ficheros()};
    DlgOpciones d{m, p, canales};
    AnunciadorPrueba anun;
    std::unique_ptr<VentanaOpciones> v;

    void SetUp() override {
        for (const char* n : {"deportes", "cine", "historia"})
            p.carpeta.Escribir(std::string("preguntas/") + n + ".qzf", "q>Uno\r\n1>Sí\r\na>1\r\n");
        v = std::make_unique<VentanaOpciones>(nullptr, d, anun);
    }
    void TearDown() override { v.reset(); }

    wxWindow* Foco() const { return wxWindow::FindFocus(); }
};

TEST_F(VentanaOpcionesTest, JugadoresConLasTeclasYAceptar) {
    Pasos pasos(
        *v,
        {[&] {
             EXPECT_EQ(v->GetTitle(), "Opciones");
             EXPECT_EQ(Foco(), v->Lista(0));
             EXPECT_EQ(v->Lista(3)->GetCount(), 3u);
             EXPECT_EQ(v->Lista(3)->GetString(0), "cine");
             EXPECT_EQ(v->Aceptar()->GetLabelText(), "Aceptar");
         },
         Tecla(WXK_DOWN), Tecla(WXK_DOWN),
         [&] {
             EXPECT_EQ(v->Lista(0)->GetSelection(), 2);
             EXPECT_EQ(d.List1[0].ListIndex, 2);
         },
         Tecla(WXK_ESCAPE), Tecla(WXK_RETURN),
         [&] { EXPECT_TRUE(v->IsModal()) << "ni Escape ni Enter cierran desde una lista"; }, Tecla(WXK_F1),
         [&] {
             ASSERT_EQ(p.mensajes.size(), 1u);
             EXPECT_EQ(p.mensajes[0].texto,
                       "Seleccione el número de jugadores que van a participar. Pueden ser entre 1 y 6.");
         },
         // Tecla de acceso del rótulo: lleva a su lista, que se pone al día.
         Tecla('C', wxMOD_ALT),
         [&] {
             EXPECT_EQ(Foco(), v->Lista(2));
             EXPECT_EQ(d.Foco, ControlOpciones::List2_0);
             EXPECT_EQ(v->Lista(3)->GetSelection(), 0);
         },
         Tecla(WXK_TAB), Tecla(WXK_DOWN), Tecla(WXK_TAB),
         [&] {
             EXPECT_EQ(Foco(), v->Lista(4));
             EXPECT_EQ(d.FicheroElegido[0], "deportes");
             EXPECT_EQ(v->Lista(4)->GetString(0), "deportes");
         },
         [&] { p.textos.push_back("Fútbol y más"); }, Tecla(WXK_F2),
         [&] {
             ASSERT_EQ(p.entradas.size(), 1u);
             EXPECT_EQ(p.entradas[0].inicial, "deportes");
             EXPECT_EQ(v->Lista(4)->GetString(0), wxString::FromUTF8("Fútbol y más"));
         },
         Tecla('A', wxMOD_ALT)});
    v->MostrarModal();
    EXPECT_TRUE(pasos.Acabados());
    EXPECT_FALSE(v->IsShown());
    EXPECT_EQ(m.NumJugadores, 3);
    EXPECT_EQ(m.FicheroTema[1], "deportes");
    EXPECT_EQ(m.EtiquetaTema[1], "Fútbol y más ");
    EXPECT_TRUE(p.carpeta.Existe("Sabelot.ini"));

    // Nada se anuncia aparte: cada lista se dice por su nombre (el rótulo sin el signo de la
    // tecla de acceso), su ayuda y la fila elegida, que el lector dice al llegar.
    EXPECT_TRUE(anun.dichos.empty());
    EXPECT_EQ(anun.nombres[v->Lista(3)].first, "Ficheros de preguntas");
    EXPECT_EQ(
        anun.nombres[v->Lista(3)].second,
        wxString::FromUTF8("Seleccione el archivo que proporcionará las preguntas para esta categoría"));
}

TEST_F(VentanaOpcionesTest, CerrarDesdeLaBarraDescargaElDialogo) {
    Pasos primera(*v, {Tecla(WXK_DOWN), [&] { v->Close(); }});
    v->MostrarModal();
    EXPECT_TRUE(primera.Acabados());
    EXPECT_FALSE(d.Cargado);
    EXPECT_EQ(m.NumJugadores, 1);
    EXPECT_FALSE(p.carpeta.Existe("Sabelot.ini"));
}

}  // namespace
}  // namespace sabelot::prueba

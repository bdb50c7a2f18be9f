// La ventana de pregunta con teclas de verdad: una sola ventana para varias preguntas.
#include "wx/ventana_pregunta.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "apoyo/plataforma_guion.h"
#include "gui/pasos.h"
#include "storage/canales.h"
#include "storage/cp1252.h"

namespace sabelot::prueba {
namespace {

const char* const kPreguntas =
    "q>¿Cuántos lados tiene un hexágono?\r\n"
    "1>Cinco\r\n"
    "2>Seis\r\n"
    "3>Ocho\r\n"
    "a>2\r\n"
    "\r\n"
    "q>¿Cuál es la capital de Francia?\r\n"
    "1>París\r\n"
    "2>Lyon\r\n"
    "a>1\r\n"
    "\r\n"
    "q>¿Tiene una sola respuesta?\r\n"
    "1>Sí\r\n"
    "a>1\r\n"
    "\r\n";

class VentanaPreguntaTest : public ::testing::Test {
protected:
    Module1 m;
    PlataformaGuion p;
    Canales canales{p.Ficheros()};
    Dialog1 d{m, p, canales};
    AnunciadorPrueba anun;
    std::unique_ptr<VentanaPregunta> v;

    void SetUp() override {
        p.carpeta.Escribir("preguntas/prueba.qzf", Utf8ACp1252(kPreguntas));
        m.FicheroTema[1] = "prueba";
        m.CanalTema[1] = 1;
        m.EtiquetaTema[1] = "Geografía";
        p.azar = {0.0};  // el mazo empieza en el primer byte
        d.NTema = 1;
        v = std::make_unique<VentanaPregunta>(nullptr, d, anun);
    }
    void TearDown() override {
        v.reset();  // ya no es modal: se puede borrar sin esperar
        canales.CerrarTodos();
    }

    wxString Respuesta() const { return v->Respuesta()->Texto(); }
    bool FocoEnRespuesta() const { return wxWindow::FindFocus() == v->Respuesta(); }

    // Una pregunta entera con esos pasos; verdadero si se dieron todos.
    bool Preguntar(std::vector<std::function<void()>> pasos) {
        Pasos guion(*v, std::move(pasos));
        v->MostrarModal();
        return guion.Acabados();
    }
};

TEST_F(VentanaPreguntaTest, LaMismaVentanaPreguntaJuzgaYSeOcultaTresVeces) {
    // Primera: nada edita la respuesta; Abajo y Enter aciertan.
    EXPECT_TRUE(
        Preguntar({[&] {
                       EXPECT_EQ(v->GetTitle(), wxString::FromUTF8("Pregunta de Geografía.\r\n"
                                                                   "¿Cuántos lados tiene un hexágono?"));
                       const wxString pregunta = wxString::FromUTF8("  ¿Cuántos lados tiene un hexágono?");
                       EXPECT_EQ(v->Pregunta()->GetValue(), pregunta);
                       long desde = 0, hasta = 0;
                       v->Pregunta()->GetSelection(&desde, &hasta);
                       EXPECT_EQ(desde, 1);
                       EXPECT_EQ(hasta, static_cast<long>(pregunta.length()));
                       EXPECT_EQ(Respuesta(), "1. Cinco");
                       EXPECT_TRUE(FocoEnRespuesta());
                       // Sin rótulos a la vista, los nombres accesibles dicen qué es cada cosa.
                       EXPECT_EQ(anun.nombres[v->Respuesta()].first, "Respuesta");
                       EXPECT_EQ(anun.nombres[v->Pregunta()].first, "Pregunta");
                       EXPECT_EQ(anun.nombres[v.get()].first, v->GetTitle());
                   },
                   Tecla('x'), Tecla('2'), Tecla(WXK_DELETE), Tecla(WXK_BACK), Tecla(WXK_LEFT),
                   Tecla(WXK_ESCAPE), Tecla(WXK_F4, wxMOD_ALT),
                   [&] {
                       EXPECT_TRUE(v->IsModal()) << "ni Escape ni Alt+F4 cierran";
                       EXPECT_TRUE(d.Visible);
                       EXPECT_EQ(Respuesta(), "1. Cinco");
                       EXPECT_TRUE(FocoEnRespuesta());
                   },
                   // Con Tab se llega a la pregunta, que atiende las mismas teclas.
                   Tecla(WXK_TAB), [&] { EXPECT_EQ(wxWindow::FindFocus(), v->Pregunta()); }, Tecla(WXK_DOWN),
                   [&] {
                       EXPECT_EQ(Respuesta(), "2. Seis");
                       EXPECT_EQ(p.TextosDichos(), std::vector<std::string>{"2. Seis"});
                       EXPECT_TRUE(p.mensajes.empty());
                   },
                   Tecla(WXK_TAB), [&] { EXPECT_TRUE(FocoEnRespuesta()); }, Tecla(WXK_RETURN)}));
    EXPECT_FALSE(v->IsShown());
    ASSERT_EQ(p.mensajes.size(), 1u);
    EXPECT_EQ(p.mensajes[0].texto, "respuesta correcta");
    EXPECT_EQ(p.mensajes[0].estilo, vbOKOnly);
    EXPECT_EQ(p.mensajes[0].titulo, "Sabelot");
    EXPECT_TRUE(d.RespuestaCorrecta);
    EXPECT_EQ(p.pitidos, 0);
    // Al abrir, la ventana dice por la respuesta la primera (la pregunta es su título); al
    // volver a la respuesta con Tab, la que está puesta.
    EXPECT_EQ(anun.dichos, (std::vector<wxString>{"1. Cinco", "2. Seis"}));

    // Segunda, en la misma ventana: Arriba da la vuelta con un pitido; se falla.
    anun.dichos.clear();
    p.dichos.clear();
    EXPECT_TRUE(Preguntar({[&] {
                               EXPECT_EQ(v->Pregunta()->GetValue(),
                                         wxString::FromUTF8("  ¿Cuál es la capital de Francia?"));
                               EXPECT_EQ(Respuesta(), wxString::FromUTF8("1. París"));
                               EXPECT_TRUE(FocoEnRespuesta());
                           },
                           Tecla(WXK_UP),
                           [&] {
                               EXPECT_EQ(p.pitidos, 1);
                               EXPECT_EQ(Respuesta(), "2. Lyon");
                           },
                           Tecla(WXK_RETURN)}));
    ASSERT_EQ(p.mensajes.size(), 2u);
    EXPECT_EQ(p.mensajes[1].texto, "La respuesta correcta era París");
    EXPECT_FALSE(d.RespuestaCorrecta);
    EXPECT_EQ(anun.dichos, std::vector<wxString>{wxString::FromUTF8("1. París")}) << "la primera, nueva";
    EXPECT_EQ(p.TextosDichos(), std::vector<std::string>{"2. Lyon"});

    // Tercera: una sola respuesta; cada paso pita y la vuelve a decir. Espacio juzga.
    anun.dichos.clear();
    p.dichos.clear();
    EXPECT_TRUE(Preguntar({[&] { EXPECT_EQ(Respuesta(), wxString::FromUTF8("1. Sí")); }, Tecla(WXK_DOWN),
                           Tecla(WXK_DOWN),
                           [&] {
                               EXPECT_EQ(p.pitidos, 3);
                               EXPECT_EQ(Respuesta(), wxString::FromUTF8("1. Sí"));
                           },
                           Tecla(WXK_SPACE)}));
    ASSERT_EQ(p.mensajes.size(), 3u);
    EXPECT_EQ(p.mensajes[2].texto, "respuesta correcta");
    EXPECT_TRUE(d.RespuestaCorrecta);
    EXPECT_EQ(p.TextosDichos(), (std::vector<std::string>{"1. Sí", "1. Sí"}));
    EXPECT_EQ(m.CuentaMazo[1], 3);
}

}  // namespace
}  // namespace sabelot::prueba

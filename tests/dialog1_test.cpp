// Dialog1 sobre la plataforma con guion: lo que se ve, las teclas y el veredicto.
#include "questions/dialog1.h"

#include <gtest/gtest.h>

#include <tuple>

#include "apoyo/datos_prueba.h"
#include "apoyo/formas_prueba.h"
#include "apoyo/juego_prueba.h"

namespace sabelot::prueba {
namespace {

// Como vista, cuenta y apunta el pitido y el texto de la respuesta en cada refresco.
class Dialogo1 : public ::testing::Test, public ConDialog1, public VistaDialog1 {
protected:
    int ocultaciones = 0;
    std::pair<int, std::string> visto;

    void Refrescar() override { visto = {p.pitidos, d.Text2}; }
    void Ocultar() override { ++ocultaciones; }
    void SetUp() override { m.EtiquetaTema = {"", "Cine", "Geografía", "Historia"}; }
    // Muestra el diálogo y lo deja abierto con la pregunta leída, sin contestar.
    void Abrir(int tema) {
        d.NTema = tema;
        p.azar.push_back(0.0);
        d.Visible = true;
        d.Form_Activate();
    }
    // Una tecla a Text2; devuelve el código como queda.
    int Tecla(int codigo) {
        d.Text2_KeyDown(codigo, 0);
        return codigo;
    }
};

const std::string kTres = Qzf({"q>¿Cuántos lados tiene un hexágono?", "1>Cinco", "2>Seis", "3>Ocho", "a>2"});

// Cada fila de tests/datos/dialog1_abrir.txt, con su carpeta.
class Pregunta : public Dialogo1, public ::testing::WithParamInterface<std::string> {};

TEST_P(Pregunta, LoQueSeVe) {
    for (int t = 1; t <= 3; ++t) Poner(t, kTres);
    const auto c = CamposEnBytes(GetParam());
    std::tie(p.hora, p.minuto, p.segundo) =
        std::make_tuple(std::stoi(c[1]), std::stoi(c[2]), std::stoi(c[3]));
    Abrir(std::stoi(c[0]));
    EXPECT_TRUE(d.Visible && p.mensajes.empty());
    EXPECT_EQ(std::to_string(d.NTema) + " " + std::to_string(p.ultimaSemilla) + " " +
                  std::to_string(d.Text1SelStart) + " " + std::to_string(d.Text1SelLength),
              c[4]);
    EXPECT_EQ(std::vector<std::string>({d.Titulo, d.Text1, d.Text2}),
              std::vector<std::string>(c.begin() + 5, c.end()));
}

INSTANTIATE_TEST_SUITE_P(Dialog1, Pregunta, ::testing::ValuesIn(LineasDeDatos("dialog1_abrir.txt")));

// Los pasos de tests/datos/dialog1_teclas.txt, seguidos. La vista se refresca tras el pitido y el texto
// nuevo, y se oculta al juzgar.
TEST_F(Dialogo1, TeclasDeLasRespuestas) {
    d.PonerVista(this);
    for (const std::string& fila : LineasDeDatos("dialog1_teclas.txt")) {
        const auto c = CamposEnBytes(fila);
        if (c.size() == 2) {
            Poner(std::stoi(c[0]), Qzf(Campos(c[1], '|')));
            p.pitidos = 0;
            Abrir(std::stoi(c[0]));
            continue;
        }
        EXPECT_EQ(std::stoi(c[1]), Tecla(std::stoi(c[0]))) << fila;
        EXPECT_EQ(std::make_pair(std::stoi(c[2]), c[3]), std::make_pair(p.pitidos, d.Text2)) << fila;
        EXPECT_EQ(visto, std::make_pair(p.pitidos, d.Text2)) << fila;
        EXPECT_TRUE(d.Visible) << fila;
    }
    EXPECT_TRUE(p.mensajes.empty());
    int caracter = 'x';
    d.Text2_KeyPress(caracter);
    EXPECT_EQ(0, caracter);
    EXPECT_EQ(0, ocultaciones);
    Tecla(13);
    EXPECT_EQ(1, ocultaciones);
}

// Los de tests/datos/dialog1_veredictos.txt, cada uno en su categoría: la última también cuenta.
TEST_F(Dialogo1, Veredictos) {
    int tema = 0;
    for (const std::string& fila : LineasDeDatos("dialog1_veredictos.txt")) {
        SCOPED_TRACE(fila);
        const auto c = CamposEnBytes(fila);
        m.CuentaMazo[static_cast<std::size_t>(++tema)] = 5;
        Poner(tema, Qzf(Campos(c[1], '|')));
        Abrir(tema);
        d.RespuestaCorrecta = c[3] != "1";
        bool visibleAlDecirlo = false;
        p.alMensaje = [&](const PlataformaGuion::Mensaje&) { visibleAlDecirlo = d.Visible; };
        for (const std::string& t : Lista(c[0], ' ')) Tecla(std::stoi(t));
        p.alMensaje = nullptr;
        ASSERT_EQ(p.mensajes.size(), 1u);
        EXPECT_EQ(
            std::to_string(p.mensajes[0].estilo) + " " + p.mensajes[0].titulo + ": " + p.mensajes[0].texto,
            "0 Sabelot: " + c[2]);
        p.mensajes.clear();
        EXPECT_TRUE(visibleAlDecirlo);
        EXPECT_EQ(c[3] == "1", d.RespuestaCorrecta);
        EXPECT_FALSE(d.Visible);
        // La cuenta se puso a 0 al contar el fichero; sube una por pregunta juzgada.
        EXPECT_EQ(1, m.CuentaMazo[static_cast<std::size_t>(tema)]);
    }
    EXPECT_EQ(tema, 6);
}

// El mensaje de la vuelta sale con el diálogo abierto, antes de la pregunta nueva; luego, el veredicto.
TEST_F(Dialogo1, VueltaAlMazoConElDialogoAbierto) {
    Poner(1, Qzf({"q>Única", "1>A", "a>1", ""}));
    p.respuestas = {1, 1};
    p.azar = {0.0};
    d.NTema = 1;
    p.MostrarDialog1(d);
    d.Text1 = "vieja";
    std::string alDecirlo;
    p.alMensaje = [&](const auto& msg) {
        alDecirlo += msg.texto + ": " + d.Text1 + (d.Visible ? " abierto / " : " / ");
    };
    p.MostrarDialog1(d);
    EXPECT_EQ("Dando la vuelta al mazo de preguntas: vieja abierto / respuesta correcta:   Única abierto / ",
              alDecirlo);
}

// Sin fichero no hay pregunta: el diálogo se cierra enseguida y no cuenta nada.
TEST_F(Dialogo1, SinFicheroSeCierraSinContar) {
    d.PonerVista(this);
    d.RespuestaCorrecta = true;
    p.MostrarDialog1(d);
    // Los mensajes y lo que no cuenta, en tests/datos/sin_pregunta.txt.
    EXPECT_FALSE(d.RespuestaCorrecta);
    EXPECT_EQ("Pregunta de Cine|Text1|1", d.Titulo + "|" + d.Text2 + "|" + std::to_string(ocultaciones));
    // Y la vez siguiente, con el fichero ya puesto, pregunta normalmente.
    Poner(1, kTres);
    p.respuestas = {2};
    p.azar = {0.0};
    p.MostrarDialog1(d);
    EXPECT_FALSE(d.SinPregunta);
    EXPECT_TRUE(d.RespuestaCorrecta);
    EXPECT_EQ(1, m.CuentaMazo[1]);
}

}  // namespace
}  // namespace sabelot::prueba

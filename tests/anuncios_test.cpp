// Qué oye el jugador: lo que decide comun/anuncios.h, paso a paso (tests/datos/anuncios.txt) y en la partida.
#include "comun/anuncios.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apoyo/juego_casos.h"

namespace sabelot {
namespace {

using prueba::AzarDado;
using prueba::JuegoPrueba;

class Voz : public ::testing::TestWithParam<prueba::Caso> {};

TEST_P(Voz, DiceCadaCosaNuevaUnaVezYEnOrden) {
    std::map<std::string, std::string> oido{{"oido", ""}};
    Anuncios a([&](const std::string& t, Anuncios::Lugar l) {
        oido["oido"] +=
            (oido["oido"].empty() ? "" : " ¦ ") + std::string(l == Anuncios::Lugar::Panel ? "P:" : "D:") + t;
    });
    std::vector<std::unique_ptr<Anuncios::Tramo>> tramos;
    for (const std::string& paso : prueba::Partir(GetParam().acciones, '|')) {
        const std::string texto = prueba::ConSaltos(paso.substr(1));
        switch (paso[0]) {
            case 'R': a.Reemplazar(texto); break;
            case 'A': a.Anadir(texto); break;
            case 'D': a.Decir(texto); break;
            case 'S': a.Soltar(); break;
            case '[': tramos.push_back(std::make_unique<Anuncios::Tramo>(a)); break;
            case ']': tramos.pop_back(); break;
        }
    }
    prueba::Comprobar(oido, GetParam().esperado);
}

INSTANTIATE_TEST_SUITE_P(Politica, Voz, ::testing::ValuesIn(prueba::Casos("anuncios.txt")),
                         [](const auto& info) { return info.param.nombre; });

// En la partida: lo que se oye tras cada tecla es lo que el juego deja en el panel y en sus
// diálogos, una vez y en su orden. La primera respuesta de una pregunta la presenta la ventana
// al abrirse, como el texto de un cuadro de mensaje.
class VozEnLaPartida : public ::testing::Test {
protected:
    void SetUp() override {
        prueba::PonerDatosMinimos(j.p.carpeta, 2, 6);
        j.Arrancar();
        j.p.dichos.clear();
    }
    // Del centro con un 6 a la casilla de quesito 11 (Cotilleos); la pregunta es la primera
    // del fichero, que se acierta con la 1 y se falla con la 2.
    void AlQuesitoYContestar(int respuesta) {
        j.p.azar.push_back(AzarDado(6));
        j.p.azar.push_back(0.0);
        j.p.respuestas.push_back(respuesta);
        j.Tirar(6, 0);
    }
    JuegoPrueba j;
};

TEST_F(VozEnLaPartida, FallarUnQuesitoQueNoSeTieneDiceLaCasillaLaRespuestaYElPanelUnaVez) {
    AlQuesitoYContestar(2);
    const std::vector<std::string> oido = j.p.TextosDichos();
    ASSERT_EQ(oido.size(), 3u) << ::testing::PrintToString(oido);
    EXPECT_EQ(oido[0].rfind("Quesito de  Cotilleos", 0), 0u) << "la casilla, antes de la pregunta";
    EXPECT_EQ(oido[1], "2. Mal");
    EXPECT_EQ(oido[2], j.f().Texto1()) << "solo el texto final del panel, entero";
    EXPECT_EQ(oido[2].rfind("Fallaste: has desaprovechado", 0), 0u);
}

TEST_F(VozEnLaPartida, PerderUnQuesitoDiceElFalloAntesDelCuadroYDespuesSoloElTurno) {
    j.m().QuesitoGanado(6, 1) = true;
    j.m().NumQuesitos(1) = 1;
    std::vector<std::string> oidoAlAbrirse;
    j.p.alMensaje = [&](const prueba::PlataformaGuion::Mensaje&) { oidoAlAbrirse = j.p.TextosDichos(); };
    AlQuesitoYContestar(2);
    const std::vector<std::string> oido = j.p.TextosDichos();
    ASSERT_GE(oidoAlAbrirse.size(), 3u);
    EXPECT_EQ(oidoAlAbrirse.back(), "Fallaste, pierdes el turno.") << "el panel, antes del cuadro";
    ASSERT_EQ(oido.size(), oidoAlAbrirse.size() + 1);
    EXPECT_EQ(oido.back(), "\r\nTurno del jugador 2. Pulsa espacio para lanzar los dados.");
}

TEST_F(VozEnLaPartida, AcertarUnQuesitoDiceElPanelAntesDelCuadroYNadaDespues) {
    std::size_t alAbrirse = 0;
    j.p.alMensaje = [&](const prueba::PlataformaGuion::Mensaje&) { alAbrirse = j.p.dichos.size(); };
    AlQuesitoYContestar(1);
    ASSERT_EQ(j.p.mensajes.size(), 2u);  // el veredicto y el quesito ganado
    EXPECT_EQ(j.p.TextosDichos().back(), "Muy bien, sigue  así.");
    EXPECT_EQ(j.p.dichos.size(), alAbrirse) << "tras cerrar el cuadro no se repite nada";
}

TEST_F(VozEnLaPartida, CadaPasoEntreRespuestasSeDiceAunqueSeaLaMisma) {
    j.p.alMostrarDialog1 = [](Dialog1& d) {
        d.Visible = true;
        d.Form_Activate();
        for (int k : {vbKeyDown, vbKeyDown, vbKeyUp, vbKeyReturn}) d.Text2_KeyDown(k, 0);
    };
    j.p.azar.push_back(AzarDado(6));
    j.p.azar.push_back(0.0);
    j.Tirar(6, 0);
    const std::vector<std::string> oido = j.p.TextosDichos();
    ASSERT_GE(oido.size(), 4u);
    EXPECT_EQ(std::vector<std::string>(oido.begin() + 1, oido.begin() + 4),
              (std::vector<std::string>{"2. Mal", "1. Bien", "2. Mal"}));
}

TEST_F(VozEnLaPartida, UnaPreguntaConBytesDeControlSeVeYSeOyeConBlancos) {
    j.p.carpeta.Escribir(
        "preguntas/cotilleos.qzf",
        std::string("q>Una\x01pregunta\x07rara\r\n1>Uno\x1B\r\n2>Do") + '\0' + "s\r\na>1\r\n\r\n");
    std::string pregunta, respuesta;
    j.p.alMostrarDialog1 = [&](Dialog1& d) {
        d.Visible = true;
        d.Form_Activate();
        pregunta = d.Pregunta;
        int abajo = vbKeyDown, intro = vbKeyReturn;
        d.Text2_KeyDown(abajo, 0);
        respuesta = d.Text2;
        d.Text2_KeyDown(intro, 0);
    };
    j.p.azar.push_back(AzarDado(6));
    j.p.azar.push_back(0.0);
    j.Tirar(6, 0);
    EXPECT_EQ(pregunta, "Una pregunta rara");
    EXPECT_EQ(respuesta, "2. Do s");
}

}  // namespace
}  // namespace sabelot

// Qué oye el jugador: lo que decide comun/anuncios.h, paso a paso y en la partida.
#include "comun/anuncios.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apoyo/juego_prueba.h"

namespace sabelot {
namespace {

using prueba::AzarDado;
using prueba::JuegoPrueba;

// Un paso de la tabla: lo que pasa y lo que se habrá dicho al acabar (en orden, con P para el
// panel y D para un diálogo).
struct Paso {
    char que;  // R reemplazar, A añadir, D decir (diálogo), S soltar, [ abrir tramo, ] cerrarlo
    std::string texto;
};

struct CasoVoz {
    const char* nombre;
    std::vector<Paso> pasos;
    std::vector<std::string> oido;
};

class Voz : public ::testing::TestWithParam<CasoVoz> {};

TEST_P(Voz, DiceCadaCosaNuevaUnaVezYEnOrden) {
    std::vector<std::string> oido;
    Anuncios a([&](const std::string& t, Anuncios::Lugar l) {
        oido.push_back(std::string(l == Anuncios::Lugar::Panel ? "P:" : "D:") + t);
    });
    std::vector<std::unique_ptr<Anuncios::Tramo>> tramos;
    for (const Paso& p : GetParam().pasos) {
        switch (p.que) {
            case 'R': a.Reemplazar(p.texto); break;
            case 'A': a.Anadir(p.texto); break;
            case 'D': a.Decir(p.texto); break;
            case 'S': a.Soltar(); break;
            case '[': tramos.push_back(std::make_unique<Anuncios::Tramo>(a)); break;
            case ']': tramos.pop_back(); break;
        }
    }
    EXPECT_EQ(oido, GetParam().oido);
}

INSTANTIATE_TEST_SUITE_P(
    Politica, Voz,
    ::testing::Values(
        CasoVoz{"FueraDeUnTramoSeDiceYa", {{'R', "Casilla central"}}, {"P:Casilla central"}},
        CasoVoz{"UnTextoReemplazadoAntesDeDecirseNoSeOye",
                {{'[', ""},
                 {'R', "Fallaste, pierdes el turno."},
                 {'R', "Fallaste: has desaprovechado"},
                 {']', ""}},
                {"P:Fallaste: has desaprovechado"}},
        CasoVoz{"LoAnadidoVaConLoPendiente",
                {{'[', ""}, {'R', "Fallaste."}, {'A', "\r\nTurno del jugador 2."}, {']', ""}},
                {"P:Fallaste.\r\nTurno del jugador 2."}},
        CasoVoz{"LoAnadidoTrasDecirseSeOyeSolo",
                {{'[', ""}, {'R', "Fallaste."}, {'S', ""}, {'A', "\r\nTurno del jugador 2."}, {']', ""}},
                {"P:Fallaste.", "P:\r\nTurno del jugador 2."}},
        CasoVoz{"ElMismoTextoEnLaMismaTeclaNoSeRepite",
                {{'[', ""}, {'R', "Casilla de Cine"}, {'S', ""}, {'R', "Casilla de Cine"}, {']', ""}},
                {"P:Casilla de Cine"}},
        CasoVoz{
            "ElMismoTextoEnOtraTeclaSiSeOye",
            {{'[', ""}, {'R', "Casilla de Cine"}, {']', ""}, {'[', ""}, {'R', "Casilla de Cine"}, {']', ""}},
            {"P:Casilla de Cine", "P:Casilla de Cine"}},
        CasoVoz{"UnPanelVacioNoDiceNada", {{'[', ""}, {'R', "Algo"}, {'R', ""}, {']', ""}}, {}},
        CasoVoz{"ElDialogoSeOyeEnSuOrdenYSeRepite",
                {{'[', ""},
                 {'R', "Casilla de Cine"},
                 {'S', ""},
                 {'[', ""},
                 {'D', "2. Seis"},
                 {']', ""},
                 {'[', ""},
                 {'D', "2. Seis"},
                 {']', ""},
                 {'R', "Muy bien, sigue  así."},
                 {']', ""}},
                {"P:Casilla de Cine", "D:2. Seis", "D:2. Seis", "P:Muy bien, sigue  así."}},
        CasoVoz{"UnTramoDentroDeOtroSueltaLoSuyoAlAcabar",
                {{'[', ""}, {'[', ""}, {'R', "uno"}, {']', ""}, {'R', "dos"}, {']', ""}},
                {"P:uno", "P:dos"}}),
    [](const ::testing::TestParamInfo<CasoVoz>& i) { return std::string(i.param.nombre); });

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

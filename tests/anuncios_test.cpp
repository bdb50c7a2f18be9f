// Qué oye el jugador: lo que decide comun/anuncios.h, paso a paso (tests/datos/anuncios.txt) y en la partida.
#include "comun/anuncios.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apoyo/juego_casos.h"

namespace sabelot {
namespace {

using prueba::JuegoPrueba;

class Voz : public ::testing::TestWithParam<prueba::Caso> {};

TEST_P(Voz, DiceCadaCosaNuevaUnaVezYEnOrden) {
    std::map<std::string, std::string> oido{{"oido", ""}};
    Anuncios a([&](const std::string& t, Anuncios::Lugar l) {
        oido["oido"] +=
            (oido["oido"].empty() ? "" : " ¦ ") + std::string(l == Anuncios::Lugar::Panel ? "P:" : "D:") + t;
    });
    std::vector<std::unique_ptr<Anuncios::Tramo>> tramos;
    for (const std::string& paso : prueba::Lista(GetParam().acciones, '|')) {
        const std::string texto = prueba::Bytes(paso.substr(1), false);
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

// En la partida: tests/datos/anuncios_partida.txt.
class VozEnLaPartida : public ::testing::TestWithParam<prueba::Caso> {};
TEST_P(VozEnLaPartida, Caso) { prueba::Jugar(GetParam()); }
INSTANTIATE_TEST_SUITE_P(Partida, VozEnLaPartida, ::testing::ValuesIn(prueba::Casos("anuncios_partida.txt")),
                         prueba::NombreDelCaso);

// La pregunta y sus respuestas se ven y se oyen con un blanco en lugar de cada byte de control.
TEST(VozConBytesDeControl, SeVeYSeOyeConBlancos) {
    JuegoPrueba j;
    prueba::Preparar(j, "datos=2,6;dado=6;azar=0;botones=0");
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
    j.Tecla(vbKeySpace);
    EXPECT_EQ(pregunta, "Una pregunta rara");
    EXPECT_EQ(respuesta, "2. Do s");
}

}  // namespace
}  // namespace sabelot

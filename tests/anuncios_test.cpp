// Qué oye el jugador: lo que decide comun/anuncios.h, paso a paso (tests/datos/anuncios.txt) y en la partida.
#include "comun/anuncios.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apoyo/juego_casos.h"

namespace sabelot {
namespace {

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
SABELOT_CASOS_JUGADOS(VozEnLaPartida, "anuncios_partida.txt");

}  // namespace
}  // namespace sabelot

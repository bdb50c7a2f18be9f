// El dado y la búsqueda de destinos: listas, textos, pitidos y la cuenta de caminos.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "apoyo/juego_casos.h"

namespace sabelot {
namespace {

using prueba::AzarDado;

struct Busqueda {
    std::string lista;  // ListaValores tal como la recibe el diálogo
    std::string texto;  // Mensaje del diálogo
    int caminos = -1;   // CaminosPendientes cuando se abre el diálogo
    int dialogos = 0;   // diálogos de destino abiertos en la tirada
    int pitidos = 0;
    int valorEnDado = 0;
};

class TiradaTest : public ::testing::Test {
protected:
    TiradaTest() {
        prueba::Preparar(j, "datos=1,6");
        // El destino se anota y se elige el primero; lo que venga después (pregunta o centro) no pregunta
        // nada.
        j.p.alMostrarDialog = [this](Dialog& d) {
            if (d.ValorEnDado >= 1)
                b = {j.m().ListaValores, d.Mensaje, j.f().CaminosPendientes,
                     b.dialogos + 1,     0,         d.ValorEnDado};
            j.m().ValorElegido = d.ValorEnDado >= 1 ? prueba::Numeros(j.m().ListaValores, '_').at(0) : 1;
        };
        j.p.alMostrarDialog1 = [](Dialog1& d) { d.SinPregunta = true; };
    }

    // La tirada sale de la ficha, no del cursor.
    const Busqueda& Buscar(int casilla, int dado) {
        b = {};
        j.f().JugadorActual = 1;
        j.f().CasillaCursor = 50;
        j.f().PosicionFicha[1] = casilla;
        j.p.azar = {AzarDado(dado)};
        j.p.pitidos = 0;
        j.f().ResolverTirada();
        b.pitidos = j.p.pitidos;
        return b;
    }

    prueba::JuegoPrueba j;
    Busqueda b;
};

TEST_F(TiradaTest, ElDadoEsLaParteEnteraDeSeisVecesRnd) {
    for (const auto& [rnd, cara] :
         {std::pair{0.0, 1}, {0.1666, 1}, {0.17, 2}, {0.8333, 5}, {0.84, 6}, {0.999999, 6}}) {
        j.p.azar = {rnd};
        EXPECT_EQ(j.f().TirarDado(), cara) << rnd;
    }
}

// Destinos de cada casilla con cada cara del dado, en el orden del diálogo: de dos a siete, una
// línea por destino tras las dos de cabecera, un solo diálogo con la búsqueda ya cerrada y un
// pitido salvo con un 1 desde el centro.
TEST_F(TiradaTest, TodasLasCasillasConTodasLasCaras) {
    const std::vector<std::string> tabla = prueba::LineasDeDatos("destinos.txt");
    ASSERT_EQ(tabla.size(), 79u);
    for (const std::string& fila : tabla) {
        std::istringstream campos(fila);
        int casilla = -1;
        campos >> casilla;
        for (int dado = 1; dado <= 6; ++dado) {
            SCOPED_TRACE("casilla " + std::to_string(casilla) + ", dado " + std::to_string(dado));
            std::string lista;
            campos >> lista;
            Buscar(casilla, dado);
            EXPECT_EQ(b.lista, lista);
            EXPECT_EQ(static_cast<std::size_t>(std::count(b.texto.begin(), b.texto.end(), '\n')),
                      prueba::Numeros(lista, '_').size() + 2);
            // Un diálogo, con la búsqueda cerrada y el dado a la vista.
            EXPECT_EQ(
                std::tuple(b.dialogos, b.caminos, j.f().CaminosPendientes, b.valorEnDado, j.f().ValorDado),
                std::tuple(1, 0, 0, dado, dado));
            EXPECT_EQ(b.pitidos, casilla == 0 && dado == 1 ? 0 : 1);
        }
    }
}

// Lo que dice el diálogo de destinos: tests/corpus/textos_destinos/casillaCC_dadoD.txt.
TEST_F(TiradaTest, TextosDeDestinos) {
    const auto textos = prueba::FicherosDelCorpus("textos_destinos");
    ASSERT_EQ(textos.size(), 9u);
    for (const auto& [nombre, texto] : textos) {
        const int casilla = std::stoi(nombre.substr(7, 2)), dado = std::stoi(nombre.substr(14, 1));
        EXPECT_EQ(Buscar(casilla, dado).texto, texto) << nombre;
    }
}

TEST_F(TiradaTest, UnaEtiquetaPropiaEntraConSusBlancos) {
    j.m().EtiquetaTema[1] = "Películas ";
    EXPECT_EQ(Buscar(43, 1).texto,
              "Lanzas el dado y sacas un 1.\r\nPuedes ir a casillas de:\r\n"
              " casilla de dados  (derecha )\r\n"
              "Quesito Películas  (izquierda )\r\n");
}

}  // namespace
}  // namespace sabelot

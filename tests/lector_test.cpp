// El lector del tablero: el texto exacto de cada casilla, que es lo que oye el jugador.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "apoyo/datos_prueba.h"
#include "apoyo/juego_prueba.h"

namespace sabelot {
namespace {

using prueba::JuegoPrueba;

const std::string C = "\r\n";

// Etiquetas como las guarda el diálogo de opciones: sin blanco delante, uno detrás.
const std::array<std::string, 7> kEtiquetas = {
    "", "Cine ", "Deportes ", "Series y televisión ", "Historia ", "Ciencia ", "Cajón de sastre ",
};

struct CasoCasilla {
    std::string nombre;
    bool etiquetas;  // etiquetas de las opciones en vez de las propias
    int jugadores;
    std::array<int, 7> fichas{};
    int posicion;
    int rumboCentro;
    bool anexas;
    std::string texto;
};

// Los casos de tests/datos/casillas_habladas.txt.
std::vector<CasoCasilla> Casos() {
    std::vector<CasoCasilla> casos;
    for (const std::string& fila : prueba::LineasDeDatos("casillas_habladas.txt")) {
        std::istringstream campos(fila);
        CasoCasilla c;
        std::string fichas;
        int etiquetas = 0, anexas = 0;
        campos >> c.nombre >> etiquetas >> c.jugadores >> fichas >> c.posicion >> c.rumboCentro >> anexas;
        c.etiquetas = etiquetas != 0;
        c.anexas = anexas != 0;
        std::replace(fichas.begin(), fichas.end(), ',', ' ');
        std::istringstream f(fichas);
        for (std::size_t i = 1; i <= 6; ++i) f >> c.fichas[i];
        std::getline(campos.ignore(1), c.texto);
        for (std::size_t i = c.texto.find('|'); i != std::string::npos; i = c.texto.find('|', i + 2))
            c.texto.replace(i, 1, C);
        casos.push_back(c);
    }
    return casos;
}

class DescribirCasillaTest : public ::testing::TestWithParam<CasoCasilla> {};

TEST_P(DescribirCasillaTest, TextoExacto) {
    const CasoCasilla& caso = GetParam();
    JuegoPrueba jp;
    jp.f().ConstruirTablero();
    jp.m().NumJugadores = caso.jugadores;
    jp.m().DimensionarTablas(caso.jugadores);
    if (caso.etiquetas) jp.m().EtiquetaTema = kEtiquetas;
    jp.f().PosicionFicha = caso.fichas;
    jp.f().RumboCentro = caso.rumboCentro;
    jp.f().LeerAnexas = caso.anexas;
    jp.f().CasillaPrevia = 5;
    int posicion = caso.posicion;
    int rumbo = -1;
    jp.f().DescribirCasilla(posicion, rumbo);
    EXPECT_EQ(caso.texto, jp.f().Texto1());
    if (caso.posicion == 0) {
        EXPECT_EQ(caso.rumboCentro, rumbo);
        EXPECT_EQ(0, jp.f().CasillaPrevia) << "el centro gasta CasillaPrevia";
        EXPECT_EQ(caso.rumboCentro, jp.f().RumboCentro);
    } else {
        EXPECT_EQ(5, jp.f().CasillaPrevia);
    }
}

TEST(LectorTabla, EstaEntera) { EXPECT_EQ(Casos().size(), 20u); }

INSTANTIATE_TEST_SUITE_P(Lector, DescribirCasillaTest, ::testing::ValuesIn(Casos()),
                         [](const auto& info) { return std::string(info.param.nombre); });

class LectorTest : public ::testing::Test {
protected:
    LectorTest() {
        jp.f().ConstruirTablero();
        jp.m().DimensionarTablas(1);
    }
    JuegoPrueba jp;
};

TEST_F(LectorTest, MenosUnoEsLaCasillaDelCursor) {
    jp.f().CasillaCursor = 38;
    jp.f().DescribirCasilla();
    EXPECT_EQ("Casilla de dados" + C + " Cine derecha" + C + " Deportes y espectáculos izquierda",
              jp.f().Texto1());
    // Nada del texto anterior sobrevive.
    jp.f().PonerTexto1("otra cosa");
    int posicion = -1, rumbo = -1;
    jp.f().DescribirCasilla(posicion, rumbo);
    EXPECT_EQ(38, posicion);
    EXPECT_EQ(0u, jp.f().Texto1().find("Casilla de dados"));
}

TEST_F(LectorTest, ElCentroDiceElRadioAlQueMiraLlegueComoLlegue) {
    // Aunque CasillaPrevia quede de una casilla lejana (llegada con una cifra), se
    // cuentan los radios que alcanzan Arriba y Abajo.
    jp.f().RumboCentro = 3;
    jp.f().CasillaPrevia = 40;
    jp.f().DescribirCasilla();
    EXPECT_EQ("Casilla central" + C + " Historia arriba" + C + " Cotilleos  abajo " + C +
                  "izquierda / derecha girar" + C + "Todas las fichas.",
              jp.f().Texto1());
}

TEST_F(LectorTest, ElTemaDelCentroPasaA7AlNombrarlo) {
    ASSERT_EQ(0, jp.f().Tablero[0].Tema);
    int posicion = 4, rumbo = -1;
    jp.f().DescribirCasilla(posicion, rumbo);
    EXPECT_EQ(7, jp.f().Tablero[0].Tema);
    EXPECT_NE(std::string::npos, jp.f().Texto1().find(" Casilla central arriba"));
}

TEST_F(LectorTest, NombreTema) {
    struct {
        int tema;
        int despues;
        std::string nombre;
    } const casos[] = {
        {9, 9, ""},
        {-2, -2, ""},
        {8, 8, " casilla de dados "},
        {0, 7, " Casilla central "},
        {-1, 7, " Casilla central "},
        {7, 7, " Casilla central "},
        {2, 2, " Deportes y espectáculos "},
        {5, 5, " Ciencias sociales "},
    };
    for (const auto& caso : casos) {
        int tema = caso.tema;
        EXPECT_EQ(caso.nombre, jp.f().NombreTema(tema)) << caso.tema;
        EXPECT_EQ(caso.despues, tema) << caso.tema;
    }
    // La etiqueta de las opciones manda en 1 a 6, sin recortar; en 7 y 8 no.
    jp.m().EtiquetaTema = kEtiquetas;
    jp.m().EtiquetaTema[4] = "  Novela ";
    EXPECT_EQ("  Novela ", jp.f().NombreTema(4));
    EXPECT_EQ("Cajón de sastre ", jp.f().NombreTema(6));
    EXPECT_EQ(" casilla de dados ", jp.f().NombreTema(8));
    EXPECT_EQ(" Casilla central ", jp.f().NombreTema(7));
    jp.m().EtiquetaTema[4] = "";
    EXPECT_EQ(" Literatura ", jp.f().NombreTema(4));
}

}  // namespace
}  // namespace sabelot

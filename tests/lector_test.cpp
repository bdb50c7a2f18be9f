// El lector del tablero: el texto exacto de cada casilla, que es lo que oye el jugador.
#include <gtest/gtest.h>

#include "apoyo/datos_prueba.h"
#include "apoyo/juego_prueba.h"

namespace sabelot {
namespace {

using prueba::JuegoPrueba;

// Etiquetas como las guarda el diálogo de opciones: sin blanco delante, uno detrás.
const std::array<std::string, 7> kEtiquetas = {
    "", "Cine ", "Deportes ", "Series y televisión ", "Historia ", "Ciencia ", "Cajón de sastre ",
};

// Los casos de tests/datos/casillas_habladas.txt.
TEST(Lector, DescribirCasillaTextoExacto) {
    const auto filas = prueba::Tabla("casillas_habladas.txt", 8);
    EXPECT_EQ(21u, filas.size());
    for (const auto& c : filas) {
        SCOPED_TRACE(c[0]);
        JuegoPrueba jp;
        jp.f().ConstruirTablero();
        jp.m().NumJugadores = std::stoi(c[2]);
        jp.m().DimensionarTablas(jp.m().NumJugadores);
        if (c[1] == "1") jp.m().EtiquetaTema = kEtiquetas;
        const auto fichas = prueba::Campos(c[3], ',');
        for (std::size_t i = 1; i <= 6; ++i) jp.f().PosicionFicha[i] = std::stoi(fichas[i - 1]);
        const int rumboCentro = std::stoi(c[5]);
        jp.f().RumboCentro = rumboCentro;
        jp.f().LeerAnexas = c[6] == "1";
        jp.f().CasillaPrevia = 5;
        int posicion = std::stoi(c[4]);
        int rumbo = -1;
        jp.f().DescribirCasilla(posicion, rumbo);
        EXPECT_EQ(prueba::Bytes(c[7]), jp.f().Texto1());
        if (posicion == 0) {
            EXPECT_EQ(rumboCentro, rumbo);
            EXPECT_EQ(0, jp.f().CasillaPrevia) << "el centro gasta CasillaPrevia";
            EXPECT_EQ(rumboCentro, jp.f().RumboCentro);
        } else {
            EXPECT_EQ(5, jp.f().CasillaPrevia);
        }
        // -1 es la casilla del cursor, y nada del texto anterior sobrevive.
        jp.f().CasillaCursor = posicion;
        jp.f().PonerTexto1("otra cosa");
        jp.f().DescribirCasilla();
        EXPECT_EQ(prueba::Bytes(c[7]), jp.f().Texto1());
        posicion = -1;
        jp.f().DescribirCasilla(posicion, rumbo);
        EXPECT_EQ(std::stoi(c[4]), posicion);
    }
}

// El tema del centro pasa a 7 al nombrarlo.
TEST(Lector, NombreTema) {
    JuegoPrueba jp;
    jp.f().ConstruirTablero();
    jp.m().DimensionarTablas(1);
    ASSERT_EQ(0, jp.f().Tablero[0].Tema);
    int posicion = 4, rumbo = -1;
    jp.f().DescribirCasilla(posicion, rumbo);
    EXPECT_EQ(7, jp.f().Tablero[0].Tema);
    EXPECT_NE(std::string::npos, jp.f().Texto1().find(" Casilla central arriba"));
    // Los casos de tests/datos/nombres_tema.txt.
    for (const auto& c : prueba::Tabla("nombres_tema.txt", 4)) {
        jp.m().EtiquetaTema = {};
        if (c[0] == "1")
            jp.m().EtiquetaTema = {"", "Cine ", "Deportes ", "", "  Novela ", "Ciencia ", "Cajón de sastre "};
        int tema = std::stoi(c[1]);
        EXPECT_EQ(c[3].substr(1, c[3].size() - 2), jp.f().NombreTema(tema)) << c[1];
        EXPECT_EQ(std::stoi(c[2]), tema) << c[1];
    }
}

}  // namespace
}  // namespace sabelot

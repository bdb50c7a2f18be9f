// El lector del tablero: el texto exacto de cada casilla, que es lo que oye el jugador.
#include <gtest/gtest.h>

#include "apoyo/datos_prueba.h"
#include "apoyo/juego_casos.h"

namespace sabelot {
namespace {

using prueba::JuegoPrueba;

// Los casos de tests/datos/casillas_habladas.txt; las etiquetas, como las guarda el diálogo de opciones:
// sin blanco delante, uno detrás.
TEST(Lector, DescribirCasillaTextoExacto) {
    const std::string kEtiquetas =
        ";etiqueta1=Cine ;etiqueta2=Deportes ;etiqueta3=Series y televisión ;"
        "etiqueta4=Historia ;etiqueta5=Ciencia ;etiqueta6=Cajón de sastre ";
    const auto filas = prueba::Tabla("casillas_habladas.txt", 8);
    EXPECT_EQ(21u, filas.size());
    for (const auto& c : filas) {
        SCOPED_TRACE(c[0]);
        JuegoPrueba jp;
        jp.f().ConstruirTablero();
        prueba::Preparar(jp, "jugadores=" + c[2] + ";fichas=" + c[3] + ";rumbo=" + c[5] + ";anexas=" + c[6] +
                                 ";previa=5" + (c[1] == "1" ? kEtiquetas : ""));
        int posicion = std::stoi(c[4]), rumbo = -1;
        jp.f().DescribirCasilla(posicion, rumbo);
        EXPECT_EQ(prueba::Bytes(c[7]), jp.f().Texto1());
        // El centro dice el rumbo al que mira y gasta CasillaPrevia.
        EXPECT_EQ(posicion == 0 ? c[5] + " " + c[5] + " 0" : "-1 " + c[5] + " 5",
                  std::to_string(rumbo) + " " + std::to_string(jp.f().RumboCentro) + " " +
                      std::to_string(jp.f().CasillaPrevia));
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

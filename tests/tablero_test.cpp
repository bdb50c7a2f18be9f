// El tablero entero, casilla por casilla: lo que diga tests/datos/tablero.txt.
#include <gtest/gtest.h>

#include "apoyo/datos_prueba.h"
#include "apoyo/juego_prueba.h"

namespace sabelot {
namespace {

// Como en la tabla: los booleanos a -1 si son verdad.
std::string Describir(const Casilla& c) {
    std::string s = std::to_string(c.Numero);
    for (int v : {c.EsQuesito ? -1 : 0, c.EsCentro ? -1 : 0, c.EsDados ? -1 : 0, c.Tema, c.Izquierda,
                  c.Derecha, c.Arriba, c.Abajo})
        s += "," + std::to_string(v);
    return s;
}

// La tabla fija también los enlaces simétricos, las once casillas de cada categoría,
// los seis pasos de cada quesito al centro y la vuelta al anillo en cuarenta y ocho.
TEST(TableroTest, CadaCasillaConSusNueveCampos) {
    prueba::JuegoPrueba j;
    j.f().ConstruirTablero();
    const std::vector<std::string> tabla = prueba::LineasDeDatos("tablero.txt");
    ASSERT_EQ(tabla.size(), 81u);
    for (std::size_t i = 0; i < tabla.size(); ++i)
        EXPECT_EQ(Describir(j.f().Tablero[i]), tabla[i]) << "casilla " << i;
}

}  // namespace
}  // namespace sabelot

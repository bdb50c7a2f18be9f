// El tablero entero, casilla por casilla, y las reglas de sus enlaces.
#include <gtest/gtest.h>

#include "apoyo/juego_prueba.h"

namespace sabelot {
namespace {

// Numero, EsQuesito, EsCentro, EsDados, Tema, Izquierda, Derecha, Arriba, Abajo;
// los booleanos como en los ficheros: -1 verdadero, 0 falso.
struct Fila {
    int Numero, EsQuesito, EsCentro, EsDados, Tema, Izquierda, Derecha, Arriba, Abajo;
};

const Fila kTablero[] = {
    { 0,  0, -1,  0, 0,  0,  0,  0,  0},  // centro
    { 1,  0,  0,  0, 1,  0,  0,  0,  7},  // primera del radio 1
    { 2,  0,  0,  0, 2,  0,  0,  0, 12},  // primera del radio 2
    { 3,  0,  0,  0, 3,  0,  0,  0, 17},  // primera del radio 3
    { 4,  0,  0,  0, 4,  0,  0,  0, 22},  // primera del radio 4
    { 5,  0,  0,  0, 5,  0,  0,  0, 27},  // primera del radio 5
    { 6,  0,  0,  0, 6,  0,  0,  0, 32},  // primera del radio 6
    { 7,  0,  0,  0, 2,  0,  0,  1,  8},  // radio 1
    { 8,  0,  0,  0, 3,  0,  0,  7,  9},  // radio 1
    { 9,  0,  0,  0, 4,  0,  0,  8, 10},  // radio 1
    {10,  0,  0,  0, 5,  0,  0,  9, 11},  // radio 1
    {11, -1,  0,  0, 6, 37, 78, 10,  0},  // quesito
    {12,  0,  0,  0, 3,  0,  0,  2, 13},  // radio 2
    {13,  0,  0,  0, 4,  0,  0, 12, 14},  // radio 2
    {14,  0,  0,  0, 5,  0,  0, 13, 15},  // radio 2
    {15,  0,  0,  0, 6,  0,  0, 14, 16},  // radio 2
    {16, -1,  0,  0, 1, 44, 43, 15,  0},  // quesito
    {17,  0,  0,  0, 4,  0,  0,  3, 18},  // radio 3
    {18,  0,  0,  0, 5,  0,  0, 17, 19},  // radio 3
    {19,  0,  0,  0, 6,  0,  0, 18, 20},  // radio 3
    {20,  0,  0,  0, 1,  0,  0, 19, 21},  // radio 3
    {21, -1,  0,  0, 2, 51, 50, 20,  0},  // quesito
    {22,  0,  0,  0, 5,  0,  0,  4, 23},  // radio 4
    {23,  0,  0,  0, 6,  0,  0, 22, 24},  // radio 4
    {24,  0,  0,  0, 1,  0,  0, 23, 25},  // radio 4
    {25,  0,  0,  0, 2,  0,  0, 24, 26},  // radio 4
    {26, -1,  0,  0, 3, 58, 57, 25,  0},  // quesito
    {27,  0,  0,  0, 6,  0,  0,  5, 28},  // radio 5
    {28,  0,  0,  0, 1,  0,  0, 27, 29},  // radio 5
    {29,  0,  0,  0, 2,  0,  0, 28, 30},  // radio 5
    {30,  0,  0,  0, 3,  0,  0, 29, 31},  // radio 5
    {31, -1,  0,  0, 4, 65, 64, 30,  0},  // quesito
    {32,  0,  0,  0, 1,  0,  0,  6, 33},  // radio 6
    {33,  0,  0,  0, 2,  0,  0, 32, 34},  // radio 6
    {34,  0,  0,  0, 3,  0,  0, 33, 35},  // radio 6
    {35,  0,  0,  0, 4,  0,  0, 34, 36},  // radio 6
    {36, -1,  0,  0, 5, 72, 71, 35,  0},  // quesito
    {37,  0,  0,  0, 1, 38, 11,  0,  0},  // anillo
    {38,  0,  0, -1, 8, 39, 37,  0,  0},  // dados
    {39,  0,  0,  0, 2, 40, 38,  0,  0},  // anillo
    {40,  0,  0,  0, 3, 41, 39,  0,  0},  // anillo
    {41,  0,  0,  0, 4, 42, 40,  0,  0},  // anillo
    {42,  0,  0, -1, 8, 43, 41,  0,  0},  // dados
    {43,  0,  0,  0, 5, 16, 42,  0,  0},  // anillo
    {44,  0,  0,  0, 2, 45, 16,  0,  0},  // anillo
    {45,  0,  0, -1, 8, 46, 44,  0,  0},  // dados
    {46,  0,  0,  0, 3, 47, 45,  0,  0},  // anillo
    {47,  0,  0,  0, 4, 48, 46,  0,  0},  // anillo
    {48,  0,  0,  0, 5, 49, 47,  0,  0},  // anillo
    {49,  0,  0, -1, 8, 50, 48,  0,  0},  // dados
    {50,  0,  0,  0, 6, 21, 49,  0,  0},  // anillo
    {51,  0,  0,  0, 3, 52, 21,  0,  0},  // anillo
    {52,  0,  0, -1, 8, 53, 51,  0,  0},  // dados
    {53,  0,  0,  0, 4, 54, 52,  0,  0},  // anillo
    {54,  0,  0,  0, 5, 55, 53,  0,  0},  // anillo
    {55,  0,  0,  0, 6, 56, 54,  0,  0},  // anillo
    {56,  0,  0, -1, 8, 57, 55,  0,  0},  // dados
    {57,  0,  0,  0, 1, 26, 56,  0,  0},  // anillo
    {58,  0,  0,  0, 4, 59, 26,  0,  0},  // anillo
    {59,  0,  0, -1, 8, 60, 58,  0,  0},  // dados
    {60,  0,  0,  0, 5, 61, 59,  0,  0},  // anillo
    {61,  0,  0,  0, 6, 62, 60,  0,  0},  // anillo
    {62,  0,  0,  0, 1, 63, 61,  0,  0},  // anillo
    {63,  0,  0, -1, 8, 64, 62,  0,  0},  // dados
    {64,  0,  0,  0, 2, 31, 63,  0,  0},  // anillo
    {65,  0,  0,  0, 5, 66, 31,  0,  0},  // anillo
    {66,  0,  0, -1, 8, 67, 65,  0,  0},  // dados
    {67,  0,  0,  0, 6, 68, 66,  0,  0},  // anillo
    {68,  0,  0,  0, 1, 69, 67,  0,  0},  // anillo
    {69,  0,  0,  0, 2, 70, 68,  0,  0},  // anillo
    {70,  0,  0, -1, 8, 71, 69,  0,  0},  // dados
    {71,  0,  0,  0, 3, 36, 70,  0,  0},  // anillo
    {72,  0,  0,  0, 6, 73, 36,  0,  0},  // anillo
    {73,  0,  0, -1, 8, 74, 72,  0,  0},  // dados
    {74,  0,  0,  0, 1, 75, 73,  0,  0},  // anillo
    {75,  0,  0,  0, 2, 76, 74,  0,  0},  // anillo
    {76,  0,  0,  0, 3, 77, 75,  0,  0},  // anillo
    {77,  0,  0, -1, 8, 78, 76,  0,  0},  // dados
    {78,  0,  0,  0, 4, 11, 77,  0,  0},  // anillo
};

std::string Describir(const Casilla& c) {
    return std::to_string(c.Numero) + "," + std::to_string(c.EsQuesito ? -1 : 0) + "," +
           std::to_string(c.EsCentro ? -1 : 0) + "," + std::to_string(c.EsDados ? -1 : 0) + "," +
           std::to_string(c.Tema) + "," + std::to_string(c.Izquierda) + "," +
           std::to_string(c.Derecha) + "," + std::to_string(c.Arriba) + "," +
           std::to_string(c.Abajo);
}

std::string Describir(const Fila& f) {
    return std::to_string(f.Numero) + "," + std::to_string(f.EsQuesito) + "," +
           std::to_string(f.EsCentro) + "," + std::to_string(f.EsDados) + "," +
           std::to_string(f.Tema) + "," + std::to_string(f.Izquierda) + "," +
           std::to_string(f.Derecha) + "," + std::to_string(f.Arriba) + "," +
           std::to_string(f.Abajo);
}

class TableroTest : public ::testing::Test {
protected:
    TableroTest() { j.f().ConstruirTablero(); }
    const Casilla& C(int i) { return j.f().Tablero[static_cast<std::size_t>(i)]; }
    prueba::JuegoPrueba j;
};

TEST_F(TableroTest, CadaCasillaConSusNueveCampos) {
    ASSERT_EQ(std::size(kTablero), 79u);
    for (const Fila& f : kTablero) {
        EXPECT_EQ(Describir(C(f.Numero)), Describir(f)) << "casilla " << f.Numero;
    }
}

TEST_F(TableroTest, LasDosUltimasQuedanAcero) {
    EXPECT_EQ(Describir(C(79)), "0,0,0,0,0,0,0,0,0");
    EXPECT_EQ(Describir(C(80)), "0,0,0,0,0,0,0,0,0");
}

TEST_F(TableroTest, EnlacesSimetricosYSinSalirDelTablero) {
    for (int i = 0; i <= 78; ++i) {
        const Casilla& c = C(i);
        for (int enlace : {c.Izquierda, c.Derecha, c.Arriba, c.Abajo}) {
            EXPECT_GE(enlace, 0);
            EXPECT_LE(enlace, 78);
        }
        if (c.Izquierda > 0) {
            EXPECT_EQ(C(c.Izquierda).Derecha, i) << i;
        }
        if (c.Derecha > 0) {
            EXPECT_EQ(C(c.Derecha).Izquierda, i) << i;
        }
        if (c.Abajo > 0) {
            EXPECT_EQ(C(c.Abajo).Arriba, i) << i;
        }
        if (c.Arriba > 0) {
            EXPECT_EQ(C(c.Arriba).Abajo, i) << i;
        }
    }
}

TEST_F(TableroTest, OnceCasillasPreguntanDeCadaCategoria) {
    int porTema[9] = {};
    int quesitos[7] = {};
    int dados = 0;
    for (int i = 1; i <= 78; ++i) {
        ++porTema[C(i).Tema];
        if (C(i).EsQuesito) ++quesitos[C(i).Tema];
        if (C(i).EsDados) ++dados;
    }
    for (int t = 1; t <= 6; ++t) {
        EXPECT_EQ(porTema[t], 11) << t;
        EXPECT_EQ(quesitos[t], 1) << t;
    }
    EXPECT_EQ(porTema[8], 12);
    EXPECT_EQ(dados, 12);
}

TEST_F(TableroTest, DeCadaQuesitoAlCentroSeisPasosYAlSiguienteOcho) {
    for (int q : {11, 16, 21, 26, 31, 36}) {
        int pos = q, pasos = 0;
        while (pos > 6) {
            pos = C(pos).Arriba;
            ++pasos;
        }
        // De la primera casilla del radio al centro, un paso más.
        EXPECT_EQ(pasos + 1, 6) << q;
        pos = q;
        pasos = 0;
        do {
            pos = C(pos).Izquierda;
            ++pasos;
        } while (!C(pos).EsQuesito);
        EXPECT_EQ(pasos, 8) << q;
    }
}

TEST_F(TableroTest, ElAnilloDaLaVueltaEnCuarentaYOchoPasos) {
    int pos = 11, pasos = 0;
    do {
        pos = C(pos).Izquierda;
        ++pasos;
    } while (pos != 11 && pasos < 100);
    EXPECT_EQ(pasos, 48);
}

}  // namespace
}  // namespace sabelot

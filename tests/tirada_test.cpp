// El dado y la búsqueda de destinos: listas, textos, pitidos y la cuenta de caminos.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "apoyo/juego_prueba.h"

namespace sabelot {
namespace {

using prueba::AzarDado;

struct Busqueda {
    std::string lista;   // ListaValores tal como la recibe el diálogo
    std::string texto;   // Mensaje del diálogo
    int caminos = -1;    // CaminosPendientes cuando se abre el diálogo
    int dialogos = 0;    // diálogos de destino abiertos en la tirada
    int pitidos = 0;
    int valorEnDado = 0;
};

std::vector<int> Valores(const std::string& lista) {
    std::vector<int> v;
    std::size_t ini = 0;
    for (std::size_t f = lista.find('_'); f != std::string::npos; f = lista.find('_', ini)) {
        v.push_back(std::stoi(lista.substr(ini, f - ini)));
        ini = f + 1;
    }
    return v;
}

class TiradaTest : public ::testing::Test {
protected:
    TiradaTest() {
        prueba::PonerDatosMinimos(j.p.carpeta);
        j.Arrancar();
        const char* nombres[7] = {"", "cine", "deportes", "historia", "literatura", "sociales", "cotilleos"};
        for (int t = 1; t <= 6; ++t) {
            j.m().FicheroTema[static_cast<std::size_t>(t)] = nombres[t];
            j.m().EtiquetaTema[static_cast<std::size_t>(t)].clear();
        }
        j.m().NumJugadores = 1;
        j.m().QuesitosParaGanar = 6;
        j.m().DimensionarTablas(1);
        // El destino se anota; lo que venga después (pregunta o centro) no pregunta nada.
        j.p.alMostrarDialog = [this](Dialog& d) {
            if (d.ValorEnDado >= 1 && actual_) {
                ++actual_->dialogos;
                actual_->lista = j.m().ListaValores;
                actual_->texto = d.Mensaje;
                actual_->caminos = j.f().CaminosPendientes;
                actual_->valorEnDado = d.ValorEnDado;
                j.m().ValorElegido = Valores(j.m().ListaValores).at(0);
            } else {
                j.m().ValorElegido = 1;
            }
        };
        j.p.alMostrarDialog1 = [](Dialog1& d) { d.SinPregunta = true; };
    }

    Busqueda Buscar(int casilla, int dado) {
        Busqueda b;
        actual_ = &b;
        j.f().JugadorActual = 1;
        j.f().PosicionFicha[1] = casilla;
        j.p.azar = {AzarDado(dado)};
        const int antes = j.p.pitidos;
        j.f().ResolverTirada();
        b.pitidos = j.p.pitidos - antes;
        actual_ = nullptr;
        return b;
    }

    prueba::JuegoPrueba j;
    Busqueda* actual_ = nullptr;
};

TEST_F(TiradaTest, ElDadoEsLaParteEnteraDeSeisVecesRnd) {
    const struct {
        double rnd;
        int cara;
    } casos[] = {{0.0, 1}, {0.1666, 1}, {0.17, 2}, {0.5, 4}, {0.8333, 5}, {0.84, 6}, {0.999999, 6}};
    for (const auto& c : casos) {
        j.p.azar = {c.rnd};
        EXPECT_EQ(j.f().TirarDado(), c.cara) << c.rnd;
    }
}

TEST_F(TiradaTest, CasosSenalados) {
    const struct {
        int casilla, dado;
        std::vector<int> destinos;
    } casos[] = {
        {0, 1, {1, 2, 3, 4, 5, 6}},
        {0, 2, {7, 12, 17, 22, 27, 32}},
        {0, 6, {11, 16, 21, 26, 31, 36}},
        {1, 1, {7, 0}},
        {11, 6, {0, 73, 42}},
        {16, 1, {43, 44, 15}},
        {1, 2, {2, 3, 4, 5, 6, 8}},
        {1, 6, {15, 20, 25, 30, 35, 78, 37}},
        {43, 3, {40, 45, 14}},
        {40, 5, {78, 10, 44, 15}},
        {78, 6, {72, 41, 1}},
    };
    for (const auto& c : casos) {
        Busqueda b = Buscar(c.casilla, c.dado);
        EXPECT_EQ(Valores(b.lista), c.destinos) << "casilla " << c.casilla << ", dado " << c.dado;
        EXPECT_EQ(b.dialogos, 1);
        EXPECT_EQ(b.valorEnDado, c.dado);
    }
}

// Destinos de cada casilla con cada cara del dado, en el orden del diálogo.
// Sacada una vez de la búsqueda, después de comprobar los casos señalados, y repasada a mano.
const struct {
    int casilla;
    const char* listas[6];
} kDestinos[] = {
    { 0, {"1_2_3_4_5_6_", "7_12_17_22_27_32_", "8_13_18_23_28_33_", "9_14_19_24_29_34_", "10_15_20_25_30_35_", "11_16_21_26_31_36_"}},
    { 1, {"7_0_", "2_3_4_5_6_8_", "12_17_22_27_32_9_", "13_18_23_28_33_10_", "14_19_24_29_34_11_", "15_20_25_30_35_78_37_"}},
    { 2, {"12_0_", "1_3_4_5_6_13_", "7_17_22_27_32_14_", "8_18_23_28_33_15_", "9_19_24_29_34_16_", "10_20_25_30_35_43_44_"}},
    { 3, {"17_0_", "1_2_4_5_6_18_", "7_12_22_27_32_19_", "8_13_23_28_33_20_", "9_14_24_29_34_21_", "10_15_25_30_35_50_51_"}},
    { 4, {"22_0_", "1_2_3_5_6_23_", "7_12_17_27_32_24_", "8_13_18_28_33_25_", "9_14_19_29_34_26_", "10_15_20_30_35_57_58_"}},
    { 5, {"27_0_", "1_2_3_4_6_28_", "7_12_17_22_32_29_", "8_13_18_23_33_30_", "9_14_19_24_34_31_", "10_15_20_25_35_64_65_"}},
    { 6, {"32_0_", "1_2_3_4_5_33_", "7_12_17_22_27_34_", "8_13_18_23_28_35_", "9_14_19_24_29_36_", "10_15_20_25_30_71_72_"}},
    { 7, {"8_1_", "0_9_", "2_3_4_5_6_10_", "12_17_22_27_32_11_", "13_18_23_28_33_78_37_", "14_19_24_29_34_77_38_"}},
    { 8, {"9_7_", "1_10_", "0_11_", "2_3_4_5_6_78_37_", "12_17_22_27_32_77_38_", "13_18_23_28_33_76_39_"}},
    { 9, {"10_8_", "7_11_", "1_78_37_", "0_77_38_", "2_3_4_5_6_76_39_", "12_17_22_27_32_75_40_"}},
    {10, {"11_9_", "8_78_37_", "7_77_38_", "1_76_39_", "0_75_40_", "2_3_4_5_6_74_41_"}},
    {11, {"78_37_10_", "9_77_38_", "8_76_39_", "7_75_40_", "1_74_41_", "0_73_42_"}},
    {12, {"13_2_", "0_14_", "1_3_4_5_6_15_", "7_17_22_27_32_16_", "8_18_23_28_33_43_44_", "9_19_24_29_34_42_45_"}},
    {13, {"14_12_", "2_15_", "0_16_", "1_3_4_5_6_43_44_", "7_17_22_27_32_42_45_", "8_18_23_28_33_41_46_"}},
    {14, {"15_13_", "12_16_", "2_43_44_", "0_42_45_", "1_3_4_5_6_41_46_", "7_17_22_27_32_40_47_"}},
    {15, {"16_14_", "13_43_44_", "12_42_45_", "2_41_46_", "0_40_47_", "1_3_4_5_6_39_48_"}},
    {16, {"43_44_15_", "14_42_45_", "13_41_46_", "12_40_47_", "2_39_48_", "0_38_49_"}},
    {17, {"18_3_", "0_19_", "1_2_4_5_6_20_", "7_12_22_27_32_21_", "8_13_23_28_33_50_51_", "9_14_24_29_34_49_52_"}},
    {18, {"19_17_", "3_20_", "0_21_", "1_2_4_5_6_50_51_", "7_12_22_27_32_49_52_", "8_13_23_28_33_48_53_"}},
    {19, {"20_18_", "17_21_", "3_50_51_", "0_49_52_", "1_2_4_5_6_48_53_", "7_12_22_27_32_47_54_"}},
    {20, {"21_19_", "18_50_51_", "17_49_52_", "3_48_53_", "0_47_54_", "1_2_4_5_6_46_55_"}},
    {21, {"50_51_20_", "19_49_52_", "18_48_53_", "17_47_54_", "3_46_55_", "0_45_56_"}},
    {22, {"23_4_", "0_24_", "1_2_3_5_6_25_", "7_12_17_27_32_26_", "8_13_18_28_33_57_58_", "9_14_19_29_34_56_59_"}},
    {23, {"24_22_", "4_25_", "0_26_", "1_2_3_5_6_57_58_", "7_12_17_27_32_56_59_", "8_13_18_28_33_55_60_"}},
    {24, {"25_23_", "22_26_", "4_57_58_", "0_56_59_", "1_2_3_5_6_55_60_", "7_12_17_27_32_54_61_"}},
    {25, {"26_24_", "23_57_58_", "22_56_59_", "4_55_60_", "0_54_61_", "1_2_3_5_6_53_62_"}},
    {26, {"57_58_25_", "24_56_59_", "23_55_60_", "22_54_61_", "4_53_62_", "0_52_63_"}},
    {27, {"28_5_", "0_29_", "1_2_3_4_6_30_", "7_12_17_22_32_31_", "8_13_18_23_33_64_65_", "9_14_19_24_34_63_66_"}},
    {28, {"29_27_", "5_30_", "0_31_", "1_2_3_4_6_64_65_", "7_12_17_22_32_63_66_", "8_13_18_23_33_62_67_"}},
    {29, {"30_28_", "27_31_", "5_64_65_", "0_63_66_", "1_2_3_4_6_62_67_", "7_12_17_22_32_61_68_"}},
    {30, {"31_29_", "28_64_65_", "27_63_66_", "5_62_67_", "0_61_68_", "1_2_3_4_6_60_69_"}},
    {31, {"64_65_30_", "29_63_66_", "28_62_67_", "27_61_68_", "5_60_69_", "0_59_70_"}},
    {32, {"33_6_", "0_34_", "1_2_3_4_5_35_", "7_12_17_22_27_36_", "8_13_18_23_28_71_72_", "9_14_19_24_29_70_73_"}},
    {33, {"34_32_", "6_35_", "0_36_", "1_2_3_4_5_71_72_", "7_12_17_22_27_70_73_", "8_13_18_23_28_69_74_"}},
    {34, {"35_33_", "32_36_", "6_71_72_", "0_70_73_", "1_2_3_4_5_69_74_", "7_12_17_22_27_68_75_"}},
    {35, {"36_34_", "33_71_72_", "32_70_73_", "6_69_74_", "0_68_75_", "1_2_3_4_5_67_76_"}},
    {36, {"71_72_35_", "34_70_73_", "33_69_74_", "32_68_75_", "6_67_76_", "0_66_77_"}},
    {37, {"11_38_", "78_10_39_", "77_9_40_", "76_8_41_", "75_7_42_", "74_1_43_"}},
    {38, {"37_39_", "11_40_", "78_10_41_", "77_9_42_", "76_8_43_", "75_7_16_"}},
    {39, {"38_40_", "37_41_", "11_42_", "78_10_43_", "77_9_16_", "76_8_44_15_"}},
    {40, {"39_41_", "38_42_", "37_43_", "11_16_", "78_10_44_15_", "77_9_45_14_"}},
    {41, {"40_42_", "39_43_", "38_16_", "37_44_15_", "11_45_14_", "78_10_46_13_"}},
    {42, {"41_43_", "40_16_", "39_44_15_", "38_45_14_", "37_46_13_", "11_47_12_"}},
    {43, {"42_16_", "41_44_15_", "40_45_14_", "39_46_13_", "38_47_12_", "37_48_2_"}},
    {44, {"16_45_", "43_15_46_", "42_14_47_", "41_13_48_", "40_12_49_", "39_2_50_"}},
    {45, {"44_46_", "16_47_", "43_15_48_", "42_14_49_", "41_13_50_", "40_12_21_"}},
    {46, {"45_47_", "44_48_", "16_49_", "43_15_50_", "42_14_21_", "41_13_51_20_"}},
    {47, {"46_48_", "45_49_", "44_50_", "16_21_", "43_15_51_20_", "42_14_52_19_"}},
    {48, {"47_49_", "46_50_", "45_21_", "44_51_20_", "16_52_19_", "43_15_53_18_"}},
    {49, {"48_50_", "47_21_", "46_51_20_", "45_52_19_", "44_53_18_", "16_54_17_"}},
    {50, {"49_21_", "48_51_20_", "47_52_19_", "46_53_18_", "45_54_17_", "44_55_3_"}},
    {51, {"21_52_", "50_20_53_", "49_19_54_", "48_18_55_", "47_17_56_", "46_3_57_"}},
    {52, {"51_53_", "21_54_", "50_20_55_", "49_19_56_", "48_18_57_", "47_17_26_"}},
    {53, {"52_54_", "51_55_", "21_56_", "50_20_57_", "49_19_26_", "48_18_58_25_"}},
    {54, {"53_55_", "52_56_", "51_57_", "21_26_", "50_20_58_25_", "49_19_59_24_"}},
    {55, {"54_56_", "53_57_", "52_26_", "51_58_25_", "21_59_24_", "50_20_60_23_"}},
    {56, {"55_57_", "54_26_", "53_58_25_", "52_59_24_", "51_60_23_", "21_61_22_"}},
    {57, {"56_26_", "55_58_25_", "54_59_24_", "53_60_23_", "52_61_22_", "51_62_4_"}},
    {58, {"26_59_", "57_25_60_", "56_24_61_", "55_23_62_", "54_22_63_", "53_4_64_"}},
    {59, {"58_60_", "26_61_", "57_25_62_", "56_24_63_", "55_23_64_", "54_22_31_"}},
    {60, {"59_61_", "58_62_", "26_63_", "57_25_64_", "56_24_31_", "55_23_65_30_"}},
    {61, {"60_62_", "59_63_", "58_64_", "26_31_", "57_25_65_30_", "56_24_66_29_"}},
    {62, {"61_63_", "60_64_", "59_31_", "58_65_30_", "26_66_29_", "57_25_67_28_"}},
    {63, {"62_64_", "61_31_", "60_65_30_", "59_66_29_", "58_67_28_", "26_68_27_"}},
    {64, {"63_31_", "62_65_30_", "61_66_29_", "60_67_28_", "59_68_27_", "58_69_5_"}},
    {65, {"31_66_", "64_30_67_", "63_29_68_", "62_28_69_", "61_27_70_", "60_5_71_"}},
    {66, {"65_67_", "31_68_", "64_30_69_", "63_29_70_", "62_28_71_", "61_27_36_"}},
    {67, {"66_68_", "65_69_", "31_70_", "64_30_71_", "63_29_36_", "62_28_72_35_"}},
    {68, {"67_69_", "66_70_", "65_71_", "31_36_", "64_30_72_35_", "63_29_73_34_"}},
    {69, {"68_70_", "67_71_", "66_36_", "65_72_35_", "31_73_34_", "64_30_74_33_"}},
    {70, {"69_71_", "68_36_", "67_72_35_", "66_73_34_", "65_74_33_", "31_75_32_"}},
    {71, {"70_36_", "69_72_35_", "68_73_34_", "67_74_33_", "66_75_32_", "65_76_6_"}},
    {72, {"36_73_", "71_35_74_", "70_34_75_", "69_33_76_", "68_32_77_", "67_6_78_"}},
    {73, {"72_74_", "36_75_", "71_35_76_", "70_34_77_", "69_33_78_", "68_32_11_"}},
    {74, {"73_75_", "72_76_", "36_77_", "71_35_78_", "70_34_11_", "69_33_37_10_"}},
    {75, {"74_76_", "73_77_", "72_78_", "36_11_", "71_35_37_10_", "70_34_38_9_"}},
    {76, {"75_77_", "74_78_", "73_11_", "72_37_10_", "36_38_9_", "71_35_39_8_"}},
    {77, {"76_78_", "75_11_", "74_37_10_", "73_38_9_", "72_39_8_", "36_40_7_"}},
    {78, {"77_11_", "76_37_10_", "75_38_9_", "74_39_8_", "73_40_7_", "72_41_1_"}},
};

TEST_F(TiradaTest, TodasLasCasillasConTodasLasCaras) {
    ASSERT_EQ(std::size(kDestinos), 79u);
    for (const auto& fila : kDestinos) {
        for (int dado = 1; dado <= 6; ++dado) {
            Busqueda b = Buscar(fila.casilla, dado);
            EXPECT_EQ(b.lista, fila.listas[dado - 1])
                << "casilla " << fila.casilla << ", dado " << dado;
        }
    }
}

TEST_F(TiradaTest, DeDosASieteDestinosDistintosYNuncaLaPropiaCasilla) {
    for (int casilla = 0; casilla <= 78; ++casilla) {
        for (int dado = 1; dado <= 6; ++dado) {
            Busqueda b = Buscar(casilla, dado);
            const std::vector<int> v = Valores(b.lista);
            const std::string caso = "casilla " + std::to_string(casilla) + ", dado " + std::to_string(dado);
            EXPECT_GE(v.size(), 2u) << caso;
            EXPECT_LE(v.size(), 7u) << caso;
            EXPECT_EQ(std::set<int>(v.begin(), v.end()).size(), v.size()) << caso;
            EXPECT_EQ(std::count(v.begin(), v.end(), casilla), 0) << caso;
            // Una línea por valor, detrás de las dos de cabecera.
            EXPECT_EQ(static_cast<std::size_t>(std::count(b.texto.begin(), b.texto.end(), '\n')),
                      v.size() + 2)
                << caso;
            // Un solo diálogo, con la búsqueda ya cerrada; pitido salvo con un 1 desde el centro.
            EXPECT_EQ(b.dialogos, 1) << caso;
            EXPECT_EQ(b.caminos, 0) << caso;
            EXPECT_EQ(b.pitidos, casilla == 0 && dado == 1 ? 0 : 1) << caso;
            EXPECT_EQ(j.f().CaminosPendientes, 0) << caso;
            EXPECT_EQ(j.f().ValorDado, dado) << caso;
        }
    }
}

TEST_F(TiradaTest, TextosDeDestinos) {
    const std::string cabeza = "Puedes ir a casillas de:\r\n";
    const struct {
        int casilla, dado;
        std::string texto;
    } casos[] = {
        {0, 1,
         "Lanzas el dado y sacas un 1.\r\n" + cabeza +
             " Cine \r\n Deportes y espectáculos \r\n Historia \r\n Literatura \r\n"
             " Ciencias sociales \r\n Cotilleos \r\n"},
        {0, 2,
         "Lanzas el dado y sacas un 2.\r\n" + cabeza +
             " Deportes y espectáculos  (abajo )\r\n"
             " Historia  (abajo )\r\n"
             " Literatura  (abajo )\r\n"
             " Ciencias sociales  (abajo )\r\n"
             " Cotilleos  (abajo )\r\n"
             " Cine  (abajo )\r\n"},
        {0, 6,
         "Lanzas el dado y sacas un 6.\r\n" + cabeza +
             "Quesito  Cotilleos  (abajo )\r\n"
             "Quesito  Cine  (abajo )\r\n"
             "Quesito  Deportes y espectáculos  (abajo )\r\n"
             "Quesito  Historia  (abajo )\r\n"
             "Quesito  Literatura  (abajo )\r\n"
             "Quesito  Ciencias sociales  (abajo )\r\n"},
        {1, 1,
         "Lanzas el dado y sacas un 1.\r\n" + cabeza +
             " Deportes y espectáculos  (abajo )\r\n"
             " Casilla central  (arriba )\r\n"},
        {1, 2,
         "Lanzas el dado y sacas un 2.\r\n" + cabeza +
             " Deportes y espectáculos  (abajo  - pasando por el centro)\r\n"
             " Historia  (abajo  - pasando por el centro)\r\n"
             " Literatura  (abajo  - pasando por el centro)\r\n"
             " Ciencias sociales  (abajo  - pasando por el centro)\r\n"
             " Cotilleos  (abajo  - pasando por el centro)\r\n"
             " Historia  (abajo )\r\n"},
        {1, 6,
         "Lanzas el dado y sacas un 6.\r\n" + cabeza +
             " Cotilleos  (abajo  - pasando por el centro)\r\n"
             " Cine  (abajo  - pasando por el centro)\r\n"
             " Deportes y espectáculos  (abajo  - pasando por el centro)\r\n"
             " Historia  (abajo  - pasando por el centro)\r\n"
             " Literatura  (abajo  - pasando por el centro)\r\n"
             " Literatura  (derecha )\r\n"
             " Cine  (izquierda )\r\n"},
        {11, 6,
         "Lanzas el dado y sacas un 6.\r\n" + cabeza +
             " Casilla central  (arriba )\r\n"
             " casilla de dados  (derecha )\r\n"
             " casilla de dados  (izquierda )\r\n"},
        {43, 3,
         "Lanzas el dado y sacas un 3.\r\n" + cabeza +
             " Historia  (derecha )\r\n"
             " casilla de dados  (izquierda )\r\n"
             " Ciencias sociales  (arriba )\r\n"},
        {42, 1,
         "Lanzas el dado y sacas un 1.\r\n" + cabeza +
             " Literatura  (derecha )\r\n"
             " Ciencias sociales  (izquierda )\r\n"},
    };
    for (const auto& c : casos) {
        EXPECT_EQ(Buscar(c.casilla, c.dado).texto, c.texto)
            << "casilla " << c.casilla << ", dado " << c.dado;
    }
}

TEST_F(TiradaTest, UnaEtiquetaPropiaEntraConSusBlancos) {
    j.m().EtiquetaTema[1] = "Películas ";
    Busqueda b = Buscar(11, 5);
    // 16 es el quesito de la categoría 1.
    EXPECT_EQ(Valores(b.lista), (std::vector<int>{1, 74, 41}));
    b = Buscar(43, 1);
    EXPECT_EQ(b.texto,
              "Lanzas el dado y sacas un 1.\r\nPuedes ir a casillas de:\r\n"
              " casilla de dados  (derecha )\r\n"
              "Quesito Películas  (izquierda )\r\n");
}

TEST_F(TiradaTest, LaTiradaEmpiezaEnLaFichaAunqueElCursorEsteEnOtraParte) {
    j.f().CasillaCursor = 50;
    Busqueda b = Buscar(1, 1);
    EXPECT_EQ(b.lista, "7_0_");
}

TEST_F(TiradaTest, ConUnFicheroQueFaltaNoSeTiraElDado) {
    j.m().FicheroTema[4] = "no_esta";
    j.f().ValorDado = 3;
    j.p.mensajes.clear();
    j.p.azar = {AzarDado(5)};
    j.f().ResolverTirada();
    ASSERT_EQ(j.p.mensajes.size(), 1u);
    EXPECT_EQ(j.p.mensajes[0].texto,
              "Alguno/s de los ficheros de preguntas seleccionados la última vez no se encuentran "
              "disponibles en estos momentos. \r\nEntre en el menú de opciones pulsando Control o y "
              "reajuste su selección de ficheros antes de continuar jugando.");
    EXPECT_EQ(j.p.mensajes[0].estilo, 48);
    EXPECT_EQ(j.p.mensajes[0].titulo, "Atención");
    EXPECT_EQ(j.p.dialogosMostrados, 0);
    EXPECT_EQ(j.p.azar.size(), 1u);  // el dado no se ha tirado
    EXPECT_EQ(j.f().ValorDado, 3);
    EXPECT_EQ(j.f().JugadorActual, 1);
}

}  // namespace
}  // namespace sabelot

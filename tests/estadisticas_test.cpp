// El informe del jugador: quesitos, aciertos y porcentajes redondeados al par.
#include <gtest/gtest.h>

#include "apoyo/juego_casos.h"

namespace sabelot {
namespace {

class EstadisticasTest : public ::testing::Test {
protected:
    EstadisticasTest() {
        j.f().ConstruirTablero();
        prueba::Preparar(j, "jugadores=2");
    }
    std::string Informe() {
        j.p.mensajes.clear();
        j.f().MostrarEstadisticas();
        EXPECT_EQ(j.p.mensajes.size(), 1u);
        if (j.p.mensajes.empty()) return "";
        EXPECT_EQ(j.p.mensajes[0].estilo, 0);
        EXPECT_EQ(j.p.mensajes[0].titulo, "Sabelot");
        return j.p.mensajes[0].texto;
    }
    prueba::JuegoPrueba j;
};

const std::string kAdemas = "\r\n\r\nAdemás, tus estadísticas de aciertos son: \r\n";

TEST_F(EstadisticasTest, SinNadaTodavia) {
    EXPECT_EQ(Informe(), "Jugador 1.\r\nDe momento no tienes ningún quesito." + kAdemas +
                             " Cine : 0/0 \r\n Deportes y espectáculos : 0/0 \r\n Historia : 0/0 \r\n"
                             " Literatura : 0/0 \r\n Ciencias sociales : 0/0 \r\n Cotilleos : 0/0 \r\n");
}

TEST_F(EstadisticasTest, QuesitosYPorcentajesDelJugadorEnTurno) {
    // El otro jugador no sale.
    prueba::Preparar(j,
                     "turno=2;quesitos2=6,1,3;cuenta=1,2,1,3;cuenta=2,2,2,3;cuenta=4,2,0,4;cuenta=5,2,1,1;"
                     "cuenta=6,2,1,8;cuenta=3,1,5,5");
    EXPECT_EQ(Informe(), "Jugador 2.\r\nTienes 3 quesitos:  Cine ,  Historia ,  Cotilleos . " + kAdemas +
                             " Cine : 1/3  (33%) \r\n"
                             " Deportes y espectáculos : 2/3  (67%) \r\n"
                             " Historia : 0/0 \r\n"
                             " Literatura : 0/4  (0%) \r\n"
                             " Ciencias sociales : 1/1  (100%) \r\n"
                             " Cotilleos : 1/8  (12%) \r\n");
}

TEST_F(EstadisticasTest, UnQuesitoConEtiquetaPropia) {
    j.m().EtiquetaTema[3] = "Historia ";
    prueba::Preparar(j, "quesitos1=3");
    const std::string s = Informe();
    EXPECT_EQ(s.substr(0, s.find(kAdemas)), "Jugador 1.\r\nTienes un quesito: Historia . ");
}

TEST_F(EstadisticasTest, PorcentajesRedondeadosAlPar) {
    const struct {
        int aciertos, preguntas;
        const char* porcentaje;
    } casos[] = {{1, 3, "33"}, {2, 3, "67"},  {1, 8, "12"}, {3, 8, "38"},  {5, 8, "62"}, {7, 8, "88"},
                 {1, 2, "50"}, {1, 1, "100"}, {0, 4, "0"},  {3, 16, "19"}, {1, 6, "17"}, {5, 6, "83"}};
    for (const auto& c : casos) {
        prueba::Preparar(j, "cuenta=1,1," + std::to_string(c.aciertos) + "," + std::to_string(c.preguntas));
        const std::string linea = " Cine : " + std::to_string(c.aciertos) + "/" +
                                  std::to_string(c.preguntas) + "  (" + c.porcentaje + "%) \r\n";
        EXPECT_NE(Informe().find(kAdemas + linea), std::string::npos) << c.aciertos << "/" << c.preguntas;
    }
}

}  // namespace
}  // namespace sabelot

// El mapa de teclas de la ventana principal: los casos de tests/datos/teclado.txt.
#include <gtest/gtest.h>

#include "apoyo/juego_casos.h"

namespace sabelot {
namespace {

using prueba::JuegoPrueba;

class TecladoTest : public ::testing::TestWithParam<prueba::Caso> {};
TEST_P(TecladoTest, Teclas) { prueba::Jugar(GetParam()); }
INSTANTIATE_TEST_SUITE_P(Teclado, TecladoTest, ::testing::ValuesIn(prueba::Casos("teclado.txt")),
                         prueba::NombreDelCaso);

// Vista que apunta el foco.
class VistaFoco : public VistaForm1 {
public:
    bool foco = false;
    int vecesFoco = 0;
    std::string texto;
    void PonerTexto1(const std::string& t) override { texto = t; }
    void PonerTitulo(const std::string&) override {}
    void Mostrar() override {}
    void Ocultar() override {}
    bool FocoEnPicture1() override { return foco; }
    void FocoAPicture1() override { foco = ++vecesFoco > 0; }
};

TEST(Teclado, ConElFocoEnElPanelLaTeclaMueveYElFocoVuelve) {
    JuegoPrueba jp;
    jp.f().ConstruirTablero();
    VistaFoco vista;
    jp.f().PonerVista(&vista);
    jp.f().Form_KeyDown(vbKeyRight, 0);
    EXPECT_EQ(1, vista.vecesFoco);
    EXPECT_EQ(2, jp.f().RumboCentro);
    EXPECT_EQ(jp.f().Texto1(), vista.texto);
    // Con el foco ya en Picture1 no se vuelve a dar.
    jp.f().Form_KeyDown(vbKeyRight, 0);
    EXPECT_EQ(1, vista.vecesFoco);
    EXPECT_EQ(3, jp.f().RumboCentro);
    jp.f().PonerVista(nullptr);
}

TEST(Teclado, ElDadoSuenaYUnFinalEsUnaTirada) {
    // Sin ficheros de preguntas, cada tirada acaba en el aviso de que faltan: así se
    // cuentan las tiradas.
    JuegoPrueba jp;
    jp.f().ConstruirTablero();
    jp.f().CasillaCursor = 7;
    jp.f().CasillaPrevia = 3;
    jp.f().Form_KeyDown(vbKeyD, 0);
    EXPECT_EQ("MP1:lanzardados.wav", prueba::Observar(jp)["sonidos"]);
    EXPECT_EQ(3, jp.f().CasillaPrevia);
    EXPECT_TRUE(jp.p.mensajes.empty()) << "la tirada espera al final del sonido";

    // Otra vez mientras suena, con otra tecla del dado.
    jp.f().Form_KeyDown(vbKeyReturn, vbShiftMask);
    EXPECT_EQ(2u, jp.p.sonidos.size());
    jp.f().MediaPlayer1_PlayStateChange(1);  // empieza a sonar: nada
    EXPECT_TRUE(jp.p.mensajes.empty());
    jp.f().MediaPlayer1_PlayStateChange(0);
    jp.f().MediaPlayer1_PlayStateChange(0);
    ASSERT_EQ(1u, jp.p.mensajes.size());
    EXPECT_EQ("Atención", jp.p.mensajes[0].titulo);

    // Sin dado pendiente, un final suelto no tira.
    jp.f().MediaPlayer1_PlayStateChange(0);
    EXPECT_EQ(1u, jp.p.mensajes.size());
    jp.Tecla(vbKeySpace);
    EXPECT_EQ(2u, jp.p.mensajes.size());
}

}  // namespace
}  // namespace sabelot

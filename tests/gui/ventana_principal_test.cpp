// El juego de verdad, con sus ventanas, sobre una carpeta con los datos del juego: teclas de
// verdad y lo que se ve y se dice.
#include <gtest/gtest.h>
#include <wx/uiaction.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "apoyo_gui.h"
#include "wx/programa_wx.h"

using prueba_gui::Bombear;
using prueba_gui::DialogoVisto;
using prueba_gui::EsperarHasta;
using prueba_gui::PulsarTecla;

namespace {

const std::string kBienvenida =
    "Partida de 2 jugadores  que deben conseguir 6 quesitos. \r\n"
    "Pulse Control o para modificar las opciones y F1 para ver la lista de teclas.\r\n"
    "Las categorías actualmente seleccionadas son: \r\n"
    "Cine,\r\nDeportes y espectáculos,\r\nHistoria,\r\nLiteratura,\r\nCiencias sociales,\r\nCotilleos.";

bool EsEleccionDeDado(const DialogoVisto& v) {
    return v.clase == DialogoVisto::Otro && v.titulo.size() == 1 && v.titulo[0] >= '1' && v.titulo[0] <= '6';
}

class VentanaReal : public ::testing::Test {
protected:
    void SetUp() override {
        programa = std::make_unique<ProgramaWx>(carpeta.Ruta());
        vigilante = std::make_unique<prueba_gui::Vigilante>([this]() -> wxWindow* { return ventana(); });
        // Se cuentan los finales del dado que llegan al juego.
        programa->plataforma().AlTerminarDado([this] {
            ++finesDado;
            programa->juego().form1.MediaPlayer1_PlayStateChange(0);
        });
    }

    void TearDown() override {
        vigilante.reset();
        programa.reset();
        Bombear(30);
    }

    void Arrancar() {
        programa->Arrancar();
        ASSERT_TRUE(EsperarHasta([this] {
            return ventana() && ventana()->IsActive() && ventana()->FocoEnPicture1();
        })) << "la ventana principal no llega a tener el foco en Picture1";
    }

    VentanaPrincipal* ventana() { return programa ? programa->ventana() : nullptr; }
    sabelot::Form1& f() { return programa->juego().form1; }
    std::string Text1() { return ventana()->Text1()->GetValue().utf8_string(); }
    std::string Titulo() { return ventana()->GetTitle().utf8_string(); }

    // Pulsa una tecla en la ventana principal y espera a que Text1 cambie.
    bool TeclaQueDice(int codigo, int modificadores = 0) {
        const std::string antes = Text1();
        EsperarHasta([this] { return ventana()->IsActive(); }, 3000);
        PulsarTecla(codigo, modificadores);
        return EsperarHasta([&] { return Text1() != antes; }, 3000);
    }

    // Espera a que hayan llegado los finales del dado y no quede ningún modal abierto durante
    // un buen rato; como mucho medio minuto.
    bool EsperarCalma(int finesEsperados) {
        for (int i = 0; i < 6; ++i) {
            if (!EsperarHasta(
                    [&] {
                        return finesDado >= finesEsperados && programa->plataforma().ModalesAbiertos() == 0;
                    },
                    5000))
                continue;
            Bombear(1500);
            if (programa->plataforma().ModalesAbiertos() == 0) return true;
        }
        ADD_FAILURE() << "el juego no se queda quieto; diálogos vistos:\n" << vigilante->Resumen();
        return false;
    }

    int Tiradas() const {
        int n = 0;
        for (const auto& v : vigilante->vistos) n += EsEleccionDeDado(v);
        return n;
    }

    prueba_gui::CarpetaPrograma carpeta;
    std::unique_ptr<ProgramaWx> programa;
    std::unique_ptr<prueba_gui::Vigilante> vigilante;
    int finesDado = 0;
};

TEST_F(VentanaReal, LaBienvenidaSaleAntesQueLaVentanaYLasFlechasYF2CambianText1) {
    Arrancar();
    ASSERT_EQ(vigilante->vistos.size(), 1u);
    const DialogoVisto& v = vigilante->vistos[0];
    EXPECT_EQ(v.clase, DialogoVisto::Mensaje);
    EXPECT_EQ(v.titulo, "Sábelot");
    EXPECT_EQ(v.texto, kBienvenida);
    EXPECT_FALSE(v.principalVisible);
    EXPECT_EQ(Titulo(), "SÁBELOT - Jugador 1");
    EXPECT_EQ(Text1(), f().Texto1());
    EXPECT_NE(Text1().find("Todas las fichas."), std::string::npos);

    ASSERT_TRUE(TeclaQueDice(WXK_RIGHT));
    EXPECT_EQ(f().RumboCentro, 2);
    EXPECT_EQ(Text1(), f().Texto1());
    ASSERT_TRUE(TeclaQueDice(WXK_UP));
    EXPECT_EQ(f().CasillaCursor, 2);
    EXPECT_EQ(Text1(), f().Texto1());
    EXPECT_EQ(Titulo(), "SÁBELOT - Jugador 1");
    ASSERT_TRUE(TeclaQueDice(WXK_F2));
    EXPECT_EQ(Text1(), "leer casillas anexas  desactivado");
    ASSERT_TRUE(TeclaQueDice(WXK_F2));
    EXPECT_EQ(Text1(), "leer casillas anexas  activado");
    EXPECT_EQ(f().CasillaCursor, 2);
    EXPECT_TRUE(ventana()->FocoEnPicture1());
}

TEST_F(VentanaReal, ConElFocoEnText1LaTeclaVuelveAPicture1YActua) {
    Arrancar();
    PulsarTecla(WXK_TAB);
    ASSERT_TRUE(EsperarHasta([this] { return wxWindow::FindFocus() == ventana()->Text1(); }));
    ASSERT_TRUE(TeclaQueDice(WXK_UP));
    EXPECT_EQ(f().CasillaCursor, 1);
    EXPECT_TRUE(ventana()->FocoEnPicture1());
}

TEST_F(VentanaReal, ElDadoRepetidoMientrasSuenaTiraUnaVez) {
    Arrancar();
    PulsarTecla(WXK_SPACE);
    Bombear(300);
    EXPECT_EQ(finesDado, 0) << "el sonido del dado no debería haber terminado aún";
    PulsarTecla(WXK_RETURN);
    ASSERT_TRUE(EsperarCalma(1));
    EXPECT_EQ(finesDado, 1);
    EXPECT_EQ(Tiradas(), 1);
}

TEST_F(VentanaReal, LaTiradaEsperaAQueSeCierreElMensaje) {
    Arrancar();
    // La lista de teclas se queda abierta mientras el sonido del dado acaba.
    vigilante->espera = [](const DialogoVisto& v) { return v.titulo == "Sabelot" ? 2000 : 50; };
    PulsarTecla('D');
    Bombear(100);
    PulsarTecla(WXK_F1);
    ASSERT_TRUE(EsperarCalma(1));
    ASSERT_GE(vigilante->vistos.size(), 3u);
    EXPECT_EQ(vigilante->vistos[1].clase, DialogoVisto::Mensaje);
    EXPECT_EQ(vigilante->vistos[1].texto.rfind("LISTA DE TECLAS.\r\n", 0), 0u);
    EXPECT_TRUE(vigilante->vistos[1].principalVisible);
    EXPECT_TRUE(EsEleccionDeDado(vigilante->vistos[2]));
    EXPECT_FALSE(vigilante->vistos[2].hayOtroModalDebajo);
    EXPECT_EQ(Tiradas(), 1);
    EXPECT_TRUE(EsperarHasta([this] { return ventana()->IsActive() && ventana()->FocoEnPicture1(); }));
}

TEST_F(VentanaReal, SinElSonidoDelDadoLaTiradaSigue) {
    carpeta.Borrar("sonidos/lanzardados.wav");
    Arrancar();
    PulsarTecla('D');
    ASSERT_TRUE(EsperarCalma(1));
    EXPECT_EQ(finesDado, 1);
    EXPECT_EQ(Tiradas(), 1);
}

TEST_F(VentanaReal, SinDispositivoDeSonidoLaTiradaSigue) {
    // Un controlador de audio que no existe: SDL no abre ningún dispositivo.
    const char* antes = std::getenv("SDL_AUDIODRIVER");
    const std::string controlador = antes ? antes : "";
    setenv("SDL_AUDIODRIVER", "ninguno", 1);
    Arrancar();
    PulsarTecla('D');
    const bool calma = EsperarCalma(1);
    setenv("SDL_AUDIODRIVER", controlador.c_str(), 1);
    ASSERT_TRUE(calma);
    EXPECT_EQ(finesDado, 1);
    EXPECT_EQ(Tiradas(), 1);
}

TEST_F(VentanaReal, ElAplausoSuenaConElDadoYNoTira) {
    Arrancar();
    // El aplauso (1,6 s) empieza antes que el dado (1 s) y acaba después.
    programa->plataforma().Reproducir(sabelot::Reproductor::MP2,
                                      sabelot::Ruta(carpeta.Ruta(), {"sonidos", "aplauso1.wav"}));
    PulsarTecla('D');
    ASSERT_TRUE(EsperarCalma(1));
    Bombear(1500);
    EXPECT_EQ(finesDado, 1);
    EXPECT_EQ(Tiradas(), 1);
}

TEST_F(VentanaReal, AltF4CierraSinPreguntar) {
    Arrancar();
    const std::size_t antes = vigilante->vistos.size();
    PulsarTecla(WXK_F4, wxMOD_ALT);
    ASSERT_TRUE(EsperarHasta([this] { return ventana() == nullptr; }));
    EXPECT_EQ(vigilante->vistos.size(), antes);
}

}  // namespace

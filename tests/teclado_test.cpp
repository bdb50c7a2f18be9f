// El mapa de teclas de la ventana principal.
#include <gtest/gtest.h>

#include <ostream>
#include <vector>

#include "apoyo/juego_prueba.h"

namespace sabelot {
namespace {

using prueba::JuegoPrueba;

const std::string C = "\r\n";

// El juego recién empezado, sin pasar por el arranque entero (sin mensajes).
void Preparar(JuegoPrueba& jp, int jugadores = 1) {
    jp.f().ConstruirTablero();
    jp.m().NumJugadores = jugadores;
    jp.m().DimensionarTablas(jugadores);
    jp.f().PonerTitulo(TituloJugador(1));
}

struct Paseo {
    const char* nombre;
    int cursor, rumbo;  // de dónde se sale
    std::vector<int> teclas;
    int cursorFinal, rumboFinal, pitidos;
    int previa;  // CasillaPrevia: la de antes de la última tecla, aunque pite; 0 al llegar al centro
};
// En la lista de ctest, el nombre del paseo y no sus bytes.
void PrintTo(const Paseo& p, std::ostream* os) { *os << p.nombre; }

// clang-format off
const Paseo kPaseos[] = {
    {"ArribaDesdeElCentro", 0, 1, {vbKeyUp}, 1, 1, 0, 0},
    {"ArribaArribaVuelveMirandoAlOpuesto", 0, 1, {vbKeyUp, vbKeyUp}, 0, 4, 0, 0},
    {"ArribaArribaAbajoVuelveAlRadio", 0, 1, {vbKeyUp, vbKeyUp, vbKeyDown}, 1, 4, 0, 0},
    {"DerechaSeisVecesDaLaVuelta", 0, 1,
     {vbKeyRight, vbKeyRight, vbKeyRight, vbKeyRight, vbKeyRight, vbKeyRight}, 0, 1, 0, 0},
    {"IzquierdaDel1Al6", 0, 1, {vbKeyLeft}, 0, 6, 0, 0},
    {"AbajoMirandoAl5VaAl2", 0, 5, {vbKeyDown}, 2, 5, 0, 0},
    {"ArribaEnElAnillo40Pita", 40, 1, {vbKeyUp}, 40, 1, 1, 40},
    {"AbajoEnElQuesito11Pita", 11, 1, {vbKeyDown}, 11, 1, 1, 11},
    {"DerechaEnElRadio7Pita", 7, 1, {vbKeyRight}, 7, 1, 1, 7},
    {"IzquierdaEnElQuesito16Va44", 16, 1, {vbKeyLeft}, 44, 1, 0, 16},
    {"DerechaEnElQuesito11Va78", 11, 1, {vbKeyRight}, 78, 1, 0, 11},
    {"IzquierdaEn78CierraElAnillo", 78, 1, {vbKeyLeft}, 11, 1, 0, 78},
    {"DelQuesitoAlCentroPorElRadio", 26, 2, {vbKeyUp, vbKeyUp, vbKeyUp, vbKeyUp, vbKeyUp, vbKeyUp}, 0, 1, 0, 0},
    {"AbajoHastaElQuesitoYUnoMas", 0, 2,
     {vbKeyUp, vbKeyDown, vbKeyDown, vbKeyDown, vbKeyDown, vbKeyDown, vbKeyDown}, 16, 2, 1, 16},
};
// clang-format on

class PaseoTest : public ::testing::TestWithParam<Paseo> {};

TEST_P(PaseoTest, CursorRumboYPitidos) {
    const Paseo& paseo = GetParam();
    JuegoPrueba jp;
    Preparar(jp);
    jp.f().CasillaCursor = paseo.cursor;
    jp.f().RumboCentro = paseo.rumbo;
    for (int tecla : paseo.teclas) jp.Tecla(tecla);
    EXPECT_EQ(paseo.cursorFinal, jp.f().CasillaCursor);
    EXPECT_EQ(paseo.rumboFinal, jp.f().RumboCentro);
    EXPECT_EQ(paseo.pitidos, jp.p.pitidos);
    EXPECT_EQ(paseo.previa, jp.f().CasillaPrevia);
    EXPECT_TRUE(jp.p.mensajes.empty());
}

INSTANTIATE_TEST_SUITE_P(Teclado, PaseoTest, ::testing::ValuesIn(kPaseos),
                         [](const auto& info) { return std::string(info.param.nombre); });

TEST(Teclado, CadaPasoCuentaLaCasillaALaQueLlega) {
    JuegoPrueba jp;
    Preparar(jp);
    jp.Tecla(vbKeyUp);
    EXPECT_EQ("Casilla de Cine " + C + " Casilla central arriba" + C + " Deportes y espectáculos abajo" + C,
              jp.f().Texto1());
    jp.Tecla(vbKeyUp);
    EXPECT_EQ("Casilla central" + C + " Literatura arriba" + C + " Cine  abajo " + C +
                  "izquierda / derecha girar" + C + "Todas las fichas.",
              jp.f().Texto1());
    // Girando en el centro se oye cada radio.
    std::vector<std::string> delante;
    for (int i = 0; i < 6; ++i) {
        jp.Tecla(vbKeyRight);
        const std::string& t = jp.f().Texto1();
        delante.push_back(t.substr(t.find(C) + 2, t.find("arriba") - t.find(C) - 2));
    }
    EXPECT_EQ((std::vector<std::string>{" Ciencias sociales ", " Cotilleos ", " Cine ",
                                        " Deportes y espectáculos ", " Historia ", " Literatura "}),
              delante);
    // Un pitido no cambia el texto.
    jp.f().CasillaCursor = 40;
    jp.f().PonerTexto1("antes");
    jp.Tecla(vbKeyDown);
    EXPECT_EQ("antes", jp.f().Texto1());
}

TEST(Teclado, F2DosVeces) {
    JuegoPrueba jp;
    Preparar(jp);
    jp.f().CasillaCursor = 16;
    jp.f().CasillaPrevia = 3;
    jp.Tecla(vbKeyF2);
    EXPECT_EQ("leer casillas anexas  desactivado", jp.f().Texto1());
    EXPECT_FALSE(jp.f().LeerAnexas);
    jp.Tecla(vbKeyF2, vbShiftMask | vbCtrlMask);
    EXPECT_EQ("leer casillas anexas  activado", jp.f().Texto1());
    EXPECT_TRUE(jp.f().LeerAnexas);
    EXPECT_EQ(16, jp.f().CasillaCursor);
    EXPECT_EQ(3, jp.f().CasillaPrevia);
    // Sin anexas, la casilla siguiente se cuenta sola.
    jp.Tecla(vbKeyF2);
    jp.Tecla(vbKeyLeft);
    EXPECT_EQ("Casilla de Deportes y espectáculos " + C, jp.f().Texto1());
}

TEST(Teclado, ElTituloSigueAlTurnoConCualquierTecla) {
    for (int tecla : {int{vbKeyF2}, 90 /* Z, fuera del mapa */, int{vbKeyO}, int{vbKeyUp}}) {
        JuegoPrueba jp;
        Preparar(jp, 3);
        jp.f().JugadorActual = 2;
        EXPECT_EQ("SÁBELOT - Jugador 1", jp.f().Titulo());
        jp.Tecla(tecla);
        EXPECT_EQ("SÁBELOT - Jugador 2", jp.f().Titulo()) << tecla;
    }
}

// Guardar y cargar por sus teclas; O, G y A sin Control, y F4 con modificadores, como cualquier
// tecla fuera del mapa: nada, ni pitido, y CasillaPrevia como estaba.
TEST(Teclado, GuardarCargarYTeclasSinEfecto) {
    const struct {
        int tecla, shift;
        const char* titulo;  // el de la caja del nombre, o nada
    } casos[] = {
        {vbKeyF3, 0, "Guardar Partida"},
        {vbKeyF3, vbShiftMask, "Guardar Partida"},
        {vbKeyF3, vbAltMask, "Guardar Partida"},
        {vbKeyG, vbCtrlMask, "Guardar Partida"},
        {vbKeyG, vbCtrlMask | vbShiftMask, "Guardar Partida"},
        {vbKeyF4, 0, "Cargar partida"},
        {vbKeyA, vbCtrlMask, "Cargar partida"},
        {vbKeyA, vbCtrlMask | vbAltMask, "Cargar partida"},
        {vbKeyO, 0, nullptr},
        {vbKeyG, 0, nullptr},
        {vbKeyA, 0, nullptr},
        {vbKeyO, vbShiftMask, nullptr},
        {vbKeyG, vbAltMask, nullptr},
        {vbKeyF4, vbShiftMask, nullptr},
        {vbKeyF4, vbAltMask, nullptr},
        {vbKeyF4, vbCtrlMask, nullptr},
        {90, 0, nullptr},
        {96 /* 0 del teclado numérico */, 0, nullptr},
    };
    for (const auto& caso : casos) {
        SCOPED_TRACE(std::to_string(caso.tecla) + "/" + std::to_string(caso.shift));
        JuegoPrueba jp;
        Preparar(jp);
        jp.f().CasillaCursor = 30;
        jp.f().CasillaPrevia = 29;
        jp.f().PonerTexto1("antes");
        jp.p.textos.push_back("");
        jp.Tecla(caso.tecla, caso.shift);
        if (caso.titulo) {
            ASSERT_EQ(1u, jp.p.entradas.size());
            EXPECT_EQ(caso.titulo, jp.p.entradas[0].titulo);
            EXPECT_EQ("Cancelado", jp.f().Texto1());
        } else {
            EXPECT_EQ("antes", jp.f().Texto1());
            EXPECT_EQ(29, jp.f().CasillaPrevia);
            EXPECT_TRUE(jp.p.entradas.empty());
            EXPECT_TRUE(jp.p.sonidos.empty());
        }
        EXPECT_EQ(30, jp.f().CasillaCursor);
        EXPECT_EQ(0, jp.p.pitidos);
        EXPECT_TRUE(jp.p.mensajes.empty());
    }
}

const std::string kListaTeclas =
    "LISTA DE TECLAS." + C + "Cursores: Desplazarse por el tablero." + C +
    "1 al 6: Ir a la posición de la ficha correspondiente." + C + "Énter, Espacio o d: Lanzar el dado." + C +
    "Control-o: Diálogo de opciones de juego." + C +
    "e: Muestra los quesitos conseguidos y las estadísticas de aciertos para el jugador actual." + C +
    "F2: Activa y desactiva la lectura de las casillas adyacentes a la actual." + C +
    "F3, Control G: Permite guardar una partida." + C +
    "F4, Control A: Permite cargar una partida previamente guardada." + C +
    "F1: Muestra esta lista de teclas.";

// F1 y e dicen su mensaje en cualquier casilla, sin mover el cursor.
TEST(Teclado, F1YEDicenSuMensajeEnCualquierCasilla) {
    for (int tecla : {int{vbKeyF1}, int{vbKeyE}}) {
        for (int casilla : {0, 16, 38}) {
            SCOPED_TRACE(std::to_string(tecla) + " en " + std::to_string(casilla));
            JuegoPrueba jp;
            Preparar(jp);
            jp.f().CasillaCursor = casilla;
            jp.Tecla(tecla, vbShiftMask);
            ASSERT_EQ(1u, jp.p.mensajes.size());
            if (tecla == vbKeyF1)
                EXPECT_EQ(kListaTeclas, jp.p.mensajes[0].texto);
            else
                EXPECT_EQ(0u, jp.p.mensajes[0].texto.find("Jugador 1."));
            EXPECT_EQ(vbOKOnly, jp.p.mensajes[0].estilo);
            EXPECT_EQ("Sabelot", jp.p.mensajes[0].titulo);
            EXPECT_EQ(casilla, jp.f().CasillaCursor);
        }
    }
}

TEST(Teclado, CifrasYVVanALaFichaTambienDesdeElCentro) {
    JuegoPrueba jp;
    Preparar(jp, 2);
    jp.f().PosicionFicha = {0, 12, 44, 0, 0, 0, 9};
    jp.f().JugadorActual = 2;
    jp.Tecla(vbKey1);
    EXPECT_EQ(12, jp.f().CasillaCursor);
    EXPECT_EQ("Casilla de Historia " + C + " Deportes y espectáculos arriba" + C + " Literatura abajo" + C +
                  C + "Ficha del jugador 1",
              jp.f().Texto1());
    jp.Tecla(vbKeyV);
    EXPECT_EQ(44, jp.f().CasillaCursor);
    jp.Tecla(vbKey1 + 3);  // ficha 4, fuera de juego: en el centro
    EXPECT_EQ(0, jp.f().CasillaCursor);
    jp.Tecla(vbKey6);  // desde el centro también
    EXPECT_EQ(9, jp.f().CasillaCursor);
    EXPECT_EQ("Casilla de Literatura " + C + " Historia arriba" + C + " Ciencias sociales abajo" + C,
              jp.f().Texto1())
        << "la ficha 6 no juega y no se cuenta";
    jp.f().CasillaCursor = 0;
    jp.Tecla(vbKeyV, vbShiftMask);
    EXPECT_EQ(44, jp.f().CasillaCursor);
    EXPECT_EQ(0, jp.p.pitidos);
}

// Vista que apunta el foco.
class VistaFoco : public VistaForm1 {
public:
    bool focoEnPicture1 = false;
    int vecesFoco = 0;
    std::string texto;
    void PonerTexto1(const std::string& t) override { texto = t; }
    void PonerTitulo(const std::string&) override {}
    void Mostrar() override {}
    void Ocultar() override {}
    bool FocoEnPicture1() override { return focoEnPicture1; }
    void FocoAPicture1() override {
        focoEnPicture1 = true;
        ++vecesFoco;
    }
};

TEST(Teclado, ConElFocoEnElPanelLaTeclaMueveYElFocoVuelve) {
    JuegoPrueba jp;
    Preparar(jp);
    VistaFoco vista;
    jp.f().PonerVista(&vista);
    jp.f().Form_KeyDown(vbKeyRight, 0);
    EXPECT_TRUE(vista.focoEnPicture1);
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
    Preparar(jp);
    jp.f().CasillaCursor = 7;
    jp.f().CasillaPrevia = 3;
    jp.f().Form_KeyDown(vbKeyD, 0);
    ASSERT_EQ(1u, jp.p.sonidos.size());
    EXPECT_EQ(Reproductor::MediaPlayer1, jp.p.sonidos[0].first);
    EXPECT_EQ(Ruta(jp.p.CarpetaPrograma(), {"sonidos", "lanzardados.wav"}), jp.p.sonidos[0].second);
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

// Aceptar las opciones con Control+O: FlujoOpcionesTest.AceptarConTresJugadores.
TEST(Teclado, OpcionesConNoNoTocanNada) {
    JuegoPrueba jp;
    Preparar(jp, 2);
    jp.f().PosicionFicha = {0, 30, 12, 0, 0, 0, 0};
    jp.f().JugadorActual = 2;
    jp.m().Aciertos(3, 1) = 2;
    jp.p.siNo.push_back(vbNo);
    jp.Tecla(vbKeyO, vbCtrlMask);
    ASSERT_EQ(1u, jp.p.mensajes.size());
    EXPECT_EQ("Opciones Sabelot", jp.p.mensajes[0].titulo);
    EXPECT_EQ(0, jp.p.opcionesMostradas);
    EXPECT_EQ(2, jp.m().NumJugadores);
    EXPECT_EQ(2, jp.m().Aciertos(3, 1));
    EXPECT_EQ(30, jp.f().PosicionFicha[1]);
    EXPECT_EQ(2, jp.f().JugadorActual);
}

}  // namespace
}  // namespace sabelot

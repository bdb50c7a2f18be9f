// Mover la ficha, las preguntas, los quesitos y el paso del turno, jugados con guion.
#include <gtest/gtest.h>

#include "apoyo/partida_guion.h"

namespace sabelot {
namespace {

using prueba::PartidaGuion;
using prueba::PlataformaGuion;

const std::string kBien = "Muy bien, sigue  así.";
const std::string kFallo = "Fallaste, pierdes el turno.";

std::string Turno(int jugador) {
    return "\r\nTurno del jugador " + std::to_string(jugador) + ". Pulsa espacio para lanzar los dados.";
}

std::string Aplauso(PartidaGuion& g, const char* fichero) {
    return Ruta(g.p().CarpetaPrograma(), {"sonidos", fichero});
}

TEST(Movimiento, LaFichaVaALaCasillaElegidaYPreguntaSuCategoria) {
    PartidaGuion g;
    g.veredictos = {'B'};
    g.Tirar(2, 17);
    EXPECT_EQ(g.f().PosicionFicha[1], 17);
    EXPECT_EQ(g.f().CasillaCursor, 17);
    EXPECT_EQ(g.temasPreguntados, std::vector<int>{4});
    ASSERT_EQ(g.vistas.size(), 1u);
    EXPECT_EQ(g.vistas[0].titulo, "2");
    EXPECT_EQ(g.vistas[0].lista, "7_12_17_22_27_32_");
    // La ventana se oculta mientras se pregunta.
    EXPECT_EQ(g.hechosEnPregunta, std::vector<std::string>{"Ocultar"});
    EXPECT_EQ(g.vista.hechos, (std::vector<std::string>{"Ocultar", "Mostrar"}));
}

TEST(Movimiento, CasillaDeDadosVuelveATirarSinPregunta) {
    PartidaGuion g(2);
    g.f().PosicionFicha[1] = 37;
    g.Tirar(1, 38);
    EXPECT_EQ(g.f().Texto1(), "Vuelve  a tirar los dados.");
    EXPECT_EQ(g.f().PosicionFicha[1], 38);
    EXPECT_EQ(g.f().JugadorActual, 1);
    EXPECT_TRUE(g.temasPreguntados.empty());
    // Y otra vez, sin límite.
    g.Tirar(4, 42);
    EXPECT_EQ(g.f().Texto1(), "Vuelve  a tirar los dados.");
    EXPECT_EQ(g.f().JugadorActual, 1);
    EXPECT_TRUE(g.temasPreguntados.empty());
}

// Una pregunta en una casilla, con el estado de antes y lo que debe quedar.
struct CasoPregunta {
    const char* nombre;
    int jugadores, quesitosParaGanar;
    int desde, cara, destino;          // la tirada
    std::vector<int> quesitosPrevios;  // categorías que ya tiene el jugador 1
    char veredicto;
    std::string texto1;
    std::vector<std::string> mensajes;  // texto|estilo|título
    int aciertos, preguntas;            // del jugador 1 en la categoría de la casilla
    int numQuesitos;
    bool tieneQuesito;
    int jugadorDespues;
    bool aplauso;
};

std::string Msg(const PlataformaGuion::Mensaje& m) {
    return m.texto + "|" + std::to_string(m.estilo) + "|" + m.titulo;
}

class Preguntas : public ::testing::TestWithParam<CasoPregunta> {};

TEST_P(Preguntas, Resultado) {
    const CasoPregunta& c = GetParam();
    PartidaGuion g(c.jugadores, c.quesitosParaGanar);
    g.DarQuesitos(1, c.quesitosPrevios);
    for (int i = 2; i <= c.jugadores; ++i) g.f().PosicionFicha[static_cast<std::size_t>(i)] = 40 + i;
    g.f().PosicionFicha[1] = c.desde;
    g.veredictos = {c.veredicto};
    g.Tirar(c.cara, c.destino);

    const int tema = g.f().Tablero[static_cast<std::size_t>(c.destino)].Tema;
    EXPECT_EQ(g.temasPreguntados, std::vector<int>{tema});
    EXPECT_EQ(g.f().Texto1(), c.texto1);
    std::vector<std::string> mensajes;
    for (const auto& m : g.p().mensajes) mensajes.push_back(Msg(m));
    EXPECT_EQ(mensajes, c.mensajes);
    EXPECT_EQ(g.m().Aciertos(tema, 1), c.aciertos);
    EXPECT_EQ(g.m().Preguntas(tema, 1), c.preguntas);
    EXPECT_EQ(g.m().NumQuesitos(1), c.numQuesitos);
    EXPECT_EQ(g.m().QuesitoGanado(tema, 1), c.tieneQuesito);
    EXPECT_EQ(g.f().JugadorActual, c.jugadorDespues);
    // El cursor queda en la ficha del que tira ahora; la ficha movida no se mueve más.
    EXPECT_EQ(g.f().CasillaCursor, g.f().PosicionFicha[static_cast<std::size_t>(c.jugadorDespues)]);
    EXPECT_EQ(g.f().PosicionFicha[1], c.destino);
    // El título no lo toca la pregunta: se pone al día con la próxima tecla.
    EXPECT_EQ(g.f().Titulo(), "SÁBELOT - Jugador 1");
    if (c.aplauso) {
        ASSERT_EQ(g.p().sonidos.size(), 1u);
        EXPECT_EQ(g.p().sonidos[0].first, Reproductor::MP2);
        EXPECT_EQ(g.p().sonidos[0].second, Aplauso(g, "aplauso1.wav"));
    } else {
        EXPECT_TRUE(g.p().sonidos.empty());
    }
}

const std::string kGanado = "Has conseguido este quesito y ya tienes ";
const std::string kPerdido = "Al fallar esa pregunta has perdido este quesito que ya tenías.";
const std::string kCuidado = " Ten más cuidado la próxima vez";

// Casilla 7: categoría 2. Casilla 11: quesito de la categoría 6, a un paso de la 10.
// clang-format off
INSTANTIATE_TEST_SUITE_P(
    Reglas, Preguntas,
    ::testing::Values(
        CasoPregunta{"CategoriaBien", 1, 6, 0, 2, 7, {}, 'B', kBien, {}, 1, 1, 0, false, 1, false},
        CasoPregunta{"CategoriaMalUnJugador", 1, 6, 0, 2, 7, {}, 'M', kFallo + Turno(1), {}, 0, 1, 0,
                     false, 1, false},
        CasoPregunta{"CategoriaMalPasaAl2", 2, 6, 0, 2, 7, {}, 'M', kFallo + Turno(2), {}, 0, 1, 0,
                     false, 2, false},
        CasoPregunta{"QuesitoGanado", 2, 6, 10, 1, 11, {}, 'B', kBien,
                     {kGanado + "1!! |0|Sábelot"}, 1, 1, 1, true, 1, true},
        CasoPregunta{"QuesitoGanadoQuintoDeSeis", 1, 6, 10, 1, 11, {1, 2, 3, 4}, 'B', kBien,
                     {kGanado + "5!! \r\n consigue uno más y podrás ir al centro para ganar.|0|Sábelot"},
                     1, 1, 5, true, 1, true},
        CasoPregunta{"QuesitoGanadoSextoDeSeis", 1, 6, 10, 1, 11, {1, 2, 3, 4, 5}, 'B', kBien,
                     {kGanado + "6!! \r\nAhora ve al centro para ganar!|0|Sábelot"}, 1, 1, 6, true, 1,
                     true},
        CasoPregunta{"QuesitoGanadoCuartoDeSeisSinCola", 1, 6, 10, 1, 11, {1, 2, 3}, 'B', kBien,
                     {kGanado + "4!! |0|Sábelot"}, 1, 1, 4, true, 1, true},
        CasoPregunta{"QuesitoGanadoPasadoDeLosQueHacenFalta", 1, 2, 10, 1, 11, {1, 2}, 'B', kBien,
                     {kGanado + "3!! |0|Sábelot"}, 1, 1, 3, true, 1, true},
        CasoPregunta{"QuesitoMantenido", 1, 6, 10, 1, 11, {6}, 'B',
                     "Has acertado manteniendo este quesito\r\n" + kBien, {}, 1, 1, 1, true, 1, false},
        CasoPregunta{"QuesitoDesaprovechado", 2, 6, 10, 1, 11, {1}, 'M',
                     "Fallaste: has desaprovechado la ocasión de conseguir el quesito y ahora ya no es "
                     "tu turno." +
                         Turno(2),
                     {}, 0, 1, 1, false, 2, false},
        CasoPregunta{"QuesitoPerdidoElUnico", 2, 6, 10, 1, 11, {6}, 'M', kFallo + Turno(2),
                     {kPerdido + " y vuelves a estar como al principio, sin ningún quesito" + kCuidado +
                      "|0|Sabelot"},
                     0, 1, 0, false, 2, false},
        CasoPregunta{"QuesitoPerdidoQuedaUno", 2, 6, 10, 1, 11, {1, 6}, 'M', kFallo + Turno(2),
                     {kPerdido + " y sólo te queda uno" + kCuidado + "|0|Sabelot"}, 0, 1, 1, false, 2,
                     false},
        CasoPregunta{"QuesitoPerdidoQuedanCuatro", 1, 6, 10, 1, 11, {1, 2, 3, 4, 6}, 'M',
                     kFallo + Turno(1),
                     {kPerdido + " y sólo te quedan 4" + kCuidado + "|0|Sabelot"}, 0, 1, 4, false, 1,
                     false}),
    [](const ::testing::TestParamInfo<CasoPregunta>& i) { return std::string(i.param.nombre); });
// clang-format on

TEST(Turno, DaLaVueltaConTresJugadoresSinTocarLosContadoresDelSiguiente) {
    PartidaGuion g(3);
    g.f().PosicionFicha[2] = 44;
    g.f().PosicionFicha[3] = 0;
    g.f().PosicionFicha[1] = 0;

    g.veredictos = {'M'};
    g.Tirar(2, 7);  // jugador 1, categoría 2
    EXPECT_EQ(g.f().JugadorActual, 2);
    EXPECT_EQ(g.f().CasillaCursor, 44);
    EXPECT_EQ(g.f().Texto1(), kFallo + Turno(2));
    EXPECT_EQ(g.m().Preguntas(2, 1), 1);
    EXPECT_EQ(g.m().Preguntas(2, 2), 0);

    g.veredictos = {'M'};
    g.Tirar(2, 43);  // jugador 2, categoría 5
    EXPECT_EQ(g.f().JugadorActual, 3);
    EXPECT_EQ(g.f().CasillaCursor, 0);
    EXPECT_EQ(g.f().Texto1(), kFallo + Turno(3));
    EXPECT_EQ(g.m().Preguntas(5, 2), 1);
    EXPECT_EQ(g.m().Preguntas(5, 3), 0);

    g.veredictos = {'B', 'M'};
    g.Tirar(2, 12);  // jugador 3 acierta la categoría 3 y sigue
    EXPECT_EQ(g.f().JugadorActual, 3);
    EXPECT_EQ(g.f().Texto1(), kBien);
    g.Tirar(1, 13);  // y falla la 4: vuelve el 1
    EXPECT_EQ(g.f().JugadorActual, 1);
    EXPECT_EQ(g.f().CasillaCursor, 7);
    EXPECT_EQ(g.f().Texto1(), kFallo + Turno(1));
    EXPECT_EQ(g.m().Aciertos(3, 3), 1);
    EXPECT_EQ(g.m().Preguntas(3, 3), 1);
    EXPECT_EQ(g.m().Aciertos(4, 3), 0);
    EXPECT_EQ(g.m().Preguntas(4, 3), 1);
    EXPECT_EQ(g.f().PosicionFicha, (std::array<int, 7>{0, 7, 43, 13, 0, 0, 0}));
}

TEST(Turno, SinPreguntaNoCuentaNadaNiPasaElTurno) {
    PartidaGuion g(2);
    g.f().CasillaCursor = 11;
    g.f().PosicionFicha[1] = 11;
    g.DarQuesitos(1, {6});
    g.f().PonerTexto1("lo que había");
    g.veredictos = {'N'};
    g.f().HacerPregunta(6);
    EXPECT_EQ(g.f().Texto1(), "lo que había");
    EXPECT_EQ(g.f().JugadorActual, 1);
    EXPECT_EQ(g.m().Preguntas(6, 1), 0);
    EXPECT_EQ(g.m().Aciertos(6, 1), 0);
    EXPECT_TRUE(g.m().QuesitoGanado(6, 1));
    EXPECT_EQ(g.m().NumQuesitos(1), 1);
    EXPECT_TRUE(g.p().mensajes.empty());
    EXPECT_EQ(g.temasPreguntados, std::vector<int>{6});
}

// --- La casilla central ---

const std::string kPreguntaCentro =
    "Elija sobre qué categoría quiere que se le haga la pregunta:\r\n"
    " Cine \r\n Deportes y espectáculos \r\n Historia \r\n Literatura \r\n Ciencias sociales \r\n"
    " Cotilleos \r\n";

TEST(Centro, PreguntaNormalAcertada) {
    PartidaGuion g(2, 6);
    g.DarQuesitos(1, {1, 2, 3, 4, 5});
    g.f().PosicionFicha[1] = 1;
    g.f().PosicionFicha[2] = 50;
    g.veredictos = {'B'};
    g.elecciones = {0, 3};
    g.p().azar = {prueba::AzarDado(1)};
    g.f().ResolverTirada();

    ASSERT_EQ(g.vistas.size(), 2u);
    EXPECT_EQ(g.vistas[1].titulo, "Casilla central");
    EXPECT_EQ(g.vistas[1].texto, kPreguntaCentro + "\r\nElige una opción.");
    EXPECT_EQ(g.vistas[1].lista, "1_2_3_4_5_6_");
    EXPECT_EQ(g.vistas[1].botones,
              (std::vector<std::string>{" Cine ", " Deportes y espectáculos ", " Historia ", " Literatura ",
                                        " Ciencias sociales ", " Cotilleos "}));
    EXPECT_EQ(g.temasPreguntados, std::vector<int>{3});
    EXPECT_EQ(g.hechosEnPregunta, std::vector<std::string>{"Ocultar"});
    EXPECT_EQ(g.m().Aciertos(3, 1), 1);
    EXPECT_EQ(g.m().Preguntas(3, 1), 1);
    EXPECT_EQ(g.f().Texto1(), kBien);
    EXPECT_EQ(g.f().JugadorActual, 1);
    EXPECT_EQ(g.f().PosicionFicha[1], 0);
    EXPECT_TRUE(g.p().mensajes.empty());
}

TEST(Centro, PreguntaNormalFalladaPasaElTurnoYCambiaElTitulo) {
    PartidaGuion g(2, 6);
    g.f().PosicionFicha[1] = 12;
    g.f().PosicionFicha[2] = 50;
    g.veredictos = {'M'};
    g.elecciones = {0, 6};
    g.p().azar = {prueba::AzarDado(2)};
    g.f().ResolverTirada();

    EXPECT_EQ(g.temasPreguntados, std::vector<int>{6});
    EXPECT_EQ(g.m().Aciertos(6, 1), 0);
    EXPECT_EQ(g.m().Preguntas(6, 1), 1);
    EXPECT_EQ(g.f().Texto1(), kFallo + Turno(2));
    EXPECT_EQ(g.f().Titulo(), "SÁBELOT - Jugador 2");
    EXPECT_EQ(g.f().JugadorActual, 2);
    EXPECT_EQ(g.f().CasillaCursor, 50);
    EXPECT_EQ(g.f().PosicionFicha[1], 0);
}

// Prueba final con guion de respuestas; lo que se ofreció en cada elección.
struct CasoFinal {
    const char* nombre;
    std::string veredictos;
    std::vector<int> elegidos;
    std::vector<std::string> listas;
    bool gana;
    bool falla;
};

class PruebaFinalTest : public ::testing::TestWithParam<CasoFinal> {};

const std::string kImposible =
    "Con este error se hace imposible superar la prueba. Deje la casilla central y vuelva de "
    "nuevo a ella para intentarlo otra vez.";

TEST_P(PruebaFinalTest, Resultado) {
    const CasoFinal& c = GetParam();
    PartidaGuion g(2, 2);
    g.DarQuesitos(1, {2, 5});
    g.m().Aciertos(2, 1) = 3;
    g.m().Preguntas(2, 1) = 4;
    g.f().PosicionFicha[1] = 3;
    g.f().PosicionFicha[2] = 60;
    g.veredictos.assign(c.veredictos.begin(), c.veredictos.end());
    g.elecciones.assign(c.elegidos.begin(), c.elegidos.end());
    g.p().siNo = {vbYes};
    // Al primer mensaje: el panel y los contadores de la partida, antes de otra partida.
    std::string texto1EnPrueba = "-";
    int aciertosEnPrueba = -1;
    g.p().alMensaje = [&](const PlataformaGuion::Mensaje&) {
        if (texto1EnPrueba != "-") return;
        texto1EnPrueba = g.f().Texto1();
        aciertosEnPrueba = g.m().Aciertos(2, 1) + g.m().Aciertos(5, 1);
        for (int t = 1; t <= 6; ++t) aciertosEnPrueba += 10 * g.m().Preguntas(t, 1);
    };
    g.Tirar(1, 0);

    ASSERT_EQ(g.vistas.size(), c.listas.size() + 1);
    for (std::size_t i = 0; i < c.listas.size(); ++i) {
        EXPECT_EQ(g.vistas[i + 1].titulo, "PRUEBA FINAL") << i;
        EXPECT_EQ(g.vistas[i + 1].lista, c.listas[i]) << i;
    }
    EXPECT_EQ(g.temasPreguntados, c.elegidos);
    // La ventana no se oculta en la prueba final.
    EXPECT_EQ(g.vista.hechos, std::vector<std::string>{});
    EXPECT_EQ(texto1EnPrueba, c.gana || c.falla ? "" : "-");
    // Las preguntas de la prueba no cuentan en ninguna parte.
    if (c.gana || c.falla) {
        EXPECT_EQ(aciertosEnPrueba, 3 + 40);
    }

    std::vector<std::string> textos = g.p().TextosMensajes();
    if (c.gana) {
        ASSERT_EQ(textos.size(), 3u);
        EXPECT_EQ(textos[0], "Enhorabuena, Ha ganado la partida!!!");
        EXPECT_EQ(g.p().mensajes[0].titulo, "Sabelot");
        EXPECT_EQ(g.p().mensajes[0].estilo, 0);
        EXPECT_EQ(textos[1].substr(0, 11), "Jugador 1.\r");
        EXPECT_EQ(textos[2], "Desea jugar otra partida?");
        EXPECT_EQ(g.p().mensajes[2].titulo, "Final de partida");
        EXPECT_EQ(g.p().mensajes[2].estilo, 4);
        ASSERT_EQ(g.p().sonidos.size(), 1u);
        EXPECT_EQ(g.p().sonidos[0].first, Reproductor::MP2);
        EXPECT_EQ(g.p().sonidos[0].second, Aplauso(g, "aplauso3.wav"));
        // Otra partida: todo a cero, con las mismas opciones.
        EXPECT_EQ(g.f().PosicionFicha, (std::array<int, 7>{}));
        EXPECT_EQ(g.f().JugadorActual, 1);
        EXPECT_EQ(g.m().NumQuesitos(1), 0);
        EXPECT_FALSE(g.m().QuesitoGanado(2, 1));
        EXPECT_EQ(g.m().Preguntas(2, 1), 0);
        EXPECT_EQ(g.m().NumJugadores, 2);
        EXPECT_EQ(g.m().QuesitosParaGanar, 2);
        EXPECT_EQ(g.f().Titulo(), "SÁBELOT - Jugador 1");
        EXPECT_EQ(g.f().CasillaCursor, 0);
    } else {
        EXPECT_EQ(textos, c.falla ? std::vector<std::string>{kImposible} : std::vector<std::string>{});
        EXPECT_EQ(g.f().Texto1(), "");
        EXPECT_EQ(g.f().JugadorActual, 1);
        EXPECT_EQ(g.f().PosicionFicha[1], 0);
        EXPECT_EQ(g.m().NumQuesitos(1), 2);
        EXPECT_EQ(g.m().Preguntas(2, 1), 4);
        EXPECT_TRUE(g.p().sonidos.empty());
        EXPECT_EQ(g.p().siNo.size(), 1u);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Reglas, PruebaFinalTest,
    ::testing::Values(
        CasoFinal{"CuatroSeguidas",
                  "BBBB",
                  {1, 2, 3, 4},
                  {"1_2_3_4_5_6_", "2_3_4_5_6_", "3_4_5_6_", "4_5_6_"},
                  true,
                  false},
        CasoFinal{"CuatroADos",
                  "BMBMBB",
                  {6, 5, 4, 3, 2, 1},
                  {"1_2_3_4_5_6_", "1_2_3_4_5_", "1_2_3_4_", "1_2_3_", "1_2_", "1_"},
                  true,
                  false},
        CasoFinal{"UnoATres",
                  "BMMM",
                  {2, 4, 6, 1},
                  {"1_2_3_4_5_6_", "1_3_4_5_6_", "1_3_5_6_", "1_3_5_"},
                  false,
                  true},
        CasoFinal{
            "TresFallosSeguidos", "MMM", {1, 2, 3}, {"1_2_3_4_5_6_", "2_3_4_5_6_", "3_4_5_6_"}, false, true},
        CasoFinal{"BienMalAlternos",
                  "BMBMBM",
                  {1, 2, 3, 4, 5, 6},
                  {"1_2_3_4_5_6_", "2_3_4_5_6_", "3_4_5_6_", "4_5_6_", "5_6_", "6_"},
                  false,
                  true},
        CasoFinal{"SinPreguntaGastaLaCategoria",
                  "NBBBB",
                  {1, 2, 3, 4, 5},
                  {"1_2_3_4_5_6_", "2_3_4_5_6_", "3_4_5_6_", "4_5_6_", "5_6_"},
                  true,
                  false},
        CasoFinal{"NingunaPreguntaPosible",
                  "NNNNNN",
                  {1, 2, 3, 4, 5, 6},
                  {"1_2_3_4_5_6_", "2_3_4_5_6_", "3_4_5_6_", "4_5_6_", "5_6_", "6_"},
                  false,
                  false}),
    [](const ::testing::TestParamInfo<CasoFinal>& i) { return std::string(i.param.nombre); });

TEST(Centro, TextosDeLaPruebaFinal) {
    PartidaGuion g(1, 0);
    g.veredictos = {'B', 'M', 'M', 'M'};
    g.elecciones = {2, 6, 1, 3};
    g.f().PosicionFicha[1] = 1;
    g.Tirar(1, 0);
    ASSERT_EQ(g.vistas.size(), 5u);
    const std::string pie = "\r\nElige una opción.";
    EXPECT_EQ(g.vistas[1].texto,
              "Lleva0 preguntas acertadas de 0 preguntas realizadas y deberá acertar al menos "
              "cuatro de seis para ganar.\r\n"
              "Elija la categoría sobre la que quiere contestar a la primera pregunta:\r\n"
              " Cine \r\n Deportes y espectáculos \r\n Historia \r\n Literatura \r\n"
              " Ciencias sociales \r\n Cotilleos \r\n" +
                  pie);
    EXPECT_EQ(g.vistas[2].texto,
              "Lleva1 preguntas acertadas de 1 preguntas realizadas y deberá acertar al menos "
              "cuatro de seis para ganar.\r\n"
              "Elija la categoría sobre la que quiere contestar a la  siguiente pregunta:\r\n"
              " Cine \r\n Historia \r\n Literatura \r\n Ciencias sociales \r\n Cotilleos \r\n" +
                  pie);
    EXPECT_EQ(g.vistas[4].texto,
              "Lleva1 preguntas acertadas de 3 preguntas realizadas y deberá acertar al menos "
              "cuatro de seis para ganar.\r\n"
              "Elija la categoría sobre la que quiere contestar a la  siguiente pregunta:\r\n"
              " Historia \r\n Literatura \r\n Ciencias sociales \r\n" +
                  pie);
    EXPECT_EQ(g.vistas[4].botones,
              (std::vector<std::string>{" Historia ", " Literatura ", " Ciencias sociales "}));
    EXPECT_EQ(g.p().TextosMensajes(), std::vector<std::string>{kImposible});
}

TEST(Centro, UnaPruebaFallidaSeEmpiezaDeCeroAlVolver) {
    PartidaGuion g(1, 1);
    g.DarQuesitos(1, {4});
    g.f().PosicionFicha[1] = 1;
    g.veredictos = {'M', 'M', 'M'};
    g.elecciones = {1, 2, 3};
    g.Tirar(1, 0);
    EXPECT_EQ(g.p().TextosMensajes(), std::vector<std::string>{kImposible});
    EXPECT_EQ(g.vistas.size(), 4u);
    // Sale del centro y vuelve: otra vez las seis categorías.
    g.veredictos = {'B'};
    g.Tirar(1, 5);
    g.veredictos = {'B', 'B', 'B', 'B'};
    g.elecciones = {1, 2, 3, 4};
    g.p().siNo = {vbNo};
    EXPECT_THROW(g.Tirar(1, 0), prueba::ProgramaTerminado);
    ASSERT_GE(g.vistas.size(), 7u);
    EXPECT_EQ(g.vistas[6].lista, "1_2_3_4_5_6_");
    EXPECT_EQ(g.vistas[6].titulo, "PRUEBA FINAL");
    EXPECT_EQ(g.p().TextosMensajes().back(), "Desea jugar otra partida?");
}

// Con tantos quesitos como se piden, o más, la prueba final; quien perdió uno, pregunta normal.
TEST(Centro, LaPruebaSegunLosQuesitos) {
    const struct {
        std::vector<int> quesitos;
        std::string veredictos, titulo;
        std::vector<int> elecciones;
        int aciertos;  // en la categoría de la primera elección
    } casos[] = {{{1, 2, 3}, "MMM", "PRUEBA FINAL", {1, 2, 3}, 0}, {{1}, "B", "Casilla central", {4}, 1}};
    for (const auto& c : casos) {
        PartidaGuion g(1, 2);
        g.DarQuesitos(1, c.quesitos);
        g.f().PosicionFicha[1] = 1;
        g.veredictos.assign(c.veredictos.begin(), c.veredictos.end());
        g.elecciones.assign(c.elecciones.begin(), c.elecciones.end());
        g.Tirar(1, 0);
        EXPECT_EQ(g.vistas[1].titulo, c.titulo);
        EXPECT_EQ(g.m().Aciertos(c.elecciones[0], 1), c.aciertos);
    }
}

}  // namespace
}  // namespace sabelot

// El arranque: orden de los pasos, bienvenida, semilla y partida nueva.
#include "engine/arranque.h"

#include <gtest/gtest.h>

#include <sstream>

#include "apoyo/datos_prueba.h"
#include "apoyo/juego_prueba.h"

namespace sabelot {
namespace {

using prueba::JuegoPrueba;

const std::string kSegundaLinea =
    "Pulse Control o para modificar las opciones y F1 para ver la lista de teclas.\r\n"
    "Las categorías actualmente seleccionadas son: \r\n";
// Lo que dice el panel en una partida nueva: el centro mirando a la categoría 1.
const std::string kCentroAlEmpezar =
    "Casilla central\r\n Cine arriba\r\n Literatura  abajo \r\nizquierda / derecha girar\r\n"
    "Todas las fichas.";

// Los casos de tests/datos/bienvenida.txt.
TEST(Bienvenida, TextoSegunJugadoresYQuesitos) {
    const std::vector<std::string> filas = prueba::LineasDeDatos("bienvenida.txt");
    ASSERT_EQ(filas.size(), 6u);
    for (const std::string& fila : filas) {
        std::vector<std::string> campos;
        std::istringstream s(fila);
        for (std::string campo; std::getline(s, campo, '\t');) campos.push_back(campo);
        ASSERT_EQ(campos.size(), 4u) << fila;
        Module1 m;
        m.NumJugadores = std::stoi(campos[0]);
        m.QuesitosParaGanar = std::stoi(campos[1]);
        std::istringstream etiquetas(campos[2]);
        for (std::size_t t = 1; t <= 6; ++t) std::getline(etiquetas, m.EtiquetaTema[t], '|');
        std::string texto = campos[3];
        for (std::size_t i = texto.find('|'); i != std::string::npos; i = texto.find('|', i + 2))
            texto.replace(i, 1, "\r\n");
        EXPECT_EQ(MensajeBienvenida(m), texto) << fila;
    }
}

TEST(Arranque, SemillaDelReloj) {
    const struct {
        int h, m, s;
        std::int64_t semilla;
    } casos[] = {{0, 10, 15, 0}, {23, 59, 59, 80063}, {12, 0, 30, 0}, {10, 10, 10, 1000}};
    for (const auto& c : casos) {
        JuegoPrueba j;
        j.p.hora = c.h;
        j.p.minuto = c.m;
        j.p.segundo = c.s;
        j.Arrancar();
        EXPECT_EQ(j.p.ultimaSemilla, c.semilla) << c.h << ":" << c.m << ":" << c.s;
    }
}

TEST(Arranque, SinOpcionesNiFicherosBienvenidaYAviso) {
    JuegoPrueba j;
    j.Arrancar(false);
    ASSERT_EQ(j.p.mensajes.size(), 2u);
    EXPECT_EQ(j.p.mensajes[0].texto, "Partida de 1 jugador  que debe conseguir 0 quesitos. \r\n" +
                                         kSegundaLinea + ",\r\n,\r\n,\r\n,\r\n,\r\n.");
    EXPECT_EQ(j.p.mensajes[0].titulo, "Sábelot");
    EXPECT_EQ(j.p.mensajes[0].estilo, 0);
    EXPECT_EQ(j.p.mensajes[1].texto,
              "Alguno/s de los ficheros de preguntas seleccionados la última vez no se encuentran "
              "disponibles en estos momentos. \r\nEntre en el menú de opciones pulsando Control o y "
              "reajuste su selección de ficheros.");
    EXPECT_EQ(j.p.mensajes[1].titulo, "Atención");
    EXPECT_EQ(j.p.mensajes[1].estilo, 48);
}

TEST(Arranque, EstadoAntesDeLaPrimeraTecla) {
    JuegoPrueba j;
    prueba::PonerDatosMinimos(j.p.carpeta, 4, 3);
    // Al salir la bienvenida ya está todo: tablas, cursor y panel.
    int tablas = -1, quesitos = -1;
    std::string panel;
    j.p.alMensaje = [&](const prueba::PlataformaGuion::Mensaje&) {
        if (tablas != -1) return;
        tablas = j.m().Preguntas.Jugadores() * 1000 + j.m().Aciertos.Jugadores() * 100 +
                 j.m().QuesitoGanado.Jugadores() * 10 + j.m().NumQuesitos.Limite();
        quesitos = j.m().QuesitosParaGanar;
        panel = j.f().Texto1();
    };
    j.f().PosicionFicha = {0, 5, 6, 7, 8, 9, 10};
    j.f().JugadorActual = 3;
    j.f().LeerAnexas = false;
    j.Arrancar(false);

    EXPECT_EQ(tablas, 4444);
    EXPECT_EQ(quesitos, 3);
    EXPECT_EQ(j.p.TextosMensajes().size(), 1u);  // los seis ficheros están
    EXPECT_EQ(j.p.mensajes[0].texto.substr(0, 56),
              "Partida de 4 jugadores  que deben conseguir 3 quesitos. ");
    EXPECT_EQ(j.m().NumJugadores, 4);
    EXPECT_EQ(j.f().PosicionFicha, (std::array<int, 7>{}));
    EXPECT_EQ(j.f().JugadorActual, 1);
    EXPECT_TRUE(j.f().LeerAnexas);
    EXPECT_EQ(j.f().RumboCentro, 1);
    EXPECT_EQ(j.f().CasillaCursor, 0);
    EXPECT_EQ(j.f().CasillaPrevia, 0);
    EXPECT_EQ(j.f().CaminosPendientes, 0);
    EXPECT_EQ(j.f().Titulo(), "SÁBELOT - Jugador 1");
    EXPECT_EQ(j.f().Tablero[11].Izquierda, 37);
    EXPECT_EQ(panel, kCentroAlEmpezar);
}

TEST(Arranque, NuevaPartidaBorraElJuegoYGuardaLasOpciones) {
    JuegoPrueba j;
    prueba::PonerDatosMinimos(j.p.carpeta, 2, 4);
    j.Arrancar();
    Module1& m = j.m();
    Form1& f = j.f();
    ASSERT_EQ(m.NumJugadores, 2);
    f.PosicionFicha = {0, 11, 40, 3, 4, 5, 6};
    for (int t = 1; t <= 6; ++t) {
        for (int jug = 1; jug <= 2; ++jug) {
            m.Aciertos(t, jug) = t;
            m.Preguntas(t, jug) = t + jug;
            m.QuesitoGanado(t, jug) = true;
        }
    }
    m.NumQuesitos(1) = 6;
    m.NumQuesitos(2) = 6;
    m.MazoUsado[2] = "x";
    m.CuentaMazo[2] = 5;
    f.JugadorActual = 2;
    f.PonerTitulo("SÁBELOT - Jugador 2");
    f.CasillaCursor = 40;
    f.LeerAnexas = false;

    f.NuevaPartida();

    EXPECT_EQ(f.PosicionFicha, (std::array<int, 7>{}));
    for (int t = 1; t <= 6; ++t) {
        for (int jug = 1; jug <= 2; ++jug) {
            EXPECT_EQ(m.Aciertos(t, jug), 0);
            EXPECT_EQ(m.Preguntas(t, jug), 0);
            EXPECT_FALSE(m.QuesitoGanado(t, jug));
        }
    }
    EXPECT_EQ(m.NumQuesitos(1), 0);
    EXPECT_EQ(m.NumQuesitos(2), 0);
    EXPECT_EQ(m.Preguntas.Jugadores(), 2);
    EXPECT_EQ(m.NumJugadores, 2);
    EXPECT_EQ(m.QuesitosParaGanar, 4);
    EXPECT_EQ(m.MazoUsado[2], "x");
    EXPECT_EQ(m.CuentaMazo[2], 5);
    EXPECT_FALSE(f.LeerAnexas);
    EXPECT_EQ(f.JugadorActual, 1);
    EXPECT_EQ(f.Titulo(), "SÁBELOT - Jugador 1");
    EXPECT_EQ(f.CasillaCursor, 0);
    EXPECT_EQ(f.Texto1(), kCentroAlEmpezar);
}

}  // namespace
}  // namespace sabelot

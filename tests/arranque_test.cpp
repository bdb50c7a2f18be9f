// El arranque: orden de los pasos, bienvenida, semilla y partida nueva.
#include "engine/arranque.h"

#include <gtest/gtest.h>

#include "apoyo/juego_casos.h"

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
        const std::vector<std::string> campos = prueba::Partir(fila, '\t');
        ASSERT_EQ(campos.size(), 4u) << fila;
        Module1 m;
        m.NumJugadores = std::stoi(campos[0]);
        m.QuesitosParaGanar = std::stoi(campos[1]);
        const std::vector<std::string> etiquetas = prueba::Partir(campos[2] + "|", '|');
        for (std::size_t t = 1; t <= 6; ++t) m.EtiquetaTema[t] = etiquetas.at(t - 1);
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
    prueba::Comprobar(
        prueba::Observar(j),
        {"mensajes=2",
         "mensaje1=Partida de 1 jugador  que debe conseguir 0 quesitos. \r\n" + kSegundaLinea +
             ",\r\n,\r\n,\r\n,\r\n,\r\n.|0|Sábelot",
         "mensaje2=Alguno/s de los ficheros de preguntas seleccionados la última vez no se encuentran "
         "disponibles en estos momentos. \r\nEntre en el menú de opciones pulsando Control o y "
         "reajuste su selección de ficheros.|48|Atención"});
}

TEST(Arranque, EstadoAntesDeLaPrimeraTecla) {
    JuegoPrueba j;
    prueba::PonerDatosMinimos(j.p.carpeta, 4, 3);
    // Al salir la bienvenida ya está todo: tablas, cursor y panel.
    std::map<std::string, std::string> alAvisar;
    j.p.alMensaje = [&](const prueba::PlataformaGuion::Mensaje&) {
        if (alAvisar.empty()) alAvisar = prueba::Observar(j);
    };
    prueba::Preparar(j, "fichas=5,6,7,8,9,10;turno=3");
    j.f().LeerAnexas = false;
    j.Arrancar(false);
    prueba::Comprobar(alAvisar, {"tablas=4444", "quesitos=3", "texto=" + kCentroAlEmpezar});
    EXPECT_EQ(j.p.TextosMensajes().size(), 1u);  // los seis ficheros están
    EXPECT_EQ(j.p.mensajes[0].texto.substr(0, 56),
              "Partida de 4 jugadores  que deben conseguir 3 quesitos. ");
    prueba::Comprobar(prueba::Observar(j), {"jugadores=4", "fichas=0,0,0,0,0,0", "turno=1", "anexas=1",
                                            "rumbo=1", "cursor=0", "previa=0", "titulo=SÁBELOT - Jugador 1"});
    EXPECT_EQ(j.f().CaminosPendientes, 0);
    EXPECT_EQ(j.f().Tablero[11].Izquierda, 37);
}

TEST(Arranque, NuevaPartidaBorraElJuegoYGuardaLasOpciones) {
    JuegoPrueba j;
    prueba::PonerDatosMinimos(j.p.carpeta, 2, 4);
    j.Arrancar();
    ASSERT_EQ(j.m().NumJugadores, 2);
    prueba::Preparar(j,
                     "fichas=11,40,3,4,5,6;quesitos1=1,2,3,4,5,6;quesitos2=1,2,3,4,5,6;turno=2;cursor=40;"
                     "cuenta=1,1,1,2;cuenta=6,2,6,8");
    j.m().MazoUsado[2] = "x";
    j.m().CuentaMazo[2] = 5;
    j.f().PonerTitulo("SÁBELOT - Jugador 2");
    j.f().LeerAnexas = false;

    j.f().NuevaPartida();

    prueba::Comprobar(prueba::Observar(j),
                      {"fichas=0,0,0,0,0,0", "j1=0 0/0 0/0 0/0 0/0 0/0 0/0", "j2=0 0/0 0/0 0/0 0/0 0/0 0/0",
                       "tablas=2222", "jugadores=2", "quesitos=4", "anexas=0", "turno=1",
                       "titulo=SÁBELOT - Jugador 1", "cursor=0", "texto=" + kCentroAlEmpezar});
    EXPECT_EQ(j.m().MazoUsado[2], "x");
    EXPECT_EQ(j.m().CuentaMazo[2], 5);
}

}  // namespace
}  // namespace sabelot

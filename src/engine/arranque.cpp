// Arranque de la ventana principal y partida nueva.
#include "engine/arranque.h"

#include <cstdint>

#include "comun/texto.h"
#include "engine/form1.h"
#include "storage/opciones.h"

namespace sabelot {

std::string MensajeBienvenida(const Module1& m) {
    // Aquí no entran las etiquetas de fábrica: una vacía sale vacía.
    std::string lista = Recortar(m.EtiquetaTema[1]);
    for (int t = 2; t <= kNumTemas; ++t)
        lista += std::string(",") + CRLF + Recortar(m.EtiquetaTema[static_cast<std::size_t>(t)]);
    lista += ".";

    std::string s = "Partida de ";
    s += std::to_string(m.NumJugadores);
    s += m.NumJugadores == 1 ? " jugador " : " jugadores ";
    s += " que debe";
    s += m.NumJugadores == 1 ? " " : "n ";
    s += "conseguir ";
    s += std::to_string(m.QuesitosParaGanar);
    s += m.QuesitosParaGanar == 1 ? " quesito. " : " quesitos. ";
    s += CRLF;
    s += "Pulse Control o para modificar las opciones y F1 para ver la lista de teclas.";
    s += CRLF;
    s += "Las categorías actualmente seleccionadas son: ";
    s += CRLF;
    s += lista;
    return s;
}

void Form1::Form_Load() {
    Anuncios::Tramo tramo(p_.Voz());
    ConstruirTablero();

    // Cada factor de su propia lectura del reloj; el producto no cabe en un Integer.
    int hora = 0, minuto = 0, segundo = 0, resto1 = 0, resto2 = 0;
    p_.Hora(hora, resto1, resto2);
    p_.Hora(resto1, minuto, resto2);
    p_.Hora(resto1, resto2, segundo);
    p_.Randomize(static_cast<std::int64_t>(hora) * minuto * segundo);

    LeerAnexas = true;
    for (int i = 1; i <= kMaxJugadores; ++i) Ficha(i) = 0;
    m_.NumJugadores = 1;
    JugadorActual = 1;
    PonerTitulo(TituloJugador(JugadorActual));

    // Las opciones pueden cambiar el número de jugadores: las tablas van después.
    LeerOpciones(m_, p_, canales_);
    m_.DimensionarTablas(m_.NumJugadores);

    RumboCentro = 1;
    CasillaCursor = 0;
    CasillaPrevia = 0;
    int posicion = 0, rumbo = 1;
    DescribirCasilla(posicion, rumbo);

    p_.MsgBox(MensajeBienvenida(m_), vbOKOnly, "Sábelot");

    if (FaltanFicheros()) {
        p_.MsgBox(std::string("Alguno/s de los ficheros de preguntas seleccionados la última vez no "
                              "se encuentran disponibles en estos momentos. ") +
                      CRLF +
                      "Entre en el menú de opciones pulsando Control o y reajuste su selección de "
                      "ficheros.",
                  vbExclamation, "Atención");
    }
}

void Form1::NuevaPartida() {
    // Las tablas guardan su tamaño; solo se borra lo que cabe en ellas.
    for (int i = 1; i <= kMaxJugadores; ++i) {
        Ficha(i) = 0;
        if (i <= m_.NumQuesitos.Limite()) m_.NumQuesitos(i) = 0;
        for (int j = 1; j <= m_.Preguntas.Jugadores(); ++j) {
            if (j <= m_.QuesitoGanado.Jugadores()) m_.QuesitoGanado(i, j) = false;
            m_.Preguntas(i, j) = 0;
            if (j <= m_.Aciertos.Jugadores()) m_.Aciertos(i, j) = 0;
        }
    }
    JugadorActual = 1;
    PonerTitulo(TituloJugador(JugadorActual));
    CasillaCursor = 0;
    DescribirCasilla();
}

}  // namespace sabelot

// El tablero: una rueda de 79 casillas que se calcula en cada arranque.
#include "engine/form1.h"

namespace sabelot {

namespace {

// La categoría que sigue a t, dando la vuelta de 6 a 1.
int TemaSiguiente(int t) { return t + 1 > kNumTemas ? t + 1 - kNumTemas : t + 1; }

}  // namespace

void Form1::ConstruirTablero() {
    Tablero = TableroJuego{};

    Tablero[0].EsCentro = true;

    // Primera casilla de cada radio: el radio s empieza en la casilla s.
    for (int s = 1; s <= 6; ++s) {
        Tablero[static_cast<std::size_t>(s)].Numero = s;
        Tablero[static_cast<std::size_t>(s)].Tema = s;
    }

    // Radios: cinco casillas más hacia fuera, con el quesito en la última.
    int n = 6;
    for (int s = 1; s <= 6; ++s) {
        Casilla w = Tablero[static_cast<std::size_t>(s)];
        Tablero[static_cast<std::size_t>(s)].Abajo = n + 1;
        for (int j = 1; j <= 5; ++j) {
            w.Arriba = w.Numero;
            w.Numero = n + 1;
            w.Tema = TemaSiguiente(w.Tema);
            if (j < 5) w.Abajo = n + 2;
            if (j == 5) {
                w.EsQuesito = true;
                w.Abajo = 0;
            }
            Tablero[static_cast<std::size_t>(n + 1)] = w;
            ++n;
        }
    }

    // Anillo: siete casillas entre cada quesito y el siguiente, hacia la izquierda.
    for (int v = 0; v <= 5; ++v) {
        const int q = 11 + 5 * v;
        Casilla& quesito = Tablero[static_cast<std::size_t>(q)];
        if (v > 0) quesito.Derecha = n;
        quesito.Izquierda = n + 1;
        Casilla w = quesito;
        w.Arriba = 0;
        int t = w.Tema;
        for (int k = 1; k <= 7; ++k) {
            w.EsQuesito = false;
            w.EsDados = false;
            w.Derecha = w.Numero;
            w.Numero = n + 1;
            if (k == 7)
                w.Izquierda = v == 5 ? 11 : 11 + 5 * (v + 1);
            else
                w.Izquierda = n + 2;
            t = TemaSiguiente(t);
            w.Tema = t;
            if (k == 2 || k == 6) {
                w.EsDados = true;
                w.Tema = 8;
            }
            Tablero[static_cast<std::size_t>(n + 1)] = w;
            // Las casillas de dados no gastan categoría.
            const int tq = Tablero[static_cast<std::size_t>(q)].Tema;
            if (k == 2) t = TemaSiguiente(tq);
            if (k == 6) t = tq + 4 > kNumTemas ? tq + 4 - kNumTemas : tq + 4;
            ++n;
        }
    }

    // El primer quesito no pudo cerrar el anillo por la derecha.
    Tablero[11].Derecha = n;
}

}  // namespace sabelot

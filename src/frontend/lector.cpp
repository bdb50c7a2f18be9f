// El lector del tablero: cuenta con palabras la casilla en que se para el cursor.
#include "engine/form1.h"

namespace sabelot {

namespace {

// El radio de enfrente del radio s, en el centro.
int Opuesto(int s) { return s + 3 > 6 ? s - 3 : s + 3; }

}  // namespace

std::string Form1::NombreTema(int& Tema) {
    static const char* const kPropias[9] = {
        "",
        " Cine ",
        " Deportes y espectáculos ",
        " Historia ",
        " Literatura ",
        " Ciencias sociales ",
        " Cotilleos ",
        " Casilla central ",
        " casilla de dados ",
    };
    // Así es como el tema del centro pasa de 0 a 7 la primera vez que se nombra.
    if (Tema == 0 || Tema == -1) Tema = 7;
    if (Tema < 1 || Tema > 8) return "";
    if (Tema <= kNumTemas && !m_.EtiquetaTema[static_cast<std::size_t>(Tema)].empty()) {
        return m_.EtiquetaTema[static_cast<std::size_t>(Tema)];
    }
    return kPropias[Tema];
}

void Form1::DescribirCasilla() {
    int posicion = -1;
    int rumbo = -1;
    DescribirCasilla(posicion, rumbo);
}

void Form1::DescribirCasilla(int& Posicion, int& Rumbo) {
    if (Posicion == -1) Posicion = CasillaCursor;
    if (Posicion < 0 || Posicion > kUltimaCasilla) return;

    std::string t;
    if (Posicion == 0) {
        t = "Casilla central";
        t += CRLF;
        // Siempre el radio al que mira el jugador: así lo que se oye y lo que hacen
        // Arriba y Abajo coinciden, llegue como llegue el cursor al centro.
        Rumbo = RumboCentro >= 1 && RumboCentro <= 6 ? RumboCentro : 1;
        CasillaPrevia = 0;
        t += NombreTema(Tablero[static_cast<std::size_t>(Rumbo)].Tema) + "arriba" + CRLF;
        t += NombreTema(Tablero[static_cast<std::size_t>(Opuesto(Rumbo))].Tema) + " abajo " + CRLF;
        t += "izquierda / derecha girar";
    } else {
        Casilla& s = Tablero[static_cast<std::size_t>(Posicion)];
        if (s.EsDados) {
            t = "Casilla de dados";
        } else if (s.EsQuesito) {
            t = "Quesito de " + NombreTema(s.Tema);
        } else {
            // Las etiquetas de las opciones no traen blanco delante; sin él el lector
            // de pantalla juntaría dos palabras en una.
            std::string etiqueta = NombreTema(s.Tema);
            t = "Casilla de";
            if (!etiqueta.empty() && etiqueta.front() != ' ') t += ' ';
            t += etiqueta;
        }
        t += CRLF;
        if (LeerAnexas) {
            // Sobre las casillas 1 a 6 el centro (0) es un enlace de verdad.
            if (s.Arriba > 0 || (s.Arriba == 0 && s.Abajo > 0)) {
                t += NombreTema(Tablero[static_cast<std::size_t>(s.Arriba)].Tema) + "arriba" + CRLF;
            }
            auto vecina = [&](int n, const char* palabra) {
                Casilla& v = Tablero[static_cast<std::size_t>(n)];
                if (v.EsQuesito) t += " quesito de ";
                t += NombreTema(v.Tema) + palabra;
            };
            if (s.Derecha > 0) {
                vecina(s.Derecha, "derecha");
                t += CRLF;
            }
            if (s.Abajo > 0) {
                vecina(s.Abajo, "abajo");
                t += CRLF;
            }
            if (s.Izquierda > 0) vecina(s.Izquierda, "izquierda");
        }
    }

    bool todasEnCentro = true;
    for (int i = 1; i <= kMaxJugadores; ++i) {
        if (PosicionFicha[static_cast<std::size_t>(i)] != 0) todasEnCentro = false;
    }
    if (Posicion == 0 && todasEnCentro) {
        t += CRLF;
        t += "Todas las fichas.";
    } else {
        for (int i = 1; i <= m_.NumJugadores && i <= kMaxJugadores; ++i) {
            if (PosicionFicha[static_cast<std::size_t>(i)] == Posicion) {
                t += CRLF;
                t += "Ficha del jugador " + std::to_string(i);
            }
        }
    }
    PonerTexto1(t);
}

}  // namespace sabelot

#include "frontend/lector.h"

namespace sabelot {

std::string NombreTema(const Module1& m, int& Tema) {
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
    if (Tema == 0 || Tema == -1) Tema = 7;
    if (Tema < 1 || Tema > 8) return "";
    if (Tema <= kNumTemas && !m.EtiquetaTema[static_cast<std::size_t>(Tema)].empty())
        return m.EtiquetaTema[static_cast<std::size_t>(Tema)];
    return kPropias[Tema];
}

std::string TextoCasilla(CamposForm1& f, const Module1& m, int& Posicion, int& Rumbo) {
    if (Posicion == -1) Posicion = f.CasillaCursor;
    if (Posicion < 0 || Posicion > kUltimaCasilla) return "";

    std::string t;
    if (Posicion == 0) {
        t = "Casilla central";
        t += CRLF;
        // Siempre el radio al que mira el jugador: así lo que se oye y lo que hacen
        // Arriba y Abajo coinciden, llegue como llegue el cursor al centro.
        Rumbo = f.RumboCentro >= 1 && f.RumboCentro <= 6 ? f.RumboCentro : 1;
        f.CasillaPrevia = 0;
        t += NombreTema(m, f.En(Rumbo).Tema) + "arriba" + CRLF;
        t += NombreTema(m, f.En(RadioOpuesto(Rumbo)).Tema) + " abajo " + CRLF;
        t += "izquierda / derecha girar";
    } else {
        Casilla& s = f.En(Posicion);
        if (s.EsDados) {
            t = "Casilla de dados";
        } else if (s.EsQuesito) {
            t = "Quesito de " + NombreTema(m, s.Tema);
        } else {
            // Las etiquetas de las opciones no traen blanco delante; sin él el lector
            // de pantalla juntaría dos palabras en una.
            const std::string etiqueta = NombreTema(m, s.Tema);
            t = "Casilla de";
            if (!etiqueta.empty() && etiqueta.front() != ' ') t += ' ';
            t += etiqueta;
        }
        t += CRLF;
        if (f.LeerAnexas) {
            if (TieneArriba(s)) t += NombreTema(m, f.En(s.Arriba).Tema) + "arriba" + CRLF;
            auto vecina = [&](int n, const char* palabra) {
                Casilla& v = f.En(n);
                if (v.EsQuesito) t += " quesito de ";
                t += NombreTema(m, v.Tema) + palabra;
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
        if (f.Ficha(i) != 0) todasEnCentro = false;
    }
    if (Posicion == 0 && todasEnCentro) {
        t += CRLF;
        t += "Todas las fichas.";
    } else {
        for (int i = 1; i <= m.NumJugadores && i <= kMaxJugadores; ++i) {
            if (f.Ficha(i) == Posicion) {
                t += CRLF;
                t += "Ficha del jugador " + std::to_string(i);
            }
        }
    }
    return t;
}

}  // namespace sabelot

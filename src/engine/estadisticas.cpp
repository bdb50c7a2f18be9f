// El informe del jugador en turno: quesitos y aciertos por categoría.
#include <cmath>

#include "engine/form1.h"

namespace sabelot {

void Form1::MostrarEstadisticas() {
    const int j = JugadorActual;
    const int quesitos = m_.NumQuesitos(j);

    std::string s = "Jugador " + std::to_string(j) + "." + CRLF;
    if (quesitos == 0) {
        s += "De momento no tienes ningún quesito.";
    } else {
        s += quesitos == 1 ? "Tienes un quesito: " : "Tienes " + std::to_string(quesitos) + " quesitos: ";
        std::string lista;
        for (int i = 1; i <= kNumTemas; ++i)
            if (m_.QuesitoGanado(i, j)) lista += NombreTema(i) + ", ";
        // La última coma pasa a punto; el blanco de detrás se queda.
        if (!lista.empty()) lista[lista.size() - 2] = '.';
        s += lista;
    }
    s += std::string(CRLF) + CRLF + "Además, tus estadísticas de aciertos son: " + CRLF;

    for (int i = 1; i <= kNumTemas; ++i) {
        const int aciertos = m_.Aciertos(i, j);
        const int preguntas = m_.Preguntas(i, j);
        s += NombreTema(i) + ": " + std::to_string(aciertos) + "/" + std::to_string(preguntas) + " ";
        if (preguntas > 0) {
            // Al entero más cercano y, en la mitad justa, al par: 12,5 da 12 y 37,5 da 38.
            const double porcentaje = static_cast<double>(aciertos) / preguntas * 100;
            s += " (" + std::to_string(static_cast<long long>(std::nearbyint(porcentaje))) + "%) ";
        }
        s += CRLF;
    }

    p_.MsgBox(s, vbOKOnly, kTituloPrograma);
}

}  // namespace sabelot

// La casilla central: una pregunta a elegir o, con los quesitos que hacen falta,
// la prueba final.
#include <array>

#include "engine/form1.h"
#include "frontend/dialog.h"

namespace sabelot {

void Form1::PreguntaDelCentro() {
    std::string texto = std::string("Elija sobre qué categoría quiere que se le haga la pregunta:") + CRLF;
    m_.ListaValores.clear();
    for (int i = 1; i <= kNumTemas; ++i) {
        texto += NombreTema(i) + CRLF;
        m_.ListaValores += std::to_string(i) + "_";
    }
    dialog_.ValorEnDado = kElegirEnElCentro;
    dialog_.Mensaje = texto;
    p_.MostrarDialog(dialog_);
    const int tema = m_.ValorElegido;
    if (tema < 1 || tema > kNumTemas) return;

    bool correcta = false;
    if (!Preguntar(tema, true, correcta)) return;
    ContarRespuesta(tema, correcta);
    if (correcta) {
        PonerTexto1("Muy bien, sigue  así.");
        return;
    }
    PonerTexto1("Fallaste, pierdes el turno.");
    PasarTurno(true);
}

void Form1::PruebaFinal() {
    if (m_.NumQuesitos(JugadorActual) < m_.QuesitosParaGanar) {
        PreguntaDelCentro();
        return;
    }

    // La prueba final: cuatro aciertos antes de tres fallos, una pregunta por categoría.
    // No cuenta en las estadísticas ni da ni quita quesitos.
    std::array<bool, kNumTemas + 1> temaUsado{};
    int preguntasPrueba = 0;
    int aciertosPrueba = 0;
    PonerTexto1("");
    dialog_.ValorEnDado = kElegirEnLaPruebaFinal;

    for (;;) {
        std::string texto = "Lleva" + std::to_string(aciertosPrueba) + " preguntas acertadas de " +
                            std::to_string(preguntasPrueba) +
                            " preguntas realizadas y deberá acertar al menos cuatro de seis para ganar." +
                            CRLF + "Elija la categoría sobre la que quiere contestar a la " +
                            (preguntasPrueba == 0 ? "primera pregunta:" : " siguiente pregunta:") + CRLF;
        m_.ListaValores.clear();
        for (int i = 1; i <= kNumTemas; ++i) {
            if (temaUsado[static_cast<std::size_t>(i)]) continue;
            texto += NombreTema(i) + CRLF;
            m_.ListaValores += std::to_string(i) + "_";
        }
        // Solo se agotan las categorías si alguna no pudo dar pregunta: se deja así.
        if (m_.ListaValores.empty()) return;

        dialog_.Mensaje = texto;
        p_.MostrarDialog(dialog_);
        const int tema = m_.ValorElegido;
        if (tema < 1 || tema > kNumTemas || temaUsado[static_cast<std::size_t>(tema)]) return;
        temaUsado[static_cast<std::size_t>(tema)] = true;

        bool correcta = false;
        // La ventana principal se queda a la vista durante toda la prueba.
        if (!Preguntar(tema, false, correcta)) continue;
        if (correcta) ++aciertosPrueba;
        ++preguntasPrueba;

        if (preguntasPrueba - aciertosPrueba >= 3) {
            p_.MsgBox(
                "Con este error se hace imposible superar la prueba. Deje la casilla central y "
                "vuelva de nuevo a ella para intentarlo otra vez.",
                vbOKOnly, kTituloPrograma);
            return;
        }
        if (aciertosPrueba >= 4) break;
    }

    p_.Reproducir(Reproductor::MP2, Ruta(p_.CarpetaPrograma(), {"sonidos", "aplauso3.wav"}));
    p_.MsgBox("Enhorabuena, Ha ganado la partida!!!", vbOKOnly, kTituloPrograma);
    MostrarEstadisticas();
    if (p_.MsgBox("Desea jugar otra partida?", vbYesNo, "Final de partida") == vbYes)
        NuevaPartida();
    else
        p_.TerminarPrograma();
}

}  // namespace sabelot

// La casilla central: una pregunta a elegir o, con los quesitos que hacen falta,
// la prueba final.
#include <array>

#include "engine/form1.h"
#include "engine/turno.h"
#include "frontend/dialog.h"
#include "questions/dialog1.h"

namespace sabelot {

void Form1::PruebaFinal() {
    const int j = JugadorActual;

    if (m_.NumQuesitos(j) < m_.QuesitosParaGanar) {
        // Aún faltan quesitos: una pregunta normal de la categoría que elija.
        std::string texto =
            std::string("Elija sobre qué categoría quiere que se le haga la pregunta:") + CRLF;
        m_.ListaValores.clear();
        for (int i = 1; i <= kNumTemas; ++i) {
            texto += NombreTema(i) + CRLF;
            m_.ListaValores += std::to_string(i) + "_";
        }
        dialog_.ValorEnDado = -1;
        dialog_.Mensaje = texto;
        p_.MostrarDialog(dialog_);
        const int tema = m_.ValorElegido;
        if (tema < 1 || tema > kNumTemas) return;

        dialog1_.NTema = tema;
        dialog1_.SinPregunta = false;
        Ocultar();
        p_.MostrarDialog1(dialog1_);
        Mostrar();
        if (dialog1_.SinPregunta) return;

        if (dialog1_.RespuestaCorrecta) {
            ++m_.Aciertos(tema, j);
            ++m_.Preguntas(tema, j);
            PonerTexto1("Muy bien, sigue  así.");
            return;
        }
        ++m_.Preguntas(tema, j);
        PonerTexto1("Fallaste, pierdes el turno.");
        ++JugadorActual;
        if (JugadorActual > m_.NumJugadores) JugadorActual = 1;
        PonerTitulo(TituloJugador(JugadorActual));
        PonerTexto1(Texto1() + LineaTurno(JugadorActual));
        CasillaCursor = PosicionFicha[static_cast<std::size_t>(JugadorActual)];
        return;
    }

    // La prueba final: cuatro aciertos antes de tres fallos, una pregunta por categoría.
    std::array<bool, kNumTemas + 1> temaUsado{};
    int preguntasPrueba = 0;
    int aciertosPrueba = 0;
    PonerTexto1("");
    dialog_.ValorEnDado = -2;

    for (;;) {
        std::string texto = "Lleva" + std::to_string(aciertosPrueba) +
                            " preguntas acertadas de " + std::to_string(preguntasPrueba) +
                            " preguntas realizadas y deberá acertar al menos cuatro de seis para "
                            "ganar." +
                            CRLF + "Elija la categoría sobre la que quiere contestar a la " +
                            (preguntasPrueba == 0 ? "primera pregunta:" : " siguiente pregunta:") +
                            CRLF;
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

        dialog1_.NTema = tema;
        dialog1_.SinPregunta = false;
        p_.MostrarDialog1(dialog1_);
        if (dialog1_.SinPregunta) continue;

        if (dialog1_.RespuestaCorrecta) ++aciertosPrueba;
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

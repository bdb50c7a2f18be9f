// Una pregunta en una casilla de categoría o de quesito, y lo que sigue a la respuesta.
#include "engine/form1.h"
#include "engine/turno.h"
#include "questions/dialog1.h"

namespace sabelot {

void Form1::HacerPregunta(int Tema) {
    dialog1_.NTema = Tema;
    dialog1_.SinPregunta = false;
    Ocultar();
    p_.MostrarDialog1(dialog1_);
    Mostrar();
    // Sin pregunta no hay nada que contar: el jugador vuelve a tirar.
    if (dialog1_.SinPregunta) return;
    const bool correcta = dialog1_.RespuestaCorrecta;

    const int j = JugadorActual;
    const Casilla& c = Tablero[static_cast<std::size_t>(CasillaCursor)];

    if (correcta) {
        ++m_.Aciertos(Tema, j);
        ++m_.Preguntas(Tema, j);
        PonerTexto1("Muy bien, sigue  así.");
        if (!c.EsQuesito) return;
        if (m_.QuesitoGanado(c.Tema, j)) {
            PonerTexto1(std::string("Has acertado manteniendo este quesito") + CRLF + Texto1());
            return;
        }
        m_.QuesitoGanado(c.Tema, j) = true;
        ++m_.NumQuesitos(j);
        p_.Reproducir(Reproductor::MP2, Ruta(p_.CarpetaPrograma(), {"sonidos", "aplauso1.wav"}));
        std::string texto =
            "Has conseguido este quesito y ya tienes " + std::to_string(m_.NumQuesitos(j)) + "!! ";
        const int faltan = m_.QuesitosParaGanar - m_.NumQuesitos(j);
        if (faltan == 0) texto += std::string(CRLF) + "Ahora ve al centro para ganar!";
        if (faltan == 1)
            texto += std::string(CRLF) + " consigue uno más y podrás ir al centro para ganar.";
        p_.MsgBox(texto, vbOKOnly, "Sábelot");
        return;
    }

    ++m_.Preguntas(Tema, j);
    PonerTexto1("Fallaste, pierdes el turno.");
    if (c.EsQuesito) {
        if (!m_.QuesitoGanado(c.Tema, j)) {
            PonerTexto1(
                "Fallaste: has desaprovechado la ocasión de conseguir el quesito y ahora ya no es "
                "tu turno.");
        } else {
            m_.QuesitoGanado(c.Tema, j) = false;
            --m_.NumQuesitos(j);
            const int quedan = m_.NumQuesitos(j);
            std::string texto = "Al fallar esa pregunta has perdido este quesito que ya tenías.";
            if (quedan == 0)
                texto += " y vuelves a estar como al principio, sin ningún quesito";
            else if (quedan == 1)
                texto += " y sólo te queda uno";
            else
                texto += " y sólo te quedan " + std::to_string(quedan);
            texto += " Ten más cuidado la próxima vez";
            p_.MsgBox(texto, vbOKOnly, kTituloPrograma);
        }
    }

    // Pasa el turno; el título se pone al día con la próxima tecla.
    ++JugadorActual;
    if (JugadorActual > m_.NumJugadores) JugadorActual = 1;
    PonerTexto1(Texto1() + LineaTurno(JugadorActual));
    CasillaCursor = PosicionFicha[static_cast<std::size_t>(JugadorActual)];
}

}  // namespace sabelot

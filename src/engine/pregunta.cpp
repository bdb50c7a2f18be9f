// Una pregunta en una casilla de categoría o de quesito, y lo que sigue a la respuesta.
#include "engine/form1.h"
#include "questions/dialog1.h"

namespace sabelot {

bool Form1::Preguntar(int Tema, bool ocultarVentana, bool& correcta) {
    dialog1_.NTema = Tema;
    dialog1_.SinPregunta = false;
    if (ocultarVentana) Ocultar();
    p_.MostrarDialog1(dialog1_);
    if (ocultarVentana) Mostrar();
    correcta = dialog1_.RespuestaCorrecta;
    return !dialog1_.SinPregunta;
}

void Form1::ContarRespuesta(int Tema, bool correcta) {
    if (correcta) ++m_.Aciertos(Tema, JugadorActual);
    ++m_.Preguntas(Tema, JugadorActual);
}

void Form1::PasarTurno(bool conTitulo) {
    ++JugadorActual;
    if (JugadorActual > m_.NumJugadores) JugadorActual = 1;
    if (conTitulo) PonerTitulo(TituloJugador(JugadorActual));
    AnadirTexto1(std::string(CRLF) + "Turno del jugador " + std::to_string(JugadorActual) +
                 ". Pulsa espacio para lanzar los dados.");
    CasillaCursor = Ficha(JugadorActual);
}

void Form1::HacerPregunta(int Tema) {
    bool correcta = false;
    // Sin pregunta no hay nada que contar: el jugador vuelve a tirar.
    if (!Preguntar(Tema, true, correcta)) return;
    ContarRespuesta(Tema, correcta);

    const int j = JugadorActual;
    const Casilla& c = En(CasillaCursor);
    if (correcta) {
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
        if (faltan == 1) texto += std::string(CRLF) + " consigue uno más y podrás ir al centro para ganar.";
        p_.MsgBox(texto, vbOKOnly, "Sábelot");
        return;
    }

    PonerTexto1("Fallaste, pierdes el turno.");
    if (c.EsQuesito && !m_.QuesitoGanado(c.Tema, j)) {
        PonerTexto1(
            "Fallaste: has desaprovechado la ocasión de conseguir el quesito y ahora ya no es "
            "tu turno.");
    } else if (c.EsQuesito) {
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
    // El título se pone al día con la próxima tecla.
    PasarTurno(false);
}

}  // namespace sabelot

#include "questions/dialog1.h"

#include "comun/teclas.h"
#include "comun/texto.h"
#include "storage/canales.h"

namespace sabelot {

void Dialog1::Form_Activate() {
    FalloApertura = false;
    SinPregunta = false;
    int hora = 0, minuto = 0, segundo = 0;
    p_.Hora(hora, minuto, segundo);
    // Puede valer 0, y pasar de lo que cabe en 16 bits: las dos cosas valen.
    p_.Randomize(static_cast<std::int64_t>(hora) * minuto * segundo);
    if (NTema < 1 || NTema > kNumTemas) NTema = 1;
    const auto t = static_cast<std::size_t>(NTema);
    Titulo = "Pregunta de " + m_.EtiquetaTema[t];
    Refrescar();
    if (m_.TotalMazo[t] == 0) ContarPreguntas();
    AbrirFichero(false, true);
    if (!FalloApertura) LeerPregunta();
    if (FalloApertura) {
        // Sin pregunta no hay nada que juzgar: el diálogo se cierra ya y no cuenta nada.
        SinPregunta = true;
        RespuestaCorrecta = false;
        Ocultar();
    }
}

void Dialog1::MostrarPregunta() {
    Titulo = Titulo + "." + CRLF + Pregunta;
    Text1 = "  " + Pregunta;
    Text2 = "1. " + Respuesta(1);
    IndiceActual = 1;
    // Desde el segundo carácter: el lector de pantalla empieza por la pregunta. La selección
    // cuenta caracteres, no bytes.
    Text1SelStart = 1;
    Text1SelLength = Caracteres(Text1) - 1;
    Refrescar();
}

void Dialog1::Text2_KeyDown(int& KeyCode, int /*Shift*/) {
    Anuncios::Tramo tramo(p_.Voz());
    switch (KeyCode) {
        case vbKeyDown:
            if (IndiceActual < NumRespuestas()) {
                ++IndiceActual;
            } else {
                p_.Beep();
                IndiceActual = 1;
            }
            break;
        case vbKeyUp:
            if (IndiceActual > 1) {
                --IndiceActual;
            } else {
                p_.Beep();
                IndiceActual = NumRespuestas();
            }
            break;
        case vbKeyReturn:
        case vbKeySpace: Juzgar(); return;
        default:
            // Lo demás no hace nada; lo que va por debajo de 32 lo lleva la ventana.
            if (KeyCode >= vbKeySpace) KeyCode = 0;
            return;
    }
    if (IndiceActual < 1 || IndiceActual > NumRespuestas()) IndiceActual = 1;
    Text2 = std::to_string(IndiceActual) + ". " + Respuesta(IndiceActual);
    Refrescar();
    // Cada paso se dice, aunque sea la misma respuesta de antes: el jugador pulsó una tecla.
    p_.Voz().Decir(Text2);
}

void Dialog1::Text2_KeyPress(int& KeyAscii) { KeyAscii = 0; }

void Dialog1::Juzgar() {
    // Se comparan números: la respuesta en pantalla con la correcta del registro.
    std::string texto;
    if (IndiceActual == IndiceCorrecto) {
        texto = "respuesta correcta";
        if (!Comentario.empty()) texto += "." + std::string(CRLF) + Comentario;
        p_.MsgBox(texto, vbOKOnly, kTituloPrograma);
        RespuestaCorrecta = true;
    } else {
        texto = "La respuesta correcta era ";
        if (IndiceCorrecto >= 1 && IndiceCorrecto <= NumRespuestas()) texto += Respuesta(IndiceCorrecto);
        p_.MsgBox(texto, vbOKOnly, kTituloPrograma);
        RespuestaCorrecta = false;
    }
    if (NTema >= 1 && NTema <= kNumTemas) m_.CuentaMazo[static_cast<std::size_t>(NTema)] += 1;
    Ocultar();
}

void Dialog1::Ocultar() {
    Visible = false;
    if (vista_) vista_->Ocultar();
}

void Dialog1::Refrescar() {
    if (vista_) vista_->Refrescar();
}

}  // namespace sabelot

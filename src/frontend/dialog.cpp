// Dialog: el jugador elige con un botón entre las opciones que le manda el motor.
#include "frontend/dialog.h"

#include <algorithm>
#include <cassert>

namespace sabelot {

namespace {

// El valor de un trozo de la lista: blancos delante, signo y cifras; lo demás se ignora.
int Valor(const std::string& s) {
    std::size_t i = 0;
    while (i < s.size() && s[i] == ' ') ++i;
    bool negativo = false;
    if (i < s.size() && (s[i] == '-' || s[i] == '+')) negativo = s[i++] == '-';
    long v = 0;
    for (; i < s.size() && s[i] >= '0' && s[i] <= '9'; ++i) {
        v = v * 10 + (s[i] - '0');
        if (v > 32767) v = 32767;  // nunca llega: son casillas y categorías
    }
    return static_cast<int>(negativo ? -v : v);
}

constexpr int kBotones = 7;

}  // namespace

void Dialog::Form_Load() {
    // Cada carga empieza como el formulario recién hecho; los campos se conservan.
    Titulo = "Mover ficha";
    Text1.clear();
    Command1.fill(Boton{});
    Foco = -1;
    Cargado = true;
    if (vista_) vista_->Refrescar();
}

void Dialog::Form_Activate() {
    m_.ValorElegido = -1;
    if (Mensaje.empty()) {
        Descargar();
        p_.Beep();
        return;
    }

    if (ValorEnDado >= 1)
        Titulo = std::to_string(ValorEnDado);
    else if (ValorEnDado == kElegirEnElCentro)
        Titulo = "Casilla central";
    else if (ValorEnDado == kElegirEnLaPruebaFinal)
        Titulo = "PRUEBA FINAL";

    Text1 = Mensaje + CRLF + "Elige una opción.";
    if (vista_) vista_->Refrescar();

    AnalizarMensaje();
    // Sin los dos puntos no hay opciones que poner: el diálogo ya pidió cerrarse.
    if (Mensaje.find(':') == std::string::npos) return;
    ColocarBotones();
    if (vista_) vista_->Refrescar();
}

void Dialog::AnalizarMensaje() {
    // Valores: uno por cada "_" de la lista.
    const std::string& lista = m_.ListaValores;
    int valores = 0;
    std::size_t cursor = 0;
    for (std::size_t fin = lista.find('_', cursor); fin != std::string::npos; fin = lista.find('_', cursor)) {
        if (valores < kBotones)
            ValorOpcion[static_cast<std::size_t>(valores)] = Valor(lista.substr(cursor, fin - cursor));
        ++valores;
        cursor = fin + 1;
    }
    NumOpciones = valores;

    const std::size_t dosPuntos = Mensaje.find(':');
    if (dosPuntos == std::string::npos) {
        p_.MsgBox("Error: no se envió el texto del mensaje", vbOKOnly, kTituloPrograma);
        Descargar();
        return;
    }

    // Textos: una línea por opción detrás de los dos puntos y su salto de línea.
    const int caben = std::min(valores, kBotones);
    int textos = 0;
    cursor = dosPuntos + 3;
    while (textos < caben && cursor <= Mensaje.size()) {
        const std::size_t lf = Mensaje.find('\n', cursor);
        if (lf == std::string::npos) break;
        std::size_t fin = lf;
        if (fin > cursor && Mensaje[fin - 1] == '\r') --fin;
        TextoOpcion[static_cast<std::size_t>(textos)] = Mensaje.substr(cursor, fin - cursor);
        ++textos;
        cursor = lf + 1;
    }

    // Ningún llamador manda 0 opciones, más de siete o menos líneas que valores.
    assert(valores >= 1 && valores <= kBotones && "Dialog: número de opciones fuera de 1 a 7");
    assert(textos == caben && "Dialog: faltan líneas de opciones en el mensaje");
    // Si llega, se enseñan los botones que tienen valor y texto.
    if (valores > 0) NumOpciones = textos;
}

void Dialog::ColocarBotones() {
    const int n = std::min(NumOpciones, kBotones);
    // Con ninguna opción no se toca ningún botón.
    if (n <= 0) return;

    auto ocultar = [this](int i) {
        Command1[static_cast<std::size_t>(i)].Visible = false;
        Command1[static_cast<std::size_t>(i)].Enabled = false;
    };

    if (n == 2) {
        // Dos opciones a izquierda y derecha de la primera fila; el centro, vacío.
        Command1[1].Caption = TextoOpcion[0];
        Command1[2].Caption = TextoOpcion[1];
        ValorOpcion[2] = ValorOpcion[1];
        ValorOpcion[1] = ValorOpcion[0];
        ocultar(0);
        for (int i = 3; i < kBotones; ++i) ocultar(i);
        Foco = 1;
        return;
    }

    for (int i = 0; i < n; ++i)
        Command1[static_cast<std::size_t>(i)].Caption = TextoOpcion[static_cast<std::size_t>(i)];
    for (int i = n; i < kBotones; ++i) ocultar(i);
    Foco = 0;
}

void Dialog::Command1_Click(int Index) {
    if (Index < 0 || Index >= kBotones) return;
    const Boton& b = Command1[static_cast<std::size_t>(Index)];
    if (!b.Visible || !b.Enabled) return;
    m_.ValorElegido = ValorOpcion[static_cast<std::size_t>(Index)];
    Descargar();
}

bool Dialog::Form_QueryUnload() {
    if (m_.ValorElegido != -1) return false;
    if (p_.MsgBox("¿Realmente desea abandonar el juego?", vbYesNo, kTituloPrograma) == vbYes)
        p_.TerminarPrograma();
    return true;
}

// Descargarse pasa por la pregunta de cierre, como cualquier cierre del formulario.
void Dialog::Descargar() {
    if (Form_QueryUnload()) return;
    Cargado = false;
    if (vista_) vista_->Descargar();
}

}  // namespace sabelot

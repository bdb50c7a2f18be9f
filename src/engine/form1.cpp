// Lo común de Form1: construcción, texto del panel y título.
#include "engine/form1.h"

#include "storage/canales.h"

namespace sabelot {

std::string TituloJugador(int jugador) {
    return "SÁBELOT - Jugador " + std::to_string(jugador);
}

Form1::Form1(Module1& m, Plataforma& p, Canales& canales, Dialog& dialog, Dialog1& dialog1,
             DlgOpciones& opciones)
    : m_(m), p_(p), canales_(canales), dialog_(dialog), dialog1_(dialog1), opciones_(opciones) {}

void Form1::PonerTexto1(const std::string& texto) {
    texto1_ = texto;
    if (vista_) vista_->PonerTexto1(texto1_);
}

void Form1::PonerTitulo(const std::string& titulo) {
    titulo_ = titulo;
    if (vista_) vista_->PonerTitulo(titulo_);
}

void Form1::Ocultar() {
    if (vista_) vista_->Ocultar();
}

void Form1::Mostrar() {
    if (vista_) vista_->Mostrar();
}

}  // namespace sabelot

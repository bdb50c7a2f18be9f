// Lo común de Form1: construcción, el panel, el título y lo que pide al lector del tablero
// y a los ficheros.
#include "engine/form1.h"

#include "frontend/lector.h"
#include "storage/ficheros_preguntas.h"

namespace sabelot {

std::string TituloJugador(int jugador) { return "SÁBELOT - Jugador " + std::to_string(jugador); }

Form1::Form1(Module1& m, Plataforma& p, Canales& canales, Dialog& dialog, Dialog1& dialog1,
             DlgOpciones& opciones)
    : m_(m), p_(p), canales_(canales), dialog_(dialog), dialog1_(dialog1), opciones_(opciones) {}

void Form1::PonerTexto1(const std::string& texto) {
    texto1_ = texto;
    if (vista_) vista_->PonerTexto1(texto1_);
    p_.Voz().Reemplazar(texto1_);
}

void Form1::AnadirTexto1(const std::string& cola) {
    texto1_ += cola;
    if (vista_) vista_->PonerTexto1(texto1_);
    p_.Voz().Anadir(cola);
}

void Form1::PonerTitulo(const std::string& titulo) {
    titulo_ = titulo;
    if (vista_) vista_->PonerTitulo(titulo_);
}

void Form1::Ocultar() {
    // Lo que el panel tenga pendiente (la casilla a la que se llega) se dice antes de irse.
    p_.Voz().Soltar();
    if (vista_) vista_->Ocultar();
}

void Form1::Mostrar() {
    if (vista_) vista_->Mostrar();
}

std::string Form1::NombreTema(int& Tema) { return sabelot::NombreTema(m_, Tema); }

void Form1::DescribirCasilla(int& Posicion, int& Rumbo) {
    if (Posicion == -1) Posicion = CasillaCursor;
    if (Posicion < 0 || Posicion > kUltimaCasilla) return;
    PonerTexto1(TextoCasilla(*this, m_, Posicion, Rumbo));
}

void Form1::DescribirCasilla() {
    int posicion = -1;
    int rumbo = -1;
    DescribirCasilla(posicion, rumbo);
}

bool Form1::FaltanFicheros() { return FaltaFicheroDePreguntas(m_, p_); }

}  // namespace sabelot

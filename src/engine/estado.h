// Estado compartido del juego: lo que en el programa original vive en Module1
// y los campos de Form1 que usan los procedimientos del motor.
// Todas las tablas por tema y por jugador cuentan desde 1; el índice 0 no se usa.
#pragma once

#include <array>
#include <cassert>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

namespace sabelot {

// Fin de línea de todos los textos y ficheros del juego.
inline constexpr const char* CRLF = "\r\n";

inline constexpr int kNumTemas = 6;
inline constexpr int kMaxJugadores = 6;
inline constexpr int kUltimaCasilla = 78;

// Registro de una casilla: nueve enteros, en este orden.
struct Casilla {
    int Numero = 0;
    bool EsQuesito = false;
    bool EsCentro = false;
    bool EsDados = false;
    int Tema = 0;
    int Izquierda = 0;
    int Derecha = 0;
    int Arriba = 0;
    int Abajo = 0;
};

using TableroJuego = std::array<Casilla, 81>;

// Tabla (Tema, Jugador) con índices desde 1, redimensionable como un ReDim:
// dimensionar la vacía.
template <typename T>
class TablaTemaJugador {
public:
    void Dimensionar(int jugadores) {
        jugadores_ = jugadores < 0 ? 0 : jugadores;
        datos_.assign(static_cast<std::size_t>(kNumTemas * jugadores_), T{});
    }
    int Jugadores() const { return jugadores_; }
    T& operator()(int tema, int jugador) { return datos_[Indice(tema, jugador)]; }
    const T& operator()(int tema, int jugador) const { return datos_[Indice(tema, jugador)]; }

private:
    std::size_t Indice(int tema, int jugador) const {
        assert(tema >= 1 && tema <= kNumTemas && jugador >= 1 && jugador <= jugadores_);
        return static_cast<std::size_t>((tema - 1) * jugadores_ + (jugador - 1));
    }
    int jugadores_ = 0;
    // deque y no vector: con bool hace falta dar una referencia de verdad.
    std::deque<T> datos_;
};

// Vector por jugador con índices desde 1.
template <typename T>
class TablaJugador {
public:
    void Dimensionar(int jugadores) {
        datos_.assign(static_cast<std::size_t>(jugadores < 0 ? 0 : jugadores), T{});
    }
    int Limite() const { return static_cast<int>(datos_.size()); }
    T& operator()(int jugador) {
        assert(jugador >= 1 && jugador <= Limite());
        return datos_[static_cast<std::size_t>(jugador - 1)];
    }
    const T& operator()(int jugador) const {
        assert(jugador >= 1 && jugador <= Limite());
        return datos_[static_cast<std::size_t>(jugador - 1)];
    }

private:
    std::vector<T> datos_;
};

// Variables de Module1: las ven todos los formularios.
struct Module1 {
    int NumJugadores = 1;
    int QuesitosParaGanar = 0;
    TablaTemaJugador<bool> QuesitoGanado;
    TablaJugador<int> NumQuesitos;
    TablaTemaJugador<int> Preguntas;
    TablaTemaJugador<int> Aciertos;
    std::array<std::string, 7> EtiquetaTema{};
    std::array<std::string, 7> FicheroTema{};
    std::array<int, 7> CanalTema{};
    std::array<std::string, 7> MazoUsado{};
    // Más anchos que un Integer: un fichero puede pasar de 32.767 preguntas.
    std::array<std::int64_t, 7> TotalMazo{};
    std::array<std::int64_t, 7> CuentaMazo{};
    std::string ListaValores;
    int ValorElegido = -1;

    // Las cuatro tablas por jugador, en el orden de siempre; dimensionar las borra.
    void DimensionarTablas(int jugadores) {
        Preguntas.Dimensionar(jugadores);
        Aciertos.Dimensionar(jugadores);
        QuesitoGanado.Dimensionar(jugadores);
        NumQuesitos.Dimensionar(jugadores);
    }
};

// El título de la ventana principal para un jugador.
std::string TituloJugador(int jugador);

}  // namespace sabelot

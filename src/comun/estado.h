// El estado que comparte todo el juego: las variables que ven todos los formularios
// (Module1) y los campos de la ventana principal que usan el motor y el lector del
// tablero (CamposForm1). Las tablas por tema y por jugador cuentan desde 1.
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

// Las casillas 0 a 78 son el tablero; la 79 y la 80 existen y se quedan a cero.
using TableroJuego = std::array<Casilla, 81>;

// En las casillas 1 a 6 un Arriba de 0 sí lleva al centro.
inline bool TieneArriba(const Casilla& c) { return c.Arriba > 0 || (c.Arriba == 0 && c.Abajo > 0); }

// El radio de enfrente: en el centro, el que queda detrás del jugador.
inline int RadioOpuesto(int radio) { return radio + 3 > 6 ? radio - 3 : radio + 3; }

// Tabla (Tema, Jugador) con índices desde 1. Cambiar su número de jugadores la vacía.
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

// Lo que ven todos los formularios: jugadores, quesitos, opciones y mazos.
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

    // Las cuatro tablas por jugador, siempre en este orden; dimensionar las vacía.
    void DimensionarTablas(int jugadores) {
        Preguntas.Dimensionar(jugadores);
        Aciertos.Dimensionar(jugadores);
        QuesitoGanado.Dimensionar(jugadores);
        NumQuesitos.Dimensionar(jugadores);
    }
};

// Los campos de la ventana principal que usan el motor y el lector del tablero.
struct CamposForm1 {
    TableroJuego Tablero{};
    int CasillaCursor = 0;
    int RumboCentro = 1;
    int CasillaPrevia = 0;
    bool LeerAnexas = true;
    std::array<int, 7> PosicionFicha{};
    int JugadorActual = 1;
    int ValorDado = 0;
    int CaminosPendientes = 0;
    std::string TextoDestinos;

    int& Ficha(int jugador) { return PosicionFicha[static_cast<std::size_t>(jugador)]; }
    int Ficha(int jugador) const { return PosicionFicha[static_cast<std::size_t>(jugador)]; }
    const Casilla& En(int casilla) const { return Tablero[static_cast<std::size_t>(casilla)]; }
    Casilla& En(int casilla) { return Tablero[static_cast<std::size_t>(casilla)]; }
};

}  // namespace sabelot

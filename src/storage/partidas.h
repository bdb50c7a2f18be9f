// Partidas guardadas: un fichero de texto delimitado en la carpeta del programa, con las
// opciones de la partida y, por jugador, su ficha, sus quesitos y sus aciertos.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "comun/estado.h"
#include "comun/plataforma.h"

namespace sabelot {

class Canales;

// Por qué un nombre escrito por el jugador no sirve para una partida.
enum class FalloNombre { Ninguno, Caracter, Otro };
// Las partidas van solo en la carpeta del programa, y un nombre de dispositivo de
// Windows no es un fichero.
FalloNombre ComprobarNombrePartida(const std::string& nombre);
// La carpeta, el nombre y ".sav" si no lo trae ya (en mayúsculas o minúsculas).
std::string RutaPartida(const std::string& carpeta, const std::string& nombre);
// La partida de ese nombre que ya está en la carpeta aunque difiera en mayúsculas, como la
// encontraría Windows; si no hay ninguna, RutaPartida.
std::string BuscarPartida(SistemaFicheros& ficheros, const std::string& carpeta, const std::string& nombre);

// Los bytes de la partida en juego.
std::string BytesPartida(const Module1& m, const CamposForm1& f);
// Escribe la partida de una vez; falso si no se pudo, y entonces el fichero que hubiera
// queda como estaba.
bool EscribirPartida(SistemaFicheros& ficheros, const std::string& ruta, const std::string& bytes);

// Una partida leída entera y comprobada, antes de tocar la que se está jugando.
struct PartidaLeida {
    int NumJugadores = 0;
    int QuesitosParaGanar = 0;
    int JugadorActual = 0;
    std::array<std::string, 7> FicheroTema{};
    std::array<std::string, 7> EtiquetaTema{};
    std::array<int, 7> CanalTema{};
    struct Jugador {
        int PosicionFicha = 0;
        int NumQuesitos = 0;
        std::array<bool, 7> QuesitoGanado{};
        std::array<int, 7> Aciertos{};
        std::array<int, 7> Preguntas{};
    };
    std::array<Jugador, 7> Jugadores{};
};

// nullopt si el fichero no se puede leer o no es una partida que el juego pueda seguir.
std::optional<PartidaLeida> LeerPartida(Canales& canales, const std::string& ruta);
// Pasa la partida leída al juego. Las fichas de los jugadores que no están en ella se quedan
// donde estaban; el cursor va a la ficha del jugador que tiene el turno.
void PonerPartida(const PartidaLeida& p, Module1& m, CamposForm1& f);

}  // namespace sabelot

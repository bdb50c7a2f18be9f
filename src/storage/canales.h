// Ficheros abiertos para leer bajo un número de canal, como los usa el juego:
// preguntas en 1 a 6, partidas en 10, opciones en el primero libre.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "comun/plataforma.h"

namespace sabelot {

inline constexpr int kErrorNoExiste = 53;
inline constexpr int kErrorCanal = 52;

class Canales {
public:
    explicit Canales(SistemaFicheros& ficheros) : ficheros_(ficheros) {}

    // Abre para leer. 0 si se abrió; 53 si el fichero no existe; otro número si no se pudo.
    // El canal 0 no es válido, y uno ya abierto tampoco.
    int Abrir(int canal, const std::string& ruta);
    bool Abierto(int canal) const;
    // nullptr si el canal no está abierto.
    Fichero* Get(int canal);
    // Cierra si está abierto; falso si al volcar a disco falló algo.
    bool Cerrar(int canal);
    // El número más bajo, desde 1, que no está abierto.
    int Libre() const;
    void CerrarTodos();

    SistemaFicheros& Ficheros() { return ficheros_; }

private:
    SistemaFicheros& ficheros_;
    std::map<int, std::unique_ptr<Fichero>> abiertos_;
};

}  // namespace sabelot

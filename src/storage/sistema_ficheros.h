// La capa de ficheros de verdad, sobre la biblioteca estándar. Sin nada de ventanas,
// para que sirva igual al juego y a las pruebas.
#pragma once

#include <cstdint>
#include <random>

#include "comun/plataforma.h"

namespace sabelot {

class SistemaFicherosReal : public SistemaFicheros {
public:
    SistemaFicherosReal() : azar_(std::random_device{}()) {}
    // Con semilla fija, los nombres de los ficheros nuevos se saben de antemano: para las
    // pruebas que ponen algo en el sitio del primero.
    explicit SistemaFicherosReal(std::uint64_t semilla) : azar_(semilla) {}

    bool Existe(const std::string& ruta) override;
    bool EsCarpeta(const std::string& ruta) override;
    std::vector<std::string> Listar(const std::string& carpeta, const std::string& extension) override;
    std::unique_ptr<Fichero> Abrir(const std::string& ruta, int& error) override;
    std::unique_ptr<Fichero> CrearJunto(const std::string& destino, std::string& ruta) override;
    bool Protegido(const std::string& ruta) override;
    bool CopiarPermisos(const std::string& de, const std::string& a) override;
    bool Renombrar(const std::string& de, const std::string& a) override;
    bool Borrar(const std::string& ruta) override;

private:
    std::mt19937_64 azar_;
};

// Verdadero si las dos rutas llevan al mismo fichero del disco, se escriban como se escriban
// ("x.txt" y "./x.txt", un enlace, otro nombre del mismo fichero). Falso si alguna no existe.
bool MismoFichero(const std::string& a, const std::string& b);

}  // namespace sabelot

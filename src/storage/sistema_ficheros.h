// La capa de ficheros de verdad, sobre la biblioteca estándar. Sin nada de ventanas,
// para que sirva igual al juego y a las pruebas.
#pragma once

#include "comun/plataforma.h"

namespace sabelot {

class SistemaFicherosReal : public SistemaFicheros {
public:
    bool Existe(const std::string& ruta) override;
    bool EsCarpeta(const std::string& ruta) override;
    std::vector<std::string> Listar(const std::string& carpeta, const std::string& extension) override;
    std::unique_ptr<Fichero> Abrir(const std::string& ruta, int& error) override;
    std::unique_ptr<Fichero> CrearJunto(const std::string& destino, std::string& ruta) override;
    bool Protegido(const std::string& ruta) override;
    bool CopiarPermisos(const std::string& de, const std::string& a) override;
    bool Renombrar(const std::string& de, const std::string& a) override;
    bool Borrar(const std::string& ruta) override;
};

}  // namespace sabelot

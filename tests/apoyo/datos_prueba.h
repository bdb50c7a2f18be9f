// Tablas de resultados conocidos guardadas como texto en tests/datos.
#pragma once

#include <fstream>
#include <string>
#include <vector>

namespace sabelot::prueba {

// Las líneas del fichero, sin las vacías ni las de comentario (empiezan por "# ").
inline std::vector<std::string> LineasDeDatos(const std::string& nombre) {
    std::ifstream f(std::string(SABELOT_DATOS_PRUEBA) + "/" + nombre, std::ios::binary);
    std::vector<std::string> lineas;
    for (std::string l; std::getline(f, l);) {
        if (!l.empty() && l.back() == '\r') l.pop_back();
        if (!l.empty() && l.rfind("# ", 0) != 0) lineas.push_back(l);
    }
    return lineas;
}

}  // namespace sabelot::prueba

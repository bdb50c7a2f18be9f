// Tablas de resultados conocidos guardadas como texto en tests/datos.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
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

// Los ficheros de una carpeta de tests/corpus, por orden de nombre y con sus bytes tal cual.
inline std::vector<std::pair<std::string, std::string>> FicherosDelCorpus(const std::string& carpeta) {
    std::vector<std::pair<std::string, std::string>> ficheros;
    for (const auto& e : std::filesystem::directory_iterator(std::string(SABELOT_CORPUS) + "/" + carpeta)) {
        std::ifstream f(e.path(), std::ios::binary);
        ficheros.emplace_back(e.path().filename().string(), std::string(std::istreambuf_iterator<char>(f),
                                                                        std::istreambuf_iterator<char>()));
    }
    std::sort(ficheros.begin(), ficheros.end());
    return ficheros;
}

}  // namespace sabelot::prueba

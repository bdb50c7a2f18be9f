// Tablas de resultados conocidos guardadas como texto en tests/datos.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "storage/cp1252.h"

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

// Los campos de una fila entre separadores, también los vacíos: con n separadores, n + 1 campos.
inline std::vector<std::string> Campos(const std::string& fila, char separador = '\t') {
    std::vector<std::string> campos(1);
    for (char c : fila) {
        if (c == separador)
            campos.emplace_back();
        else
            campos.back() += c;
    }
    return campos;
}

// Los elementos de una lista escrita en un campo; ninguno si el campo está vacío.
inline std::vector<std::string> Lista(const std::string& texto, char separador) {
    return texto.empty() ? std::vector<std::string>{} : Campos(texto, separador);
}

// Las filas de una tabla partidas en campos, al menos 'columnas' (los que faltan, vacíos).
inline std::vector<std::vector<std::string>> Tabla(const std::string& nombre, std::size_t columnas) {
    std::vector<std::vector<std::string>> filas;
    for (const std::string& l : LineasDeDatos(nombre)) {
        filas.push_back(Campos(l));
        if (filas.back().size() < columnas) filas.back().resize(columnas);
    }
    if (filas.empty()) ADD_FAILURE() << "sin filas en " << nombre;
    return filas;
}

// Lo que una tabla escribe a la vista, en bytes: \r \n \t \0 \\ \| y \xHH son esos bytes, y \(N)c, N
// veces el byte c. Con 'barraEsSalto', una | suelta es CR LF (un fichero entero en una fila).
inline std::string Bytes(const std::string& escrito, bool barraEsSalto = true) {
    std::string b;
    for (std::size_t i = 0; i < escrito.size(); ++i) {
        const char c = escrito[i];
        if (c == '|' && barraEsSalto) {
            b += "\r\n";
        } else if (c != '\\' || i + 1 == escrito.size()) {
            b += c;
        } else if (const char e = escrito[++i]; e == 'x') {
            b += static_cast<char>(std::stoi(escrito.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else if (e == '(') {
            const std::size_t fin = escrito.find(')', i);
            b += std::string(std::stoul(escrito.substr(i + 1, fin - i - 1)), escrito[fin + 1]);
            i = fin + 1;
        } else {
            b += e == 'r' ? '\r' : e == 'n' ? '\n' : e == 't' ? '\t' : e == '0' ? '\0' : e;
        }
    }
    return b;
}

// Los campos de una fila con sus escapes ya vueltos bytes (una | es un carácter más).
inline std::vector<std::string> CamposEnBytes(const std::string& fila, char separador = '\t') {
    std::vector<std::string> campos = Campos(fila, separador);
    for (std::string& c : campos) c = Bytes(c, false);
    return campos;
}

// Un fichero de preguntas escrito en UTF-8 en la tabla, con sus bytes en Windows-1252.
inline std::string QzfEscrito(const std::string& escrito) { return Bytes(Utf8ACp1252(escrito)); }

}  // namespace sabelot::prueba

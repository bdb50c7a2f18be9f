// Lectura de las tablas de tests/datos con bytes escritos a mano: campos por tabuladores y
// escapes para lo que no se ve (CR, LF, bytes sueltos, líneas enormes).
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apoyo/datos_prueba.h"
#include "storage/cp1252.h"

namespace sabelot::prueba {

// Los trozos de 'fila' entre separadores, también los vacíos del final.
inline std::vector<std::string> Campos(const std::string& fila, char separador = '\t') {
    std::vector<std::string> campos(1);
    for (char c : fila) {
        if (c == separador) {
            campos.emplace_back();
        } else {
            campos.back() += c;
        }
    }
    return campos;
}

// Las filas de una tabla de tests/datos partidas en campos, al menos 'columnas' (los que faltan, vacíos).
inline std::vector<std::vector<std::string>> Tabla(const std::string& nombre, std::size_t columnas) {
    std::vector<std::vector<std::string>> filas;
    for (const std::string& l : LineasDeDatos(nombre)) {
        filas.push_back(Campos(l));
        if (filas.back().size() < columnas) filas.back().resize(columnas);
    }
    if (filas.empty()) ADD_FAILURE() << "sin filas en " << nombre;
    return filas;
}

// | es CR LF; \r \n \t \0 \\ \| y \xHH, el byte; \(N)c, N veces el byte c.
inline std::string Bytes(const std::string& escrito) {
    std::string b;
    for (std::size_t i = 0; i < escrito.size(); ++i) {
        const char c = escrito[i];
        if (c == '|') {
            b += "\r\n";
        } else if (c != '\\' || i + 1 == escrito.size()) {
            b += c;
        } else {
            const char e = escrito[++i];
            if (e == 'x') {
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
    }
    return b;
}

// Un fichero de preguntas escrito en UTF-8 en la tabla, con sus bytes en Windows-1252.
inline std::string QzfEscrito(const std::string& escrito) { return Bytes(Utf8ACp1252(escrito)); }

}  // namespace sabelot::prueba

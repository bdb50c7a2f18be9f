// Lo que comparten las pruebas de los diálogos y de Sabelot.ini.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "apoyo/plataforma_guion.h"
#include "comun/estado.h"
#include "storage/canales.h"
#include "storage/cp1252.h"

namespace sabelot::prueba {

struct Entorno {
    PlataformaGuion p;
    Module1 m;
    Canales canales{p.Ficheros()};
};

// Los campos de una fila de tests/datos, con \r, \n, \t y \xHH escritos a la vista.
inline std::vector<std::string> Campos(const std::string& fila, char separador = '\t') {
    std::vector<std::string> campos;
    std::istringstream s(fila);
    for (std::string c; std::getline(s, c, separador); campos.push_back(c)) {
        for (auto i = c.find('\\'); i != std::string::npos && i + 1 < c.size(); i = c.find('\\', i + 1)) {
            const auto e = std::string("rnt").find(c[i + 1]);
            if (c[i + 1] == 'x')
                c.replace(i, 4, 1, static_cast<char>(std::stoi(c.substr(i + 2, 2), nullptr, 16)));
            else if (e != std::string::npos)
                c.replace(i, 2, 1, "\r\n\t"[e]);
        }
    }
    return campos;
}

// Un Sabelot.ini de tests/datos/opciones.txt: registros separados por "|", en Windows-1252.
inline std::string IniDeDatos(const std::string& fila) {
    std::string ini;
    for (const std::string& registro : Campos(fila, '|')) ini += registro + "\r\n";
    return Utf8ACp1252(ini);
}

// Lo que Sabelot.ini lleva de un Module1, escrito como una fila de tests/datos/opciones.txt.
inline std::string Opciones(const Module1& m) {
    std::string s = std::to_string(m.NumJugadores) + "," + std::to_string(m.QuesitosParaGanar);
    for (std::size_t t = 1; t <= 6; ++t)
        s += "|\"" + m.FicheroTema[t] + "\",\"" + m.EtiquetaTema[t] + "\"," + std::to_string(m.CanalTema[t]);
    return s;
}

}  // namespace sabelot::prueba

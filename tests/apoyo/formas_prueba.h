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

// El único cuadro que salió, con su estilo y el título del juego; y se olvida.
inline void UnAviso(PlataformaGuion& p, const std::string& texto, int estilo) {
    ASSERT_EQ(p.mensajes.size(), 1u);
    EXPECT_EQ(p.mensajes[0].texto, texto);
    EXPECT_EQ(p.mensajes[0].estilo, estilo);
    EXPECT_EQ(p.mensajes[0].titulo, "Sabelot");
    p.mensajes.clear();
}

// Los campos de una fila de tests/datos, con los saltos escritos "\r\n" a la vista.
inline std::vector<std::string> Campos(const std::string& fila, char separador = '\t') {
    std::vector<std::string> campos;
    std::istringstream s(fila);
    for (std::string c; std::getline(s, c, separador);) {
        for (auto i = c.find("\\r\\n"); i != std::string::npos; i = c.find("\\r\\n", i + 2))
            c.replace(i, 4, "\r\n");
        campos.push_back(c);
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

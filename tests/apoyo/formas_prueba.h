// Lo que comparten las pruebas de los diálogos y de Sabelot.ini.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apoyo/datos_prueba.h"
#include "apoyo/plataforma_guion.h"
#include "comun/estado.h"
#include "questions/dialog1.h"
#include "storage/canales.h"
#include "storage/cp1252.h"

namespace sabelot::prueba {

struct Entorno {
    PlataformaGuion p;
    Module1 m;
    Canales canales{p.Ficheros()};
};

// Un Dialog1 cuyo tema t lee preguntas/tema<t>.qzf por el canal t.
struct ConDialog1 : Entorno {
    Dialog1 d{m, p, canales};
    ConDialog1() {
        for (std::size_t t = 1; t <= kNumTemas; ++t) {
            m.FicheroTema[t] = "tema" + std::to_string(t);
            m.CanalTema[t] = static_cast<int>(t);
        }
    }
    void Poner(int tema, const std::string& bytes) {
        p.carpeta.Escribir("preguntas/tema" + std::to_string(tema) + ".qzf", bytes);
    }
};

// Un Sabelot.ini de tests/datos/opciones.txt: registros separados por "|", en Windows-1252.
inline std::string IniDeDatos(const std::string& fila) {
    std::string ini;
    for (const std::string& registro : Lista(fila, '|')) ini += Bytes(registro, false) + "\r\n";
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

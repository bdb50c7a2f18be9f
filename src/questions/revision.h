// Revisión de un fichero de preguntas: todo lo que hará que el juego se salte una
// pregunta, la lea mal o juzgue contra una respuesta que no es. Usa las mismas reglas
// de registro que el lector del juego.
#pragma once

#include <string>
#include <vector>

namespace sabelot {

// Las preguntas que caben en un fichero: el juego las cuenta en un entero de 16 bits.
constexpr int kMaxPreguntasQzf = 32767;

struct ProblemaQzf {
    int linea = 0;      // desde 1
    std::string texto;  // en castellano, UTF-8
};

struct RevisionQzf {
    std::vector<ProblemaQzf> problemas;  // por orden de línea
    int preguntas = 0;                   // líneas "q>"
    int preguntables = 0;                // registros que el juego puede hacer
};

// 'bytes' es el fichero tal cual, que debe ir en Windows-1252 con CR LF.
RevisionQzf RevisarQzf(const std::string& bytes);

// Dos preguntas son la misma si dan la misma clave: sin blancos a los lados y en
// minúsculas (también las letras acentuadas). En bytes de Windows-1252.
std::string ClavePregunta(const std::string& pregunta);

}  // namespace sabelot

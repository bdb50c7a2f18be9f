// Revisión de un fichero de preguntas: todo lo que hará que el juego se salte una
// pregunta, la lea mal o juzgue contra una respuesta que no es. Usa las mismas reglas
// de registro que el lector del juego. Revisa también lo que resta confianza a un banco
// de preguntas: repeticiones, arranques calcados y una respuesta buena que cae casi
// siempre en el mismo sitio.
#pragma once

#include <string>
#include <vector>

namespace sabelot {

// Las preguntas que caben en un fichero: el juego las cuenta en un entero de 16 bits.
constexpr int kMaxPreguntasQzf = 32767;
// Por debajo de estas preguntas preguntables, las proporciones de un fichero (arranques,
// sitio de la respuesta buena) dicen más del azar que de quien lo escribió.
constexpr int kMinParaProporciones = 40;

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

struct FicheroQzf {
    std::string nombre;  // como se nombrará en los problemas de otros ficheros
    std::string bytes;
};

// Cada fichero como RevisarQzf y, además, lo que solo se ve juntándolos: la misma
// pregunta, o las mismas respuestas, en dos ficheros. El problema va en el que viene
// después y nombra al otro como "nombre:línea". Una revisión por fichero, en su orden.
std::vector<RevisionQzf> RevisarConjunto(const std::vector<FicheroQzf>& ficheros);

// Dos preguntas (o dos respuestas) son la misma si dan la misma clave: en minúsculas, sin
// tildes ni diéresis, y con la puntuación y los blancos reducidos a un blanco entre
// palabras. La eñe se queda: «año» no es «ano». En bytes de Windows-1252.
std::string ClavePregunta(const std::string& pregunta);

}  // namespace sabelot

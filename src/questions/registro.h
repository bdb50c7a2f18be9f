// Las reglas de un registro de un fichero de preguntas (.qzf), en bytes del fichero.
// Las usan el lector del juego y la revisión de ficheros, para que digan lo mismo.
#pragma once

#include <string>
#include <vector>

namespace sabelot {

// Qué es una línea según cómo empieza; las marcas no distinguen mayúsculas.
enum class TipoLinea { Pregunta, Respuesta, Correcta, Comentario, Otra };

TipoLinea ClaseDeLinea(const std::string& linea);
inline bool EsLineaPregunta(const std::string& linea) {
    return ClaseDeLinea(linea) == TipoLinea::Pregunta;
}

// El número de una línea "a>": blancos y luego cifras decimales; lo que siga no cuenta.
// Falso si tras los blancos no hay cifra. Un número enorme queda en un valor
// fuera de cualquier lista de respuestas.
bool NumeroDeCorrecta(const std::string& linea, int& numero);

// Por qué un registro no se puede preguntar: a un jugador que no ve no se le puede
// juzgar contra una respuesta equivocada.
enum class DefectoRegistro {
    Ninguno,
    SinRespuestas,         // ninguna línea de respuesta con texto
    SinCorrecta,           // no hay línea "a>"
    CorrectaSinNumero,     // la "a>" no empieza por un número
    CorrectaFueraDeRango,  // la "a>" nombra una respuesta que no existe
};

// Un registro que se va leyendo línea a línea, empezando por su "q>".
class Registro {
public:
    explicit Registro(const std::string& lineaPregunta);

    // Le da la línea siguiente del fichero. Verdadero si el registro sigue (y pide
    // otra línea mientras queden); falso si esa línea lo cerró. La línea que lo
    // cierra se pierde, aunque sea una "q>".
    bool Anadir(const std::string& linea);

    // Cuántas respuestas tiene: 0 si la primera está vacía.
    int NumRespuestas() const;
    DefectoRegistro Defecto() const;
    bool SePuedePreguntar() const { return Defecto() == DefectoRegistro::Ninguno; }

    // Campos leídos, en bytes del fichero (Windows-1252).
    std::string Pregunta;
    std::vector<std::string> Respuestas{std::string()};  // [0] es la respuesta 1
    int IndiceCorrecto = 0;
    std::string Comentario;

    int LineasCorrecta = 0;           // cuántas "a>" tenía
    bool CorrectaConNumero = false;   // la última "a>" empezaba por un número
    bool EnComentario = false;        // ya se leyó su "c>"
    bool CerradoPorPregunta = false;  // lo cerró una "q>", que se ha tragado
};

// Texto de cada defecto, para los mensajes de la revisión.
const char* TextoDefecto(DefectoRegistro defecto);

}  // namespace sabelot

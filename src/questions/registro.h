// Las reglas de un registro de un fichero de preguntas (.qzf), en bytes del fichero.
// Las usan el lector del juego y la revisión de ficheros, para que digan lo mismo.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace sabelot {

// La línea más larga que el juego lee de un fichero de preguntas. Una más larga no es de un
// fichero hecho a mano: el registro que la lleva no se pregunta, y leerla no cuesta más que
// pasar por encima de ella.
inline constexpr std::size_t kMaxLineaQzf = 4096;
// El fichero de preguntas más grande que el juego abre: 32.767 preguntas largas caben de sobra
// en 64 MiB. Uno mayor no es un fichero de preguntas, y recorrerlo en cada pregunta se notaría.
inline constexpr std::int64_t kMaxFicheroQzf = std::int64_t{64} * 1024 * 1024;

// Qué es una línea según cómo empieza; las marcas no distinguen mayúsculas.
enum class TipoLinea { Pregunta, Respuesta, Correcta, Comentario, Otra };

TipoLinea ClaseDeLinea(const std::string& linea);
inline bool EsLineaPregunta(const std::string& linea) { return ClaseDeLinea(linea) == TipoLinea::Pregunta; }

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
    LineaLarga,            // alguna de sus líneas pasa de kMaxLineaQzf bytes
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

    // Alguna línea del registro pasaba de kMaxLineaQzf bytes y llegó cortada.
    void MarcarLineaLarga() { lineaLarga_ = true; }

    int LineasCorrecta = 0;           // cuántas "a>" tenía
    bool CorrectaConNumero = false;   // la última "a>" empezaba por un número
    bool EnComentario = false;        // ya se leyó su "c>"
    bool CerradoPorPregunta = false;  // lo cerró una "q>", que se ha tragado

private:
    bool lineaLarga_ = false;
};

// Texto de cada defecto, para los mensajes de la revisión.
const char* TextoDefecto(DefectoRegistro defecto);

}  // namespace sabelot

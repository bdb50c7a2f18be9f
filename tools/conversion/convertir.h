// Conversión a ficheros de preguntas (.qzf) desde los formatos en que suelen escribir
// los profesores: Aiken, GIFT (sólo opción múltiple) y el JSON de OpenTDB.
#pragma once

#include <string>
#include <vector>

#include "questions/revision.h"

namespace sabelot {

enum class FormatoEntrada { Aiken, Gift, OpenTdb };

// Más respuestas no se convierten: cada respuesta lleva una sola cifra delante y con
// nueve se leen y se recorren bien con las flechas.
constexpr int kMaxRespuestas = 9;
constexpr int kMaxPreguntas = kMaxPreguntasQzf;

struct AvisoConversion {
    std::string lugar;  // "línea 12" o "pregunta 3"
    std::string texto;  // por qué no se convirtió, en castellano
};

struct ResultadoConversion {
    std::string qzf;  // bytes del fichero, en Windows-1252 con CR LF
    int convertidas = 0;
    int sinConvertir = 0;
    std::vector<AvisoConversion> avisos;
};

// "aiken", "gift" u "opentdb". Falso si no es ninguno.
bool FormatoPorNombre(const std::string& nombre, FormatoEntrada& formato);
// Por la extensión (.txt, .gift, .json) y, si no basta, por el contenido.
FormatoEntrada DetectarFormato(const std::string& ruta, const std::string& bytes);

// 'bytes' en UTF-8 (con o sin BOM); si no es UTF-8 válido se lee como Windows-1252.
ResultadoConversion Convertir(FormatoEntrada formato, const std::string& bytes);

}  // namespace sabelot

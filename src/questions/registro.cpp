#include "questions/registro.h"

#include "comun/estado.h"

namespace sabelot {

namespace {

bool Marca(const std::string& linea, char letra) {
    if (linea.size() < 2 || linea[1] != '>') return false;
    char c = linea[0];
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return c == letra;
}

// Lo que queda desde el carácter n (contando desde 0), o nada.
std::string Desde(const std::string& linea, std::size_t n) {
    return linea.size() > n ? linea.substr(n) : std::string();
}

}  // namespace

TipoLinea ClaseDeLinea(const std::string& linea) {
    if (linea.empty()) return TipoLinea::Otra;
    if (linea[0] >= '0' && linea[0] <= '9') return TipoLinea::Respuesta;
    if (Marca(linea, 'q')) return TipoLinea::Pregunta;
    if (Marca(linea, 'a')) return TipoLinea::Correcta;
    if (Marca(linea, 'c')) return TipoLinea::Comentario;
    return TipoLinea::Otra;
}

bool NumeroDeCorrecta(const std::string& linea, int& numero) {
    numero = 0;
    std::size_t i = 2;
    while (i < linea.size() && (linea[i] == ' ' || linea[i] == '\t')) ++i;
    if (i >= linea.size() || linea[i] < '0' || linea[i] > '9') return false;
    // Basta con pasar de cualquier número de respuestas posible sin desbordar.
    constexpr int kTope = 1000000000;
    long long n = 0;
    for (; i < linea.size() && linea[i] >= '0' && linea[i] <= '9'; ++i) {
        n = n * 10 + (linea[i] - '0');
        if (n > kTope) n = kTope;
    }
    numero = static_cast<int>(n);
    return true;
}

Registro::Registro(const std::string& lineaPregunta) : Pregunta(Desde(lineaPregunta, 2)) {}

bool Registro::Anadir(const std::string& linea) {
    if (EnComentario) {
        // Tras un "c>" solo una "q>" corta: una cifra en la primera columna es comentario.
        if (EsLineaPregunta(linea)) {
            CerradoPorPregunta = true;
            return false;
        }
        Comentario += CRLF;
        Comentario += linea;
        return true;
    }
    switch (ClaseDeLinea(linea)) {
        case TipoLinea::Respuesta:
            // Una respuesta vacía deja su sitio a la siguiente.
            if (!Respuestas.back().empty()) Respuestas.emplace_back();
            Respuestas.back() = Desde(linea, 2);
            return true;
        case TipoLinea::Correcta: {
            ++LineasCorrecta;
            int n = 0;
            CorrectaConNumero = NumeroDeCorrecta(linea, n);
            IndiceCorrecto = n;
            if (linea.size() > 4) Comentario = linea.substr(4);
            return true;
        }
        case TipoLinea::Comentario:
            Comentario = Desde(linea, 2);
            EnComentario = true;
            return true;
        case TipoLinea::Pregunta: CerradoPorPregunta = true; return false;
        case TipoLinea::Otra: break;
    }
    return false;
}

int Registro::NumRespuestas() const {
    return Respuestas.front().empty() ? 0 : static_cast<int>(Respuestas.size());
}

DefectoRegistro Registro::Defecto() const {
    if (lineaLarga_) return DefectoRegistro::LineaLarga;
    if (NumRespuestas() == 0) return DefectoRegistro::SinRespuestas;
    if (LineasCorrecta == 0) return DefectoRegistro::SinCorrecta;
    if (!CorrectaConNumero) return DefectoRegistro::CorrectaSinNumero;
    if (IndiceCorrecto < 1 || IndiceCorrecto > NumRespuestas()) return DefectoRegistro::CorrectaFueraDeRango;
    return DefectoRegistro::Ninguno;
}

const char* TextoDefecto(DefectoRegistro defecto) {
    switch (defecto) {
        case DefectoRegistro::Ninguno: return "";
        case DefectoRegistro::SinRespuestas: return "la pregunta no tiene respuestas";
        case DefectoRegistro::SinCorrecta: return "falta la línea a> con el número de la respuesta correcta";
        case DefectoRegistro::CorrectaSinNumero: return "la línea a> no empieza por un número";
        case DefectoRegistro::CorrectaFueraDeRango: return "la línea a> nombra una respuesta que no existe";
        case DefectoRegistro::LineaLarga:
            // kMaxLineaQzf, escrito: el texto no se compone.
            static_assert(kMaxLineaQzf == 4096, "el texto dice 4096");
            return "una de sus líneas pasa de 4096 bytes";
    }
    return "";
}

}  // namespace sabelot

#include "questions/revision.h"

#include <algorithm>
#include <cstdio>
#include <map>

#include "questions/registro.h"

namespace sabelot {

namespace {

enum class FinLinea { CrLf, Lf, Cr, Ninguno };

struct Linea {
    std::string texto;
    FinLinea fin;
};

// Se parte igual que lee el juego: CR LF, LF o CR sueltos acaban una línea.
std::vector<Linea> Partir(const std::string& bytes) {
    std::vector<Linea> lineas;
    std::size_t i = 0;
    while (i < bytes.size()) {
        std::size_t j = i;
        while (j < bytes.size() && bytes[j] != '\r' && bytes[j] != '\n') ++j;
        Linea l{bytes.substr(i, j - i), FinLinea::Ninguno};
        if (j < bytes.size() && bytes[j] == '\n') {
            l.fin = FinLinea::Lf;
            ++j;
        } else if (j < bytes.size()) {
            if (j + 1 < bytes.size() && bytes[j + 1] == '\n') {
                l.fin = FinLinea::CrLf;
                j += 2;
            } else {
                l.fin = FinLinea::Cr;
                ++j;
            }
        }
        lineas.push_back(std::move(l));
        i = j;
    }
    return lineas;
}

// Verdadero si la línea lleva al menos una secuencia de varios bytes de UTF-8 y todo lo
// que no es ASCII lo es: en Windows-1252 saldría "Ã¡" donde se escribió "á".
bool PareceUtf8(const std::string& l) {
    bool varios = false;
    std::size_t i = 0;
    while (i < l.size()) {
        auto b = static_cast<unsigned char>(l[i]);
        std::size_t n = 0;
        if (b < 0x80) n = 1;
        else if (b >= 0xC2 && b <= 0xDF) n = 2;
        else if (b >= 0xE0 && b <= 0xEF) n = 3;
        else if (b >= 0xF0 && b <= 0xF4) n = 4;
        else return false;
        if (i + n > l.size()) return false;
        for (std::size_t k = 1; k < n; ++k) {
            if ((static_cast<unsigned char>(l[i + k]) & 0xC0) != 0x80) return false;
        }
        if (n > 1) varios = true;
        i += n;
    }
    return varios;
}

// Bytes que Windows-1252 no define.
bool ByteSinDefinir(unsigned char b) {
    return b == 0x81 || b == 0x8D || b == 0x8F || b == 0x90 || b == 0x9D;
}

std::string Num(int n) { return std::to_string(n); }

}  // namespace

std::string ClavePregunta(const std::string& pregunta) {
    std::size_t a = pregunta.find_first_not_of(" \t");
    if (a == std::string::npos) return std::string();
    std::size_t b = pregunta.find_last_not_of(" \t");
    std::string s = pregunta.substr(a, b - a + 1);
    for (char& c : s) {
        auto u = static_cast<unsigned char>(c);
        if ((u >= 'A' && u <= 'Z') || (u >= 0xC0 && u <= 0xDE && u != 0xD7))
            c = static_cast<char>(u + 0x20);
    }
    return s;
}

RevisionQzf RevisarQzf(const std::string& bytes) {
    RevisionQzf r;
    auto problema = [&r](int linea, std::string texto) {
        r.problemas.push_back({linea, std::move(texto)});
    };
    const std::vector<Linea> lineas = Partir(bytes);
    const int n = static_cast<int>(lineas.size());

    if (n == 0) {
        problema(1, "el fichero está vacío");
        return r;
    }

    // Codificación y fines de línea, línea a línea.
    if (bytes.compare(0, 3, "\xEF\xBB\xBF") == 0)
        problema(1, "empieza con la marca de UTF-8 (BOM): el fichero debe ir en Windows-1252");
    for (int i = 0; i < n; ++i) {
        const Linea& l = lineas[static_cast<std::size_t>(i)];
        if (PareceUtf8(l.texto)) {
            problema(i + 1, "parece texto en UTF-8: el fichero debe ir en Windows-1252");
        } else {
            for (unsigned char b : l.texto) {
                if (ByteSinDefinir(b)) {
                    char hex[8];
                    std::snprintf(hex, sizeof hex, "%02X", b);
                    problema(i + 1, std::string("el byte ") + hex + " no existe en Windows-1252");
                    break;
                }
            }
        }
        if (l.fin == FinLinea::Lf) problema(i + 1, "la línea termina en LF y no en CR LF");
        if (l.fin == FinLinea::Cr) problema(i + 1, "la línea termina en CR y no en CR LF");
        if (l.fin == FinLinea::Ninguno) problema(i + 1, "la última línea no termina en CR LF");
    }

    // Registros. Cada "q>" se mira como principio de registro, porque en alguna pasada
    // el juego la lee como tal; lo de antes de la primera es un encabezado y vale.
    std::map<std::string, int> vistas;
    bool dentro = false;  // ya pasó la primera "q>"
    int i = 0;
    while (i < n) {
        const std::string& texto = lineas[static_cast<std::size_t>(i)].texto;
        const TipoLinea tipo = ClaseDeLinea(texto);
        if (tipo != TipoLinea::Pregunta) {
            if (dentro && tipo != TipoLinea::Otra)
                problema(i + 1, "esta línea está fuera de cualquier pregunta y el juego no la lee "
                                "(¿sobra una línea en blanco o falta la q>?)");
            ++i;
            continue;
        }
        dentro = true;
        ++r.preguntas;
        const int inicio = i + 1;  // número de línea de la "q>"
        // El juego cuenta las preguntas en un entero de 16 bits.
        if (r.preguntas == kMaxPreguntasQzf + 1)
            problema(inicio, "el fichero pasa de " + Num(kMaxPreguntasQzf) +
                                 " preguntas, las que el juego puede contar; pártalo en dos");
        Registro registro(texto);
        // Como el lector del juego: una línea larga del registro lo deja sin preguntar.
        int lineaLarga = texto.size() > kMaxLineaQzf ? inicio : 0;
        if (lineaLarga) registro.MarcarLineaLarga();

        if (ClavePregunta(registro.Pregunta).empty()) problema(inicio, "la pregunta está vacía");
        const std::string clave = ClavePregunta(registro.Pregunta);
        if (!clave.empty()) {
            auto [it, nueva] = vistas.emplace(clave, inicio);
            if (!nueva) problema(inicio, "pregunta repetida: ya está en la línea " + Num(it->second));
        }
        if (i == n - 1) {
            problema(inicio, "la pregunta es la última línea: el juego la toma por el final del "
                             "fichero y nunca la hace");
            break;
        }

        int j = i + 1;
        int lineaCorrecta = 0;
        bool cerrado = false;
        for (; j < n; ++j) {
            const std::string& siguiente = lineas[static_cast<std::size_t>(j)].texto;
            if (!registro.EnComentario && ClaseDeLinea(siguiente) == TipoLinea::Respuesta &&
                siguiente.size() <= 2)
                problema(j + 1, "respuesta vacía");
            if (!registro.EnComentario && ClaseDeLinea(siguiente) == TipoLinea::Correcta)
                lineaCorrecta = j + 1;
            if (!registro.Anadir(siguiente)) {
                cerrado = true;
                break;
            }
            if (siguiente.size() > kMaxLineaQzf && !lineaLarga) {
                lineaLarga = j + 1;
                registro.MarcarLineaLarga();
            }
        }

        const DefectoRegistro defecto = registro.Defecto();
        if (defecto == DefectoRegistro::Ninguno) {
            ++r.preguntables;
        } else {
            int donde = (defecto == DefectoRegistro::CorrectaSinNumero ||
                         defecto == DefectoRegistro::CorrectaFueraDeRango)
                            ? lineaCorrecta
                            : inicio;
            if (defecto == DefectoRegistro::LineaLarga) donde = lineaLarga;
            problema(donde, std::string(TextoDefecto(defecto)) + ": el juego se salta la pregunta "
                            "de la línea " + Num(inicio));
        }
        if (registro.LineasCorrecta > 1)
            problema(inicio, "la pregunta tiene " + Num(registro.LineasCorrecta) +
                                 " líneas a>; el juego se queda con la última");

        if (!cerrado) break;  // se acabó el fichero
        if (registro.CerradoPorPregunta) {
            if (registro.EnComentario) {
                problema(j + 1, "el comentario de la pregunta de la línea " + Num(inicio) +
                                    " se traga esta pregunta al leer seguido; pon ese comentario "
                                    "en la línea a> o deja esa pregunta la última del fichero");
            } else {
                problema(j + 1, "falta una línea en blanco antes de esta pregunta: al leer seguido "
                                "el juego se la salta");
            }
            i = j;  // esa "q>" empieza el registro siguiente
        } else {
            i = j + 1;
        }
    }

    if (r.preguntas == 0) problema(1, "el fichero no tiene ninguna línea q>");
    std::stable_sort(r.problemas.begin(), r.problemas.end(),
                     [](const ProblemaQzf& a, const ProblemaQzf& b) { return a.linea < b.linea; });
    return r;
}

}  // namespace sabelot

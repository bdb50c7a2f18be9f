#include "questions/revision.h"

#include <algorithm>
#include <cstdio>
#include <map>

#include "questions/registro.h"
#include "storage/cp1252.h"

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
        if (b < 0x80)
            n = 1;
        else if (b >= 0xC2 && b <= 0xDF)
            n = 2;
        else if (b >= 0xE0 && b <= 0xEF)
            n = 3;
        else if (b >= 0xF0 && b <= 0xF4)
            n = 4;
        else
            return false;
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
bool ByteSinDefinir(unsigned char b) { return b == 0x81 || b == 0x8D || b == 0x8F || b == 0x90 || b == 0x9D; }

std::string Num(int n) { return std::to_string(n); }

// Un byte de control dentro de una línea: el lector de pantalla lo calla, lo deletrea o
// pita. El tabulador es un blanco más.
const char* NombreDeControl(unsigned char b) {
    static const char* const kNombres[] = {"NUL", "SOH", "STX", "ETX", "EOT", "ENQ", "ACK", "BEL",
                                           "BS",  "HT",  "LF",  "VT",  "FF",  "CR",  "SO",  "SI",
                                           "DLE", "DC1", "DC2", "DC3", "DC4", "NAK", "SYN", "ETB",
                                           "CAN", "EM",  "SUB", "ESC", "FS",  "GS",  "RS",  "US"};
    if (b == 0x7F) return "DEL";
    if (b < 0x20 && b != '\t') return kNombres[b];
    return nullptr;
}

// Cómo cuenta una letra de Windows-1252 en una clave: minúscula y sin tilde. Vacío si
// el byte no es letra ni cifra y solo separa palabras.
std::string Plegar(unsigned char u) {
    if ((u >= 'a' && u <= 'z') || (u >= '0' && u <= '9')) return std::string(1, static_cast<char>(u));
    if (u >= 'A' && u <= 'Z') return std::string(1, static_cast<char>(u + 0x20));
    if (u == 0xD1 || u == 0xF1) return "\xF1";  // ñ
    if (u == 0x8A || u == 0x9A) return "s";     // š
    if (u == 0x8E || u == 0x9E) return "z";     // ž
    if (u == 0x8C || u == 0x9C) return "oe";    // œ
    if (u == 0x9F) return "y";                  // Ÿ
    if (u < 0xC0) return std::string();
    if (u == 0xD7 || u == 0xF7) return std::string();  // × y ÷
    if (u == 0xDF) return "ss";
    // Las letras de C0 a FF van en el mismo orden en mayúscula y en minúscula.
    static const char* const kBase[] = {"a", "a", "a", "a", "a", "a", "ae", "c", "e",  "e", "e",
                                        "e", "i", "i", "i", "i", "d", "",   "o", "o",  "o", "o",
                                        "o", "",  "o", "u", "u", "u", "u",  "y", "th", "y"};
    return kBase[(u - 0xC0) % 0x20];
}

// Lo que el juego haría con una pregunta que se puede hacer, para las revisiones que
// miran varias a la vez.
struct Hecha {
    int linea = 0;
    std::string pregunta;  // en bytes del fichero
    std::vector<std::string> respuestas;
    int correcta = 0;
};

// Las primeras 'n' palabras del texto tal como están escritas, con la puntuación de delante.
std::string PrimerasPalabras(const std::string& texto, int n) {
    std::size_t i = 0;
    int palabras = 0;
    bool enPalabra = false;
    for (; i < texto.size(); ++i) {
        const bool letra = !Plegar(static_cast<unsigned char>(texto[i])).empty();
        if (letra && !enPalabra && palabras == n) break;
        if (letra && !enPalabra) ++palabras;
        enPalabra = letra;
    }
    std::size_t fin = i;
    while (fin > 0 && Plegar(static_cast<unsigned char>(texto[fin - 1])).empty()) --fin;
    return texto.substr(0, fin);
}

int Porcentaje(int parte, int total) { return total == 0 ? 0 : (parte * 100 + total / 2) / total; }

// Más de una de cada cinco preguntas con el mismo arranque suena a plantilla.
void RevisarArranques(const std::vector<Hecha>& hechas, std::vector<ProblemaQzf>& problemas) {
    const int total = static_cast<int>(hechas.size());
    if (total < kMinParaProporciones) return;
    std::map<std::string, std::pair<int, const Hecha*>> arranques;
    for (const Hecha& h : hechas) {
        const std::string arranque = ClavePregunta(PrimerasPalabras(h.pregunta, 2));
        if (arranque.empty()) continue;
        auto& a = arranques[arranque];
        if (a.first++ == 0) a.second = &h;
    }
    for (const auto& [clave, a] : arranques) {
        if (a.first * 5 <= total) continue;
        problemas.push_back({a.second->linea, "«" + Cp1252AUtf8(PrimerasPalabras(a.second->pregunta, 2)) +
                                                  "» abre " + Num(a.first) + " de las " + Num(total) +
                                                  " preguntas que se pueden hacer (" +
                                                  Num(Porcentaje(a.first, total)) +
                                                  " %), más de una de cada cinco: empiece algunas de "
                                                  "otro modo"});
    }
}

// Si la buena cae mucho más (o mucho menos) en un sitio de lo que daría el azar, quien
// lo note acierta sin saber. Con cuatro respuestas: más del 35 % o menos del 15 %.
void RevisarSitiosDeLaBuena(const std::vector<Hecha>& hechas, std::vector<ProblemaQzf>& problemas) {
    const int total = static_cast<int>(hechas.size());
    if (total < kMinParaProporciones) return;
    std::map<int, int> veces;
    std::map<int, double> esperadas;  // lo que daría el azar en cada sitio
    for (const Hecha& h : hechas) {
        ++veces[h.correcta];
        const int n = static_cast<int>(h.respuestas.size());
        for (int sitio = 1; sitio <= n; ++sitio) esperadas[sitio] += 1.0 / n;
    }
    for (const auto& [sitio, esperada] : esperadas) {
        if (esperada < 10) continue;  // muy pocas preguntas con tantas respuestas
        const int real = veces[sitio];
        if (real <= esperada * 1.4 && real >= esperada * 0.6) continue;
        problemas.push_back({1, "la respuesta buena es la " + Num(sitio) + " en " + Num(real) + " de las " +
                                    Num(total) + " preguntas que se pueden hacer (" +
                                    Num(Porcentaje(real, total)) + " %), y al azar sería hacia el " +
                                    Num(Porcentaje(static_cast<int>(esperada + 0.5), total)) +
                                    " %: quien lo note acierta sin saber"});
    }
}

// Las respuestas de una pregunta como conjunto, sin orden. Vacío si alguna no da clave.
std::string ClaveRespuestas(const std::vector<std::string>& respuestas) {
    std::vector<std::string> claves;
    for (const std::string& r : respuestas) {
        claves.push_back(ClavePregunta(r));
        if (claves.back().empty()) return std::string();
    }
    std::sort(claves.begin(), claves.end());
    std::string clave;
    for (const std::string& c : claves) clave += c + "\n";
    return clave;
}

RevisionQzf Revisar(const std::string& bytes, std::vector<Hecha>& hechas);

}  // namespace

std::string ClavePregunta(const std::string& pregunta) {
    std::string clave;
    bool blanco = false;
    for (char c : pregunta) {
        const std::string letra = Plegar(static_cast<unsigned char>(c));
        if (letra.empty()) {
            blanco = !clave.empty();
            continue;
        }
        if (blanco) clave += ' ';
        blanco = false;
        clave += letra;
    }
    return clave;
}

RevisionQzf RevisarQzf(const std::string& bytes) {
    std::vector<Hecha> hechas;
    return Revisar(bytes, hechas);
}

std::vector<RevisionQzf> RevisarConjunto(const std::vector<FicheroQzf>& ficheros) {
    std::vector<RevisionQzf> revisiones;
    std::map<std::string, std::string> preguntas;   // clave -> "nombre:línea" de la primera
    std::map<std::string, std::string> respuestas;  // ídem, por conjunto de respuestas
    for (const FicheroQzf& f : ficheros) {
        std::vector<Hecha> hechas;
        revisiones.push_back(Revisar(f.bytes, hechas));
        RevisionQzf& r = revisiones.back();
        std::map<std::string, std::string> estasPreguntas;
        std::map<std::string, std::string> estasRespuestas;
        for (const Hecha& h : hechas) {
            const std::string donde = f.nombre + ":" + Num(h.linea);
            const std::string clave = ClavePregunta(h.pregunta);
            if (auto it = preguntas.find(clave); it != preguntas.end())
                r.problemas.push_back({h.linea, "pregunta repetida: ya está en " + it->second});
            estasPreguntas.emplace(clave, donde);
            // Con dos respuestas (sí o no, verdadero o falso) coincidir es lo normal.
            const std::string conjunto = ClaveRespuestas(h.respuestas);
            if (h.respuestas.size() < 3 || conjunto.empty()) continue;
            if (auto it = respuestas.find(conjunto); it != respuestas.end())
                r.problemas.push_back({h.linea, "tiene las mismas respuestas que la pregunta de " +
                                                    it->second +
                                                    ": quien jugó aquella las reconoce; cambie alguna"});
            estasRespuestas.emplace(conjunto, donde);
        }
        // Dentro del mismo fichero ya se mira la pregunta; las respuestas pueden repetirse.
        preguntas.insert(estasPreguntas.begin(), estasPreguntas.end());
        respuestas.insert(estasRespuestas.begin(), estasRespuestas.end());
        std::stable_sort(r.problemas.begin(), r.problemas.end(),
                         [](const ProblemaQzf& a, const ProblemaQzf& b) { return a.linea < b.linea; });
    }
    return revisiones;
}

namespace {

RevisionQzf Revisar(const std::string& bytes, std::vector<Hecha>& hechas) {
    RevisionQzf r;
    auto problema = [&r](int linea, std::string texto) { r.problemas.push_back({linea, std::move(texto)}); };
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
        for (unsigned char b : l.texto) {
            if (const char* nombre = NombreDeControl(b)) {
                char hex[8];
                std::snprintf(hex, sizeof hex, "%02X", b);
                problema(i + 1, std::string("la línea lleva el byte de control ") + hex + " (" + nombre +
                                    "): el lector de pantalla lo calla, lo deletrea o pita");
                break;
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
                problema(i + 1,
                         "esta línea está fuera de cualquier pregunta y el juego no la lee "
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
            problema(inicio,
                     "la pregunta es la última línea: el juego la toma por el final del "
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
            hechas.push_back({inicio, registro.Pregunta, registro.Respuestas, registro.IndiceCorrecto});
        } else {
            int donde = (defecto == DefectoRegistro::CorrectaSinNumero ||
                         defecto == DefectoRegistro::CorrectaFueraDeRango)
                            ? lineaCorrecta
                            : inicio;
            if (defecto == DefectoRegistro::LineaLarga) donde = lineaLarga;
            problema(donde, std::string(TextoDefecto(defecto)) +
                                ": el juego se salta la pregunta "
                                "de la línea " +
                                Num(inicio));
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
                problema(j + 1,
                         "falta una línea en blanco antes de esta pregunta: al leer seguido "
                         "el juego se la salta");
            }
            i = j;  // esa "q>" empieza el registro siguiente
        } else {
            i = j + 1;
        }
    }

    if (r.preguntas == 0) problema(1, "el fichero no tiene ninguna línea q>");
    RevisarArranques(hechas, r.problemas);
    RevisarSitiosDeLaBuena(hechas, r.problemas);
    std::stable_sort(r.problemas.begin(), r.problemas.end(),
                     [](const ProblemaQzf& a, const ProblemaQzf& b) { return a.linea < b.linea; });
    return r;
}

}  // namespace
}  // namespace sabelot

#include "conversion/convertir.h"

#include <cstdint>
#include <cstdio>
#include <exception>
#include <map>
#include <nlohmann/json.hpp>
#include <set>

#include "comun/texto.h"
#include "questions/revision.h"
#include "storage/cp1252.h"

namespace sabelot {

namespace {

std::string Num(long long n) { return std::to_string(n); }

// La entrada, en UTF-8 y sin BOM.
std::string EnUtf8(const std::string& bytes) {
    std::string s = bytes.compare(0, 3, "\xEF\xBB\xBF") == 0 ? bytes.substr(3) : bytes;
    return EsUtf8(s) ? s : Cp1252AUtf8(s);
}

std::vector<std::string> Lineas(const std::string& s) {
    std::vector<std::string> lineas;
    std::size_t i = 0;
    while (i <= s.size()) {
        std::size_t j = s.find('\n', i);
        if (j == std::string::npos) j = s.size();
        std::string l = s.substr(i, j - i);
        if (!l.empty() && l.back() == '\r') l.pop_back();
        lineas.push_back(l);
        i = j + 1;
    }
    if (!lineas.empty() && lineas.back().empty()) lineas.pop_back();
    return lineas;
}

// Una pregunta es una sola línea del fichero: saltos, tabuladores y blancos repetidos
// quedan en un blanco.
std::string Limpiar(const std::string& s) {
    std::string r;
    for (char ch : s) {
        auto u = static_cast<unsigned char>(ch);
        bool blanco = u < 0x20 || u == 0x7F || u == ' ';
        if (blanco) {
            if (!r.empty() && r.back() != ' ') r.push_back(' ');
        } else {
            r.push_back(ch);
        }
    }
    while (!r.empty() && r.back() == ' ') r.pop_back();
    return r;
}

std::string SinBlancos(const std::string& s) {
    std::size_t a = s.find_first_not_of(" \t\r\n");
    if (a == std::string::npos) return std::string();
    return s.substr(a, s.find_last_not_of(" \t\r\n") - a + 1);
}

// Falso, con el carácter en 'malo', si algo no cabe en Windows-1252.
bool ACp1252(const std::string& utf8, std::string& bytes, std::string& malo) {
    bytes.clear();
    char32_t c = 0;
    for (std::size_t i = 0; i < utf8.size();) {
        std::size_t n = LeerUtf8(utf8, i, c);
        if (n == 0) n = 1;
        const std::string uno = utf8.substr(i, n);
        bool perdido = false;
        std::string b = Utf8ACp1252(uno, &perdido);
        // Los controles C1 sin letra propia en Windows-1252 tampoco sirven.
        if (perdido || (c >= 0x80 && c < 0xA0)) {
            char u[16];
            std::snprintf(u, sizeof u, "U+%04X", static_cast<unsigned>(c));
            malo = "«" + uno + "» (" + u + ")";
            return false;
        }
        bytes += b;
        i += n;
    }
    return true;
}

struct Candidata {
    std::string lugar;
    std::string pregunta;  // UTF-8
    std::vector<std::string> respuestas;
    int correcta = 0;  // desde 1
};

// Junta las preguntas buenas en el .qzf y apunta las que no entran.
class Escritor {
public:
    explicit Escritor(ResultadoConversion& r) : r_(r) {}

    void Rechazar(const std::string& lugar, const std::string& texto) {
        r_.avisos.push_back({lugar, texto});
        ++r_.sinConvertir;
    }

    void Anadir(Candidata c) {
        c.pregunta = Limpiar(c.pregunta);
        for (auto& x : c.respuestas) x = Limpiar(x);
        if (c.pregunta.empty()) return Rechazar(c.lugar, "la pregunta está vacía");
        if (c.respuestas.size() < 2) return Rechazar(c.lugar, "hacen falta al menos dos respuestas");
        if (c.respuestas.size() > static_cast<std::size_t>(kMaxRespuestas))
            return Rechazar(c.lugar, "tiene " + Num(static_cast<long long>(c.respuestas.size())) +
                                         " respuestas y caben " + Num(kMaxRespuestas) + " como mucho");
        for (std::size_t i = 0; i < c.respuestas.size(); ++i)
            if (c.respuestas[i].empty())
                return Rechazar(c.lugar,
                                "la respuesta " + Num(static_cast<long long>(i + 1)) + " está vacía");
        if (c.correcta < 1 || c.correcta > static_cast<int>(c.respuestas.size()))
            return Rechazar(c.lugar, "no se sabe cuál es la respuesta correcta");

        std::string pregunta;
        std::string malo;
        if (!ACp1252(c.pregunta, pregunta, malo))
            return Rechazar(c.lugar, "el carácter " + malo + " no existe en Windows-1252");
        std::string registro = "q>" + pregunta + "\r\n";
        for (std::size_t i = 0; i < c.respuestas.size(); ++i) {
            std::string respuesta;
            if (!ACp1252(c.respuestas[i], respuesta, malo))
                return Rechazar(c.lugar, "el carácter " + malo + " de la respuesta " +
                                             Num(static_cast<long long>(i + 1)) +
                                             " no existe en Windows-1252");
            registro += Num(static_cast<long long>(i + 1)) + ">" + respuesta + "\r\n";
        }
        registro += "a>" + Num(c.correcta) + "\r\n";

        const std::string clave = ClavePregunta(pregunta);
        auto ya = vistas_.find(clave);
        if (ya != vistas_.end()) return Rechazar(c.lugar, "pregunta repetida (" + ya->second + ")");
        if (r_.convertidas >= kMaxPreguntas)
            return Rechazar(c.lugar, "el fichero ya tiene " + Num(kMaxPreguntas) +
                                         " preguntas, las que el juego puede contar");
        // Lo que el juego leería mal y no se ha visto arriba, también fuera.
        const RevisionQzf rev = RevisarQzf(registro);
        if (!rev.problemas.empty())
            return Rechazar(c.lugar, "el juego la leería mal: " + rev.problemas.front().texto);

        vistas_.emplace(clave, c.lugar);
        if (!r_.qzf.empty()) r_.qzf += "\r\n";
        r_.qzf += registro;
        ++r_.convertidas;
    }

private:
    ResultadoConversion& r_;
    std::map<std::string, std::string> vistas_;
};

std::string Linea(std::size_t i) { return "línea " + Num(static_cast<long long>(i + 1)); }

// ---- Aiken ----

// "A) texto" o "A. texto": la letra y el texto.
bool OpcionAiken(const std::string& l, char& letra, std::string& texto) {
    if (l.size() < 2 || l[0] < 'A' || l[0] > 'Z' || (l[1] != ')' && l[1] != '.')) return false;
    if (l.size() > 2 && l[2] != ' ' && l[2] != '\t') return false;
    letra = l[0];
    texto = l.size() > 2 ? l.substr(3) : std::string();
    return true;
}

bool RespuestaAiken(const std::string& l, std::string& resto) {
    if (l.size() < 7) return false;
    std::string cabeza = l.substr(0, 7);
    for (char& ch : cabeza) ch = static_cast<char>(ch >= 'a' && ch <= 'z' ? ch - 32 : ch);
    if (cabeza != "ANSWER:") return false;
    resto = SinBlancos(l.substr(7));
    return true;
}

void ConvertirAiken(const std::string& texto, Escritor& e) {
    const std::vector<std::string> lineas = Lineas(texto);
    Candidata c;
    bool abierta = false;  // hay pregunta a medias
    bool roto = false;     // ya se dijo qué le pasa; se pasa por alto hasta el ANSWER
    std::vector<char> letras;
    auto empezar = [&](std::size_t i) {
        c = Candidata{};
        c.lugar = Linea(i);
        letras.clear();
        abierta = true;
        roto = false;
    };
    auto sinAnswer = [&]() {
        if (abierta && !roto) e.Rechazar(c.lugar, "falta la línea ANSWER: con la letra correcta");
        abierta = false;
    };
    for (std::size_t i = 0; i < lineas.size(); ++i) {
        const std::string l = SinBlancos(lineas[i]);
        if (l.empty()) continue;
        char letra = 0;
        std::string resto;
        if (RespuestaAiken(l, resto)) {
            if (!abierta) {
                e.Rechazar(Linea(i), "ANSWER: sin pregunta delante");
                continue;
            }
            abierta = false;
            if (roto) continue;
            if (resto.size() != 1) {
                e.Rechazar(c.lugar, "ANSWER: debe llevar una sola letra (" + Linea(i) + ")");
                continue;
            }
            c.correcta = 0;
            for (std::size_t k = 0; k < letras.size(); ++k)
                if (letras[k] == resto[0]) c.correcta = static_cast<int>(k + 1);
            if (c.correcta == 0) {
                e.Rechazar(c.lugar, "ANSWER: " + resto + " no es ninguna de las opciones (" + Linea(i) + ")");
                continue;
            }
            e.Anadir(c);
        } else if (abierta && !c.pregunta.empty() && OpcionAiken(l, letra, resto)) {
            if (roto) continue;
            if (letra != static_cast<char>('A' + letras.size())) {
                e.Rechazar(c.lugar, std::string("la opción ") + letra + " no sigue el orden A, B, C... (" +
                                        Linea(i) + ")");
                roto = true;
                continue;
            }
            letras.push_back(letra);
            c.respuestas.push_back(resto);
        } else if (abierta && letras.empty()) {
            c.pregunta += " " + l;  // la pregunta sigue en otra línea
        } else {
            sinAnswer();
            empezar(i);
            c.pregunta = l;
        }
    }
    sinAnswer();
}

// ---- GIFT ----

// Los escapes pasan a bytes de control que no salen en el texto, para que no cuenten
// como marcas; al final vuelven a su carácter.
const std::string kEscapables = "~=#{}:\\";

std::string QuitarEscapes(const std::string& s) {
    std::string r;
    for (std::size_t i = 0; i < s.size(); ++i) {
        if (s[i] == '\\' && i + 1 < s.size()) {
            std::size_t k = kEscapables.find(s[i + 1]);
            if (k != std::string::npos) {
                r.push_back(static_cast<char>(1 + k));
                ++i;
                continue;
            }
            if (s[i + 1] == 'n') {
                r.push_back(' ');
                ++i;
                continue;
            }
        }
        r.push_back(s[i]);
    }
    return r;
}

std::string PonerEscapes(const std::string& s) {
    std::string r;
    for (char ch : s) {
        auto u = static_cast<unsigned char>(ch);
        r.push_back(u >= 1 && u <= kEscapables.size() ? kEscapables[u - 1] : ch);
    }
    return r;
}

// El texto de una respuesta sin su realimentación (#...).
std::string SinRealimentacion(const std::string& s) { return s.substr(0, s.find('#')); }

void ConvertirBloqueGift(const std::string& bloque, const std::string& lugar, Escritor& e) {
    std::string s = SinBlancos(bloque);
    auto noConvertida = [&](const std::string& porque) { e.Rechazar(lugar, "no se convierte: " + porque); };
    if (s.rfind("::", 0) == 0) {
        std::size_t fin = s.find("::", 2);
        if (fin == std::string::npos) return noConvertida("el título no se cierra con ::");
        s = s.substr(fin + 2);
    }
    const std::size_t abre = s.find('{');
    if (abre == std::string::npos) return noConvertida("no hay respuestas entre llaves { }");
    const std::size_t cierra = s.find('}', abre);
    if (cierra == std::string::npos) return noConvertida("falta la llave } que cierra las respuestas");
    std::string enunciado = SinBlancos(s.substr(0, abre));
    for (const char* f : {"[html]", "[moodle]", "[plain]", "[markdown]"})
        if (enunciado.rfind(f, 0) == 0) enunciado = enunciado.substr(std::string(f).size());
    const std::string detras = SinBlancos(s.substr(cierra + 1));
    if (s.find('{', cierra) != std::string::npos) return noConvertida("tiene varios huecos con respuestas");
    // Con texto detrás de las llaves es una pregunta de hueco: el hueco queda en el enunciado.
    if (!detras.empty())
        enunciado = SinBlancos(enunciado) + " _____" +
                    (std::string(".,;:?!)").find(detras[0]) == std::string::npos ? " " : "") + detras;

    std::string dentro = SinBlancos(s.substr(abre + 1, cierra - abre - 1));
    if (dentro.empty()) return noConvertida("es una pregunta de redacción");
    if (dentro[0] == '#') return noConvertida("es una pregunta numérica");
    {
        std::string m = dentro.substr(0, dentro.find('#'));
        m = SinBlancos(m);
        for (char& ch : m) ch = static_cast<char>(ch >= 'a' && ch <= 'z' ? ch - 32 : ch);
        if (m == "T" || m == "F" || m == "TRUE" || m == "FALSE")
            return noConvertida("es una pregunta de verdadero o falso");
    }
    const std::size_t general = dentro.find("####");
    if (general != std::string::npos) dentro = dentro.substr(0, general);

    Candidata c;
    c.lugar = lugar;
    c.pregunta = PonerEscapes(enunciado);
    int buenas = 0;
    int malas = 0;
    std::size_t i = dentro.find_first_of("=~");
    if (i != 0 || dentro.empty()) return noConvertida("las respuestas no empiezan por = o ~");
    while (i != std::string::npos) {
        const char marca = dentro[i];
        std::size_t j = dentro.find_first_of("=~", i + 1);
        std::string texto = dentro.substr(i + 1, j == std::string::npos ? std::string::npos : j - i - 1);
        if (texto.find("->") != std::string::npos) return noConvertida("es una pregunta de emparejar");
        if (texto.rfind("%", 0) == 0) return noConvertida("tiene respuestas con porcentajes");
        texto = SinRealimentacion(texto);
        if (marca == '=') {
            ++buenas;
            c.correcta = static_cast<int>(c.respuestas.size() + 1);
        } else {
            ++malas;
        }
        c.respuestas.push_back(PonerEscapes(texto));
        i = j;
    }
    if (malas == 0) return noConvertida("es una pregunta de respuesta corta (no tiene respuestas con ~)");
    if (buenas != 1) return noConvertida("debe tener exactamente una respuesta correcta con =");
    e.Anadir(c);
}

void ConvertirGift(const std::string& texto, Escritor& e) {
    const std::vector<std::string> lineas = Lineas(QuitarEscapes(texto));
    std::string bloque;
    std::size_t inicio = 0;
    auto cerrar = [&]() {
        if (!SinBlancos(bloque).empty()) ConvertirBloqueGift(bloque, Linea(inicio), e);
        bloque.clear();
    };
    for (std::size_t i = 0; i < lineas.size(); ++i) {
        const std::string l = SinBlancos(lineas[i]);
        if (l.rfind("//", 0) == 0) continue;
        if (l.rfind("$CATEGORY:", 0) == 0) continue;  // las categorías del juego van en las opciones
        if (l.empty()) {
            cerrar();
            continue;
        }
        if (bloque.empty()) inicio = i;
        bloque += lineas[i] + "\n";
    }
    cerrar();
}

// ---- OpenTDB ----

// Las entidades de HTML que trae el JSON; las desconocidas se dejan tal cual.
std::string SinEntidades(const std::string& s) {
    static const std::map<std::string, char32_t> nombres = {
        {"quot", 0x22},    {"amp", 0x26},     {"apos", 0x27},     {"lt", 0x3C},      {"gt", 0x3E},
        {"nbsp", 0xA0},    {"iexcl", 0xA1},   {"deg", 0xB0},      {"iquest", 0xBF},  {"Agrave", 0xC0},
        {"Aacute", 0xC1},  {"Auml", 0xC4},    {"Aring", 0xC5},    {"Ccedil", 0xC7},  {"Eacute", 0xC9},
        {"Iacute", 0xCD},  {"Ntilde", 0xD1},  {"Oacute", 0xD3},   {"Ouml", 0xD6},    {"Uacute", 0xDA},
        {"Uuml", 0xDC},    {"szlig", 0xDF},   {"agrave", 0xE0},   {"aacute", 0xE1},  {"acirc", 0xE2},
        {"auml", 0xE4},    {"aring", 0xE5},   {"ccedil", 0xE7},   {"egrave", 0xE8},  {"eacute", 0xE9},
        {"ecirc", 0xEA},   {"euml", 0xEB},    {"iacute", 0xED},   {"iuml", 0xEF},    {"ntilde", 0xF1},
        {"oacute", 0xF3},  {"ocirc", 0xF4},   {"ouml", 0xF6},     {"uacute", 0xFA},  {"uuml", 0xFC},
        {"shy", 0xAD},     {"ndash", 0x2013}, {"mdash", 0x2014},  {"lsquo", 0x2018}, {"rsquo", 0x2019},
        {"ldquo", 0x201C}, {"rdquo", 0x201D}, {"hellip", 0x2026}, {"pi", 0x3C0},
    };
    std::string r;
    for (std::size_t i = 0; i < s.size(); ++i) {
        if (s[i] == '&') {
            std::size_t fin = s.find(';', i);
            if (fin != std::string::npos && fin - i <= 10) {
                const std::string nombre = s.substr(i + 1, fin - i - 1);
                char32_t c = 0;
                if (nombre.size() > 1 && nombre[0] == '#') {
                    const bool hex = nombre[1] == 'x' || nombre[1] == 'X';
                    const std::string cifras = nombre.substr(hex ? 2 : 1);
                    if (!cifras.empty() && cifras.find_first_not_of(hex ? "0123456789abcdefABCDEF"
                                                                        : "0123456789") == std::string::npos)
                        c = static_cast<char32_t>(std::stoul(cifras, nullptr, hex ? 16 : 10));
                    if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) c = 0;
                } else {
                    auto it = nombres.find(nombre);
                    if (it != nombres.end()) c = it->second;
                }
                if (c != 0) {
                    PonerUtf8(r, c);
                    i = fin;
                    continue;
                }
            }
        }
        r.push_back(s[i]);
    }
    return r;
}

// Lugar fijo de la correcta para cada pregunta: no siempre el mismo, pero el mismo en
// cada conversión del mismo fichero.
std::size_t LugarCorrecta(const std::string& pregunta, std::size_t n) {
    std::uint32_t h = 2166136261u;
    for (unsigned char b : pregunta) h = (h ^ b) * 16777619u;
    return h % n;
}

// Una pasada que solo busca el primer error del JSON y dónde está, sin lanzar nada: el lector
// de nlohmann lanza otra excepción, no la de sintaxis, con un número que no cabe (1e999999).
class ErrorJson : public nlohmann::json_sax<nlohmann::json> {
public:
    std::size_t byte = 0;
    std::string texto;

    bool null() override { return true; }
    bool boolean(bool) override { return true; }
    bool number_integer(number_integer_t) override { return true; }
    bool number_unsigned(number_unsigned_t) override { return true; }
    bool number_float(number_float_t, const string_t&) override { return true; }
    bool string(string_t&) override { return true; }
    bool binary(binary_t&) override { return true; }
    bool start_object(std::size_t) override { return true; }
    bool key(string_t&) override { return true; }
    bool end_object() override { return true; }
    bool start_array(std::size_t) override { return true; }
    bool end_array() override { return true; }
    bool parse_error(std::size_t posicion, const std::string& ficha,
                     const nlohmann::json::exception& error) override {
        byte = posicion;
        texto = "el JSON no es válido";
        // 406: un número fuera de lo que cabe en un double.
        if (error.id == 406) texto = "el número " + ficha.substr(0, 40) + " está fuera de rango: " + texto;
        return false;
    }
};

void ConvertirOpenTdb(const std::string& texto, Escritor& e) {
    ErrorJson error;
    nlohmann::json j;
    if (nlohmann::json::sax_parse(texto, &error)) j = nlohmann::json::parse(texto, nullptr, false);
    if (j.is_discarded() || !error.texto.empty()) {
        std::size_t linea = 1;
        for (std::size_t k = 0; k < error.byte && k < texto.size(); ++k)
            if (texto[k] == '\n') ++linea;
        e.Rechazar("línea " + Num(static_cast<long long>(linea)),
                   error.texto.empty() ? "el JSON no es válido" : error.texto);
        return;
    }
    if (!j.is_object() || !j.contains("results") || !j["results"].is_array()) {
        e.Rechazar("línea 1", "no hay una lista \"results\" con las preguntas");
        return;
    }
    std::size_t numero = 0;
    for (const auto& p : j["results"]) {
        ++numero;
        const std::string lugar = "pregunta " + Num(static_cast<long long>(numero));
        if (!p.is_object() || !p.contains("question") || !p["question"].is_string() ||
            !p.contains("correct_answer") || !p["correct_answer"].is_string() ||
            !p.contains("incorrect_answers") || !p["incorrect_answers"].is_array()) {
            e.Rechazar(lugar, "le falta question, correct_answer o incorrect_answers");
            continue;
        }
        Candidata c;
        c.lugar = lugar;
        c.pregunta = SinEntidades(p["question"].get<std::string>());
        const std::string correcta = SinEntidades(p["correct_answer"].get<std::string>());
        const std::string tipo =
            p.contains("type") && p["type"].is_string() ? p["type"].get<std::string>() : "";
        if (tipo == "boolean") {
            c.respuestas = {"Verdadero", "Falso"};
            if (correcta == "True")
                c.correcta = 1;
            else if (correcta == "False")
                c.correcta = 2;
            else {
                e.Rechazar(lugar, "en verdadero o falso la correcta debe ser True o False");
                continue;
            }
            e.Anadir(c);
            continue;
        }
        std::vector<std::string> malas;
        bool bien = true;
        for (const auto& m : p["incorrect_answers"]) {
            if (!m.is_string())
                bien = false;
            else
                malas.push_back(SinEntidades(m.get<std::string>()));
        }
        if (!bien) {
            e.Rechazar(lugar, "incorrect_answers debe ser una lista de textos");
            continue;
        }
        const std::size_t n = malas.size() + 1;
        const std::size_t sitio = LugarCorrecta(c.pregunta, n);
        c.respuestas = malas;
        c.respuestas.insert(c.respuestas.begin() + static_cast<std::ptrdiff_t>(sitio), correcta);
        c.correcta = static_cast<int>(sitio + 1);
        e.Anadir(c);
    }
}

bool Termina(const std::string& s, const std::string& fin) {
    return s.size() >= fin.size() && s.compare(s.size() - fin.size(), fin.size(), fin) == 0;
}

}  // namespace

bool FormatoPorNombre(const std::string& nombre, FormatoEntrada& formato) {
    const std::string n = Minusculas(nombre);
    if (n == "aiken")
        formato = FormatoEntrada::Aiken;
    else if (n == "gift")
        formato = FormatoEntrada::Gift;
    else if (n == "opentdb")
        formato = FormatoEntrada::OpenTdb;
    else
        return false;
    return true;
}

FormatoEntrada DetectarFormato(const std::string& ruta, const std::string& bytes) {
    const std::string r = Minusculas(ruta);
    if (Termina(r, ".json")) return FormatoEntrada::OpenTdb;
    if (Termina(r, ".gift")) return FormatoEntrada::Gift;
    const std::string s = SinBlancos(EnUtf8(bytes).substr(0, 4096));
    if (!s.empty() && s[0] == '{') return FormatoEntrada::OpenTdb;
    for (const std::string& l : Lineas(EnUtf8(bytes))) {
        std::string resto;
        if (RespuestaAiken(SinBlancos(l), resto)) return FormatoEntrada::Aiken;
    }
    return bytes.find('{') != std::string::npos ? FormatoEntrada::Gift : FormatoEntrada::Aiken;
}

ResultadoConversion Convertir(FormatoEntrada formato, const std::string& bytes) {
    ResultadoConversion r;
    Escritor e(r);
    const std::string texto = EnUtf8(bytes);
    // Nada de lo que venga en el fichero debe tumbar la orden: lo que se escape, se dice.
    try {
        switch (formato) {
            case FormatoEntrada::Aiken: ConvertirAiken(texto, e); break;
            case FormatoEntrada::Gift: ConvertirGift(texto, e); break;
            case FormatoEntrada::OpenTdb: ConvertirOpenTdb(texto, e); break;
        }
    } catch (const std::exception&) {
        r = ResultadoConversion{};
        r.sinConvertir = 1;
        r.avisos.push_back({"línea 1", "no se pudo leer el fichero entero: no se convierte nada"});
    }
    return r;
}

}  // namespace sabelot

#include "storage/texto_delimitado.h"

#include "comun/estado.h"
#include "storage/canales.h"
#include "storage/cp1252.h"

namespace sabelot {

namespace {

std::string Donde(std::size_t registro) { return " en el registro " + std::to_string(registro); }

// Un campo sin comillas: número entero o booleano.
bool LeerSinComillas(const std::string& texto, Campo& campo) {
    if (texto == "#TRUE#" || texto == "#FALSE#") {
        campo.tipo = Campo::Tipo::Booleano;
        campo.booleano = texto == "#TRUE#";
        return true;
    }
    std::size_t i = 0;
    bool negativo = false;
    if (i < texto.size() && texto[i] == '-') {
        negativo = true;
        ++i;
    }
    if (i == texto.size()) return false;
    long valor = 0;
    for (; i < texto.size(); ++i) {
        char c = texto[i];
        if (c < '0' || c > '9') return false;
        valor = valor * 10 + (c - '0');
        if (valor > 32768) return false;  // ya no cabe en un Integer
    }
    if (negativo) valor = -valor;
    if (valor < -32768 || valor > 32767) return false;
    campo.tipo = Campo::Tipo::Entero;
    campo.entero = static_cast<int>(valor);
    return true;
}

}  // namespace

TextoLeido LeerDelimitado(const std::string& b) {
    TextoLeido r;
    std::size_t i = 0;
    const std::size_t n = b.size();
    RegistroDelimitado actual;
    while (i < n) {
        Campo campo;
        const std::size_t num = r.registros.size() + 1;
        if (b[i] == '"') {
            std::size_t cierre = b.find('"', i + 1);
            if (cierre == std::string::npos) {
                r.error = "Cadena sin comillas de cierre" + Donde(num);
                return r;
            }
            std::string bytes = b.substr(i + 1, cierre - i - 1);
            for (unsigned char c : bytes) {
                // Ni las etiquetas ni los nombres llevan caracteres de control.
                if (c < 0x20 && c != '\t') {
                    r.error = "Carácter de control dentro de una cadena" + Donde(num);
                    return r;
                }
            }
            campo.tipo = Campo::Tipo::Cadena;
            campo.cadena = Cp1252AUtf8(bytes);
            i = cierre + 1;
        } else {
            std::size_t fin = i;
            while (fin < n && b[fin] != ',' && b[fin] != '\r' && b[fin] != '\n') ++fin;
            if (fin == i) {
                r.error = "Campo vacío" + Donde(num);
                return r;
            }
            if (!LeerSinComillas(b.substr(i, fin - i), campo)) {
                r.error = "Campo que no es ni número entero ni booleano" + Donde(num);
                return r;
            }
            i = fin;
        }
        actual.push_back(std::move(campo));
        if (i < n && b[i] == ',') {
            ++i;
            continue;
        }
        if (i + 1 < n && b[i] == '\r' && b[i + 1] == '\n') {
            i += 2;
            r.registros.push_back(std::move(actual));
            actual.clear();
            continue;
        }
        if (i >= n) {
            r.error = "Falta el fin de línea del último registro" + Donde(num);
        } else if (b[i] == '\r' || b[i] == '\n') {
            r.error = "Fin de línea que no es CR LF" + Donde(num);
        } else {
            r.error = "Texto tras las comillas de cierre" + Donde(num);
        }
        return r;
    }
    if (!actual.empty()) r.error = "Registro sin terminar" + Donde(r.registros.size() + 1);
    return r;
}

bool TieneForma(const RegistroDelimitado& registro, std::initializer_list<Campo::Tipo> tipos) {
    if (registro.size() != tipos.size()) return false;
    std::size_t i = 0;
    for (Campo::Tipo t : tipos) {
        if (registro[i++].tipo != t) return false;
    }
    return true;
}

std::optional<std::string> LeerBytes(Fichero& f, std::int64_t maximo, std::string& error) {
    const std::int64_t longitud = f.Longitud();
    if (longitud < 0 || longitud > maximo) {
        error = "Fichero demasiado grande";
        return std::nullopt;
    }
    f.IrA(1);
    std::string bytes;
    std::string linea;
    std::int64_t antes = f.Posicion();
    while (f.LeerLinea(linea)) {
        // Ni Sabelot.ini ni una partida tienen una línea así: el fichero no es de los nuestros.
        if (f.LineaLarga()) {
            error = "Línea demasiado larga";
            return std::nullopt;
        }
        const std::int64_t despues = f.Posicion();
        const auto consumido = static_cast<std::size_t>(despues - antes);
        bytes += linea;
        if (consumido == linea.size() + 2) {
            bytes += CRLF;
        } else if (consumido == linea.size() + 1) {
            bytes += '\n';  // CR o LF suelto: no es nuestro formato
        } else if (consumido != linea.size()) {
            error = "Lectura incoherente del fichero";
            return std::nullopt;
        }
        if (static_cast<std::int64_t>(bytes.size()) > maximo) {
            error = "Fichero demasiado grande";
            return std::nullopt;
        }
        antes = despues;
    }
    return bytes;
}

TextoLeido LeerFicheroDelimitado(Canales& canales, int canal, const std::string& ruta, std::int64_t maximo) {
    TextoLeido r;
    if (canales.Abrir(canal, ruta) != 0) {
        r.error = "No se pudo abrir el fichero";
        return r;
    }
    std::string error;
    std::optional<std::string> bytes = LeerBytes(*canales.Get(canal), maximo, error);
    canales.Cerrar(canal);
    if (!bytes) {
        r.error = error;
        return r;
    }
    return LeerDelimitado(*bytes);
}

void EscritorDelimitado::Separar() {
    if (!primero_) bytes_ += ',';
    primero_ = false;
}

void EscritorDelimitado::Entero(int valor) {
    Separar();
    bytes_ += std::to_string(valor);
}

void EscritorDelimitado::Cadena(const std::string& utf8) {
    Separar();
    std::string bytes = Utf8ACp1252(utf8);
    for (char& c : bytes) {
        // Lo que el lector no aceptaría dentro de unas comillas.
        if (c == '"')
            c = '\'';
        else if (static_cast<unsigned char>(c) < 0x20 && c != '\t')
            c = ' ';
    }
    bytes_ += '"';
    bytes_ += bytes;
    bytes_ += '"';
}

void EscritorDelimitado::Booleano(bool valor) {
    Separar();
    bytes_ += valor ? "#TRUE#" : "#FALSE#";
}

void EscritorDelimitado::FinRegistro() {
    bytes_ += CRLF;
    primero_ = true;
}

}  // namespace sabelot

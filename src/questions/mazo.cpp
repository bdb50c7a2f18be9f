#include "questions/mazo.h"

namespace sabelot {

namespace {

// Valor de una cifra hexadecimal en cualquier caja, o -1.
int Cifra(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

}  // namespace

std::string MarcaMazo(std::int64_t posicion) {
    static const char kCifras[] = "0123456789ABCDEF";
    auto v = static_cast<std::uint64_t>(posicion);
    std::string s;
    do {
        s.insert(s.begin(), kCifras[v & 15]);
        v >>= 4;
    } while (v != 0);
    return s + "]";
}

void IndiceMazo::Sincronizar(const std::string& mazo) {
    // Solo este índice añade marcas; si el largo no cuadra, la cadena se cambió por fuera.
    if (mazo.size() != longitud_) Rehacer(mazo);
}

bool IndiceMazo::Contiene(std::int64_t posicion) const {
    if (posicion <= 0) return false;
    const auto v = static_cast<std::uint64_t>(posicion);
    if (v >= kTopeBits) return grandes_.count(v) != 0;
    const std::size_t palabra = static_cast<std::size_t>(v >> 6);
    return palabra < bits_.size() && ((bits_[palabra] >> (v & 63)) & 1) != 0;
}

void IndiceMazo::Poner(std::uint64_t valor) {
    if (valor >= kTopeBits) {
        grandes_.insert(valor);
        return;
    }
    const std::size_t palabra = static_cast<std::size_t>(valor >> 6);
    if (palabra >= bits_.size()) bits_.resize(palabra + 1);
    bits_[palabra] |= std::uint64_t{1} << (valor & 63);
}

void IndiceMazo::Anadir(std::string& mazo, std::int64_t posicion) {
    bool alDia = mazo.size() == longitud_ && (mazo.empty() || mazo.back() == ']');
    std::size_t inicio = mazo.size();
    mazo += MarcaMazo(posicion);
    if (!alDia) {
        // Un resto sin "]" al final se une a la marca nueva: mejor rehacerlo todo.
        Rehacer(mazo);
        return;
    }
    AnadirTrozo(mazo, inicio, mazo.size() - 1);
    longitud_ = mazo.size();
}

void IndiceMazo::Rehacer(const std::string& mazo) {
    bits_.clear();
    grandes_.clear();
    std::size_t inicio = 0;
    for (std::size_t i = 0; i < mazo.size(); ++i) {
        if (mazo[i] == ']') {
            AnadirTrozo(mazo, inicio, i);
            inicio = i + 1;
        }
    }
    longitud_ = mazo.size();
}

void IndiceMazo::AnadirTrozo(const std::string& mazo, std::size_t inicio, std::size_t fin) {
    // De atrás adelante: cada final que no empieza por cero es un número distinto.
    // Más de 16 cifras no caben en una posición, así que no pueden coincidir.
    std::uint64_t valor = 0;
    int cifras = 0;
    for (std::size_t i = fin; i > inicio && cifras < 16; --i, ++cifras) {
        int d = Cifra(mazo[i - 1]);
        if (d < 0) break;
        valor |= static_cast<std::uint64_t>(d) << (4 * cifras);
        if (d != 0) Poner(valor);
    }
}

}  // namespace sabelot

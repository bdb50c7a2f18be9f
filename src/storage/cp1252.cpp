#include "storage/cp1252.h"

#include <cstdint>

#include "comun/texto.h"

namespace sabelot {

namespace {

// 0x80 a 0x9F; 0 donde Windows-1252 no define carácter.
constexpr char32_t kAltos[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

}  // namespace

std::string Cp1252AUtf8(const std::string& bytes) {
    std::string s;
    s.reserve(bytes.size());
    for (unsigned char b : bytes) {
        char32_t c = b;
        if (b >= 0x80 && b < 0xA0) {
            c = kAltos[b - 0x80];
            if (c == 0) c = b;  // sin definir: se conserva como carácter de control
        }
        PonerUtf8(s, c);
    }
    return s;
}

std::string Utf8ACp1252(const std::string& texto, bool* perdido) {
    std::string s;
    s.reserve(texto.size());
    if (perdido) *perdido = false;
    std::size_t i = 0;
    while (i < texto.size()) {
        char32_t c = 0;
        std::size_t n = LeerUtf8(texto, i, c);
        if (n == 0) {
            c = 0xFFFD;
            n = 1;
        }
        i += n;
        if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) {
            s.push_back(static_cast<char>(c));
            continue;
        }
        if (c >= 0x80 && c < 0xA0 && kAltos[c - 0x80] == 0) {
            s.push_back(static_cast<char>(c));
            continue;
        }
        char encontrado = 0;
        for (int k = 0; k < 32; ++k) {
            if (kAltos[k] != 0 && kAltos[k] == c) encontrado = static_cast<char>(0x80 + k);
        }
        if (encontrado) {
            s.push_back(encontrado);
        } else {
            s.push_back('?');
            if (perdido) *perdido = true;
        }
    }
    return s;
}

}  // namespace sabelot

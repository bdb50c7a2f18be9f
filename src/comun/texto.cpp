#include "comun/texto.h"

namespace sabelot {

std::size_t LeerUtf8(const std::string& s, std::size_t i, char32_t& c) {
    const auto b = static_cast<unsigned char>(s[i]);
    std::size_t n = 0;
    if (b < 0x80) {
        c = b;
        return 1;
    }
    if (b >= 0xC2 && b <= 0xDF) {
        c = b & 0x1F;
        n = 2;
    } else if (b >= 0xE0 && b <= 0xEF) {
        c = b & 0x0F;
        n = 3;
    } else if (b >= 0xF0 && b <= 0xF4) {
        c = b & 0x07;
        n = 4;
    } else {
        return 0;
    }
    if (i + n > s.size()) return 0;
    for (std::size_t k = 1; k < n; ++k) {
        const auto cb = static_cast<unsigned char>(s[i + k]);
        if ((cb & 0xC0) != 0x80) return 0;
        c = (c << 6) | (cb & 0x3F);
    }
    if ((n == 3 && c < 0x800) || (n == 4 && (c < 0x10000 || c > 0x10FFFF)) || (c >= 0xD800 && c <= 0xDFFF))
        return 0;
    return n;
}

bool EsUtf8(const std::string& s) {
    char32_t c = 0;
    for (std::size_t i = 0; i < s.size();) {
        const std::size_t n = LeerUtf8(s, i, c);
        if (n == 0) return false;
        i += n;
    }
    return true;
}

void PonerUtf8(std::string& s, char32_t c) {
    if (c < 0x80) {
        s.push_back(static_cast<char>(c));
    } else if (c < 0x800) {
        s.push_back(static_cast<char>(0xC0 | (c >> 6)));
        s.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else if (c < 0x10000) {
        s.push_back(static_cast<char>(0xE0 | (c >> 12)));
        s.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
        s.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else {
        s.push_back(static_cast<char>(0xF0 | (c >> 18)));
        s.push_back(static_cast<char>(0x80 | ((c >> 12) & 0x3F)));
        s.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
        s.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    }
}

int Caracteres(const std::string& s) {
    int n = 0;
    for (unsigned char b : s) {
        if ((b & 0xC0) != 0x80) ++n;
    }
    return n;
}

std::string Recortar(const std::string& s) {
    const std::size_t inicio = s.find_first_not_of(' ');
    if (inicio == std::string::npos) return "";
    return s.substr(inicio, s.find_last_not_of(' ') - inicio + 1);
}

std::string MayusculasAscii(std::string s) {
    for (char& c : s) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return s;
}

bool IgualesSinMayusculas(const std::string& a, const std::string& b) {
    return a.size() == b.size() && MayusculasAscii(a) == MayusculasAscii(b);
}

std::string Minusculas(const std::string& utf8) {
    std::string r;
    r.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size();) {
        char32_t c = 0;
        const std::size_t n = LeerUtf8(utf8, i, c);
        if (n == 0) {
            r.push_back(utf8[i++]);
            continue;
        }
        // A-Z y las mayúsculas de Latin-1 (salvo el signo de multiplicar) están 32 más abajo.
        if ((c >= U'A' && c <= U'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7)) c += 32;
        PonerUtf8(r, c);
        i += n;
    }
    return r;
}

std::string SinControles(std::string s) {
    for (char& c : s) {
        const auto b = static_cast<unsigned char>(c);
        if ((b < 0x20 && c != '\r' && c != '\n') || b == 0x7F) c = ' ';
    }
    return s;
}

}  // namespace sabelot

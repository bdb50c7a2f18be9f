#include "storage/utf8.h"

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

}  // namespace sabelot

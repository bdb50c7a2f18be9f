// UTF-8 a mano, pero en un solo sitio: el juego y las herramientas leen y escriben igual.
#pragma once

#include <cstddef>
#include <string>

namespace sabelot {

// Un carácter de UTF-8 en s[i]: cuántos bytes ocupa, o 0 si la secuencia no vale
// (cortada, larga de más, sustituto o fuera de Unicode).
std::size_t LeerUtf8(const std::string& s, std::size_t i, char32_t& c);
bool EsUtf8(const std::string& s);
void PonerUtf8(std::string& s, char32_t c);

}  // namespace sabelot

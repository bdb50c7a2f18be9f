// Los ficheros del juego van en Windows-1252; dentro del programa todo es UTF-8.
#pragma once

#include <string>

namespace sabelot {

std::string Cp1252AUtf8(const std::string& bytes);
// Lo que no cabe en Windows-1252 sale como '?'. 'perdido' dice si pasó.
std::string Utf8ACp1252(const std::string& texto, bool* perdido = nullptr);

}  // namespace sabelot

// Ayudas de texto del núcleo, en un solo sitio: UTF-8, blancos, mayúsculas y
// comparaciones. Todo el texto del programa va en UTF-8.
#pragma once

#include <cstddef>
#include <string>

namespace sabelot {

// Un carácter de UTF-8 en s[i]: cuántos bytes ocupa, o 0 si la secuencia no vale
// (cortada, larga de más, sustituto o fuera de Unicode).
std::size_t LeerUtf8(const std::string& s, std::size_t i, char32_t& c);
bool EsUtf8(const std::string& s);
void PonerUtf8(std::string& s, char32_t c);
// Cuántos caracteres tiene un texto UTF-8; un byte que no encaja cuenta como uno.
int Caracteres(const std::string& s);

// Sin los blancos de los extremos; los tabuladores y saltos de línea se quedan, porque
// el jugador solo puede escribir blancos de más sin querer.
std::string Recortar(const std::string& s);
// Las letras a-z en mayúscula; lo demás, igual.
std::string MayusculasAscii(std::string s);
// Iguales sin distinguir mayúsculas de a-z.
bool IgualesSinMayusculas(const std::string& a, const std::string& b);
// En minúsculas las letras latinas, también las acentuadas y la eñe: como compara los nombres
// de fichero un sistema que no distingue mayúsculas.
std::string Minusculas(const std::string& utf8);
// Los caracteres de control pasan a blancos (salvo CR y LF, que son los saltos de
// línea del juego): un lector de pantalla no dice un texto que los lleve.
std::string SinControles(std::string s);

}  // namespace sabelot

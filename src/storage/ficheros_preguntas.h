// Si los ficheros de preguntas elegidos están, y si un canal está abierto.
#pragma once

namespace sabelot {

class Canales;

// Verdadero si hay un fichero abierto en ese canal. El 0 y los que nunca se
// abrieron no lo están.
bool CanalAbierto(Canales& canales, int canal);

}  // namespace sabelot

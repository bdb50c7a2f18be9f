// Si los ficheros de preguntas elegidos están, y si un canal está abierto.
#pragma once

#include "comun/estado.h"
#include "comun/plataforma.h"

namespace sabelot {

class Canales;

// Verdadero si falta en la carpeta preguntas alguno de los seis ficheros elegidos. Un
// nombre vacío es un tema sin fichero, y cuenta como que falta.
bool FaltaFicheroDePreguntas(const Module1& m, Plataforma& p);

// Verdadero si hay un fichero abierto en ese canal. El 0 y los que nunca se
// abrieron no lo están.
bool CanalAbierto(Canales& canales, int canal);

}  // namespace sabelot

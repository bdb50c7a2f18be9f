// El fichero de opciones Sabelot.ini: siete registros en el texto delimitado.
#pragma once

#include "comun/estado.h"
#include "comun/plataforma.h"
#include "storage/canales.h"
#include "storage/texto_delimitado.h"

namespace sabelot {

// Una etiqueta de categoría se dice en cada casilla: más larga que esto no es una etiqueta.
inline constexpr int kMaxEtiqueta = 60;

// Una etiqueta que cabe en los ficheros: como mucho kMaxEtiqueta caracteres y un blanco detrás,
// sin comillas dobles (el fichero no sabe guardarlas) ni caracteres de control.
bool EtiquetaValida(const std::string& etiqueta);
// El nombre de un fichero de preguntas, sin carpeta ni extensión: vacío (ninguno) o un nombre
// que no sale de la carpeta preguntas.
bool NombreDeFicheroValido(const std::string& nombre);

// Si el fichero existe y se lee entero y bien, cambia las opciones del estado; si no
// existe, o está roto, no cambia nada ni dice nada (y no lo toca).
void LeerOpciones(Module1& m, Plataforma& p, Canales& canales);
// Los seis registros de las categorías (fichero, etiqueta, canal), los mismos en Sabelot.ini y
// en una partida guardada.
void EscribirTemas(EscritorDelimitado& e, const Module1& m);
// Escribe el fichero de una vez (temporal y renombrar). Falso si no se pudo; el
// fichero anterior queda como estaba.
bool GuardarOpciones(const Module1& m, Plataforma& p);

}  // namespace sabelot

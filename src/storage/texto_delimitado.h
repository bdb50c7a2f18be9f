// El texto delimitado de Sabelot.ini y de las partidas: registros de una línea,
// campos separados por una coma, cadenas entre comillas sin escapes, CR LF al final
// de cada registro. En el fichero va en Windows-1252; aquí dentro, en UTF-8.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "comun/plataforma.h"

namespace sabelot {

class Canales;

struct Campo {
    enum class Tipo { Entero, Cadena, Booleano };
    Tipo tipo = Tipo::Entero;
    int entero = 0;
    bool booleano = false;
    std::string cadena;  // UTF-8
};

using RegistroDelimitado = std::vector<Campo>;

// Lo leído, o el motivo por el que no se pudo.
struct TextoLeido {
    std::vector<RegistroDelimitado> registros;
    std::string error;  // vacío si todo fue bien
    bool Bien() const { return error.empty(); }
};

// Lee los registros de unos bytes. Estricto: cada registro acaba en CR LF, un campo
// sin comillas es un Integer (de -32768 a 32767) o #TRUE# / #FALSE#, y tras unas
// comillas de cierre solo cabe una coma o el fin del registro. Cualquier otra cosa
// es un error, nunca una excepción.
TextoLeido LeerDelimitado(const std::string& bytes);

// Verdadero si el registro tiene justo esos campos, de esos tipos y en ese orden.
bool TieneForma(const RegistroDelimitado& registro, std::initializer_list<Campo::Tipo> tipos);

// Todos los bytes de un fichero abierto, desde el principio. nullopt, con el motivo en
// 'error', si pasa de 'maximo' bytes o no se puede leer. Un fin de línea que no es
// CR LF queda como un LF suelto, que LeerDelimitado rechaza.
std::optional<std::string> LeerBytes(Fichero& fichero, std::int64_t maximo, std::string& error);

// Abre la ruta en el canal, la lee entera (como mucho 'maximo' bytes) y cierra.
TextoLeido LeerFicheroDelimitado(Canales& canales, int canal, const std::string& ruta, std::int64_t maximo);

class EscritorDelimitado {
public:
    void Entero(int valor);
    // Una comilla dentro del texto rompería el registro: se escribe como apóstrofo, y
    // un carácter de control (salvo el tabulador) como blanco.
    void Cadena(const std::string& utf8);
    void Booleano(bool valor);
    void FinRegistro();
    const std::string& Bytes() const { return bytes_; }

private:
    void Separar();
    std::string bytes_;
    bool primero_ = true;
};

}  // namespace sabelot

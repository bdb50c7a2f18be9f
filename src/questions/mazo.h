// Las marcas de las preguntas ya sacadas de un tema (MazoUsado) y un índice para
// buscarlas sin recorrer la cadena, que con miles de preguntas se hace larga.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

namespace sabelot {

// La marca de una posición: hexadecimal en mayúsculas, sin ceros delante, y "]".
std::string MarcaMazo(std::int64_t posicion);

// Da las mismas respuestas que buscar la marca en MazoUsado como subcadena y sin
// distinguir mayúsculas: como las marcas no llevan nada delante, "1A3]" se encuentra
// dentro de "21A3]". Es decir, una marca está si alguna guardada termina en ella, así
// que se guardan todos los finales de cada marca (los que no empiezan por cero,
// porque una marca nunca empieza por cero).
class IndiceMazo {
public:
    // Si la cadena no es la que el índice conoce (otro la cambió), lo rehace.
    void Sincronizar(const std::string& mazo);
    bool Contiene(std::int64_t posicion) const;
    // Añade la marca al final de la cadena y al índice.
    void Anadir(std::string& mazo, std::int64_t posicion);

private:
    // Hasta aquí, un bit por valor: al pasar por el fichero las posiciones que se preguntan van
    // en orden y el bit siguiente está al lado, no en un nodo suelto. Cubre cualquier posición
    // de un fichero de preguntas que se abre; lo que pasa de aquí solo sale de un MazoUsado
    // cambiado por fuera, y va al conjunto.
    static constexpr std::uint64_t kTopeBits = std::uint64_t{1} << 27;

    void Rehacer(const std::string& mazo);
    void AnadirTrozo(const std::string& mazo, std::size_t inicio, std::size_t fin);
    void Poner(std::uint64_t valor);
    std::vector<std::uint64_t> bits_;
    std::unordered_set<std::uint64_t> grandes_;
    std::size_t longitud_ = 0;
};

}  // namespace sabelot

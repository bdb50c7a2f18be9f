// sabelot-preguntas revisar F.qzf...: dice todo lo que el juego leería mal de cada
// fichero de preguntas, con su número de línea. Sale con 0 si no hay nada, 1 si hay
// algo y 2 si la orden está mal escrita.
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

#include "questions/revision.h"

namespace {

void Uso() {
    std::cerr << "Uso: sabelot-preguntas revisar FICHERO.qzf...\n"
                 "  Revisa ficheros de preguntas: codificación Windows-1252, fines de línea CR LF,\n"
                 "  preguntas que el juego no puede hacer, repetidas o que se salta al leer.\n";
}

// Falso si no se pudo abrir el fichero.
bool Revisar(const std::string& nombre) {
    std::ifstream f(nombre, std::ios::binary);
    if (!f) {
        std::cout << nombre << ": no se puede abrir el fichero\n";
        return false;
    }
    std::ostringstream contenido;
    contenido << f.rdbuf();
    const sabelot::RevisionQzf r = sabelot::RevisarQzf(contenido.str());
    for (const auto& p : r.problemas) std::cout << nombre << ":" << p.linea << ": " << p.texto << "\n";
    std::cout << nombre << ": " << r.preguntas << " preguntas, " << r.preguntables
              << " se pueden hacer";
    if (r.problemas.empty()) {
        std::cout << "; sin problemas\n";
    } else {
        std::cout << "; " << r.problemas.size()
                  << (r.problemas.size() == 1 ? " problema\n" : " problemas\n");
    }
    return r.problemas.empty();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3 || std::string(argv[1]) != "revisar") {
        Uso();
        return 2;
    }
    bool bien = true;
    for (int i = 2; i < argc; ++i) {
        if (!Revisar(argv[i])) bien = false;
    }
    return bien ? 0 : 1;
}

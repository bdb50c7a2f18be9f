// sabelot-preguntas revisar F.qzf|CARPETA...: dice todo lo que el juego leería mal de cada
// fichero de preguntas, con su número de línea, y lo que se repite de uno a otro. Una
// carpeta vale por sus .qzf. Sale con 0 si no hay nada, 1 si hay algo y 2 si la orden
// está mal escrita.
// sabelot-preguntas convertir ENTRADA [SALIDA.qzf]: pasa un fichero Aiken, GIFT o de
// OpenTDB a .qzf y dice lo que no pudo convertir. Sale con 1 si algo se quedó fuera.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "conversion/convertir.h"
#include "questions/registro.h"
#include "questions/revision.h"
#include "storage/canales.h"
#include "storage/escritura.h"
#include "storage/sistema_ficheros.h"
#include "storage/texto_delimitado.h"

namespace {

void Uso() {
    std::cerr << "Uso: sabelot-preguntas revisar FICHERO.qzf|CARPETA...\n"
                 "  Revisa ficheros de preguntas: codificación Windows-1252, fines de línea CR LF,\n"
                 "  preguntas que el juego no puede hacer, repetidas o que se salta al leer, y entre\n"
                 "  todos los ficheros a la vez, preguntas y respuestas que se repiten. De una\n"
                 "  carpeta se revisan sus ficheros .qzf.\n"
                 "     sabelot-preguntas convertir [--formato aiken|gift|opentdb] [--reemplazar] ENTRADA "
                 "[SALIDA.qzf]\n"
                 "  Convierte preguntas de opción múltiple en Aiken, GIFT o JSON de OpenTDB a .qzf.\n"
                 "  Sin SALIDA se escribe junto a ENTRADA, con la extensión .qzf. Un fichero que ya\n"
                 "  existe solo se sustituye con --reemplazar.\n";
}

// Lee el fichero entero; si no se puede, da por qué. Lo que el juego no abriría tampoco se
// lee aquí: ni más de 64 MiB ni lo que no es un fichero corriente (una tubería dejaría la
// orden esperando para siempre).
std::string Leer(const std::string& nombre, std::string& bytes) {
    std::error_code ec;
    const auto ruta = std::filesystem::u8path(nombre);
    if (!std::filesystem::is_regular_file(ruta, ec)) return "no se puede abrir el fichero";
    const auto tamano = std::filesystem::file_size(ruta, ec);
    if (!ec && tamano > static_cast<std::uintmax_t>(sabelot::kMaxFicheroQzf))
        return "el fichero pasa de 64 MiB: no es un fichero de preguntas y el juego no lo abriría";
    std::ifstream f(ruta, std::ios::binary);
    if (!f) return "no se puede abrir el fichero";
    std::ostringstream contenido;
    contenido << f.rdbuf();
    bytes = contenido.str();
    return "";
}

int Convertir(int argc, char** argv) {
    std::vector<std::string> nombres;
    bool conFormato = false;
    bool reemplazar = false;
    sabelot::FormatoEntrada formato = sabelot::FormatoEntrada::Aiken;
    for (int i = 2; i < argc; ++i) {
        const std::string a = argv[i];
        if (a == "--formato" && i + 1 < argc) {
            if (!sabelot::FormatoPorNombre(argv[++i], formato)) {
                std::cerr << "Formato desconocido: " << argv[i] << " (aiken, gift u opentdb)\n";
                return 2;
            }
            conFormato = true;
        } else if (a == "--reemplazar") {
            reemplazar = true;
        } else if (a.rfind("--", 0) == 0) {
            Uso();
            return 2;
        } else {
            nombres.push_back(a);
        }
    }
    if (nombres.empty() || nombres.size() > 2) {
        Uso();
        return 2;
    }
    const std::string entrada = nombres[0];
    std::string salida = nombres.size() == 2 ? nombres[1] : entrada;
    if (nombres.size() == 1) {
        const std::size_t punto = salida.find_last_of('.');
        const std::size_t barra = salida.find_last_of("/\\");
        if (punto != std::string::npos && (barra == std::string::npos || punto > barra)) salida.erase(punto);
        salida += ".qzf";
    }
    if (salida == entrada || sabelot::MismoFichero(salida, entrada)) {
        std::cerr << entrada << ": la salida no puede ser el mismo fichero que la entrada\n";
        return 2;
    }
    std::string bytes;
    if (const std::string error = Leer(entrada, bytes); !error.empty()) {
        std::cerr << entrada << ": " << error << "\n";
        return 2;
    }
    if (!conFormato) formato = sabelot::DetectarFormato(entrada, bytes);
    const sabelot::ResultadoConversion r = sabelot::Convertir(formato, bytes);
    for (const auto& a : r.avisos) std::cerr << entrada << ": " << a.lugar << ": " << a.texto << "\n";
    std::cerr << r.convertidas << (r.convertidas == 1 ? " pregunta convertida, " : " preguntas convertidas, ")
              << r.sinConvertir << " sin convertir\n";
    if (r.convertidas == 0) {
        std::cerr << "No se escribe " << salida << ": no hay ninguna pregunta\n";
        return 1;
    }
    // Lo mismo que usa el juego para sus ficheros: rutas UTF-8 también en Windows, y se
    // escribe aparte antes de ponerlo en su sitio.
    sabelot::SistemaFicherosReal ficheros;
    // Un fichero de preguntas escrito a mano no se pierde por un nombre repetido.
    if (!reemplazar && ficheros.Existe(salida)) {
        std::cerr << salida << ": ya existe y no se toca; dé otro nombre o añada --reemplazar\n";
        return 2;
    }
    if (!sabelot::EscribirDeUnaVez(ficheros, salida, r.qzf)) {
        std::cerr << salida << ": no se puede escribir el fichero\n";
        return 2;
    }
    std::cerr << "Escrito " << salida << "\n";
    return r.sinConvertir == 0 ? 0 : 1;
}

// Los ficheros a revisar, con las carpetas cambiadas por sus .qzf en orden de nombre.
// Falso si alguna carpeta no tiene ninguno.
bool Expandir(char** nombres, int cuantos, std::vector<std::string>& ficheros) {
    sabelot::SistemaFicherosReal sistema;
    bool bien = true;
    for (int i = 0; i < cuantos; ++i) {
        const std::string nombre = nombres[i];
        if (!sistema.EsCarpeta(nombre)) {
            ficheros.push_back(nombre);
            continue;
        }
        std::vector<std::string> dentro = sistema.Listar(nombre, ".qzf");
        std::sort(dentro.begin(), dentro.end());
        if (dentro.empty()) {
            std::cout << nombre << ": la carpeta no tiene ningún fichero .qzf\n";
            bien = false;
        }
        const bool conBarra = nombre.back() == '/' || nombre.back() == '\\';
        for (const std::string& f : dentro) ficheros.push_back(nombre + (conBarra ? "" : "/") + f);
    }
    return bien;
}

int RevisarTodos(char** nombres, int cuantos) {
    std::vector<std::string> todos;
    bool bien = Expandir(nombres, cuantos, todos);
    std::vector<sabelot::FicheroQzf> ficheros;
    for (const std::string& nombre : todos) {
        std::string bytes;
        if (const std::string error = Leer(nombre, bytes); error.empty()) {
            ficheros.push_back({nombre, bytes});
        } else {
            std::cout << nombre << ": " << error << "\n";
            bien = false;
        }
    }
    const std::vector<sabelot::RevisionQzf> revisiones = sabelot::RevisarConjunto(ficheros);
    for (std::size_t i = 0; i < ficheros.size(); ++i) {
        const std::string& nombre = ficheros[i].nombre;
        const sabelot::RevisionQzf& r = revisiones[i];
        for (const auto& p : r.problemas) std::cout << nombre << ":" << p.linea << ": " << p.texto << "\n";
        std::cout << nombre << ": " << r.preguntas << " preguntas, " << r.preguntables << " se pueden hacer";
        if (r.problemas.empty()) {
            std::cout << "; sin problemas\n";
        } else {
            std::cout << "; " << r.problemas.size()
                      << (r.problemas.size() == 1 ? " problema\n" : " problemas\n");
            bien = false;
        }
    }
    return bien ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc >= 3 && std::string(argv[1]) == "convertir") return Convertir(argc, argv);
    if (argc < 3 || std::string(argv[1]) != "revisar") {
        Uso();
        return 2;
    }
    return RevisarTodos(argv + 2, argc - 2);
}

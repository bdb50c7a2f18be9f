// La búsqueda de la siguiente "q>" en los bytes del fichero tiene que dar lo mismo que leerlo
// línea a línea: las mismas líneas, posiciones y finales, también con la marca partida entre
// dos lecturas del almacén.
#include <gtest/gtest.h>

#include <memory>
#include <random>

#include "apoyo/ficheros_averiados.h"
#include "apoyo/plataforma_guion.h"
#include "storage/sistema_ficheros.h"

namespace sabelot {
namespace {

using prueba::CarpetaTemporal;

// El mismo fichero sin su búsqueda propia: queda la de la interfaz, línea a línea.
using LineaALinea = prueba::FicheroDelegado;

// Busca desde 'inicio' hasta el final con los dos y compara cada paso.
void Comparar(const std::string& bytes, std::int64_t inicio) {
    CarpetaTemporal c;
    c.Escribir("f.qzf", bytes);
    SistemaFicherosReal fs;
    int error = 0;
    auto rapido = fs.Abrir(Ruta(c.Ruta(), {"f.qzf"}), error);
    LineaALinea lento(fs.Abrir(Ruta(c.Ruta(), {"f.qzf"}), error));
    ASSERT_TRUE(rapido);
    rapido->IrA(inicio);
    lento.IrA(inicio);
    for (int paso = 0;; ++paso) {
        std::string a, b;
        const bool hay = rapido->LeerHastaMarca('q', a);
        ASSERT_EQ(lento.LeerHastaMarca('q', b), hay) << "paso " << paso;
        ASSERT_EQ(lento.Posicion(), rapido->Posicion()) << "paso " << paso;
        ASSERT_EQ(lento.Fin(), rapido->Fin()) << "paso " << paso;
        if (!hay) return;
        ASSERT_EQ(b, a) << "paso " << paso;
        ASSERT_EQ(lento.LineaLarga(), rapido->LineaLarga()) << "paso " << paso;
        // Lo que sigue se lee igual: la búsqueda deja el almacén en su sitio.
        ASSERT_EQ(lento.LeerLinea(b), rapido->LeerLinea(a)) << "paso " << paso;
        ASSERT_EQ(b, a) << "paso " << paso;
    }
}

TEST(LeerHastaMarca, IgualQueLineaALinea) {
    constexpr std::size_t kAlmacen = 64 * 1024;
    struct Caso {
        const char* nombre;
        std::string bytes;
    };
    std::vector<Caso> casos = {
        {"registros", "Cabecera\r\nq>A\r\n1>a\r\na>1\r\n\r\nQ>B\r\n1>b\r\nc>q>no\r\nq>C\r\n"},
        {"fines sueltos", "x\rq>A\nq>B\r\r\nq>C\n\rq>D"},
        {"marca fuera del principio", "aq>b\r\n q>c\r\nq <d\r\nq\r>e\r\n>q>f\r\nq>g"},
        {"marca al final", "q>A\r\nq"},
        {"marca sola al final", "x\r\nq>"},
        {"vacío", ""},
        {"un byte", "q"},
        {"línea larga", "q>" + std::string(5000, 'x') + "\r\n1>a\r\nq>" + std::string(5000, '>') + "\r\n"},
        {"marca tras kMaxLinea bytes de la misma línea", std::string(kMaxLinea, 'x') + "q>A\r\nq>B"},
    };
    // La marca, su fin de línea de delante o el CR LF partidos entre dos lecturas del almacén.
    for (std::size_t d = 0; d < 6; ++d) {
        casos.push_back({"borde del almacén", std::string(kAlmacen - d, 'x') + "\r\nq>A\r\n1>a\r\n"});
    }
    // Al azar, con muchas marcas y fines de línea, varias veces el almacén.
    std::mt19937 azar(11);
    const std::string letras = "qQ>\r\nxx";
    for (int k = 0; k < 3; ++k) {
        std::string s;
        for (std::size_t i = 0; i < 3 * kAlmacen + 7; ++i) s += letras[azar() % letras.size()];
        casos.push_back({"al azar", s});
    }
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.nombre);
        const auto largo = static_cast<std::int64_t>(caso.bytes.size());
        for (std::int64_t inicio : {std::int64_t{1}, std::int64_t{2}, std::int64_t{4}, largo / 2, largo}) {
            SCOPED_TRACE("desde el byte " + std::to_string(inicio));
            Comparar(caso.bytes, inicio);
        }
    }
}

}  // namespace
}  // namespace sabelot

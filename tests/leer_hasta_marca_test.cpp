// La búsqueda de la siguiente "q>" en los bytes del fichero tiene que dar lo mismo que leerlo
// línea a línea: las mismas líneas, posiciones y finales, también con la marca partida entre
// dos lecturas del almacén.
#include <gtest/gtest.h>

#include <memory>
#include <random>

#include "apoyo/datos_prueba.h"
#include "apoyo/ficheros_averiados.h"
#include "apoyo/plataforma_guion.h"
#include "storage/sistema_ficheros.h"

namespace sabelot {
namespace {

// Lo que da cada búsqueda desde 'inicio' hasta el final, y la línea que la sigue: la búsqueda
// deja el almacén en su sitio.
std::string Busquedas(Fichero& f, std::int64_t inicio) {
    f.IrA(inicio);
    std::string traza, linea;
    for (bool hay = true; hay;) {
        hay = f.LeerHastaMarca('q', linea);
        traza += std::to_string(hay) + " " + std::to_string(f.Posicion()) + " " + std::to_string(f.Fin());
        if (hay) {
            traza += " " + linea + " " + std::to_string(f.LineaLarga());
            traza += " " + std::to_string(f.LeerLinea(linea));
            traza += " " + linea;
        }
        traza += "\n";
    }
    return traza;
}

// Los casos de tests/datos/hasta_marca.txt y, al azar, muchas marcas y fines de línea en
// varias veces el almacén.
TEST(LeerHastaMarca, IgualQueLineaALinea) {
    std::vector<std::vector<std::string>> casos = prueba::Tabla("hasta_marca.txt", 2);
    std::mt19937 azar(11);
    const std::string letras = "qQ>\r\nxx";
    for (int k = 0; k < 3; ++k) {
        std::string s;
        for (std::size_t i = 0; i < 3 * 64 * 1024 + 7; ++i) s += letras[azar() % letras.size()];
        casos.push_back({"al azar", s});
    }
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso[0]);
        prueba::CarpetaTemporal c;
        c.Escribir("f.qzf", prueba::Bytes(caso[1]));  // sin | ni \\, lo de al azar queda igual
        SistemaFicherosReal fs;
        int error = 0;
        auto rapido = fs.Abrir(Ruta(c.Ruta(), {"f.qzf"}), error);
        ASSERT_TRUE(rapido);
        // El mismo fichero sin su búsqueda propia: queda la de la interfaz, línea a línea.
        prueba::FicheroDelegado lento(fs.Abrir(Ruta(c.Ruta(), {"f.qzf"}), error));
        const std::int64_t largo = rapido->Longitud();
        for (std::int64_t inicio : {std::int64_t{1}, std::int64_t{2}, std::int64_t{4}, largo / 2, largo})
            EXPECT_EQ(Busquedas(lento, inicio), Busquedas(*rapido, inicio)) << "desde el byte " << inicio;
    }
}

}  // namespace
}  // namespace sabelot

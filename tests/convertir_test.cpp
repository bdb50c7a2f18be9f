// La conversión de Aiken, GIFT y OpenTDB a .qzf: lo convertido byte a byte, cada
// aviso con su lugar, y que el resultado pase la revisión sin un solo problema.
#include "conversion/convertir.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "apoyo/datos_prueba.h"
#include "questions/revision.h"

namespace sabelot {
namespace {

// Los bytes de un fichero de tests/datos/convertir; nada si no está.
std::string Bytes(const std::string& nombre) {
    std::ifstream f(std::string(SABELOT_DATOS_PRUEBA) + "/convertir/" + nombre, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>());
}

TEST(Convertir, FicherosDeCadaFormato) {
    const auto filas = prueba::Tabla("convertir.txt", 4);
    ASSERT_EQ(10u, filas.size());
    for (const auto& c : filas) {
        const std::string entrada = Bytes(c[0]);
        ASSERT_FALSE(entrada.empty()) << c[0];
        FormatoEntrada formato{};
        ASSERT_TRUE(FormatoPorNombre(c[1], formato)) << c[1];
        EXPECT_EQ(formato, DetectarFormato(c[0], entrada)) << c[0];

        const ResultadoConversion r = Convertir(formato, entrada);
        std::string avisos = c[0] + "\n";
        for (const auto& a : r.avisos) avisos += a.lugar + ": " + a.texto + "\n";
        EXPECT_EQ(std::stoi(c[2]), r.convertidas) << avisos;
        EXPECT_EQ(std::stoi(c[3]), r.sinConvertir) << avisos;
        ASSERT_EQ(c.size() - 4, r.avisos.size()) << avisos;
        for (std::size_t i = 4; i < c.size(); ++i) {
            const std::size_t barra = c[i].find('|');
            EXPECT_EQ(c[i].substr(0, barra), r.avisos[i - 4].lugar) << avisos;
            EXPECT_NE(std::string::npos, r.avisos[i - 4].texto.find(c[i].substr(barra + 1))) << avisos;
        }

        const std::string base = c[0].substr(0, c[0].rfind('.'));
        EXPECT_EQ(Bytes(base + ".qzf"), r.qzf) << c[0];
        if (r.convertidas > 0) {
            const RevisionQzf rev = RevisarQzf(r.qzf);
            EXPECT_TRUE(rev.problemas.empty()) << c[0] << ": " << rev.problemas.front().texto;
            EXPECT_EQ(r.convertidas, rev.preguntas) << c[0];
            EXPECT_EQ(r.convertidas, rev.preguntables) << c[0];
        }
    }
}

// Los casos de tests/datos/formatos.txt; el nombre del formato, sin mirar mayúsculas.
TEST(Convertir, FormatoPorExtensionYContenido) {
    for (const auto& c : prueba::Tabla("formatos.txt", 3)) {
        FormatoEntrada f{};
        ASSERT_TRUE(FormatoPorNombre(c[2], f)) << c[2];
        EXPECT_EQ(f, DetectarFormato(c[0], prueba::Bytes(c[1]))) << c[0] << " " << c[1];
    }
    FormatoEntrada f{};
    EXPECT_FALSE(FormatoPorNombre("moodle", f));
}

}  // namespace
}  // namespace sabelot

// El texto delimitado por sí solo: escritura exacta y lectura estricta.
#include "storage/texto_delimitado.h"

#include <gtest/gtest.h>

#include "apoyo/datos_prueba.h"
#include "apoyo/plataforma_guion.h"
#include "storage/canales.h"

namespace sabelot {
namespace {

using T = Campo::Tipo;

// Lo leído escrito de nuevo a la vista: "error", "(nada)" o los registros separados por " / ".
std::string Leido(const std::string& bytes) {
    const TextoLeido t = LeerDelimitado(bytes);
    if (!t.Bien()) return "error";
    std::string s = t.registros.empty() ? "(nada)" : "";
    for (std::size_t r = 0; r < t.registros.size(); ++r) {
        for (std::size_t i = 0; i < t.registros[r].size(); ++i) {
            const Campo& c = t.registros[r][i];
            s += (i > 0 ? "," : r > 0 ? " / " : "");
            s += c.tipo == T::Entero   ? std::to_string(c.entero)
                 : c.tipo == T::Cadena ? "\"" + c.cadena + "\""
                 : c.booleano          ? "#TRUE#"
                                       : "#FALSE#";
        }
    }
    return s;
}

// Lo escrito, byte a byte, y que se vuelve a leer.
TEST(TextoDelimitado, EscrituraExacta) {
    EscritorDelimitado e;
    for (int n : {2, -15, 0}) e.Entero(n);
    e.FinRegistro();
    for (const char* c : {"Cajón de sastre ", "", "uno, dos"}) e.Cadena(c);
    e.FinRegistro();
    for (bool b : {true, false}) e.Booleano(b);
    e.Entero(32767);
    e.FinRegistro();
    // Sin escapes, una comilla cerraría la cadena; y el lector no admite controles.
    e.Cadena("El \"mejor\"\tcine\r\n");
    e.FinRegistro();
    EXPECT_EQ(
        "2,-15,0\r\n\"Caj\xF3n de sastre \",\"\",\"uno, dos\"\r\n#TRUE#,#FALSE#,32767\r\n\"El 'mejor'\tcine  "
        "\"\r\n",
        e.Bytes());
    EXPECT_EQ(
        "2,-15,0 / \"Cajón de sastre \",\"\",\"uno, dos\" / #TRUE#,#FALSE#,32767 / \"El 'mejor'\tcine  \"",
        Leido(e.Bytes()));
}

// Los casos de tests/datos/delimitado.txt.
TEST(TextoDelimitado, Lecturas) {
    for (const auto& c : prueba::Tabla("delimitado.txt", 2))
        EXPECT_EQ(c[1], Leido(prueba::Bytes(c[0]))) << c[0];
}

TEST(TextoDelimitado, TieneForma) {
    const TextoLeido t = LeerDelimitado("3,\"a\"\r\n");
    ASSERT_TRUE(t.Bien());
    EXPECT_TRUE(TieneForma(t.registros[0], {T::Entero, T::Cadena}));
    EXPECT_FALSE(TieneForma(t.registros[0], {T::Entero}));
    EXPECT_FALSE(TieneForma(t.registros[0], {T::Entero, T::Entero}));
    EXPECT_FALSE(TieneForma(t.registros[0], {T::Entero, T::Cadena, T::Booleano}));
}

// Los casos de tests/datos/leer_bytes.txt; más de 1000 bytes no se leen y dicen por qué.
TEST(TextoDelimitado, LeerBytesDistingueLosFinesDeLinea) {
    prueba::CarpetaTemporal c;
    SistemaFicherosReal fs;
    Canales canales(fs);
    for (const auto& fila : prueba::Tabla("leer_bytes.txt", 2)) {
        c.Escribir("f.txt", prueba::Bytes(fila[0]));
        ASSERT_EQ(0, canales.Abrir(3, Ruta(c.Ruta(), {"f.txt"})));
        std::string error;
        const auto bytes = LeerBytes(*canales.Get(3), 1000, error);
        EXPECT_EQ(fila[1] == "error", !error.empty()) << fila[0];
        EXPECT_EQ(fila[1] == "error" ? "error" : prueba::Bytes(fila[1]), bytes.value_or("error")) << fila[0];
        canales.Cerrar(3);
    }
    // Lo que no se puede abrir no se lee ni deja el canal abierto.
    EXPECT_FALSE(LeerFicheroDelimitado(canales, 10, Ruta(c.Ruta(), {"no.sav"}), 1000).Bien());
    EXPECT_FALSE(canales.Abierto(10));
}

}  // namespace
}  // namespace sabelot

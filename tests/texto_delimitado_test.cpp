// El texto delimitado por sí solo: escritura exacta y lectura estricta.
#include "storage/texto_delimitado.h"

#include <gtest/gtest.h>

#include "apoyo/plataforma_guion.h"
#include "storage/canales.h"

namespace sabelot {
namespace {

using T = Campo::Tipo;

TEST(TextoDelimitado, EscrituraExacta) {
    EscritorDelimitado e;
    e.Entero(2);
    e.Entero(-15);
    e.Entero(0);
    e.FinRegistro();
    e.Cadena("Cajón de sastre ");
    e.Cadena("");
    e.Cadena("uno, dos");
    e.FinRegistro();
    e.Booleano(true);
    e.Booleano(false);
    e.Entero(32767);
    e.FinRegistro();
    EXPECT_EQ("2,-15,0\r\n\"Caj\xF3n de sastre \",\"\",\"uno, dos\"\r\n#TRUE#,#FALSE#,32767\r\n", e.Bytes());
}

TEST(TextoDelimitado, LoQueNoCabeEnUnaCadenaSeCambiaAlEscribir) {
    // Sin escapes, una comilla cerraría la cadena; y el lector no admite controles.
    EscritorDelimitado e;
    e.Cadena("El \"mejor\"\tcine\r\n");
    e.FinRegistro();
    EXPECT_EQ("\"El 'mejor'\tcine  \"\r\n", e.Bytes());
    TextoLeido t = LeerDelimitado(e.Bytes());
    ASSERT_TRUE(t.Bien()) << t.error;
    EXPECT_EQ("El 'mejor'\tcine  ", t.registros[0][0].cadena);
}

TEST(TextoDelimitado, LecturaDeCamposYRegistros) {
    TextoLeido t = LeerDelimitado(
        "3,-4,007\r\n\"  con, coma  \",\"\",\"Caj\xF3n\"\r\n#TRUE#,#FALSE#\r\n-32768,32767\r\n");
    ASSERT_TRUE(t.Bien()) << t.error;
    ASSERT_EQ(4u, t.registros.size());
    EXPECT_TRUE(TieneForma(t.registros[0], {T::Entero, T::Entero, T::Entero}));
    EXPECT_EQ(3, t.registros[0][0].entero);
    EXPECT_EQ(-4, t.registros[0][1].entero);
    EXPECT_EQ(7, t.registros[0][2].entero);
    EXPECT_TRUE(TieneForma(t.registros[1], {T::Cadena, T::Cadena, T::Cadena}));
    EXPECT_EQ("  con, coma  ", t.registros[1][0].cadena);
    EXPECT_EQ("", t.registros[1][1].cadena);
    EXPECT_EQ("Cajón", t.registros[1][2].cadena);
    EXPECT_TRUE(TieneForma(t.registros[2], {T::Booleano, T::Booleano}));
    EXPECT_TRUE(t.registros[2][0].booleano);
    EXPECT_FALSE(t.registros[2][1].booleano);
    EXPECT_EQ(-32768, t.registros[3][0].entero);
    EXPECT_EQ(32767, t.registros[3][1].entero);
    EXPECT_FALSE(TieneForma(t.registros[3], {T::Entero}));
    EXPECT_FALSE(TieneForma(t.registros[3], {T::Entero, T::Cadena}));

    TextoLeido vacio = LeerDelimitado("");
    EXPECT_TRUE(vacio.Bien());
    EXPECT_TRUE(vacio.registros.empty());
}

TEST(TextoDelimitado, LecturasQueSeRechazan) {
    const std::pair<const char*, std::string> casos[] = {
        {"sin fin de línea", "1,2"},
        {"coma al final", "1,\r\n"},
        {"coma al final del fichero", "1,"},
        {"campo vacío", "1,,2\r\n"},
        {"línea en blanco", "1\r\n\r\n2\r\n"},
        {"LF suelto", "1\n"},
        {"CR suelto", "1\r2\r\n"},
        {"LF CR", "1\n\r"},
        {"cadena sin cerrar", "\"abc\r\n"},
        {"texto tras la comilla", "\"abc\"d\r\n"},
        {"blanco tras la comilla", "\"abc\" \r\n"},
        {"blanco antes del número", " 1\r\n"},
        {"más", "+1\r\n"},
        {"solo el menos", "-\r\n"},
        {"decimal", "1.5\r\n"},
        {"32768", "32768\r\n"},
        {"-32769", "-32769\r\n"},
        {"enorme", "123456789012345678901234567890\r\n"},
        {"booleano en minúsculas", "#true#\r\n"},
        {"True de otro idioma", "#VERDADERO#\r\n"},
        {"NUL", std::string("1\0", 2) + "\r\n"},
        {"control en cadena", std::string{'"', 'a', '\x01', 'b', '"', '\r', '\n'}},
        {"salto de línea en cadena", "\"a\r\nb\"\r\n"},
    };
    for (const auto& [nombre, bytes] : casos) {
        TextoLeido t = LeerDelimitado(bytes);
        EXPECT_FALSE(t.Bien()) << nombre;
        EXPECT_FALSE(t.error.empty()) << nombre;
    }
}

TEST(TextoDelimitado, LeerBytesDistingueLosFinesDeLinea) {
    prueba::CarpetaTemporal c;
    SistemaFicherosReal fs;
    Canales canales(fs);
    struct {
        std::string escrito;
        std::string leido;
    } const casos[] = {
        {"a\r\nb\r\n", "a\r\nb\r\n"},
        {"a\r\nb", "a\r\nb"},
        {"a\nb\r\n", "a\nb\r\n"},
        {"a\rb\r\n", "a\nb\r\n"},
        {"", ""},
        {std::string("\0\xFF\r\n", 4), std::string("\0\xFF\r\n", 4)},
    };
    for (const auto& caso : casos) {
        c.Escribir("f.txt", caso.escrito);
        ASSERT_EQ(0, canales.Abrir(3, Ruta(c.Ruta(), {"f.txt"})));
        std::string error;
        auto bytes = LeerBytes(*canales.Get(3), 1000, error);
        ASSERT_TRUE(bytes.has_value()) << error;
        EXPECT_EQ(caso.leido, *bytes);
        canales.Cerrar(3);
    }
    c.Escribir("f.txt", std::string(1001, 'x'));
    ASSERT_EQ(0, canales.Abrir(3, Ruta(c.Ruta(), {"f.txt"})));
    std::string error;
    EXPECT_FALSE(LeerBytes(*canales.Get(3), 1000, error).has_value());
    EXPECT_FALSE(error.empty());
    canales.Cerrar(3);
}

TEST(TextoDelimitado, LeerFicheroQueNoExiste) {
    prueba::CarpetaTemporal c;
    SistemaFicherosReal fs;
    Canales canales(fs);
    TextoLeido t = LeerFicheroDelimitado(canales, 10, Ruta(c.Ruta(), {"no.sav"}), 1000);
    EXPECT_FALSE(t.Bien());
    EXPECT_FALSE(canales.Abierto(10));
}

}  // namespace
}  // namespace sabelot

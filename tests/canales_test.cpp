#include <gtest/gtest.h>

#include "apoyo/plataforma_guion.h"
#include "storage/canales.h"
#include "storage/cp1252.h"

namespace sabelot {
namespace {

using prueba::CarpetaTemporal;

TEST(Canales, LeeLineasYPosicionesDesdeUno) {
    CarpetaTemporal c;
    c.Escribir("a.txt", "uno\r\ndos\nres\rcuatro");
    SistemaFicherosReal fs;
    Canales canales(fs);
    ASSERT_EQ(0, canales.Abrir(3, Ruta(c.Ruta(), {"a.txt"})));
    Fichero* f = canales.Get(3);
    std::string l;
    EXPECT_EQ(1, f->Posicion());
    ASSERT_TRUE(f->LeerLinea(l));
    EXPECT_EQ("uno", l);
    EXPECT_EQ(6, f->Posicion());
    ASSERT_TRUE(f->LeerLinea(l));
    EXPECT_EQ("dos", l);
    ASSERT_TRUE(f->LeerLinea(l));
    EXPECT_EQ("res", l);
    ASSERT_TRUE(f->LeerLinea(l));
    EXPECT_EQ("cuatro", l);
    EXPECT_TRUE(f->Fin());
    EXPECT_FALSE(f->LeerLinea(l));
    EXPECT_EQ(1, canales.Libre());
    EXPECT_TRUE(canales.Cerrar(3));
    EXPECT_FALSE(canales.Abierto(3));
}

TEST(Canales, ErroresDeApertura) {
    CarpetaTemporal c;
    SistemaFicherosReal fs;
    Canales canales(fs);
    EXPECT_EQ(kErrorNoExiste, canales.Abrir(1, Ruta(c.Ruta(), {"no.qzf"})));
    c.Escribir("a.txt", "x");
    EXPECT_NE(0, canales.Abrir(0, Ruta(c.Ruta(), {"a.txt"})));
    EXPECT_FALSE(canales.Abierto(0));
}

TEST(Cp1252, IdaYVuelta) {
    const std::string utf8 = "Cajón de sastre ¿Sí? ñ € “comillas” —";
    std::string bytes = Utf8ACp1252(utf8);
    EXPECT_EQ(std::string("Caj\xF3n"), bytes.substr(0, 5));
    EXPECT_EQ(utf8, Cp1252AUtf8(bytes));
    bool perdido = false;
    EXPECT_EQ("?", Utf8ACp1252("日", &perdido));
    EXPECT_TRUE(perdido);
}

}  // namespace
}  // namespace sabelot

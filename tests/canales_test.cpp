#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/stat.h>
#endif

#include <cstdint>
#include <utility>
#include <vector>

#include "apoyo/plataforma_guion.h"
#include "storage/canales.h"
#include "storage/cp1252.h"

namespace sabelot {
namespace {

using prueba::CarpetaTemporal;

// CR LF, LF y CR acaban cada uno una línea, y la posición va desde 1. Una línea de más de
// kMaxLinea bytes llega cortada y marcada, y la siguiente se lee bien; un CR LF partido entre
// dos trozos del almacén de lectura (64 KiB) es un solo fin de línea.
TEST(Canales, LineasYPosiciones) {
    const std::size_t trozo = 64 * 1024;
    std::vector<std::pair<std::string, std::string>> lineas = {{"uno", "\r\n"},
                                                               {"dos", "\n"},
                                                               {"res", "\r"},
                                                               {std::string(kMaxLinea + 1, 'a'), "\r\n"},
                                                               {"corta", "\r\n"}};
    std::size_t antes = 13 + kMaxLinea + 1 + 2 + 7;
    for (; antes + 1000 < trozo - 1; antes += 1000) lineas.push_back({std::string(998, 'r'), "\r\n"});
    lineas.push_back({std::string(trozo - 1 - antes, 'b'), "\r\n"});
    lineas.push_back({std::string(3 * trozo, 'c'), "\n"});
    lineas.push_back({"fin", ""});
    std::string bytes;
    for (const auto& [texto, fin] : lineas) bytes += texto + fin;
    ASSERT_EQ(bytes.substr(trozo - 1, 2), "\r\n");
    CarpetaTemporal c;
    c.Escribir("a.txt", bytes);
    SistemaFicherosReal fs;
    Canales canales(fs);
    ASSERT_EQ(0, canales.Abrir(3, Ruta(c.Ruta(), {"a.txt"})));
    Fichero* f = canales.Get(3);
    std::int64_t posicion = 1;
    EXPECT_EQ(1, f->Posicion());
    std::string l;
    for (std::size_t n = 0; n < lineas.size(); ++n) {
        const std::string& texto = lineas[n].first;
        posicion += static_cast<std::int64_t>(texto.size() + lineas[n].second.size());
        ASSERT_TRUE(f->LeerLinea(l)) << n;
        EXPECT_TRUE(l == texto.substr(0, kMaxLinea)) << n << ": " << l.size() << " bytes";
        EXPECT_EQ(texto.size() > kMaxLinea, f->LineaLarga()) << n;
        EXPECT_EQ(posicion, f->Posicion()) << n;
        EXPECT_LE(l.capacity(), 2 * kMaxLinea) << n << ": se guardó más que una línea";
    }
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
    // Lo que no es un fichero corriente no se abre: una tubería dejaría el juego esperando.
    c.CrearCarpeta("carpeta.qzf");
    EXPECT_EQ(75, canales.Abrir(1, Ruta(c.Ruta(), {"carpeta.qzf"})));
#ifndef _WIN32
    ASSERT_EQ(0, mkfifo(Ruta(c.Ruta(), {"tuberia.qzf"}).c_str(), 0644));
    EXPECT_EQ(75, canales.Abrir(1, Ruta(c.Ruta(), {"tuberia.qzf"})));
#endif
    EXPECT_FALSE(canales.Abierto(1));
}

TEST(Cp1252, IdaYVuelta) {
    const std::string utf8 = "Cajón de sastre ¿Sí? ñ € “comillas” —";
    std::string bytes = Utf8ACp1252(utf8);
    EXPECT_EQ(std::string("Caj\xF3n"), bytes.substr(0, 5));
    EXPECT_EQ(utf8, Cp1252AUtf8(bytes));
    // Los cinco bytes que Windows-1252 no define van y vuelven tal cual, sin volverse «?».
    const std::string sinDefinir = "\x81\x8D\x8F\x90\x9D";
    EXPECT_EQ(sinDefinir, Utf8ACp1252(Cp1252AUtf8(sinDefinir)));
    EXPECT_EQ("\xC2\x81", Cp1252AUtf8("\x81"));
    bool perdido = false;
    EXPECT_EQ("?", Utf8ACp1252("日", &perdido));
    EXPECT_TRUE(perdido);
}

}  // namespace
}  // namespace sabelot

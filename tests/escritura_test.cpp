// La escritura de ficheros: nunca se pierde el que había, no se escribe fuera de la carpeta y
// un fichero protegido no se toca. Ficheros de verdad en una carpeta temporal.
#include "storage/escritura.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "apoyo/ficheros_averiados.h"
#include "apoyo/plataforma_guion.h"
#include "storage/sistema_ficheros.h"

namespace sabelot {
namespace {

namespace fs = std::filesystem;
using prueba::CarpetaTemporal;
using prueba::FicherosAveriados;

std::vector<std::string> Nombres(const CarpetaTemporal& c) {
    std::vector<std::string> r;
    for (const auto& e : fs::directory_iterator(c.Ruta())) r.push_back(e.path().filename().string());
    std::sort(r.begin(), r.end());
    return r;
}

class Escritura : public ::testing::Test {
protected:
    CarpetaTemporal c;
    SistemaFicherosReal real;
    std::string Destino() const { return Ruta(c.Ruta(), {"partida.sav"}); }
};

TEST_F(Escritura, CadaFalloDejaElFicheroAnteriorYNadaMas) {
    enum Fallo { kCrear, kEscribir, kCerrar, kRenombrar };
    for (Fallo fallo : {kCrear, kEscribir, kCerrar, kRenombrar}) {
        c.Escribir("partida.sav", "vieja");
        FicherosAveriados averiados(real);
        averiados.fallaCrear = fallo == kCrear;
        averiados.fallaEscribir = fallo == kEscribir;
        averiados.fallaCerrar = fallo == kCerrar;
        averiados.fallaRenombrar = fallo == kRenombrar;
        EXPECT_FALSE(EscribirDeUnaVez(averiados, Destino(), "nueva")) << fallo;
        EXPECT_EQ(c.Leer("partida.sav"), "vieja") << fallo;
        EXPECT_EQ(Nombres(c), std::vector<std::string>{"partida.sav"}) << fallo << ": quedó un fichero de paso";
        for (const std::string& creado : averiados.creados)
            EXPECT_NE(creado, Destino()) << "se escribe aparte, nunca encima";
    }
}

TEST_F(Escritura, DosCopiasDelJuegoALaVezDejanElFicheroEnteroDeUnaYLasDosSabenQueGuardaron) {
    c.Escribir("partida.sav", "vieja");
    FicherosAveriados lenta(real);
    bool otra = false;
    // A mitad de escribir la primera, la otra copia guarda entera.
    lenta.aMitadDeEscribir = [&] { otra = EscribirDeUnaVez(real, Destino(), "de la otra copia"); };
    const bool una = EscribirDeUnaVez(lenta, Destino(), "de la primera copia");
    EXPECT_TRUE(una);
    EXPECT_TRUE(otra);
    EXPECT_EQ(c.Leer("partida.sav"), "de la primera copia");
    EXPECT_EQ(Nombres(c), std::vector<std::string>{"partida.sav"});
}

#ifndef _WIN32
TEST_F(Escritura, UnEnlaceOUnFicheroConElNombreDePasoDeAntesNoSeSiguenNiSeTocan) {
    CarpetaTemporal fuera;
    fuera.Escribir("importante.txt", "no tocar");
    fs::create_symlink(Ruta(fuera.Ruta(), {"importante.txt"}), Ruta(c.Ruta(), {"partida.sav.tmp"}));
    c.Escribir("Sabelot.ini.tmp", "de otro");
    ASSERT_TRUE(EscribirDeUnaVez(real, Destino(), "nueva"));
    ASSERT_TRUE(EscribirDeUnaVez(real, Ruta(c.Ruta(), {"Sabelot.ini"}), "opciones"));
    EXPECT_EQ(fuera.Leer("importante.txt"), "no tocar");
    EXPECT_EQ(c.Leer("Sabelot.ini.tmp"), "de otro");
    EXPECT_FALSE(fs::is_symlink(Destino())) << "la partida es un fichero, no un enlace";
    EXPECT_EQ(c.Leer("partida.sav"), "nueva");
}

TEST_F(Escritura, UnFicheroProtegidoNoSeReemplazaYLosPermisosSeConservan) {
    c.Escribir("partida.sav", "vieja");
    fs::permissions(Destino(), fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    EXPECT_FALSE(EscribirDeUnaVez(real, Destino(), "nueva"));
    EXPECT_EQ(c.Leer("partida.sav"), "vieja");
    EXPECT_EQ(Nombres(c), std::vector<std::string>{"partida.sav"});

    const auto propios = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
    fs::permissions(Destino(), propios);
    ASSERT_TRUE(EscribirDeUnaVez(real, Destino(), "nueva"));
    EXPECT_EQ(fs::status(Destino()).permissions(), propios);
}
#endif

}  // namespace
}  // namespace sabelot

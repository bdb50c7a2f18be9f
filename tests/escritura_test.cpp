// La escritura de ficheros: nunca se pierde el que había, no se escribe fuera de la carpeta y
// un fichero protegido no se toca. Ficheros de verdad en una carpeta temporal.
#include "storage/escritura.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <tuple>
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
    for (int fallo = 0; fallo < 4; ++fallo) {  // al crear, al escribir, al cerrar o al renombrar
        c.Escribir("partida.sav", "vieja");
        FicherosAveriados averiados(real);
        std::tie(averiados.fallaCrear, averiados.fallaEscribir, averiados.fallaCerrar,
                 averiados.fallaRenombrar) = std::tuple(fallo == 0, fallo == 1, fallo == 2, fallo == 3);
        EXPECT_FALSE(EscribirDeUnaVez(averiados, Destino(), "nueva")) << fallo;
        EXPECT_EQ(c.Leer("partida.sav"), "vieja") << fallo;
        EXPECT_EQ(Nombres(c), std::vector<std::string>{"partida.sav"})
            << fallo << ": quedó un fichero de paso";
        for (const std::string& creado : averiados.creados)
            EXPECT_NE(creado, Destino()) << "se escribe aparte, nunca encima";
    }
}

#ifndef _WIN32
// Lo que ya ocupa el nombre de paso (un enlace puesto por otro, uno que no lleva a nada, un
// fichero o una carpeta) no se sigue ni se toca: se escribe con otro nombre. Con la misma
// semilla, el primer nombre de paso se sabe de antemano.
TEST_F(Escritura, LoQueOcupaElNombreDePasoNoSeSigueNiSeToca) {
    constexpr std::uint64_t kSemilla = 1234;
    std::string paso;
    {
        SistemaFicherosReal adivino(kSemilla);
        ASSERT_TRUE(adivino.CrearJunto(Destino(), paso)->Cerrar());
        fs::remove(paso);
    }
    enum Ocupante { kEnlace, kEnlaceANada, kFichero, kCarpeta };
    for (Ocupante o : {kEnlace, kEnlaceANada, kFichero, kCarpeta}) {
        CarpetaTemporal fuera;
        fuera.Escribir("importante.txt", "no tocar");
        const std::string nuevoFuera = Ruta(fuera.Ruta(), {"nuevo.txt"});
        c.Escribir("partida.sav", "vieja");
        if (o == kEnlace) fs::create_symlink(Ruta(fuera.Ruta(), {"importante.txt"}), paso);
        if (o == kEnlaceANada) fs::create_symlink(nuevoFuera, paso);
        if (o == kFichero) c.Escribir(fs::path(paso).filename().string(), "de otro");
        if (o == kCarpeta) fs::create_directory(paso);

        SistemaFicherosReal conSemilla(kSemilla);
        ASSERT_TRUE(EscribirDeUnaVez(conSemilla, Destino(), "nueva")) << o;
        EXPECT_EQ(c.Leer("partida.sav"), "nueva") << o;
        EXPECT_FALSE(fs::is_symlink(Destino())) << o << ": la partida es un fichero, no un enlace";
        EXPECT_EQ(fuera.Leer("importante.txt"), "no tocar") << o;
        EXPECT_FALSE(fs::exists(nuevoFuera)) << o << ": se creó un fichero fuera de la carpeta";
        if (o == kFichero) {
            EXPECT_EQ(c.Leer(fs::path(paso).filename().string()), "de otro");
        }
        EXPECT_EQ(Nombres(c).size(), 2u) << o << ": solo la partida y lo que ya estaba";
        fs::remove_all(paso);
    }
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

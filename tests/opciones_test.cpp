// Sabelot.ini: lo que se escribe, lo que se lee, y que uno roto no cuesta nada.
#include "storage/opciones.h"

#include <gtest/gtest.h>

#include "apoyo/datos_prueba.h"
#include "apoyo/ficheros_averiados.h"
#include "apoyo/plataforma_guion.h"
#include "storage/canales.h"
#include "storage/cp1252.h"

namespace sabelot {
namespace {

using prueba::FicherosAveriados;
using prueba::PlataformaGuion;

const std::string C = "\r\n";

// El fichero de ejemplo: tres jugadores, cuatro quesitos, "Cine" en dos temas.
const std::string kEjemplo =
    Utf8ACp1252("3,4" + C + "\"Cine\",\"Cine \",1" + C + "\"Deportes\",\"Deportes \",2" + C +
                "\"Cine\",\"Series y televisión \",1" + C + "\"Historia\",\"Historia \",3" + C +
                "\"Ciencia\",\"Ciencia \",4" + C + "\"Mezcla\",\"Cajón de sastre \",5" + C);

// Valores que no puede dar ningún fichero: si siguen ahí, no se tocó nada.
void PonerCentinelas(Module1& m) {
    m.NumJugadores = 1;
    m.QuesitosParaGanar = 0;
    for (std::size_t t = 1; t <= 6; ++t) {
        m.FicheroTema[t] = "antes" + std::to_string(t);
        m.EtiquetaTema[t] = "";
        m.CanalTema[t] = 0;
    }
}

void EsperarCentinelas(const Module1& m, const std::string& caso) {
    EXPECT_EQ(1, m.NumJugadores) << caso;
    EXPECT_EQ(0, m.QuesitosParaGanar) << caso;
    for (std::size_t t = 1; t <= 6; ++t) {
        EXPECT_EQ("antes" + std::to_string(t), m.FicheroTema[t]) << caso;
        EXPECT_EQ("", m.EtiquetaTema[t]) << caso;
        EXPECT_EQ(0, m.CanalTema[t]) << caso;
    }
}

struct Entorno {
    PlataformaGuion p;
    Canales canales{p.Ficheros()};
    Module1 m;
};

TEST(Opciones, EjemploLeidoYEscritoIgualByteAByte) {
    Entorno e;
    e.p.carpeta.Escribir("Sabelot.ini", kEjemplo);
    LeerOpciones(e.m, e.p, e.canales);
    EXPECT_EQ(3, e.m.NumJugadores);
    EXPECT_EQ(4, e.m.QuesitosParaGanar);
    EXPECT_EQ("Cine", e.m.FicheroTema[3]);
    EXPECT_EQ("Series y televisión ", e.m.EtiquetaTema[3]);
    EXPECT_EQ(1, e.m.CanalTema[3]);
    EXPECT_EQ(e.m.CanalTema[1], e.m.CanalTema[3]);
    EXPECT_EQ("Cajón de sastre ", e.m.EtiquetaTema[6]);
    EXPECT_EQ(5, e.m.CanalTema[6]);

    e.p.carpeta.Escribir("Sabelot.ini", "");
    ASSERT_TRUE(GuardarOpciones(e.m, e.p));
    EXPECT_EQ(kEjemplo, e.p.carpeta.Leer("Sabelot.ini"));
    // Dos veces lo mismo, el mismo fichero; y ningún temporal al lado.
    ASSERT_TRUE(GuardarOpciones(e.m, e.p));
    EXPECT_EQ(kEjemplo, e.p.carpeta.Leer("Sabelot.ini"));
    EXPECT_EQ(std::vector<std::string>{"Sabelot.ini"}, e.p.Ficheros().Listar(e.p.carpeta.Ruta(), ""));
}

TEST(Opciones, IdaYVueltaConComaNombresVaciosYSinEtiqueta) {
    Entorno e;
    e.m.NumJugadores = 6;
    e.m.QuesitosParaGanar = 1;
    e.m.FicheroTema = {"", "", "Cine", "", "Mezcla", "", ""};
    e.m.EtiquetaTema = {"", "(No especificado) ", "Cine, series y más ", "(No especificado) ", "¿Quién? ",
                        "", "  dos  blancos  "};
    e.m.CanalTema = {0, 1, 2, 1, 3, 1, 1};
    ASSERT_TRUE(GuardarOpciones(e.m, e.p));
    EXPECT_EQ(
        Utf8ACp1252("6,1" + C + "\"\",\"(No especificado) \",1" + C + "\"Cine\",\"Cine, series y más \",2" +
                    C + "\"\",\"(No especificado) \",1" + C + "\"Mezcla\",\"¿Quién? \",3" + C +
                    "\"\",\"\",1" + C + "\"\",\"  dos  blancos  \",1" + C),
        e.p.carpeta.Leer("Sabelot.ini"));
    Module1 leido;
    LeerOpciones(leido, e.p, e.canales);
    EXPECT_EQ(6, leido.NumJugadores);
    EXPECT_EQ(1, leido.QuesitosParaGanar);
    EXPECT_EQ(e.m.FicheroTema, leido.FicheroTema);
    EXPECT_EQ(e.m.EtiquetaTema, leido.EtiquetaTema);
    EXPECT_EQ(e.m.CanalTema, leido.CanalTema);
}

TEST(Opciones, SinFicheroNoCambiaNadaNiLoCrea) {
    Entorno e;
    PonerCentinelas(e.m);
    LeerOpciones(e.m, e.p, e.canales);
    EsperarCentinelas(e.m, "sin fichero");
    EXPECT_FALSE(e.p.carpeta.Existe("Sabelot.ini"));
}

TEST(Opciones, UsaElPrimerCanalLibreYLoCierra) {
    Entorno e;
    e.p.carpeta.Escribir("preguntas/a.qzf", "x\r\n");
    const std::string qzf = Ruta(e.p.carpeta.Ruta(), {"preguntas", "a.qzf"});
    ASSERT_EQ(0, e.canales.Abrir(1, qzf));
    ASSERT_EQ(0, e.canales.Abrir(2, qzf));
    e.p.carpeta.Escribir("Sabelot.ini", kEjemplo);
    LeerOpciones(e.m, e.p, e.canales);
    EXPECT_EQ(3, e.m.NumJugadores);
    ASSERT_TRUE(GuardarOpciones(e.m, e.p));
    EXPECT_TRUE(e.canales.Abierto(1));
    EXPECT_TRUE(e.canales.Abierto(2));
    EXPECT_EQ(3, e.canales.Libre());
    EXPECT_EQ(kEjemplo, e.p.carpeta.Leer("Sabelot.ini"));
}

// Cada caso es un Sabelot.ini roto (tests/corpus/opciones_rotas, más uno enorme):
// se ignora entero, y el fichero se queda como está.
std::vector<std::pair<std::string, std::string>> FicherosRotos() {
    auto rotos = prueba::FicherosDelCorpus("opciones_rotas");
    const std::string cat = "\"Cine\",\"Cine \",1" + C;
    rotos.emplace_back("Enorme",
                       "3,4" + C + cat + cat + cat + cat + cat + cat + std::string(200 * 1024, ' '));
    return rotos;
}

TEST(Opciones, FicheroRotoSeIgnoraEnteroYNoSeToca) {
    const auto rotos = FicherosRotos();
    ASSERT_EQ(rotos.size(), 30u);
    for (const auto& [nombre, bytes] : rotos) {
        Entorno e;
        e.p.carpeta.Escribir("Sabelot.ini", bytes);
        PonerCentinelas(e.m);
        LeerOpciones(e.m, e.p, e.canales);
        EsperarCentinelas(e.m, nombre);
        EXPECT_EQ(bytes, e.p.carpeta.Leer("Sabelot.ini")) << nombre;
        EXPECT_EQ(1, e.canales.Libre()) << nombre << ": el canal quedó abierto";
    }
}

}  // namespace
}  // namespace sabelot

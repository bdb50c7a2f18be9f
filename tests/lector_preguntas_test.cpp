// El lector de ficheros de preguntas sobre ficheros de verdad en una carpeta temporal.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <random>

#include "apoyo/datos_prueba.h"
#include "apoyo/formas_prueba.h"
#include "questions/mazo.h"

namespace sabelot {
namespace {

using prueba::Campos;
using prueba::QzfEscrito;

struct Lector : prueba::ConDialog1 {
    // Abre el fichero del tema en su primer byte, como tras dar la vuelta.
    void AbrirArriba() {
        d.NTema = 1;
        d.AbrirFichero(false, false);
        ASSERT_FALSE(d.FalloApertura);
    }
};

// Posición (desde 1) del byte que sigue a la línea que empieza por 'principio'.
std::int64_t Tras(const std::string& bytes, const std::string& principio) {
    std::size_t i = bytes.find(principio);
    EXPECT_NE(std::string::npos, i) << principio;
    return static_cast<std::int64_t>(bytes.find("\r\n", i) + 2 + 1);
}

// Los casos de tests/datos/registros.txt: lo que sale de la primera lectura y las marcas.
TEST(LectorPreguntas, ReglasDeRegistro) {
    const auto filas = prueba::Tabla("registros.txt", 8);
    ASSERT_EQ(37u, filas.size());
    for (const auto& c : filas) {
        SCOPED_TRACE(c[0]);
        Lector l;
        const std::string bytes = QzfEscrito(c[1]);
        l.Poner(1, bytes);
        l.m.MazoUsado[1] = c[7];
        l.AbrirArriba();
        l.d.LeerPregunta();
        ASSERT_FALSE(l.d.FalloApertura);
        std::string marcas = c[7];
        for (const auto& principio : Campos(c[2], ';')) marcas += MarcaMazo(Tras(bytes, principio));
        EXPECT_EQ(marcas, l.m.MazoUsado[1]);
        EXPECT_EQ(c[3], l.d.Pregunta);
        EXPECT_EQ(Campos(c[4], ';'), l.d.Respuestas);
        EXPECT_EQ(std::stoi(c[5]), l.d.IndiceCorrecto);
        EXPECT_EQ(prueba::Bytes(c[6]), l.d.Comentario);
        EXPECT_TRUE(l.p.mensajes.empty());
    }
}

// La marca es la posición tras la línea, en hexadecimal; el índice da lo mismo que buscar en la
// cadena, con cualquier contenido.
TEST(MazoUsado, IndiceIgualQueBuscarSubcadena) {
    EXPECT_EQ("1]1A3]7FFF]", MarcaMazo(1) + MarcaMazo(0x1A3) + MarcaMazo(32767));
    std::mt19937 azar(7);
    const std::string letras = "0123456789ABCDEFabcdef]]]x";
    for (int vuelta = 0; vuelta < 100; ++vuelta) {
        std::string mazo;
        for (auto largo = azar() % 40; largo > 0; --largo) mazo += letras[azar() % letras.size()];
        IndiceMazo indice;
        indice.Sincronizar(mazo);
        // Algunas marcas añadidas por el índice, otras por fuera.
        for (int k = 0; k < 3; ++k) {
            std::int64_t pos = 1 + static_cast<std::int64_t>(azar() % 0x1000);
            if (azar() % 2) {
                indice.Anadir(mazo, pos);
            } else {
                mazo += MarcaMazo(pos);
                indice.Sincronizar(mazo);
            }
        }
        std::string mayusculas = mazo;
        for (char& ch : mayusculas) ch = static_cast<char>(std::toupper(static_cast<unsigned char>(ch)));
        for (std::int64_t pos = 1; pos < 0x1000; pos += 1 + static_cast<std::int64_t>(azar() % 7)) {
            bool esperado = mayusculas.find(MarcaMazo(pos)) != std::string::npos;
            ASSERT_EQ(esperado, indice.Contiene(pos)) << mazo << " " << MarcaMazo(pos);
        }
    }
}

// Los casos de tests/datos/pasadas.txt, sacando preguntas desde arriba tras contarlas.
TEST(LectorPreguntas, PasadasYVueltaAlMazo) {
    for (const auto& c : prueba::Tabla("pasadas.txt", 5)) {
        SCOPED_TRACE(c[0]);
        Lector l;
        l.Poner(1, QzfEscrito(c[1]));
        l.m.CuentaMazo[1] = 7;
        l.AbrirArriba();
        l.d.ContarPreguntas();
        EXPECT_EQ(std::stoi(c[2]), l.m.TotalMazo[1]);
        EXPECT_EQ(0, l.m.CuentaMazo[1]);
        EXPECT_FALSE(l.canales.Abierto(1));
        const auto orden = Campos(c[3], ';'), vueltas = Campos(c[4], ';');
        // Cada una sacada se da por contestada.
        for (std::size_t i = 0; i < orden.size(); ++i, l.m.CuentaMazo[1] += 1) {
            l.d.Pregunta = "(nada)";
            l.d.LeerPregunta();
            const auto t = l.p.TextosMensajes();
            EXPECT_EQ(
                orden[i] + " " + vueltas[i],
                l.d.Pregunta + " " +
                    std::to_string(std::count(t.begin(), t.end(), "Dando la vuelta al mazo de preguntas")))
                << i;
        }
        EXPECT_EQ(1, l.m.CuentaMazo[1]);
        EXPECT_FALSE(l.d.FalloApertura);
    }
}

// Se empieza en un byte al azar y se lee desde la siguiente "q>". Con el canal ya abierto no
// se vuelve a abrir: AlAzar no hace nada y sigue donde estaba.
TEST(LectorPreguntas, ComienzoAlAzar) {
    const std::string bytes =
        QzfEscrito("Encabezado|q>P1|1>a|2>b|a>1||q>P2|1>a|a>1||q>P3|1>a|a>1|c>Comentario|con dos líneas|");
    auto en = [&bytes](const std::string& s, std::size_t mas = 0) { return bytes.find(s) + mas; };
    const std::vector<std::pair<std::size_t, const char*>> casos = {
        {0, "P1"},              // en el encabezado
        {en("q>P1"), "P1"},     // justo al principio de una "q>"
        {en("q>P1", 1), "P2"},  // a media línea de la pregunta
        {en("2>b"), "P2"},      // dentro del registro
        {en("q>P3", 1), "P1"},  // tras la última "q>": se acaba y vuelve arriba
        {en("con dos"), "P1"},
        {bytes.size() - 1, "P1"},  // el último byte
    };
    for (const auto& [byte, pregunta] : casos) {
        SCOPED_TRACE(byte);
        Lector l;
        l.Poner(1, bytes);
        l.p.azar = {(static_cast<double>(byte) + 0.5) / static_cast<double>(bytes.size()), 0.0};
        l.d.NTema = 1;
        l.d.AbrirFichero(true, true);
        EXPECT_EQ(pregunta, l.d.Pregunta);
        l.d.AbrirFichero(true, true);
        EXPECT_EQ(std::string(pregunta) == "P1" ? "P2" : "P3", l.d.Pregunta);
        EXPECT_EQ(1u, l.p.azar.size());
    }
}

TEST(LectorPreguntas, DosTemasCompartenCanalPeroNoMazo) {
    Lector l;
    const std::string bytes = QzfEscrito("q>P1|1>a|a>1||q>P2|1>a|a>1||q>P3|1>a|a>1||");
    l.Poner(1, bytes);
    l.m.FicheroTema[2] = "tema1";
    l.m.CanalTema[1] = l.m.CanalTema[2] = 3;
    const double alPrincipio = 0.5 / static_cast<double>(bytes.size());
    l.p.azar = {alPrincipio, alPrincipio};
    for (int tema : {1, 2, 1, 2}) {
        l.p.respuestas.push_back(1);
        l.d.NTema = tema;
        l.p.MostrarDialog1(l.d);
    }
    // El tema 2 cuenta al principio y cierra el canal: vuelve a empezar al azar (en P1),
    // que para él no está usada. Después cada uno sigue donde dejó el otro.
    const std::string p1 = MarcaMazo(Tras(bytes, "q>P1"));
    EXPECT_EQ(p1 + MarcaMazo(Tras(bytes, "q>P2")), l.m.MazoUsado[1]);
    EXPECT_EQ(p1 + MarcaMazo(Tras(bytes, "q>P3")), l.m.MazoUsado[2]);
    EXPECT_EQ((std::array<std::int64_t, 4>{3, 3, 2, 2}),
              (std::array<std::int64_t, 4>{l.m.TotalMazo[1], l.m.TotalMazo[2], l.m.CuentaMazo[1],
                                           l.m.CuentaMazo[2]}));
    EXPECT_TRUE(l.p.azar.empty());
}

// Los casos de tests/datos/sin_pregunta.txt, empiece donde empiece; y la vez siguiente, igual:
// ni se cuelga ni pregunta.
TEST(LectorPreguntas, SinPregunta) {
    for (const auto& c : prueba::Tabla("sin_pregunta.txt", 7)) {
        SCOPED_TRACE(c[0]);
        for (double azar : {0.0, 0.5, 0.999}) {
            Lector l;
            if (c[1] == "/") l.p.carpeta.CrearCarpeta("preguntas/tema1.qzf");
            if (c[1] != "/" && c[1] != "-") l.Poner(1, QzfEscrito(c[1]));
            if (c[4] != "0")
                std::filesystem::resize_file(l.p.carpeta.Ruta() + "/preguntas/tema1.qzf", std::stoll(c[4]));
            l.m.FicheroTema[1] = c[2];
            l.m.CanalTema[1] = std::stoi(c[3]);
            l.m.TotalMazo[1] = std::stoi(c[5]);
            l.p.azar = {azar};
            l.d.NTema = 1;
            for (int vez = 0; vez < 2; ++vez) {
                l.p.mensajes.clear();
                l.p.MostrarDialog1(l.d);
                EXPECT_EQ(Campos(c[6], ';'), l.p.TextosMensajes());
                for (const auto& msg : l.p.mensajes)
                    EXPECT_EQ("0 Sabelot", std::to_string(msg.estilo) + " " + msg.titulo);
                EXPECT_TRUE(l.d.FalloApertura);
                EXPECT_TRUE(l.d.SinPregunta);
                EXPECT_FALSE(l.d.Visible);
                EXPECT_FALSE(l.canales.Abierto(1));
                EXPECT_EQ(0, l.m.CuentaMazo[1]);
                EXPECT_EQ("", l.d.Text1);
            }
        }
    }
}

}  // namespace
}  // namespace sabelot

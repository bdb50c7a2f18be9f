// La revisión de ficheros de preguntas: cada problema con su línea, y de acuerdo con
// lo que de verdad hace el lector del juego.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

#include "apoyo/datos_prueba.h"
#include "apoyo/juego_prueba.h"
#include "apoyo/plataforma_guion.h"
#include "questions/dialog1.h"
#include "questions/revision.h"
#include "storage/canales.h"

namespace sabelot {
namespace {

using prueba::Qzf;

// Cada fichero de tests/corpus/revision con lo que se espera de él en tests/datos/revision.txt:
// los problemas en orden, con su línea y parte de su texto.
TEST(Revision, ProblemasConSuLinea) {
    const auto ficheros = prueba::FicherosDelCorpus("revision");
    const std::vector<std::string> filas = prueba::LineasDeDatos("revision.txt");
    ASSERT_EQ(filas.size(), 22u);
    ASSERT_EQ(ficheros.size(), filas.size());
    for (const std::string& fila : filas) {
        std::vector<std::string> campos;
        std::istringstream s(fila);
        for (std::string campo; std::getline(s, campo, '\t');) campos.push_back(campo);
        const auto fichero = std::find_if(ficheros.begin(), ficheros.end(),
                                          [&](const auto& f) { return f.first == campos[0] + ".qzf"; });
        ASSERT_NE(fichero, ficheros.end()) << campos[0];
        RevisionQzf r = RevisarQzf(fichero->second);
        std::string todos = campos[0] + "\n";
        for (const auto& p : r.problemas) todos += std::to_string(p.linea) + ": " + p.texto + "\n";
        ASSERT_EQ(campos.size() - 3, r.problemas.size()) << todos;
        for (std::size_t i = 3; i < campos.size(); ++i) {
            const std::size_t dosPuntos = campos[i].find(':');
            EXPECT_EQ(std::stoi(campos[i].substr(0, dosPuntos)), r.problemas[i - 3].linea) << todos;
            EXPECT_NE(std::string::npos, r.problemas[i - 3].texto.find(campos[i].substr(dosPuntos + 1)))
                << todos;
        }
        EXPECT_EQ(std::stoi(campos[1]), r.preguntas) << campos[0];
        EXPECT_EQ(std::stoi(campos[2]), r.preguntables) << campos[0];
    }
}

// El juego cuenta las preguntas en 16 bits: la que pasa de la cuenta se señala, una vez.
TEST(Revision, DemasiadasPreguntas) {
    for (int total : {kMaxPreguntasQzf, kMaxPreguntasQzf + 2}) {
        std::string bytes;
        for (int i = 1; i <= total; ++i)
            bytes +=
                "q>P" + std::to_string(i) + "\r\n1>a\r\n2>b\r\na>" + std::to_string(1 + i % 2) + "\r\n\r\n";
        const RevisionQzf r = RevisarQzf(bytes);
        EXPECT_EQ(total, r.preguntas);
        if (total == kMaxPreguntasQzf) {
            EXPECT_TRUE(r.problemas.empty());
        } else {
            ASSERT_EQ(1u, r.problemas.size());
            EXPECT_EQ(kMaxPreguntasQzf * 5 + 1, r.problemas[0].linea);
            EXPECT_NE(std::string::npos, r.problemas[0].texto.find("32767 preguntas"));
        }
    }
}

// Las proporciones de un fichero: cuántas preguntas empiezan igual y dónde cae la buena.
// Por debajo de kMinParaProporciones preguntables no se juzga.
TEST(Revision, ProporcionesDeUnFichero) {
    struct Caso {
        const char* que;
        int total;
        int iguales;                             // las primeras empiezan por "¿Quién escribió"
        std::vector<std::pair<int, int>> ciclo;  // respuestas y sitio de la buena, en ciclo
        std::vector<std::pair<int, std::string>> esperados;
    };
    const std::vector<std::pair<int, int>> repartidas = {{4, 1}, {4, 2}, {4, 3}, {4, 4}};
    const Caso casos[] = {
        {"una de cada cinco justas, buenas repartidas", 40, 8, repartidas, {}},
        {"una más que la quinta parte",
         40,
         9,
         repartidas,
         {{1, "«¿Quién escribió» abre 9 de las 40 preguntas"}}},
        {"pocas preguntas: no se juzga", 39, 39, {{4, 1}}, {}},
        {"la 1 en el 37 %, la 4 en el 12 %",
         40,
         0,
         {{4, 1}, {4, 2}, {4, 3}, {4, 4}, {4, 1}, {4, 2}, {4, 3}, {4, 1}},
         {{1,
           "la respuesta buena es la 1 en 15 de las 40 preguntas que se pueden hacer (38 %), y al azar "
           "sería hacia el 25 %"},
          {1, "la 4 en 5 de las 40"}}},
        {"con tres respuestas no hay cuarta", 60, 0, {{3, 1}, {3, 2}, {3, 3}}, {}},
        // La 4 solo existe en las de cuatro: el 14 % es justo lo que toca.
        {"de tres y de cuatro mezcladas",
         70,
         0,
         {{3, 1}, {4, 1}, {3, 2}, {4, 2}, {3, 3}, {4, 3}, {4, 4}},
         {}},
    };
    for (const Caso& c : casos) {
        std::vector<std::string> lineas;
        for (int i = 0; i < c.total; ++i) {
            const auto [respuestas, buena] = c.ciclo[static_cast<std::size_t>(i) % c.ciclo.size()];
            lineas.push_back(i < c.iguales ? "q>¿Quién escribió el libro " + std::to_string(i) + "?"
                                           : "q>Pregunta " + std::to_string(i));
            for (int n = 1; n <= respuestas; ++n)
                lineas.push_back(std::to_string(n) + ">R" + std::to_string(n));
            lineas.push_back("a>" + std::to_string(buena));
            lineas.push_back("");
        }
        const RevisionQzf r = RevisarQzf(Qzf(lineas));
        std::string todos = std::string(c.que) + "\n";
        for (const auto& p : r.problemas) todos += std::to_string(p.linea) + ": " + p.texto + "\n";
        ASSERT_EQ(c.esperados.size(), r.problemas.size()) << todos;
        for (std::size_t i = 0; i < c.esperados.size(); ++i) {
            EXPECT_EQ(c.esperados[i].first, r.problemas[i].linea) << todos;
            EXPECT_NE(std::string::npos, r.problemas[i].texto.find(c.esperados[i].second)) << todos;
        }
    }
}

// Varios ficheros juntos: lo repetido de uno a otro va en el segundo y nombra al primero.
TEST(Revision, FicherosJuntos) {
    struct Caso {
        const char* que;
        std::vector<std::string> primero, segundo;
        std::vector<std::string> esperados;  // problemas del segundo, "línea: texto"
    };
    const std::vector<std::string> base = {
        "q>¿Quién pintó «Las meninas»?", "1>Goya", "2>Velázquez", "3>El Greco", "a>2", ""};
    const Caso casos[] = {
        {"la misma pregunta con otras mayúsculas, tildes, blancos y signos",
         base,
         {"q>quien  pinto las Meninas", "1>Sorolla", "2>Velázquez", "a>2", ""},
         {"1: pregunta repetida: ya está en a.qzf:1"}},
        {"las mismas respuestas en otro orden, y con otra buena",
         base,
         {"q>¿Quién pintó «La maja desnuda»?", "1>goya", "2>el greco", "3>VELÁZQUEZ", "a>1", ""},
         {"1: tiene las mismas respuestas que la pregunta de a.qzf:1: quien jugó aquella las reconoce"}},
        {"las dos cosas a la vez",
         base,
         base,
         {"1: pregunta repetida: ya está en a.qzf:1",
          "1: tiene las mismas respuestas que la pregunta de a.qzf:1"}},
        {"con dos respuestas coincidir es lo normal",
         {"q>¿Es el sol una estrella?", "1>Sí", "2>No", "a>1", ""},
         {"q>¿Es la luna un planeta?", "1>No", "2>Sí", "a>1", ""},
         {}},
        {"año no es ano; una respuesta más ya no es el mismo conjunto",
         {"q>¿Qué año?", "1>Uno", "2>Dos", "3>Tres", "a>1", ""},
         {"q>¿Qué ano?", "1>Uno", "2>Dos", "3>Tres", "4>Cuatro", "a>1", ""},
         {}},
        {"lo repetido dentro del primero solo se dice allí",
         {base[0], "1>a", "a>1", "", base[0], "1>b", "a>1", ""},
         {"q>Otra", "1>a", "a>1", ""},
         {}},
    };
    for (const Caso& c : casos) {
        const std::vector<RevisionQzf> r =
            RevisarConjunto({{"a.qzf", prueba::Qzf(c.primero)}, {"b.qzf", prueba::Qzf(c.segundo)}});
        ASSERT_EQ(2u, r.size());
        std::vector<std::string> dichos;
        for (const auto& p : r[1].problemas) dichos.push_back(std::to_string(p.linea) + ": " + p.texto);
        ASSERT_EQ(c.esperados.size(), dichos.size()) << c.que << (dichos.empty() ? "" : "\n" + dichos[0]);
        for (std::size_t i = 0; i < dichos.size(); ++i)
            EXPECT_EQ(0u, dichos[i].rfind(c.esperados[i], 0)) << c.que << "\n" << dichos[i];
        // El primero se revisa igual que si fuera solo.
        EXPECT_EQ(RevisarQzf(prueba::Qzf(c.primero)).problemas.size(), r[0].problemas.size()) << c.que;
    }
}

// La revisión y el juego cuentan igual las preguntas que se pueden hacer: el lector
// saca exactamente esas antes de dar la vuelta al mazo.
TEST(RevisionYLector, DicenLoMismo) {
    // clang-format off
    const std::string resto =
        Qzf({"Encabezado", "q>P1", "1>a", "a>1", "", "q>Mala1", "1>a", "", "q>P2", "1>a", "2>b",
             "a>2", "c>Comentario", "q>P3 tragada", "1>a", "a>1", "", "q>Mala2", "a>1", "",
             "q>P4", "1>a", "a>7", "", "q>P5", "1>a", "a>1 ok", "q>P6 pegada", "1>a", "a>1", "",
             "q>Mala3", "c>x"});
    // clang-format on
    // Delante, una pregunta con una línea de más de 4096 bytes: ninguno de los dos la hace.
    const std::string bytes = Qzf({"q>Larga", "1>" + std::string(5000, 'x'), "a>1", ""}) + resto;
    RevisionQzf r = RevisarQzf(bytes);
    EXPECT_EQ(10, r.preguntas);
    EXPECT_EQ(5, r.preguntables);
    ASSERT_FALSE(r.problemas.empty());
    EXPECT_EQ(2, r.problemas[0].linea);
    EXPECT_EQ("una de sus líneas pasa de 4096 bytes: el juego se salta la pregunta de la línea 1",
              r.problemas[0].texto);

    prueba::PlataformaGuion p;
    Module1 m;
    Canales canales(p.Ficheros());
    Dialog1 d(m, p, canales);
    m.FicheroTema[1] = "mezcla";
    m.CanalTema[1] = 1;
    p.carpeta.Escribir("preguntas/mezcla.qzf", bytes);
    std::set<std::string> sacadas;
    for (int i = 0; i < 40; ++i) {
        p.respuestas.push_back(1);
        p.azar.push_back(0.3);
        d.NTema = 1;
        p.MostrarDialog1(d);
        ASSERT_FALSE(d.SinPregunta);
        bool vuelta = false;
        for (const auto& msg : p.mensajes)
            if (msg.texto == "Dando la vuelta al mazo de preguntas") vuelta = true;
        if (vuelta) break;
        sacadas.insert(d.Pregunta);
    }
    EXPECT_EQ(std::set<std::string>({"P1", "P2", "P3 tragada", "P5", "P6 pegada"}), sacadas);
}

}  // namespace
}  // namespace sabelot

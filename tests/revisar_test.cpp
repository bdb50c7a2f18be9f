// La revisión de ficheros de preguntas: cada problema con su línea, y de acuerdo con
// lo que de verdad hace el lector del juego.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "apoyo/datos_prueba.h"
#include "questions/revision.h"

namespace sabelot {
namespace {

using prueba::QzfEscrito;

// Los problemas, uno por línea, para verlos enteros cuando algo falla.
std::string Dichos(const RevisionQzf& r) {
    std::string todos;
    for (const auto& p : r.problemas) todos += std::to_string(p.linea) + ": " + p.texto + "\n";
    return todos;
}

// Cada fichero de tests/corpus/revision con lo que se espera de él en tests/datos/revision.txt:
// los problemas en orden, con su línea y parte de su texto.
TEST(Revision, ProblemasConSuLinea) {
    const auto corpus = prueba::FicherosDelCorpus("revision");
    const std::map<std::string, std::string> ficheros(corpus.begin(), corpus.end());
    const auto filas = prueba::Tabla("revision.txt", 3);
    ASSERT_EQ(filas.size(), 28u);
    ASSERT_EQ(ficheros.size(), filas.size());
    for (const auto& campos : filas) {
        SCOPED_TRACE(campos[0]);
        const RevisionQzf r = RevisarQzf(ficheros.at(campos[0] + ".qzf"));
        ASSERT_EQ(campos.size() - 3, r.problemas.size()) << Dichos(r);
        for (std::size_t i = 3; i < campos.size(); ++i) {
            const std::size_t dosPuntos = campos[i].find(':');
            EXPECT_EQ(std::stoi(campos[i].substr(0, dosPuntos)), r.problemas[i - 3].linea) << Dichos(r);
            EXPECT_NE(std::string::npos, r.problemas[i - 3].texto.find(campos[i].substr(dosPuntos + 1)))
                << Dichos(r);
        }
        EXPECT_EQ(std::stoi(campos[1]), r.preguntas);
        EXPECT_EQ(std::stoi(campos[2]), r.preguntables);
    }
}

// El juego cuenta las preguntas en 16 bits: la que pasa de la cuenta se señala, una vez.
TEST(Revision, DemasiadasPreguntas) {
    std::string bytes;
    for (int i = 1; i <= kMaxPreguntasQzf + 2; ++i) {
        bytes += "q>P" + std::to_string(i) + "\r\n1>a\r\n2>b\r\na>" + std::to_string(1 + i % 2) + "\r\n\r\n";
        if (i == kMaxPreguntasQzf) {
            EXPECT_EQ("", Dichos(RevisarQzf(bytes)));
        }
    }
    const RevisionQzf r = RevisarQzf(bytes);
    EXPECT_EQ(kMaxPreguntasQzf + 2, r.preguntas);
    ASSERT_EQ(1u, r.problemas.size());
    EXPECT_EQ(kMaxPreguntasQzf * 5 + 1, r.problemas[0].linea);
    EXPECT_NE(std::string::npos, r.problemas[0].texto.find("32767 preguntas"));
}

// Los pares de tests/datos/juntos.txt: lo repetido de uno a otro va en el segundo y nombra al primero.
TEST(Revision, FicherosJuntos) {
    for (const auto& c : prueba::Tabla("juntos.txt", 3)) {
        SCOPED_TRACE(c[0]);
        const std::vector<RevisionQzf> r =
            RevisarConjunto({{"a.qzf", QzfEscrito(c[1])}, {"b.qzf", QzfEscrito(c[2])}});
        ASSERT_EQ(2u, r.size());
        const std::string dichos = Dichos(r[1]);
        ASSERT_EQ(c.size() - 3, r[1].problemas.size()) << dichos;
        for (std::size_t i = 3; i < c.size(); ++i) {
            const auto& p = r[1].problemas[i - 3];
            EXPECT_EQ(0u, (std::to_string(p.linea) + ": " + p.texto).rfind(c[i], 0)) << dichos;
        }
        // El primero se revisa igual que si fuera solo.
        EXPECT_EQ(RevisarQzf(QzfEscrito(c[1])).problemas.size(), r[0].problemas.size());
    }
}

// Una pregunta con una línea de más de 4096 bytes no se hace.
TEST(Revision, LineaLarga) {
    EXPECT_EQ("2: una de sus líneas pasa de 4096 bytes: el juego se salta la pregunta de la línea 1\n",
              Dichos(RevisarQzf(QzfEscrito("q>Larga|1>\\(5000)x|a>1||"))));
}

// La revisión y el juego cuentan igual: en cada fichero de tests/datos/pasadas.txt, las preguntas y
// las que se pueden hacer son las que el lector cuenta y saca antes de dar la vuelta al mazo.
TEST(RevisionYLector, DicenLoMismo) {
    for (const auto& c : prueba::Tabla("pasadas.txt", 5)) {
        const RevisionQzf r = RevisarQzf(QzfEscrito(c[1]));
        EXPECT_EQ(std::stoi(c[2]), r.preguntas) << c[0];
        const auto orden = prueba::Campos(c[3], ';'), vueltas = prueba::Campos(c[4], ';');
        const auto antes = std::find(vueltas.begin(), vueltas.end(), "1") - vueltas.begin();
        EXPECT_EQ(std::set<std::string>(orden.begin(), orden.begin() + antes).size(),
                  static_cast<std::size_t>(r.preguntables))
            << c[0];
    }
}

}  // namespace
}  // namespace sabelot

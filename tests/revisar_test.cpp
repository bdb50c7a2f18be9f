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
    ASSERT_EQ(filas.size(), 20u);
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
            EXPECT_NE(std::string::npos, r.problemas[i - 3].texto.find(campos[i].substr(dosPuntos + 1))) << todos;
        }
        EXPECT_EQ(std::stoi(campos[1]), r.preguntas) << campos[0];
        EXPECT_EQ(std::stoi(campos[2]), r.preguntables) << campos[0];
    }
}

// El juego cuenta las preguntas en 16 bits: la que pasa de la cuenta se señala, una vez.
TEST(Revision, DemasiadasPreguntas) {
    for (int total : {kMaxPreguntasQzf, kMaxPreguntasQzf + 2}) {
        std::string bytes;
        for (int i = 1; i <= total; ++i) bytes += "q>P" + std::to_string(i) + "\r\n1>a\r\n2>b\r\na>1\r\n\r\n";
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

// La revisión y el juego cuentan igual las preguntas que se pueden hacer: el lector
// saca exactamente esas antes de dar la vuelta al mazo.
TEST(RevisionYLector, DicenLoMismo) {
    const std::string resto =
        Qzf({"Encabezado", "q>P1", "1>a", "a>1", "", "q>Mala1", "1>a", "", "q>P2", "1>a", "2>b",
             "a>2", "c>Comentario", "q>P3 tragada", "1>a", "a>1", "", "q>Mala2", "a>1", "",
             "q>P4", "1>a", "a>7", "", "q>P5", "1>a", "a>1 ok", "q>P6 pegada", "1>a", "a>1", "",
             "q>Mala3", "c>x"});
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

// La revisión de ficheros de preguntas: cada problema con su línea, y de acuerdo con
// lo que de verdad hace el lector del juego.
#include <gtest/gtest.h>

#include <set>

#include "apoyo/juego_prueba.h"
#include "apoyo/plataforma_guion.h"
#include "questions/dialog1.h"
#include "questions/revision.h"
#include "storage/canales.h"

namespace sabelot {
namespace {

using prueba::Qzf;

struct Esperado {
    int linea;
    std::string trozo;  // parte del texto del problema
};

struct CasoRevision {
    const char* nombre;
    std::string bytes;
    std::vector<Esperado> problemas;
    int preguntas, preguntables;
};

class Revision : public ::testing::TestWithParam<CasoRevision> {};

TEST_P(Revision, ProblemasConSuLinea) {
    const CasoRevision& c = GetParam();
    RevisionQzf r = RevisarQzf(c.bytes);
    std::string todos;
    for (const auto& p : r.problemas) todos += std::to_string(p.linea) + ": " + p.texto + "\n";
    ASSERT_EQ(c.problemas.size(), r.problemas.size()) << todos;
    for (std::size_t i = 0; i < c.problemas.size(); ++i) {
        EXPECT_EQ(c.problemas[i].linea, r.problemas[i].linea) << todos;
        EXPECT_NE(std::string::npos, r.problemas[i].texto.find(c.problemas[i].trozo)) << todos;
    }
    EXPECT_EQ(c.preguntas, r.preguntas);
    EXPECT_EQ(c.preguntables, r.preguntables);
}

const std::string kBueno = Qzf({"Preguntas de prueba", "1>un encabezado puede tener de todo", "",
                                "q>¿Cuántos lados tiene un hexágono?", "1>Cinco", "2>Seis", "a>2", "",
                                "q>¿Qué planeta es el mayor?", "1>Marte", "2>Júpiter",
                                "a>2 Tiene más masa que todos los demás juntos.", "",
                                "q>Última, con comentario", "1>A", "a>1", "c>Puede ocupar", "",
                                "1 varias líneas"});

INSTANTIATE_TEST_SUITE_P(
    Qzf, Revision,
    ::testing::Values(
        CasoRevision{"Bueno", kBueno, {}, 3, 3},
        CasoRevision{"Vacio", "", {{1, "vacío"}}, 0, 0},
        CasoRevision{"SinPreguntas", Qzf({"solo texto"}), {{1, "ninguna línea q>"}}, 0, 0},
        CasoRevision{"Utf8",
                     "q>\xC2\xBFQu\xC3\xA9?\r\n1>S\xC3\xAD\r\na>1\r\n",
                     {{1, "UTF-8"}, {2, "UTF-8"}}, 1, 1},
        // Con la marca delante, la primera línea ya no empieza por "q>": el juego no la ve.
        CasoRevision{"MarcaUtf8", "\xEF\xBB\xBFq>P\r\n1>A\r\na>1\r\n",
                     {{1, "BOM"}, {1, "UTF-8"}, {1, "ninguna línea q>"}}, 0, 0},
        CasoRevision{"ByteSinDefinir", "q>P\x81\r\n1>A\r\na>1\r\n", {{1, "81"}}, 1, 1},
        CasoRevision{"FinesDeLinea", "q>P\n1>A\ra>1\r\n\r\nq>Q\r\n1>B\r\na>1",
                     {{1, "LF"}, {2, "CR"}, {7, "no termina en CR LF"}}, 2, 2},
        CasoRevision{"SinRespuestas", Qzf({"q>P", "a>1", ""}), {{1, "no tiene respuestas"}}, 1, 0},
        CasoRevision{"SinA", Qzf({"q>P", "1>A", ""}), {{1, "falta la línea a>"}}, 1, 0},
        CasoRevision{"ASinNumero", Qzf({"q>P", "1>A", "a>uno", ""}), {{3, "no empieza por un número"}}, 1, 0},
        CasoRevision{"AFueraDeRango", Qzf({"q>P", "1>A", "2>B", "a>3", ""}),
                     {{4, "no existe"}}, 1, 0},
        CasoRevision{"ACero", Qzf({"q>P", "1>A", "a>0", ""}), {{3, "no existe"}}, 1, 0},
        CasoRevision{"RespuestaVacia", Qzf({"q>P", "1>A", "2>", "3>C", "a>2", ""}),
                     {{3, "respuesta vacía"}}, 1, 1},
        CasoRevision{"VariasA", Qzf({"q>P", "1>A", "a>1", "a>1", ""}), {{1, "2 líneas a>"}}, 1, 1},
        CasoRevision{"Repetida", Qzf({"q>¿Qué es?", "1>A", "a>1", "", "q>  ¿QUÉ ES?", "1>B", "a>1", ""}),
                     {{5, "repetida: ya está en la línea 1"}}, 2, 2},
        CasoRevision{"PreguntaVacia", Qzf({"q>", "1>A", "a>1", ""}), {{1, "vacía"}}, 1, 1},
        CasoRevision{"SinLineaEnBlanco", Qzf({"q>P", "1>A", "a>1", "q>Q", "1>B", "a>1", ""}),
                     {{4, "falta una línea en blanco"}}, 2, 2},
        CasoRevision{"TragadaPorComentario",
                     Qzf({"q>P", "1>A", "a>1", "c>Comentario", "", "q>Q", "1>B", "a>1", ""}),
                     {{6, "el comentario de la pregunta de la línea 1"}}, 2, 2},
        CasoRevision{"LineaSuelta", Qzf({"q>P", "1>A", "", "2>B", "a>2", ""}),
                     {{1, "falta la línea a>"}, {4, "fuera de cualquier pregunta"},
                      {5, "fuera de cualquier pregunta"}},
                     1, 0},
        CasoRevision{"UltimaLinea", Qzf({"q>P", "1>A", "a>1", "", "q>Q"}),
                     {{5, "última línea"}}, 2, 1}),
    [](const ::testing::TestParamInfo<CasoRevision>& i) { return std::string(i.param.nombre); });

// La revisión y el juego cuentan igual las preguntas que se pueden hacer: el lector
// saca exactamente esas antes de dar la vuelta al mazo.
TEST(RevisionYLector, DicenLoMismo) {
    const std::string bytes =
        Qzf({"Encabezado", "q>P1", "1>a", "a>1", "", "q>Mala1", "1>a", "", "q>P2", "1>a", "2>b",
             "a>2", "c>Comentario", "q>P3 tragada", "1>a", "a>1", "", "q>Mala2", "a>1", "",
             "q>P4", "1>a", "a>7", "", "q>P5", "1>a", "a>1 ok", "q>P6 pegada", "1>a", "a>1", "",
             "q>Mala3", "c>x"});
    RevisionQzf r = RevisarQzf(bytes);
    EXPECT_EQ(9, r.preguntas);
    EXPECT_EQ(5, r.preguntables);

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

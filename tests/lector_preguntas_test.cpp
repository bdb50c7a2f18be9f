// El lector de ficheros de preguntas sobre ficheros de verdad en una carpeta temporal.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <random>
#include <set>

#include "apoyo/juego_prueba.h"
#include "apoyo/plataforma_guion.h"
#include "questions/dialog1.h"
#include "questions/mazo.h"
#include "questions/registro.h"
#include "storage/canales.h"
#include "storage/cp1252.h"

namespace sabelot {
namespace {

using prueba::Qzf;

const std::string kNoSeEncuentra =
    "No se encuentra el archivo correspondiente a esa categor\xC3\xAD"
    "a. Reajuste las opciones antes de continuar jugando";
const std::string kErrorAlAbrir =
    "Se produjo un error al abrir el archivo. archivo correspondiente a esa categor\xC3\xAD"
    "a. Reajuste las opciones antes de continuar jugando\"";
const std::string kSinPreguntas =
    "El archivo correspondiente a esa categor\xC3\xAD"
    "a no contiene preguntas v\xC3\xA1lidas. Reajuste las opciones antes de continuar jugando";
const std::string kVuelta = "Dando la vuelta al mazo de preguntas";

// Un registro bien formado con una línea en blanco detrás.
std::vector<std::string> Bueno(const std::string& pregunta) {
    return {"q>" + pregunta, "1>Uno", "2>Dos", "a>2", ""};
}

class LectorPreguntas : public ::testing::Test {
protected:
    prueba::PlataformaGuion p;
    Module1 m;
    Canales canales{p.Ficheros()};
    Dialog1 d{m, p, canales};

    void SetUp() override {
        for (int t = 1; t <= kNumTemas; ++t) {
            m.FicheroTema[static_cast<std::size_t>(t)] = "tema" + std::to_string(t);
            m.CanalTema[static_cast<std::size_t>(t)] = t;
            m.EtiquetaTema[static_cast<std::size_t>(t)] = "Tema " + std::to_string(t);
        }
    }
    void Poner(const std::string& nombre, const std::string& bytes) {
        p.carpeta.Escribir("preguntas/" + nombre + ".qzf", bytes);
    }
    // Abre el fichero del tema en su primer byte, como tras dar la vuelta.
    void AbrirArriba(int tema = 1) {
        d.NTema = tema;
        d.FalloApertura = false;
        d.AbrirFichero(false, false);
        ASSERT_FALSE(d.FalloApertura);
    }
    // Saca una pregunta y la da por contestada.
    std::string Sacar(int tema = 1) {
        d.NTema = tema;
        d.Pregunta = "(nada)";
        d.LeerPregunta();
        m.CuentaMazo[static_cast<std::size_t>(tema)] += 1;
        return d.Pregunta;
    }
    int Vueltas() const {
        auto t = p.TextosMensajes();
        return static_cast<int>(std::count(t.begin(), t.end(), kVuelta));
    }
};

// Un lector aparte, con su carpeta, para cada caso de una tabla.
struct Aparte {
    explicit Aparte(const Module1& base) : m(base) {}
    prueba::PlataformaGuion p;
    Module1 m;
    Canales c{p.Ficheros()};
    Dialog1 d{m, p, c};
};

// Posición (desde 1) del byte que sigue a la línea que empieza por 'principio'.
std::int64_t Tras(const std::string& bytes, const std::string& principio) {
    std::size_t i = bytes.find(principio);
    EXPECT_NE(std::string::npos, i) << principio;
    return static_cast<std::int64_t>(bytes.find("\r\n", i) + 2 + 1);
}

// ---- Reglas de un registro ----

struct CasoRegistro {
    const char* nombre;
    std::vector<std::string> lineas;  // UTF-8; se guardan en Windows-1252
    std::string pregunta;
    std::vector<std::string> respuestas;
    int correcta;
    std::string comentario;
};

class ReglasDeRegistro : public LectorPreguntas, public ::testing::WithParamInterface<CasoRegistro> {};

TEST_P(ReglasDeRegistro, LeeLosCampos) {
    const CasoRegistro& c = GetParam();
    std::string bytes;
    for (const auto& l : c.lineas) bytes += Qzf({l});
    Poner("tema1", bytes);
    AbrirArriba();
    d.LeerPregunta();
    ASSERT_FALSE(d.FalloApertura);
    EXPECT_EQ(c.pregunta, d.Pregunta);
    EXPECT_EQ(c.respuestas, d.Respuestas);
    EXPECT_EQ(c.correcta, d.IndiceCorrecto);
    EXPECT_EQ(c.comentario, d.Comentario);
    EXPECT_TRUE(p.mensajes.empty());
}

INSTANTIATE_TEST_SUITE_P(
    LectorPreguntas, ReglasDeRegistro,
    ::testing::Values(
        CasoRegistro{"Sencillo",
                     {"q>¿Cuántos lados tiene un hexágono?", "1>Cinco", "2>Seis", "a>2"},
                     "¿Cuántos lados tiene un hexágono?",
                     {"Cinco", "Seis"},
                     2,
                     ""},
        // Se quitan dos caracteres, sean los que sean.
        CasoRegistro{"DosCifras",
                     {"q>P", "10>Diez", "1-Uno", "12 Doce", "7", "a>1"},
                     "P",
                     {">Diez", "Uno", " Doce", ""},
                     1,
                     ""},
        // Una respuesta vacía deja su sitio a la siguiente.
        CasoRegistro{"RespuestaVacia", {"q>P", "1>A", "2>", "3>C", "a>2"}, "P", {"A", "C"}, 2, ""},
        CasoRegistro{"CifraNoCuenta", {"q>P", "9>A", "9>B", "a>2"}, "P", {"A", "B"}, 2, ""},
        CasoRegistro{
            "ComentarioEnLaA", {"q>P", "1>A", "2>B", "a>2 Porque sí"}, "P", {"A", "B"}, 2, "Porque sí"},
        CasoRegistro{"ComentarioDesdeElQuinto", {"q>P", "1>A", "a>1Xyz"}, "P", {"A"}, 1, "yz"},
        CasoRegistro{"CuatroCaracteresSinComentario", {"q>P", "1>A", "a>1x"}, "P", {"A"}, 1, ""},
        CasoRegistro{"BlancosAntesDelNumero", {"q>P", "1>A", "2>B", "a> 2"}, "P", {"A", "B"}, 2, ""},
        CasoRegistro{"LaAAntesDeLasRespuestas", {"q>P", "a>2", "1>A", "2>B", ""}, "P", {"A", "B"}, 2, ""},
        CasoRegistro{"LaCSustituyeALaA",
                     {"q>P", "1>A", "a>1 Corto", "c>Largo", "segunda línea"},
                     "P",
                     {"A"},
                     1,
                     "Largo\r\nsegunda línea"},
        CasoRegistro{"CifraEnElComentario",
                     {"q>P", "1>A", "a>1", "c>Nota", "1999 fue el año", "a>7", "", "fin"},
                     "P",
                     {"A"},
                     1,
                     "Nota\r\n1999 fue el año\r\na>7\r\n\r\nfin"},
        CasoRegistro{"MarcasEnMayusculas", {"Q>P", "1>A", "2>B", "A>2", "C>Com"}, "P", {"A", "B"}, 2, "Com"},
        CasoRegistro{"TextoAntesDeLaPrimera",
                     {"Preguntas de prueba", "1>suelta", "a>1", "c>nada", "", "q>P", "1>A", "a>1"},
                     "P",
                     {"A"},
                     1,
                     ""},
        CasoRegistro{"OtraLineaCierra", {"q>P", "1>A", "a>1", "x", "2>B", "c>no"}, "P", {"A"}, 1, ""}),
    [](const ::testing::TestParamInfo<CasoRegistro>& i) { return std::string(i.param.nombre); });

// Registros que no se pueden juzgar: se saltan y queda su marca; sale el siguiente.
TEST_F(LectorPreguntas, SaltaLosRegistrosQueNoSePuedenJuzgar) {
    const std::vector<std::vector<std::string>> malos = {
        {"q>Malo", ""},
        {"q>Malo", "1>", "a>1", ""},
        {"q>Malo", "1>A", "2>B", ""},
        {"q>Malo", "1>A", "a>", ""},
        {"q>Malo", "1>A", "a>dos", ""},
        {"q>Malo", "1>A", "a>0", ""},
        {"q>Malo", "1>A", "a>2", ""},
        {"q>Malo", "1>A", "a>99999999999999999999", ""},
        {"q>Malo", "c>solo comentario", "q>tragada", ""},
        // Una línea de más de 4096 bytes no es de un fichero hecho a mano: no se pregunta.
        {"q>Malo", "1>" + std::string(5000, 'x'), "a>1", ""},
        {"q>Malo" + std::string(5000, '?'), "1>A", "a>1", ""},
    };
    for (const auto& malo : malos) {
        SCOPED_TRACE(malo[1].substr(0, 20));
        Aparte a(m);
        std::vector<std::string> lineas = malo;
        for (const auto& l : Bueno("Buena")) lineas.push_back(l);
        std::string bytes = prueba::Qzf(lineas);
        a.p.carpeta.Escribir("preguntas/tema1.qzf", bytes);
        a.d.NTema = 1;
        a.d.AbrirFichero(false, false);
        a.d.LeerPregunta();
        EXPECT_EQ("Buena", a.d.Pregunta);
        EXPECT_EQ(2, a.d.IndiceCorrecto);
        EXPECT_EQ(MarcaMazo(Tras(bytes, "q>Malo")) + MarcaMazo(Tras(bytes, "q>Buena")), a.m.MazoUsado[1]);
        EXPECT_TRUE(a.p.mensajes.empty());
    }
}

// ---- Marcas ----

TEST_F(LectorPreguntas, MarcasEnHexadecimalDeLaPosicionTrasLaLinea) {
    // 411 letras y CR LF: la primera pregunta deja la lectura en el byte 419 = 1A3.
    std::string bytes =
        prueba::Qzf({std::string(411, 'x'), "q>A", "1>a", "a>1", "", "q>B", "1>b", "a>1", ""});
    Poner("tema1", bytes);
    AbrirArriba();
    EXPECT_EQ("A", Sacar());
    EXPECT_EQ("1A3]", m.MazoUsado[1]);
    EXPECT_EQ("B", Sacar());
    EXPECT_EQ("1A3]1B4]", m.MazoUsado[1]);
    EXPECT_EQ("1]", MarcaMazo(1));
    EXPECT_EQ("7FFF]", MarcaMazo(32767));
}

// La búsqueda es de subcadena y sin mayúsculas: 1A3] está dentro de 21A3].
TEST_F(LectorPreguntas, MarcaBuscadaComoSubcadena) {
    struct Caso {
        std::string mazo;
        bool usada;
    };
    const std::vector<Caso> casos = {
        {"", false},      {"1A3]", true},   {"21A3]", true},  {"1a3]", true}, {"5]21A3]9]", true},
        {"01A3]", true},  {"X1A3]", true},  {"1A3]21", true}, {"1A3", false}, {"A3]", false},
        {"1A30]", false}, {"1A]3]", false}, {"1A2]", false},
    };
    std::string bytes =
        prueba::Qzf({std::string(411, 'x'), "q>A", "1>a", "a>1", "", "q>B", "1>b", "a>1", ""});
    for (const auto& c : casos) {
        SCOPED_TRACE(c.mazo);
        Aparte a(m);
        a.p.carpeta.Escribir("preguntas/tema1.qzf", bytes);
        a.m.MazoUsado[1] = c.mazo;
        a.m.TotalMazo[1] = 2;
        a.d.NTema = 1;
        a.d.AbrirFichero(false, false);
        a.d.LeerPregunta();
        EXPECT_EQ(c.usada ? "B" : "A", a.d.Pregunta);
        EXPECT_EQ(c.mazo + (c.usada ? "1B4]" : "1A3]"), a.m.MazoUsado[1]);
    }
}

// El índice da lo mismo que buscar en la cadena, con cualquier contenido.
TEST(MazoUsado, IndiceIgualQueBuscarSubcadena) {
    std::mt19937 azar(7);
    const std::string letras = "0123456789ABCDEFabcdef]]]x";
    for (int vuelta = 0; vuelta < 100; ++vuelta) {
        std::string mazo;
        int largo = static_cast<int>(azar() % 40);
        for (int i = 0; i < largo; ++i) mazo += letras[azar() % letras.size()];
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
        for (char& ch : mayusculas) {
            if (ch >= 'a' && ch <= 'f') ch = static_cast<char>(ch - 'a' + 'A');
        }
        for (std::int64_t pos = 1; pos < 0x1000; pos += 1 + static_cast<std::int64_t>(azar() % 7)) {
            bool esperado = mayusculas.find(MarcaMazo(pos)) != std::string::npos;
            ASSERT_EQ(esperado, indice.Contiene(pos)) << mazo << " " << MarcaMazo(pos);
        }
    }
}

// ---- Pasadas y vuelta al mazo ----

TEST_F(LectorPreguntas, PasadasConYSinComentarios) {
    struct Caso {
        const char* nombre;
        bool comentarios;
        std::vector<std::string> orden;  // hasta la vuelta al mazo, incluida la siguiente
        int vueltaAntesDe;               // índice en 'orden' de la pregunta tras la vuelta
    };
    const std::vector<Caso> casos = {
        {"sin comentarios", false, {"P1", "P2", "P3", "P4", "P5", "P6", "P1"}, 6},
        // Cada comentario se traga la pregunta siguiente: la segunda pasada saca las perdidas.
        {"con comentarios", true, {"P1", "P3", "P5", "P2", "P4", "P6", "P1"}, 6},
    };
    for (const auto& c : casos) {
        SCOPED_TRACE(c.nombre);
        std::vector<std::string> lineas;
        for (int i = 1; i <= 6; ++i) {
            std::string n = "P" + std::to_string(i);
            if (c.comentarios) {
                for (const std::string& l :
                     std::vector<std::string>{"q>" + n, "1>a", "2>b", "a>1", "c>Comentario de " + n, ""})
                    lineas.push_back(l);
            } else {
                for (const auto& l : Bueno(n)) lineas.push_back(l);
            }
        }
        Poner("tema1", prueba::Qzf(lineas));
        m.MazoUsado[1].clear();
        p.mensajes.clear();
        d.NTema = 1;
        canales.Cerrar(1);
        d.ContarPreguntas();
        ASSERT_EQ(6, m.TotalMazo[1]);
        AbrirArriba();
        for (std::size_t i = 0; i < c.orden.size(); ++i) {
            EXPECT_EQ(c.orden[i], Sacar()) << i;
            EXPECT_EQ(static_cast<int>(i) >= c.vueltaAntesDe ? 1 : 0, Vueltas()) << i;
        }
        EXPECT_EQ(1, Vueltas());
        EXPECT_EQ(1, m.CuentaMazo[1]);
    }
}

// La vuelta solo llega con más del 95 % contestado (de 100, hacen falta 96).
TEST_F(LectorPreguntas, VueltaAlMazoEstrictamenteMasDel95) {
    std::string bytes = prueba::Qzf({"q>P1", "1>a", "a>1", "", "q>P2", "1>a", "a>1", ""});
    for (int cuenta : {95, 96}) {
        SCOPED_TRACE(cuenta);
        Poner("tema1", bytes);
        canales.Cerrar(1);
        p.mensajes.clear();
        m.MazoUsado[1] = MarcaMazo(Tras(bytes, "q>P1"));
        m.TotalMazo[1] = 100;
        m.CuentaMazo[1] = cuenta;
        AbrirArriba();
        d.LeerPregunta();
        EXPECT_EQ(cuenta == 96 ? "P1" : "P2", d.Pregunta);
        EXPECT_EQ(cuenta == 96 ? 1 : 0, Vueltas());
        EXPECT_EQ(cuenta == 96 ? 0 : 95, m.CuentaMazo[1]);
    }
}

// Con una sola pregunta, el mensaje sale antes de cada repetición.
TEST_F(LectorPreguntas, UnaSolaPreguntaDaLaVueltaCadaVez) {
    Poner("tema1", prueba::Qzf(Bueno("Única")));
    p.azar = {0.5, 0.5, 0.5, 0.5};
    for (int i = 0; i < 4; ++i) {
        p.respuestas.push_back(2);
        d.NTema = 1;
        p.MostrarDialog1(d);
        EXPECT_EQ("Única", d.Pregunta);
    }
    EXPECT_EQ(1, m.TotalMazo[1]);
    std::vector<std::string> esperado = {"respuesta correcta", kVuelta, "respuesta correcta", kVuelta,
                                         "respuesta correcta", kVuelta, "respuesta correcta"};
    EXPECT_EQ(esperado, p.TextosMensajes());
}

// Sin preguntas para sacar pero con algo contestado: se da la vuelta en vez de quedarse
// sin pregunta (aquí 3 de 4 no llega al 95 %).
TEST_F(LectorPreguntas, DaLaVueltaSiSoloQuedanRegistrosMalos) {
    std::vector<std::string> lineas;
    for (const auto& n : {"P1", "P2", "P3"})
        for (const auto& l : Bueno(n)) lineas.push_back(l);
    for (const auto& l : {"q>Mala", "1>a", ""}) lineas.push_back(l);
    Poner("tema1", prueba::Qzf(lineas));
    d.NTema = 1;
    d.ContarPreguntas();
    AbrirArriba();
    EXPECT_EQ("P1", Sacar());
    EXPECT_EQ("P2", Sacar());
    EXPECT_EQ("P3", Sacar());
    EXPECT_EQ(0, Vueltas());
    EXPECT_EQ("P1", Sacar());
    EXPECT_EQ(1, Vueltas());
    EXPECT_FALSE(d.FalloApertura);
}

// Una "q>" en la última línea es como el final del fichero.
TEST_F(LectorPreguntas, PreguntaEnLaUltimaLineaNoSeHace) {
    std::vector<std::string> lineas = Bueno("P1");
    lineas.push_back("q>Última");
    Poner("tema1", prueba::Qzf(lineas));
    d.NTema = 1;
    d.ContarPreguntas();
    EXPECT_EQ(2, m.TotalMazo[1]);
    AbrirArriba();
    EXPECT_EQ("P1", Sacar());
    EXPECT_EQ("P1", Sacar());
    EXPECT_EQ(1, Vueltas());
}

// ---- Comienzo al azar ----

TEST_F(LectorPreguntas, ComienzoAlAzar) {
    const std::string bytes =
        prueba::Qzf({"Encabezado", "q>P1", "1>a", "2>b", "a>1", "", "q>P2", "1>a", "a>1", "", "q>P3", "1>a",
                     "a>1", "c>Comentario", "con dos líneas"});
    const auto L = static_cast<double>(bytes.size());
    struct Caso {
        std::size_t byte;  // desde 0
        const char* pregunta;
    };
    auto en = [&bytes](const std::string& s, std::size_t mas = 0) { return bytes.find(s) + mas; };
    const std::vector<Caso> casos = {
        {0, "P1"},              // en el encabezado
        {en("q>P1"), "P1"},     // justo al principio de una "q>"
        {en("q>P1", 1), "P2"},  // a media línea de la pregunta
        {en("2>b"), "P2"},      // dentro del registro
        {en("q>P3", 1), "P1"},  // tras la última "q>": se acaba y vuelve arriba
        {en("con dos"), "P1"},
        {bytes.size() - 1, "P1"},  // el último byte
    };
    for (const auto& c : casos) {
        SCOPED_TRACE(c.byte);
        canales.Cerrar(1);
        m.MazoUsado[1].clear();
        Poner("tema1", bytes);
        p.azar = {(static_cast<double>(c.byte) + 0.5) / L};
        d.NTema = 1;
        d.FalloApertura = false;
        d.AbrirFichero(true, true);
        EXPECT_EQ(c.pregunta, d.Pregunta);
        EXPECT_TRUE(p.azar.empty());
    }
}

// Un canal abierto no se vuelve a abrir: AlAzar no hace nada.
TEST_F(LectorPreguntas, CanalAbiertoSigueDondeEstaba) {
    Poner("tema1", prueba::Qzf({"q>P1", "1>a", "a>1", "", "q>P2", "1>a", "a>1", ""}));
    AbrirArriba();
    EXPECT_EQ("P1", Sacar());
    p.azar = {0.0};
    d.AbrirFichero(true, true);
    EXPECT_EQ("P2", d.Pregunta);
    EXPECT_EQ(1u, p.azar.size());
}

// ---- Temas que comparten fichero ----

TEST_F(LectorPreguntas, DosTemasCompartenCanalPeroNoMazo) {
    const std::string bytes =
        prueba::Qzf({"q>P1", "1>a", "a>1", "", "q>P2", "1>a", "a>1", "", "q>P3", "1>a", "a>1", ""});
    Poner("comun", bytes);
    m.FicheroTema[1] = m.FicheroTema[2] = "comun";
    m.CanalTema[1] = m.CanalTema[2] = 3;
    const double alPrincipio = 0.5 / static_cast<double>(bytes.size());
    p.azar = {alPrincipio, alPrincipio};
    for (int tema : {1, 2, 1, 2}) {
        p.respuestas.push_back(1);
        d.NTema = tema;
        p.MostrarDialog1(d);
    }
    // El tema 2 cuenta al principio y cierra el canal: vuelve a empezar al azar (en P1),
    // que para él no está usada. Después cada uno sigue donde dejó el otro.
    const std::string p1 = MarcaMazo(Tras(bytes, "q>P1"));
    const std::string p2 = MarcaMazo(Tras(bytes, "q>P2"));
    const std::string p3 = MarcaMazo(Tras(bytes, "q>P3"));
    EXPECT_EQ(p1 + p2, m.MazoUsado[1]);
    EXPECT_EQ(p1 + p3, m.MazoUsado[2]);
    EXPECT_EQ(3, m.TotalMazo[1]);
    EXPECT_EQ(3, m.TotalMazo[2]);
    EXPECT_EQ(2, m.CuentaMazo[1]);
    EXPECT_EQ(2, m.CuentaMazo[2]);
    EXPECT_TRUE(p.azar.empty());
}

// ---- Fallos de apertura y ficheros sin nada que preguntar ----

TEST_F(LectorPreguntas, FallosAlAbrir) {
    struct Caso {
        const char* nombre;
        std::function<void(prueba::PlataformaGuion&, Module1&)> preparar;
        std::string mensaje;
    };
    const std::vector<Caso> casos = {
        {"no existe", [](prueba::PlataformaGuion&, Module1&) {}, kNoSeEncuentra},
        {"nombre vacío", [](prueba::PlataformaGuion&, Module1& mm) { mm.FicheroTema[1] = ""; },
         kNoSeEncuentra},
        {"canal 0",
         [](prueba::PlataformaGuion& pp, Module1& mm) {
             pp.carpeta.Escribir("preguntas/tema1.qzf", prueba::Qzf(Bueno("P")));
             mm.CanalTema[1] = 0;
         },
         kErrorAlAbrir},
        {"es una carpeta",
         [](prueba::PlataformaGuion& pp, Module1&) { pp.carpeta.CrearCarpeta("preguntas/tema1.qzf"); },
         kErrorAlAbrir},
        // Más de 64 MiB no es un fichero de preguntas (disperso: no ocupa disco).
        {"enorme",
         [](prueba::PlataformaGuion& pp, Module1&) {
             pp.carpeta.Escribir("preguntas/tema1.qzf", prueba::Qzf(Bueno("P")));
             std::filesystem::resize_file(pp.carpeta.Ruta() + "/preguntas/tema1.qzf", kMaxFicheroQzf + 1);
         },
         kErrorAlAbrir},
    };
    for (const auto& c : casos) {
        SCOPED_TRACE(c.nombre);
        Aparte a(m);
        c.preparar(a.p, a.m);
        a.d.NTema = 1;
        a.p.MostrarDialog1(a.d);
        // Cuenta y apertura fallan las dos en la misma activación: el mensaje sale dos veces.
        EXPECT_EQ(std::vector<std::string>({c.mensaje, c.mensaje}), a.p.TextosMensajes());
        for (const auto& msg : a.p.mensajes) {
            EXPECT_EQ(0, msg.estilo);
            EXPECT_EQ("Sabelot", msg.titulo);
        }
        EXPECT_TRUE(a.d.FalloApertura);
        EXPECT_TRUE(a.d.SinPregunta);
        EXPECT_FALSE(a.d.Visible);
        EXPECT_EQ(0, a.m.CuentaMazo[1]);
        EXPECT_EQ(0, a.m.TotalMazo[1]);
        EXPECT_EQ("", a.d.Text1);
    }
}

// Si el fichero se cuenta bien pero desaparece antes de abrirlo, un solo mensaje.
TEST_F(LectorPreguntas, FicheroQueDesapareceTrasContar) {
    Poner("tema1", prueba::Qzf(Bueno("P")));
    m.TotalMazo[1] = 1;
    m.FicheroTema[1] = "otro";
    d.NTema = 1;
    p.MostrarDialog1(d);
    EXPECT_EQ(std::vector<std::string>({kNoSeEncuentra}), p.TextosMensajes());
    EXPECT_TRUE(d.SinPregunta);
}

// Ficheros que no dan ninguna pregunta: se para con un mensaje en vez de dar vueltas.
TEST_F(LectorPreguntas, FicheroSinPreguntasValidasSePara) {
    const std::vector<std::pair<const char*, std::string>> casos = {
        {"vacío", ""},
        {"sin q>", prueba::Qzf({"Solo texto", "1>a", "a>1"})},
        {"q> en la última línea", prueba::Qzf({"Encabezado", "q>Sola"})},
        {"q> sin fin de línea", "q>Sola"},
        {"todas sin respuestas", prueba::Qzf({"q>A", "", "q>B", "a>1", "", "q>C", "c>x"})},
        {"todas con a> mala",
         prueba::Qzf({"q>A", "1>a", "a>3", "", "q>B", "1>b", "a>x", "", "q>C", "1>c", ""})},
        {"comentarios que se tragan", prueba::Qzf({"q>A", "c>x", "q>B", "c>y", "q>C", "1>a", "a>2", ""})},
    };
    for (const auto& [nombre, bytes] : casos) {
        SCOPED_TRACE(nombre);
        for (double azar : {0.0, 0.5, 0.999}) {
            Aparte a(m);
            a.p.carpeta.Escribir("preguntas/tema1.qzf", bytes);
            a.p.azar = {azar};
            a.d.NTema = 1;
            a.p.MostrarDialog1(a.d);
            EXPECT_EQ(std::vector<std::string>({kSinPreguntas}), a.p.TextosMensajes());
            EXPECT_TRUE(a.d.FalloApertura);
            EXPECT_TRUE(a.d.SinPregunta);
            EXPECT_FALSE(a.d.Visible);
            EXPECT_FALSE(a.c.Abierto(1));
            EXPECT_EQ(0, a.m.CuentaMazo[1]);
            // Y la vez siguiente, igual: ni se cuelga ni pregunta.
            a.p.mensajes.clear();
            a.p.MostrarDialog1(a.d);
            EXPECT_EQ(std::vector<std::string>({kSinPreguntas}), a.p.TextosMensajes());
        }
    }
}

// ---- Cuenta ----

TEST_F(LectorPreguntas, ContarPreguntas) {
    Poner("tema1", prueba::Qzf({"Q>uno", "q>dos", "xq>no", " q>no", "q>", "c>q> no", "q>tres"}));
    m.CuentaMazo[1] = 7;
    AbrirArriba();
    d.ContarPreguntas();
    EXPECT_EQ(4, m.TotalMazo[1]);
    EXPECT_EQ(0, m.CuentaMazo[1]);
    EXPECT_FALSE(canales.Abierto(1));
}

}  // namespace
}  // namespace sabelot

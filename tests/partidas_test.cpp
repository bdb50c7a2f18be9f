// Partidas guardadas: el formato exacto, la carga que no estropea nada y los nombres.
#include <gtest/gtest.h>
#ifndef _WIN32
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "apoyo/datos_prueba.h"
#include "apoyo/ficheros_averiados.h"
#include "apoyo/juego_prueba.h"
#include "storage/cp1252.h"
#include "storage/partidas.h"

namespace sabelot {
namespace {

using prueba::FicherosAveriados;
using prueba::JuegoPrueba;

const std::string C = "\r\n";
const std::string kErrorCarga =
    "Se produjo un error al cargar el archivo. Indique otro nombre de archivo o pulse en cancelar";
const std::string kNoEncontrada = "No se encuentra ese archivo de partida";

const std::vector<std::string> kLineasEjemplo = prueba::LineasDeDatos("partida_ejemplo.txt");

// Las líneas en Windows-1252, cada una con su CR LF.
std::string Fichero(const std::vector<std::string>& lineas) {
    std::string s;
    for (const auto& l : lineas) s += Utf8ACp1252(l) + C;
    return s;
}

const std::string kEjemplo = Fichero(kLineasEjemplo);

void Preparar(JuegoPrueba& jp, int jugadores = 1) {
    jp.f().ConstruirTablero();
    jp.m().NumJugadores = jugadores;
    jp.m().DimensionarTablas(jugadores);
    jp.f().PonerTitulo(TituloJugador(1));
}

// Una partida a medias de tres jugadores, distinta del ejemplo en todo.
void PartidaEnJuego(JuegoPrueba& jp) {
    Preparar(jp, 3);
    jp.m().QuesitosParaGanar = 5;
    for (std::size_t t = 1; t <= 6; ++t) {
        jp.m().FicheroTema[t] = "f" + std::to_string(t);
        jp.m().EtiquetaTema[t] = "Etiqueta " + std::to_string(t) + " ";
        jp.m().CanalTema[t] = static_cast<int>(t);
    }
    jp.f().PosicionFicha = {0, 5, 40, 16, 0, 0, 0};
    jp.f().JugadorActual = 3;
    jp.f().CasillaCursor = 40;
    jp.f().RumboCentro = 4;
    jp.m().QuesitoGanado(1, 3) = true;
    jp.m().NumQuesitos(3) = 1;
    jp.m().Preguntas(2, 2) = 7;
    jp.m().Aciertos(2, 2) = 5;
    jp.f().PonerTitulo(TituloJugador(3));
    jp.f().PonerTexto1("texto de antes");
}

// Todo el estado que una carga o un guardado podría tocar, en texto para comparar.
std::string Foto(JuegoPrueba& jp) {
    std::ostringstream s;
    Module1& m = jp.m();
    Form1& f = jp.f();
    s << "jugadores " << m.NumJugadores << " quesitos " << m.QuesitosParaGanar << " actual "
      << f.JugadorActual << " cursor " << f.CasillaCursor << " rumbo " << f.RumboCentro << " previa "
      << f.CasillaPrevia << " anexas " << f.LeerAnexas << "\n";
    for (std::size_t t = 1; t <= 6; ++t)
        s << "tema " << t << " [" << m.FicheroTema[t] << "] [" << m.EtiquetaTema[t] << "] " << m.CanalTema[t]
          << "\n";
    s << "fichas";
    for (std::size_t i = 1; i <= 6; ++i) s << " " << f.PosicionFicha[i];
    s << "\nlimites " << m.Preguntas.Jugadores() << m.Aciertos.Jugadores() << m.QuesitoGanado.Jugadores()
      << m.NumQuesitos.Limite() << "\n";
    for (int j = 1; j <= m.NumQuesitos.Limite(); ++j) {
        s << "jugador " << j << ": " << m.NumQuesitos(j);
        for (int t = 1; t <= 6; ++t)
            s << " " << m.QuesitoGanado(t, j) << "/" << m.Aciertos(t, j) << "/" << m.Preguntas(t, j);
        s << "\n";
    }
    s << "titulo " << f.Titulo() << "\n";
    return s.str();
}

int ContarRegistros(const std::string& bytes) {
    int n = 0;
    for (std::size_t i = bytes.find(C); i != std::string::npos; i = bytes.find(C, i + 2)) ++n;
    return n;
}

std::vector<std::string> FicherosDeLaCarpeta(JuegoPrueba& jp) {
    auto v = jp.p.Ficheros().Listar(jp.p.carpeta.Ruta(), "");
    std::sort(v.begin(), v.end());
    return v;
}

TEST(Partidas, ElEjemploSeCargaYSeGuardaIgual) {
    JuegoPrueba jp;
    PartidaEnJuego(jp);
    jp.p.carpeta.Escribir("ejemplo.sav", kEjemplo);
    jp.p.textos = {"ejemplo"};
    jp.f().CargarPartida();
    ASSERT_TRUE(jp.p.mensajes.empty()) << jp.p.mensajes[0].texto;
    ASSERT_EQ(1u, jp.p.entradas.size());
    EXPECT_EQ("Cargar partida", jp.p.entradas[0].titulo);
    EXPECT_EQ("Introduzca el nombre de la partida que desea cargar:", jp.p.entradas[0].indicacion);
    EXPECT_EQ("", jp.p.entradas[0].inicial);

    Module1& m = jp.m();
    EXPECT_EQ(2, m.NumJugadores);
    EXPECT_EQ(3, m.QuesitosParaGanar);
    EXPECT_EQ(2, jp.f().JugadorActual);
    EXPECT_EQ("Mezcla", m.FicheroTema[6]);
    EXPECT_EQ("Cajón de sastre ", m.EtiquetaTema[6]);
    EXPECT_EQ(4, m.CanalTema[4]);
    EXPECT_EQ(12, jp.f().PosicionFicha[1]);
    EXPECT_EQ(37, jp.f().PosicionFicha[2]);
    EXPECT_EQ(16, jp.f().PosicionFicha[3]) << "la ficha de un jugador que no está se queda";
    EXPECT_EQ(2, m.Preguntas.Jugadores());
    EXPECT_EQ(2, m.NumQuesitos.Limite());
    EXPECT_EQ(1, m.NumQuesitos(1));
    EXPECT_TRUE(m.QuesitoGanado(1, 1));
    EXPECT_EQ(3, m.Aciertos(1, 1));
    EXPECT_EQ(4, m.Preguntas(1, 1));
    EXPECT_EQ(2, m.Aciertos(5, 1));
    EXPECT_EQ(3, m.Preguntas(5, 1));
    EXPECT_EQ(0, m.NumQuesitos(2));
    EXPECT_EQ(2, m.Preguntas(4, 2));
    EXPECT_EQ(0, m.Aciertos(4, 2));
    // El cursor va a la ficha del que mueve, y se cuenta esa casilla.
    EXPECT_EQ(37, jp.f().CasillaCursor);
    EXPECT_EQ("Casilla de Cine " + C + " quesito de Cajón de sastre derecha" + C +
                  " casilla de dados izquierda" + C + "Ficha del jugador 2",
              jp.f().Texto1());
    EXPECT_EQ("SÁBELOT - Jugador 2", jp.f().Titulo());

    jp.p.textos = {"copia"};
    jp.f().GuardarPartida();
    EXPECT_EQ("PARTIDA GUARDADA", jp.f().Texto1());
    EXPECT_EQ(kEjemplo, jp.p.carpeta.Leer("copia.sav"));
    ASSERT_EQ(2u, jp.p.entradas.size());
    EXPECT_EQ("Guardar Partida", jp.p.entradas[1].titulo);
    EXPECT_EQ(
        "Introduzca un nombre para guardar la partida actual: (si existe otra partida con ese nombre se "
        "eliminará)",
        jp.p.entradas[1].indicacion);
    EXPECT_EQ("", jp.p.entradas[1].inicial);
    EXPECT_TRUE(jp.p.mensajes.empty());
}

TEST(Partidas, IdaYVueltaConUnoYConSeisJugadores) {
    for (int jugadores : {1, 6}) {
        JuegoPrueba jp;
        Preparar(jp, jugadores);
        jp.m().QuesitosParaGanar = 6;
        for (std::size_t t = 1; t <= 6; ++t) {
            jp.m().FicheroTema[t] = t % 2 ? "Cine" : "";
            jp.m().EtiquetaTema[t] = t == 2 ? "Cine, teatro y más " : "(No especificado) ";
            jp.m().CanalTema[t] = t % 2 ? 1 : 2;
        }
        for (int j = 1; j <= jugadores; ++j) {
            jp.f().PosicionFicha[static_cast<std::size_t>(j)] = 13 * j;
            for (int t = 1; t <= 6; ++t) {
                jp.m().Preguntas(t, j) = j * 10 + t;
                jp.m().Aciertos(t, j) = t;
                jp.m().QuesitoGanado(t, j) = (t + j) % 3 == 0;
                if (jp.m().QuesitoGanado(t, j)) ++jp.m().NumQuesitos(j);
            }
        }
        jp.f().JugadorActual = jugadores;
        jp.f().CasillaCursor = 3;
        jp.f().PonerTitulo(TituloJugador(jugadores));
        const std::string antes = Foto(jp);

        jp.p.textos = {"  Partida de prueba  "};
        jp.f().GuardarPartida();
        EXPECT_EQ(antes, Foto(jp)) << "guardar no cambia la partida";
        const std::string bytes = jp.p.carpeta.Leer("Partida de prueba.sav");
        EXPECT_EQ(7 + 7 * jugadores, ContarRegistros(bytes));

        JuegoPrueba otro;
        otro.p.carpeta.Escribir("Partida de prueba.sav", bytes);
        Preparar(otro, 2);
        otro.p.textos = {"Partida de prueba.sav"};
        otro.f().CargarPartida();
        EXPECT_TRUE(otro.p.mensajes.empty());
        EXPECT_EQ(13 * jugadores, otro.f().CasillaCursor) << "el cursor va a la ficha del que mueve";
        otro.f().CasillaCursor = 3;
        EXPECT_EQ(antes, Foto(otro));
    }
}

TEST(Partidas, LaRutaLlevaUnSoloSav) {
    struct {
        const char* escrito;
        const char* fichero;
    } const casos[] = {
        {"Mi partida", "Mi partida.sav"},
        {"  Mi partida.SAV  ", "Mi partida.SAV"},
        {"x.sav", "x.sav"},
        {"x.Sav", "x.Sav"},
        {"x.savx", "x.savx.sav"},
        {"x.sa", "x.sa.sav"},
        {"ñandú", "ñandú.sav"},
        {".sav", ".sav"},
    };
    for (const auto& caso : casos) {
        JuegoPrueba jp;
        Preparar(jp);
        jp.p.textos = {caso.escrito};
        jp.f().GuardarPartida();
        EXPECT_EQ("PARTIDA GUARDADA", jp.f().Texto1()) << caso.escrito;
        EXPECT_EQ(std::vector<std::string>{caso.fichero}, FicherosDeLaCarpeta(jp)) << caso.escrito;
        // Y se carga con el mismo nombre.
        jp.p.textos = {caso.escrito};
        jp.f().CargarPartida();
        EXPECT_TRUE(jp.p.mensajes.empty()) << caso.escrito;
    }
}

// Como en Windows, el nombre no distingue mayúsculas aunque el sistema sí lo haga.
TEST(Partidas, ElNombreNoDistingueMayusculas) {
    JuegoPrueba jp;
    PartidaEnJuego(jp);
    jp.p.carpeta.Escribir("Ñandú1.sav", kEjemplo);
    jp.p.textos = {"ñANDÚ1"};
    jp.f().CargarPartida();
    EXPECT_TRUE(jp.p.mensajes.empty());
    EXPECT_EQ(2, jp.m().NumJugadores);
    jp.p.textos = {"ñandú1.SAV"};
    jp.f().GuardarPartida();
    EXPECT_EQ(std::vector<std::string>{"Ñandú1.sav"}, FicherosDeLaCarpeta(jp)) << "la misma, no otra";
}

TEST(Partidas, GuardarEncimaBorraLoAnterior) {
    JuegoPrueba jp;
    PartidaEnJuego(jp);
    jp.p.carpeta.Escribir("vieja.sav", kEjemplo + kEjemplo);
    jp.p.textos = {"vieja"};
    jp.f().GuardarPartida();
    const std::string bytes = jp.p.carpeta.Leer("vieja.sav");
    EXPECT_EQ(7 + 7 * 3, ContarRegistros(bytes));
    EXPECT_EQ(0u, bytes.find("3,5,3\r\n\"f1\",\"Etiqueta 1 \",1\r\n"));
}

TEST(Partidas, BlancosSoloEsCancelar) {
    JuegoPrueba jp;
    PartidaEnJuego(jp);
    const std::string antes = Foto(jp);
    jp.p.textos = {"   "};
    jp.f().GuardarPartida();
    EXPECT_EQ("Cancelado", jp.f().Texto1());
    EXPECT_TRUE(FicherosDeLaCarpeta(jp).empty());
    jp.p.textos = {""};
    jp.f().GuardarPartida();
    EXPECT_EQ("Cancelado", jp.f().Texto1());
    jp.p.textos = {"    "};
    jp.f().CargarPartida();
    EXPECT_EQ("Cancelado", jp.f().Texto1());
    EXPECT_EQ(antes, Foto(jp));
    EXPECT_TRUE(jp.p.mensajes.empty());
}

TEST(Partidas, CargaQueNoEncuentraVuelveAPreguntarConLoEscrito) {
    JuegoPrueba jp;
    PartidaEnJuego(jp);
    jp.p.carpeta.Escribir("buena.sav", kEjemplo);
    jp.p.carpeta.Escribir("a.sav", kEjemplo);
    // Un nombre con carácter prohibido no se busca, aunque lleve a un fichero que existe.
    jp.p.textos = {"  bueno ", "../buena", "sub/../a", "CON", "buena"};
    jp.f().CargarPartida();
    ASSERT_EQ(5u, jp.p.entradas.size());
    EXPECT_EQ("", jp.p.entradas[0].inicial);
    EXPECT_EQ("  bueno ", jp.p.entradas[1].inicial);
    EXPECT_EQ("../buena", jp.p.entradas[2].inicial);
    EXPECT_EQ("CON", jp.p.entradas[4].inicial);
    ASSERT_EQ(4u, jp.p.mensajes.size());
    for (const auto& msg : jp.p.mensajes) {
        EXPECT_EQ(kNoEncontrada, msg.texto);
        EXPECT_EQ(vbOKOnly, msg.estilo);
        EXPECT_EQ("Sabelot", msg.titulo);
    }
    EXPECT_EQ(2, jp.m().NumJugadores);
    EXPECT_EQ(37, jp.f().CasillaCursor);
}

// Los ficheros rotos: cada uno se rechaza con el aviso y la partida sigue igual.
struct Rota {
    std::string nombre;
    std::string bytes;
};

std::vector<std::string> Cambiar(std::vector<std::string> lineas, std::size_t i, const std::string& nueva) {
    lineas[i] = nueva;
    return lineas;
}

std::vector<Rota> PartidasRotas() {
    std::vector<Rota> rotas;
    // Cortada tras cada registro (el primero, sin nada).
    for (std::size_t k = 0; k < kLineasEjemplo.size(); ++k) {
        rotas.push_back(
            {"CortadaTras" + std::to_string(k),
             Fichero(std::vector<std::string>(kLineasEjemplo.begin(), kLineasEjemplo.begin() + k))});
    }
    rotas.push_back({"CortadaEnMitadDeUnRegistro", kEjemplo.substr(0, kEjemplo.size() - 5)});
    rotas.push_back({"SinElUltimoFinDeLinea", kEjemplo.substr(0, kEjemplo.size() - 2)});
    const std::string binaria{'\x7F', 'E', 'L', 'F', '\x02', '\x01', '\x01', '\0', '\0', '\0'};
    rotas.push_back({"Binaria", binaria + kEjemplo});
    rotas.push_back({"RegistroDeMas", kEjemplo + "#FALSE#,0,0" + C});
    rotas.push_back({"LineaEnBlancoAlFinal", kEjemplo + C});
    rotas.push_back({"Enorme", kEjemplo + std::string(100 * 1024, ' ')});
    std::string lf, cr;
    for (const auto& l : kLineasEjemplo) {
        lf += Utf8ACp1252(l) + "\n";
        cr += Utf8ACp1252(l) + "\r";
    }
    rotas.push_back({"SoloLF", lf});
    rotas.push_back({"SoloCR", cr});
    rotas.push_back({"UnaLineaConLF", Fichero(Cambiar(kLineasEjemplo, 8, "#TRUE#,3,4\n#FALSE#,0,2"))});
    // Una línea del ejemplo cambiada por otra.
    for (const std::string& fila : prueba::LineasDeDatos("partidas_rotas.txt")) {
        const std::size_t barra1 = fila.find('|'), barra2 = fila.find('|', barra1 + 1);
        rotas.push_back(
            {fila.substr(0, barra1),
             Fichero(Cambiar(kLineasEjemplo, std::stoul(fila.substr(barra1 + 1, barra2 - barra1 - 1)),
                             fila.substr(barra2 + 1)))});
    }
    return rotas;
}

TEST(Partidas, UnaPartidaRotaNoTocaLaQueSeJuega) {
    const std::vector<Rota> rotas = PartidasRotas();
    ASSERT_EQ(rotas.size(), 68u);
    for (const Rota& rota : rotas) {
        JuegoPrueba jp;
        PartidaEnJuego(jp);
        jp.p.carpeta.Escribir("rota.sav", rota.bytes);
        const std::string antes = Foto(jp);
        jp.p.textos = {"rota", ""};
        jp.f().CargarPartida();
        ASSERT_EQ(1u, jp.p.mensajes.size()) << rota.nombre;
        EXPECT_EQ(kErrorCarga, jp.p.mensajes[0].texto) << rota.nombre;
        EXPECT_EQ(vbOKOnly, jp.p.mensajes[0].estilo);
        EXPECT_EQ("Sabelot", jp.p.mensajes[0].titulo);
        EXPECT_EQ(antes, Foto(jp)) << rota.nombre;
        ASSERT_EQ(2u, jp.p.entradas.size());
        EXPECT_EQ("rota", jp.p.entradas[1].inicial);
        EXPECT_EQ("Cancelado", jp.f().Texto1());
        EXPECT_EQ(rota.bytes, jp.p.carpeta.Leer("rota.sav")) << rota.nombre;
        EXPECT_TRUE(jp.juego->canales.Libre() == 1) << rota.nombre << ": canal abierto";
    }
}

TEST(Partidas, TrasUnaRotaSeCargaLaBuena) {
    JuegoPrueba jp;
    PartidaEnJuego(jp);
    jp.p.carpeta.Escribir("rota.sav", kEjemplo.substr(0, 40));
    jp.p.carpeta.Escribir("buena.sav", kEjemplo);
    jp.p.textos = {"rota", "buena"};
    jp.f().CargarPartida();
    EXPECT_EQ(std::vector<std::string>{kErrorCarga}, jp.p.TextosMensajes());
    EXPECT_EQ(2, jp.m().NumJugadores);
    EXPECT_EQ(37, jp.f().CasillaCursor);
    EXPECT_EQ("SÁBELOT - Jugador 2", jp.f().Titulo());
}

TEST(Partidas, UnaPartidaSinOpcionesTambienSeCarga) {
    // La de un juego sin Sabelot.ini: sin quesitos que ganar, sin ficheros y sin canales.
    JuegoPrueba jp;
    Preparar(jp);
    jp.p.textos = {"sin opciones"};
    jp.f().GuardarPartida();
    EXPECT_EQ(0u, jp.p.carpeta.Leer("sin opciones.sav").find("1,0,1\r\n\"\",\"\",0\r\n"));
    jp.p.textos = {"sin opciones"};
    jp.f().CargarPartida();
    EXPECT_TRUE(jp.p.mensajes.empty());
}

const std::string kErrorGuardar = "Se produjo un error al guardar la partida con ese nombre";
const std::string kCaracter = ": Probablemente utilizó algún carácter no permitido";
const std::string kOtroNombre = ". Introduzca un nombre nuevo o pulse en cancelar.";

TEST(Partidas, NombresQueNoSePuedenGuardar) {
    struct {
        std::string nombre;
        bool caracter;
    } const casos[] = {
        {"a/b", true},   {"a\\b", true},      {"../fuera", true}, {"a<b", true},
        {"a>b", true},   {"a:b", true},       {"a\"b", true},     {"a|b", true},
        {"a?b", true},   {"a*b", true},       {"a\tb", true},     {std::string{'a', '\x01', 'b'}, true},
        {"..", false},   {"a..b", false},     {"CON", false},     {"nul", false},
        {"com1", false}, {"Lpt9.sav", false}, {"con.txt", false}, {"AUX .x", false},
    };
    for (const auto& caso : casos) {
        JuegoPrueba jp;
        PartidaEnJuego(jp);
        const std::string antes = Foto(jp);
        jp.p.textos = {caso.nombre, ""};
        jp.f().GuardarPartida();
        ASSERT_EQ(1u, jp.p.mensajes.size()) << caso.nombre;
        EXPECT_EQ(kErrorGuardar + (caso.caracter ? kCaracter : "") + kOtroNombre, jp.p.mensajes[0].texto)
            << caso.nombre;
        EXPECT_EQ(vbOKOnly, jp.p.mensajes[0].estilo);
        EXPECT_EQ("Sabelot", jp.p.mensajes[0].titulo);
        ASSERT_EQ(2u, jp.p.entradas.size());
        EXPECT_EQ(caso.nombre, jp.p.entradas[1].inicial);
        EXPECT_EQ("Cancelado", jp.f().Texto1());
        EXPECT_EQ(antes, Foto(jp));
        EXPECT_TRUE(FicherosDeLaCarpeta(jp).empty()) << caso.nombre;
    }
}

// Una partida en juego sobre ficheros de verdad que se pueden hacer fallar a propósito.
struct JuegoAveriable {
    SistemaFicherosReal real;
    FicherosAveriados averiados{real};
    JuegoPrueba jp;
    JuegoAveriable() {
        jp.p.ficheros = &averiados;
        jp.juego = std::make_unique<Juego>(jp.p);
        PartidaEnJuego(jp);
    }
};

// Una partida que no se puede escribir (el disco no deja, o el jugador protegió el fichero)
// da el aviso de siempre y deja la partida y el fichero de antes; con otro nombre, se guarda.
TEST(Partidas, SiNoSePuedeEscribirSeAvisaYSePuedeGuardarConOtroNombre) {
    for (const bool protegido : {false, true}) {
        JuegoAveriable a;
        auto& [real, averiados, jp] = a;
        jp.p.carpeta.Escribir("guardada.sav", kEjemplo);
        const std::string ruta = Ruta(jp.p.carpeta.Ruta(), {"guardada.sav"});
        if (protegido)
            std::filesystem::permissions(ruta, std::filesystem::perms::owner_read);
        else
            averiados.fallaCrear = true;
        const std::string antes = Foto(jp);
        jp.p.alMensaje = [&](const prueba::PlataformaGuion::Mensaje&) { averiados.fallaCrear = false; };
        jp.p.textos = {"guardada", "otra"};
        jp.f().GuardarPartida();
        EXPECT_EQ(std::vector<std::string>{kErrorGuardar + kOtroNombre}, jp.p.TextosMensajes()) << protegido;
        EXPECT_EQ("PARTIDA GUARDADA", jp.f().Texto1());
        EXPECT_EQ(kEjemplo, jp.p.carpeta.Leer("guardada.sav"));
        EXPECT_EQ(0u, jp.p.carpeta.Leer("otra.sav").find("3,5,3\r\n"));
        EXPECT_EQ(antes, Foto(jp));
        std::filesystem::permissions(ruta, std::filesystem::perms::owner_all);
    }
}

// Otra copia del juego guarda con el mismo nombre mientras esta escribe: queda entera la partida
// de una de las dos, sin ficheros de paso, y a cada una se le dice lo que de verdad pasó.
TEST(Partidas, DosCopiasGuardanALaVezYCadaUnaOyeLoQuePaso) {
    for (const bool primeraFalla : {false, true}) {
        JuegoAveriable a;
        auto& [real, averiados, jp] = a;
        const std::string ruta = Ruta(jp.p.carpeta.Ruta(), {"comun.sav"});
        bool otraGuardo = false;
        averiados.aMitadDeEscribir = [&] {
            otraGuardo = EscribirPartida(real, ruta, kEjemplo);
            averiados.fallaRenombrar = primeraFalla;
        };
        jp.p.textos = {"comun", ""};
        jp.f().GuardarPartida();
        EXPECT_TRUE(otraGuardo);
        EXPECT_EQ(primeraFalla ? "Cancelado" : "PARTIDA GUARDADA", jp.f().Texto1());
        EXPECT_EQ(
            primeraFalla ? std::vector<std::string>{kErrorGuardar + kOtroNombre} : std::vector<std::string>{},
            jp.p.TextosMensajes());
        EXPECT_EQ(std::vector<std::string>{"comun.sav"}, FicherosDeLaCarpeta(jp));

        averiados.aMitadDeEscribir = nullptr;
        jp.p.mensajes.clear();
        jp.p.textos = {"comun"};
        jp.f().CargarPartida();
        EXPECT_TRUE(jp.p.mensajes.empty()) << primeraFalla;
        EXPECT_EQ(primeraFalla ? 2 : 3, jp.m().NumJugadores);
    }
}

// Las dos que siguen necesitan permisos y procesos de POSIX (chmod, fork): en Windows no
// hay carpetas de solo lectura para su dueño ni fork.
#ifndef _WIN32
TEST(Partidas, CarpetaSinPermisoDeEscritura) {
    if (geteuid() == 0) GTEST_SKIP() << "como root se puede escribir en cualquier carpeta";
    JuegoPrueba jp;
    PartidaEnJuego(jp);
    jp.p.carpeta.Escribir("vieja.sav", kEjemplo);
    ASSERT_EQ(0, chmod(jp.p.carpeta.Ruta().c_str(), 0555));
    const std::string antes = Foto(jp);
    jp.p.textos = {"vieja", "nueva", ""};
    jp.f().GuardarPartida();
    chmod(jp.p.carpeta.Ruta().c_str(), 0755);
    EXPECT_EQ((std::vector<std::string>{kErrorGuardar + kOtroNombre, kErrorGuardar + kOtroNombre}),
              jp.p.TextosMensajes());
    EXPECT_EQ(kEjemplo, jp.p.carpeta.Leer("vieja.sav"));
    EXPECT_EQ(std::vector<std::string>{"vieja.sav"}, FicherosDeLaCarpeta(jp));
    EXPECT_EQ(antes, Foto(jp));
}

TEST(Partidas, ProcesoMatadoAMitadDeGuardarDejaLaPartidaAnterior) {
    SistemaFicherosReal real;
    FicherosAveriados averiados(real);
    JuegoPrueba jp;
    jp.p.ficheros = &averiados;
    jp.juego = std::make_unique<Juego>(jp.p);
    PartidaEnJuego(jp);
    jp.p.carpeta.Escribir("guardada.sav", kEjemplo);
    averiados.aMitadDeEscribir = [] { raise(SIGKILL); };
    jp.p.textos = {"guardada"};

    fflush(nullptr);
    const pid_t hijo = fork();
    ASSERT_NE(-1, hijo);
    if (hijo == 0) {
        jp.f().GuardarPartida();
        _exit(0);  // no debería llegar aquí
    }
    int estado = 0;
    ASSERT_EQ(hijo, waitpid(hijo, &estado, 0));
    ASSERT_TRUE(WIFSIGNALED(estado));
    EXPECT_EQ(SIGKILL, WTERMSIG(estado));
    EXPECT_EQ(kEjemplo, jp.p.carpeta.Leer("guardada.sav"));

    // Lo que quedó a medias (un fichero oculto con otro nombre) no estorba para cargar la
    // partida ni para volver a guardar.
    averiados.aMitadDeEscribir = nullptr;
    jp.p.textos = {"guardada"};
    jp.f().CargarPartida();
    EXPECT_TRUE(jp.p.mensajes.empty());
    EXPECT_EQ(2, jp.m().NumJugadores);
    jp.p.textos = {"guardada"};
    jp.f().GuardarPartida();
    EXPECT_EQ(kEjemplo, jp.p.carpeta.Leer("guardada.sav"));
    for (const std::string& f : FicherosDeLaCarpeta(jp)) EXPECT_TRUE(f == "guardada.sav" || f[0] == '.') << f;
}

#endif  // _WIN32

}  // namespace
}  // namespace sabelot

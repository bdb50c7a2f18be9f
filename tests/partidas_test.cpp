// Partidas guardadas: el formato exacto, la carga que no estropea nada y los nombres.
#include "storage/partidas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "apoyo/ficheros_averiados.h"
#include "apoyo/juego_casos.h"

namespace sabelot {
namespace {

using prueba::FicherosAveriados;
using prueba::JuegoPrueba;

// Las partidas rotas y la de ejemplo (de dos jugadores) son las del corpus del fuzzing.
const auto kCorpus = prueba::FicherosDelCorpus("fuzz_partidas");
const std::string kEjemplo = std::find_if(kCorpus.begin(), kCorpus.end(),
                                          [](const auto& f) { return f.first == "Ejemplo.sav"; }) -> second;
const std::string kErrorCarga =
    "Se produjo un error al cargar el archivo. Indique otro nombre de archivo o pulse en cancelar";
const std::string kErrorGuardar = "Se produjo un error al guardar la partida con ese nombre";
const std::string kCaracter = ": Probablemente utilizó algún carácter no permitido";
const std::string kOtroNombre = ". Introduzca un nombre nuevo o pulse en cancelar.";

void Empezar(JuegoPrueba& jp, const std::string& preparacion = "jugadores=1") {
    jp.f().ConstruirTablero();
    jp.f().PonerTitulo(TituloJugador(1));
    prueba::Preparar(jp, preparacion);
}

// Una partida a medias de tres jugadores, distinta del ejemplo en todo.
void PartidaEnJuego(JuegoPrueba& jp) {
    Empezar(jp, "jugadores=3;quesitos=5;fichas=5,40,16;turno=3;cursor=40;rumbo=4;quesitos3=1;cuenta=2,2,5,7");
    for (std::size_t t = 1; t <= 6; ++t) {
        jp.m().FicheroTema[t] = "f" + std::to_string(t);
        jp.m().EtiquetaTema[t] = "Etiqueta " + std::to_string(t) + " ";
        jp.m().CanalTema[t] = static_cast<int>(t);
    }
    jp.f().PonerTitulo(TituloJugador(3));
    jp.f().PonerTexto1("texto de antes");
}

// Todo el estado que una carga o un guardado podría tocar, sin lo que se dice.
std::string Foto(JuegoPrueba& jp) {
    std::string s;
    for (const auto& [clave, valor] : prueba::Observar(jp))
        if (clave != "texto" && clave.rfind("mensaje", 0) != 0 && clave != "entradas" && clave != "oido")
            s += clave + "=" + valor + "\n";
    return s;
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
    prueba::Comprobar(prueba::Observar(jp), prueba::LineasDeDatos("partida_cargada.txt"));
    EXPECT_EQ("Introduzca el nombre de la partida que desea cargar:", jp.p.entradas[0].indicacion);

    jp.p.textos = {"copia"};
    jp.f().GuardarPartida();
    EXPECT_EQ(kEjemplo, jp.p.carpeta.Leer("copia.sav"));
    prueba::Comprobar(prueba::Observar(jp),
                      {"texto=PARTIDA GUARDADA", "entradas=Cargar partida|Guardar Partida", "mensajes=0"});
    EXPECT_EQ(
        "Introduzca un nombre para guardar la partida actual: (si existe otra partida con ese nombre se "
        "eliminará)",
        jp.p.entradas[1].indicacion);
    EXPECT_EQ("", jp.p.entradas[0].inicial + jp.p.entradas[1].inicial);
}

TEST(Partidas, IdaYVueltaConUnoYConSeisJugadores) {
    for (int jugadores : {1, 6}) {
        JuegoPrueba jp;
        Empezar(jp, "jugadores=" + std::to_string(jugadores) + ";quesitos=6;cursor=3");
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
        jp.f().PonerTitulo(TituloJugador(jugadores));
        const std::string antes = Foto(jp);

        jp.p.textos = {"  Partida de prueba  "};
        jp.f().GuardarPartida();
        EXPECT_EQ(antes, Foto(jp)) << "guardar no cambia la partida";
        const std::string bytes = jp.p.carpeta.Leer("Partida de prueba.sav");
        EXPECT_EQ(7 + 7 * jugadores, std::count(bytes.begin(), bytes.end(), '\n'));

        JuegoPrueba otro;
        otro.p.carpeta.Escribir("Partida de prueba.sav", bytes);
        Empezar(otro, "jugadores=2");
        otro.p.textos = {"Partida de prueba.sav"};
        otro.f().CargarPartida();
        EXPECT_TRUE(otro.p.mensajes.empty());
        EXPECT_EQ(13 * jugadores, otro.f().CasillaCursor) << "el cursor va a la ficha del que mueve";
        otro.f().CasillaCursor = 3;
        EXPECT_EQ(antes, Foto(otro));
    }
}

// Con el nombre, el fichero que queda y se vuelve a cargar, o el aviso y nada escrito.
TEST(Partidas, NombresDePartida) {
    for (const std::string& fila : prueba::LineasDeDatos("nombres_partida.txt")) {
        const std::vector<std::string> campos = prueba::CamposEnBytes(fila);
        const std::string &nombre = campos[0], &fichero = campos[1];
        JuegoPrueba jp;
        PartidaEnJuego(jp);
        const std::string antes = Foto(jp);
        jp.p.textos = {nombre, ""};
        jp.f().GuardarPartida();
        if (fichero == "cancelar") {  // y al cargar, lo mismo
            jp.p.textos = {nombre};
            jp.f().CargarPartida();
            prueba::Comprobar(prueba::Observar(jp),
                              {"texto=Cancelado", "mensajes=0", "entradas=Guardar Partida|Cargar partida"});
            EXPECT_EQ(antes, Foto(jp));
            EXPECT_TRUE(FicherosDeLaCarpeta(jp).empty()) << fila;
            continue;
        }
        if (fichero != "carácter" && fichero != "otro") {
            EXPECT_EQ("PARTIDA GUARDADA", jp.f().Texto1()) << fila;
            EXPECT_EQ(std::vector<std::string>{fichero}, FicherosDeLaCarpeta(jp)) << fila;
            jp.p.textos = {nombre};
            jp.f().CargarPartida();
            EXPECT_TRUE(jp.p.mensajes.empty()) << fila;
            continue;
        }
        ASSERT_EQ(1u, jp.p.mensajes.size()) << fila;
        EXPECT_EQ(kErrorGuardar + (fichero == "carácter" ? kCaracter : "") + kOtroNombre + "|0|Sabelot",
                  prueba::Observar(jp)["mensaje1"]);
        ASSERT_EQ(2u, jp.p.entradas.size());
        EXPECT_EQ(nombre, jp.p.entradas[1].inicial);
        EXPECT_EQ("Cancelado", jp.f().Texto1());
        EXPECT_EQ(antes, Foto(jp));
        EXPECT_TRUE(FicherosDeLaCarpeta(jp).empty()) << fila;
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

// Lo que no se encuentra o no se puede cargar se vuelve a preguntar con lo escrito, hasta la buena.
TEST(Partidas, CargaQueNoEncuentraVuelveAPreguntarConLoEscrito) {
    JuegoPrueba jp;
    PartidaEnJuego(jp);
    jp.p.carpeta.Escribir("buena.sav", kEjemplo);
    jp.p.carpeta.Escribir("a.sav", kEjemplo);
    jp.p.carpeta.Escribir("rota.sav", kEjemplo.substr(0, 40));
    // Un nombre con carácter prohibido no se busca, aunque lleve a un fichero que existe.
    jp.p.textos = {"  bueno ", "../buena", "sub/../a", "CON", "rota", "buena"};
    jp.f().CargarPartida();
    std::string iniciales;
    for (const auto& e : jp.p.entradas) iniciales += e.inicial + "|";
    EXPECT_EQ("|  bueno |../buena|sub/../a|CON|rota|", iniciales);
    const std::string noEsta = "No se encuentra ese archivo de partida|0|Sabelot";
    prueba::Comprobar(
        prueba::Observar(jp),
        {"mensajes=5", "mensaje1=" + noEsta, "mensaje2=" + noEsta, "mensaje3=" + noEsta, "mensaje4=" + noEsta,
         "mensaje5=" + kErrorCarga + "|0|Sabelot", "jugadores=2", "cursor=37", "titulo=SÁBELOT - Jugador 2"});
}

// Cada fichero roto del corpus, y el ejemplo cortado tras cada registro o enorme, se rechaza con el
// aviso y la partida sigue igual; el fichero queda como estaba y el canal, libre.
TEST(Partidas, UnaPartidaRotaNoTocaLaQueSeJuega) {
    std::vector<std::pair<std::string, std::string>> rotas;
    for (const auto& f : kCorpus)
        if (f.first.find(".sav") != std::string::npos && f.first != "Ejemplo.sav") rotas.push_back(f);
    ASSERT_EQ(rotas.size(), 48u);
    for (std::size_t fin = kEjemplo.find('\n'); fin != std::string::npos; fin = kEjemplo.find('\n', fin + 1))
        if (fin + 1 < kEjemplo.size())
            rotas.emplace_back("CortadaTras" + std::to_string(fin), kEjemplo.substr(0, fin + 1));
    rotas.emplace_back("Enorme", kEjemplo + std::string(100 * 1024, ' '));
    for (const auto& [nombre, bytes] : rotas) {
        JuegoPrueba jp;
        PartidaEnJuego(jp);
        jp.p.carpeta.Escribir("rota.sav", bytes);
        const std::string antes = Foto(jp);
        jp.p.textos = {"rota", ""};
        jp.f().CargarPartida();
        EXPECT_EQ(kErrorCarga + "|0|Sabelot", prueba::Observar(jp)["mensaje1"]) << nombre;
        EXPECT_EQ(1u, jp.p.mensajes.size()) << nombre;
        EXPECT_EQ(antes, Foto(jp)) << nombre;
        ASSERT_EQ(2u, jp.p.entradas.size());
        EXPECT_EQ("rota", jp.p.entradas[1].inicial);
        EXPECT_EQ("Cancelado", jp.f().Texto1());
        EXPECT_EQ(bytes, jp.p.carpeta.Leer("rota.sav")) << nombre;
        EXPECT_TRUE(jp.juego->canales.Libre() == 1) << nombre << ": canal abierto";
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

}  // namespace
}  // namespace sabelot

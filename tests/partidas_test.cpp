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
const std::string kOtroNombre = ". Introduzca un nombre nuevo o pulse en cancelar.";

// Una partida a medias de tres jugadores, distinta del ejemplo en todo, con lo que cambie 'mas'.
void PartidaEnJuego(JuegoPrueba& jp, const std::string& mas = "") {
    for (std::size_t t = 1; t <= 6; ++t) {
        jp.m().FicheroTema[t] = "f" + std::to_string(t);
        jp.m().EtiquetaTema[t] = "Etiqueta " + std::to_string(t) + " ";
        jp.m().CanalTema[t] = static_cast<int>(t);
    }
    jp.f().ConstruirTablero();
    prueba::Preparar(jp,
                     "jugadores=3;quesitos=5;fichas=5,40,16;turno=3;cursor=16;rumbo=4;quesitos3=1;"
                     "cuenta=2,2,5,7;texto=texto de antes;" +
                         mas);
    jp.f().PonerTitulo(TituloJugador(jp.f().JugadorActual));
}

// Todo el estado que una carga o un guardado podría tocar, sin lo que se dice.
std::string EstadoEntero(JuegoPrueba& jp) {
    std::string s;
    for (const auto& [clave, valor] : prueba::Observar(jp))
        if (clave != "texto" && clave.rfind("mensaje", 0) != 0 && clave != "entradas" && clave != "oido" &&
            clave != "iniciales" && clave != "indicaciones")
            s += clave + "=" + valor + "\n";
    return s;
}

std::string FicherosDeLaCarpeta(JuegoPrueba& jp) {
    auto v = jp.p.Ficheros().Listar(jp.p.carpeta.Ruta(), "");
    std::sort(v.begin(), v.end());
    std::string s;
    for (const std::string& f : v) s += (s.empty() ? "" : "|") + f;
    return s;
}

// Como en Windows, el nombre no distingue mayúsculas aunque el sistema sí lo haga: se carga y se
// guarda encima, igual byte a byte. Lo que se ve, en tests/datos/partida_cargada.txt.
TEST(Partidas, ElEjemploSeCargaYSeGuardaIgualConElNombreEnOtrasMayusculas) {
    JuegoPrueba jp;
    PartidaEnJuego(jp);
    jp.p.carpeta.Escribir("Ñandú1.sav", kEjemplo);
    jp.p.textos = {"ñANDÚ1", "ñandú1.SAV"};
    jp.f().CargarPartida();
    std::map<std::string, std::string> o = prueba::Observar(jp);
    jp.f().GuardarPartida();
    for (const auto& [clave, valor] : prueba::Observar(jp)) o[clave + "Guardada"] = valor;
    o["ficheros"] = FicherosDeLaCarpeta(jp);
    prueba::Comprobar(o, prueba::LineasDeDatos("partida_cargada.txt"));
    EXPECT_EQ(kEjemplo, jp.p.carpeta.Leer("Ñandú1.sav"));
}

// Guardar no cambia nada y otra copia del juego carga lo mismo: la partida en juego con lo que cambie
// cada línea de tests/datos/ida_y_vuelta.txt.
TEST(Partidas, IdaYVueltaConUnoTresYSeisJugadores) {
    for (const std::string& mas : prueba::LineasDeDatos("ida_y_vuelta.txt")) {
        JuegoPrueba jp, otro;
        PartidaEnJuego(jp, mas);
        const std::string antes = EstadoEntero(jp);
        jp.p.textos = {"  Partida de prueba  "};
        jp.f().GuardarPartida();
        EXPECT_EQ(antes, EstadoEntero(jp)) << "guardar no cambia la partida";
        const std::string bytes = jp.p.carpeta.Leer("Partida de prueba.sav");
        EXPECT_EQ(7 + 7 * jp.m().NumJugadores, std::count(bytes.begin(), bytes.end(), '\n'));

        otro.p.carpeta.Escribir("Partida de prueba.sav", bytes);
        otro.f().ConstruirTablero();
        prueba::Preparar(otro, "jugadores=2");
        otro.p.textos = {"Partida de prueba.sav"};
        otro.f().CargarPartida();
        EXPECT_TRUE(otro.p.mensajes.empty());
        EXPECT_EQ(prueba::Foto(*jp.juego), prueba::Foto(*otro.juego)) << mas;
        EXPECT_EQ(jp.f().PosicionFicha[static_cast<std::size_t>(jp.f().JugadorActual)],
                  otro.f().CasillaCursor)
            << "el cursor va a la ficha del que mueve";
    }
}

// Con cada nombre se guarda y se carga: lo que se ve y los ficheros que quedan, en
// tests/datos/nombres_partida.txt. Lo que se guarda se vuelve a cargar igual.
TEST(Partidas, NombresDePartida) {
    for (const std::string& fila : prueba::LineasDeDatos("nombres_partida.txt")) {
        const std::vector<std::string> campos = prueba::Campos(fila);
        const std::string nombre = prueba::Bytes(campos[0], false);
        JuegoPrueba jp;
        PartidaEnJuego(jp);
        const std::string antes = EstadoEntero(jp);
        jp.p.textos = {nombre, ""};
        jp.f().GuardarPartida();
        std::map<std::string, std::string> o{{"guardado", jp.f().Texto1()},
                                             {"ficheros", FicherosDeLaCarpeta(jp)}};
        jp.p.textos = {nombre, ""};
        jp.f().CargarPartida();
        o.merge(prueba::Observar(jp));
        SCOPED_TRACE(fila);
        prueba::Comprobar(o, {campos.begin() + 1, campos.end()});
        EXPECT_EQ(antes, EstadoEntero(jp));
    }
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
    const std::string noEsta = "No se encuentra ese archivo de partida|0|Sabelot";
    prueba::Comprobar(
        prueba::Observar(jp),
        {"mensajes=5", "mensaje1=" + noEsta, "mensaje2=" + noEsta, "mensaje3=" + noEsta, "mensaje4=" + noEsta,
         "mensaje5=" + kErrorCarga + "|0|Sabelot", "jugadores=2", "cursor=37", "titulo=SÁBELOT - Jugador 2",
         "iniciales=|  bueno |../buena|sub/../a|CON|rota"});
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
        SCOPED_TRACE(nombre);
        JuegoPrueba jp;
        PartidaEnJuego(jp);
        jp.p.carpeta.Escribir("rota.sav", bytes);
        const std::string antes = EstadoEntero(jp);
        jp.p.textos = {"rota", ""};
        jp.f().CargarPartida();
        prueba::Comprobar(prueba::Observar(jp), {"mensajes=1", "mensaje1=" + kErrorCarga + "|0|Sabelot",
                                                 "iniciales=|rota", "texto=Cancelado"});
        EXPECT_EQ(antes, EstadoEntero(jp));
        EXPECT_EQ(bytes, jp.p.carpeta.Leer("rota.sav"));
        EXPECT_EQ(jp.juego->canales.Libre(), 1) << "canal abierto";
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
        const std::string antes = EstadoEntero(jp);
        jp.p.alMensaje = [&](const prueba::PlataformaGuion::Mensaje&) { averiados.fallaCrear = false; };
        jp.p.textos = {"guardada", "otra"};
        jp.f().GuardarPartida();
        EXPECT_EQ(std::vector<std::string>{kErrorGuardar + kOtroNombre}, jp.p.TextosMensajes()) << protegido;
        EXPECT_EQ("PARTIDA GUARDADA", jp.f().Texto1());
        EXPECT_EQ(kEjemplo, jp.p.carpeta.Leer("guardada.sav"));
        EXPECT_EQ(0u, jp.p.carpeta.Leer("otra.sav").find("3,5,3\r\n"));
        EXPECT_EQ(antes, EstadoEntero(jp));
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
        EXPECT_EQ("comun.sav", FicherosDeLaCarpeta(jp));

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

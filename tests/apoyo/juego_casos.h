// Casos de partida escritos en tests/datos, uno por línea y separados por tabuladores: nombre,
// lo que se prepara («clave=valor;clave=valor»), lo que se hace y lo que se espera ver
// («clave=valor» en cada campo; solo se mira lo que se nombra). "\r\n" es un salto de verdad.
#pragma once

#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "apoyo/datos_prueba.h"
#include "apoyo/juego_prueba.h"

namespace sabelot::prueba {

// Un caso de la tabla; el nombre sale en la lista de pruebas.
struct Caso {
    std::string nombre, preparacion, acciones;
    std::vector<std::string> esperado;
};
inline void PrintTo(const Caso& c, std::ostream* os) { *os << c.nombre; }

inline std::vector<Caso> Casos(const std::string& fichero) {
    std::vector<Caso> casos;
    for (const std::vector<std::string>& c : Tabla(fichero, 3))
        casos.push_back({c[0], c[1], c[2], std::vector<std::string>(c.begin() + 3, c.end())});
    return casos;
}

inline std::vector<int> Numeros(const std::string& lista, char separador = ',') {
    std::vector<int> v;
    for (const std::string& n : Lista(lista, separador))
        if (!n.empty()) v.push_back(std::stoi(n));  // "7_12_" acaba en separador
    return v;
}

// La partida como se pide: jugadores, cursor, fichas, quesitos del jugador 1, respuestas...
inline void Preparar(JuegoPrueba& j, const std::string& preparacion) {
    Form1& f = j.f();
    Module1& m = j.m();
    for (const std::string& par : Lista(preparacion, ';')) {
        const std::size_t igual = par.find('=');
        const std::string clave = par.substr(0, igual), valor = Bytes(par.substr(igual + 1), false);
        const std::vector<int> n =
            std::isdigit(static_cast<unsigned char>(valor[0])) ? Numeros(valor) : std::vector<int>{};
        if (clave == "jugadores") m.DimensionarTablas(m.NumJugadores = n[0]);
        if (clave == "cursor") f.CasillaCursor = n[0];
        if (clave == "rumbo") f.RumboCentro = n[0];
        if (clave == "previa") f.CasillaPrevia = n[0];
        if (clave == "turno") f.JugadorActual = n[0];
        if (clave == "texto") f.PonerTexto1(valor);
        if (clave == "titulo") f.PonerTitulo(valor);
        if (clave == "textos") j.p.textos.assign(1, valor);
        if (clave == "sino") j.p.siNo.assign(n.begin(), n.end());
        for (std::size_t i = 0; clave == "fichas" && i < n.size(); ++i) f.PosicionFicha[i + 1] = n[i];
        if (clave == "quesitos") m.QuesitosParaGanar = n[0];
        // datos: la partida recién arrancada con esos datos, sin lo que dijo.
        if (clave == "datos") {
            PonerDatosMinimos(j.p.carpeta, n[0], n[1]);
            j.Arrancar();
        }
        if (clave == "anexas") f.LeerAnexas = n[0];
        if (clave == "hora") std::tie(j.p.hora, j.p.minuto, j.p.segundo) = std::tie(n[0], n[1], n[2]);
        if (clave == "dado")
            for (int cara : n) j.p.azar.push_back(AzarDado(cara));
        if (clave == "azar")
            for (const std::string& x : Lista(valor, ',')) j.p.azar.push_back(std::stod(x));
        if (clave == "respuestas") j.p.respuestas.assign(n.begin(), n.end());
        if (clave == "botones") j.p.botones.assign(n.begin(), n.end());
        if (clave == "mazo") {
            m.CuentaMazo[n[0]] = n[1];
            m.MazoUsado[n[0]] = "x";
        }
        if (clave.rfind("etiqueta", 0) == 0) m.EtiquetaTema[clave[8] - '0'] = valor;
        // quesitosJ: las categorías que ya tiene el jugador J.
        if (clave.size() == 9 && clave.rfind("quesitos", 0) == 0) {
            for (int t : n) {
                m.QuesitoGanado(t, clave[8] - '0') = true;
                ++m.NumQuesitos(clave[8] - '0');
            }
        }
        if (clave.find('/') != std::string::npos) j.p.carpeta.Escribir(clave, valor);  // un fichero
        // cuenta: tema,jugador,aciertos,preguntas.
        if (clave == "cuenta") {
            m.Aciertos(n[0], n[1]) = n[2];
            m.Preguntas(n[0], n[1]) = n[3];
        }
    }
    j.p.dichos.clear();
}

// Todo lo que se puede mirar, por nombre.
inline std::map<std::string, std::string> Observar(JuegoPrueba& j) {
    Form1& f = j.f();
    Module1& m = j.m();
    const auto n = [](auto valor) { return std::to_string(valor); };
    // clang-format off
    std::map<std::string, std::string> o{
        {"texto", f.Texto1()}, {"titulo", f.Titulo()}, {"cursor", n(f.CasillaCursor)}, {"rumbo", n(f.RumboCentro)},
        {"previa", n(f.CasillaPrevia)}, {"turno", n(f.JugadorActual)}, {"anexas", n(f.LeerAnexas)},
        {"pitidos", n(j.p.pitidos)}, {"jugadores", n(m.NumJugadores)}, {"quesitos", n(m.QuesitosParaGanar)},
        {"opciones", n(j.p.opcionesMostradas)}, {"dialogos", n(j.p.dialogosMostrados)}, {"mensajes", n(j.p.mensajes.size())}, {"sino", n(j.p.siNo.size())},
        {"entradas", ""}, {"sonidos", ""}, {"oido", ""}, {"semilla", n(j.p.ultimaSemilla)},
        {"caminos", n(f.CaminosPendientes)}, {"azar", n(j.p.azar.size())}, {"valorDado", n(f.ValorDado)},
        {"pregunta", j.juego->dialog1.Pregunta}, {"panel", j.vista.texto}, {"hechos", j.vista.hechos}, {"iniciales", ""}, {"indicaciones", ""}};
    // clang-format on
    o["tablas"] = n(m.Preguntas.Jugadores()) + n(m.Aciertos.Jugadores()) + n(m.QuesitoGanado.Jugadores()) +
                  n(m.NumQuesitos.Limite());
    for (std::size_t t = 1; t <= 6; ++t)
        o["tema" + n(t)] = m.FicheroTema[t] + "|" + m.EtiquetaTema[t] + "|" + n(m.CanalTema[t]);
    for (std::size_t t = 1; t <= 6; ++t) o["mazos"] += m.MazoUsado[t] + n(m.CuentaMazo[t]) + " ";
    for (std::size_t i = 1; i <= 6; ++i) o["fichas"] += (i > 1 ? "," : "") + n(f.PosicionFicha[i]);
    for (int jug = 1; jug <= m.NumQuesitos.Limite(); ++jug) {
        std::string& s = o["j" + n(jug)] = n(m.NumQuesitos(jug));
        for (int t = 1; t <= 6; ++t)
            s += std::string(" ") + (m.QuesitoGanado(t, jug) ? "Q" : "") + n(m.Aciertos(t, jug)) + "/" +
                 n(m.Preguntas(t, jug));
    }
    for (std::size_t i = 0; i < j.p.mensajes.size(); ++i) {
        const auto& msg = j.p.mensajes[i];
        o["mensaje" + n(i + 1)] = msg.texto + "|" + n(msg.estilo) + "|" + msg.titulo;
    }
    for (const auto& e : j.p.entradas) {
        o["entradas"] += (o["entradas"].empty() ? "" : "|") + e.titulo;
        o["iniciales"] += (&e == &j.p.entradas[0] ? "" : "|") + e.inicial;
        o["indicaciones"] += (&e == &j.p.entradas[0] ? "" : "|") + e.indicacion;
    }
    for (const auto& [reproductor, ruta] : j.p.sonidos) {
        const std::string nombre = ruta.substr(ruta.find_last_of("/\\") + 1);
        const bool enSonidos = ruta == Ruta(j.p.CarpetaPrograma(), {"sonidos", nombre});
        o["sonidos"] += (o["sonidos"].empty() ? "" : ",") +
                        std::string(reproductor == Reproductor::MP2 ? "MP2:" : "MP1:") +
                        (enSonidos ? nombre : ruta);
    }
    for (const std::string& t : j.p.TextosDichos()) o["oido"] += (o["oido"].empty() ? "" : " ¦ ") + t;
    return o;
}

inline void Comprobar(const std::map<std::string, std::string>& visto,
                      const std::vector<std::string>& esperado) {
    for (const std::string& e : esperado) {
        const std::string clave = e.substr(0, e.find('='));
        const auto it = visto.find(clave);
        EXPECT_EQ(Bytes(e.substr(e.find('=') + 1), false), it == visto.end() ? "(nada)" : it->second)
            << clave;
    }
}

// "Arriba", "F2", "O+C" (S mayúsculas, C control, A alt), "#96" (un código a secas); con "~" delante,
// sin esperar al final del sonido del dado. "Suena" y "Fin" son el reproductor del dado, y "Arrancar"
// y "Nueva", el arranque y una partida nueva.
inline void Pulsar(JuegoPrueba& j, std::string tecla) {
    static const std::map<std::string, int> kNombres{
        {"Arriba", vbKeyUp}, {"Abajo", vbKeyDown}, {"Izquierda", vbKeyLeft}, {"Derecha", vbKeyRight},
        {"F1", vbKeyF1},     {"F2", vbKeyF2},      {"F3", vbKeyF3},          {"F4", vbKeyF4}};
    if (tecla == "Nueva") return j.f().NuevaPartida();
    if (tecla == "Arrancar") return j.Arrancar(false);
    if (tecla == "Suena" || tecla == "Fin") return j.f().MediaPlayer1_PlayStateChange(tecla == "Suena");
    const bool sinEsperar = tecla[0] == '~';
    if (sinEsperar) tecla.erase(0, 1);
    const std::string nombre = tecla.substr(0, tecla.find('+'));
    const std::string mods = tecla.substr(nombre.size());
    const int codigo = nombre[0] == '#'         ? std::stoi(nombre.substr(1))
                       : kNombres.count(nombre) ? kNombres.at(nombre)
                                                : nombre[0];
    const int shift = (mods.find('S') != std::string::npos ? vbShiftMask : 0) |
                      (mods.find('C') != std::string::npos ? vbCtrlMask : 0) |
                      (mods.find('A') != std::string::npos ? vbAltMask : 0);
    if (sinEsperar)
        j.f().Form_KeyDown(codigo, shift);
    else
        j.Tecla(codigo, shift);
}

// Lo que había al salir el aviso N queda en «o» con «AlAvisoN» tras la clave.
inline void ApuntarAvisos(JuegoPrueba& j, std::map<std::string, std::string>& o) {
    j.p.alMensaje = [&j, &o](const PlataformaGuion::Mensaje&) {
        for (const auto& [clave, valor] : Observar(j))
            o[clave + "AlAviso" + std::to_string(j.p.mensajes.size())] = valor;
    };
}

// Un caso de teclas entero sobre una partida de un jugador con el tablero hecho.
inline void Jugar(const Caso& c) {
    JuegoPrueba j;
    j.f().ConstruirTablero();
    j.f().PonerTitulo(TituloJugador(1));
    j.f().PonerVista(&j.vista);
    Preparar(j, "jugadores=1;" + c.preparacion);
    std::map<std::string, std::string> o;
    ApuntarAvisos(j, o);
    for (const std::string& tecla : Lista(c.acciones, ' ')) Pulsar(j, tecla);
    o.merge(Observar(j));
    Comprobar(o, c.esperado);
}

inline std::string NombreDelCaso(const ::testing::TestParamInfo<Caso>& info) { return info.param.nombre; }

}  // namespace sabelot::prueba

// Los casos de una tabla de tests/datos, cada uno una prueba que se juega con Jugar.
#define SABELOT_CASOS_JUGADOS(Suite, fichero)                                                      \
    class Suite : public ::testing::TestWithParam<::sabelot::prueba::Caso> {};                     \
    TEST_P(Suite, Caso) { ::sabelot::prueba::Jugar(GetParam()); }                                  \
    INSTANTIATE_TEST_SUITE_P(Tabla, Suite, ::testing::ValuesIn(::sabelot::prueba::Casos(fichero)), \
                             ::sabelot::prueba::NombreDelCaso)

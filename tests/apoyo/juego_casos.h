// Casos de partida escritos en tests/datos, uno por línea y separados por tabuladores: nombre,
// lo que se prepara («clave=valor;clave=valor»), lo que se hace y lo que se espera ver
// («clave=valor» en cada campo; solo se mira lo que se nombra). "\r\n" es un salto de verdad.
#pragma once

#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "apoyo/datos_prueba.h"
#include "apoyo/juego_prueba.h"

namespace sabelot::prueba {

inline std::vector<std::string> Partir(const std::string& texto, char separador) {
    std::vector<std::string> trozos;
    std::istringstream s(texto);
    for (std::string t; std::getline(s, t, separador);) trozos.push_back(t);
    return trozos;
}

inline std::string ConSaltos(std::string s) {
    for (std::size_t i = s.find("\\r\\n"); i != std::string::npos; i = s.find("\\r\\n", i + 2))
        s.replace(i, 4, "\r\n");
    return s;
}

// Un caso de la tabla; el nombre sale en la lista de pruebas.
struct Caso {
    std::string nombre, preparacion, acciones;
    std::vector<std::string> esperado;
};
inline void PrintTo(const Caso& c, std::ostream* os) { *os << c.nombre; }

inline std::vector<Caso> Casos(const std::string& fichero) {
    std::vector<Caso> casos;
    for (const std::string& linea : LineasDeDatos(fichero)) {
        std::vector<std::string> c = Partir(linea, '\t');
        c.resize(std::max<std::size_t>(c.size(), 3));
        casos.push_back({c[0], c[1], c[2], std::vector<std::string>(c.begin() + 3, c.end())});
    }
    return casos;
}

inline std::vector<int> Numeros(const std::string& lista, char separador = ',') {
    std::vector<int> v;
    for (const std::string& n : Partir(lista, separador)) v.push_back(std::stoi(n));
    return v;
}

// La partida como se pide: jugadores, cursor, fichas, quesitos del jugador 1, respuestas...
inline void Preparar(JuegoPrueba& j, const std::string& preparacion) {
    Form1& f = j.f();
    Module1& m = j.m();
    for (const std::string& par : Partir(preparacion, ';')) {
        const std::size_t igual = par.find('=');
        const std::string clave = par.substr(0, igual), valor = ConSaltos(par.substr(igual + 1));
        const std::vector<int> n =
            std::isdigit(static_cast<unsigned char>(valor[0])) ? Numeros(valor) : std::vector<int>{};
        if (clave == "jugadores") m.DimensionarTablas(m.NumJugadores = n[0]);
        if (clave == "cursor") f.CasillaCursor = n[0];
        if (clave == "rumbo") f.RumboCentro = n[0];
        if (clave == "previa") f.CasillaPrevia = n[0];
        if (clave == "turno") f.JugadorActual = n[0];
        if (clave == "texto") f.PonerTexto1(valor);
        if (clave == "textos") j.p.textos.assign(1, valor);
        if (clave == "sino") j.p.siNo.assign(n.begin(), n.end());
        for (std::size_t i = 0; clave == "fichas" && i < n.size(); ++i) f.PosicionFicha[i + 1] = n[i];
        if (clave == "quesitos") m.QuesitosParaGanar = n[0];
        // quesitosJ: las categorías que ya tiene el jugador J.
        for (int t : clave.size() == 9 && clave.rfind("quesitos", 0) == 0 ? n : std::vector<int>{}) {
            m.QuesitoGanado(t, clave[8] - '0') = true;
            ++m.NumQuesitos(clave[8] - '0');
        }
        if (clave == "cuenta") {  // tema,jugador,aciertos,preguntas
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
        {"opciones", n(j.p.opcionesMostradas)}, {"mensajes", n(j.p.mensajes.size())}, {"sino", n(j.p.siNo.size())},
        {"entradas", ""}, {"sonidos", ""}, {"oido", ""}};
    // clang-format on
    o["tablas"] = n(m.Preguntas.Jugadores()) + n(m.Aciertos.Jugadores()) + n(m.QuesitoGanado.Jugadores()) +
                  n(m.NumQuesitos.Limite());
    for (std::size_t t = 1; t <= 6; ++t)
        o["tema" + n(t)] = m.FicheroTema[t] + "|" + m.EtiquetaTema[t] + "|" + n(m.CanalTema[t]);
    for (std::size_t i = 1; i <= 6; ++i) o["fichas"] += (i > 1 ? "," : "") + n(f.PosicionFicha[i]);
    for (int jug = 1; jug <= m.NumQuesitos.Limite(); ++jug) {
        std::string& s = o["j" + n(jug)] = n(m.NumQuesitos(jug));
        for (int t = 1; t <= 6; ++t)
            s += std::string(" ") + (m.QuesitoGanado(t, jug) ? "Q" : "") + n(m.Aciertos(t, jug)) + "/" +
                 n(m.Preguntas(t, jug));
    }
    for (const auto& msg : j.p.mensajes)
        o["mensaje" + n(&msg - &j.p.mensajes[0] + 1)] = msg.texto + "|" + n(msg.estilo) + "|" + msg.titulo;
    for (const auto& e : j.p.entradas) o["entradas"] += (o["entradas"].empty() ? "" : "|") + e.titulo;
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
        EXPECT_EQ(ConSaltos(e.substr(e.find('=') + 1)), it == visto.end() ? "(nada)" : it->second) << clave;
    }
}

}  // namespace sabelot::prueba

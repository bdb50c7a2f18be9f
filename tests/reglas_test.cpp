// Mover la ficha, las preguntas, los quesitos, el turno y la casilla central: las partidas con
// guion de tests/datos/reglas.txt.
#include <gtest/gtest.h>

#include "apoyo/juego_casos.h"
#include "apoyo/partida_guion.h"

namespace sabelot {
namespace {

using prueba::Partir;

// El valor de una clave de la preparación, o el dado si no está.
std::string Valor(const std::string& preparacion, const std::string& clave, const std::string& porDefecto) {
    for (const std::string& par : Partir(preparacion, ';'))
        if (par.rfind(clave + "=", 0) == 0) return par.substr(clave.size() + 1);
    return porDefecto;
}

template <typename T>
std::string Juntar(const std::vector<T>& v, const std::string& separador) {
    std::ostringstream s;
    for (std::size_t i = 0; i < v.size(); ++i) s << (i ? separador : "") << v[i];
    return s.str();
}

class ReglasTest : public ::testing::TestWithParam<prueba::Caso> {};

TEST_P(ReglasTest, Partida) {
    const prueba::Caso& c = GetParam();
    prueba::PartidaGuion g(std::stoi(Valor(c.preparacion, "jugadores", "1")),
                           std::stoi(Valor(c.preparacion, "quesitos", "6")));
    prueba::Preparar(g.j, c.preparacion);
    for (char v : Valor(c.preparacion, "veredictos", "")) g.veredictos.push_back(v);
    for (int e : prueba::Numeros(Valor(c.preparacion, "elecciones", ""))) g.elecciones.push_back(e);
    // Lo que había al salir el primer aviso.
    std::map<std::string, std::string> alAvisar;
    g.p().alMensaje = [&](const prueba::PlataformaGuion::Mensaje&) {
        if (alAvisar.empty()) alAvisar = prueba::Observar(g.j);
    };
    bool terminado = false;
    try {
        for (const std::string& a : Partir(c.acciones, ' ')) {
            if (a[0] == 'T') g.Tirar(std::stoi(a.substr(1)), std::stoi(a.substr(a.find('>') + 1)));
            if (a[0] == 'P') g.f().HacerPregunta(std::stoi(a.substr(1)));
        }
    } catch (const prueba::ProgramaTerminado&) {
        terminado = true;
    }

    std::map<std::string, std::string> o = prueba::Observar(g.j);
    o["terminado"] = std::to_string(terminado);
    o["textoAlAvisar"] = alAvisar["texto"];
    o["j1AlAvisar"] = alAvisar["j1"];
    o["preguntados"] = Juntar(g.temasPreguntados, ",");
    o["hechos"] = Juntar(g.vista.hechos, ",");
    o["enPregunta"] = Juntar(g.hechosEnPregunta, ",");
    for (std::size_t i = 0; i < g.vistas.size(); ++i) {
        o["titulos"] += (i ? "|" : "") + g.vistas[i].titulo;
        o["listas"] += (i ? " " : "") + g.vistas[i].lista;
        o["vista" + std::to_string(i + 1)] = g.vistas[i].texto;
        o["botones" + std::to_string(i + 1)] = Juntar(g.vistas[i].botones, "|");
    }
    prueba::Comprobar(o, c.esperado);
}

INSTANTIATE_TEST_SUITE_P(Reglas, ReglasTest, ::testing::ValuesIn(prueba::Casos("reglas.txt")),
                         [](const auto& info) { return info.param.nombre; });

}  // namespace
}  // namespace sabelot

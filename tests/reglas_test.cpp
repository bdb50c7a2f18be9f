// Mover la ficha, las preguntas, los quesitos, el turno y la casilla central: las partidas con
// guion de tests/datos/reglas.txt. El dado, la casilla elegida y el veredicto de cada pregunta se
// dan por adelantado, sin leer preguntas.
#include <gtest/gtest.h>

#include <deque>

#include "apoyo/juego_casos.h"

namespace sabelot {
namespace {

using prueba::Lista;

class ReglasTest : public ::testing::TestWithParam<prueba::Caso> {};

TEST_P(ReglasTest, Partida) {
    const prueba::Caso& c = GetParam();
    prueba::JuegoPrueba j;
    prueba::Preparar(j, "datos=1,6;texto=;" + c.preparacion);
    j.f().PonerVista(&j.vista);
    std::deque<char> veredictos;
    std::deque<int> elecciones;  // valor de cada Dialog (casilla o categoría), no el botón
    for (const std::string& par : Lista(c.preparacion, ';')) {
        if (par.rfind("veredictos=", 0) == 0) veredictos.assign(par.begin() + 11, par.end());
        if (par.rfind("elecciones=", 0) == 0)
            for (int e : prueba::Numeros(par.substr(11))) elecciones.push_back(e);
    }
    std::map<std::string, std::string> o{
        {"preguntados", ""}, {"enPregunta", ""}, {"titulos", ""}, {"listas", ""}};
    prueba::ApuntarAvisos(j, o);
    int dialogos = 0, preguntas = 0;
    j.p.alMostrarDialog = [&](Dialog& d) {
        d.Form_Load();
        d.Form_Activate();
        const std::string n = std::to_string(++dialogos), separador = dialogos > 1 ? "|" : "";
        o["titulos"] += separador + d.Titulo;
        o["listas"] += (dialogos > 1 ? " " : "") + j.m().ListaValores;
        o["vista" + n] = d.Text1;
        for (const auto& b : d.Command1)
            if (b.Visible) o["botones" + n] += (o["botones" + n].empty() ? "" : "|") + b.Caption;
        for (int i = 0; i < 7 && !elecciones.empty(); ++i) {
            const auto& b = d.Command1[static_cast<std::size_t>(i)];
            if (b.Visible && b.Enabled && d.ValorOpcion[static_cast<std::size_t>(i)] == elecciones.front()) {
                elecciones.pop_front();
                return d.Command1_Click(i);
            }
        }
        ADD_FAILURE() << "El guion no elige nada que se ofrezca:\n" << d.Text1;
        j.p.TerminarPrograma();
    };
    j.p.alMostrarDialog1 = [&](Dialog1& d) {
        o["preguntados"] += (preguntas ? "," : "") + std::to_string(d.NTema);
        o["enPregunta"] +=
            (preguntas++ ? "," : "") + j.vista.hechos.substr(j.vista.hechos.find_last_of(',') + 1);
        if (veredictos.empty()) {
            ADD_FAILURE() << "Dialog1 sin veredicto en el guion";
            j.p.TerminarPrograma();
        }
        d.SinPregunta = veredictos.front() == 'N';
        d.RespuestaCorrecta = veredictos.front() == 'B';
        d.Visible = false;
        veredictos.pop_front();
    };
    bool terminado = false;
    try {
        for (const std::string& a : Lista(c.acciones, ' ')) {
            if (a[0] == 'P') j.f().HacerPregunta(std::stoi(a.substr(1)));
            if (a[0] != 'T') continue;  // T2>7: un 2 en el dado y a la casilla 7, antes que lo demás
            j.p.azar.push_back(prueba::AzarDado(std::stoi(a.substr(1))));
            elecciones.push_front(std::stoi(a.substr(a.find('>') + 1)));
            j.f().ResolverTirada();
        }
    } catch (const prueba::ProgramaTerminado&) {
        terminado = true;
    }
    o.merge(prueba::Observar(j));
    o["terminado"] = std::to_string(terminado);
    prueba::Comprobar(o, c.esperado);
    EXPECT_TRUE(elecciones.empty() && veredictos.empty()) << "sobra guion: algo que se esperaba no llegó";
}

INSTANTIATE_TEST_SUITE_P(Reglas, ReglasTest, ::testing::ValuesIn(prueba::Casos("reglas.txt")),
                         prueba::NombreDelCaso);

}  // namespace
}  // namespace sabelot

// Partidas con guion para las pruebas del motor: el dado, la casilla elegida y el
// veredicto de cada pregunta se dan por adelantado, sin leer ficheros de preguntas.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

#include "apoyo/juego_prueba.h"

namespace sabelot::prueba {

// Lo que la ventana principal recibe de la lógica, en orden.
class VistaApunte : public VistaForm1 {
public:
    std::vector<std::string> hechos;
    void PonerTexto1(const std::string&) override {}
    void PonerTitulo(const std::string&) override {}
    void Mostrar() override { hechos.push_back("Mostrar"); }
    void Ocultar() override { hechos.push_back("Ocultar"); }
    bool FocoEnPicture1() override { return true; }
    void FocoAPicture1() override {}
};

class PartidaGuion {
public:
    // Un diálogo de elección tal como se vio.
    struct Eleccion {
        std::string titulo, texto, lista;
        std::vector<std::string> botones;  // rótulos de los botones visibles
    };

    // Veredictos de Dialog1: 'B' bien, 'M' mal, 'N' sin pregunta.
    std::deque<char> veredictos;
    // Valor que se elige en cada Dialog (casilla o categoría), no el botón.
    std::deque<int> elecciones;
    std::vector<Eleccion> vistas;
    std::vector<int> temasPreguntados;
    // Estado de Form1 visto desde dentro de Dialog1.
    std::vector<std::string> hechosEnPregunta;

    JuegoPrueba j;
    VistaApunte vista;

    explicit PartidaGuion(int jugadores = 1, int quesitos = 6) {
        PonerDatosMinimos(j.p.carpeta, jugadores, quesitos);
        j.Arrancar();
        const char* nombres[7] = {"", "cine", "deportes", "historia", "literatura", "sociales", "cotilleos"};
        for (int t = 1; t <= 6; ++t) {
            j.m().FicheroTema[static_cast<std::size_t>(t)] = nombres[t];
            j.m().EtiquetaTema[static_cast<std::size_t>(t)].clear();
            j.m().CanalTema[static_cast<std::size_t>(t)] = t;
        }
        j.m().NumJugadores = jugadores;
        j.m().QuesitosParaGanar = quesitos;
        j.m().DimensionarTablas(jugadores);
        j.f().PonerTexto1("");
        j.f().PonerVista(&vista);

        j.p.alMostrarDialog = [this](Dialog& d) {
            d.Form_Load();
            d.Form_Activate();
            Eleccion e{d.Titulo, d.Text1, j.m().ListaValores, {}};
            for (const auto& b : d.Command1)
                if (b.Visible) e.botones.push_back(b.Caption);
            vistas.push_back(e);
            if (elecciones.empty()) {
                ADD_FAILURE() << "Dialog sin elección en el guion:\n" << d.Text1;
                j.p.TerminarPrograma();
            }
            const int quiero = elecciones.front();
            elecciones.pop_front();
            for (int i = 0; i < 7; ++i) {
                const auto& b = d.Command1[static_cast<std::size_t>(i)];
                if (b.Visible && b.Enabled && d.ValorOpcion[static_cast<std::size_t>(i)] == quiero) {
                    d.Command1_Click(i);
                    return;
                }
            }
            ADD_FAILURE() << "No se ofrece " << quiero << ":\n" << d.Text1;
            j.p.TerminarPrograma();
        };
        j.p.alMostrarDialog1 = [this](Dialog1& d) {
            temasPreguntados.push_back(d.NTema);
            hechosEnPregunta.push_back(vista.hechos.empty() ? "" : vista.hechos.back());
            if (veredictos.empty()) {
                ADD_FAILURE() << "Dialog1 sin veredicto en el guion";
                j.p.TerminarPrograma();
            }
            const char v = veredictos.front();
            veredictos.pop_front();
            d.SinPregunta = v == 'N';
            d.RespuestaCorrecta = v == 'B';
            d.Visible = false;
        };
    }

    // Todo el guion se ha de gastar: lo que sobra es una elección o pregunta que no llegó.
    ~PartidaGuion() {
        EXPECT_TRUE(elecciones.empty()) << "sobran elecciones en el guion";
        EXPECT_TRUE(veredictos.empty()) << "sobran veredictos en el guion";
    }

    Form1& f() { return j.f(); }
    Module1& m() { return j.m(); }
    PlataformaGuion& p() { return j.p; }

    // Una tirada entera: cara del dado y casilla elegida. Lo que haya en 'elecciones'
    // se elige después (categorías del centro).
    void Tirar(int cara, int destino) {
        j.p.azar.push_back(AzarDado(cara));
        elecciones.push_front(destino);
        j.f().ResolverTirada();
    }

    // Da al jugador los quesitos de esas categorías.
    void DarQuesitos(int jugador, const std::vector<int>& temas) {
        for (int t : temas) {
            m().QuesitoGanado(t, jugador) = true;
            ++m().NumQuesitos(jugador);
        }
    }
};

}  // namespace sabelot::prueba

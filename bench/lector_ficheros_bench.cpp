// Lo que se oye en cada casilla (las 79, como al recorrer el tablero con el cursor) y las
// idas y vueltas al disco: Sabelot.ini y una partida guardada, escritas y leídas con el
// mismo código del juego sobre ficheros de verdad en una carpeta temporal.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>

#include "engine/juego.h"
#include "plataforma_muda.h"
#include "storage/opciones.h"

namespace fs = std::filesystem;

namespace sabelot {
namespace {

// Una carpeta temporal propia, que se borra al acabar.
class PlataformaDisco : public PlataformaMuda {
public:
    PlataformaDisco() {
        const fs::path ruta =
            fs::temp_directory_path() / ("sabelot-disco-" + std::to_string(std::random_device{}()));
        fs::create_directories(ruta);
        carpeta = ruta.string();
        respuestaInputBox = "medida";
    }
    ~PlataformaDisco() override {
        std::error_code ec;
        fs::remove_all(carpeta, ec);
    }
};

// Una partida de cuatro jugadores a medias, con nombres de fichero con acentos.
void PrepararPartida(Juego& juego) {
    Module1& m = juego.m;
    m.NumJugadores = 4;
    m.QuesitosParaGanar = 6;
    m.DimensionarTablas(4);
    for (std::size_t t = 1; t <= kNumTemas; ++t) {
        m.FicheroTema[t] = "Tema número " + std::to_string(t);
        m.EtiquetaTema[t] = "Categoría " + std::to_string(t);
        m.CanalTema[t] = static_cast<int>(t);
    }
    for (int j = 1; j <= 4; ++j) {
        juego.form1.PosicionFicha[static_cast<std::size_t>(j)] = 10 * j;
        for (int t = 1; t <= kNumTemas; ++t) {
            m.Preguntas(t, j) = t + j;
            m.Aciertos(t, j) = t;
        }
    }
    juego.form1.JugadorActual = 3;
}

void DescribirLas79(benchmark::State& state) {
    PlataformaDisco p;
    Juego juego(p);
    Form1& f = juego.form1;
    f.ConstruirTablero();
    PrepararPartida(juego);
    std::size_t letras = 0;
    for (auto _ : state) {
        for (int casilla = 0; casilla <= kUltimaCasilla; ++casilla) {
            f.CasillaCursor = casilla;
            f.DescribirCasilla();
            letras += f.Texto1().size();
        }
        benchmark::DoNotOptimize(letras);
    }
    state.counters["casillas"] =
        benchmark::Counter(79.0 * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(DescribirLas79)->Unit(benchmark::kMicrosecond);

void OpcionesIdaYVuelta(benchmark::State& state) {
    PlataformaDisco p;
    Juego juego(p);
    PrepararPartida(juego);
    Module1 leido;
    for (auto _ : state) {
        if (!GuardarOpciones(juego.m, p)) {
            state.SkipWithError("no se pudo guardar Sabelot.ini");
            break;
        }
        leido.NumJugadores = 0;
        LeerOpciones(leido, p, juego.canales);
        benchmark::DoNotOptimize(leido.NumJugadores);
    }
    if (leido.NumJugadores != juego.m.NumJugadores || leido.FicheroTema != juego.m.FicheroTema)
        state.SkipWithError("Sabelot.ini no vuelve igual");
}
BENCHMARK(OpcionesIdaYVuelta)->Unit(benchmark::kMicrosecond);

void PartidaIdaYVuelta(benchmark::State& state) {
    PlataformaDisco p;
    Juego juego(p);
    juego.form1.ConstruirTablero();
    PrepararPartida(juego);
    for (auto _ : state) {
        juego.form1.GuardarPartida();
        juego.form1.JugadorActual = 1;
        juego.form1.CargarPartida();
        benchmark::DoNotOptimize(juego.form1.JugadorActual);
    }
    if (p.avisos != 0 || juego.form1.JugadorActual != 3 || juego.m.Preguntas(6, 4) != 10)
        state.SkipWithError("la partida no vuelve igual");
}
BENCHMARK(PartidaIdaYVuelta)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace sabelot

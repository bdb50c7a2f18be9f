// La búsqueda de destinos en las 474 tiradas posibles (79 casillas por 6 caras), con un
// diálogo que pulsa siempre el primer botón y preguntas que no llegan a hacerse.
#include <benchmark/benchmark.h>

#include <cstdlib>

#include "engine/juego.h"

namespace sabelot {
namespace {

// Todo fichero existe y ninguno se abre: aquí no se mide el disco.
class FicherosQuietos : public SistemaFicheros {
public:
    bool Existe(const std::string&) override { return true; }
    bool EsCarpeta(const std::string&) override { return false; }
    std::vector<std::string> Listar(const std::string&, const std::string&) override { return {}; }
    std::unique_ptr<Fichero> Abrir(const std::string&, int& error) override {
        error = kErrorNoExiste;
        return nullptr;
    }
    std::unique_ptr<Fichero> CrearJunto(const std::string&, std::string&) override { return nullptr; }
    bool Protegido(const std::string&) override { return false; }
    bool CopiarPermisos(const std::string&, const std::string&) override { return false; }
    bool Renombrar(const std::string&, const std::string&) override { return false; }
    bool Borrar(const std::string&) override { return false; }
};

class PlataformaDestinos : public Plataforma {
public:
    double cara = 0.0;  // el próximo Rnd()
    long pitidos = 0;

    void Beep() override { ++pitidos; }
    void Reproducir(Reproductor, const std::string&) override {}
    void Hora(int& h, int& m, int& s) override { h = m = s = 1; }
    void Randomize(std::int64_t) override {}
    double Rnd() override { return cara; }
    std::string CarpetaPrograma() override { return "/no/importa"; }
    SistemaFicheros& Ficheros() override { return ficheros_; }
    [[noreturn]] void TerminarPrograma() override { std::abort(); }

protected:
    int CuadroMensaje(const std::string&, int, const std::string&) override { return vbOK; }
    std::string CuadroEntrada(const std::string&, const std::string&, const std::string&) override {
        return "";
    }
    void AbrirDialog(Dialog& d) override {
        d.Form_Load();
        d.Form_Activate();
        d.Command1_Click(d.Foco);
    }
    void AbrirDialog1(Dialog1& d) override { d.SinPregunta = true; }
    void AbrirDlgOpciones(DlgOpciones&) override {}
    void Decir(const std::string&, Anuncios::Lugar) override {}

private:
    FicherosQuietos ficheros_;
};

void BM_Destinos474(benchmark::State& state) {
    PlataformaDestinos p;
    Juego juego(p);
    Form1& f = juego.form1;
    f.ConstruirTablero();
    juego.m.NumJugadores = 1;
    juego.m.QuesitosParaGanar = 6;
    juego.m.DimensionarTablas(1);
    for (int t = 1; t <= kNumTemas; ++t) juego.m.FicheroTema[static_cast<std::size_t>(t)] = "tema";

    for (auto _ : state) {
        for (int casilla = 0; casilla <= kUltimaCasilla; ++casilla) {
            for (int dado = 1; dado <= 6; ++dado) {
                f.JugadorActual = 1;
                f.PosicionFicha[1] = casilla;
                p.cara = (dado - 1) / 6.0 + 0.01;
                f.ResolverTirada();
            }
        }
        benchmark::DoNotOptimize(juego.m.ListaValores);
    }
    state.counters["tiradas"] =
        benchmark::Counter(474.0 * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
    if (p.pitidos != 473L * static_cast<long>(state.iterations()))
        state.SkipWithError("la cuenta de pitidos no cuadra");
}
BENCHMARK(BM_Destinos474)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace sabelot

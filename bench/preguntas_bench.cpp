// El lector de preguntas sobre un fichero de 32.767 preguntas: sacar una con el mazo
// nuevo, sacar una con el 95 % ya usado (pasa por casi todo el fichero), la cuenta, y
// pasadas simples por el mismo fichero para comparar.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <string>

#include "comun/estado.h"
#include "comun/plataforma.h"
#include "plataforma_muda.h"
#include "questions/dialog1.h"
#include "questions/registro.h"
#include "storage/canales.h"

namespace fs = std::filesystem;

namespace sabelot {
namespace {

constexpr int kPreguntas = 32767;

void EscribirGrande(const fs::path& ruta) {
    std::ofstream f(ruta, std::ios::binary);
    f << "Fichero de prueba para medir\r\n\r\n";
    for (int i = 1; i <= kPreguntas; ++i) {
        f << "q>Pregunta n\xFAmero " << i << ": \xBF"
          << "cu\xE1l de estas respuestas es la buena?\r\n"
          << "1>La primera respuesta posible\r\n2>La segunda respuesta posible\r\n"
          << "3>La tercera respuesta posible\r\n4>La cuarta respuesta posible\r\na>" << (1 + i % 4)
          << "\r\n\r\n";
    }
}

// Carpeta del programa con el fichero grande; se borra al salir. Con SABELOT_FICHERO_GRANDE,
// una copia queda en esa ruta: tools/medir.sh pasa grep por ella como suelo.
struct Carpeta {
    fs::path ruta;
    Carpeta() {
        ruta = fs::temp_directory_path() / ("sabelot-medidas-" + std::to_string(std::random_device{}()));
        fs::create_directories(ruta / "preguntas");
        EscribirGrande(ruta / "preguntas" / "grande.qzf");
        if (const char* copia = std::getenv("SABELOT_FICHERO_GRANDE")) EscribirGrande(copia);
    }
    ~Carpeta() {
        std::error_code ec;
        fs::remove_all(ruta, ec);
    }
    std::string RutaFichero() const { return (ruta / "preguntas" / "grande.qzf").string(); }
};

const Carpeta& LaCarpeta() {
    static Carpeta c;
    return c;
}

class PlataformaMedida : public PlataformaMuda {
public:
    PlataformaMedida() { carpeta = LaCarpeta().ruta.string(); }
};

// Un tema que lee el fichero grande en el canal 1.
struct Lectura {
    PlataformaMedida p;
    Module1 m;
    Canales canales{p.Ficheros()};
    Dialog1 d{m, p, canales};
    Lectura() {
        m.FicheroTema[1] = "grande";
        m.CanalTema[1] = 1;
        d.NTema = 1;
    }
};

void SacarConMazoNuevo(benchmark::State& state) {
    Lectura l;
    l.d.ContarPreguntas();
    l.d.AbrirFichero(false, true);
    for (auto _ : state) {
        l.d.Titulo = "Pregunta de ";  // como al activar el diálogo: si no, el título crece
        l.d.LeerPregunta();
        l.m.CuentaMazo[1] += 1;
        benchmark::DoNotOptimize(l.d.Pregunta.data());
    }
}
BENCHMARK(SacarConMazoNuevo)->Unit(benchmark::kMicrosecond);

void SacarConMazoAl95(benchmark::State& state) {
    Lectura l;
    l.d.ContarPreguntas();
    l.d.AbrirFichero(false, false);
    // El 95 % sin llegar a la vuelta: 31.128 de 32.767 contestadas.
    const int usadas = kPreguntas * 95 / 100;
    for (int i = 0; i < usadas; ++i) {
        l.d.Titulo = "Pregunta de ";
        l.d.LeerPregunta();
        l.m.CuentaMazo[1] += 1;
    }
    for (auto _ : state) {
        state.PauseTiming();
        l.canales.Get(1)->IrA(1);  // desde arriba: todas las usadas por delante
        l.d.Titulo = "Pregunta de ";
        state.ResumeTiming();
        l.d.LeerPregunta();
        benchmark::DoNotOptimize(l.d.Pregunta.data());
    }
    state.counters["usadas"] = static_cast<double>(usadas);
}
// Cada vuelta gasta una de las 1.639 que quedan: un número fijo de vueltas.
BENCHMARK(SacarConMazoAl95)->Iterations(60)->Unit(benchmark::kMillisecond);

// Una pasada con std::getline por el mismo fichero, contando las "q>": la vara de medir de
// sacar con el mazo al 95 %, que no debe pasar del doble. Va a su lado para medirse igual.
void PasadaGetline(benchmark::State& state) {
    for (auto _ : state) {
        std::ifstream f(LaCarpeta().RutaFichero(), std::ios::binary);
        std::string linea;
        int n = 0;
        while (std::getline(f, linea)) {
            if (linea.size() >= 2 && (linea[0] == 'q' || linea[0] == 'Q') && linea[1] == '>') ++n;
        }
        benchmark::DoNotOptimize(n);
    }
}
BENCHMARK(PasadaGetline)->Unit(benchmark::kMillisecond);

void ContarPreguntas(benchmark::State& state) {
    Lectura l;
    for (auto _ : state) {
        l.d.ContarPreguntas();
        benchmark::DoNotOptimize(l.m.TotalMazo[1]);
    }
}
BENCHMARK(ContarPreguntas)->Unit(benchmark::kMillisecond);

// Una pasada con la misma capa de ficheros, solo contando las "q>".
void PasadaSimple(benchmark::State& state) {
    SistemaFicherosReal fs;
    for (auto _ : state) {
        int error = 0;
        auto f = fs.Abrir(LaCarpeta().RutaFichero(), error);
        std::string linea;
        int n = 0;
        while (f->LeerLinea(linea)) {
            if (linea.size() >= 2 && (linea[0] == 'q' || linea[0] == 'Q') && linea[1] == '>') ++n;
        }
        f->Cerrar();
        benchmark::DoNotOptimize(n);
    }
}
BENCHMARK(PasadaSimple)->Unit(benchmark::kMillisecond);

// Ficheros que no son de preguntas hechas a mano: una línea de 10 MB entre dos preguntas, y
// 1 GiB sin un solo salto de línea (disperso: no ocupa disco). Sacar una pregunta tiene que
// costar una pasada por el fichero y no más memoria que una línea; "memoria_kb" es lo que
// crece el pico del proceso.
long PicoKb() {
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    return uso.ru_maxrss;
}

void FicheroRaro(benchmark::State& state, const std::string& nombre,
                 const std::function<void(std::ofstream&)>& escribir, std::uintmax_t tamano) {
    const fs::path ruta = LaCarpeta().ruta / "preguntas" / (nombre + ".qzf");
    {
        std::ofstream f(ruta, std::ios::binary);
        escribir(f);
    }
    if (tamano) fs::resize_file(ruta, tamano);
    const long antes = PicoKb();
    for (auto _ : state) {
        PlataformaMedida p;
        Module1 m;
        Canales canales{p.Ficheros()};
        Dialog1 d{m, p, canales};
        m.FicheroTema[1] = nombre;
        m.CanalTema[1] = 1;
        d.NTema = 1;
        d.ContarPreguntas();
        d.AbrirFichero(false, false);
        d.LeerPregunta();
        benchmark::DoNotOptimize(d.Pregunta.data());
    }
    state.counters["memoria_kb"] = static_cast<double>(PicoKb() - antes);
    std::error_code ec;
    fs::remove(ruta, ec);
}

void LineaDe10Mb(benchmark::State& state) {
    FicheroRaro(
        state, "linea10mb",
        [](std::ofstream& f) {
            f << "q>" << std::string(10 * 1024 * 1024, 'x') << "\r\n1>a\r\na>1\r\n\r\n";
            f << "q>Buena\r\n1>a\r\na>1\r\n\r\n";
        },
        0);
}
BENCHMARK(LineaDe10Mb)->Unit(benchmark::kMillisecond);

void UnGibSinSaltos(benchmark::State& state) {
    FicheroRaro(
        state, "gib", [](std::ofstream& f) { f << "q>"; }, std::uintmax_t{1} << 30);
}
BENCHMARK(UnGibSinSaltos)->Iterations(3)->Unit(benchmark::kMillisecond);

// El mayor fichero que se abre, sin un salto de línea: se recorre entero en cada pasada y la
// memoria sigue sin pasar de una línea y el almacén de lectura.
void ElMayorSinSaltos(benchmark::State& state) {
    FicheroRaro(
        state, "mayor", [](std::ofstream& f) { f << "q>"; }, static_cast<std::uintmax_t>(kMaxFicheroQzf));
}
BENCHMARK(ElMayorSinSaltos)->Iterations(3)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace sabelot

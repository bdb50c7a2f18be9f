// Maratón de teclas al azar: el juego entero, sin ventanas, llevado por un generador con
// semilla (teclas del mapa y de fuera, modificadores, cuadros y diálogos contestados al azar,
// partidas guardadas buenas y rotas, opciones rotas). Tras cada paso se miran las reglas que
// el juego no puede romper; al primer fallo sale con la semilla y el paso para repetirlo.
//
//   maraton --segundos S --semilla N
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <random>
#include <string>

#include "apoyo/juego_prueba.h"
#include "apoyo/plataforma_guion.h"
#include "engine/juego.h"
#include "frontend/dialog.h"
#include "options/dlg_opciones.h"
#include "questions/dialog1.h"

namespace fs = std::filesystem;

namespace sabelot::prueba {
namespace {

// Un hallazgo: se lanza desde donde se ve y se recoge en main.
struct Hallazgo {
    std::string motivo;
};

const char* const kErrorCarga =
    "Se produjo un error al cargar el archivo. Indique otro nombre de archivo o pulse en cancelar";

// La plataforma con guion, pero contestada por el generador: nunca se queda sin guion.
class PlataformaMaraton : public PlataformaGuion {
public:
    explicit PlataformaMaraton(std::mt19937& azar) : g_(azar) {}

    // Respuestas fijadas para los próximos InputBox; si no hay, una al azar.
    std::deque<std::string> nombres;
    // Cuántos InputBox seguidos se contestan antes de cancelar (para no dar vueltas sin fin).
    int entradasSeguidas = 0;
    int ganadas = 0;
    bool jugarOtra = true;

    int Entero(int desde, int hasta) { return std::uniform_int_distribution<int>(desde, hasta)(g_); }
    bool Moneda(double p) { return std::bernoulli_distribution(p)(g_); }

    std::string NombreAlAzar() {
        static const char* const kNombres[] = {
            "",         "   ", "\"comillas\"", "año ñandú €", "a\x01\tb\r\n",
            "../fuera", "CON", "a/b\\c:d*e?",  "\xff\xfe\xc3" /* UTF-8 roto */};
        const int r = Entero(0, 11);
        if (r < 9) return kNombres[r];
        if (r == 9) return std::string(static_cast<std::size_t>(Entero(200, 5000)), 'x');
        if (r == 10) return "partida" + std::to_string(Entero(0, 3));
        std::string s(static_cast<std::size_t>(Entero(1, 20)), ' ');
        for (char& c : s) c = static_cast<char>(Entero(1, 255));
        return s;
    }

    int CuadroMensaje(const std::string& texto, int estilo, const std::string& titulo) override {
        if (texto == "Desea jugar otra partida?") {
            ++ganadas;
            siNo.push_back(jugarOtra ? vbYes : vbNo);
        } else if ((estilo & 7) == vbYesNo) {
            siNo.push_back(Moneda(0.5) ? vbYes : vbNo);
        }
        return PlataformaGuion::CuadroMensaje(texto, estilo, titulo);
    }

    std::string CuadroEntrada(const std::string& indicacion, const std::string& titulo,
                              const std::string& inicial) override {
        entradas.push_back({indicacion, titulo, inicial});
        if (!nombres.empty()) {
            std::string r = nombres.front();
            nombres.pop_front();
            return r;
        }
        return ++entradasSeguidas > 6 ? "" : NombreAlAzar();
    }

    void AbrirDialog(Dialog& d) override {
        d.Form_Load();
        d.Form_Activate();
        for (int vueltas = 0; d.Cargado; ++vueltas) {
            if (vueltas > 100) throw Hallazgo{"Dialog no se cierra tras 100 pulsaciones"};
            // A veces se cierra desde la barra de título.
            if (Moneda(0.05)) {
                if (!d.Form_QueryUnload()) d.Cargado = false;
                continue;
            }
            // Casi siempre un botón que se ve; a veces uno cualquiera (no debe hacer nada).
            d.Command1_Click(Moneda(0.1) ? Entero(-2, 8) : Entero(0, 6));
        }
    }

    void AbrirDialog1(Dialog1& d) override {
        d.Visible = true;
        d.Form_Activate();
        // Acertar más que fallar: así se ganan partidas.
        const bool acertar = Moneda(0.75);
        static const int kTeclas[] = {13, 32, 38, 40, 27, 9, 65, 0, 255};
        for (int vueltas = 0; d.Visible; ++vueltas) {
            if (vueltas > 200) throw Hallazgo{"Dialog1 no se cierra tras 200 teclas"};
            if (d.IndiceActual < 1 || d.IndiceActual > d.NumRespuestas())
                throw Hallazgo{"Dialog1: respuesta en pantalla fuera de la lista"};
            int k = 40;
            if (!acertar || d.IndiceActual == d.IndiceCorrecto || vueltas >= 50)
                k = Moneda(0.5) ? kTeclas[Entero(0, 8)] : 13;
            int ascii = k;
            d.Text2_KeyDown(k, Entero(0, 7));
            if (d.Visible) d.Text2_KeyPress(ascii);
        }
    }

    void AbrirDlgOpciones(DlgOpciones& d) override {
        using C = ControlOpciones;
        d.Mostrar();
        static const C kListas[] = {C::List1_0, C::List1_1, C::List2_0, C::List2_1, C::List2_2};
        static const int kTeclas[] = {37, 38, 39, 40, 33, 34, 35, 36, 13, 27, 9, 32, 113, 65, 0};
        for (int i = Entero(0, 30); i > 0 && d.Visible; --i) {
            const C c = kListas[Entero(0, 4)];
            const int r = Entero(0, 3);
            if (r == 0)
                d.CambiarFoco(c);
            else if (r == 1)
                d.ElegirEntrada(c, Entero(-1, 12));
            else
                d.Tecla(c, kTeclas[Entero(0, 14)], Entero(0, 7));
        }
        for (int vueltas = 0; d.Visible; ++vueltas) {
            if (vueltas > 50) throw Hallazgo{"DlgOpciones no se cierra"};
            const int r = Entero(0, 9);
            if (r < 6)
                d.Pulsar(C::OKButton);
            else if (r < 9)
                d.Pulsar(C::CancelButton);
            else
                d.Descargar();
            // Aceptar sin ficheros para todo deja el diálogo abierto: se cancela.
            if (d.Visible && vueltas > 3) d.Pulsar(C::CancelButton);
        }
    }

private:
    std::mt19937& g_;
};

class Maraton {
public:
    Maraton(std::uint32_t semilla, double segundos) : semilla_(semilla), segundos_(segundos), g_(semilla) {}
    int Correr();

private:
    std::uint32_t semilla_;
    double segundos_;
    std::mt19937 g_;
    std::unique_ptr<PlataformaMaraton> p_;
    std::unique_ptr<Juego> j_;
    std::string iniBueno_, partidaBuena_;
    long paso_ = 0, sesiones_ = 0, guardadas_ = 0, rotasRechazadas_ = 0;
    int ganadas_ = 0;

    int Entero(int desde, int hasta) { return std::uniform_int_distribution<int>(desde, hasta)(g_); }
    bool Moneda(double p) { return std::bernoulli_distribution(p)(g_); }
    Form1& f() { return j_->form1; }
    int Mods() { return Moneda(0.8) ? 0 : Entero(0, 7); }

    void Preparar() {
        if (p_) ganadas_ += p_->ganadas;
        p_ = std::make_unique<PlataformaMaraton>(g_);
        const CarpetaTemporal& c = p_->carpeta;
        c.CrearCarpeta("preguntas");
        if (Moneda(0.5)) {
            // Los ficheros que se dan con el juego.
            const fs::path datos(SABELOT_DATOS), aqui(c.Ruta());
            for (const auto& e : fs::directory_iterator(datos / "preguntas"))
                fs::copy_file(e.path(), aqui / "preguntas" / e.path().filename(),
                              fs::copy_options::overwrite_existing);
            fs::copy_file(datos / "Sabelot.ini", aqui / "Sabelot.ini", fs::copy_options::overwrite_existing);
        } else {
            PonerDatosMinimos(c, Entero(1, 6), Entero(1, 6));
        }
        iniBueno_ = c.Leer("Sabelot.ini");
    }

    void NuevaSesion() {
        ++sesiones_;
        j_.reset();
        p_->siNo.clear();
        p_->nombres.clear();
        p_->hora = Entero(0, 23);
        p_->minuto = Entero(0, 59);
        p_->segundo = Entero(0, 59);
        // A veces arranca con unas opciones rotas, o sin ellas.
        const int r = Entero(0, 9);
        if (r == 1)
            fs::remove(fs::path(p_->carpeta.Ruta()) / "Sabelot.ini");
        else
            p_->carpeta.Escribir("Sabelot.ini", r == 0 ? Estropear(iniBueno_) : iniBueno_);
        j_ = std::make_unique<Juego>(*p_);
        f().Form_Load();
        Comprobar("arranque");
    }

    // Unos pocos cambios al azar: cortar, cambiar un bit, meter un trozo que confunde al lector
    // o poner un número cualquiera en lugar de un dígito.
    std::string Estropear(std::string b) {
        static const char* const kTrozos[] = {"\"",   ",",  "\r\n", "-", "99999999999", "#TRUE#", "\x1a",
                                              "\xff", "\n", "0",    "7"};
        for (int v = Entero(1, 4); v > 0; --v) {
            const auto i = static_cast<std::size_t>(Entero(0, static_cast<int>(b.size())));
            const int r = Entero(0, 3);
            if (r == 0) {
                b.resize(i);
            } else if (r == 1 && i < b.size()) {
                b[i] = static_cast<char>(b[i] ^ (1 << Entero(0, 7)));
            } else if (r == 2 || i == b.size()) {
                const int t = Entero(0, 11);
                b.insert(i, t == 11 ? std::string(1, '\0') : std::string(kTrozos[t]));
            } else if (b[i] >= '0' && b[i] <= '9') {
                b.replace(i, 1, std::to_string(Entero(-40, 200)));
            } else {
                b.erase(i, static_cast<std::size_t>(Entero(1, 10)));
            }
        }
        return b;
    }

    void Tecla(int codigo, int shift) {
        const std::size_t antes = p_->sonidos.size();
        f().Form_KeyDown(codigo, shift);
        bool suena = false;
        for (std::size_t i = antes; i < p_->sonidos.size(); ++i)
            suena |= p_->sonidos[i].first == Reproductor::MediaPlayer1;
        // El dado suena: casi siempre se deja terminar, a veces se pulsa algo más antes.
        if (suena && Moneda(0.9)) {
            if (Moneda(0.1)) f().MediaPlayer1_PlayStateChange(Entero(1, 3));
            f().MediaPlayer1_PlayStateChange(0);
        }
    }

    void GuardarYCargar() {
        // Guardar con un nombre bueno y volver a cargar: la misma partida.
        const std::string nombre = "buena" + std::to_string(Entero(0, 2));
        const std::string antes = Foto(*j_);
        p_->nombres = {nombre, ""};
        f().PonerTexto1("");
        if (Moneda(0.5))
            Tecla(vbKeyF3, Moneda(0.8) ? 0 : Entero(1, 7));
        else
            Tecla(vbKeyG, vbCtrlMask | Mods());
        if (Foto(*j_) != antes) throw Hallazgo{"guardar cambió la partida"};
        if (f().Texto1() != "PARTIDA GUARDADA") {
            if (!p_->nombres.empty()) throw Hallazgo{"guardar no preguntó el nombre"};
            return;
        }
        ++guardadas_;
        partidaBuena_ = p_->carpeta.Leer(nombre + ".sav");
        p_->nombres = {nombre, ""};
        Tecla(vbKeyF4, 0);
        // Si cargó, el segundo nombre (cancelar) no se ha gastado.
        if (p_->nombres.empty()) throw Hallazgo{"la partida recién guardada no carga"};
        p_->nombres.clear();
        const std::string despues = Foto(*j_);
        if (despues != antes)
            throw Hallazgo{"guardar y cargar no da la misma partida:\n  antes:   " + antes +
                           "\n  después: " + despues};
        if (f().CasillaCursor != f().PosicionFicha[static_cast<std::size_t>(f().JugadorActual)])
            throw Hallazgo{"tras cargar, el cursor no está en la ficha del jugador del turno"};
    }

    void CargarRota() {
        if (partidaBuena_.empty()) return;
        // Una de cada diez va entera: también tiene que cargar.
        const bool entera = Moneda(0.1);
        p_->carpeta.Escribir("rota.sav", entera ? partidaBuena_ : Estropear(partidaBuena_));
        const std::string antes = Foto(*j_);
        const int cursor = f().CasillaCursor;
        p_->nombres = {"rota", ""};
        p_->mensajes.clear();
        f().PonerTexto1("");
        if (Moneda(0.5))
            Tecla(vbKeyF4, 0);
        else
            Tecla(vbKeyA, vbCtrlMask | Mods());
        const bool cargada = !p_->nombres.empty();
        p_->nombres.clear();
        const bool rechazada =
            std::any_of(p_->mensajes.begin(), p_->mensajes.end(),
                        [](const PlataformaGuion::Mensaje& m) { return m.texto == kErrorCarga; });
        if (rechazada) {
            ++rotasRechazadas_;
            const std::string despues = Foto(*j_);
            if (despues != antes || f().CasillaCursor != cursor)
                throw Hallazgo{"una partida rota cambió la que se jugaba:\n  antes:   " + antes +
                               "\n  después: " + despues};
        } else if (!cargada) {
            throw Hallazgo{"cargar una partida ni cargó ni avisó"};
        }
        if (entera && !cargada) throw Hallazgo{"una partida bien guardada no carga"};
    }

    void Comprobar(const char* donde) {
        const std::string rota = InvarianteRota(*j_);
        if (!rota.empty()) throw Hallazgo{std::string(donde) + ": " + rota + "\n  " + Foto(*j_)};
    }

    void Paso() {
        // Lo apuntado no se mira de un paso a otro: que no crezca sin fin.
        p_->mensajes.clear();
        p_->entradas.clear();
        p_->dichos.clear();
        p_->sonidos.clear();
        p_->entradasSeguidas = 0;
        p_->jugarOtra = Moneda(0.8);
        const int r = Entero(0, 999);
        if (r < 15) {
            GuardarYCargar();
        } else if (r < 25) {
            CargarRota();
        } else if (r < 27) {
            NuevaSesion();  // cerrar y volver a abrir
            return;
        } else if (r < 33) {
            // Control O: el diálogo de opciones, aceptado o cancelado al azar.
            Tecla(vbKeyO, vbCtrlMask | Mods());
        } else if (r < 36) {
            // Unas opciones rotas para el próximo arranque, o para Control O.
            p_->carpeta.Escribir("Sabelot.ini", Estropear(iniBueno_));
        } else {
            static const int kMapa[] = {13, 32, 35, 36, 37, 38,  39,  40,  46,  49, 50, 51, 52, 53, 54,  65,
                                        68, 69, 71, 79, 86, 112, 113, 114, 115, 27, 9,  8,  48, 55, 116, 123};
            const int q = Entero(0, 99);
            int codigo = q < 40   ? 37 + Entero(0, 3)        // cursores, lo más común
                         : q < 65 ? (Moneda(0.5) ? 32 : 13)  // el dado
                         : q < 95 ? kMapa[Entero(0, 31)]
                                  : Entero(-5, 300);  // cualquier código
            int shift = Moneda(0.2) ? Entero(1, 7) : 0;
            if (codigo == vbKeyO && shift == 0 && Moneda(0.02))
                shift = vbCtrlMask;  // opciones, de tarde en tarde
            if (codigo == vbKeyO && (shift & vbCtrlMask) && Moneda(0.7)) shift = 0;
            Tecla(codigo, shift);
        }
        Comprobar("tras el paso");
    }
};

int Maraton::Correr() {
    std::printf("maratón: semilla %u, %.0f s\n", semilla_, segundos_);
    std::fflush(stdout);
    const auto inicio = std::chrono::steady_clock::now();
    std::string hallazgo;
    try {
        Preparar();
        NuevaSesion();
        while (std::chrono::duration<double>(std::chrono::steady_clock::now() - inicio).count() < segundos_) {
            ++paso_;
            try {
                Paso();
            } catch (const ProgramaTerminado&) {
                NuevaSesion();  // el jugador cerró el juego: se vuelve a abrir
            }
            // De tarde en tarde, otra carpeta con otros datos.
            if (paso_ % 20000 == 0) {
                j_.reset();
                Preparar();
                NuevaSesion();
            }
        }
    } catch (const Hallazgo& h) {
        hallazgo = h.motivo;
    } catch (const ProgramaTerminado&) {
        hallazgo = "el juego terminó al arrancar";
    } catch (const std::exception& e) {
        hallazgo = std::string("excepción ") + e.what();
    }
    if (!hallazgo.empty())
        std::printf("HALLAZGO (semilla %u, paso %ld): %s\n", semilla_, paso_, hallazgo.c_str());
    std::printf(
        "pasos: %ld  sesiones: %ld  partidas ganadas: %d  guardadas: %ld  rotas rechazadas: %ld  semilla: "
        "%u\n",
        paso_, sesiones_, ganadas_ + (p_ ? p_->ganadas : 0), guardadas_, rotasRechazadas_, semilla_);
    return hallazgo.empty() ? 0 : 1;
}

}  // namespace
}  // namespace sabelot::prueba

int main(int argc, char** argv) {
    double segundos = 30;
    std::uint32_t semilla = std::random_device{}();
    for (int i = 1; i < argc; i += 2) {
        const std::string a = argv[i];
        if (a == "--segundos" && i + 1 < argc)
            segundos = std::atof(argv[i + 1]);
        else if (a == "--semilla" && i + 1 < argc)
            semilla = static_cast<std::uint32_t>(std::strtoul(argv[i + 1], nullptr, 10));
        else
            return std::fprintf(stderr, "uso: %s --segundos S --semilla N\n", argv[0]), 2;
    }
    return sabelot::prueba::Maraton(semilla, segundos).Correr();
}

// Maratón de teclas al azar: el juego entero, sin ventanas, llevado por un generador con
// semilla (teclas del mapa y de fuera, modificadores, cuadros y diálogos contestados al azar,
// partidas guardadas buenas y rotas, opciones rotas). Tras cada paso se miran las reglas que
// el juego no puede romper; al primer fallo sale con la semilla y el paso para repetirlo.
//
//   maraton --segundos S --semilla N
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "apoyo/juego_prueba.h"
#include "apoyo/plataforma_guion.h"
#include "comun/teclas.h"
#include "engine/juego.h"
#include "frontend/dialog.h"
#include "options/dlg_opciones.h"
#include "questions/dialog1.h"
#include "storage/cp1252.h"

namespace fs = std::filesystem;

namespace sabelot::prueba {
namespace {

// Un hallazgo: se lanza desde donde se ve y se recoge en main.
struct Hallazgo {
    std::string motivo;
};

const char* const kErrorCarga =
    "Se produjo un error al cargar el archivo. Indique otro nombre de archivo o pulse en cancelar";
const char* const kOtraPartida = "Desea jugar otra partida?";

// Lo que cuenta de una partida: lo que se guarda y lo que se ve.
struct Foto {
    int NumJugadores = 0, QuesitosParaGanar = 0, JugadorActual = 0;
    std::array<std::string, 7> FicheroTema{}, EtiquetaTema{};
    std::array<int, 7> CanalTema{}, PosicionFicha{};
    std::vector<int> NumQuesitos, Preguntas, Aciertos;
    std::vector<bool> QuesitoGanado;
    int CasillaCursor = 0, RumboCentro = 0;

    bool operator==(const Foto& o) const {
        return NumJugadores == o.NumJugadores && QuesitosParaGanar == o.QuesitosParaGanar &&
               JugadorActual == o.JugadorActual && FicheroTema == o.FicheroTema &&
               EtiquetaTema == o.EtiquetaTema && CanalTema == o.CanalTema &&
               PosicionFicha == o.PosicionFicha && NumQuesitos == o.NumQuesitos &&
               Preguntas == o.Preguntas && Aciertos == o.Aciertos && QuesitoGanado == o.QuesitoGanado;
    }
};

Foto Fotografiar(Juego& j) {
    Foto f;
    Module1& m = j.m;
    f.NumJugadores = m.NumJugadores;
    f.QuesitosParaGanar = m.QuesitosParaGanar;
    f.JugadorActual = j.form1.JugadorActual;
    f.FicheroTema = m.FicheroTema;
    f.EtiquetaTema = m.EtiquetaTema;
    f.CanalTema = m.CanalTema;
    f.PosicionFicha = j.form1.PosicionFicha;
    f.CasillaCursor = j.form1.CasillaCursor;
    f.RumboCentro = j.form1.RumboCentro;
    for (int p = 1; p <= m.NumQuesitos.Limite(); ++p) f.NumQuesitos.push_back(m.NumQuesitos(p));
    for (int p = 1; p <= m.Preguntas.Jugadores(); ++p)
        for (int t = 1; t <= kNumTemas; ++t) {
            f.Preguntas.push_back(m.Preguntas(t, p));
            if (p <= m.Aciertos.Jugadores()) f.Aciertos.push_back(m.Aciertos(t, p));
            if (p <= m.QuesitoGanado.Jugadores()) f.QuesitoGanado.push_back(m.QuesitoGanado(t, p));
        }
    return f;
}

std::string Describir(const Foto& f) {
    std::ostringstream s;
    s << "jugadores=" << f.NumJugadores << " quesitos=" << f.QuesitosParaGanar
      << " turno=" << f.JugadorActual << " fichas=";
    for (int i = 1; i <= 6; ++i) s << f.PosicionFicha[static_cast<std::size_t>(i)] << ' ';
    s << "etiquetas=";
    for (int i = 1; i <= 6; ++i) s << '[' << f.EtiquetaTema[static_cast<std::size_t>(i)] << ']';
    s << " preguntas=";
    for (int v : f.Preguntas) s << v << ' ';
    s << "aciertos=";
    for (int v : f.Aciertos) s << v << ' ';
    return s.str();
}

// La plataforma con guion, pero contestada por el generador: nunca se queda sin guion.
class PlataformaMaraton : public PlataformaGuion {
public:
    explicit PlataformaMaraton(std::mt19937& azar) : g_(azar) {}

    // Respuestas fijadas para el próximo InputBox; si no hay, una al azar.
    std::deque<std::string> nombres;
    // Cuántos InputBox seguidos se contestan antes de cancelar (para no dar vueltas sin fin).
    int entradasSeguidas = 0;
    int ganadas = 0;
    bool jugarOtra = true;

    int Entero(int desde, int hasta) { return std::uniform_int_distribution<int>(desde, hasta)(g_); }
    bool Moneda(double p) { return std::bernoulli_distribution(p)(g_); }

    std::string NombreAlAzar() {
        switch (Entero(0, 11)) {
            case 0: return "";
            case 1: return "   ";
            case 2: return std::string(static_cast<std::size_t>(Entero(200, 5000)), 'x');
            case 3: return "\"comillas\"";
            case 4: return "año ñandú €";
            case 5: return std::string("a\x01\tb\r\n", 6);
            case 6: return "../fuera";
            case 7: return "CON";
            case 8: return "a/b\\c:d*e?";
            case 9: return std::string("\xff\xfe\xc3", 3);  // UTF-8 roto
            case 10: return "partida" + std::to_string(Entero(0, 3));
            default: {
                std::string s;
                const int n = Entero(1, 20);
                for (int i = 0; i < n; ++i) s += static_cast<char>(Entero(1, 255));
                return s;
            }
        }
    }

    int CuadroMensaje(const std::string& texto, int estilo, const std::string& titulo) override {
        if (mensajes.size() > 200) mensajes.erase(mensajes.begin(), mensajes.begin() + 100);
        if (texto == kOtraPartida) {
            ++ganadas;
            siNo.push_back(jugarOtra ? vbYes : vbNo);
        } else if ((estilo & 7) == vbYesNo) {
            siNo.push_back(Moneda(0.5) ? vbYes : vbNo);
        }
        return PlataformaGuion::CuadroMensaje(texto, estilo, titulo);
    }

    std::string CuadroEntrada(const std::string& indicacion, const std::string& titulo,
                         const std::string& inicial) override {
        if (entradas.size() > 200) entradas.clear();
        entradas.push_back({indicacion, titulo, inicial});
        if (!nombres.empty()) {
            std::string r = nombres.front();
            nombres.pop_front();
            return r;
        }
        if (++entradasSeguidas > 6) return "";
        return NombreAlAzar();
    }

    void Decir(const std::string& texto, Anuncios::Lugar lugar) override {
        if (dichos.size() > 200) dichos.erase(dichos.begin(), dichos.begin() + 100);
        PlataformaGuion::Decir(texto, lugar);
    }

    void AbrirDialog(Dialog& d) override {
        ++dialogosMostrados;
        d.Form_Load();
        d.Form_Activate();
        for (int vueltas = 0; d.Cargado; ++vueltas) {
            if (vueltas > 100) throw Hallazgo{"Dialog no se cierra tras 100 pulsaciones"};
            if (Moneda(0.05)) {
                // Cierre desde la barra de título.
                if (!d.Form_QueryUnload()) d.Cargado = false;
                continue;
            }
            // Casi siempre un botón que se ve; a veces uno cualquiera (no debe hacer nada).
            d.Command1_Click(Moneda(0.1) ? Entero(-2, 8) : Entero(0, 6));
        }
    }

    void AbrirDialog1(Dialog1& d) override {
        ++dialogos1Mostrados;
        d.Visible = true;
        d.Form_Activate();
        // Acertar más que fallar: así se ganan partidas.
        const bool acertar = Moneda(0.75);
        for (int vueltas = 0; d.Visible; ++vueltas) {
            if (vueltas > 200) throw Hallazgo{"Dialog1 no se cierra tras 200 teclas"};
            if (d.IndiceActual < 1 || d.IndiceActual > d.NumRespuestas())
                throw Hallazgo{"Dialog1: respuesta en pantalla fuera de la lista"};
            int k;
            if (acertar && d.IndiceActual != d.IndiceCorrecto && vueltas < 50) {
                k = 40;
            } else {
                static const int kTeclas[] = {13, 32, 38, 40, 27, 9, 65, 0, 255};
                k = Moneda(0.5) ? kTeclas[Entero(0, 8)] : 13;
            }
            int ascii = k;
            d.Text2_KeyDown(k, Entero(0, 7));
            if (d.Visible) d.Text2_KeyPress(ascii);
        }
    }

    void AbrirDlgOpciones(DlgOpciones& d) override {
        ++opcionesMostradas;
        using C = ControlOpciones;
        d.Mostrar();
        static const C kListas[] = {C::List1_0, C::List1_1, C::List2_0, C::List2_1, C::List2_2};
        static const int kTeclas[] = {37, 38, 39, 40, 33, 34, 35, 36, 13, 27, 9, 32, 113, 65, 0};
        const int n = Entero(0, 30);
        for (int i = 0; i < n && d.Visible; ++i) {
            const C c = kListas[Entero(0, 4)];
            switch (Entero(0, 3)) {
                case 0: d.CambiarFoco(c); break;
                case 1: d.ElegirEntrada(c, Entero(-1, 12)); break;
                default: d.Tecla(c, kTeclas[Entero(0, 14)], Entero(0, 7)); break;
            }
        }
        for (int vueltas = 0; d.Visible; ++vueltas) {
            if (vueltas > 50) throw Hallazgo{"DlgOpciones no se cierra"};
            const int r = Entero(0, 9);
            if (r < 6) d.Pulsar(C::OKButton);
            else if (r < 9) d.Pulsar(C::CancelButton);
            else d.Descargar();
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
    std::string iniBueno_;
    std::string partidaBuena_;
    long paso_ = 0, sesiones_ = 0, guardadas_ = 0, cargadas_ = 0, rotasRechazadas_ = 0, rotasAceptadas_ = 0,
         iniRotos_ = 0;
    int ganadas_ = 0;

    int Entero(int desde, int hasta) { return std::uniform_int_distribution<int>(desde, hasta)(g_); }
    bool Moneda(double p) { return std::bernoulli_distribution(p)(g_); }
    Form1& f() { return j_->form1; }
    Module1& m() { return j_->m; }

    void Preparar();
    void NuevaSesion();
    void Paso();
    void Tecla(int codigo, int shift);
    void GuardarYCargar();
    void CargarRota();
    std::string Estropear(std::string bytes);
    void Comprobar(const char* donde);
    [[noreturn]] void Fallo(const std::string& motivo);
};

void Maraton::Fallo(const std::string& motivo) { throw Hallazgo{motivo}; }

void Maraton::Preparar() {
    if (p_) ganadas_ += p_->ganadas;
    p_ = std::make_unique<PlataformaMaraton>(g_);
    const CarpetaTemporal& c = p_->carpeta;
    c.CrearCarpeta("preguntas");
    if (Moneda(0.5)) {
        // Los ficheros que se dan con el juego.
        for (const auto& e : fs::directory_iterator(fs::path(SABELOT_DATOS) / "preguntas"))
            fs::copy_file(e.path(), fs::path(c.Ruta()) / "preguntas" / e.path().filename(),
                          fs::copy_options::overwrite_existing);
        fs::copy_file(fs::path(SABELOT_DATOS) / "Sabelot.ini", fs::path(c.Ruta()) / "Sabelot.ini",
                      fs::copy_options::overwrite_existing);
    } else {
        PonerDatosMinimos(c, Entero(1, 6), Entero(1, 6));
    }
    iniBueno_ = c.Leer("Sabelot.ini");
}

void Maraton::NuevaSesion() {
    ++sesiones_;
    j_.reset();
    p_->siNo.clear();
    p_->nombres.clear();
    p_->hora = Entero(0, 23);
    p_->minuto = Entero(0, 59);
    p_->segundo = Entero(0, 59);
    // A veces arranca con unas opciones rotas, o sin ellas.
    const int r = Entero(0, 9);
    if (r == 0) {
        p_->carpeta.Escribir("Sabelot.ini", Estropear(iniBueno_));
        ++iniRotos_;
    } else if (r == 1) {
        fs::remove(fs::path(p_->carpeta.Ruta()) / "Sabelot.ini");
    } else {
        p_->carpeta.Escribir("Sabelot.ini", iniBueno_);
    }
    j_ = std::make_unique<Juego>(*p_);
    f().Form_Load();
    Comprobar("arranque");
}

std::string Maraton::Estropear(std::string b) {
    const int veces = Entero(1, 4);
    for (int v = 0; v < veces; ++v) {
        switch (Entero(0, 5)) {
            case 0:
                if (!b.empty()) b.resize(static_cast<std::size_t>(Entero(0, static_cast<int>(b.size()) - 1)));
                break;
            case 1:
                if (!b.empty()) {
                    const auto i = static_cast<std::size_t>(Entero(0, static_cast<int>(b.size()) - 1));
                    b[i] = static_cast<char>(b[i] ^ (1 << Entero(0, 7)));
                }
                break;
            case 2: {
                static const char* const kTrozos[] = {"\"", ",", "\r\n", "-", "99999999999", "#TRUE#",
                                                      "\x1a", "\0", "\xff", "\n", "0", "7"};
                const auto i = static_cast<std::size_t>(Entero(0, static_cast<int>(b.size())));
                const char* t = kTrozos[Entero(0, 11)];
                b.insert(i, t[0] ? std::string(t) : std::string(1, '\0'));
                break;
            }
            case 3:
                if (!b.empty()) {
                    const auto i = static_cast<std::size_t>(Entero(0, static_cast<int>(b.size()) - 1));
                    b.erase(i, static_cast<std::size_t>(Entero(1, 10)));
                }
                break;
            case 4: b += b.substr(0, b.size() / 2); break;
            default: {
                // Un número cualquiera en lugar de un dígito.
                for (std::size_t i = 0; i < b.size(); ++i) {
                    if (b[i] >= '0' && b[i] <= '9' && Moneda(0.2)) {
                        b.replace(i, 1, std::to_string(Entero(-40, 200)));
                        break;
                    }
                }
                break;
            }
        }
    }
    return b;
}

void Maraton::Tecla(int codigo, int shift) {
    const std::size_t antes = p_->sonidos.size();
    f().Form_KeyDown(codigo, shift);
    // El dado suena: casi siempre se deja terminar, a veces se pulsa algo más antes.
    bool suena = false;
    for (std::size_t i = antes; i < p_->sonidos.size(); ++i)
        if (p_->sonidos[i].first == Reproductor::MediaPlayer1) suena = true;
    if (p_->sonidos.size() > 200) p_->sonidos.clear();
    if (suena && Moneda(0.9)) {
        if (Moneda(0.1)) f().MediaPlayer1_PlayStateChange(Entero(1, 3));
        f().MediaPlayer1_PlayStateChange(0);
    }
}

void Maraton::GuardarYCargar() {
    // Guardar con un nombre bueno y volver a cargar: la misma partida.
    const std::string nombre = "buena" + std::to_string(Entero(0, 2));
    const Foto antes = Fotografiar(*j_);
    p_->nombres = {nombre, ""};
    f().PonerTexto1("");
    if (Moneda(0.5)) Tecla(vbKeyF3, Moneda(0.8) ? 0 : Entero(1, 7));
    else Tecla(vbKeyG, vbCtrlMask | (Moneda(0.8) ? 0 : Entero(0, 7)));
    if (!(Fotografiar(*j_) == antes)) Fallo("guardar cambió la partida");
    if (f().Texto1() != "PARTIDA GUARDADA") {
        if (!p_->nombres.empty()) Fallo("guardar no preguntó el nombre");
        p_->nombres.clear();
        return;
    }
    ++guardadas_;
    partidaBuena_ = p_->carpeta.Leer(nombre + ".sav");
    p_->nombres = {nombre, ""};
    Tecla(vbKeyF4, 0);
    // Si cargó, el segundo nombre (cancelar) no se ha gastado.
    if (p_->nombres.empty()) Fallo("la partida recién guardada no carga");
    p_->nombres.clear();
    ++cargadas_;
    const Foto despues = Fotografiar(*j_);
    if (!(despues == antes))
        Fallo("guardar y cargar no da la misma partida:\n  antes:   " + Describir(antes) +
              "\n  después: " + Describir(despues));
    if (f().CasillaCursor != f().PosicionFicha[static_cast<std::size_t>(f().JugadorActual)])
        Fallo("tras cargar, el cursor no está en la ficha del jugador del turno");
}

void Maraton::CargarRota() {
    if (partidaBuena_.empty()) return;
    // Una de cada diez va entera: también tiene que cargar.
    const bool entera = Moneda(0.1);
    p_->carpeta.Escribir("rota.sav", entera ? partidaBuena_ : Estropear(partidaBuena_));
    const Foto antes = Fotografiar(*j_);
    p_->nombres = {"rota", ""};
    p_->mensajes.clear();
    f().PonerTexto1("");
    if (Moneda(0.5)) Tecla(vbKeyF4, 0);
    else Tecla(vbKeyA, vbCtrlMask | (Moneda(0.8) ? 0 : Entero(0, 7)));
    const bool cargada = !p_->nombres.empty();
    p_->nombres.clear();
    bool rechazada = false;
    for (const auto& mm : p_->mensajes)
        if (mm.texto == kErrorCarga) rechazada = true;
    if (rechazada) {
        ++rotasRechazadas_;
        const Foto despues = Fotografiar(*j_);
        if (!(despues == antes) || despues.CasillaCursor != antes.CasillaCursor)
            Fallo("una partida rota cambió la que se jugaba:\n  antes:   " + Describir(antes) +
                  "\n  después: " + Describir(despues));
    } else if (cargada) {
        if (!entera) ++rotasAceptadas_;
    } else {
        Fallo("cargar una partida ni cargó ni avisó");
    }
    if (entera && !cargada) Fallo("una partida bien guardada no carga");
}

void Maraton::Comprobar(const char* donde) {
    Module1& mm = m();
    Form1& ff = f();
    auto mal = [&](const std::string& que) { Fallo(std::string(donde) + ": " + que); };
    const int n = mm.NumJugadores;
    if (n < 1 || n > kMaxJugadores) mal("NumJugadores=" + std::to_string(n));
    if (mm.QuesitosParaGanar < 0 || mm.QuesitosParaGanar > kNumTemas)
        mal("QuesitosParaGanar=" + std::to_string(mm.QuesitosParaGanar));
    if (mm.Preguntas.Jugadores() != n || mm.Aciertos.Jugadores() != n || mm.QuesitoGanado.Jugadores() != n ||
        mm.NumQuesitos.Limite() != n)
        mal("tablas de " + std::to_string(mm.Preguntas.Jugadores()) + "/" +
            std::to_string(mm.Aciertos.Jugadores()) + "/" + std::to_string(mm.QuesitoGanado.Jugadores()) +
            "/" + std::to_string(mm.NumQuesitos.Limite()) + " para " + std::to_string(n) + " jugadores");
    if (ff.JugadorActual < 1 || ff.JugadorActual > n) mal("JugadorActual=" + std::to_string(ff.JugadorActual));
    for (int i = 1; i <= kMaxJugadores; ++i) {
        const int pos = ff.PosicionFicha[static_cast<std::size_t>(i)];
        if (pos < 0 || pos > kUltimaCasilla) mal("PosicionFicha(" + std::to_string(i) + ")=" + std::to_string(pos));
    }
    if (ff.CasillaCursor < 0 || ff.CasillaCursor > kUltimaCasilla)
        mal("CasillaCursor=" + std::to_string(ff.CasillaCursor));
    if (ff.CasillaPrevia < 0 || ff.CasillaPrevia > kUltimaCasilla)
        mal("CasillaPrevia=" + std::to_string(ff.CasillaPrevia));
    if (ff.RumboCentro < 1 || ff.RumboCentro > 6) mal("RumboCentro=" + std::to_string(ff.RumboCentro));
    if (ff.ValorDado < 0 || ff.ValorDado > 6) mal("ValorDado=" + std::to_string(ff.ValorDado));
    if (ff.CaminosPendientes < 0) mal("CaminosPendientes=" + std::to_string(ff.CaminosPendientes));
    for (int j = 1; j <= n; ++j) {
        int ganados = 0;
        for (int t = 1; t <= kNumTemas; ++t) {
            const int a = mm.Aciertos(t, j), q = mm.Preguntas(t, j);
            if (a < 0 || q < a)
                mal("Aciertos/Preguntas(" + std::to_string(t) + "," + std::to_string(j) + ")=" +
                    std::to_string(a) + "/" + std::to_string(q));
            if (mm.QuesitoGanado(t, j)) ++ganados;
        }
        if (mm.NumQuesitos(j) != ganados)
            mal("NumQuesitos(" + std::to_string(j) + ")=" + std::to_string(mm.NumQuesitos(j)) + " con " +
                std::to_string(ganados) + " quesitos ganados");
        if (ganados > kNumTemas) mal("más de seis quesitos");
    }
    for (int t = 1; t <= kNumTemas; ++t) {
        const auto tt = static_cast<std::size_t>(t);
        if (mm.CuentaMazo[tt] < 0 || mm.TotalMazo[tt] < 0)
            mal("mazo " + std::to_string(t) + ": " + std::to_string(mm.CuentaMazo[tt]) + " de " +
                std::to_string(mm.TotalMazo[tt]));
    }
}

void Maraton::Paso() {
    p_->entradasSeguidas = 0;
    p_->jugarOtra = Moneda(0.8);
    const int r = Entero(0, 999);
    if (r < 15) {
        GuardarYCargar();
    } else if (r < 25) {
        CargarRota();
    } else if (r < 27) {
        // Cerrar y volver a abrir.
        NuevaSesion();
        return;
    } else if (r < 33) {
        // Control O: el diálogo de opciones, aceptado o cancelado al azar.
        Tecla(vbKeyO, vbCtrlMask | (Moneda(0.8) ? 0 : Entero(0, 7)));
    } else if (r < 36) {
        // Unas opciones rotas para el próximo arranque, o para Control O.
        p_->carpeta.Escribir("Sabelot.ini", Estropear(iniBueno_));
        ++iniRotos_;
    } else {
        static const int kMapa[] = {13, 32, 35, 36, 37, 38, 39, 40, 46, 49, 50, 51, 52, 53, 54, 65,
                                    68, 69, 71, 79, 86, 112, 113, 114, 115, 27, 9, 8, 48, 55, 116, 123};
        int codigo;
        const int q = Entero(0, 99);
        if (q < 40) codigo = 37 + Entero(0, 3);               // cursores, lo más común
        else if (q < 65) codigo = Moneda(0.5) ? 32 : 13;      // el dado
        else if (q < 95) codigo = kMapa[Entero(0, 31)];
        else codigo = Entero(-5, 300);                        // cualquier código
        int shift = 0;
        if (Moneda(0.2)) shift = Entero(1, 7);
        if (codigo == vbKeyO && shift == 0 && Moneda(0.02)) shift = vbCtrlMask;  // opciones, de tarde en tarde
        if (codigo == vbKeyO && (shift & vbCtrlMask) && Moneda(0.7)) shift = 0;
        Tecla(codigo, shift);
    }
    Comprobar("tras el paso");
}

int Maraton::Correr() {
    std::printf("maratón: semilla %u, %.0f s\n", semilla_, segundos_);
    std::fflush(stdout);
    const auto inicio = std::chrono::steady_clock::now();
    auto transcurrido = [&] {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - inicio).count();
    };
    int hallazgos = 0;
    try {
        Preparar();
        NuevaSesion();
        while (transcurrido() < segundos_) {
            ++paso_;
            try {
                Paso();
            } catch (const ProgramaTerminado&) {
                // El jugador cerró el juego: se vuelve a abrir.
                NuevaSesion();
            }
            // De tarde en tarde, otra carpeta con otros datos.
            if (paso_ % 20000 == 0) {
                j_.reset();
                Preparar();
                NuevaSesion();
            }
        }
    } catch (const Hallazgo& h) {
        std::printf("HALLAZGO (semilla %u, paso %ld): %s\n", semilla_, paso_, h.motivo.c_str());
        ++hallazgos;
    } catch (const ProgramaTerminado&) {
        std::printf("HALLAZGO (semilla %u, paso %ld): el juego terminó al arrancar\n", semilla_, paso_);
        ++hallazgos;
    } catch (const std::exception& e) {
        std::printf("HALLAZGO (semilla %u, paso %ld): excepción %s\n", semilla_, paso_, e.what());
        ++hallazgos;
    }
    const int ganadas = ganadas_ + (p_ ? p_->ganadas : 0);
    if (std::getenv("MARATON_DEPURAR") && p_)
        std::printf("dialogos %d preguntas %d opciones %d\n", p_->dialogosMostrados, p_->dialogos1Mostrados,
                    p_->opcionesMostradas);
    std::printf(
        "pasos: %ld  sesiones: %ld  partidas ganadas: %d  guardadas: %ld  cargadas: %ld  "
        "rotas rechazadas: %ld  rotas aceptadas: %ld  opciones rotas: %ld  hallazgos: %d  semilla: %u\n",
        paso_, sesiones_, ganadas, guardadas_, cargadas_, rotasRechazadas_, rotasAceptadas_, iniRotos_,
        hallazgos, semilla_);
    return hallazgos == 0 ? 0 : 1;
}

}  // namespace
}  // namespace sabelot::prueba

int main(int argc, char** argv) {
    double segundos = 30;
    std::uint32_t semilla = std::random_device{}();
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string a = argv[i];
        if (a == "--segundos") segundos = std::atof(argv[i + 1]);
        else if (a == "--semilla") semilla = static_cast<std::uint32_t>(std::strtoul(argv[i + 1], nullptr, 10));
        else {
            std::fprintf(stderr, "uso: %s --segundos S --semilla N\n", argv[0]);
            return 2;
        }
    }
    return sabelot::prueba::Maraton(semilla, segundos).Correr();
}

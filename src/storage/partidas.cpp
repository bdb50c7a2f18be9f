// Partidas guardadas: un fichero de texto delimitado en la carpeta del programa.
#include <optional>

#include "engine/form1.h"
#include "storage/canales.h"
#include "storage/texto_delimitado.h"

namespace sabelot {

namespace {

constexpr int kCanalPartida = 10;
// Una partida de seis jugadores ocupa poco más de un kilobyte.
constexpr std::int64_t kMaximoPartida = 64 * 1024;

std::string QuitarBlancos(const std::string& s) {
    const std::size_t inicio = s.find_first_not_of(' ');
    if (inicio == std::string::npos) return "";
    return s.substr(inicio, s.find_last_not_of(' ') - inicio + 1);
}

std::string Mayusculas(std::string s) {
    for (char& c : s) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return s;
}

enum class FalloNombre { Ninguno, Caracter, Otro };

// Los nombres que no deben llegar al sistema de ficheros: las partidas van solo en
// la carpeta del programa, y un nombre de dispositivo de Windows no es un fichero.
FalloNombre ComprobarNombre(const std::string& nombre) {
    static const std::string kProhibidos = "<>:\"|?*/\\";
    for (unsigned char c : nombre) {
        if (c < 0x20 || c == 0x7F || kProhibidos.find(static_cast<char>(c)) != std::string::npos) {
            return FalloNombre::Caracter;
        }
    }
    if (nombre.find("..") != std::string::npos) return FalloNombre::Otro;
    // Windows toma "CON.sav" o "nul .x" por el dispositivo: cuenta lo de antes del punto,
    // sin los blancos y puntos del final.
    std::string base = Mayusculas(nombre.substr(0, nombre.find('.')));
    while (!base.empty() && (base.back() == ' ' || base.back() == '.')) base.pop_back();
    static const char* const kDispositivos[] = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
    for (const char* d : kDispositivos) {
        if (base == d) return FalloNombre::Otro;
    }
    if (base.size() == 4 && (base.compare(0, 3, "COM") == 0 || base.compare(0, 3, "LPT") == 0) &&
        base[3] >= '0' && base[3] <= '9') {
        return FalloNombre::Otro;
    }
    return FalloNombre::Ninguno;
}

std::string RutaPartida(const std::string& carpeta, const std::string& nombre) {
    std::string ruta = Ruta(carpeta, {nombre});
    if (ruta.size() < 4 || Mayusculas(ruta.substr(ruta.size() - 4)) != ".SAV") ruta += ".sav";
    return ruta;
}

// Una partida leída entera y comprobada, antes de tocar la que se está jugando.
struct PartidaLeida {
    int NumJugadores = 0;
    int QuesitosParaGanar = 0;
    int JugadorActual = 0;
    std::array<std::string, 7> FicheroTema{};
    std::array<std::string, 7> EtiquetaTema{};
    std::array<int, 7> CanalTema{};
    struct Jugador {
        int PosicionFicha = 0;
        int NumQuesitos = 0;
        std::array<bool, 7> QuesitoGanado{};
        std::array<int, 7> Aciertos{};
        std::array<int, 7> Preguntas{};
    };
    std::array<Jugador, 7> Jugadores{};
};

bool EnRango(int valor, int minimo, int maximo) { return valor >= minimo && valor <= maximo; }

std::optional<PartidaLeida> InterpretarPartida(const std::vector<Registro>& registros) {
    using T = Campo::Tipo;
    PartidaLeida p;
    if (registros.empty() || !TieneForma(registros[0], {T::Entero, T::Entero, T::Entero})) {
        return std::nullopt;
    }
    p.NumJugadores = registros[0][0].entero;
    p.QuesitosParaGanar = registros[0][1].entero;
    p.JugadorActual = registros[0][2].entero;
    if (!EnRango(p.NumJugadores, 1, kMaxJugadores) || !EnRango(p.QuesitosParaGanar, 0, kNumTemas) ||
        !EnRango(p.JugadorActual, 1, p.NumJugadores)) {
        return std::nullopt;
    }
    const auto total = static_cast<std::size_t>(7 + 7 * p.NumJugadores);
    if (registros.size() != total) return std::nullopt;

    std::size_t n = 1;
    for (std::size_t tema = 1; tema <= kNumTemas; ++tema, ++n) {
        const Registro& r = registros[n];
        if (!TieneForma(r, {T::Cadena, T::Cadena, T::Entero}) || !EnRango(r[2].entero, 0, kNumTemas)) {
            return std::nullopt;
        }
        p.FicheroTema[tema] = r[0].cadena;
        p.EtiquetaTema[tema] = r[1].cadena;
        p.CanalTema[tema] = r[2].entero;
    }
    for (int j = 1; j <= p.NumJugadores; ++j) {
        PartidaLeida::Jugador& jug = p.Jugadores[static_cast<std::size_t>(j)];
        const Registro& r = registros[n++];
        if (!TieneForma(r, {T::Entero, T::Entero}) || !EnRango(r[0].entero, 0, kUltimaCasilla)) {
            return std::nullopt;
        }
        jug.PosicionFicha = r[0].entero;
        jug.NumQuesitos = r[1].entero;
        int ganados = 0;
        for (std::size_t tema = 1; tema <= kNumTemas; ++tema) {
            const Registro& q = registros[n++];
            if (!TieneForma(q, {T::Booleano, T::Entero, T::Entero})) return std::nullopt;
            jug.QuesitoGanado[tema] = q[0].booleano;
            jug.Aciertos[tema] = q[1].entero;
            jug.Preguntas[tema] = q[2].entero;
            if (jug.Aciertos[tema] < 0 || jug.Preguntas[tema] < jug.Aciertos[tema]) return std::nullopt;
            if (jug.QuesitoGanado[tema]) ++ganados;
        }
        if (jug.NumQuesitos != ganados) return std::nullopt;
    }
    return p;
}

}  // namespace

void Form1::GuardarPartida() {
    // Lo que se guarda no cambia mientras se pregunta el nombre: se prepara una vez.
    EscritorDelimitado e;
    e.Entero(m_.NumJugadores);
    e.Entero(m_.QuesitosParaGanar);
    e.Entero(JugadorActual);
    e.FinRegistro();
    for (std::size_t tema = 1; tema <= kNumTemas; ++tema) {
        e.Cadena(m_.FicheroTema[tema]);
        e.Cadena(m_.EtiquetaTema[tema]);
        e.Entero(m_.CanalTema[tema]);
        e.FinRegistro();
    }
    for (int j = 1; j <= m_.NumJugadores && j <= kMaxJugadores; ++j) {
        const bool enTablas = j <= m_.NumQuesitos.Limite() && j <= m_.Preguntas.Jugadores() &&
                              j <= m_.Aciertos.Jugadores() && j <= m_.QuesitoGanado.Jugadores();
        e.Entero(PosicionFicha[static_cast<std::size_t>(j)]);
        e.Entero(enTablas ? m_.NumQuesitos(j) : 0);
        e.FinRegistro();
        for (int tema = 1; tema <= kNumTemas; ++tema) {
            e.Booleano(enTablas && m_.QuesitoGanado(tema, j));
            e.Entero(enTablas ? m_.Aciertos(tema, j) : 0);
            e.Entero(enTablas ? m_.Preguntas(tema, j) : 0);
            e.FinRegistro();
        }
    }

    std::string inicial;
    for (;;) {
        const std::string escrito = p_.InputBox(
            "Introduzca un nombre para guardar la partida actual: (si existe otra partida con ese "
            "nombre se eliminará)",
            "Guardar Partida", inicial);
        const std::string nombre = QuitarBlancos(escrito);
        if (nombre.empty()) {
            PonerTexto1("Cancelado");
            return;
        }
        const FalloNombre fallo = ComprobarNombre(nombre);
        if (fallo == FalloNombre::Ninguno &&
            EscribirDeUnaVez(canales_, p_.Ficheros(), kCanalPartida,
                             RutaPartida(p_.CarpetaPrograma(), nombre), e.Bytes())) {
            PonerTexto1("PARTIDA GUARDADA");
            return;
        }
        std::string aviso = "Se produjo un error al guardar la partida con ese nombre";
        if (fallo == FalloNombre::Caracter) aviso += ": Probablemente utilizó algún carácter no permitido";
        aviso += ". Introduzca un nombre nuevo o pulse en cancelar.";
        p_.MsgBox(aviso, vbOKOnly, kTituloPrograma);
        inicial = escrito;
    }
}

void Form1::CargarPartida() {
    std::string inicial;
    for (;;) {
        const std::string escrito =
            p_.InputBox("Introduzca el nombre de la partida que desea cargar:", "Cargar partida", inicial);
        inicial = escrito;
        const std::string nombre = QuitarBlancos(escrito);
        if (nombre.empty()) {
            PonerTexto1("Cancelado");
            return;
        }
        // Un nombre que saldría de la carpeta del programa no puede ser una partida.
        const std::string ruta = RutaPartida(p_.CarpetaPrograma(), nombre);
        if (ComprobarNombre(nombre) != FalloNombre::Ninguno || !p_.Ficheros().Existe(ruta)) {
            p_.MsgBox("No se encuentra ese archivo de partida", vbOKOnly, kTituloPrograma);
            continue;
        }
        // Todo se lee y se comprueba antes de tocar la partida en juego: si el fichero
        // está mal, se sigue jugando la de antes.
        const TextoLeido t = LeerFicheroDelimitado(canales_, kCanalPartida, ruta, kMaximoPartida);
        std::optional<PartidaLeida> leida;
        if (t.Bien()) leida = InterpretarPartida(t.registros);
        if (!leida) {
            p_.MsgBox(
                "Se produjo un error al cargar el archivo. Indique otro nombre de archivo o pulse en "
                "cancelar",
                vbOKOnly, kTituloPrograma);
            continue;
        }

        m_.NumJugadores = leida->NumJugadores;
        m_.QuesitosParaGanar = leida->QuesitosParaGanar;
        JugadorActual = leida->JugadorActual;
        m_.DimensionarTablas(m_.NumJugadores);
        for (std::size_t tema = 1; tema <= kNumTemas; ++tema) {
            m_.FicheroTema[tema] = leida->FicheroTema[tema];
            m_.EtiquetaTema[tema] = leida->EtiquetaTema[tema];
            m_.CanalTema[tema] = leida->CanalTema[tema];
        }
        // Las fichas de los jugadores que no están en la partida se quedan donde estaban.
        for (int j = 1; j <= m_.NumJugadores; ++j) {
            const PartidaLeida::Jugador& jug = leida->Jugadores[static_cast<std::size_t>(j)];
            PosicionFicha[static_cast<std::size_t>(j)] = jug.PosicionFicha;
            m_.NumQuesitos(j) = jug.NumQuesitos;
            for (int tema = 1; tema <= kNumTemas; ++tema) {
                const auto t6 = static_cast<std::size_t>(tema);
                m_.QuesitoGanado(tema, j) = jug.QuesitoGanado[t6];
                m_.Aciertos(tema, j) = jug.Aciertos[t6];
                m_.Preguntas(tema, j) = jug.Preguntas[t6];
            }
        }
        CasillaCursor = PosicionFicha[static_cast<std::size_t>(JugadorActual)];
        PonerTexto1(" partida cargada. Turno del jugador " + std::to_string(JugadorActual));
        DescribirCasilla();
        PonerTitulo(TituloJugador(JugadorActual));
        return;
    }
}

}  // namespace sabelot

#include "storage/partidas.h"

#include "comun/texto.h"
#include "storage/canales.h"
#include "storage/escritura.h"
#include "storage/opciones.h"
#include "storage/texto_delimitado.h"

namespace sabelot {

namespace {

// Las partidas se leen y se escriben siempre en este canal.
constexpr int kCanalPartida = 10;
// Una partida de seis jugadores ocupa poco más de un kilobyte.
constexpr std::int64_t kMaximoPartida = 64 * 1024;

}  // namespace

FalloNombre ComprobarNombrePartida(const std::string& nombre) {
    static const std::string kProhibidos = "<>:\"|?*/\\";
    for (unsigned char c : nombre) {
        if (c < 0x20 || c == 0x7F || kProhibidos.find(static_cast<char>(c)) != std::string::npos) {
            return FalloNombre::Caracter;
        }
    }
    if (nombre.find("..") != std::string::npos) return FalloNombre::Otro;
    // Windows toma "CON.sav" o "nul .x" por el dispositivo: cuenta lo de antes del punto,
    // sin los blancos y puntos del final.
    std::string base = MayusculasAscii(nombre.substr(0, nombre.find('.')));
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

namespace {

// El nombre con ".sav" si no lo trae ya.
std::string ConExtension(const std::string& nombre) {
    if (nombre.size() >= 4 && MayusculasAscii(nombre.substr(nombre.size() - 4)) == ".SAV") return nombre;
    return nombre + ".sav";
}

}  // namespace

std::string RutaPartida(const std::string& carpeta, const std::string& nombre) {
    return Ruta(carpeta, {ConExtension(nombre)});
}

std::string BuscarPartida(SistemaFicheros& ficheros, const std::string& carpeta, const std::string& nombre) {
    const std::string ruta = RutaPartida(carpeta, nombre);
    if (ficheros.Existe(ruta)) return ruta;
    // Donde el sistema distingue mayúsculas, "PARTIDA1" es la partida1.sav que ya hay.
    const std::string buscado = Minusculas(ConExtension(nombre));
    for (const std::string& fichero : ficheros.Listar(carpeta, ".sav")) {
        if (Minusculas(fichero) == buscado) return Ruta(carpeta, {fichero});
    }
    return ruta;
}

namespace {

bool EnRango(int valor, int minimo, int maximo) { return valor >= minimo && valor <= maximo; }

std::optional<PartidaLeida> InterpretarPartida(const std::vector<RegistroDelimitado>& registros) {
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
        const RegistroDelimitado& r = registros[n];
        if (!TieneForma(r, {T::Cadena, T::Cadena, T::Entero}) || !EnRango(r[2].entero, 0, kNumTemas) ||
            !NombreDeFicheroValido(r[0].cadena) || !EtiquetaValida(r[1].cadena)) {
            return std::nullopt;
        }
        p.FicheroTema[tema] = r[0].cadena;
        p.EtiquetaTema[tema] = r[1].cadena;
        p.CanalTema[tema] = r[2].entero;
    }
    for (int j = 1; j <= p.NumJugadores; ++j) {
        PartidaLeida::Jugador& jug = p.Jugadores[static_cast<std::size_t>(j)];
        const RegistroDelimitado& r = registros[n++];
        if (!TieneForma(r, {T::Entero, T::Entero}) || !EnRango(r[0].entero, 0, kUltimaCasilla)) {
            return std::nullopt;
        }
        jug.PosicionFicha = r[0].entero;
        jug.NumQuesitos = r[1].entero;
        int ganados = 0;
        for (std::size_t tema = 1; tema <= kNumTemas; ++tema) {
            const RegistroDelimitado& q = registros[n++];
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

std::string BytesPartida(const Module1& m, const CamposForm1& f) {
    EscritorDelimitado e;
    e.Entero(m.NumJugadores);
    e.Entero(m.QuesitosParaGanar);
    e.Entero(f.JugadorActual);
    e.FinRegistro();
    EscribirTemas(e, m);
    for (int j = 1; j <= m.NumJugadores && j <= kMaxJugadores; ++j) {
        // Un jugador que las tablas no tienen (no debería pasar) se guarda a cero.
        const bool enTablas = j <= m.NumQuesitos.Limite() && j <= m.Preguntas.Jugadores() &&
                              j <= m.Aciertos.Jugadores() && j <= m.QuesitoGanado.Jugadores();
        e.Entero(f.Ficha(j));
        e.Entero(enTablas ? m.NumQuesitos(j) : 0);
        e.FinRegistro();
        for (int tema = 1; tema <= kNumTemas; ++tema) {
            e.Booleano(enTablas && m.QuesitoGanado(tema, j));
            e.Entero(enTablas ? m.Aciertos(tema, j) : 0);
            e.Entero(enTablas ? m.Preguntas(tema, j) : 0);
            e.FinRegistro();
        }
    }
    return e.Bytes();
}

bool EscribirPartida(SistemaFicheros& ficheros, const std::string& ruta, const std::string& bytes) {
    return EscribirDeUnaVez(ficheros, ruta, bytes);
}

std::optional<PartidaLeida> LeerPartida(Canales& canales, const std::string& ruta) {
    const TextoLeido t = LeerFicheroDelimitado(canales, kCanalPartida, ruta, kMaximoPartida);
    if (!t.Bien()) return std::nullopt;
    return InterpretarPartida(t.registros);
}

void PonerPartida(const PartidaLeida& p, Module1& m, CamposForm1& f) {
    m.NumJugadores = p.NumJugadores;
    m.QuesitosParaGanar = p.QuesitosParaGanar;
    f.JugadorActual = p.JugadorActual;
    m.DimensionarTablas(m.NumJugadores);
    for (std::size_t tema = 1; tema <= kNumTemas; ++tema) {
        m.FicheroTema[tema] = p.FicheroTema[tema];
        m.EtiquetaTema[tema] = p.EtiquetaTema[tema];
        m.CanalTema[tema] = p.CanalTema[tema];
    }
    for (int j = 1; j <= m.NumJugadores; ++j) {
        const PartidaLeida::Jugador& jug = p.Jugadores[static_cast<std::size_t>(j)];
        f.Ficha(j) = jug.PosicionFicha;
        m.NumQuesitos(j) = jug.NumQuesitos;
        for (int tema = 1; tema <= kNumTemas; ++tema) {
            const auto t = static_cast<std::size_t>(tema);
            m.QuesitoGanado(tema, j) = jug.QuesitoGanado[t];
            m.Aciertos(tema, j) = jug.Aciertos[t];
            m.Preguntas(tema, j) = jug.Preguntas[t];
        }
    }
    f.CasillaCursor = f.Ficha(f.JugadorActual);
}

}  // namespace sabelot

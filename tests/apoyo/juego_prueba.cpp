#include "apoyo/juego_prueba.h"

#include <algorithm>
#include <sstream>

#include "storage/cp1252.h"

namespace sabelot::prueba {

std::string Qzf(const std::vector<std::string>& lineas) {
    std::string s;
    for (const auto& l : lineas) s += Utf8ACp1252(l) + "\r\n";
    return s;
}

void PonerDatosMinimos(const CarpetaTemporal& carpeta, int jugadores, int quesitos) {
    const char* nombres[6] = {"cine", "deportes", "historia", "literatura", "sociales", "cotilleos"};
    std::string ini = std::to_string(jugadores) + "," + std::to_string(quesitos) + "\r\n";
    for (int t = 0; t < 6; ++t) {
        std::string n = nombres[t];
        carpeta.Escribir("preguntas/" + n + ".qzf",
                         Qzf({"q>Pregunta uno de " + n, "1>Bien", "2>Mal", "a>1", "",
                              "q>Pregunta dos de " + n, "1>Mal", "2>Bien", "a>2", ""}));
        ini += "\"" + n + "\",\"\"," + std::to_string(t + 1) + "\r\n";
    }
    carpeta.Escribir("Sabelot.ini", ini);
}

std::string Foto(Juego& j) {
    const Module1& m = j.m;
    std::ostringstream s;
    s << "jugadores=" << m.NumJugadores << " quesitos=" << m.QuesitosParaGanar
      << " turno=" << j.form1.JugadorActual << " fichas=";
    for (int i = 1; i <= kMaxJugadores; ++i) s << j.form1.PosicionFicha[static_cast<std::size_t>(i)] << ' ';
    for (std::size_t t = 1; t <= kNumTemas; ++t)
        s << '[' << m.FicheroTema[t] << '|' << m.EtiquetaTema[t] << '|' << m.CanalTema[t] << ']';
    // Con tablas de otro tamaño (InvarianteRota lo dirá) no se lee fuera de ellas.
    const int n = std::min({m.NumQuesitos.Limite(), m.Preguntas.Jugadores(), m.Aciertos.Jugadores(),
                            m.QuesitoGanado.Jugadores()});
    s << " tablas=" << m.NumQuesitos.Limite() << '/' << m.Preguntas.Jugadores() << '/'
      << m.Aciertos.Jugadores() << '/' << m.QuesitoGanado.Jugadores();
    for (int p = 1; p <= n; ++p) {
        s << " j" << p << ':' << m.NumQuesitos(p);
        for (int t = 1; t <= kNumTemas; ++t)
            s << ' ' << m.Aciertos(t, p) << '/' << m.Preguntas(t, p) << (m.QuesitoGanado(t, p) ? "Q" : "");
    }
    return s.str();
}

std::string InvarianteRota(Juego& j) {
    const Module1& m = j.m;
    const Form1& f = j.form1;
    auto casilla = [](int c) { return c >= 0 && c <= kUltimaCasilla; };
    const int n = m.NumJugadores;
    if (n < 1 || n > kMaxJugadores) return "NumJugadores=" + std::to_string(n);
    if (m.QuesitosParaGanar < 0 || m.QuesitosParaGanar > kNumTemas) return "QuesitosParaGanar";
    if (m.Preguntas.Jugadores() != n || m.Aciertos.Jugadores() != n || m.QuesitoGanado.Jugadores() != n ||
        m.NumQuesitos.Limite() != n)
        return "tablas de otro tamaño que los jugadores";
    if (f.JugadorActual < 1 || f.JugadorActual > n) return "JugadorActual=" + std::to_string(f.JugadorActual);
    if (!std::all_of(f.PosicionFicha.begin(), f.PosicionFicha.end(), casilla))
        return "ficha fuera del tablero";
    if (!casilla(f.CasillaCursor) || !casilla(f.CasillaPrevia)) return "cursor fuera del tablero";
    if (f.RumboCentro < 1 || f.RumboCentro > 6) return "RumboCentro=" + std::to_string(f.RumboCentro);
    if (f.ValorDado < 0 || f.ValorDado > 6) return "ValorDado=" + std::to_string(f.ValorDado);
    if (f.CaminosPendientes < 0) return "CaminosPendientes=" + std::to_string(f.CaminosPendientes);
    for (int jug = 1; jug <= n; ++jug) {
        int ganados = 0;
        for (int t = 1; t <= kNumTemas; ++t) {
            if (m.Aciertos(t, jug) < 0 || m.Preguntas(t, jug) < m.Aciertos(t, jug))
                return "más aciertos que preguntas";
            ganados += m.QuesitoGanado(t, jug);
        }
        if (m.NumQuesitos(jug) != ganados) return "NumQuesitos no cuenta los quesitos ganados";
    }
    for (std::size_t t = 1; t <= kNumTemas; ++t) {
        if (m.CuentaMazo[t] < 0 || m.TotalMazo[t] < 0) return "mazo " + std::to_string(t) + " negativo";
        if (m.CanalTema[t] < 0 || m.CanalTema[t] > kNumTemas) return "canal del tema " + std::to_string(t);
    }
    return "";
}

JuegoPrueba::JuegoPrueba() : juego(std::make_unique<Juego>(p)) {}

void JuegoPrueba::Arrancar(bool olvidarMensajes) {
    f().Form_Load();
    if (olvidarMensajes) p.mensajes.clear();
}

void JuegoPrueba::Tecla(int codigo, int shift) {
    std::size_t antes = p.sonidos.size();
    f().Form_KeyDown(codigo, shift);
    for (std::size_t i = antes; i < p.sonidos.size(); ++i) {
        if (p.sonidos[i].first == Reproductor::MediaPlayer1) f().MediaPlayer1_PlayStateChange(0);
    }
}

}  // namespace sabelot::prueba

#include "storage/opciones.h"

#include "comun/texto.h"
#include "storage/escritura.h"
#include "storage/texto_delimitado.h"

namespace sabelot {

namespace {

// Siete registros cortos; algo mucho mayor no es un fichero de opciones.
constexpr std::int64_t kMaximoOpciones = 64 * 1024;

std::string RutaOpciones(Plataforma& p) { return Ruta(p.CarpetaPrograma(), {"Sabelot.ini"}); }

bool EnRango(int valor, int minimo, int maximo) { return valor >= minimo && valor <= maximo; }

}  // namespace

bool EtiquetaValida(const std::string& etiqueta) {
    if (Caracteres(etiqueta) > kMaxEtiqueta + 1) return false;
    for (unsigned char c : etiqueta) {
        if (c < 0x20 || c == 0x7F || c == '"') return false;
    }
    return true;
}

bool NombreDeFicheroValido(const std::string& nombre) {
    // Un nombre de fichero corriente: ni carpetas, ni el de arriba, ni de otro disco. Sin
    // separadores, "Historia..antigua" no sale de la carpeta y es un nombre como otro.
    if (nombre.size() > 200 || nombre == "." || nombre == "..") return false;
    for (unsigned char c : nombre) {
        if (c < 0x20 || c == 0x7F || c == '/' || c == '\\' || c == ':' || c == '"' || c == '*' || c == '?' ||
            c == '<' || c == '>' || c == '|')
            return false;
    }
    return true;
}

void LeerOpciones(Module1& m, Plataforma& p, Canales& canales) {
    const std::string ruta = RutaOpciones(p);
    if (!p.Ficheros().Existe(ruta)) return;
    TextoLeido t = LeerFicheroDelimitado(canales, canales.Libre(), ruta, kMaximoOpciones);
    // Un fichero roto se deja tal cual y el juego arranca como si no lo hubiera:
    // mejor eso que a medias con valores que no sirven.
    if (!t.Bien() || t.registros.size() != 7) return;
    using T = Campo::Tipo;
    const RegistroDelimitado& r1 = t.registros[0];
    if (!TieneForma(r1, {T::Entero, T::Entero})) return;
    if (!EnRango(r1[0].entero, 1, kMaxJugadores) || !EnRango(r1[1].entero, 1, kNumTemas)) return;
    for (int tema = 1; tema <= kNumTemas; ++tema) {
        const RegistroDelimitado& r = t.registros[static_cast<std::size_t>(tema)];
        if (!TieneForma(r, {T::Cadena, T::Cadena, T::Entero})) return;
        if (!EnRango(r[2].entero, 1, kNumTemas)) return;
        if (!NombreDeFicheroValido(r[0].cadena) || !EtiquetaValida(r[1].cadena)) return;
    }

    m.NumJugadores = r1[0].entero;
    m.QuesitosParaGanar = r1[1].entero;
    for (std::size_t tema = 1; tema <= kNumTemas; ++tema) {
        const RegistroDelimitado& r = t.registros[tema];
        m.FicheroTema[tema] = r[0].cadena;
        m.EtiquetaTema[tema] = r[1].cadena;
        m.CanalTema[tema] = r[2].entero;
    }
}

void EscribirTemas(EscritorDelimitado& e, const Module1& m) {
    for (std::size_t tema = 1; tema <= kNumTemas; ++tema) {
        e.Cadena(m.FicheroTema[tema]);
        e.Cadena(m.EtiquetaTema[tema]);
        e.Entero(m.CanalTema[tema]);
        e.FinRegistro();
    }
}

bool GuardarOpciones(const Module1& m, Plataforma& p) {
    EscritorDelimitado e;
    e.Entero(m.NumJugadores);
    e.Entero(m.QuesitosParaGanar);
    e.FinRegistro();
    EscribirTemas(e, m);
    return EscribirDeUnaVez(p.Ficheros(), RutaOpciones(p), e.Bytes());
}

}  // namespace sabelot

#include "storage/ficheros_preguntas.h"

#include "storage/canales.h"

namespace sabelot {

bool FaltaFicheroDePreguntas(const Module1& m, Plataforma& p) {
    bool falta = false;
    // Sin cortar en el primero que falte: la respuesta es la misma, y así siempre se
    // pregunta lo mismo al disco.
    for (std::size_t tema = 1; tema <= kNumTemas; ++tema) {
        const std::string& nombre = m.FicheroTema[tema];
        if (nombre.empty() || !p.Ficheros().Existe(Ruta(p.CarpetaPrograma(), {"preguntas", nombre + ".qzf"})))
            falta = true;
    }
    return falta;
}

bool CanalAbierto(Canales& canales, int canal) {
    Fichero* f = canales.Get(canal);
    // Un canal abierto siempre está en la posición 1 o más.
    return f != nullptr && f->Posicion() >= 1;
}

}  // namespace sabelot

// El lector de ficheros de preguntas: no hay mazo en memoria. El fichero queda abierto
// en su canal, la posición de lectura es el sitio del mazo y MazoUsado apunta las
// marcas de lo ya sacado.
#include <cmath>
#include <cstdint>

#include "comun/texto.h"
#include "questions/dialog1.h"
#include "questions/registro.h"
#include "storage/canales.h"
#include "storage/cp1252.h"
#include "storage/ficheros_preguntas.h"

namespace sabelot {

// El lector corta las líneas donde el registro las da por largas.
static_assert(kMaxLineaQzf == kMaxLinea, "la línea más larga es la misma para el lector y el registro");

namespace {

const char* const kNoSeEncuentra =
    "No se encuentra el archivo correspondiente a esa categoría. Reajuste las opciones antes "
    "de continuar jugando";
const char* const kErrorAlAbrir =
    "Se produjo un error al abrir el archivo. archivo correspondiente a esa categoría. "
    "Reajuste las opciones antes de continuar jugando\"";
const char* const kSinPreguntasValidas =
    "El archivo correspondiente a esa categoría no contiene preguntas válidas. Reajuste las "
    "opciones antes de continuar jugando";
const char* const kDandoLaVuelta = "Dando la vuelta al mazo de preguntas";
// Un fichero que no se abre por ser demasiado grande: da el aviso de cualquier otro error.
constexpr int kErrorFicheroEnorme = 7;

}  // namespace

void Dialog1::AbrirFichero(bool LeerDespues, bool AlAzar) {
    if (NTema < 1 || NTema > kNumTemas) NTema = 1;
    const int c = m_.CanalTema[static_cast<std::size_t>(NTema)];
    if (!CanalAbierto(canales_, c)) {
        const std::string ruta = Ruta(
            p_.CarpetaPrograma(), {"preguntas", m_.FicheroTema[static_cast<std::size_t>(NTema)] + ".qzf"});
        // El canal 0 no es válido: Abrir lo rechaza y sale el segundo mensaje.
        int error = canales_.Abrir(c, ruta);
        if (error == 0 && canales_.Get(c)->Longitud() > kMaxFicheroQzf) {
            canales_.Cerrar(c);
            error = kErrorFicheroEnorme;
        }
        if (error != 0) {
            p_.MsgBox(error == kErrorNoExiste ? kNoSeEncuentra : kErrorAlAbrir, vbOKOnly, kTituloPrograma);
            FalloApertura = true;
            return;
        }
        if (AlAzar) {
            Fichero* f = canales_.Get(c);
            const std::int64_t largo = f->Longitud();
            const double r = p_.Rnd();
            f->IrA(static_cast<std::int64_t>(std::floor(r * static_cast<double>(largo))) + 1);
        }
    }
    if (LeerDespues) LeerPregunta();
}

void Dialog1::ContarPreguntas() {
    if (NTema < 1 || NTema > kNumTemas) NTema = 1;
    const auto t = static_cast<std::size_t>(NTema);
    const int c = m_.CanalTema[t];
    canales_.Cerrar(c);
    AbrirFichero(false, false);
    if (FalloApertura) return;
    Fichero* f = canales_.Get(c);
    std::int64_t n = 0;
    std::string linea;
    while (f->LeerHastaMarca('q', linea)) ++n;
    canales_.Cerrar(c);
    m_.TotalMazo[t] = n;
    m_.CuentaMazo[t] = 0;
}

void Dialog1::DarLaVuelta(int tema) {
    const auto t = static_cast<std::size_t>(tema);
    canales_.Cerrar(m_.CanalTema[t]);
    p_.MsgBox(kDandoLaVuelta, vbOKOnly, kTituloPrograma);
    m_.MazoUsado[t].clear();
    m_.CuentaMazo[t] = 0;
    AbrirFichero(false, false);
}

// Al acabarse el fichero o dar la vuelta al mazo, la lectura vuelve a empezar arriba en
// este mismo bucle en vez de llamarse otra vez. Para que siempre acabe: una pasada
// entera desde arriba que no saca nada debe apuntar al menos una marca nueva, y las
// marcas son posiciones distintas del fichero; si no apunta ninguna, lo que queda ya
// está sacado. Entonces se da la vuelta al mazo una sola vez si se contestó algo desde
// la última; si no, el fichero no tiene nada que preguntar.
void Dialog1::LeerPregunta() {
    if (NTema < 1 || NTema > kNumTemas) NTema = 1;
    const int tema = NTema;
    const auto t = static_cast<std::size_t>(tema);
    const int c = m_.CanalTema[t];
    IndiceMazo& indice = indices_[t];
    std::string& mazo = m_.MazoUsado[t];

    int vueltas = 0;
    bool desdeArriba = false;  // la pasada en curso empezó en el primer byte
    std::size_t marcasAlEmpezar = 0;
    std::string linea;

    if (!CanalAbierto(canales_, c)) {
        AbrirFichero(false, false);
        if (FalloApertura) return;
        desdeArriba = true;
        marcasAlEmpezar = mazo.size();
    }

    for (;;) {
        Pregunta.clear();
        Comentario.clear();
        Respuestas.assign(1, std::string());
        indice.Sincronizar(mazo);
        Fichero* f = canales_.Get(c);

        // La línea anterior ya no cuenta: se busca la siguiente "q>". Una "q>" en la
        // última línea es como el final del fichero.
        const bool hayPregunta = f->LeerHastaMarca('q', linea);
        if (!hayPregunta || f->Fin()) {
            canales_.Cerrar(c);
            if (desdeArriba && mazo.size() == marcasAlEmpezar) {
                if (m_.CuentaMazo[t] > 0 && vueltas == 0) {
                    // Lo que queda sin sacar no se puede preguntar: se empieza de nuevo.
                    ++vueltas;
                    DarLaVuelta(tema);
                    if (FalloApertura) return;
                    marcasAlEmpezar = 0;
                    continue;
                }
                p_.MsgBox(kSinPreguntasValidas, vbOKOnly, kTituloPrograma);
                FalloApertura = true;
                return;
            }
            AbrirFichero(false, false);
            if (FalloApertura) return;
            desdeArriba = true;
            marcasAlEmpezar = mazo.size();
            continue;
        }

        const std::int64_t posicion = f->Posicion();
        if (indice.Contiene(posicion)) {
            // Más del 95 %, en enteros para no depender del redondeo.
            if (m_.CuentaMazo[t] * 20 > m_.TotalMazo[t] * 19) {
                if (vueltas > 0) {
                    p_.MsgBox(kSinPreguntasValidas, vbOKOnly, kTituloPrograma);
                    canales_.Cerrar(c);
                    FalloApertura = true;
                    return;
                }
                ++vueltas;
                DarLaVuelta(tema);
                if (FalloApertura) return;
                desdeArriba = true;
                marcasAlEmpezar = 0;
            }
            continue;
        }
        indice.Anadir(mazo, posicion);

        // Una línea cortada por larga deja el registro sin preguntar.
        Registro registro(linea);
        if (f->LineaLarga()) registro.MarcarLineaLarga();
        while (!f->Fin()) {
            f->LeerLinea(linea);
            const bool larga = f->LineaLarga();
            if (!registro.Anadir(linea)) break;
            if (larga) registro.MarcarLineaLarga();
        }
        // Sin respuestas, sin una "a>" que nombre una o con una línea larga: se salta, y su
        // marca se queda.
        if (!registro.SePuedePreguntar()) continue;

        // Un byte de control en el fichero sale como blanco: el lector de pantalla no dice
        // un texto que lo lleve.
        Pregunta = SinControles(Cp1252AUtf8(registro.Pregunta));
        Respuestas.clear();
        for (const auto& r : registro.Respuestas) Respuestas.push_back(SinControles(Cp1252AUtf8(r)));
        IndiceCorrecto = registro.IndiceCorrecto;
        Comentario = SinControles(Cp1252AUtf8(registro.Comentario));
        MostrarPregunta();
        return;
    }
}

}  // namespace sabelot

// El dado y la búsqueda de casillas de destino por el grafo del tablero.
#include <cmath>

#include "engine/form1.h"
#include "frontend/dialog.h"

namespace sabelot {

namespace {

enum Direccion : int { kArriba = 1, kDerecha = 2, kAbajo = 3, kIzquierda = 4 };

const char* PalabraDireccion(int direccion) {
    switch (direccion) {
        case kArriba: return "arriba ";
        case kDerecha: return "derecha ";
        case kAbajo: return "abajo ";
        case kIzquierda: return "izquierda ";
        default: return "";
    }
}

}  // namespace

// Cierra una rama; la última de todas pasa a mover la ficha. Después ya no se mira nada
// de la búsqueda: las llamadas abiertas solo vuelven.
void Form1::TerminarCamino() {
    --CaminosPendientes;
    if (CaminosPendientes == 0) {
        p_.Beep();
        MoverFicha();
    }
}

int Form1::TirarDado() { return static_cast<int>(std::floor(p_.Rnd() * 6)) + 1; }

void Form1::ResolverTirada() {
    if (FaltanFicheros()) {
        p_.MsgBox(std::string("Alguno/s de los ficheros de preguntas seleccionados la última vez no "
                              "se encuentran disponibles en estos momentos. ") +
                      CRLF +
                      "Entre en el menú de opciones pulsando Control o y reajuste su selección de "
                      "ficheros antes de continuar jugando.",
                  vbExclamation, "Atención");
        return;
    }

    m_.ListaValores.clear();
    // Se busca siempre desde la ficha, esté donde esté el cursor del lector.
    CasillaCursor = Ficha(JugadorActual);
    ValorDado = TirarDado();
    dialog_.ValorEnDado = ValorDado;
    TextoDestinos = "Lanzas el dado y sacas un " + std::to_string(ValorDado) + "." + CRLF +
                    "Puedes ir a casillas de:" + CRLF;

    const Casilla c = En(CasillaCursor);
    if (ValorDado == 1 && CasillaCursor == 0) {
        // Con un 1 desde el centro se va a la primera casilla de cada radio, sin pitido.
        for (int i = 1; i <= kNumTemas; ++i) {
            TextoDestinos += NombreTema(i) + CRLF;
            m_.ListaValores += std::to_string(i) + "_";
        }
        MoverFicha();
        return;
    }

    if (ValorDado == 1) {
        // Todas las salidas se cuentan antes de echar a andar la primera.
        const bool arriba = TieneArriba(c);
        if (arriba) ++CaminosPendientes;
        if (c.Derecha > 0) ++CaminosPendientes;
        if (c.Abajo > 0) ++CaminosPendientes;
        if (c.Izquierda > 0) ++CaminosPendientes;
        const int origen = CasillaCursor;
        if (c.Derecha > 0) BuscarDestinos(c.Derecha, kDerecha, 0, origen, false);
        if (c.Abajo > 0) BuscarDestinos(c.Abajo, kAbajo, 0, origen, false);
        if (c.Izquierda > 0) BuscarDestinos(c.Izquierda, kIzquierda, 0, origen, false);
        if (arriba) BuscarDestinos(c.Arriba, kArriba, 0, origen, false);
        return;
    }

    // En el anillo el Arriba de 0 no es el centro: ese caminante no sale.
    const bool sinArriba = CasillaCursor != 0 && c.Arriba == 0 && c.Abajo == 0;
    CaminosPendientes = sinArriba ? 3 : 4;
    const int pasos = ValorDado - 1;
    const int origen = CasillaCursor;
    if (!sinArriba) BuscarDestinos(c.Arriba, kArriba, pasos, origen, false);
    BuscarDestinos(c.Derecha, kDerecha, pasos, origen, false);
    BuscarDestinos(c.Abajo, kAbajo, pasos, origen, false);
    BuscarDestinos(c.Izquierda, kIzquierda, pasos, origen, false);
}

void Form1::BuscarDestinos(int Pos, int Direccion, int Pasos, int Origen, bool PorCentro) {
    const Casilla& c = En(Pos);

    if (Pasos == 0) {
        if (c.EsQuesito) TextoDestinos += "Quesito ";
        TextoDestinos += NombreTema(En(Pos).Tema);
        TextoDestinos += " (";
        TextoDestinos += PalabraDireccion(Direccion);
        if (PorCentro) TextoDestinos += " - pasando por el centro";
        TextoDestinos += ")";
        TextoDestinos += CRLF;
        m_.ListaValores += std::to_string(Pos) + "_";
        TerminarCamino();
        return;
    }

    // Cada bifurcación se cuenta antes de andar una rama que pueda dejar la cuenta a 0.
    switch (Direccion) {
        case kArriba:
            if (Pos == 0) CruzarCentro(Origen, Pasos);
            if (TieneArriba(c))
                BuscarDestinos(c.Arriba, kArriba, Pasos - 1, Pos, PorCentro);
            else
                TerminarCamino();
            return;
        case kDerecha: {
            const bool sube = c.Arriba > 0;
            if (sube) ++CaminosPendientes;
            if (c.Derecha > 0)
                BuscarDestinos(c.Derecha, kDerecha, Pasos - 1, Pos, PorCentro);
            else
                TerminarCamino();
            if (sube) BuscarDestinos(c.Arriba, kArriba, Pasos - 1, Pos, PorCentro);
            return;
        }
        case kAbajo:
            if (c.Derecha > 0) {
                ++CaminosPendientes;
                BuscarDestinos(c.Derecha, kDerecha, Pasos - 1, Pos, PorCentro);
            }
            if (c.Izquierda > 0) {
                ++CaminosPendientes;
                BuscarDestinos(c.Izquierda, kIzquierda, Pasos - 1, Pos, PorCentro);
            }
            if (c.Abajo > 0)
                BuscarDestinos(c.Abajo, kAbajo, Pasos - 1, Pos, PorCentro);
            else
                TerminarCamino();
            return;
        case kIzquierda: {
            const bool sube = c.Arriba > 0;
            if (sube) ++CaminosPendientes;
            if (c.Izquierda > 0)
                BuscarDestinos(c.Izquierda, kIzquierda, Pasos - 1, Pos, PorCentro);
            else
                TerminarCamino();
            if (sube) BuscarDestinos(c.Arriba, kArriba, Pasos - 1, Pos, PorCentro);
            return;
        }
        default: TerminarCamino(); return;
    }
}

void Form1::CruzarCentro(int Origen, int& Pasos) {
    bool porCentro = true;
    if (Ficha(JugadorActual) == 0) {
        // La tirada empezó en el centro: no lo cruza, sale de él.
        porCentro = false;
        ++Pasos;
    }
    for (int i = 1; i <= 6; ++i) {
        if (i == Origen) continue;
        ++CaminosPendientes;
        BuscarDestinos(i, kAbajo, Pasos - 1, 0, porCentro);
    }
}

}  // namespace sabelot

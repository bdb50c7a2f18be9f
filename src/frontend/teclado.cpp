#include "frontend/teclado.h"

#include "comun/teclas.h"

namespace sabelot {

Orden OrdenDeTecla(int KeyCode, int Shift) {
    const bool control = (Shift & vbCtrlMask) != 0;
    if (KeyCode >= vbKeyLeft && KeyCode <= vbKeyDown) return Orden::Flecha;
    if (KeyCode >= vbKey1 && KeyCode <= vbKey6) return Orden::IrAFicha;
    switch (KeyCode) {
        case vbKeyF1: return Orden::ListaTeclas;
        case vbKeyF2: return Orden::Anexas;
        case vbKeyD:
        case vbKeySpace:
        case vbKeyReturn: return Orden::Dado;
        case vbKeyE: return Orden::Estadisticas;
        case vbKeyF3: return Orden::Guardar;
        case vbKeyO: return control ? Orden::Opciones : Orden::Ninguna;
        case vbKeyG: return control ? Orden::Guardar : Orden::Ninguna;
        case vbKeyA: return control ? Orden::Cargar : Orden::Ninguna;
        // Con modificadores no: Alt+F4 es para cerrar la ventana.
        case vbKeyF4: return Shift == 0 ? Orden::Cargar : Orden::Ninguna;
        case vbKeyV: return Orden::IrAFichaEnTurno;
        default: return Orden::Ninguna;
    }
}

PasoCursor MoverCursor(const CamposForm1& f, int KeyCode) {
    PasoCursor paso;
    paso.casilla = f.CasillaCursor;
    paso.rumbo = f.RumboCentro;
    if (f.CasillaCursor == 0) {
        switch (KeyCode) {
            case vbKeyUp: paso.casilla = f.RumboCentro; break;
            case vbKeyRight: paso.rumbo = f.RumboCentro >= 6 ? 1 : f.RumboCentro + 1; break;
            case vbKeyLeft: paso.rumbo = f.RumboCentro <= 1 ? 6 : f.RumboCentro - 1; break;
            default: paso.casilla = RadioOpuesto(f.RumboCentro); break;
        }
        return paso;
    }
    const Casilla& s = f.En(f.CasillaCursor);
    int destino = 0;
    switch (KeyCode) {
        case vbKeyUp:
            if (s.Arriba == 0 && s.Abajo > 0) {
                // De la primera casilla de un radio al centro: se queda mirando al de enfrente.
                paso.casilla = 0;
                paso.rumbo = RadioOpuesto(f.CasillaCursor);
                return paso;
            }
            destino = s.Arriba;
            break;
        case vbKeyRight: destino = s.Derecha; break;
        case vbKeyLeft: destino = s.Izquierda; break;
        default: destino = s.Abajo; break;
    }
    if (destino > 0)
        paso.casilla = destino;
    else
        paso.pitido = true;
    return paso;
}

std::string TextoListaTeclas() {
    static const char* const kLineas[] = {
        "LISTA DE TECLAS.",
        "Cursores: Desplazarse por el tablero.",
        "1 al 6: Ir a la posición de la ficha correspondiente.",
        "Énter, Espacio o d: Lanzar el dado.",
        "Control-o: Diálogo de opciones de juego.",
        "e: Muestra los quesitos conseguidos y las estadísticas de aciertos para el jugador actual.",
        "F2: Activa y desactiva la lectura de las casillas adyacentes a la actual.",
        "F3, Control G: Permite guardar una partida.",
        "F4, Control A: Permite cargar una partida previamente guardada.",
        "F1: Muestra esta lista de teclas.",
    };
    std::string texto;
    for (const char* linea : kLineas) {
        if (!texto.empty()) texto += CRLF;
        texto += linea;
    }
    return texto;
}

}  // namespace sabelot

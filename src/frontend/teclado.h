// El mapa de teclas de la ventana principal y el paseo del cursor por el tablero. Qué
// hace cada orden lo decide Form1::Picture1_KeyDown.
#pragma once

#include <string>

#include "comun/estado.h"

namespace sabelot {

enum class Orden {
    Ninguna,          // fuera del mapa: como si no se hubiera pulsado
    Anexas,           // F2
    Flecha,           // mueve el cursor: ver MoverCursor
    ListaTeclas,      // F1
    Dado,             // Intro, Espacio o D
    Estadisticas,     // E
    Opciones,         // Control+O
    Guardar,          // F3 o Control+G
    Cargar,           // F4 sin modificadores o Control+A
    IrAFicha,         // 1 a 6: la ficha de ese jugador
    IrAFichaEnTurno,  // V
};

Orden OrdenDeTecla(int KeyCode, int Shift);

// Adónde lleva una flecha al cursor. En el centro no hay enlaces: se gira con izquierda y
// derecha y se sale por el radio de delante o el de detrás.
struct PasoCursor {
    bool pitido = false;  // por ahí no hay casilla: el cursor no se mueve
    int casilla = 0;
    int rumbo = 1;  // RumboCentro tras el paso
};
PasoCursor MoverCursor(const CamposForm1& f, int KeyCode);

// El texto de F1.
std::string TextoListaTeclas();

}  // namespace sabelot

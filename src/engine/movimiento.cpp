// Mover la ficha a la casilla elegida y resolver lo que pide la casilla.
#include "engine/form1.h"
#include "frontend/dialog.h"

namespace sabelot {

void Form1::MoverFicha() {
    dialog_.Mensaje = TextoDestinos;
    p_.MostrarDialog(dialog_);

    // El diálogo no se cierra sin elegir; si algo raro llega, la ficha no se mueve.
    if (m_.ValorElegido < 0 || m_.ValorElegido > kUltimaCasilla) return;

    CasillaCursor = m_.ValorElegido;
    Ficha(JugadorActual) = CasillaCursor;
    DescribirCasilla();

    const Casilla& c = En(CasillaCursor);
    if (c.EsDados) {
        PonerTexto1("Vuelve  a tirar los dados.");
    } else if (CasillaCursor != 0) {
        HacerPregunta(c.Tema);
    } else {
        PruebaFinal();
    }
}

}  // namespace sabelot

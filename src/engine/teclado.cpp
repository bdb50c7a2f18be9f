// Las teclas de la ventana principal: todo el juego se maneja desde aquí. El mapa de
// teclas y el paseo del cursor están en frontend/teclado.h.
#include "frontend/teclado.h"

#include "comun/teclas.h"
#include "comun/texto.h"
#include "engine/form1.h"

namespace sabelot {

void Form1::Form_KeyDown(int KeyCode, int Shift) {
    Anuncios::Tramo tramo(p_.Voz());
    // La ventana ve cada tecla antes que sus controles; el panel de texto no es para
    // escribir, así que el foco vuelve siempre a Picture1.
    if (vista_ && !vista_->FocoEnPicture1()) vista_->FocoAPicture1();
    Picture1_KeyDown(KeyCode, Shift);
}

void Form1::Picture1_KeyDown(int KeyCode, int Shift) {
    Anuncios::Tramo tramo(p_.Voz());
    // El título sigue al turno aquí, con cualquier tecla.
    const std::string titulo = TituloJugador(JugadorActual);
    if (!IgualesSinMayusculas(titulo_, titulo)) PonerTitulo(titulo);

    const Orden orden = OrdenDeTecla(KeyCode, Shift);
    if (orden == Orden::Anexas) {
        LeerAnexas = !LeerAnexas;
        PonerTexto1(std::string("leer casillas anexas ") + (LeerAnexas ? " activado" : " desactivado"));
        return;
    }

    const int previa = CasillaPrevia;
    CasillaPrevia = CasillaCursor;
    switch (orden) {
        case Orden::Flecha: {
            const PasoCursor paso = MoverCursor(*this, KeyCode);
            if (paso.pitido) {
                p_.Beep();
                return;
            }
            CasillaCursor = paso.casilla;
            RumboCentro = paso.rumbo;
            DescribirCasilla();
            return;
        }
        case Orden::ListaTeclas: p_.MsgBox(TextoListaTeclas(), vbOKOnly, kTituloPrograma); return;
        case Orden::Dado:
            CasillaPrevia = previa;
            SonarDado();
            return;
        case Orden::Estadisticas: MostrarEstadisticas(); return;
        case Orden::Opciones: FlujoOpciones(); return;
        case Orden::Guardar: GuardarPartida(); return;
        case Orden::Cargar: CargarPartida(); return;
        case Orden::IrAFicha:
            CasillaCursor = Ficha(KeyCode - vbKey1 + 1);
            DescribirCasilla();
            return;
        case Orden::IrAFichaEnTurno:
            CasillaCursor = Ficha(JugadorActual);
            DescribirCasilla();
            return;
        case Orden::Anexas:
        case Orden::Ninguna: break;
    }
    // Tecla fuera del mapa: como si no se hubiera pulsado.
    CasillaPrevia = previa;
}

void Form1::SonarDado() {
    // La tirada sigue cuando acaba el sonido. Si se vuelve a pulsar mientras suena,
    // sigue habiendo una sola tirada pendiente.
    sonandoDado_ = true;
    p_.Reproducir(Reproductor::MediaPlayer1, Ruta(p_.CarpetaPrograma(), {"sonidos", "lanzardados.wav"}));
}

void Form1::MediaPlayer1_PlayStateChange(int NuevoEstado) {
    if (NuevoEstado != 0 || !sonandoDado_) return;
    Anuncios::Tramo tramo(p_.Voz());
    sonandoDado_ = false;
    ResolverTirada();
}

void Form1::FlujoOpciones() {
    const char* titulo = CasillaCursor == 0 ? "Opciones Sabelot" : "Modificar opciones";
    if (p_.MsgBox("Ésto Cancelará la partida actual e iniciará  una nueva. ¿Desea continuar?", vbYesNo,
                  titulo) != vbYes) {
        return;
    }
    // La partida se pierde aquí, se acepte o se cancele el diálogo.
    m_.NumJugadores = 1;
    m_.DimensionarTablas(1);
    PosicionFicha.fill(0);
    JugadorActual = 1;
    CasillaCursor = 0;
    p_.MostrarDlgOpciones(opciones_);
    DescribirCasilla();
    m_.DimensionarTablas(m_.NumJugadores);
}

}  // namespace sabelot

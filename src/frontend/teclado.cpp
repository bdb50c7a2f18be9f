// Las teclas de la ventana principal: todo el juego se maneja desde aquí.
#include "engine/form1.h"

namespace sabelot {

namespace {

int Opuesto(int s) { return s + 3 > 6 ? s - 3 : s + 3; }

bool IgualesSinMayusculas(const std::string& a, const std::string& b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        char x = a[i];
        char y = b[i];
        if (x >= 'a' && x <= 'z') x = static_cast<char>(x - 'a' + 'A');
        if (y >= 'a' && y <= 'z') y = static_cast<char>(y - 'a' + 'A');
        if (x != y) return false;
    }
    return true;
}

}  // namespace

void Form1::Form_KeyDown(int KeyCode, int Shift) {
    // La ventana ve cada tecla antes que sus controles; el panel de texto no es para
    // escribir, así que el foco vuelve siempre a Picture1.
    if (vista_ && !vista_->FocoEnPicture1()) vista_->FocoAPicture1();
    Picture1_KeyDown(KeyCode, Shift);
}

void Form1::Picture1_KeyDown(int KeyCode, int Shift) {
    // El título sigue al turno aquí, con cualquier tecla.
    const std::string titulo = TituloJugador(JugadorActual);
    if (!IgualesSinMayusculas(titulo_, titulo)) PonerTitulo(titulo);

    if (KeyCode == vbKeyF2) {
        LeerAnexas = !LeerAnexas;
        PonerTexto1(std::string("leer casillas anexas ") + (LeerAnexas ? " activado" : " desactivado"));
        return;
    }

    const int previa = CasillaPrevia;
    CasillaPrevia = CasillaCursor;
    const bool control = (Shift & vbCtrlMask) != 0;

    // Movimiento: en el centro se gira y se sale por el radio de delante o el de detrás.
    if (KeyCode >= vbKeyLeft && KeyCode <= vbKeyDown) {
        if (CasillaCursor == 0) {
            int cero = 0;
            switch (KeyCode) {
                case vbKeyUp:
                    CasillaCursor = RumboCentro;
                    DescribirCasilla();
                    break;
                case vbKeyRight:
                    RumboCentro = RumboCentro >= 6 ? 1 : RumboCentro + 1;
                    DescribirCasilla(cero, RumboCentro);
                    break;
                case vbKeyLeft:
                    RumboCentro = RumboCentro <= 1 ? 6 : RumboCentro - 1;
                    DescribirCasilla(cero, RumboCentro);
                    break;
                default:
                    CasillaCursor = Opuesto(RumboCentro);
                    DescribirCasilla();
                    break;
            }
            return;
        }
        const Casilla& s = Tablero[static_cast<std::size_t>(CasillaCursor)];
        int destino = 0;
        switch (KeyCode) {
            case vbKeyUp:
                if (s.Arriba == 0 && s.Abajo > 0) {
                    // De la casilla k al centro: se queda mirando al radio de enfrente.
                    CasillaCursor = 0;
                    RumboCentro = Opuesto(CasillaPrevia);
                    DescribirCasilla();
                    return;
                }
                destino = s.Arriba;
                break;
            case vbKeyRight:
                destino = s.Derecha;
                break;
            case vbKeyLeft:
                destino = s.Izquierda;
                break;
            default:
                destino = s.Abajo;
                break;
        }
        if (destino > 0) {
            CasillaCursor = destino;
            DescribirCasilla();
        } else {
            p_.Beep();
        }
        return;
    }

    switch (KeyCode) {
        case vbKeyF1:
            MostrarListaTeclas();
            return;
        case vbKeyD:
        case vbKeySpace:
        case vbKeyReturn:
            CasillaPrevia = previa;
            SonarDado();
            return;
        case vbKeyE:
            MostrarEstadisticas();
            return;
        case vbKeyF3:
            GuardarPartida();
            return;
        case vbKeyO:
            if (control) {
                FlujoOpciones();
                return;
            }
            break;
        case vbKeyG:
            if (control) {
                GuardarPartida();
                return;
            }
            break;
        case vbKeyA:
            if (control) {
                CargarPartida();
                return;
            }
            break;
        case vbKeyF4:
            // Con modificadores no: Alt+F4 es para cerrar la ventana.
            if (Shift == 0) {
                CargarPartida();
                return;
            }
            break;
        case vbKeyV:
            if (JugadorActual >= 1 && JugadorActual <= kMaxJugadores) {
                CasillaCursor = PosicionFicha[static_cast<std::size_t>(JugadorActual)];
                DescribirCasilla();
                return;
            }
            break;
        default:
            if (KeyCode >= vbKey1 && KeyCode <= vbKey6) {
                CasillaCursor = PosicionFicha[static_cast<std::size_t>(KeyCode - vbKey1 + 1)];
                DescribirCasilla();
                return;
            }
            break;
    }
    // Tecla fuera del mapa: como si no se hubiera pulsado.
    CasillaPrevia = previa;
}

void Form1::MostrarListaTeclas() {
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
    p_.MsgBox(texto, vbOKOnly, kTituloPrograma);
}

void Form1::SonarDado() {
    // La tirada sigue cuando acaba el sonido. Si se vuelve a pulsar mientras suena,
    // sigue habiendo una sola tirada pendiente.
    sonandoDado_ = true;
    p_.Reproducir(Reproductor::MediaPlayer1, Ruta(p_.CarpetaPrograma(), {"sonidos", "lanzardados.wav"}));
}

void Form1::MediaPlayer1_PlayStateChange(int NuevoEstado) {
    if (NuevoEstado != 0 || !sonandoDado_) return;
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

// Form1: la ventana principal y los procedimientos del motor, que son suyos. Arranque,
// tablero, tirada, movimiento, preguntas, prueba final, informe, teclas y partidas, cada
// uno en su fichero de esta carpeta; las reglas que no necesitan al motor están debajo
// (frontend, questions, options, storage).
#pragma once

#include <string>

#include "comun/estado.h"
#include "comun/plataforma.h"

namespace sabelot {

class Canales;

// Lo que la lógica pide a la ventana principal. La ventana no decide nada.
class VistaForm1 {
public:
    virtual ~VistaForm1() = default;
    virtual void PonerTexto1(const std::string& texto) = 0;
    virtual void PonerTitulo(const std::string& titulo) = 0;
    virtual void Mostrar() = 0;
    virtual void Ocultar() = 0;
    virtual bool FocoEnPicture1() = 0;
    virtual void FocoAPicture1() = 0;
};

// El título de la ventana principal para un jugador.
std::string TituloJugador(int jugador);

class Form1 : public CamposForm1 {
public:
    Form1(Module1& m, Plataforma& p, Canales& canales, Dialog& dialog, Dialog1& dialog1,
          DlgOpciones& opciones);

    void PonerVista(VistaForm1* vista) { vista_ = vista; }

    // --- Eventos ---
    void Form_Load();
    void Form_KeyDown(int KeyCode, int Shift);
    void Picture1_KeyDown(int KeyCode, int Shift);
    // Cambio de estado del reproductor del dado; 0 es parado.
    void MediaPlayer1_PlayStateChange(int NuevoEstado);

    // --- Motor ---
    void ConstruirTablero();
    void NuevaPartida();
    int TirarDado();
    void ResolverTirada();
    void BuscarDestinos(int Pos, int Direccion, int Pasos, int Origen, bool PorCentro);
    void CruzarCentro(int Origen, int& Pasos);
    void MoverFicha();
    void HacerPregunta(int Tema);
    void PruebaFinal();
    void MostrarEstadisticas();

    // --- Lector del tablero ---
    // Si Tema vale 0 o -1 lo cambia a 7, como hace con el tema del centro.
    std::string NombreTema(int& Tema);
    std::string NombreTema(int&& Tema) { return NombreTema(Tema); }
    void DescribirCasilla(int& Posicion, int& Rumbo);
    // La casilla del cursor: DescribirCasilla(-1, -1).
    void DescribirCasilla();

    // --- Almacenamiento ---
    bool FaltanFicheros();
    void GuardarPartida();
    void CargarPartida();

    // --- Text1 y título: la lógica guarda lo dicho y la vista lo muestra ---
    const std::string& Texto1() const { return texto1_; }
    // Reemplaza el texto del panel; el jugador lo oye entero.
    void PonerTexto1(const std::string& texto);
    // Añade al panel; el jugador oye solo lo añadido.
    void AnadirTexto1(const std::string& cola);
    const std::string& Titulo() const { return titulo_; }
    void PonerTitulo(const std::string& titulo);
    void Ocultar();
    void Mostrar();

    Module1& M() { return m_; }
    Plataforma& P() { return p_; }

private:
    Module1& m_;
    Plataforma& p_;
    Canales& canales_;
    Dialog& dialog_;
    Dialog1& dialog1_;
    DlgOpciones& opciones_;
    VistaForm1* vista_ = nullptr;
    std::string texto1_;
    std::string titulo_;
    bool sonandoDado_ = false;

    void FlujoOpciones();
    void SonarDado();
    void TerminarCamino();
    // Una pregunta del tema con Dialog1. Falso si no se pudo hacer ninguna (un fichero que
    // no abre): entonces no cuenta nada y el jugador sigue.
    bool Preguntar(int Tema, bool ocultarVentana, bool& correcta);
    // Cuenta la respuesta del jugador en turno en las tablas de su tema.
    void ContarRespuesta(int Tema, bool correcta);
    // El turno pasa al siguiente jugador: su línea en el panel y el cursor a su ficha. En el
    // centro el título cambia enseguida; en las demás casillas, con la próxima tecla.
    void PasarTurno(bool conTitulo);
    // En el centro sin los quesitos que hacen falta: una pregunta normal a elegir tema.
    void PreguntaDelCentro();
};

}  // namespace sabelot

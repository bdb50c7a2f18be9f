// Form1: la ventana principal y los procedimientos del motor, que en el juego
// son procedimientos de este formulario. Los cuerpos están repartidos por concepto:
// tablero.cpp, arranque.cpp, tirada.cpp, movimiento.cpp, pregunta.cpp,
// prueba_final.cpp, estadisticas.cpp (engine); lector.cpp, teclado.cpp (frontend);
// partidas.cpp, ficheros_preguntas.cpp (storage).
#pragma once

#include <array>
#include <string>

#include "engine/estado.h"
#include "engine/plataforma.h"

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

// Códigos de tecla virtuales y bits de modificadores que recibe la lógica.
enum Tecla : int {
    vbKeyReturn = 13, vbKeySpace = 32, vbKeyEnd = 35, vbKeyHome = 36,
    vbKeyLeft = 37, vbKeyUp = 38, vbKeyRight = 39, vbKeyDown = 40, vbKeyDelete = 46,
    vbKey1 = 49, vbKey6 = 54, vbKeyA = 65, vbKeyD = 68, vbKeyE = 69, vbKeyG = 71,
    vbKeyO = 79, vbKeyV = 86, vbKeyF1 = 112, vbKeyF2 = 113, vbKeyF3 = 114, vbKeyF4 = 115,
};
enum Modificador : int { vbShiftMask = 1, vbCtrlMask = 2, vbAltMask = 4 };

class Form1 {
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

    // --- Texto y título: la lógica guarda lo dicho y la vista lo muestra ---
    const std::string& Texto1() const { return texto1_; }
    void PonerTexto1(const std::string& texto);
    const std::string& Titulo() const { return titulo_; }
    void PonerTitulo(const std::string& titulo);
    void Ocultar();
    void Mostrar();

    // --- Campos de Form1 ---
    TableroJuego Tablero{};
    int CasillaCursor = 0;
    int RumboCentro = 1;
    int CasillaPrevia = 0;
    bool LeerAnexas = true;
    std::array<int, 7> PosicionFicha{};
    int JugadorActual = 1;
    int ValorDado = 0;
    int CaminosPendientes = 0;
    std::string TextoDestinos;

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
    void MostrarListaTeclas();
    void SonarDado();
};

}  // namespace sabelot

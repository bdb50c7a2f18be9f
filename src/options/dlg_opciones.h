// DlgOpciones: jugadores, quesitos, y para cada tema su fichero de preguntas y su etiqueta.
// La lógica guarda todo lo que se ve (listas, selecciones, rótulos, foco); la vista lo pinta
// con Refrescar() y le pasa los eventos. Se carga la primera vez y después solo se oculta.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "comun/estado.h"
#include "comun/plataforma.h"

namespace sabelot {

class Canales;

class VistaDlgOpciones {
public:
    virtual ~VistaDlgOpciones() = default;
    // Vuelve a pintar listas, rótulos, botones y foco desde la lógica.
    virtual void Refrescar() = 0;
    // El diálogo se oculta o se descarga: termina la llamada modal.
    virtual void Ocultar() = 0;
};

// Los controles que pueden tener el foco, en el orden de tabulación.
enum class ControlOpciones { Ninguno, List1_0, List1_1, List2_0, List2_1, List2_2, OKButton, CancelButton };

// Un cuadro de lista: entradas, selección (-1 ninguna) y texto de ayuda.
struct ListaOpciones {
    std::vector<std::string> List;
    int ListIndex = -1;
    bool Sorted = false;
    std::string ToolTipText;

    int ListCount() const { return static_cast<int>(List.size()); }
    // La entrada seleccionada, o "" sin selección.
    std::string Text() const;
    // Añade; la lista ordenada la coloca sin distinguir mayúsculas ni acentos.
    void AddItem(const std::string& entrada);
};

struct BotonOpciones {
    std::string Caption;
    bool Enabled = true;
};

class DlgOpciones {
public:
    DlgOpciones(Module1& m, Plataforma& p, Canales& canales);
    void PonerVista(VistaDlgOpciones* vista) { vista_ = vista; }
    // La vista que se va deja de pintar, si era la de ahora.
    void QuitarVista(const VistaDlgOpciones* vista) {
        if (vista_ == vista) vista_ = nullptr;
    }

    // --- Lo que se ve ---
    std::string Caption = "Opciones";
    std::array<std::string, 2> Label1{};
    std::array<ListaOpciones, 2> List1{};
    std::array<std::string, 3> Label2{};
    std::array<ListaOpciones, 3> List2{};
    std::string LbAyuda;
    BotonOpciones OKButton, CancelButton;
    ControlOpciones Foco = ControlOpciones::Ninguno;
    bool Visible = false;

    // Cargado en la primera apertura; después solo se oculta.
    bool Cargado = false;

    // --- Campos, por posición 0 a 5 (tema - 1) ---
    std::array<std::string, 6> FicheroElegido{};
    std::array<int, 6> IndiceFichero{};
    std::array<int, 6> CanalElegido{};

    // --- Apertura: la primera vez carga; vuelve a mostrarse tal como se ocultó ---
    void Mostrar();

    // --- Eventos ---
    void Form_Load();
    void LlenarListaFicheros();
    void MostrarOpciones();
    void List1_KeyDown(int Index, int KeyCode, int Shift);
    void List2_Click(int Index);
    void List2_GotFocus(int Index);
    void List2_KeyDown(int Index, int KeyCode, int Shift);
    void List2_Validate(int Index, bool& Cancel);
    void OKButton_Click();
    void CancelButton_Click();

    // --- Lo que llama la vista ---
    // El foco pasa a otro control: valida al salir de List2(1) y avisa a la lista que entra.
    void CambiarFoco(ControlOpciones destino);
    // Una tecla en un control: su KeyDown y, en las listas, lo que hace cualquier lista.
    // Verdadero si la tecla ya está atendida y la vista no debe hacer nada más con ella.
    bool Tecla(ControlOpciones control, int KeyCode, int Shift);
    // El jugador elige con el ratón la entrada de una lista.
    void ElegirEntrada(ControlOpciones lista, int posicion);
    // Pulsación de un botón: primero le llega el foco.
    void Pulsar(ControlOpciones boton);
    // Cierre desde la barra de título: no corre nada y se descarga.
    void Descargar();

    // Selección por programa: si cambia, salta el Click de esa lista.
    void SeleccionarList1(int Index, int posicion);
    void SeleccionarList2(int Index, int posicion);

private:
    Module1& m_;
    Plataforma& p_;
    Canales& canales_;
    VistaDlgOpciones* vista_ = nullptr;

    void EstadoInicial();
    void Ocultar();
    void PonerFoco(ControlOpciones control);
    void AvisarCarpetaVacia();
    void BuscarFicherosElegidos();
    std::vector<int> CategoriasSinFichero();
    bool Navegar(ListaOpciones& lista, int KeyCode, int Shift, int& nueva);
};

}  // namespace sabelot

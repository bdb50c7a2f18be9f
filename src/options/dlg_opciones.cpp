// DlgOpciones: el marco del diálogo (carga, Aceptar, Cancelar) y el editor de categorías,
// tres listas que se mueven juntas por sus eventos.
#include "options/dlg_opciones.h"

#include <algorithm>
#include <cstdint>

#include "comun/teclas.h"
#include "comun/texto.h"
#include "storage/canales.h"
#include "storage/cp1252.h"
#include "storage/opciones.h"

namespace sabelot {

namespace {

constexpr const char* kNoEspecificado = "(No especificado)";
constexpr const char* kNumeros[6] = {"UNO", "DOS", "TRES", "CUATRO", "CINCO", "SEIS"};

// Lo que se salta una página de una lista.
constexpr int kPagina = 8;

// Clave de orden de un carácter: sin mayúsculas ni acentos, y la eñe tras la ene.
std::u32string ClaveCaracter(char32_t c) {
    if (c >= U'A' && c <= U'Z') return std::u32string(1, c - U'A' + U'a');
    switch (c) {
        // clang-format off
        case U'á': case U'à': case U'â': case U'ä': case U'ã': case U'å':
        case U'Á': case U'À': case U'Â': case U'Ä': case U'Ã': case U'Å': return U"a";
        case U'é': case U'è': case U'ê': case U'ë': case U'É': case U'È': case U'Ê': case U'Ë': return U"e";
        case U'í': case U'ì': case U'î': case U'ï': case U'Í': case U'Ì': case U'Î': case U'Ï': return U"i";
        case U'ó': case U'ò': case U'ô': case U'ö': case U'õ':
        case U'Ó': case U'Ò': case U'Ô': case U'Ö': case U'Õ': return U"o";
        case U'ú': case U'ù': case U'û': case U'ü': case U'Ú': case U'Ù': case U'Û': case U'Ü': return U"u";
        case U'ç': case U'Ç': return U"c";
        case U'ñ': case U'Ñ': return U"n\x7f";
        default: return std::u32string(1, c);
            // clang-format on
    }
}

std::u32string ClaveOrden(const std::string& s) {
    std::u32string clave;
    for (std::size_t i = 0; i < s.size();) {
        char32_t c = 0;
        std::size_t n = LeerUtf8(s, i, c);
        // Un byte que no es UTF-8 vale por sí mismo.
        if (n == 0) {
            c = static_cast<unsigned char>(s[i]);
            n = 1;
        }
        clave += ClaveCaracter(c);
        i += n;
    }
    return clave;
}

// "1", "1 y 2", "1, 2 y 3".
std::string Enumerar(const std::vector<int>& numeros) {
    std::string t;
    for (std::size_t i = 0; i < numeros.size(); ++i) {
        if (i > 0) t += i + 1 == numeros.size() ? " y " : ", ";
        t += std::to_string(numeros[i]);
    }
    return t;
}

bool EsList2(ControlOpciones c) {
    return c == ControlOpciones::List2_0 || c == ControlOpciones::List2_1 || c == ControlOpciones::List2_2;
}

int IndiceList2(ControlOpciones c) {
    return c == ControlOpciones::List2_0 ? 0 : c == ControlOpciones::List2_1 ? 1 : 2;
}

}  // namespace

std::string ListaOpciones::Text() const {
    if (ListIndex < 0 || ListIndex >= ListCount()) return "";
    return List[static_cast<std::size_t>(ListIndex)];
}

void ListaOpciones::AddItem(const std::string& entrada) {
    if (!Sorted) {
        List.push_back(entrada);
        return;
    }
    const std::u32string clave = ClaveOrden(entrada);
    auto it =
        std::find_if(List.begin(), List.end(), [&](const std::string& e) { return clave < ClaveOrden(e); });
    List.insert(it, entrada);
}

DlgOpciones::DlgOpciones(Module1& m, Plataforma& p, Canales& canales) : m_(m), p_(p), canales_(canales) {
    EstadoInicial();
}

void DlgOpciones::EstadoInicial() {
    // Los controles como salen del diseño: así empieza cada carga.
    Caption = "Opciones";
    Label1 = {"&Número de jugadores", "&Quesitos a conseguir"};
    Label2 = {"&Categorías", "&Ficheros de preguntas", "&Texto de la casilla"};
    for (auto& l : List1) l = ListaOpciones{};
    for (auto& l : List2) l = ListaOpciones{};
    for (const char* n : kNumeros) {
        List1[0].List.push_back(n);
        List1[1].List.push_back(n);
        List2[0].List.push_back(n);
        List2[2].List.push_back(kNoEspecificado);
    }
    List1[0].ToolTipText = "Indique el número de jugadores que participarán en esta partida";
    List1[1].ToolTipText =
        "Indique el número de quesitos a conseguir antes de poder subir a la casilla central a contestar "
        "las preguntas finales antes de ganar el juego.";
    List2[1].Sorted = true;
    List2[1].ToolTipText = "Seleccione el archivo que proporcionará las preguntas para esta categoría";
    List2[2].ToolTipText =
        "Pulse F2 o enter para establecer el texto que se mostrará en las casillas de la categoría "
        "correspondiente";
    LbAyuda = "Pulse F1 para ayuda sobre el elemento seleccionado.";
    OKButton = {"&Aceptar", true};
    CancelButton = {"Canc&elar", true};
    Foco = ControlOpciones::Ninguno;
}

void DlgOpciones::Mostrar() {
    if (!Cargado) {
        Form_Load();
        PonerFoco(ControlOpciones::List1_0);
    } else if (List2[1].ListCount() == 0) {
        // Sin ficheros la primera vez: se vuelven a buscar, para que baste con copiarlos.
        LlenarListaFicheros();
        BuscarFicherosElegidos();
        if (List2[1].ListCount() == 0) AvisarCarpetaVacia();
    }
    Visible = true;
    if (vista_) vista_->Refrescar();
}

void DlgOpciones::Form_Load() {
    EstadoInicial();
    Cargado = true;
    SeleccionarList1(0, 0);
    SeleccionarList1(1, 0);
    SeleccionarList2(0, 0);
    SeleccionarList2(2, 0);
    LlenarListaFicheros();
    MostrarOpciones();
    if (List2[1].ListCount() == 0) AvisarCarpetaVacia();
}

void DlgOpciones::AvisarCarpetaVacia() {
    p_.MsgBox(
        "No hay ficheros de preguntas en la carpeta preguntas. Copie allí ficheros con la extensión .qzf "
        "y vuelva a abrir las opciones.",
        vbExclamation, kTituloPrograma);
}

void DlgOpciones::LlenarListaFicheros() {
    List2[1].List.clear();
    List2[1].ListIndex = -1;
    const std::string carpeta = Ruta(p_.CarpetaPrograma(), {"preguntas"});
    for (const std::string& nombre : p_.Ficheros().Listar(carpeta, ".qzf")) {
        // Solo los nombres que Sabelot.ini y las partidas guardan tal cual: con otro, el juego
        // tomaría el fichero por roto o no encontraría la pregunta al volver a abrirse.
        const std::string base = nombre.substr(0, nombre.size() - 4);
        bool perdido = false;
        Utf8ACp1252(base, &perdido);
        if (!base.empty() && !perdido && NombreDeFicheroValido(base)) List2[1].AddItem(base);
    }
}

void DlgOpciones::MostrarOpciones() {
    if (m_.NumJugadores > 0 && m_.NumJugadores <= 6) SeleccionarList1(0, m_.NumJugadores - 1);
    if (m_.QuesitosParaGanar > 0 && m_.QuesitosParaGanar <= 6) SeleccionarList1(1, m_.QuesitosParaGanar - 1);
    for (int t = 1; t <= kNumTemas; ++t) {
        const auto p = static_cast<std::size_t>(t - 1);
        FicheroElegido[p] = m_.FicheroTema[static_cast<std::size_t>(t)];
        const std::string& etiqueta = m_.EtiquetaTema[static_cast<std::size_t>(t)];
        if (etiqueta.empty()) {
            List2[2].List[p] = kNoEspecificado;
            continue;
        }
        List2[2].List[p] = etiqueta;
        for (int i = 0; i < List2[1].ListCount(); ++i) {
            if (List2[1].List[static_cast<std::size_t>(i)] == FicheroElegido[p]) {
                IndiceFichero[p] = i;
                break;
            }
        }
    }
}

void DlgOpciones::BuscarFicherosElegidos() {
    for (std::size_t p = 0; p < FicheroElegido.size(); ++p) {
        if (FicheroElegido[p].empty()) continue;
        const auto& lista = List2[1].List;
        auto it = std::find(lista.begin(), lista.end(), FicheroElegido[p]);
        if (it != lista.end()) IndiceFichero[p] = static_cast<int>(it - lista.begin());
    }
}

void DlgOpciones::SeleccionarList1(int Index, int posicion) {
    ListaOpciones& l = List1[static_cast<std::size_t>(Index)];
    if (posicion < 0 || posicion >= l.ListCount()) return;
    l.ListIndex = posicion;
}

void DlgOpciones::SeleccionarList2(int Index, int posicion) {
    ListaOpciones& l = List2[static_cast<std::size_t>(Index)];
    // Una posición que la lista no tiene no selecciona nada (List2(1) vacía).
    if (posicion < 0 || posicion >= l.ListCount() || l.ListIndex == posicion) return;
    l.ListIndex = posicion;
    List2_Click(Index);
}

void DlgOpciones::List1_KeyDown(int Index, int KeyCode, int) {
    if (KeyCode != vbKeyF1) return;
    if (Index == 0) {
        p_.MsgBox("Seleccione el número de jugadores que van a participar. Pueden ser entre 1 y 6.", vbOKOnly,
                  kTituloPrograma);
    } else {
        p_.MsgBox(
            "Seleccione el número de \"quesitos\" que debe conseguir un jugador para poder enfrentarse a la "
            "prueba de la casilla central y ganar el juego.",
            vbOKOnly, kTituloPrograma);
    }
}

void DlgOpciones::List2_Click(int Index) {
    if (Index == 0) {
        const int actual = List2[0].ListIndex;
        SeleccionarList2(1, IndiceFichero[static_cast<std::size_t>(actual)]);
        SeleccionarList2(2, actual);
    } else if (Index == 2) {
        const int posicion = List2[2].ListIndex;
        SeleccionarList2(0, posicion);
        SeleccionarList2(1, IndiceFichero[static_cast<std::size_t>(posicion)]);
    }
}

void DlgOpciones::List2_GotFocus(int) {
    const int actual = List2[0].ListIndex;
    if (actual < 0) return;
    const int indice = IndiceFichero[static_cast<std::size_t>(actual)];
    if (List2[1].ListIndex != indice || List2[2].ListIndex != actual) {
        SeleccionarList2(1, indice);
        SeleccionarList2(2, actual);
    }
}

void DlgOpciones::List2_Validate(int Index, bool&) {
    if (Index != 1 || List2[1].ListIndex < 0) return;
    const int actual = List2[0].ListIndex;
    if (actual < 0) return;
    const auto p = static_cast<std::size_t>(actual);
    FicheroElegido[p] = List2[1].Text();
    ListaOpciones& etiquetas = List2[2];
    if (etiquetas.ListIndex >= 0 &&
        (etiquetas.Text() == kNoEspecificado || List2[1].ListIndex != IndiceFichero[p])) {
        etiquetas.List[static_cast<std::size_t>(etiquetas.ListIndex)] = List2[1].Text();
    }
    IndiceFichero[p] = List2[1].ListIndex;
    const auto conFichero = std::count_if(FicheroElegido.begin(), FicheroElegido.end(),
                                          [](const std::string& f) { return !f.empty(); });
    if (conFichero == 6) {
        OKButton.Enabled = true;
        PonerFoco(ControlOpciones::OKButton);
    }
}

void DlgOpciones::List2_KeyDown(int Index, int KeyCode, int) {
    ListaOpciones& etiquetas = List2[2];
    if (Index == 2 && (KeyCode == vbKeyReturn || KeyCode == vbKeyF2)) {
        if (etiquetas.ListIndex < 0) return;
        std::string inicial = etiquetas.Text() == kNoEspecificado ? List2[1].Text() : etiquetas.Text();
        for (;;) {
            const std::string texto = p_.InputBox(
                "Escriba el texto a mostrar en las casillas de este tema:", "Etiqueta de categoría", inicial);
            if (texto.empty()) return;
            // El fichero de opciones no sabe guardar comillas dobles dentro de un texto.
            if (texto.find('"') != std::string::npos) {
                p_.MsgBox("La etiqueta no puede llevar comillas dobles. Escriba otra.", vbExclamation,
                          kTituloPrograma);
                inicial = texto;
                continue;
            }
            // Lo que Windows-1252 no tiene saldría como "?" en Sabelot.ini y en las partidas:
            // la etiqueta cambiaría sola al volver a abrir el juego.
            // Los caracteres de control (un tabulador pegado, un salto de línea) rompen el registro.
            bool perdido = false;
            Utf8ACp1252(texto, &perdido);
            for (unsigned char c : texto) perdido = perdido || c < 0x20 || c == 0x7F;
            if (perdido) {
                p_.MsgBox("La etiqueta lleva letras o signos que el juego no puede guardar. Escriba otra.",
                          vbExclamation, kTituloPrograma);
                inicial = texto;
                continue;
            }
            // Se dice en cada casilla: una etiqueta larguísima tardaría en oírse y en mostrarse.
            if (Caracteres(Recortar(texto)) > kMaxEtiqueta) {
                p_.MsgBox("La etiqueta es demasiado larga: escriba una de " + std::to_string(kMaxEtiqueta) +
                              " letras como mucho.",
                          vbExclamation, kTituloPrograma);
                inicial = texto;
                continue;
            }
            etiquetas.List[static_cast<std::size_t>(etiquetas.ListIndex)] = Recortar(texto);
            return;
        }
    }
    if (Index == 2 && KeyCode == vbKeyDelete) {
        if (etiquetas.ListIndex < 0) return;
        etiquetas.List[static_cast<std::size_t>(etiquetas.ListIndex)] = kNoEspecificado;
        FicheroElegido[static_cast<std::size_t>(etiquetas.ListIndex)].clear();
        return;
    }
    if (KeyCode != vbKeyF1) return;
    if (Index == 0) {
        p_.MsgBox(
            "Seleccione una categoría para que sus datos se muestren en los otros cuadros de lista y poder "
            "modificarlos.",
            vbOKOnly, kTituloPrograma);
    } else if (Index == 1) {
        p_.MsgBox(
            "Seleccione el fichero de preguntas que quiere utilizar para la categoría actualmente "
            "seleccionada (" +
                std::to_string(List2[0].ListIndex + 1) +
                "). Utilice las flechas para recorrer la lista. Es posible utilizar el mismo fichero de "
                "preguntas "
                "para más de una categoría. El nombre del fichero de preguntas se introducirá como texto "
                "predeterminado para mostrarlo en las casillas de esta categoría.",
            vbOKOnly, kTituloPrograma);
    } else {
        p_.MsgBox(
            "En esta lista se muestra el texto que aparecerá en las casillas del tablero. Para modificar el "
            "texto "
            "de una categoría, pulse F2 e introdúzcalo.",
            vbOKOnly, kTituloPrograma);
    }
}

std::vector<int> DlgOpciones::CategoriasSinFichero() {
    std::vector<int> categorias;
    // Solo cuenta cuando la carpeta no ofrece ningún fichero: entonces cualquier nombre
    // guardado apunta a un fichero que ya no está.
    if (List2[1].ListCount() > 0) return categorias;
    for (std::size_t p = 0; p < FicheroElegido.size(); ++p) {
        if (FicheroElegido[p].empty()) continue;
        const std::string ruta = Ruta(p_.CarpetaPrograma(), {"preguntas", FicheroElegido[p] + ".qzf"});
        if (!p_.Ficheros().Existe(ruta)) categorias.push_back(static_cast<int>(p) + 1);
    }
    return categorias;
}

void DlgOpciones::OKButton_Click() {
    const std::vector<int> sinFichero = CategoriasSinFichero();
    if (!sinFichero.empty()) {
        const bool una = sinFichero.size() == 1;
        p_.MsgBox(std::string(una ? "La categoría " : "Las categorías ") + Enumerar(sinFichero) +
                      (una ? " nombra un fichero de preguntas que no existe"
                           : " nombran ficheros de preguntas que no existen") +
                      ", y la carpeta preguntas no tiene ninguno. Las opciones no se han guardado. Pulse "
                      "Cancelar para salir, o Suprimir en el texto de " +
                      (una ? "esa categoría para dejarla" : "esas categorías para dejarlas") +
                      " sin fichero.",
                  vbExclamation, kTituloPrograma);
        return;
    }

    m_.NumJugadores = List1[0].ListIndex + 1;
    m_.QuesitosParaGanar = List1[1].ListIndex + 1;
    for (std::size_t p = 0; p < 6; ++p) {
        m_.FicheroTema[p + 1] = FicheroElegido[p];
        m_.EtiquetaTema[p + 1] = Recortar(List2[2].List[p]) + " ";
    }

    // Los temas que comparten fichero comparten canal; los demás se numeran por orden.
    CanalElegido[0] = 1;
    int mayor = 1;
    for (std::size_t p = 1; p < 6; ++p) {
        std::size_t q = 0;
        while (q < p && FicheroElegido[q] != FicheroElegido[p]) ++q;
        CanalElegido[p] = q < p ? CanalElegido[q] : ++mayor;
    }
    for (std::size_t p = 0; p < 6; ++p) m_.CanalTema[p + 1] = CanalElegido[p];

    if (!GuardarOpciones(m_, p_)) {
        p_.MsgBox(
            "No se pudieron guardar las opciones en el fichero Sabelot.ini. Valen solo para esta sesión: la "
            "próxima vez que abra el juego volverán las anteriores.",
            vbExclamation, kTituloPrograma);
    }
    Ocultar();
}

void DlgOpciones::CancelButton_Click() { Ocultar(); }

void DlgOpciones::Ocultar() {
    Visible = false;
    if (vista_) vista_->Ocultar();
}

void DlgOpciones::Descargar() {
    // Los campos se quedan; los controles se rehacen en la próxima carga.
    Cargado = false;
    Ocultar();
}

void DlgOpciones::PonerFoco(ControlOpciones control) { Foco = control; }

void DlgOpciones::CambiarFoco(ControlOpciones destino) {
    if (destino == Foco) return;
    if (Foco == ControlOpciones::List2_1) {
        bool cancelar = false;
        List2_Validate(1, cancelar);
        // Si al validar el foco ya se fue al botón Aceptar, ahí se queda.
        if (Foco != ControlOpciones::List2_1) return;
    }
    Foco = destino;
    if (EsList2(destino)) List2_GotFocus(IndiceList2(destino));
}

bool DlgOpciones::Navegar(ListaOpciones& lista, int KeyCode, int Shift, int& nueva) {
    // Lo que hace una lista con sus teclas: flechas, inicio, fin, páginas e inicial.
    if ((Shift & vbAltMask) != 0 || lista.ListCount() == 0) return false;
    const int ultima = lista.ListCount() - 1;
    const int actual = lista.ListIndex;
    switch (KeyCode) {
        case vbKeyUp: nueva = actual < 0 ? 0 : std::max(0, actual - 1); return true;
        case vbKeyDown: nueva = actual < 0 ? 0 : std::min(ultima, actual + 1); return true;
        case vbKeyHome: nueva = 0; return true;
        case vbKeyEnd: nueva = ultima; return true;
        case vbKeyPageUp: nueva = actual < 0 ? 0 : std::max(0, actual - kPagina); return true;
        case vbKeyPageDown: nueva = actual < 0 ? 0 : std::min(ultima, actual + kPagina); return true;
        default: break;
    }
    const bool letra = (KeyCode >= vbKeyA && KeyCode <= vbKeyZ) || (KeyCode >= vbKey0 && KeyCode <= vbKey9);
    if (!letra || (Shift & vbCtrlMask) != 0) return false;
    const std::u32string buscada = ClaveCaracter(static_cast<char32_t>(KeyCode));
    nueva = actual;
    for (int paso = 1; paso <= lista.ListCount(); ++paso) {
        const int i = (std::max(actual, -1) + paso) % lista.ListCount();
        const std::u32string clave = ClaveOrden(lista.List[static_cast<std::size_t>(i)]);
        if (clave.compare(0, buscada.size(), buscada) == 0) {
            nueva = i;
            break;
        }
    }
    return true;
}

bool DlgOpciones::Tecla(ControlOpciones control, int KeyCode, int Shift) {
    ListaOpciones* lista = nullptr;
    bool atendida = false;
    switch (control) {
        case ControlOpciones::List1_0:
        case ControlOpciones::List1_1: {
            const int i = control == ControlOpciones::List1_0 ? 0 : 1;
            List1_KeyDown(i, KeyCode, Shift);
            atendida = KeyCode == vbKeyF1;
            lista = &List1[static_cast<std::size_t>(i)];
            int nueva = -1;
            if (Navegar(*lista, KeyCode, Shift, nueva)) {
                SeleccionarList1(i, nueva);
                atendida = true;
            }
            return atendida;
        }
        case ControlOpciones::List2_0:
        case ControlOpciones::List2_1:
        case ControlOpciones::List2_2: {
            const int i = IndiceList2(control);
            List2_KeyDown(i, KeyCode, Shift);
            atendida = KeyCode == vbKeyF1 ||
                       (i == 2 && (KeyCode == vbKeyReturn || KeyCode == vbKeyF2 || KeyCode == vbKeyDelete));
            lista = &List2[static_cast<std::size_t>(i)];
            int nueva = -1;
            if (Navegar(*lista, KeyCode, Shift, nueva)) {
                SeleccionarList2(i, nueva);
                atendida = true;
            }
            return atendida;
        }
        default: return false;
    }
}

void DlgOpciones::ElegirEntrada(ControlOpciones lista, int posicion) {
    if (lista == ControlOpciones::List1_0 || lista == ControlOpciones::List1_1) {
        SeleccionarList1(lista == ControlOpciones::List1_0 ? 0 : 1, posicion);
    } else if (EsList2(lista)) {
        SeleccionarList2(IndiceList2(lista), posicion);
    }
}

void DlgOpciones::Pulsar(ControlOpciones boton) {
    CambiarFoco(boton);
    if (boton == ControlOpciones::OKButton && OKButton.Enabled) {
        OKButton_Click();
    } else if (boton == ControlOpciones::CancelButton && CancelButton.Enabled) {
        CancelButton_Click();
    }
}

}  // namespace sabelot

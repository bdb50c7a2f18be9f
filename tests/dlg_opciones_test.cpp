// El diálogo de opciones y su editor de categorías, llevados con teclas como un jugador.
#include "options/dlg_opciones.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <tuple>

#include "apoyo/datos_prueba.h"
#include "apoyo/ficheros_averiados.h"
#include "apoyo/formas_prueba.h"
#include "apoyo/juego_casos.h"
#include "comun/teclas.h"
#include "storage/opciones.h"

namespace sabelot::prueba {
namespace {

using C = ControlOpciones;

const char* const kControles[] = {"Ninguno", "List1_0", "List1_1",  "List2_0",
                                  "List2_1", "List2_2", "OKButton", "CancelButton"};

template <typename Lista>
std::string Unir(const Lista& lista, const std::string& separador = "|") {
    std::string s;
    for (const auto& x : lista) s += (&x == &*std::begin(lista) ? "" : separador) + x;
    return s;
}

C Control(const std::string& nombre) {
    const auto i = std::find(std::begin(kControles), std::end(kControles), nombre) - std::begin(kControles);
    EXPECT_LT(i, 8) << "control desconocido: " << nombre;
    return static_cast<C>(i);
}

// La carpeta, el diálogo y el jugador que lo lleva con teclas; los pasos y lo que se mira son los de
// tests/datos/dlg_opciones_guiones.txt.
struct Jugador : Entorno {
    std::unique_ptr<DlgOpciones> d = std::make_unique<DlgOpciones>(m, p, canales);
    FicherosAveriados averiados{p.Ficheros()};
    bool atendida = false;

    // "Abajo", "Abajo*9", "Alt+Q", "F2"...; Enter y F2 contestan la caja con los textos ("|" entre uno y
    // el siguiente, si se vuelve a preguntar).
    void Tecla(C control, std::string tecla, const std::string& texto = "") {
        static const std::map<std::string, int> kCodigos{
            {"Enter", vbKeyReturn}, {"Inicio", vbKeyHome}, {"Arriba", vbKeyUp}, {"Abajo", vbKeyDown},
            {"Supr", vbKeyDelete},  {"F1", vbKeyF1},       {"F2", vbKeyF2},     {"Mayús", vbShiftMask},
            {"Ctrl", vbCtrlMask},   {"Alt", vbAltMask}};
        const auto mas = tecla.find('+'), por = tecla.find('*');
        const int shift = mas == std::string::npos ? 0 : kCodigos.at(tecla.substr(0, mas));
        const int veces = por == std::string::npos ? 1 : std::stoi(tecla.substr(por + 1));
        tecla = tecla.substr(mas + 1, por - mas - 1);
        const int codigo = tecla.size() == 1 ? tecla[0] : kCodigos.at(tecla);
        if (codigo == vbKeyReturn || codigo == vbKeyF2)
            for (const auto& t : Campos(texto, '|')) p.textos.push_back(t);
        for (int i = 0; i < veces; ++i) atendida = d->Tecla(control, codigo, shift);
    }
    void Paso(std::vector<std::string> c) {
        c.resize(3);
        const std::string& a = c[0];
        // Entre comillas, el texto lleva sus blancos de los extremos.
        if (c[2].size() > 1 && c[2].front() == '"' && c[2].back() == '"')
            c[2] = c[2].substr(1, c[2].size() - 2);
#ifdef _WIN32
        if (a == "CopiarRaros") return;  // nombres que Windows no admite
#endif
        if (a.rfind("Copiar", 0) == 0) {
            for (const auto& n : Lista(c[1], '|'))
                p.carpeta.Escribir("preguntas/" + n + ".qzf", Qzf({"q>¿Sí?", "1>Sí", "a>1"}));
            return;
        }
        if (a == "SinEscribir") {
            averiados.fallaCrear = averiados.fallaRenombrar = true;
            p.ficheros = &averiados;
            return;
        }
        if (a == "Proteger")
            return std::filesystem::permissions(p.carpeta.Ruta() + "/Sabelot.ini",
                                                std::filesystem::perms::owner_read);
        if (a == "Elegir") {
            auto f = Campos(c[1], '|');
            f.resize(6);
            std::copy(f.begin(), f.end(), d->FicheroElegido.begin());
            return;
        }
        if (a == "Escribir") return p.carpeta.Escribir(c[1], "");
        if (a == "Ini") return p.carpeta.Escribir("Sabelot.ini", IniDeDatos(c[1]));
        if (a == "Leer") return LeerOpciones(m, p, canales);
        if (a == "Arrancar") {  // otra ejecución: las opciones de Sabelot.ini y el diálogo sin cargar
            m = Module1{};
            LeerOpciones(m, p, canales);
            d = std::make_unique<DlgOpciones>(m, p, canales);
            return;
        }
        if (a == "Mostrar") return d->Mostrar();
        if (a == "Descargar") return d->Descargar();
        if (a == "Pulsar") return d->Pulsar(Control(c[1]));
        if (a == "FilaDeEtiquetas") {
            d->List2[2].ListIndex = std::stoi(c[1]);
            return;
        }
        if (a == "Tab") return d->CambiarFoco(Control(c[1]));
        // Los demás empiezan en una categoría: el foco en su lista y abajo hasta ella; luego, Tab a los
        // ficheros y abajo hasta uno (o pasar por ellos sin moverse), y Tab a las etiquetas.
        if (a == "Categoria" || a == "Fichero" || a == "PasarPorFicheros" || a == "Etiqueta" ||
            a == "Suprimir") {
            d->CambiarFoco(C::List2_0);
            Tecla(C::List2_0, "Inicio");
            Tecla(C::List2_0, "Abajo*" + c[1]);
            if (a == "Fichero" || a == "PasarPorFicheros") d->CambiarFoco(C::List2_1);
            if (a == "Fichero") Tecla(C::List2_1, "Inicio");
            if (a == "Fichero") Tecla(C::List2_1, "Abajo*" + c[2]);
            if (a != "Categoria") d->CambiarFoco(C::List2_2);
            if (a == "Etiqueta" || a == "Suprimir") Tecla(C::List2_2, a == "Etiqueta" ? "F2" : "Supr", c[2]);
            return;
        }
        Tecla(Control(a), c[1], c[2]);
    }
    std::string Ver(const std::string& que) {
        if (que == "Filas") {
            std::vector<std::string> filas;
            for (const auto* l : {&d->List1[0], &d->List1[1], &d->List2[0], &d->List2[1], &d->List2[2]})
                filas.push_back(std::to_string(l->ListIndex));
            return Unir(filas, " ");
        }
        if (que.rfind("Lleva", 0) == 0) {
            const auto i = std::stoul(que.substr(5));
            return d->FicheroElegido[i] + "|" + d->List2[2].List[i] + "|" +
                   std::to_string(d->IndiceFichero[i]);
        }
        if (que == "Foco") return kControles[static_cast<int>(d->Foco)];
        if (que == "Elegidos") return Unir(d->FicheroElegido);
        if (que == "Caja")
            return p.entradas.back().titulo + ": " + p.entradas.back().indicacion + " [" +
                   p.entradas.back().inicial + "]";
        if (que == "Atendida") return atendida ? "sí" : "no";
        if (que == "Visible") return std::string(d->Visible ? "sí" : "no") + (d->Cargado ? " cargado" : "");
        if (que == "Aviso") {
            if (p.mensajes.empty()) return "(ninguno)";
            const auto a = p.mensajes.front();
            p.mensajes.erase(p.mensajes.begin());
            return std::to_string(a.estilo) + " " + a.titulo + ": " + a.texto;
        }
        if (que == "Opciones") return Opciones(m);
        if (que == "Carpeta") return Unir(p.Ficheros().Listar(p.carpeta.Ruta(), ""));
        if (que == "Ini")
            return p.carpeta.Existe("Sabelot.ini") ? Cp1252AUtf8(p.carpeta.Leer("Sabelot.ini")) : "(ninguno)";
        const int i = static_cast<int>(Control(que));
        return Unir(i <= 2 ? d->List1[static_cast<std::size_t>(i - 1)].List
                           : d->List2[static_cast<std::size_t>(i - 3)].List);
    }
};

// Los guiones de tests/datos/dlg_opciones_guiones.txt, cada uno desde su fila "== Nombre".
std::vector<std::vector<std::string>> Guiones() {
    std::vector<std::vector<std::string>> guiones;
    for (const std::string& fila : LineasDeDatos("dlg_opciones_guiones.txt")) {
        if (fila.rfind("== ", 0) == 0) guiones.emplace_back();
        if (!guiones.empty()) guiones.back().push_back(fila);
    }
    return guiones;
}

class Guion : public ::testing::TestWithParam<std::vector<std::string>>, public Jugador {};

TEST_P(Guion, Pasos) {
    for (std::size_t i = 1; i < GetParam().size(); ++i) {
        const std::string& fila = GetParam()[i];
        const auto c = CamposEnBytes(fila);
        if (fila.rfind("= ", 0) == 0) {
            EXPECT_EQ(Ver(c[0].substr(2)), c.size() > 1 ? c[1] : "") << fila;
        } else {
            Paso(c);
        }
    }
    EXPECT_EQ(Ver("Aviso"), "(ninguno)") << "avisos sin mirar";
}

INSTANTIATE_TEST_SUITE_P(DlgOpciones, Guion, ::testing::ValuesIn(Guiones()),
                         [](const auto& info) { return info.param[0].substr(3); });

// Desde la ventana principal, con Control+O y un jugador más: la partida se va, Cancelar deja una
// nueva de un jugador y Aceptar, otra con los elegidos. El diálogo se carga una sola vez: la segunda
// vez sigue en lo que dejó la primera aunque la partida tenga uno. El título llega con la tecla siguiente.
TEST(FlujoOpciones, CancelarYLuegoAceptar) {
    JuegoPrueba j;
    Preparar(j, "datos=2,3;fichas=30,12;cursor=30;turno=2");
    const std::string ini = j.p.carpeta.Leer("Sabelot.ini");
    // clang-format off
    for (const auto& [boton, filas, despues] : std::vector<std::tuple<C, int, std::string>>{
        {C::CancelButton, 2, "mensajes=1;ini=sí;turno=1;jugadores=1;quesitos=3;tablas=1111;titulo=SÁBELOT - Jugador 2;"
                             "texto=Casilla central\\r\\n Cine arriba\\r\\n Literatura  abajo \\r\\n"},
        {C::OKButton, 12, "ini=no;jugadores=3;tablas=3333;titulo=SÁBELOT - Jugador 1;"
                          "texto=Casilla central\\r\\n(No especificado) arriba\\r\\n(No especificado)  abajo \\r\\n"}}) {
        // clang-format on
        Preparar(j, "sino=6;cuenta=1,1,0,4");
        j.p.alMostrarDlgOpciones = [&, boton = boton, filas = filas](DlgOpciones& d) {
            // Tablas de uno y el cursor en el centro ya antes de abrirse.
            Comprobar(Observar(j), {"cursor=0", "tablas=1111"});
            d.Mostrar();
            EXPECT_EQ(d.List1[0].ListIndex * 10 + d.List1[1].ListIndex, filas);
            d.Tecla(C::List1_0, vbKeyDown, 0);
            d.Pulsar(boton);
        };
        j.Tecla('O', vbCtrlMask | (boton == C::OKButton ? 0 : vbShiftMask));
        auto o = Observar(j);
        o["ini"] = j.p.carpeta.Leer("Sabelot.ini") == ini ? "sí" : "no";
        const std::string comun =
            "izquierda / derecha girar\\r\\nTodas las fichas.;fichas=0,0,0,0,0,0;cursor=0;";
        Comprobar(o, Campos(despues + comun + "j1=0 0/0 0/0 0/0 0/0 0/0 0/0", ';'));
    }
}

}  // namespace
}  // namespace sabelot::prueba

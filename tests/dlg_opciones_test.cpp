// El diálogo de opciones y su editor de categorías, llevados con teclas como un jugador.
#include "options/dlg_opciones.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <map>
#include <memory>

#include "apoyo/datos_prueba.h"
#include "apoyo/ficheros_averiados.h"
#include "apoyo/formas_prueba.h"
#include "apoyo/juego_prueba.h"
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
    bool atendida = false;

    void Copiar(const std::string& nombres) {
        for (const auto& n : Campos(nombres, '|'))
            p.carpeta.Escribir("preguntas/" + n + ".qzf", Qzf({"q>¿Sí?", "1>Sí", "a>1"}));
    }
    // "Abajo", "Abajo*9", "Alt+Q", "F2"...; Enter y F2 contestan la caja con el texto.
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
        if (codigo == vbKeyReturn || codigo == vbKeyF2) p.textos.push_back(texto);
        for (int i = 0; i < veces; ++i) atendida = d->Tecla(control, codigo, shift);
    }
    // El foco en la lista de categorías y abajo hasta la que se quiere.
    void Categoria(int n) {
        d->CambiarFoco(C::List2_0);
        Tecla(C::List2_0, "Inicio");
        Tecla(C::List2_0, "Abajo*" + std::to_string(n));
    }
    // Categoría, Tab a los ficheros, abajo hasta uno (o ninguno, con -1) y Tab a las etiquetas.
    void ElegirFichero(int categoria, int fichero) {
        Categoria(categoria);
        d->CambiarFoco(C::List2_1);
        if (fichero >= 0) Tecla(C::List2_1, "Inicio");
        if (fichero >= 0) Tecla(C::List2_1, "Abajo*" + std::to_string(fichero));
        d->CambiarFoco(C::List2_2);
    }
    void Etiqueta(int categoria, const std::string& tecla, const std::string& texto = "") {
        Categoria(categoria);
        d->CambiarFoco(C::List2_2);
        Tecla(C::List2_2, tecla, texto);
    }
    // Otra ejecución del juego: las opciones de Sabelot.ini y el diálogo sin cargar.
    void Arrancar() {
        m = Module1{};
        LeerOpciones(m, p, canales);
        d = std::make_unique<DlgOpciones>(m, p, canales);
    }
    void Paso(std::vector<std::string> c) {
        c.resize(3);
        const std::string& a = c[0];
        const int n = std::isdigit(static_cast<unsigned char>(c[1][0])) ? std::stoi(c[1]) : 0;
        // Entre comillas, el texto lleva sus blancos de los extremos.
        if (c[2].size() > 1 && c[2].front() == '"' && c[2].back() == '"')
            c[2] = c[2].substr(1, c[2].size() - 2);
        if (a == "Copiar") return Copiar(c[1]);
        if (a == "Escribir") return p.carpeta.Escribir(c[1], "");
        if (a == "Ini") return p.carpeta.Escribir("Sabelot.ini", IniDeDatos(c[1]));
        if (a == "Leer") return LeerOpciones(m, p, canales);
        if (a == "Arrancar") return Arrancar();
        if (a == "Mostrar") return d->Mostrar();
        if (a == "Descargar") return d->Descargar();
        if (a == "Pulsar") return d->Pulsar(Control(c[1]));
        if (a == "Tab") return d->CambiarFoco(Control(c[1]));
        if (a == "FilaDeEtiquetas") return void(d->List2[2].ListIndex = n);
        if (a == "Categoria") return Categoria(n);
        if (a == "Fichero") return ElegirFichero(n, std::stoi(c[2]));
        if (a == "PasarPorFicheros") return ElegirFichero(n, -1);
        if (a == "Etiqueta") return Etiqueta(n, "F2", c[2]);
        if (a == "Suprimir") return Etiqueta(n, "Supr");
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
        if (que == "Ini") {
            if (!p.carpeta.Existe("Sabelot.ini")) return "(ninguno)";
            std::string s = Cp1252AUtf8(p.carpeta.Leer("Sabelot.ini"));
            for (auto i = s.find("\r\n"); i != std::string::npos; i = s.find("\r\n", i)) s.replace(i, 2, "|");
            if (!s.empty() && s.back() != '|') return s + " (sin CRLF al final)";
            return s.substr(0, s.empty() ? 0 : s.size() - 1);
        }
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

class Guion : public ::testing::TestWithParam<std::vector<std::string>> {};

TEST_P(Guion, Pasos) {
    Jugador j;
    for (std::size_t i = 1; i < GetParam().size(); ++i) {
        const std::string& fila = GetParam()[i];
        const auto c = Campos(fila);
        if (fila.rfind("= ", 0) == 0) {
            EXPECT_EQ(j.Ver(c[0].substr(2)), c.size() > 1 ? c[1] : "") << fila;
        } else {
            j.Paso(c);
        }
    }
    EXPECT_EQ(j.Ver("Aviso"), "(ninguno)") << "avisos sin mirar";
}

INSTANTIATE_TEST_SUITE_P(DlgOpciones, Guion, ::testing::ValuesIn(Guiones()),
                         [](const auto& info) { return info.param[0].substr(3); });

class DlgOpcionesTest : public ::testing::Test, public Jugador {};

TEST_F(DlgOpcionesTest, LaListaDeFicherosSeOrdenaSinMayusculasNiAcentos) {
    Copiar("zeta|Alfa|beta|Ñu|nube|Ábaco|Oso|Historia..antigua");
    for (const char* otro : {"ciencia.QZF", "notas.txt", "qzf"})
        p.carpeta.Escribir("preguntas/" + std::string(otro), "");
#ifndef _WIN32
    // Nombres que Sabelot.ini no guardaría tal cual no se ofrecen; dos puntos seguidos, sí.
    Copiar("日本|dos:puntos|comillas\"dobles");
    p.carpeta.Escribir("preguntas/.qzf", "");
#endif
    d->Mostrar();
    EXPECT_EQ(d->List2[1].List, (std::vector<std::string>{"Ábaco", "Alfa", "beta", "ciencia",
                                                          "Historia..antigua", "nube", "Ñu", "Oso", "zeta"}));
    // Y el elegido vuelve de Sabelot.ini: el fichero no se toma por roto.
    ElegirFichero(0, 4);
    d->Pulsar(C::OKButton);
    Module1 leido;
    LeerOpciones(leido, p, canales);
    EXPECT_EQ(leido.FicheroTema[1], "Historia..antigua");
}

// Los temas con el mismo fichero comparten canal: mayúsculas cuentan; dos sin fichero (" ") son iguales.
TEST_F(DlgOpcionesTest, CanalesPorFicheroElegido) {
    Copiar("A|B|C|D|E|F");
    const std::pair<std::string, std::string> casos[] = {{"ABCDEF", "123456"},
                                                         {"AAAAAA", "111111"},
                                                         {"ABACBD", "121324"},
                                                         {"aAa B ", "121343"},
                                                         {"      ", "111111"}};
    for (const auto& [ficheros, esperados] : casos) {
        d->Mostrar();
        for (std::size_t i = 0; i < 6; ++i)
            d->FicheroElegido[i] = ficheros[i] == ' ' ? "" : ficheros.substr(i, 1);
        d->Pulsar(C::OKButton);
        std::string vistos;
        for (std::size_t i = 1; i <= 6; ++i) vistos += std::to_string(m.CanalTema[i]) + m.FicheroTema[i];
        std::string esperado;
        for (std::size_t i = 0; i < 6; ++i) esperado += esperados.substr(i, 1) + d->FicheroElegido[i];
        EXPECT_EQ(vistos, esperado) << ficheros;
    }
}

TEST_F(DlgOpcionesTest, EtiquetaQueNoSePuedeGuardarSeRechazaYSePideOtra) {
    // Antes se aceptaban y volvían como "?" (o rompían las comillas) al leer Sabelot.ini o una partida.
    const std::string kLetras =
        "La etiqueta lleva letras o signos que el juego no puede guardar. Escriba otra.";
    const std::pair<std::string, std::string> rechazadas[] = {
        {"Cine 日本", kLetras},
        {"Historia ő", kLetras},
        {std::string("Cine \xff\xfe", 7), kLetras},
        {"Cine\tnegro", kLetras},
        {"Cine\r\nnegro", kLetras},
        {"Cine \"negro\"", "La etiqueta no puede llevar comillas dobles. Escriba otra."},
        // Se dice en cada casilla; una más larga haría que Sabelot.ini se tomara por roto.
        {std::string(61, 'x'), "La etiqueta es demasiado larga: escriba una de 60 letras como mucho."},
    };
    Copiar("cine");
    d->Mostrar();
    for (const auto& [mala, aviso] : rechazadas) {
        SCOPED_TRACE(mala);
        p.entradas.clear();
        // Lo que sí cabe en Windows-1252 (€, ñ) se queda.
        p.textos = {mala};
        Etiqueta(0, "F2", "Cine €ñ");
        UnAviso(p, aviso, vbExclamation);
        ASSERT_EQ(p.entradas.size(), 2u);
        EXPECT_EQ(p.entradas[1].inicial, mala);
        EXPECT_EQ(d->List2[2].List[0], "Cine €ñ");
        // Cancelar tras el rechazo deja la etiqueta de antes.
        p.textos = {mala};
        Etiqueta(0, "F2");
        p.mensajes.clear();
        EXPECT_EQ(d->List2[2].List[0], "Cine €ñ");
    }
    // 60 letras caben aunque sean 120 bytes en UTF-8, y vuelven iguales de Sabelot.ini.
    std::string sesenta;
    for (int i = 0; i < 60; ++i) sesenta += "ñ";
    Etiqueta(0, "F2", "  " + sesenta + "  ");
    EXPECT_TRUE(p.mensajes.empty());
    d->Pulsar(C::OKButton);
    Module1 leido;
    LeerOpciones(leido, p, canales);
    EXPECT_EQ(leido.EtiquetaTema[1], sesenta + " ");
}

// Una carpeta donde no se puede escribir nada, o un Sabelot.ini que el jugador protegió.
TEST(DlgOpciones, SiNoSePuedeGuardarSeAvisaYValenParaLaSesion) {
    for (const bool protegido : {false, true}) {
        SCOPED_TRACE(protegido);
        Entorno e;
        e.p.carpeta.Escribir("preguntas/cine.qzf", Qzf({"q>x", "1>y", "a>1"}));
        FicherosAveriados soloLectura(e.p.Ficheros());
        soloLectura.fallaCrear = soloLectura.fallaRenombrar = !protegido;
        e.p.ficheros = &soloLectura;
        const std::string ini = "1,6\r\n\"cine\",\"Cine \",1\r\n";
        if (protegido) {
            e.p.carpeta.Escribir("Sabelot.ini", ini);
            std::filesystem::permissions(e.p.carpeta.Ruta() + "/Sabelot.ini",
                                         std::filesystem::perms::owner_read);
        }
        DlgOpciones d(e.m, e.p, e.canales);
        d.Mostrar();
        d.Tecla(C::List1_0, vbKeyDown, 0);
        d.Pulsar(C::OKButton);
        UnAviso(
            e.p,
            "No se pudieron guardar las opciones en el fichero Sabelot.ini. Valen solo para esta sesión: la "
            "próxima vez que abra el juego volverán las anteriores.",
            vbExclamation);
        EXPECT_FALSE(d.Visible);
        EXPECT_EQ(e.m.NumJugadores, 2);
        EXPECT_EQ(e.p.carpeta.Existe("Sabelot.ini") ? e.p.carpeta.Leer("Sabelot.ini") : "",
                  protegido ? ini : "");
        EXPECT_EQ(e.p.Ficheros().Listar(e.p.carpeta.Ruta(), "").size(), protegido ? 1u : 0u)
            << "quedó algo de paso";
    }
}

// Desde la ventana principal, con Control+O: la partida se va, Cancelar deja una nueva de un jugador
// y Aceptar, otra con los jugadores elegidos. El diálogo se carga una sola vez.
TEST(FlujoOpciones, CancelarYLuegoAceptarConTresJugadores) {
    JuegoPrueba j;
    PonerDatosMinimos(j.p.carpeta, 2, 3);
    j.Arrancar();
    const std::string ini = j.p.carpeta.Leer("Sabelot.ini");
    j.f().PosicionFicha = {0, 30, 12, 0, 0, 0, 0};
    j.f().CasillaCursor = 30;
    j.f().JugadorActual = 2;
    j.p.siNo = {vbYes};
    j.p.alMostrarDlgOpciones = [&](DlgOpciones& d) {
        // Un jugador, tablas de uno y el cursor en el centro ya antes de abrirse.
        EXPECT_EQ(j.m().Preguntas.Jugadores(), 1);
        EXPECT_EQ(j.f().CasillaCursor, 0);
        d.Mostrar();
        EXPECT_EQ(d.List1[0].ListIndex, 0);
        EXPECT_EQ(d.List1[1].ListIndex, 2);
        d.Tecla(C::List1_0, vbKeyDown, 0);
        d.Pulsar(C::CancelButton);
    };
    j.Tecla('O', vbCtrlMask | vbShiftMask);
    ASSERT_EQ(j.p.mensajes.size(), 1u);
    EXPECT_EQ(j.p.mensajes[0].texto + j.p.mensajes[0].titulo,
              "Ésto Cancelará la partida actual e iniciará  una nueva. ¿Desea continuar?Modificar opciones");
    EXPECT_EQ(j.p.mensajes[0].estilo, vbYesNo);
    EXPECT_EQ(j.f().PosicionFicha, (std::array<int, 7>{}));
    EXPECT_EQ(j.f().JugadorActual * 1000 + j.m().NumJugadores * 100 + j.m().NumQuesitos.Limite() * 10 +
                  j.m().QuesitosParaGanar,
              1113);
    EXPECT_EQ(j.p.carpeta.Leer("Sabelot.ini"), ini);
    EXPECT_EQ(j.f().Titulo(), "SÁBELOT - Jugador 2");

    // La segunda vez no se carga de nuevo: sigue en DOS aunque la partida tenga uno.
    j.m().Preguntas(1, 1) = 4;
    j.p.siNo = {vbYes};
    j.p.alMostrarDlgOpciones = [&](DlgOpciones& d) {
        d.Mostrar();
        EXPECT_EQ(d.List1[0].ListIndex, 1);
        d.Tecla(C::List1_0, vbKeyDown, 0);
        d.Pulsar(C::OKButton);
    };
    j.Tecla('O', vbCtrlMask);
    EXPECT_EQ(j.m().NumJugadores, 3);
    // Tablas a la medida de los jugadores nuevos, y partida nueva.
    EXPECT_EQ(j.m().Preguntas.Jugadores() * 1000 + j.m().Aciertos.Jugadores() * 100 +
                  j.m().QuesitoGanado.Jugadores() * 10 + j.m().NumQuesitos.Limite(),
              3333);
    EXPECT_EQ(j.m().Preguntas(1, 1), 0);
    EXPECT_EQ(j.f().CasillaCursor, 0);
    EXPECT_EQ(j.f().Texto1().find("Casilla central"), 0u);
    EXPECT_NE(j.f().Texto1().find("Todas las fichas."), std::string::npos);
    // El título no se escribe aquí: llega con la siguiente tecla.
    j.Tecla(90);
    EXPECT_EQ(j.f().Titulo(), "SÁBELOT - Jugador 1");
}

}  // namespace
}  // namespace sabelot::prueba

// El diálogo de opciones y su editor de categorías, llevados con teclas como un jugador.
#include "options/dlg_opciones.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "apoyo/ficheros_averiados.h"
#include "apoyo/juego_prueba.h"
#include "apoyo/plataforma_guion.h"
#include "storage/canales.h"
#include "storage/cp1252.h"
#include "storage/opciones.h"

namespace sabelot::prueba {
namespace {

using C = ControlOpciones;

constexpr int kEnter = 13, kInicio = 36, kArriba = 38, kAbajo = 40, kSupr = 46, kF1 = 112, kF2 = 113;
const std::string kNoEsp = "(No especificado)";

const std::string kAvisoCarpetaVacia =
    "No hay ficheros de preguntas en la carpeta preguntas. Copie allí ficheros con la extensión .qzf y "
    "vuelva "
    "a abrir las opciones.";

class DlgOpcionesTest : public ::testing::Test {
protected:
    PlataformaGuion p;
    Module1 m;  // como al arrancar sin fichero de opciones
    Canales canales{p.Ficheros()};
    DlgOpciones d{m, p, canales};

    void Preguntas(std::initializer_list<std::string> nombres) {
        for (const auto& n : nombres)
            p.carpeta.Escribir("preguntas/" + n + ".qzf", Qzf({"q>¿Sí?", "1>Sí", "a>1"}));
    }
    void Tecla(C c, int codigo, int veces = 1, int shift = 0) {
        for (int i = 0; i < veces; ++i) d.Tecla(c, codigo, shift);
    }
    // El jugador pone el foco en la lista de categorías y baja hasta la que quiere.
    void Categoria(int posicion) {
        d.CambiarFoco(C::List2_0);
        Tecla(C::List2_0, kInicio);
        Tecla(C::List2_0, kAbajo, posicion);
    }
    // Categoría, Tab a los ficheros, baja hasta uno y Tab a las etiquetas.
    void ElegirFichero(int categoria, int fichero) {
        Categoria(categoria);
        d.CambiarFoco(C::List2_1);
        Tecla(C::List2_1, kInicio);
        Tecla(C::List2_1, kAbajo, fichero);
        d.CambiarFoco(C::List2_2);
    }
    void Etiqueta(int categoria, const std::string& texto) {
        Categoria(categoria);
        d.CambiarFoco(C::List2_2);
        p.textos.push_back(texto);
        Tecla(C::List2_2, kF2);
    }
    // Categoría, Tab a los ficheros y Tab a las etiquetas, sin elegir nada.
    void PasarPorFicheros(int categoria) {
        Categoria(categoria);
        d.CambiarFoco(C::List2_1);
        d.CambiarFoco(C::List2_2);
    }
    std::vector<std::string> Etiquetas() const { return d.List2[2].List; }
    // Las filas resaltadas de jugadores, quesitos, categorías, ficheros y etiquetas.
    std::string Filas() const {
        std::string s;
        for (const auto* l : {&d.List1[0], &d.List1[1], &d.List2[0], &d.List2[1], &d.List2[2]})
            s += std::to_string(l->ListIndex) + " ";
        return s;
    }
    // Lo que lleva una categoría: fichero elegido, etiqueta y fila del fichero en la lista.
    std::string Lleva(int c) const {
        const auto i = static_cast<std::size_t>(c);
        return d.FicheroElegido[i] + "|" + d.List2[2].List[i] + "|" + std::to_string(d.IndiceFichero[i]);
    }
    std::string Ini() const { return p.carpeta.Leer("Sabelot.ini"); }
};

// El único cuadro que salió, con su estilo y el título del juego; y se olvida.
void UnAviso(PlataformaGuion& p, const std::string& texto, int estilo = vbExclamation) {
    ASSERT_EQ(p.mensajes.size(), 1u);
    EXPECT_EQ(p.mensajes[0].texto, texto);
    EXPECT_EQ(p.mensajes[0].estilo, estilo);
    EXPECT_EQ(p.mensajes[0].titulo, "Sabelot");
    p.mensajes.clear();
}

TEST_F(DlgOpcionesTest, AlCargarMuestraLosControlesDelDiseno) {
    Preguntas({"historia", "cine"});
    d.Mostrar();
    EXPECT_TRUE(d.Cargado);
    EXPECT_TRUE(d.Visible);
    const std::vector<std::string> numeros{"UNO", "DOS", "TRES", "CUATRO", "CINCO", "SEIS"};
    EXPECT_EQ(d.List1[0].List, numeros);
    EXPECT_EQ(d.List1[1].List, numeros);
    EXPECT_EQ(d.List2[0].List, numeros);
    EXPECT_EQ(d.List2[1].List, (std::vector<std::string>{"cine", "historia"}));
    EXPECT_EQ(Etiquetas(), std::vector<std::string>(6, kNoEsp));
    EXPECT_TRUE(d.OKButton.Enabled);
    EXPECT_EQ(d.Foco, C::List1_0);
    EXPECT_EQ(Filas(), "0 0 0 -1 0 ");
    EXPECT_TRUE(p.mensajes.empty());
}

TEST_F(DlgOpcionesTest, LaListaDeFicherosSeOrdenaSinMayusculasNiAcentos) {
    Preguntas({"zeta", "Alfa", "beta", "Ñu", "nube", "Ábaco", "Oso"});
    p.carpeta.Escribir("preguntas/ciencia.QZF", "");
    p.carpeta.Escribir("preguntas/notas.txt", "");
    p.carpeta.Escribir("preguntas/qzf", "");
#ifndef _WIN32
    // Nombres que Sabelot.ini no guardaría tal cual no se ofrecen; dos puntos seguidos, sí.
    Preguntas({"日本", "dos:puntos", "comillas\"dobles", "Historia..antigua"});
    p.carpeta.Escribir("preguntas/.qzf", "");
#else
    Preguntas({"Historia..antigua"});
#endif
    d.Mostrar();
    EXPECT_EQ(d.List2[1].List, (std::vector<std::string>{"Ábaco", "Alfa", "beta", "ciencia",
                                                         "Historia..antigua", "nube", "Ñu", "Oso", "zeta"}));
    // Y el elegido vuelve de Sabelot.ini: el fichero no se toma por roto.
    ElegirFichero(0, 4);
    d.Pulsar(C::OKButton);
    Module1 leido;
    LeerOpciones(leido, p, canales);
    EXPECT_EQ(leido.FicheroTema[1], "Historia..antigua");
}

TEST_F(DlgOpcionesTest, AceptarEnSeguidaLaPrimeraVez) {
    Preguntas({"cine"});
    d.Mostrar();
    d.Pulsar(C::OKButton);
    EXPECT_FALSE(d.Visible);
    EXPECT_TRUE(d.Cargado);
    EXPECT_EQ(m.NumJugadores, 1);
    EXPECT_EQ(m.QuesitosParaGanar, 1);
    for (int t = 1; t <= 6; ++t) {
        SCOPED_TRACE(t);
        EXPECT_EQ(m.FicheroTema[static_cast<std::size_t>(t)], "");
        EXPECT_EQ(m.EtiquetaTema[static_cast<std::size_t>(t)], "(No especificado) ");
        EXPECT_EQ(m.CanalTema[static_cast<std::size_t>(t)], 1);
    }
    std::string esperado = "1,1\r\n";
    for (int t = 0; t < 6; ++t) esperado += "\"\",\"(No especificado) \",1\r\n";
    EXPECT_EQ(Ini(), esperado);
    EXPECT_TRUE(p.mensajes.empty());
}

TEST_F(DlgOpcionesTest, CanalesPorFicheroElegido) {
    struct Caso {
        std::array<std::string, 6> ficheros;
        std::array<int, 6> canales;
    };
    const Caso casos[] = {
        {{"A", "B", "C", "D", "E", "F"}, {1, 2, 3, 4, 5, 6}},
        {{"A", "A", "A", "A", "A", "A"}, {1, 1, 1, 1, 1, 1}},
        {{"A", "B", "A", "C", "B", "D"}, {1, 2, 1, 3, 2, 4}},
        // Mayúsculas cuentan; dos nombres vacíos son iguales.
        {{"a", "A", "a", "", "B", ""}, {1, 2, 1, 3, 4, 3}},
        {{"", "", "", "", "", ""}, {1, 1, 1, 1, 1, 1}},
    };
    Preguntas({"A", "B", "C", "D", "E", "F"});
    for (const Caso& caso : casos) {
        SCOPED_TRACE(caso.ficheros[0] + caso.ficheros[1] + caso.ficheros[2]);
        d.Mostrar();
        d.FicheroElegido = caso.ficheros;
        d.Pulsar(C::OKButton);
        for (std::size_t p = 0; p < 6; ++p) {
            EXPECT_EQ(d.CanalElegido[p], caso.canales[p]);
            EXPECT_EQ(m.CanalTema[p + 1], caso.canales[p]);
            EXPECT_EQ(m.FicheroTema[p + 1], caso.ficheros[p]);
        }
    }
}

TEST_F(DlgOpcionesTest, AlSalirDeLosFicherosConLosSeisElegidosElFocoVaAAceptar) {
    Preguntas({"uno", "dos"});
    d.Mostrar();
    for (int c = 0; c < 5; ++c) {
        ElegirFichero(c, 1);
        EXPECT_EQ(d.Foco, C::List2_2);
    }
    ElegirFichero(5, 0);
    EXPECT_EQ(d.Foco, C::OKButton);
    // Cualquier salida posterior de la lista de ficheros acaba también en Aceptar.
    d.CambiarFoco(C::List2_0);
    d.CambiarFoco(C::List2_1);
    d.CambiarFoco(C::CancelButton);
    EXPECT_EQ(d.Foco, C::OKButton);
    // Sin pasar por los ficheros, Mayús+Tab desde Aceptar llega a las etiquetas.
    d.CambiarFoco(C::List2_2);
    EXPECT_EQ(d.Foco, C::List2_2);
}

TEST_F(DlgOpcionesTest, LasTresListasSeMuevenJuntas) {
    Preguntas({"a", "b", "c"});
    m.FicheroTema[2] = "c";
    m.EtiquetaTema[2] = "Ciencia ";
    d.Mostrar();
    EXPECT_EQ(d.IndiceFichero[1], 2);
    EXPECT_EQ(Filas(), "0 0 0 -1 0 ");
    // Al entrar la primera vez en las categorías, los ficheros toman su selección.
    d.CambiarFoco(C::List2_0);
    EXPECT_EQ(Filas(), "0 0 0 0 0 ");
    // Abajo en categorías lleva etiquetas y ficheros; en etiquetas, categorías y ficheros.
    Tecla(C::List2_0, kAbajo);
    EXPECT_EQ(Filas(), "0 0 1 2 1 ");
    d.CambiarFoco(C::List2_2);
    Tecla(C::List2_2, kAbajo);
    EXPECT_EQ(Filas(), "0 0 2 0 2 ");
    Tecla(C::List2_2, kArriba);
    EXPECT_EQ(Filas(), "0 0 1 2 1 ");
    // En ficheros solo se mueven los ficheros.
    d.CambiarFoco(C::List2_1);
    Tecla(C::List2_1, kArriba);
    EXPECT_EQ(Filas(), "0 0 1 1 1 ");
    // Moverse por categorías y etiquetas no apunta nada.
    EXPECT_EQ(d.FicheroElegido, (std::array<std::string, 6>{"", "c", "", "", "", ""}));
    EXPECT_EQ(Etiquetas()[1], "Ciencia ");
    // Entrar en una lista pone al día las etiquetas aunque los ficheros ya estén en su sitio.
    d.CambiarFoco(C::List2_2);
    d.List2[2].ListIndex = 4;
    d.CambiarFoco(C::List2_0);
    EXPECT_EQ(Filas(), "0 0 1 1 1 ");
}

TEST_F(DlgOpcionesTest, SalirDeLosFicherosTomaElResaltadoYPoneLaEtiqueta) {
    Preguntas({"arte", "cine", "deportes"});
    d.Mostrar();
    // Pasar por la lista con Tab toma el primer fichero, aunque no se eligiera nada.
    PasarPorFicheros(0);
    EXPECT_EQ(Lleva(0), "arte|arte|0");
    // Etiqueta propia y salir con el mismo fichero: se queda.
    Etiqueta(0, "Arte y cultura");
    PasarPorFicheros(0);
    EXPECT_EQ(Lleva(0), "arte|Arte y cultura|0");
    // Fichero primero y etiqueta después: se queda.
    ElegirFichero(1, 2);
    Etiqueta(1, "Fútbol");
    EXPECT_EQ(Lleva(1), "deportes|Fútbol|2");
    // Etiqueta primero y luego otro fichero: la etiqueta se pierde.
    Etiqueta(2, "Películas");
    ElegirFichero(2, 1);
    EXPECT_EQ(Lleva(2), "cine|cine|1");
    ElegirFichero(0, 1);
    EXPECT_EQ(Lleva(0), "cine|cine|1");
}

TEST_F(DlgOpcionesTest, SuprimirDejaLaCategoriaSinNada) {
    Preguntas({"arte", "cine"});
    d.Mostrar();
    ElegirFichero(3, 1);
    Tecla(C::List2_2, kAbajo);
    Tecla(C::List2_2, kArriba);
    Tecla(C::List2_2, kSupr);
    EXPECT_EQ(Lleva(3), "|" + kNoEsp + "|1");
    // Volver a pasar por los ficheros asigna otra vez el de IndiceFichero, con su nombre.
    PasarPorFicheros(3);
    EXPECT_EQ(Lleva(3), "cine|cine|1");
    Tecla(C::List2_2, kSupr);
    d.Pulsar(C::OKButton);
    EXPECT_EQ(m.FicheroTema[4], "");
    EXPECT_EQ(m.EtiquetaTema[4], "(No especificado) ");
}

TEST_F(DlgOpcionesTest, EditarLaEtiqueta) {
    Preguntas({"arte", "cine"});
    d.Mostrar();

    // Sin etiqueta, la caja empieza con el fichero resaltado; con Enter igual que con F2.
    Categoria(0);
    d.CambiarFoco(C::List2_2);
    p.textos = {"  Cine  "};
    Tecla(C::List2_2, kEnter);
    ASSERT_EQ(p.entradas.size(), 1u);
    EXPECT_EQ(p.entradas[0].titulo, "Etiqueta de categoría");
    EXPECT_EQ(p.entradas[0].indicacion, "Escriba el texto a mostrar en las casillas de este tema:");
    EXPECT_EQ(p.entradas[0].inicial, "arte");
    EXPECT_EQ(Lleva(0), "|Cine|0");  // etiqueta propia sin fichero

    // Con etiqueta empieza con ella; cancelar no cambia nada.
    p.textos = {""};
    Tecla(C::List2_2, kF2);
    EXPECT_EQ(p.entradas[1].inicial, "Cine");
    EXPECT_EQ(Etiquetas()[0], "Cine");

    // Una fila sin etiqueta empieza con el fichero resaltado.
    Categoria(1);
    d.CambiarFoco(C::List2_1);
    Tecla(C::List2_1, kAbajo);
    d.CambiarFoco(C::List2_2);
    Tecla(C::List2_2, kSupr);
    p.textos = {"   "};
    Tecla(C::List2_2, kF2);
    EXPECT_EQ(p.entradas[2].inicial, "cine");
    // Solo blancos: la fila queda vacía y no vuelve "(No especificado)".
    EXPECT_EQ(Etiquetas()[1], "");
    d.Pulsar(C::OKButton);
    EXPECT_EQ(m.EtiquetaTema[2], " ");
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
    for (const auto& [mala, aviso] : rechazadas) {
        SCOPED_TRACE(mala);
        Preguntas({"cine"});
        d.Mostrar();
        Categoria(0);
        d.CambiarFoco(C::List2_2);
        p.mensajes.clear();
        p.entradas.clear();
        p.textos = {mala, "Cine €ñ"};

        Tecla(C::List2_2, kF2);
        UnAviso(p, aviso);
        ASSERT_EQ(p.entradas.size(), 2u);
        EXPECT_EQ(p.entradas[1].inicial, mala);
        // Lo que sí cabe en Windows-1252 (€, ñ) se queda.
        EXPECT_EQ(Etiquetas()[0], "Cine €ñ");
        // Cancelar tras el rechazo deja la etiqueta de antes.
        p.textos = {mala, ""};
        Tecla(C::List2_2, kF2);
        EXPECT_EQ(Etiquetas()[0], "Cine €ñ");
        d.Pulsar(C::CancelButton);
    }
    // 60 letras caben aunque sean 120 bytes en UTF-8, y vuelven iguales de Sabelot.ini.
    std::string sesenta;
    for (int i = 0; i < 60; ++i) sesenta += "ñ";
    p.mensajes.clear();
    d.Mostrar();
    Etiqueta(0, "  " + sesenta + "  ");
    EXPECT_TRUE(p.mensajes.empty());
    d.Pulsar(C::OKButton);
    Module1 leido;
    LeerOpciones(leido, p, canales);
    EXPECT_EQ(leido.EtiquetaTema[1], sesenta + " ");
}

TEST_F(DlgOpcionesTest, AyudasConF1) {
    Preguntas({"cine"});
    d.Mostrar();
    const std::string jugadores =
        "Seleccione el número de jugadores que van a participar. Pueden ser entre 1 y 6.";
    auto ficheros = [](int categoria) {
        return "Seleccione el fichero de preguntas que quiere utilizar para la categoría actualmente "
               "seleccionada (" +
               std::to_string(categoria) +
               "). Utilice las flechas para recorrer la lista. Es posible utilizar el mismo fichero de "
               "preguntas "
               "para más de una categoría. El nombre del fichero de preguntas se introducirá como texto "
               "predeterminado para mostrarlo en las casillas de esta categoría.";
    };
    const struct {
        C control;
        int categoria, shift;  // categoría resaltada, para la ayuda de los ficheros
        std::string texto;
    } casos[] = {
        {C::List1_0, 0, 0, jugadores},
        {C::List1_0, 0, 2, jugadores},
        {C::List1_1, 0, 0,
         "Seleccione el número de \"quesitos\" que debe conseguir un jugador para poder enfrentarse a la "
         "prueba "
         "de la casilla central y ganar el juego."},
        {C::List2_0, 0, 0,
         "Seleccione una categoría para que sus datos se muestren en los otros cuadros de lista y poder "
         "modificarlos."},
        {C::List2_1, 0, 0, ficheros(1)},
        {C::List2_1, 4, 1, ficheros(5)},
        {C::List2_2, 0, 0,
         "En esta lista se muestra el texto que aparecerá en las casillas del tablero. Para modificar el "
         "texto de "
         "una categoría, pulse F2 e introdúzcalo."},
    };
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.texto);
        Categoria(caso.categoria);
        d.CambiarFoco(caso.control);
        EXPECT_TRUE(d.Tecla(caso.control, kF1, caso.shift));
        UnAviso(p, caso.texto, vbOKOnly);
        EXPECT_EQ(d.List2[0].ListIndex, caso.categoria);  // F1 no mueve nada
    }
}

TEST_F(DlgOpcionesTest, JugadoresYQuesitosConLasTeclas) {
    Preguntas({"cine"});
    m.QuesitosParaGanar = 4;
    d.Mostrar();
    EXPECT_EQ(Filas(), "0 3 0 -1 0 ");
    Tecla(C::List1_0, kAbajo, 2);
    d.CambiarFoco(C::List1_1);
    Tecla(C::List1_1, kAbajo, 9);  // se para en SEIS
    EXPECT_EQ(Filas(), "2 5 0 -1 0 ");
    Tecla(C::List1_1, 'C');  // la inicial: CUATRO, luego CINCO
    EXPECT_EQ(d.List1[1].ListIndex, 3);
    Tecla(C::List1_1, 'C');
    // Con Alt la tecla es del acceso rápido, no de la lista.
    EXPECT_FALSE(d.Tecla(C::List1_1, 'Q', 4));
    EXPECT_EQ(d.List1[1].ListIndex, 4);
    d.Pulsar(C::OKButton);
    EXPECT_EQ(m.NumJugadores, 3);
    EXPECT_EQ(m.QuesitosParaGanar, 5);
}

TEST_F(DlgOpcionesTest, FicheroOlvidadoDeLaCarpetaSeEscribeIgual) {
    Preguntas({"arte", "cine"});
    m.FicheroTema[1] = "viejo";
    m.EtiquetaTema[1] = "Viejo ";
    m.FicheroTema[2] = "cine";
    m.EtiquetaTema[2] = "Cine ";
    d.Mostrar();
    EXPECT_EQ(Lleva(0), "viejo|Viejo |0");
    EXPECT_EQ(Lleva(1), "cine|Cine |1");
    d.Pulsar(C::OKButton);
    EXPECT_EQ(m.FicheroTema[1], "viejo");
    EXPECT_EQ(m.EtiquetaTema[1], "Viejo ");
    EXPECT_TRUE(p.mensajes.empty());
}

TEST_F(DlgOpcionesTest, FicheroDeOpcionesExactoYLeidoIgual) {
    Preguntas({"Cine", "Deportes", "Historia", "Ciencia", "Mezcla"});
    d.Mostrar();
    Tecla(C::List1_0, kAbajo, 2);
    Tecla(C::List1_1, kAbajo, 3);
    // Orden de la lista: Ciencia, Cine, Deportes, Historia, Mezcla.
    const int fichero[6] = {1, 2, 1, 3, 0, 4};
    for (int c = 0; c < 6; ++c) ElegirFichero(c, fichero[c]);
    Etiqueta(2, "Series y televisión");
    Etiqueta(5, "Cajón de sastre");
    d.Pulsar(C::OKButton);
    const std::string esperado = Utf8ACp1252(
        "3,4\r\n"
        "\"Cine\",\"Cine \",1\r\n"
        "\"Deportes\",\"Deportes \",2\r\n"
        "\"Cine\",\"Series y televisión \",1\r\n"
        "\"Historia\",\"Historia \",3\r\n"
        "\"Ciencia\",\"Ciencia \",4\r\n"
        "\"Mezcla\",\"Cajón de sastre \",5\r\n");
    EXPECT_EQ(Ini(), esperado);

    Module1 leido;
    LeerOpciones(leido, p, canales);
    EXPECT_EQ(leido.NumJugadores, 3);
    EXPECT_EQ(leido.QuesitosParaGanar, 4);
    EXPECT_EQ(leido.FicheroTema, m.FicheroTema);
    EXPECT_EQ(leido.EtiquetaTema, m.EtiquetaTema);
    EXPECT_EQ(leido.CanalTema, m.CanalTema);

    // Aceptar otra vez sin cambios escribe lo mismo, y también en otra ejecución, desde el fichero:
    // el blanco de cada etiqueta no se dobla.
    d.Mostrar();
    d.Pulsar(C::OKButton);
    EXPECT_EQ(Ini(), esperado);
    DlgOpciones d2(leido, p, canales);
    d2.Mostrar();
    EXPECT_EQ(d2.List2[2].List[2], "Series y televisión ");
    d2.Pulsar(C::OKButton);
    EXPECT_EQ(Ini(), esperado);
}

TEST_F(DlgOpcionesTest, CancelarLaPrimeraVezNoTocaNada) {
    Preguntas({"cine"});
    std::string antes = "2,3\r\n";
    for (int t = 1; t <= 6; ++t) antes += "\"cine\",\"Cine \",1\r\n";
    p.carpeta.Escribir("Sabelot.ini", antes);
    LeerOpciones(m, p, canales);
    ASSERT_EQ(m.QuesitosParaGanar, 3);
    m.NumJugadores = 1;  // como lo deja Control+O
    m.EtiquetaTema[1] = "";
    d.Mostrar();
    Tecla(C::List1_0, kAbajo, 3);
    Etiqueta(0, "Cine");
    d.Pulsar(C::CancelButton);
    EXPECT_FALSE(d.Visible);
    EXPECT_EQ(Ini(), antes);
    EXPECT_EQ(m.NumJugadores, 1);
    EXPECT_EQ(m.QuesitosParaGanar, 3);
    EXPECT_EQ(m.EtiquetaTema[1], "");

    // Al volver a abrir sigue lo que se dejó, y Aceptar lo toma.
    d.Mostrar();
    EXPECT_EQ(d.List1[0].ListIndex, 3);
    EXPECT_EQ(Etiquetas()[0], "Cine");
    d.Pulsar(C::OKButton);
    EXPECT_EQ(m.NumJugadores, 4);
    EXPECT_EQ(m.EtiquetaTema[1], "Cine ");
}

TEST_F(DlgOpcionesTest, SoloSeCargaUnaVezSalvoSiSeCierraDesdeLaBarra) {
    Preguntas({"cine"});
    d.Mostrar();
    d.Pulsar(C::OKButton);
    // Ficheros nuevos y opciones cambiadas por otro lado no se ven al volver.
    Preguntas({"arte"});
    m.QuesitosParaGanar = 6;
    m.EtiquetaTema[1] = "Arte ";
    m.FicheroTema[1] = "arte";
    d.Mostrar();
    EXPECT_EQ(d.List2[1].List, std::vector<std::string>{"cine"});
    EXPECT_EQ(d.List1[1].ListIndex, 0);
    EXPECT_EQ(Etiquetas()[0], kNoEsp);
    EXPECT_EQ(d.Foco, C::OKButton);

    // Cerrar desde la barra descarga sin guardar nada; la próxima vez se carga de nuevo.
    Tecla(C::List1_0, kAbajo, 2);
    p.carpeta.Escribir("Sabelot.ini", "");
    d.Descargar();
    EXPECT_FALSE(d.Cargado);
    EXPECT_FALSE(d.Visible);
    EXPECT_EQ(m.NumJugadores, 1);
    EXPECT_EQ(Ini(), "");
    d.Mostrar();
    EXPECT_TRUE(d.Cargado);
    EXPECT_EQ((std::vector<int>{d.List1[0].ListIndex, d.List1[1].ListIndex}), (std::vector<int>{0, 5}));
    EXPECT_EQ(d.List2[1].List, (std::vector<std::string>{"arte", "cine"}));
    EXPECT_EQ(Etiquetas()[0], "Arte ");
    EXPECT_EQ(d.Foco, C::List1_0);
}

TEST_F(DlgOpcionesTest, SinFicherosDePreguntas) {
    for (bool hayCarpeta : {false, true}) {
        SCOPED_TRACE(hayCarpeta);
        PlataformaGuion p2;
        if (hayCarpeta) p2.carpeta.Escribir("preguntas/leeme.txt", "");
        Module1 m2;
        Canales c2(p2.Ficheros());
        DlgOpciones d2(m2, p2, c2);
        d2.Mostrar();
        EXPECT_TRUE(d2.Visible);
        UnAviso(p2, kAvisoCarpetaVacia);
        // Las listas siguen respondiendo aunque no haya ficheros.
        d2.CambiarFoco(C::List2_0);
        d2.Tecla(C::List2_0, kAbajo, 0);
        d2.CambiarFoco(C::List2_1);
        EXPECT_FALSE(d2.Tecla(C::List2_1, kAbajo, 0));
        d2.CambiarFoco(C::List2_2);
        EXPECT_EQ(d2.FicheroElegido[1], "");
        // Sin fichero resaltado la caja de la etiqueta empieza vacía.
        p2.textos = {"Cine"};
        d2.Tecla(C::List2_2, kF2, 0);
        ASSERT_EQ(p2.entradas.size(), 1u);
        EXPECT_EQ(p2.entradas[0].inicial, "");
        EXPECT_EQ(d2.List2[2].List[1], "Cine");
        d2.Pulsar(C::CancelButton);
        EXPECT_FALSE(d2.Visible);
        // Al volver a abrir sin ficheros se avisa otra vez; sin nombres que falten, Aceptar guarda.
        d2.Mostrar();
        UnAviso(p2, kAvisoCarpetaVacia);
        d2.Pulsar(C::OKButton);
        EXPECT_FALSE(d2.Visible);
        EXPECT_TRUE(p2.carpeta.Existe("Sabelot.ini"));
    }
}

TEST_F(DlgOpcionesTest, SinFicherosAceptarNoGuardaNombresQueNoExisten) {
    const std::string antes =
        "2,3\r\n\"cine\",\"Cine \",1\r\n\"cine\",\"Cine \",1\r\n\"\",\"Nada \",2\r\n\"arte\",\"Arte \",2\r\n"
        "\"cine\",\"Cine \",1\r\n\"cine\",\"Cine \",1\r\n";
    p.carpeta.Escribir("Sabelot.ini", antes);
    LeerOpciones(m, p, canales);
    ASSERT_EQ(m.FicheroTema[4], "arte");
    m.NumJugadores = 1;
    d.Mostrar();
    p.mensajes.clear();
    d.Pulsar(C::OKButton);
    UnAviso(
        p,
        "Las categorías 1, 2, 4, 5 y 6 nombran ficheros de preguntas que no existen, y la carpeta preguntas "
        "no tiene ninguno. Las opciones no se han guardado. Pulse Cancelar para salir, o Suprimir en el "
        "texto de esas categorías para dejarlas sin fichero.");
    EXPECT_TRUE(d.Visible);
    EXPECT_EQ(Ini(), antes);
    EXPECT_EQ(m.FicheroTema[1], "cine");

    // Suprimir en todas menos una: el aviso nombra la que queda.
    for (int c : {0, 1, 4, 5}) {
        Categoria(c);
        d.CambiarFoco(C::List2_2);
        Tecla(C::List2_2, kSupr);
    }
    d.Pulsar(C::OKButton);
    UnAviso(
        p,
        "La categoría 4 nombra un fichero de preguntas que no existe, y la carpeta preguntas no tiene "
        "ninguno. Las opciones no se han guardado. Pulse Cancelar para salir, o Suprimir en el texto de esa "
        "categoría para dejarla sin fichero.");
    EXPECT_TRUE(d.Visible);

    // Copiados los ficheros, al volver a abrir se ven y Aceptar ya guarda.
    d.Pulsar(C::CancelButton);
    Preguntas({"arte", "cine"});
    d.Mostrar();
    EXPECT_TRUE(p.mensajes.empty());
    EXPECT_EQ(d.List2[1].List, (std::vector<std::string>{"arte", "cine"}));
    EXPECT_EQ(d.IndiceFichero[3], 0);
    d.Pulsar(C::OKButton);
    EXPECT_FALSE(d.Visible);
    EXPECT_EQ(m.FicheroTema[4], "arte");
    EXPECT_NE(Ini(), antes);
}

// Una carpeta donde no se puede escribir nada, o un Sabelot.ini que el jugador protegió.
TEST(DlgOpciones, SiNoSePuedeGuardarSeAvisaYValenParaLaSesion) {
    for (const bool protegido : {false, true}) {
        PlataformaGuion p;
        p.carpeta.Escribir("preguntas/cine.qzf", Qzf({"q>x", "1>y", "a>1"}));
        FicherosAveriados soloLectura(p.Ficheros());
        soloLectura.fallaCrear = !protegido;
        soloLectura.fallaRenombrar = !protegido;
        p.ficheros = &soloLectura;
        const std::string ini = "1,6\r\n\"cine\",\"Cine \",1\r\n";
        if (protegido) {
            p.carpeta.Escribir("Sabelot.ini", ini);
            std::filesystem::permissions(p.carpeta.Ruta() + "/Sabelot.ini",
                                         std::filesystem::perms::owner_read |
                                             std::filesystem::perms::group_read |
                                             std::filesystem::perms::others_read);
        }
        Module1 m;
        Canales canales(p.Ficheros());
        DlgOpciones d(m, p, canales);
        d.Mostrar();
        d.Tecla(C::List1_0, kAbajo, 0);
        d.Pulsar(C::OKButton);
        SCOPED_TRACE(protegido);
        UnAviso(
            p,
            "No se pudieron guardar las opciones en el fichero Sabelot.ini. Valen solo para esta sesión: la "
            "próxima vez que abra el juego volverán las anteriores.");
        EXPECT_FALSE(d.Visible);
        EXPECT_EQ(m.NumJugadores, 2);
        EXPECT_EQ(p.carpeta.Existe("Sabelot.ini") ? p.carpeta.Leer("Sabelot.ini") : "", protegido ? ini : "");
        EXPECT_EQ(p.Ficheros().Listar(p.carpeta.Ruta(), "").size(), protegido ? 1u : 0u)
            << "quedó algo de paso";
    }
}

// --- Desde la ventana principal, con Control+O ---

class FlujoOpcionesTest : public ::testing::Test {
protected:
    JuegoPrueba j;
    void SetUp() override {
        PonerDatosMinimos(j.p.carpeta, 2, 3);
        j.Arrancar();
    }
};

TEST_F(FlujoOpcionesTest, AceptarConTresJugadores) {
    j.f().PosicionFicha = {0, 30, 12, 0, 0, 0, 0};
    j.f().CasillaCursor = 30;
    j.f().JugadorActual = 2;
    j.m().Preguntas(1, 2) = 4;
    j.p.siNo = {vbYes};
    j.p.alMostrarDlgOpciones = [&](DlgOpciones& d) {
        // La partida ya se ha ido: un jugador, tablas de uno y el cursor en el centro.
        EXPECT_EQ(j.m().Preguntas.Jugadores(), 1);
        EXPECT_EQ(j.f().CasillaCursor, 0);
        d.Mostrar();
        EXPECT_EQ(d.List1[0].ListIndex, 0);
        EXPECT_EQ(d.List1[1].ListIndex, 2);
        d.Tecla(C::List1_0, kAbajo, 0);
        d.Tecla(C::List1_0, kAbajo, 0);
        d.Pulsar(C::OKButton);
    };
    j.Tecla('O', vbCtrlMask | vbShiftMask);
    ASSERT_EQ(j.p.mensajes.size(), 1u);
    EXPECT_EQ(j.p.mensajes[0].texto,
              "Ésto Cancelará la partida actual e iniciará  una nueva. ¿Desea continuar?");
    EXPECT_EQ(j.p.mensajes[0].estilo, vbYesNo);
    EXPECT_EQ(j.p.mensajes[0].titulo, "Modificar opciones");
    EXPECT_EQ(j.p.opcionesMostradas, 1);
    EXPECT_EQ(j.m().NumJugadores, 3);
    // Tablas a la medida de los jugadores nuevos, y partida nueva.
    EXPECT_EQ(j.m().Preguntas.Jugadores() * 1000 + j.m().Aciertos.Jugadores() * 100 +
                  j.m().QuesitoGanado.Jugadores() * 10 + j.m().NumQuesitos.Limite(),
              3333);
    EXPECT_EQ(j.m().Preguntas(1, 2), 0);
    EXPECT_EQ(j.f().PosicionFicha, (std::array<int, 7>{}));
    EXPECT_EQ(j.f().JugadorActual, 1);
    EXPECT_EQ(j.f().CasillaCursor, 0);
    EXPECT_EQ(j.f().Texto1().find("Casilla central"), 0u);
    EXPECT_NE(j.f().Texto1().find("Todas las fichas."), std::string::npos);
    // El título no se escribe aquí: llega con la siguiente tecla.
    EXPECT_EQ(j.f().Titulo(), "SÁBELOT - Jugador 2");
    j.Tecla(90);
    EXPECT_EQ(j.f().Titulo(), "SÁBELOT - Jugador 1");
}

TEST_F(FlujoOpcionesTest, CancelarDejaUnJugador) {
    j.p.siNo = {vbYes};
    j.p.alMostrarDlgOpciones = [&](DlgOpciones& d) {
        d.Mostrar();
        d.Tecla(C::List1_0, kAbajo, 0);
        d.Pulsar(C::CancelButton);
    };
    j.f().PosicionFicha = {0, 30, 12, 0, 0, 0, 0};
    j.f().CasillaCursor = 16;
    const std::string ini = j.p.carpeta.Leer("Sabelot.ini");
    j.Tecla('O', 2);
    // Cancelar no devuelve la partida: queda una nueva de un jugador.
    EXPECT_EQ(j.f().PosicionFicha, (std::array<int, 7>{}));
    EXPECT_EQ(j.f().CasillaCursor, 0);
    EXPECT_EQ(j.m().NumJugadores, 1);
    EXPECT_EQ(j.m().Preguntas.Jugadores(), 1);
    EXPECT_EQ(j.m().NumQuesitos.Limite(), 1);
    EXPECT_EQ(j.m().QuesitosParaGanar, 3);
    EXPECT_EQ(j.p.carpeta.Leer("Sabelot.ini"), ini);

    // La segunda vez no se carga de nuevo: sigue en DOS aunque la partida tenga uno.
    j.p.siNo = {vbYes};
    j.p.alMostrarDlgOpciones = [&](DlgOpciones& d) {
        d.Mostrar();
        EXPECT_EQ(d.List1[0].ListIndex, 1);
        d.Pulsar(C::OKButton);
    };
    j.Tecla('O', 2);
    EXPECT_EQ(j.m().NumJugadores, 2);
    EXPECT_EQ(j.m().NumQuesitos.Limite(), 2);
}

}  // namespace
}  // namespace sabelot::prueba

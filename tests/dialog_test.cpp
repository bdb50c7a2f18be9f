// Dialog: botones, rótulos, valores y foco según las opciones; la pregunta de salir.
#include "frontend/dialog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "apoyo/formas_prueba.h"

namespace sabelot::prueba {
namespace {

const std::string kSalir = "¿Realmente desea abandonar el juego?";

class DialogTest : public ::testing::Test {
protected:
    Module1 m;
    PlataformaGuion p;
    Dialog d{m, p};

    // Carga y activa con estas opciones.
    void Abrir(int valorEnDado, const std::string& lista, const std::string& mensaje) {
        m.ListaValores = lista;
        d.ValorEnDado = valorEnDado;
        d.Mensaje = mensaje;
        d.Form_Load();
        d.Form_Activate();
    }
    // "rótulo=valor" de cada botón visible, o "-" si está oculto.
    std::vector<std::string> Botones() const {
        std::vector<std::string> v;
        for (std::size_t i = 0; i < 7; ++i) {
            const auto& b = d.Command1[i];
            EXPECT_EQ(b.Visible, b.Enabled) << i;
            v.push_back(b.Visible ? b.Caption + "=" + std::to_string(d.ValorOpcion[i]) : "-");
        }
        return v;
    }
    // Cargado, con ese título y con los siete botones como salen del diseño.
    void ComoRecienCargado(const std::string& titulo) const {
        EXPECT_TRUE(d.Cargado);
        EXPECT_EQ(d.Titulo, titulo);
        for (const auto& b : d.Command1) EXPECT_TRUE(b.Caption == "Command1" && b.Visible && b.Enabled);
    }
};

// Dónde va cada opción según cuántas hay; el foco en la primera visible; hay que pulsar.
struct Disposicion {
    int valorEnDado;
    std::string titulo, lista, lineas;
    std::vector<std::string> botones;
    int foco, pulsado, elegido;
};

class DisposicionTest : public DialogTest, public ::testing::WithParamInterface<Disposicion> {};

TEST_P(DisposicionTest, BotonesFocoYValorElegido) {
    const Disposicion& c = GetParam();
    // Solo cuentan los primeros dos puntos: los de una opción son de su texto.
    Abrir(c.valorEnDado, c.lista, "Puedes ir a casillas de:\r\n" + c.lineas);
    EXPECT_EQ(d.Titulo, c.titulo);
    EXPECT_EQ(d.Text1, "Puedes ir a casillas de:\r\n" + c.lineas + "\r\nElige una opción.");
    EXPECT_EQ(Botones(), c.botones);
    EXPECT_EQ(d.Foco, c.foco);
    EXPECT_EQ(d.NumOpciones, static_cast<int>(7 - std::count(c.botones.begin(), c.botones.end(), "-")));
    EXPECT_EQ(std::make_pair(d.Cargado, m.ValorElegido), std::make_pair(true, -1));
    d.Command1_Click(c.pulsado);
    // También el centro del tablero (0) se elige sin preguntar nada.
    EXPECT_EQ(m.ValorElegido, c.elegido);
    EXPECT_FALSE(d.Cargado);
    EXPECT_TRUE(p.mensajes.empty());
}

const std::vector<std::string> kDos = {"-", " Cine =0", " Historia  =14", "-", "-", "-", "-"};

// clang-format off
INSTANTIATE_TEST_SUITE_P(Dialog, DisposicionTest, ::testing::Values(
    Disposicion{1, "1", "21_", "Uno: el primero\r\n", {"Uno: el primero=21", "-", "-", "-", "-", "-", "-"}, 0, 0, 21},
    Disposicion{-1, "Casilla central", "0_14_", " Cine \r\n Historia  \r\n", kDos, 1, 1, 0},
    Disposicion{-2, "PRUEBA FINAL", "0_14_", " Cine \r\n Historia  \r\n", kDos, 1, 2, 14},
    Disposicion{0, "Mover ficha", "40_45_14_", "a\r\nb\r\nc\r\n", {"a=40", "b=45", "c=14", "-", "-", "-", "-"}, 0, 2, 14},
    Disposicion{-3, "Mover ficha", "15_20_25_30_35_78_37_", "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n",
                {"1=15", "2=20", "3=25", "4=30", "5=35", "6=78", "7=37"}, 0, 6, 37}));
// clang-format on

TEST_F(DialogTest, CerrarSinElegirPreguntaSiSeAbandona) {
    Abrir(3, "40_45_14_", "Elige:\r\na\r\nb\r\nc\r\n");
    const auto antes = Botones();
    // Un botón oculto o que no existe no se puede pulsar.
    for (int i : {3, 6, 9, -1}) d.Command1_Click(i);
    p.siNo = {vbNo};
    EXPECT_TRUE(d.Form_QueryUnload());
    UnAviso(p, kSalir, vbYesNo);
    EXPECT_EQ(Botones(), antes);
    EXPECT_EQ(std::make_tuple(d.Foco, d.Cargado, m.ValorElegido), std::make_tuple(0, true, -1));
    // Con Sí se acaba el programa.
    p.siNo = {vbYes};
    EXPECT_THROW(d.Form_QueryUnload(), ProgramaTerminado);
}

// Tras elegir se cierra sin preguntar; la carga siguiente empieza de cero.
TEST_F(DialogTest, TrasElegirSeCierraSinPreguntarYDescargaLaVista) {
    struct : VistaDialog {
        int refrescos = 0, descargas = 0;
        void Refrescar() override { ++refrescos; }
        void Descargar() override { ++descargas; }
    } vista;
    d.PonerVista(&vista);
    Abrir(3, "40_45_14_", "Elige:\r\na\r\nb\r\nc\r\n");
    EXPECT_GE(vista.refrescos, 2);
    EXPECT_EQ(vista.descargas, 0);
    d.Command1_Click(1);
    EXPECT_EQ(vista.descargas, 1);
    EXPECT_FALSE(d.Form_QueryUnload());
    EXPECT_TRUE(p.mensajes.empty());
    d.Form_Load();
    EXPECT_EQ(d.Text1, "");
    ComoRecienCargado("Mover ficha");
}

// Sin mensaje pita; sin los dos puntos avisa del error. Las dos veces pide cerrar y, si no, sigue
// como se cargó.
TEST_F(DialogTest, MensajeQueNoSirve) {
    p.siNo = {vbNo};
    Abrir(3, "1_", "");
    EXPECT_EQ(p.pitidos, 1);
    UnAviso(p, kSalir, vbYesNo);
    EXPECT_EQ(m.ValorElegido, -1);
    ComoRecienCargado("Mover ficha");

    p.siNo = {vbNo};
    Abrir(3, "1_2_", "Sin lista\r\na\r\nb\r\n");
    EXPECT_EQ(p.TextosMensajes(),
              (std::vector<std::string>{"Error: no se envió el texto del mensaje", kSalir}));
    EXPECT_EQ(std::to_string(p.mensajes[0].estilo) + " " + p.mensajes[0].titulo, "0 Sabelot");
    EXPECT_EQ(m.ValorElegido, -1);
    ComoRecienCargado("3");

    p.siNo = {vbYes};
    EXPECT_THROW(Abrir(3, "1_", ""), ProgramaTerminado);
}

// Fuera de lo que mandan los llamadores: se avisa al depurar y, si no, se ponen los botones que se
// pueda sin leer fuera de las tablas (sin valores, ninguno: quedan como se cargaron, visibles).
TEST_F(DialogTest, ListasFueraDeLoQueSeEspera) {
    const struct {
        std::string lista, mensaje;
        std::vector<std::string> botones;
    } casos[] = {
        {"1_2_3_4_5_6_7_8_",
         "Elige:\r\n1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n",
         {"1=1", "2=2", "3=3", "4=4", "5=5", "6=6", "7=7"}},
        {"1_2_3_4_", "Elige:\r\nuno\r\ndos\r\ntres", {"-", "uno=1", "dos=2", "-", "-", "-", "-"}},
        {"", "Elige:\r\nuno\r\n", {}},
    };
    for (const auto& c : casos) {
        SCOPED_TRACE(c.lista);
        EXPECT_DEBUG_DEATH(Abrir(3, c.lista, c.mensaje), "");
#ifdef NDEBUG
        if (c.botones.empty())
            ComoRecienCargado("3");
        else
            EXPECT_EQ(Botones(), c.botones);
#endif
    }
}

}  // namespace
}  // namespace sabelot::prueba

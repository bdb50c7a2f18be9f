// Dialog: botones, rótulos, valores y foco según las opciones; la pregunta de salir.
#include "frontend/dialog.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "apoyo/plataforma_guion.h"

namespace sabelot {
namespace {

using prueba::PlataformaGuion;
using prueba::ProgramaTerminado;

class VistaCuenta : public VistaDialog {
public:
    int refrescos = 0, descargas = 0;
    void Refrescar() override { ++refrescos; }
    void Descargar() override { ++descargas; }
};

class DialogTest : public ::testing::Test {
protected:
    DialogTest() : d(m, p) {}

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

    Module1 m;
    PlataformaGuion p;
    Dialog d;
};

const std::string kCabeza = "Lanzas el dado y sacas un 4.\r\nPuedes ir a casillas de:\r\n";

// Dónde va cada opción según cuántas hay; el foco en la primera visible; hay que pulsar.
struct Disposicion {
    int valorEnDado;
    std::string lista, lineas;
    std::vector<std::string> botones;
    int foco, pulsado, elegido;
};

class DisposicionTest : public DialogTest, public ::testing::WithParamInterface<Disposicion> {};

TEST_P(DisposicionTest, BotonesFocoYValorElegido) {
    const Disposicion& c = GetParam();
    Abrir(c.valorEnDado, c.lista, kCabeza + c.lineas);
    EXPECT_EQ(Botones(), c.botones);
    EXPECT_EQ(d.Foco, c.foco);
    EXPECT_EQ(d.NumOpciones, static_cast<int>(7 - std::count(c.botones.begin(), c.botones.end(), "-")));
    EXPECT_TRUE(d.Cargado);
    EXPECT_EQ(m.ValorElegido, -1);
    d.Command1_Click(c.pulsado);
    // También el centro del tablero (0) se elige sin preguntar nada.
    EXPECT_EQ(m.ValorElegido, c.elegido);
    EXPECT_FALSE(d.Cargado);
    EXPECT_TRUE(p.mensajes.empty());
}

const std::vector<std::string> kDos = {"-", "Centro (arriba )=0", "Otra (abajo )=14", "-", "-", "-", "-"};

INSTANTIATE_TEST_SUITE_P(
    Dialog, DisposicionTest,
    ::testing::Values(
        Disposicion{
            4, "21_", "Uno (abajo )\r\n", {"Uno (abajo )=21", "-", "-", "-", "-", "-", "-"}, 0, 0, 21},
        Disposicion{2, "0_14_", "Centro (arriba )\r\nOtra (abajo )\r\n", kDos, 1, 1, 0},
        Disposicion{2, "0_14_", "Centro (arriba )\r\nOtra (abajo )\r\n", kDos, 1, 2, 14},
        Disposicion{
            3, "40_45_14_", "a\r\nb\r\nc\r\n", {"a=40", "b=45", "c=14", "-", "-", "-", "-"}, 0, 2, 14},
        Disposicion{6,
                    "15_20_25_30_35_78_37_",
                    "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n",
                    {"1=15", "2=20", "3=25", "4=30", "5=35", "6=78", "7=37"},
                    0,
                    6,
                    37}));

TEST_F(DialogTest, TituloSegunValorEnDado) {
    const struct {
        int valor;
        const char* titulo;
    } casos[] = {{1, "1"},           {6, "6"},           {-1, "Casilla central"}, {-2, "PRUEBA FINAL"},
                 {0, "Mover ficha"}, {-3, "Mover ficha"}};
    for (const auto& c : casos) {
        Abrir(c.valor, "1_", "Elija:\r\nx\r\n");
        EXPECT_EQ(d.Titulo, c.titulo) << c.valor;
    }
}

TEST_F(DialogTest, ElTextoRepiteLaOfertaYPideElegir) {
    Abrir(-1, "1_2_", "Elija sobre qué categoría:\r\n Cine \r\n Historia \r\n");
    EXPECT_EQ(d.Text1, "Elija sobre qué categoría:\r\n Cine \r\n Historia \r\n\r\nElige una opción.");
    EXPECT_EQ(Botones(), (std::vector<std::string>{"-", " Cine =1", " Historia =2", "-", "-", "-", "-"}));
}

TEST_F(DialogTest, SoloCuentanLosPrimerosDosPuntos) {
    Abrir(1, "3_4_", "Elige:\r\nUno: el primero\r\nDos\r\n");
    EXPECT_EQ(d.TextoOpcion[0], "Uno: el primero");
    EXPECT_EQ(d.TextoOpcion[1], "Dos");
}

TEST_F(DialogTest, CadaCargaEmpiezaDeCero) {
    Abrir(3, "5_", "Elige:\r\nx\r\n");
    d.Command1_Click(0);
    d.Form_Load();
    EXPECT_EQ(d.Titulo, "Mover ficha");
    EXPECT_EQ(d.Text1, "");
    for (const auto& b : d.Command1) {
        EXPECT_EQ(b.Caption, "Command1");
        EXPECT_TRUE(b.Visible);
        EXPECT_TRUE(b.Enabled);
    }
    EXPECT_TRUE(d.Cargado);
}

TEST_F(DialogTest, CerrarSinElegirPreguntaSiSeAbandona) {
    Abrir(3, "40_45_14_", kCabeza + "a\r\nb\r\nc\r\n");
    const auto antes = Botones();
    p.siNo = {vbNo};
    EXPECT_TRUE(d.Form_QueryUnload());
    ASSERT_EQ(p.mensajes.size(), 1u);
    EXPECT_EQ(p.mensajes[0].texto, "¿Realmente desea abandonar el juego?");
    EXPECT_EQ(p.mensajes[0].estilo, 4);
    EXPECT_EQ(p.mensajes[0].titulo, "Sabelot");
    EXPECT_EQ(Botones(), antes);
    EXPECT_EQ(d.Foco, 0);
    EXPECT_TRUE(d.Cargado);
    EXPECT_EQ(m.ValorElegido, -1);
    // Con Sí se acaba el programa.
    p.siNo = {vbYes};
    EXPECT_THROW(d.Form_QueryUnload(), ProgramaTerminado);
}

TEST_F(DialogTest, TrasElegirSeCierraSinPreguntarYDescargaLaVista) {
    VistaCuenta vista;
    d.PonerVista(&vista);
    Abrir(3, "40_45_14_", kCabeza + "a\r\nb\r\nc\r\n");
    EXPECT_GE(vista.refrescos, 2);
    EXPECT_EQ(vista.descargas, 0);
    d.Command1_Click(1);
    EXPECT_EQ(vista.descargas, 1);
    EXPECT_FALSE(d.Form_QueryUnload());
    EXPECT_TRUE(p.mensajes.empty());
}

TEST_F(DialogTest, MensajeVacioPitaYPideCerrar) {
    p.siNo = {vbNo};
    Abrir(3, "1_", "");
    EXPECT_EQ(p.pitidos, 1);
    EXPECT_EQ(m.ValorElegido, -1);
    EXPECT_EQ(p.TextosMensajes(), std::vector<std::string>{"¿Realmente desea abandonar el juego?"});
    // Dijo que no: sigue abierto tal como se cargó.
    EXPECT_TRUE(d.Cargado);
    EXPECT_EQ(d.Titulo, "Mover ficha");
    EXPECT_EQ(d.Command1[6].Caption, "Command1");

    p.siNo = {vbYes};
    EXPECT_THROW(Abrir(3, "1_", ""), ProgramaTerminado);
}

TEST_F(DialogTest, MensajeSinDosPuntosAvisaDelError) {
    p.siNo = {vbNo};
    Abrir(3, "1_2_", "Sin lista\r\na\r\nb\r\n");
    EXPECT_EQ(p.TextosMensajes(), (std::vector<std::string>{"Error: no se envió el texto del mensaje",
                                                            "¿Realmente desea abandonar el juego?"}));
    EXPECT_EQ(p.mensajes[0].estilo, 0);
    EXPECT_EQ(p.mensajes[0].titulo, "Sabelot");
    EXPECT_EQ(m.ValorElegido, -1);
    EXPECT_TRUE(d.Cargado);
    EXPECT_EQ(d.Titulo, "3");
    EXPECT_EQ(d.Command1[0].Caption, "Command1");
}

TEST_F(DialogTest, UnBotonOcultoNoSePuedePulsar) {
    Abrir(2, "7_8_", "Elige:\r\nx\r\ny\r\n");
    d.Command1_Click(0);
    d.Command1_Click(5);
    d.Command1_Click(9);
    EXPECT_TRUE(d.Cargado);
    EXPECT_EQ(m.ValorElegido, -1);
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
        if (c.botones.empty()) {
            EXPECT_EQ(d.Command1[0].Caption, "Command1");
            EXPECT_TRUE(d.Command1[6].Visible);
        } else {
            EXPECT_EQ(Botones(), c.botones);
        }
#endif
    }
}

}  // namespace
}  // namespace sabelot

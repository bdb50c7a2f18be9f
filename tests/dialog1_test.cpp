// Dialog1 sobre la plataforma con guion: lo que se ve, las teclas y el veredicto.
#include "questions/dialog1.h"

#include <gtest/gtest.h>

#include "apoyo/juego_prueba.h"
#include "storage/canales.h"

namespace sabelot {
namespace {

using prueba::Qzf;

// Cuenta y apunta el pitido y el texto de la respuesta en cada refresco.
class VistaCuenta : public VistaDialog1 {
public:
    int refrescos = 0, ocultaciones = 0;
    const prueba::PlataformaGuion* p = nullptr;
    const Dialog1* d = nullptr;
    std::pair<int, std::string> visto;
    void Refrescar() override {
        ++refrescos;
        if (p && d) visto = {p->pitidos, d->Text2};
    }
    void Ocultar() override { ++ocultaciones; }
};

class Dialogo1 : public ::testing::Test {
protected:
    prueba::PlataformaGuion p;
    Module1 m;
    Canales canales{p.Ficheros()};
    Dialog1 d{m, p, canales};

    void SetUp() override {
        for (int t = 1; t <= kNumTemas; ++t) {
            m.FicheroTema[static_cast<std::size_t>(t)] = "tema" + std::to_string(t);
            m.CanalTema[static_cast<std::size_t>(t)] = t;
        }
        m.EtiquetaTema[1] = "Cine";
        m.EtiquetaTema[2] = "Geografía";
        m.EtiquetaTema[3] = "Historia";
    }
    void Poner(int tema, const std::string& bytes) {
        p.carpeta.Escribir("preguntas/tema" + std::to_string(tema) + ".qzf", bytes);
    }
    // Muestra el diálogo y lo deja abierto con la pregunta leída, sin contestar.
    void Abrir(int tema) {
        p.alMostrarDialog1 = [](Dialog1& dd) {
            dd.Visible = true;
            dd.Form_Activate();
        };
        d.NTema = tema;
        p.azar.push_back(0.0);
        p.MostrarDialog1(d);
    }
    // Una tecla a Text2; devuelve el código como queda.
    int Tecla(int codigo) {
        d.Text2_KeyDown(codigo, 0);
        return codigo;
    }
};

const std::string kTres = Qzf({"q>¿Cuántos lados tiene un hexágono?", "1>Cinco", "2>Seis", "3>Ocho", "a>2",
                               "c>Seis lados", "y seis ángulos."});

TEST_F(Dialogo1, LoQueSeVeAlPreguntar) {
    Poner(2, kTres);
    Abrir(2);
    EXPECT_TRUE(d.Visible);
    EXPECT_EQ("Pregunta de Geografía.\r\n¿Cuántos lados tiene un hexágono?", d.Titulo);
    EXPECT_EQ("  ¿Cuántos lados tiene un hexágono?", d.Text1);
    EXPECT_EQ("1. Cinco", d.Text2);
    EXPECT_EQ(1, d.IndiceActual);
    // Se cuentan caracteres, no bytes: 35 caracteres con los dos blancos.
    EXPECT_EQ(1, d.Text1SelStart);
    EXPECT_EQ(34, d.Text1SelLength);
    EXPECT_TRUE(p.mensajes.empty());
}

TEST_F(Dialogo1, SemillaDelRelojYTemaFueraDeRango) {
    struct Caso {
        int tema, hora, minuto, segundo;
        int temaFinal;
        std::int64_t semilla;
    };
    const std::vector<Caso> casos = {
        {0, 23, 59, 59, 1, 80063},  // no cabe en 16 bits
        {7, 12, 30, 0, 1, 0},
        {-2, 1, 2, 3, 1, 6},
        {3, 10, 10, 10, 3, 1000},
    };
    for (int t = 1; t <= 3; ++t) Poner(t, kTres);
    for (const auto& c : casos) {
        SCOPED_TRACE(c.tema);
        p.hora = c.hora;
        p.minuto = c.minuto;
        p.segundo = c.segundo;
        Abrir(c.tema);
        EXPECT_EQ(c.temaFinal, d.NTema);
        EXPECT_EQ(c.semilla, p.ultimaSemilla);
        EXPECT_EQ("Pregunta de " + m.EtiquetaTema[static_cast<std::size_t>(c.temaFinal)],
                  d.Titulo.substr(0, d.Titulo.find('.')));
    }
}

TEST_F(Dialogo1, TeclasDeLasRespuestas) {
    struct Paso {
        int tecla;
        std::string text2;
        int pitidos;  // acumulados
        int codigo;   // como queda el código
    };
    const std::vector<Paso> pasos = {
        {40, "2. Seis", 0, 40},
        {40, "3. Ocho", 0, 40},
        {40, "1. Cinco", 1, 40},
        {38, "3. Ocho", 2, 38},
        {38, "2. Seis", 2, 38},
        // Tragadas: izquierda, derecha, inicio, fin, suprimir, letras, cifras, F1.
        {37, "2. Seis", 2, 0},
        {39, "2. Seis", 2, 0},
        {36, "2. Seis", 2, 0},
        {35, "2. Seis", 2, 0},
        {46, "2. Seis", 2, 0},
        {65, "2. Seis", 2, 0},
        {49, "2. Seis", 2, 0},
        {51, "2. Seis", 2, 0},
        {112, "2. Seis", 2, 0},
        // Por debajo de 32 se dejan a la ventana.
        {9, "2. Seis", 2, 9},
        {27, "2. Seis", 2, 27},
        {8, "2. Seis", 2, 8},
    };
    Poner(1, kTres);
    Abrir(1);
    for (const auto& paso : pasos) {
        SCOPED_TRACE(paso.tecla);
        EXPECT_EQ(paso.codigo, Tecla(paso.tecla));
        EXPECT_EQ(paso.text2, d.Text2);
        EXPECT_EQ(paso.pitidos, p.pitidos);
        EXPECT_TRUE(d.Visible);
    }
    EXPECT_TRUE(p.mensajes.empty());
    int caracter = 'x';
    d.Text2_KeyPress(caracter);
    EXPECT_EQ(0, caracter);
}

TEST_F(Dialogo1, UnaSolaRespuestaPitaYSeRepite) {
    Poner(1, Qzf({"q>P", "1>Sola", "a>1"}));
    Abrir(1);
    EXPECT_EQ(0, Tecla(65));
    Tecla(40);
    EXPECT_EQ("1. Sola", d.Text2);
    Tecla(38);
    EXPECT_EQ("1. Sola", d.Text2);
    EXPECT_EQ(2, p.pitidos);
    EXPECT_TRUE(d.Visible);
}

TEST_F(Dialogo1, Veredictos) {
    struct Caso {
        const char* nombre;
        std::string fichero;
        std::vector<int> teclas;
        std::string mensaje;
        bool correcta;
    };
    const std::string sinComentario = Qzf({"q>P", "1>Cinco", "2>Seis", "a>2"});
    const std::vector<Caso> casos = {
        {"bien con comentario",
         kTres,
         {40, 13},
         "respuesta correcta.\r\nSeis lados\r\ny seis ángulos.",
         true},
        {"bien con espacio", kTres, {40, 32}, "respuesta correcta.\r\nSeis lados\r\ny seis ángulos.", true},
        {"bien sin comentario", sinComentario, {40, 13}, "respuesta correcta", true},
        {"mal no da comentario", kTres, {13}, "La respuesta correcta era Seis", false},
        {"mal tras dar la vuelta", kTres, {38, 32}, "La respuesta correcta era Seis", false},
        {"comentario de la a",
         Qzf({"q>P", "1>A", "a>1 Muy fácil"}),
         {13},
         "respuesta correcta.\r\nMuy fácil",
         true},
    };
    // En la última categoría, que también cuenta.
    for (const auto& c : casos) {
        SCOPED_TRACE(c.nombre);
        canales.CerrarTodos();
        m.TotalMazo[6] = 0;
        m.MazoUsado[6].clear();
        m.CuentaMazo[6] = 5;
        p.mensajes.clear();
        Poner(6, c.fichero);
        Abrir(6);
        d.RespuestaCorrecta = !c.correcta;
        bool visibleAlDecirlo = false;
        p.alMensaje = [this, &visibleAlDecirlo](const prueba::PlataformaGuion::Mensaje&) {
            visibleAlDecirlo = d.Visible;
        };
        for (int t : c.teclas) Tecla(t);
        p.alMensaje = nullptr;
        ASSERT_EQ(1u, p.mensajes.size());
        EXPECT_EQ(c.mensaje, p.mensajes[0].texto);
        EXPECT_EQ(0, p.mensajes[0].estilo);
        EXPECT_EQ("Sabelot", p.mensajes[0].titulo);
        EXPECT_TRUE(visibleAlDecirlo);
        EXPECT_EQ(c.correcta, d.RespuestaCorrecta);
        EXPECT_FALSE(d.Visible);
        // La cuenta se puso a 0 al contar el fichero; sube una por pregunta juzgada.
        EXPECT_EQ(1, m.CuentaMazo[6]);
    }
}

// El pitido va antes de cambiar el texto; la vista se oculta al juzgar.
TEST_F(Dialogo1, LaVistaSeRefrescaTrasElPitidoYSeOcultaAlJuzgar) {
    VistaCuenta vista;
    vista.p = &p;
    vista.d = &d;
    d.PonerVista(&vista);
    Poner(1, kTres);
    Abrir(1);
    EXPECT_GE(vista.refrescos, 1);
    int antes = vista.refrescos;
    Tecla(38);
    EXPECT_EQ(antes + 1, vista.refrescos);
    EXPECT_EQ(std::make_pair(1, std::string("3. Ocho")), vista.visto);
    EXPECT_EQ(0, vista.ocultaciones);
    Tecla(13);
    EXPECT_EQ(1, vista.ocultaciones);
    EXPECT_FALSE(d.Visible);
}

// El mensaje de la vuelta sale con el diálogo abierto, antes de la pregunta nueva.
TEST_F(Dialogo1, VueltaAlMazoConElDialogoAbierto) {
    Poner(1, Qzf({"q>Única", "1>A", "a>1", ""}));
    p.respuestas = {1};
    p.azar = {0.0};
    d.NTema = 1;
    p.MostrarDialog1(d);
    d.Text1 = "vieja";
    std::string text1AlDecirlo;
    bool visible = false;
    p.alMensaje = [&](const prueba::PlataformaGuion::Mensaje& msg) {
        if (msg.texto == "Dando la vuelta al mazo de preguntas") {
            text1AlDecirlo = d.Text1;
            visible = d.Visible;
        }
    };
    p.respuestas = {1};
    p.MostrarDialog1(d);
    EXPECT_EQ("vieja", text1AlDecirlo);
    EXPECT_TRUE(visible);
    EXPECT_EQ("  Única", d.Text1);
}

// Sin fichero no hay pregunta: el diálogo se cierra enseguida y no cuenta nada.
TEST_F(Dialogo1, SinFicheroSeCierraSinContar) {
    VistaCuenta vista;
    d.PonerVista(&vista);
    d.NTema = 1;
    d.RespuestaCorrecta = true;
    p.MostrarDialog1(d);
    EXPECT_EQ(2u, p.mensajes.size());
    EXPECT_TRUE(d.SinPregunta);
    EXPECT_FALSE(d.RespuestaCorrecta);
    EXPECT_FALSE(d.Visible);
    EXPECT_EQ(1, vista.ocultaciones);
    EXPECT_EQ(0, m.CuentaMazo[1]);
    EXPECT_EQ("Text1", d.Text2);
    EXPECT_EQ("Pregunta de Cine", d.Titulo);
    // Y la vez siguiente, con el fichero ya puesto, pregunta normalmente.
    Poner(1, kTres);
    p.respuestas = {2};
    p.azar = {0.0};
    p.MostrarDialog1(d);
    EXPECT_FALSE(d.SinPregunta);
    EXPECT_TRUE(d.RespuestaCorrecta);
    EXPECT_EQ(1, m.CuentaMazo[1]);
}

}  // namespace
}  // namespace sabelot

// Los cuadros de mensaje y de entrada propios, con teclas de verdad.
#include <gtest/gtest.h>
#include <wx/uiaction.h>

#include <memory>
#include <string>
#include <vector>

#include "apoyo_gui.h"
#include "wx/plataforma_wx.h"

using prueba_gui::DialogoVisto;
using prueba_gui::PulsarTecla;

namespace {

class Cajas : public ::testing::Test {
protected:
    Cajas() : anunciador(CrearAnunciador()), plataforma(carpeta.Ruta(), *anunciador), vigilante(nullptr) {}

    // Teclas que se pulsan, en orden, cuando el cuadro ya tiene el foco.
    void Contestar(std::vector<int> teclas) {
        vigilante.contestar = [teclas](const DialogoVisto&) {
            for (std::size_t i = 0; i + 1 < teclas.size(); ++i) PulsarTecla(teclas[i]);
            return teclas.back();
        };
    }

    prueba_gui::CarpetaPrograma carpeta;
    std::unique_ptr<Anunciador> anunciador;
    PlataformaWx plataforma;
    prueba_gui::Vigilante vigilante;
};

struct CasoMensaje {
    int estilo;
    std::vector<int> teclas;
    int resultado;
};

TEST_F(Cajas, LasTeclasDelCuadroDeMensajeDanSuResultado) {
    const CasoMensaje casos[] = {
        {0, {WXK_RETURN}, 1},          {0, {WXK_ESCAPE}, 1},          {0, {WXK_SPACE}, 1},
        {48, {WXK_RETURN}, 1},         {4, {WXK_RETURN}, 6},          {4, {WXK_SPACE}, 6},
        {4, {WXK_ESCAPE}, 7},          {4, {WXK_TAB, WXK_RETURN}, 7}, {4, {WXK_TAB, WXK_SPACE}, 7},
        {4, {WXK_TAB, WXK_ESCAPE}, 7},
    };
    for (const CasoMensaje& c : casos) {
        SCOPED_TRACE(::testing::Message() << "estilo " << c.estilo << ", teclas " << c.teclas.size()
                                          << ", primera " << c.teclas.front());
        Contestar(c.teclas);
        EXPECT_EQ(plataforma.MsgBox("¿Seguro?\r\nDe verdad.", c.estilo, "Título"), c.resultado);
        EXPECT_EQ(plataforma.ModalesAbiertos(), 0);
    }
    ASSERT_EQ(vigilante.vistos.size(), std::size(casos));
    EXPECT_EQ(vigilante.vistos[0].titulo, "Título");
    EXPECT_EQ(vigilante.vistos[0].texto, "¿Seguro?\r\nDe verdad.");
}

struct CasoEntrada {
    std::vector<int> teclas;
    std::string resultado;
};

TEST_F(Cajas, LasTeclasDelCuadroDeEntradaDanElTextoOVacio) {
    const CasoEntrada casos[] = {
        {{WXK_RETURN}, "partida uno"},
        {{WXK_ESCAPE}, ""},
        {{'N', 'U', 'E', 'V', 'A', WXK_RETURN}, "nueva"},  // el texto inicial va seleccionado
        {{WXK_TAB, WXK_RETURN}, "partida uno"},            // Enter en Aceptar
        {{WXK_TAB, WXK_TAB, WXK_RETURN}, ""},              // Enter en Cancelar
        {{WXK_TAB, WXK_TAB, WXK_SPACE}, ""},
    };
    for (const CasoEntrada& c : casos) {
        SCOPED_TRACE(::testing::Message() << "esperado '" << c.resultado << "', teclas " << c.teclas.size());
        Contestar(c.teclas);
        EXPECT_EQ(plataforma.InputBox("Nombre de la partida:", "Guardar", "partida uno"), c.resultado);
    }
    ASSERT_FALSE(vigilante.vistos.empty());
    EXPECT_EQ(vigilante.vistos[0].clase, DialogoVisto::Entrada);
    EXPECT_EQ(vigilante.vistos[0].titulo, "Guardar");
    EXPECT_EQ(vigilante.vistos[0].texto, "Nombre de la partida:");
}

TEST_F(Cajas, ElAzarSeRepiteConLaMismaSemillaYNoLlegaAUno) {
    plataforma.Randomize(80063);
    std::vector<double> primera;
    for (int i = 0; i < 1000; ++i) primera.push_back(plataforma.Rnd());
    plataforma.Randomize(80063);
    for (int i = 0; i < 1000; ++i) {
        const double r = plataforma.Rnd();
        ASSERT_EQ(r, primera[static_cast<std::size_t>(i)]);
        ASSERT_GE(r, 0.0);
        ASSERT_LT(r, 1.0);
    }
    plataforma.Randomize(0);
    EXPECT_NE(plataforma.Rnd(), primera[0]);
}

}  // namespace

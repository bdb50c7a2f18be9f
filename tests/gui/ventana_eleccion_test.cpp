// La ventana de elección con teclas de verdad: flechas, Tab, Enter, Espacio, Escape, Alt+F4.
#include "wx/ventana_eleccion.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "apoyo/plataforma_guion.h"
#include "gui/pasos.h"

namespace sabelot::prueba {
namespace {

class VentanaEleccionTest : public ::testing::Test {
protected:
    Module1 m;
    PlataformaGuion p;
    Dialog d{m, p};
    AnunciadorPrueba anun;
    std::unique_ptr<VentanaEleccion> v;

    void SetUp() override { v = std::make_unique<VentanaEleccion>(nullptr, d, anun); }
    // Ya no es modal: se puede borrar sin esperar a la inactividad.
    void TearDown() override { v.reset(); }

    void Ofrecer(int dado, const std::string& valores, const std::string& mensaje) {
        d.ValorEnDado = dado;
        m.ListaValores = valores;
        d.Mensaje = mensaje;
    }

    // El índice del botón con el foco, o -1.
    int Foco() const {
        for (int i = 0; i < 7; ++i)
            if (wxWindow::FindFocus() == v->Boton(i)) return i;
        return -1;
    }
    // Los botones que se ven y se pueden pulsar.
    std::string EnUso() const {
        std::string s;
        for (int i = 0; i < 7; ++i)
            if (v->Boton(i)->IsShown() && v->Boton(i)->IsEnabled()) s += std::to_string(i);
        return s;
    }
};

TEST_F(VentanaEleccionTest, DosOpcionesAIzquierdaYDerechaConRotulosSinAtajos) {
    Ofrecer(3, "12_0_", "Con un 3 puedes ir a:\r\nCiencias & Naturaleza, hacia fuera\r\nCasilla central\r\n");
    Pasos pasos(*v,
                {[&] {
                     EXPECT_EQ(v->GetTitle(), "3");
                     EXPECT_EQ(EnUso(), "12");
                     EXPECT_EQ(v->Boton(1)->GetLabelText(), "Ciencias & Naturaleza, hacia fuera");
                     EXPECT_EQ(v->Boton(2)->GetLabelText(), "Casilla central");
                     EXPECT_EQ(v->Texto()->GetValue(), wxString::FromUTF8(d.Text1));
                     EXPECT_TRUE(v->Texto()->GetValue().EndsWith(wxString::FromUTF8("Elige una opción.")));
                     EXPECT_EQ(Foco(), 1);
                 },
                 Tecla(WXK_ESCAPE),
                 [&] {
                     EXPECT_TRUE(v->IsModal()) << "Escape no cierra";
                     EXPECT_EQ(Foco(), 1);
                 },
                 Tecla(WXK_RIGHT), [&] { EXPECT_EQ(Foco(), 2); }, Tecla(WXK_RETURN)});
    v->MostrarModal();
    EXPECT_TRUE(pasos.Acabados());
    EXPECT_EQ(m.ValorElegido, 0) << "la casilla central se elige como cualquier otra";
    EXPECT_FALSE(v->IsShown());
    EXPECT_TRUE(p.mensajes.empty());

    // Nada se anuncia aparte: el lector dice la ventana al recibir el foco, con la oferta
    // entera como su descripción, y después el botón con el foco.
    EXPECT_TRUE(anun.dichos.empty());
    EXPECT_EQ(anun.nombres[v.get()].second, wxString::FromUTF8(d.Text1));
}

TEST_F(VentanaEleccionTest, SieteOpcionesEnTresFilasYFlechasEnOrdenDeTabulacion) {
    Ofrecer(-2, "1_2_3_4_5_6_7_",
            "Elige la categoría:\r\nUno\r\nDos\r\nTres\r\nCuatro\r\nCinco\r\nSeis\r\nSiete\r\n");
    Pasos pasos(*v,
                {[&] {
                     EXPECT_EQ(v->GetTitle(), "PRUEBA FINAL");
                     EXPECT_EQ(EnUso(), "0123456");
                     const char* rotulos[] = {"Uno", "Dos", "Tres", "Cuatro", "Cinco", "Seis", "Siete"};
                     for (int i = 0; i < 7; ++i) EXPECT_EQ(v->Boton(i)->GetLabelText(), rotulos[i]);
                     // Centro, izquierda y derecha por fila; la séptima sola en el centro.
                     auto pos = [&](int i) { return v->Boton(i)->GetPosition(); };
                     EXPECT_LT(pos(1).x, pos(0).x);
                     EXPECT_LT(pos(0).x, pos(2).x);
                     EXPECT_EQ(pos(1).y, pos(0).y);
                     EXPECT_EQ(pos(2).y, pos(0).y);
                     EXPECT_GT(pos(3).y, pos(0).y);
                     EXPECT_EQ(pos(3).x, pos(0).x);
                     EXPECT_EQ(pos(4).x, pos(1).x);
                     EXPECT_EQ(pos(5).x, pos(2).x);
                     EXPECT_GT(pos(6).y, pos(3).y);
                     EXPECT_EQ(pos(6).x, pos(0).x);
                     EXPECT_GT(pos(0).y, v->Texto()->GetRect().GetBottom());
                     EXPECT_EQ(Foco(), 0);
                 },
                 Tecla(WXK_LEFT), [&] { EXPECT_EQ(Foco(), 6) << "la flecha da la vuelta"; }, Tecla(WXK_DOWN),
                 [&] { EXPECT_EQ(Foco(), 0); }, Tecla(WXK_RIGHT), Tecla(WXK_RIGHT), Tecla(WXK_RIGHT),
                 [&] { EXPECT_EQ(Foco(), 3); }, Tecla(WXK_UP), [&] { EXPECT_EQ(Foco(), 2); }, Tecla(WXK_TAB),
                 [&] { EXPECT_EQ(Foco(), 3); }, Tecla(WXK_TAB, wxMOD_SHIFT), [&] { EXPECT_EQ(Foco(), 2); },
                 Tecla(WXK_TAB), Tecla(WXK_TAB), [&] { EXPECT_EQ(Foco(), 4); }, Tecla(WXK_SPACE)});
    v->MostrarModal();
    EXPECT_TRUE(pasos.Acabados());
    EXPECT_EQ(m.ValorElegido, 5);
}

TEST_F(VentanaEleccionTest, CerrarYContestarNoDejaLaOfertaConElMismoFoco) {
    Ofrecer(5, "30_41_", "Con un 5 puedes ir a:\r\nHistoria\r\nDeportes\r\n");
    p.siNo = {vbNo};
    Pasos pasos(*v, {Tecla(WXK_RIGHT), [&] { EXPECT_EQ(Foco(), 2); },
                     // El gestor de ventanas convierte Alt+F4 en la petición de cierre.
                     Tecla(WXK_F4, wxMOD_ALT),
                     [&] {
                         ASSERT_EQ(p.mensajes.size(), 1u);
                         EXPECT_EQ(p.mensajes[0].texto, "¿Realmente desea abandonar el juego?");
                         EXPECT_EQ(p.mensajes[0].estilo, vbYesNo);
                         EXPECT_EQ(p.mensajes[0].titulo, "Sabelot");
                         EXPECT_TRUE(v->IsModal());
                         EXPECT_EQ(Foco(), 2);
                         EXPECT_EQ(m.ValorElegido, -1);
                     },
                     Tecla(WXK_RETURN)});
    v->MostrarModal();
    EXPECT_TRUE(pasos.Acabados());
    EXPECT_EQ(m.ValorElegido, 41);
}

TEST_F(VentanaEleccionTest, SinMensajeSeDescargaSinLlegarASalir) {
    Ofrecer(2, "1_", "");
    p.siNo = {vbYes};
    EXPECT_THROW(v->MostrarModal(), ProgramaTerminado);
    EXPECT_FALSE(v->IsShown());
    EXPECT_EQ(m.ValorElegido, -1);
}

}  // namespace
}  // namespace sabelot::prueba

// Dialog: botones, rótulos, valores y foco según las opciones; la pregunta de salir.
#include "frontend/dialog.h"

#include <gtest/gtest.h>

#include "apoyo/datos_prueba.h"
#include "apoyo/formas_prueba.h"

namespace sabelot::prueba {
namespace {

// Cada fila de tests/datos/dialog.txt, con la vista que apunta lo último que pintó.
class DialogTest : public ::testing::TestWithParam<std::string>, public VistaDialog {
protected:
    Module1 m;
    PlataformaGuion p;
    Dialog d{m, p};
    int descargas = 0;
    std::string pintado;
    std::vector<std::string> pasa;

    void Refrescar() override { pintado = Estado(); }
    void Descargar() override { ++descargas; }
    std::string Estado() const {
        std::string s = d.Titulo + "|" + std::to_string(d.Foco) + "|" + std::to_string(d.NumOpciones) + "|" +
                        std::to_string(m.ValorElegido) + (d.Cargado ? "|sí|" : "|no|") +
                        std::to_string(descargas);
        for (std::size_t i = 0; i < 7; ++i) {
            const auto& b = d.Command1[i];
            EXPECT_EQ(b.Visible, b.Enabled) << i;
            s += "|" + (b.Visible ? b.Caption + "=" + std::to_string(d.ValorOpcion[i]) : "-");
        }
        return s;
    }
    // Los avisos y pitidos desde la última vez.
    void Anotar() {
        for (const auto& a : p.mensajes)
            pasa.push_back(std::to_string(a.estilo) + " " + a.titulo + ": " + a.texto);
        p.mensajes.clear();
        for (; p.pitidos > 0; --p.pitidos) pasa.push_back("pitido");
    }
    void Abrir() {
        d.Form_Load();
        d.Form_Activate();
    }
};

TEST_P(DialogTest, Caso) {
    auto c = CamposEnBytes(GetParam());
    c.resize(9);
    d.PonerVista(this);
    d.ValorEnDado = std::stoi(c[0]);
    m.ListaValores = c[1];
    d.Mensaje = c[2];
    try {
        if (c[3] == "aborta") {
            EXPECT_DEBUG_DEATH(Abrir(), "");
#ifndef NDEBUG
            return;
#endif
        } else {
            for (const auto& r : Lista(c[3], ' ')) p.siNo.push_back(r == "Sí" ? vbYes : vbNo);
            Abrir();
        }
        // Con los botones puestos, la vista enseña lo que hay.
        if (d.Foco >= 0) {
            EXPECT_EQ(pintado, Estado());
        }
        EXPECT_EQ(Estado(), c[5]);
        Anotar();
        for (const auto& paso : Lista(c[4], ' ')) {
            if (paso == "X") {
                const bool sigue = d.Form_QueryUnload();
                Anotar();
                pasa.push_back(sigue ? "sigue" : "se cierra");
            } else if (paso == "Cargar")
                d.Form_Load();
            else
                d.Command1_Click(std::stoi(paso));
        }
    } catch (const ProgramaTerminado&) {
        Anotar();
        pasa.push_back("termina");
    }
    Anotar();
    EXPECT_EQ(d.Text1, c[6]);
    EXPECT_EQ(Estado(), c[7]);
    std::string s;
    for (const auto& x : pasa) s += (s.empty() ? "" : " / ") + x;
    EXPECT_EQ(s, c[8]);
}

INSTANTIATE_TEST_SUITE_P(Dialog, DialogTest, ::testing::ValuesIn(LineasDeDatos("dialog.txt")));

}  // namespace
}  // namespace sabelot::prueba

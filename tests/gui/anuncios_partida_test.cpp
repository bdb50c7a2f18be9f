// Un tramo de partida con ventanas de verdad y un anunciador que apunta lo que se le manda
// decir: lo dicho tiene que ser, en orden y exacto, lo que el juego pone en Text1 y en sus
// cuadros y diálogos, ni más ni menos.
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <wx/button.h>
#include <wx/toplevel.h>

#include "apoyo_gui.h"
#include "wx/programa_wx.h"

using prueba_gui::Bombear;
using prueba_gui::DialogoVisto;
using prueba_gui::EsperarHasta;
using prueba_gui::PulsarTecla;

namespace {

// Apunta cada texto y lo pasa al anunciador del sistema. Lo que se dice de un botón (su
// etiqueta) se apunta aparte: va detrás del texto de su cuadro.
class AnunciadorApuntador : public Anunciador {
public:
    struct Dicho {
        std::string texto;
        bool boton;
    };

    explicit AnunciadorApuntador(std::vector<Dicho>& dichos) : real_(CrearAnunciador()), dichos_(dichos) {}

    void Anunciar(wxWindow* foco, const wxString& texto) override {
        dichos_.push_back({texto.utf8_string(), EsEtiquetaDeBoton(foco, texto)});
        real_->Anunciar(foco, texto);
    }
    void Nombrar(wxWindow* control, const wxString& nombre, const wxString& descripcion) override {
        real_->Nombrar(control, nombre, descripcion);
    }

private:
    static bool EsEtiquetaDeBoton(wxWindow* foco, const wxString& texto) {
        wxWindow* ventana = foco ? wxGetTopLevelParent(foco) : nullptr;
        if (!ventana) return false;
        for (wxWindow* hijo : ventana->GetChildren())
            if (auto* b = dynamic_cast<wxButton*>(hijo))
                if (b->GetLabelText() == texto) return true;
        return false;
    }

    std::unique_ptr<Anunciador> real_;
    std::vector<Dicho>& dichos_;
};

// Se interpone entre la lógica y la ventana principal para apuntar cada Text1 que se pide
// con la ventana ya a la vista (antes se queda como nombre de Picture1, sin anunciarse).
class VistaApuntadora : public sabelot::VistaForm1 {
public:
    VistaApuntadora(VentanaPrincipal& v, std::vector<std::string>& esperados) : v_(v), esperados_(esperados) {}
    void PonerTexto1(const std::string& texto) override {
        if (v_.IsShown()) esperados_.push_back(texto);
        v_.PonerTexto1(texto);
    }
    void PonerTitulo(const std::string& titulo) override { v_.PonerTitulo(titulo); }
    void Mostrar() override { v_.Mostrar(); }
    void Ocultar() override { v_.Ocultar(); }
    bool FocoEnPicture1() override { return v_.FocoEnPicture1(); }
    void FocoAPicture1() override { v_.FocoAPicture1(); }

private:
    VentanaPrincipal& v_;
    std::vector<std::string>& esperados_;
};

std::string Lista(const std::vector<std::string>& v) {
    std::string r;
    for (const auto& s : v) r += "  [" + s + "]\n";
    return r;
}

TEST(AnunciosDeUnTramo, LoDichoEsLoQueElJuegoMuestraEnOrden) {
    prueba_gui::CarpetaPrograma carpeta;
    std::vector<AnunciadorApuntador::Dicho> dichos;
    std::vector<std::string> esperados;
    auto programa = std::make_unique<ProgramaWx>(carpeta.Ruta(), std::make_unique<AnunciadorApuntador>(dichos));
    VistaApuntadora vista(*programa->ventana(), esperados);
    programa->juego().form1.PonerVista(&vista);

    int finesDado = 0;
    programa->plataforma().AlTerminarDado([&] {
        ++finesDado;
        programa->juego().form1.MediaPlayer1_PlayStateChange(0);
    });
    // Cada cuadro o diálogo que sale: lo que el juego tiene en él es lo que debe oírse.
    prueba_gui::Vigilante vigilante([&]() -> wxWindow* { return programa->ventana(); });
    int cuadros = 0;
    vigilante.espera = [&](const DialogoVisto& v) {
        ++cuadros;
        if (v.clase == DialogoVisto::Mensaje) {
            esperados.push_back(v.texto);
        } else if (v.titulo.size() == 1) {  // la elección de destino lleva por título el dado
            esperados.push_back(programa->juego().dialog.Text1);
        } else {
            esperados.push_back(programa->juego().dialog1.Titulo);
            esperados.push_back(programa->juego().dialog1.Text2);
        }
        return 300;
    };

    programa->Arrancar();
    ASSERT_TRUE(EsperarHasta([&] { return programa->ventana()->IsActive() && programa->ventana()->FocoEnPicture1(); }));
    for (int tecla : std::vector<int>{WXK_RIGHT, WXK_UP, WXK_F2, WXK_F2, 'D'}) {
        const std::size_t antes = dichos.size();
        PulsarTecla(tecla);
        ASSERT_TRUE(EsperarHasta([&] { return dichos.size() > antes; }, 5000)) << "la tecla " << tecla << " no dice nada";
    }
    // La tirada: el dado suena, se elige destino, quizá una pregunta y su veredicto.
    ASSERT_TRUE(EsperarHasta([&] { return finesDado >= 1 && programa->plataforma().ModalesAbiertos() == 0; }, 30000))
        << vigilante.Resumen();
    Bombear(1500);
    ASSERT_EQ(programa->plataforma().ModalesAbiertos(), 0) << vigilante.Resumen();

    std::vector<std::string> textos;
    for (std::size_t i = 0; i < dichos.size(); ++i) {
        if (!dichos[i].boton) {
            textos.push_back(dichos[i].texto);
        } else {
            EXPECT_TRUE(i > 0 && !dichos[i - 1].boton) << "un botón dicho sin su texto delante: " << dichos[i].texto;
        }
    }
    EXPECT_GE(cuadros, 2) << "la bienvenida y la elección de destino, al menos";
    EXPECT_EQ(textos, esperados) << "dicho:\n" << Lista(textos) << "esperado:\n" << Lista(esperados);

    programa->juego().form1.PonerVista(programa->ventana());
    programa.reset();
    Bombear(30);
}

}  // namespace

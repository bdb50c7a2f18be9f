#include "apoyo/plataforma_guion.h"

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "frontend/dialog.h"
#include "options/dlg_opciones.h"
#include "questions/dialog1.h"

namespace fs = std::filesystem;

namespace sabelot::prueba {

CarpetaTemporal::CarpetaTemporal() {
    static std::atomic<int> cuenta{0};
    std::random_device rd;
    fs::path p =
        fs::temp_directory_path() / ("sabelot-" + std::to_string(rd()) + "-" + std::to_string(cuenta++));
    fs::create_directories(p);
    ruta_ = p.u8string();  // UTF-8, como todas las rutas del juego
}

CarpetaTemporal::~CarpetaTemporal() {
    std::error_code ec;
    fs::permissions(ruta_, fs::perms::owner_all, fs::perm_options::add, ec);
    fs::remove_all(ruta_, ec);
}

void CarpetaTemporal::Escribir(const std::string& relativa, const std::string& bytes) const {
    fs::path p = fs::u8path(ruta_) / fs::u8path(relativa);
    fs::create_directories(p.parent_path());
    std::ofstream f(p, std::ios::binary);
    f << bytes;
}

std::string CarpetaTemporal::Leer(const std::string& relativa) const {
    std::ifstream f(fs::u8path(ruta_) / fs::u8path(relativa), std::ios::binary);
    std::ostringstream s;
    s << f.rdbuf();
    return s.str();
}

bool CarpetaTemporal::Existe(const std::string& relativa) const {
    return fs::exists(fs::u8path(ruta_) / fs::u8path(relativa));
}

void CarpetaTemporal::CrearCarpeta(const std::string& relativa) const {
    fs::create_directories(fs::u8path(ruta_) / fs::u8path(relativa));
}

PlataformaGuion::PlataformaGuion() = default;

std::vector<std::string> PlataformaGuion::TextosMensajes() const {
    std::vector<std::string> t;
    for (const auto& m : mensajes) t.push_back(m.texto);
    return t;
}

std::vector<std::string> PlataformaGuion::TextosDichos() const {
    std::vector<std::string> t;
    for (const auto& d : dichos) t.push_back(d.texto);
    return t;
}

int PlataformaGuion::CuadroMensaje(const std::string& texto, int estilo, const std::string& titulo) {
    mensajes.push_back({texto, estilo, titulo});
    if (alMensaje) alMensaje(mensajes.back());
    if ((estilo & 7) == vbYesNo) {
        if (siNo.empty()) {
            ADD_FAILURE() << "Cuadro Sí/No sin respuesta en el guion: " << texto;
            return vbNo;
        }
        int r = siNo.front();
        siNo.pop_front();
        return r;
    }
    return vbOK;
}

std::string PlataformaGuion::CuadroEntrada(const std::string& indicacion, const std::string& titulo,
                                           const std::string& inicial) {
    entradas.push_back({indicacion, titulo, inicial});
    if (textos.empty()) {
        ADD_FAILURE() << "InputBox sin respuesta en el guion: " << titulo;
        return "";
    }
    std::string r = textos.front();
    textos.pop_front();
    return r;
}

void PlataformaGuion::Reproducir(Reproductor reproductor, const std::string& ruta) {
    sonidos.emplace_back(reproductor, ruta);
}

void PlataformaGuion::Randomize(std::int64_t semilla) {
    ultimaSemilla = semilla;
    generador_.seed(static_cast<std::mt19937::result_type>(semilla));
}

double PlataformaGuion::Rnd() {
    if (!azar.empty()) {
        double r = azar.front();
        azar.pop_front();
        return r;
    }
    return std::uniform_real_distribution<double>(0.0, 1.0)(generador_);
}

void PlataformaGuion::AbrirDialog(Dialog& d) {
    ++dialogosMostrados;
    if (alMostrarDialog) {
        alMostrarDialog(d);
        return;
    }
    d.Form_Load();
    d.Form_Activate();
    while (d.Cargado) {
        if (botones.empty()) {
            ADD_FAILURE() << "Dialog sin botón en el guion:\n" << d.Text1;
            // Primer botón visible, para no quedarse aquí.
            for (int i = 0; i < 7; ++i) {
                if (d.Command1[static_cast<std::size_t>(i)].Visible) {
                    d.Command1_Click(i);
                    break;
                }
            }
            if (d.Cargado) TerminarPrograma();
            return;
        }
        int b = botones.front();
        botones.pop_front();
        d.Command1_Click(b);
    }
}

void PlataformaGuion::AbrirDialog1(Dialog1& d) {
    ++dialogos1Mostrados;
    if (alMostrarDialog1) {
        alMostrarDialog1(d);
        return;
    }
    d.Visible = true;
    d.Form_Activate();
    if (!d.Visible) return;
    if (respuestas.empty()) {
        ADD_FAILURE() << "Dialog1 sin respuesta en el guion: " << d.Pregunta;
        TerminarPrograma();
    }
    int n = respuestas.front();
    respuestas.pop_front();
    for (int i = 1; i < n; ++i) {
        int k = 40;
        d.Text2_KeyDown(k, 0);
    }
    int enter = 13;
    d.Text2_KeyDown(enter, 0);
    if (d.Visible) {
        ADD_FAILURE() << "Dialog1 sigue abierto tras Enter";
        TerminarPrograma();
    }
}

void PlataformaGuion::AbrirDlgOpciones(DlgOpciones& d) {
    ++opcionesMostradas;
    if (alMostrarDlgOpciones) {
        alMostrarDlgOpciones(d);
        return;
    }
    ADD_FAILURE() << "DlgOpciones sin guion";
}

}  // namespace sabelot::prueba

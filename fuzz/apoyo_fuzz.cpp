#include "apoyo_fuzz.h"

#include <cstdio>
#include <cstdlib>

#include "apoyo/juego_prueba.h"

namespace sabelot::fuzz {

prueba::PlataformaGuion& Plataforma() {
    static prueba::PlataformaGuion* p = [] {
        auto* nueva = new prueba::PlataformaGuion;
        prueba::PonerDatosMinimos(nueva->carpeta, 2, 2);
        return nueva;
    }();
    return *p;
}

void Comprobar(bool condicion, const char* que) {
    if (condicion) return;
    std::fprintf(stderr, "Invariante rota: %s\n", que);
    std::abort();
}

std::uint32_t Semilla(const std::uint8_t* datos, std::size_t largo) {
    std::uint32_t h = 2166136261u;  // FNV-1a
    for (std::size_t i = 0; i < largo; ++i) h = (h ^ datos[i]) * 16777619u;
    return h;
}

std::string Bytes(const std::uint8_t* datos, std::size_t largo) {
    return largo == 0 ? std::string() : std::string(reinterpret_cast<const char*>(datos), largo);
}

void Limpiar(prueba::PlataformaGuion& p, std::uint32_t semilla) {
    p.mensajes.clear();
    p.entradas.clear();
    p.pitidos = 0;
    p.sonidos.clear();
    p.dialogosMostrados = p.dialogos1Mostrados = p.opcionesMostradas = 0;
    p.siNo.clear();
    p.textos.clear();
    p.azar.clear();
    p.botones.clear();
    p.respuestas.clear();
    p.hora = static_cast<int>(semilla % 24);
    p.minuto = static_cast<int>((semilla / 24) % 60);
    p.segundo = static_cast<int>((semilla / 1440) % 60);
    p.Randomize(semilla);
    auto azar = std::make_shared<std::mt19937>(semilla);

    // Los cuadros Sí/No: al azar, pero nunca sin respuesta.
    p.alMensaje = [&p, azar](const prueba::PlataformaGuion::Mensaje& m) {
        if ((m.estilo & 7) == vbYesNo && p.siNo.empty()) p.siNo.push_back((*azar)() % 2 ? vbYes : vbNo);
    };
    // Dialog: un botón visible al azar hasta que se cierre (siempre hay uno visible).
    p.alMostrarDialog = [azar](Dialog& d) {
        d.Form_Load();
        d.Form_Activate();
        for (int vez = 0; d.Cargado && vez < 20; ++vez) {
            int visibles[7], n = 0;
            for (int i = 0; i < 7; ++i) {
                if (d.Command1[static_cast<std::size_t>(i)].Visible) visibles[n++] = i;
            }
            Comprobar(n > 0, "Dialog abierto sin ningún botón visible");
            d.Command1_Click(visibles[(*azar)() % static_cast<unsigned>(n)]);
        }
        Comprobar(!d.Cargado, "Dialog sigue abierto tras veinte pulsaciones");
    };
    // Dialog1: una respuesta al azar, con flechas, y Enter.
    p.alMostrarDialog1 = [azar](Dialog1& d) {
        d.Visible = true;
        d.Form_Activate();
        if (!d.Visible) return;
        Comprobar(d.NumRespuestas() >= 1, "pregunta sin respuestas");
        Comprobar(d.IndiceCorrecto >= 1 && d.IndiceCorrecto <= d.NumRespuestas(),
                  "la respuesta correcta no está entre las respuestas");
        const int bajar = static_cast<int>((*azar)() % 8);
        for (int i = 0; i < bajar; ++i) {
            int k = (*azar)() % 2 ? 40 : 38;
            d.Text2_KeyDown(k, 0);
        }
        int enter = 13;
        d.Text2_KeyDown(enter, 0);
        Comprobar(!d.Visible, "Dialog1 sigue abierto tras Enter");
    };
    // Opciones: se cancelan.
    p.alMostrarDlgOpciones = [](DlgOpciones&) {};
}

void JuegoFuzz::Tecla(int codigo, int shift) {
    const std::size_t antes = p.sonidos.size();
    f().Form_KeyDown(codigo, shift);
    for (std::size_t i = antes; i < p.sonidos.size(); ++i) {
        if (p.sonidos[i].first == Reproductor::MediaPlayer1) f().MediaPlayer1_PlayStateChange(0);
    }
}

void ComprobarPartida(JuegoFuzz& j) {
    const std::string rota = prueba::InvarianteRota(*j.juego);
    Comprobar(rota.empty(), rota.c_str());
}

}  // namespace sabelot::fuzz

#include "apoyo/juego_prueba.h"

#include "storage/cp1252.h"

namespace sabelot::prueba {

std::string Qzf(const std::vector<std::string>& lineas) {
    std::string s;
    for (const auto& l : lineas) s += Utf8ACp1252(l) + "\r\n";
    return s;
}

void PonerDatosMinimos(const CarpetaTemporal& carpeta, int jugadores, int quesitos) {
    const char* nombres[6] = {"cine", "deportes", "historia", "literatura", "sociales", "cotilleos"};
    std::string ini = std::to_string(jugadores) + "," + std::to_string(quesitos) + "\r\n";
    for (int t = 0; t < 6; ++t) {
        std::string n = nombres[t];
        carpeta.Escribir("preguntas/" + n + ".qzf",
                         Qzf({"q>Pregunta uno de " + n, "1>Bien", "2>Mal", "a>1", "",
                              "q>Pregunta dos de " + n, "1>Mal", "2>Bien", "a>2", ""}));
        ini += "\"" + n + "\",\"\"," + std::to_string(t + 1) + "\r\n";
    }
    carpeta.Escribir("Sabelot.ini", ini);
}

JuegoPrueba::JuegoPrueba() : juego(std::make_unique<Juego>(p)) {}

void JuegoPrueba::Arrancar(bool olvidarMensajes) {
    f().Form_Load();
    if (olvidarMensajes) p.mensajes.clear();
}

void JuegoPrueba::Tecla(int codigo, int shift) {
    std::size_t antes = p.sonidos.size();
    f().Form_KeyDown(codigo, shift);
    for (std::size_t i = antes; i < p.sonidos.size(); ++i) {
        if (p.sonidos[i].first == Reproductor::MediaPlayer1) f().MediaPlayer1_PlayStateChange(0);
    }
}

}  // namespace sabelot::prueba

// Los dos reproductores de la ventana principal, sobre el audio de SDL2 sin más bibliotecas:
// el juego solo suena ficheros WAV, y SDL2 ya los lee y los convierte.
#pragma once

#include <wx/event.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "comun/plataforma.h"

class SonidoSdl : public wxEvtHandler {
public:
    // alTerminar se llama en el hilo de las ventanas, una vez por cada sonido de MediaPlayer1
    // que acaba: al terminar de sonar o enseguida si no puede sonar.
    explicit SonidoSdl(std::function<void()> alTerminar);
    ~SonidoSdl() override;
    SonidoSdl(const SonidoSdl&) = delete;
    SonidoSdl& operator=(const SonidoSdl&) = delete;

    void Reproducir(sabelot::Reproductor reproductor, const std::string& ruta);

private:
    // Lo que suena en un reproductor: muestras ya en el formato del dispositivo.
    struct Voz {
        std::vector<std::uint8_t> muestras;
        std::size_t posicion = 0;
        bool sonando = false;
        unsigned generacion = 0;
    };

    void Abrir();
    // Lee el WAV y lo pasa al formato del dispositivo; vacío si no se puede.
    std::vector<std::uint8_t> Cargar(const std::string& ruta) const;
    static void Mezclar(void* yo, std::uint8_t* salida, int bytes);
    void Terminado(unsigned generacion);

    std::function<void()> alTerminar_;
    bool intentado_ = false;
    std::uint32_t dispositivo_ = 0;  // SDL_AudioDeviceID; 0 sin audio
    std::uint16_t formato_ = 0;
    std::uint8_t canales_ = 0;
    int frecuencia_ = 0;
    std::uint8_t silencio_ = 0;
    // Cada sonido del dado lleva un número; solo cuenta el final del último.
    unsigned generacion_ = 0;
    // Se tocan con el dispositivo bloqueado: las lee el hilo del audio.
    Voz voces_[2];
};

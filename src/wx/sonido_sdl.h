// Los dos reproductores de la ventana principal, sobre SDL2_mixer.
#pragma once

#include <atomic>
#include <functional>
#include <string>

#include <wx/event.h>

#include "comun/plataforma.h"

struct Mix_Chunk;

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
    void Abrir();
    static void CanalTerminado(int canal);
    void Terminado(unsigned generacion);

    std::function<void()> alTerminar_;
    bool abierto_ = false;
    bool intentado_ = false;
    // Cada sonido del dado lleva un número; solo cuenta el final del último.
    unsigned generacion_ = 0;
    std::atomic<unsigned> generacionEnCanal_{0};
    Mix_Chunk* trozo_[2] = {nullptr, nullptr};

    static std::atomic<SonidoSdl*> activo_;
};

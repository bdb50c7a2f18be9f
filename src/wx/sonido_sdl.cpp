#include "sonido_sdl.h"

#include <SDL.h>
#include <SDL_mixer.h>

std::atomic<SonidoSdl*> SonidoSdl::activo_{nullptr};

namespace {
constexpr int kCanalDado = 0;  // MediaPlayer1
constexpr int kCanalAplauso = 1;  // MP2
}  // namespace

SonidoSdl::SonidoSdl(std::function<void()> alTerminar) : alTerminar_(std::move(alTerminar)) {
    // Abrir el audio (ALSA, PulseAudio) cuesta decenas de milisegundos: se deja para cuando
    // el bucle de eventos ya corre, con la primera ventana en pantalla, o para el primer sonido.
    CallAfter([this] { Abrir(); });
}

void SonidoSdl::Abrir() {
    if (intentado_) return;
    intentado_ = true;
    // Sin sonido el juego sigue: solo se pierde lo que se oye.
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return;
    if (Mix_OpenAudio(22050, AUDIO_S16SYS, 2, 1024) != 0) {
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
        return;
    }
    Mix_AllocateChannels(2);
    abierto_ = true;
    activo_ = this;
    Mix_ChannelFinished(&SonidoSdl::CanalTerminado);
}

SonidoSdl::~SonidoSdl() {
    if (!abierto_) return;
    activo_ = nullptr;
    Mix_ChannelFinished(nullptr);
    Mix_HaltChannel(-1);
    for (Mix_Chunk*& t : trozo_) {
        if (t) Mix_FreeChunk(t);
        t = nullptr;
    }
    Mix_CloseAudio();
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

// Llega desde el hilo de sonido (o desde Mix_HaltChannel): solo se encola.
void SonidoSdl::CanalTerminado(int canal) {
    if (canal != kCanalDado) return;
    SonidoSdl* s = activo_.load();
    if (!s) return;
    const unsigned g = s->generacionEnCanal_.load();
    s->CallAfter([s, g] { s->Terminado(g); });
}

void SonidoSdl::Terminado(unsigned generacion) {
    // Un sonido cortado por otro nuevo no termina nada.
    if (generacion != generacion_) return;
    if (alTerminar_) alTerminar_();
}

void SonidoSdl::Reproducir(sabelot::Reproductor reproductor, const std::string& ruta) {
    const int canal = reproductor == sabelot::Reproductor::MediaPlayer1 ? kCanalDado : kCanalAplauso;
    unsigned g = 0;
    if (canal == kCanalDado) g = ++generacion_;
    Abrir();
    if (abierto_) {
        // El final del sonido cortado llega con su número viejo y no cuenta.
        Mix_HaltChannel(canal);
        if (trozo_[canal]) Mix_FreeChunk(trozo_[canal]);
        trozo_[canal] = Mix_LoadWAV(ruta.c_str());
        if (trozo_[canal]) {
            if (canal == kCanalDado) generacionEnCanal_ = g;
            if (Mix_PlayChannel(canal, trozo_[canal], 0) == canal) return;
        }
    }
    // No suena (sin dispositivo, fichero que falta o que no se puede leer): el dado
    // termina enseguida para que la tirada siga.
    if (canal == kCanalDado) CallAfter([this, g] { Terminado(g); });
}

#include "sonido_sdl.h"

#include <SDL.h>

#include <algorithm>
#include <cstring>
#include <utility>

#ifdef SABELOT_SDL_AL_SONAR
#include <dlfcn.h>
#endif

namespace {
constexpr int kVozDado = 0;     // MediaPlayer1
constexpr int kVozAplauso = 1;  // MP2

// Lo que se usa de SDL2, a través de punteros: en Linux la biblioteca se carga con el primer
// sonido, porque enlazarla traería al arranque PulseAudio, libsndfile y sus códecs.
// clang-format off
#define SABELOT_FUNCIONES_SDL(F)                                                                     \
    F(InitSubSystem) F(QuitSubSystem) F(OpenAudioDevice) F(CloseAudioDevice) F(PauseAudioDevice)    \
    F(LockAudioDevice) F(UnlockAudioDevice) F(RWFromFile) F(LoadWAV_RW) F(FreeWAV) F(NewAudioStream) \
    F(AudioStreamPut) F(AudioStreamFlush) F(AudioStreamAvailable) F(AudioStreamGet)                  \
    F(FreeAudioStream) F(MixAudioFormat)
// clang-format on

struct Sdl {
#define SABELOT_PUNTERO(nombre) decltype(&SDL_##nombre) nombre = nullptr;
    SABELOT_FUNCIONES_SDL(SABELOT_PUNTERO)
#undef SABELOT_PUNTERO
};

Sdl sdl;

// Falso si no hay SDL2 que cargar: entonces no hay sonido, como sin dispositivo.
bool CargarSdl() {
#ifdef SABELOT_SDL_AL_SONAR
    // Se queda cargada hasta el final: el hilo del audio es suyo.
    void* biblioteca = dlopen("libSDL2-2.0.so.0", RTLD_NOW | RTLD_LOCAL);
    if (!biblioteca) return false;
#define SABELOT_CARGAR(nombre)                                                              \
    sdl.nombre = reinterpret_cast<decltype(sdl.nombre)>(dlsym(biblioteca, "SDL_" #nombre)); \
    if (!sdl.nombre) return false;
#else
#define SABELOT_CARGAR(nombre) sdl.nombre = &SDL_##nombre;
#endif
    SABELOT_FUNCIONES_SDL(SABELOT_CARGAR)
#undef SABELOT_CARGAR
    return true;
}

// Una sola vez en el proceso: el hilo del audio lee los punteros.
bool HaySdl() {
    static const bool hay = CargarSdl();
    return hay;
}

}  // namespace

SonidoSdl::SonidoSdl(std::function<void()> alTerminar) : alTerminar_(std::move(alTerminar)) {}

void SonidoSdl::Abrir() {
    if (intentado_) return;
    intentado_ = true;
    // Abrir el audio (ALSA, PulseAudio) cuesta decenas de milisegundos y memoria: se deja para
    // el primer sonido, no para el arranque. Sin sonido el juego sigue: solo se pierde lo que se oye.
    if (!HaySdl() || sdl.InitSubSystem(SDL_INIT_AUDIO) != 0) return;
    SDL_AudioSpec quiero{};
    quiero.freq = 22050;
    quiero.format = AUDIO_S16SYS;
    quiero.channels = 2;
    quiero.samples = 1024;
    quiero.callback = &SonidoSdl::Mezclar;
    quiero.userdata = this;
    SDL_AudioSpec tengo{};
    // Se acepta el formato que prefiera el dispositivo: los ficheros se convierten al cargarlos
    // y el hilo del audio solo suma.
    dispositivo_ = sdl.OpenAudioDevice(nullptr, 0, &quiero, &tengo, SDL_AUDIO_ALLOW_ANY_CHANGE);
    if (dispositivo_ == 0) {
        sdl.QuitSubSystem(SDL_INIT_AUDIO);
        return;
    }
    formato_ = tengo.format;
    canales_ = tengo.channels;
    frecuencia_ = tengo.freq;
    silencio_ = tengo.silence;
    sdl.PauseAudioDevice(dispositivo_, 0);
}

SonidoSdl::~SonidoSdl() {
    if (dispositivo_ == 0) return;
    // Cerrar espera a que acabe el hilo del audio: después ya nadie toca las voces.
    sdl.CloseAudioDevice(dispositivo_);
    sdl.QuitSubSystem(SDL_INIT_AUDIO);
}

std::vector<std::uint8_t> SonidoSdl::Cargar(const std::string& ruta) const {
    std::vector<std::uint8_t> salida;
    SDL_AudioSpec origen{};
    Uint8* datos = nullptr;
    Uint32 bytes = 0;
    // SDL lee la ruta en UTF-8 también en Windows.
    if (!sdl.LoadWAV_RW(sdl.RWFromFile(ruta.c_str(), "rb"), 1, &origen, &datos, &bytes)) return salida;
    SDL_AudioStream* conversion =
        sdl.NewAudioStream(origen.format, origen.channels, origen.freq, formato_, canales_, frecuencia_);
    if (conversion && sdl.AudioStreamPut(conversion, datos, static_cast<int>(bytes)) == 0 &&
        sdl.AudioStreamFlush(conversion) == 0) {
        salida.resize(static_cast<std::size_t>(sdl.AudioStreamAvailable(conversion)));
        const int leidos = sdl.AudioStreamGet(conversion, salida.data(), static_cast<int>(salida.size()));
        salida.resize(leidos > 0 ? static_cast<std::size_t>(leidos) : 0);
    }
    if (conversion) sdl.FreeAudioStream(conversion);
    sdl.FreeWAV(datos);
    return salida;
}

// Hilo del audio, con el dispositivo bloqueado: suma lo que quede de cada voz.
void SonidoSdl::Mezclar(void* yo, std::uint8_t* salida, int bytes) {
    auto* s = static_cast<SonidoSdl*>(yo);
    std::memset(salida, s->silencio_, static_cast<std::size_t>(bytes));
    for (int i : {kVozDado, kVozAplauso}) {
        Voz& v = s->voces_[i];
        if (!v.sonando) continue;
        const std::size_t n = std::min(static_cast<std::size_t>(bytes), v.muestras.size() - v.posicion);
        sdl.MixAudioFormat(salida, v.muestras.data() + v.posicion, s->formato_, static_cast<Uint32>(n),
                           SDL_MIX_MAXVOLUME);
        v.posicion += n;
        if (v.posicion < v.muestras.size()) continue;
        v.sonando = false;
        // El final se cuenta en el hilo de las ventanas, como una tecla más.
        if (i == kVozDado) s->CallAfter([s, g = v.generacion] { s->Terminado(g); });
    }
}

void SonidoSdl::Terminado(unsigned generacion) {
    // Un sonido cortado por otro nuevo no termina nada.
    if (generacion != generacion_) return;
    if (alTerminar_) alTerminar_();
}

void SonidoSdl::Reproducir(sabelot::Reproductor reproductor, const std::string& ruta) {
    const int voz = reproductor == sabelot::Reproductor::MediaPlayer1 ? kVozDado : kVozAplauso;
    unsigned g = 0;
    if (voz == kVozDado) g = ++generacion_;
    Abrir();
    if (dispositivo_ != 0) {
        std::vector<std::uint8_t> muestras = Cargar(ruta);
        bool suena = false;
        sdl.LockAudioDevice(dispositivo_);
        // Lo que sonaba en esta voz se corta sin aviso: su final ya no contaría.
        Voz& v = voces_[voz];
        v.muestras.swap(muestras);
        v.posicion = 0;
        v.generacion = g;
        v.sonando = suena = !v.muestras.empty();
        sdl.UnlockAudioDevice(dispositivo_);
        if (suena) return;
    }
    // No suena (sin dispositivo, fichero que falta o que no se puede leer): el dado
    // termina enseguida para que la tirada siga.
    if (voz == kVozDado) CallAfter([this, g] { Terminado(g); });
}

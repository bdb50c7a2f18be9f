// Una partida guardada cualquiera cargada en un juego en marcha. Si no se carga, la
// partida de antes sigue igual; si se carga, se juegan unas tiradas, se guarda y se
// vuelve a cargar.
#include "apoyo/juego_prueba.h"
#include "apoyo_fuzz.h"

using namespace sabelot;

namespace {

// La partida y el cursor: una carga fallida no mueve ni el cursor.
std::string Foto(fuzz::JuegoFuzz& j) {
    return prueba::Foto(*j.juego) + " cursor=" + std::to_string(j.f().CasillaCursor);
}

// El guion da el nombre y después un cancelar: si el cancelar sigue sin usar, se cargó.
bool Cargada(prueba::PlataformaGuion& p) { return p.textos.size() == 1; }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t largo) {
    const std::uint32_t semilla = fuzz::Semilla(datos, largo);
    prueba::PlataformaGuion& p = fuzz::Plataforma();
    fuzz::Limpiar(p, semilla);
    p.carpeta.Escribir("partida.sav", fuzz::Bytes(datos, largo));

    fuzz::JuegoFuzz j(p);
    try {
        j.f().Form_Load();
        const std::string antes = Foto(j);
        p.textos = {"partida", ""};
        j.f().CargarPartida();
        if (!Cargada(p)) {
            fuzz::Comprobar(Foto(j) == antes, "una carga fallida cambió la partida en juego");
            return 0;
        }
        fuzz::ComprobarPartida(j);

        // Unas tiradas con caras sacadas de la propia entrada.
        std::uint32_t azar = semilla;
        for (int tirada = 0; tirada < 3; ++tirada) {
            azar = azar * 1103515245u + 12345u;
            p.azar.push_back(prueba::AzarDado(static_cast<int>((azar >> 16) % 6) + 1));
            j.Tecla(vbKeySpace);
            j.Tecla((azar >> 8) % 2 ? vbKeyRight : vbKeyLeft);
            fuzz::ComprobarPartida(j);
        }

        p.textos = {"copia", ""};
        j.f().GuardarPartida();
        fuzz::Comprobar(j.f().Texto1() == "PARTIDA GUARDADA", "no se pudo guardar la partida cargada");
        fuzz::JuegoFuzz otro(p);
        otro.f().Form_Load();
        p.textos = {"copia", ""};
        otro.f().CargarPartida();
        fuzz::Comprobar(Cargada(p), "la partida guardada no se vuelve a cargar");
        // El cursor vuelve a la ficha del jugador en turno al cargar.
        j.f().CasillaCursor = j.f().PosicionFicha[static_cast<std::size_t>(j.f().JugadorActual)];
        fuzz::Comprobar(Foto(j) == Foto(otro), "la partida guardada se carga distinta");
    } catch (const prueba::ProgramaTerminado&) {
        // Salir del juego (p. ej. al no querer otra partida) es un final válido.
    }
    return 0;
}

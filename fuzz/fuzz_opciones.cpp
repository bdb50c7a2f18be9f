// Un Sabelot.ini cualquiera al arrancar el juego; lo que quede se guarda y se vuelve a
// leer, y tiene que salir igual.
#include "apoyo_fuzz.h"
#include "storage/opciones.h"

using namespace sabelot;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t largo) {
    prueba::PlataformaGuion& p = fuzz::Plataforma();
    fuzz::Limpiar(p, fuzz::Semilla(datos, largo));
    p.carpeta.Escribir("Sabelot.ini", fuzz::Bytes(datos, largo));

    fuzz::JuegoFuzz j(p);
    j.f().Form_Load();
    fuzz::ComprobarPartida(j);
    fuzz::Comprobar(p.carpeta.Leer("Sabelot.ini") == fuzz::Bytes(datos, largo),
                    "leer las opciones cambió el fichero");

    if (!GuardarOpciones(j.m(), p)) return 0;
    fuzz::JuegoFuzz otro(p);
    otro.f().Form_Load();
    const Module1& a = j.m();
    const Module1& b = otro.m();
    fuzz::Comprobar(a.NumJugadores == b.NumJugadores && a.QuesitosParaGanar == b.QuesitosParaGanar,
                    "opciones guardadas y leídas distintas (números)");
    for (std::size_t t = 1; t <= kNumTemas; ++t) {
        fuzz::Comprobar(a.FicheroTema[t] == b.FicheroTema[t] && a.EtiquetaTema[t] == b.EtiquetaTema[t] &&
                            a.CanalTema[t] == b.CanalTema[t],
                        "opciones guardadas y leídas distintas (temas)");
    }
    return 0;
}

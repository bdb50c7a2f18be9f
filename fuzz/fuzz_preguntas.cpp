// Un fichero de preguntas cualquiera como el del primer tema: se cuenta, y se sacan
// preguntas del mazo, contestando al azar, hasta que da la vuelta o no queda nada.
#include "apoyo_fuzz.h"
#include "questions/revision.h"

using namespace sabelot;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t largo) {
    const std::string bytes = fuzz::Bytes(datos, largo);
    // La revisión de la orden sabelot-preguntas lee las mismas reglas.
    const RevisionQzf revision = RevisarQzf(bytes);
    fuzz::Comprobar(revision.preguntables <= revision.preguntas, "más preguntables que preguntas");

    prueba::PlataformaGuion& p = fuzz::Plataforma();
    fuzz::Limpiar(p, fuzz::Semilla(datos, largo));
    p.carpeta.Escribir("preguntas/cine.qzf", bytes);
    fuzz::JuegoFuzz j(p);
    j.m().FicheroTema[1] = "cine";
    j.m().EtiquetaTema[1] = "Cine";
    j.m().CanalTema[1] = 1;
    Dialog1& d = j.juego->dialog1;

    // Con cada pregunta contestada el mazo avanza; tras pasar del 95 % da la vuelta.
    const std::int64_t tope = 40;
    for (std::int64_t vez = 0; vez < tope; ++vez) {
        const std::size_t mensajes = p.mensajes.size();
        d.NTema = 1;
        p.MostrarDialog1(d);
        if (d.SinPregunta) break;
        // TotalMazo puede ser 0 y aun así salir una pregunta: al empezar en un byte al azar,
        // el trozo de línea que queda cuenta si empieza por "q>" (y al contar, no).
        fuzz::Comprobar(j.m().CuentaMazo[1] >= 1 && j.m().CuentaMazo[1] <= vez + 1, "cuenta del mazo");
        bool vuelta = false;
        for (std::size_t i = mensajes; i < p.mensajes.size(); ++i) {
            if (p.mensajes[i].texto == "Dando la vuelta al mazo de preguntas") vuelta = true;
        }
        if (vuelta) break;
    }
    return 0;
}

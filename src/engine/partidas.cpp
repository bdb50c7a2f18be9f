// Guardar y cargar la partida: los cuadros en que el jugador escribe el nombre y lo que se
// le dice. El fichero en sí es cosa de storage/partidas.h.
#include "storage/partidas.h"

#include "comun/texto.h"
#include "engine/form1.h"

namespace sabelot {

void Form1::GuardarPartida() {
    // Lo que se guarda no cambia mientras se pregunta el nombre: se prepara una vez.
    const std::string bytes = BytesPartida(m_, *this);
    std::string inicial;
    for (;;) {
        const std::string escrito = p_.InputBox(
            "Introduzca un nombre para guardar la partida actual: (si existe otra partida con ese "
            "nombre se eliminará)",
            "Guardar Partida", inicial);
        const std::string nombre = Recortar(escrito);
        if (nombre.empty()) {
            PonerTexto1("Cancelado");
            return;
        }
        const FalloNombre fallo = ComprobarNombrePartida(nombre);
        if (fallo == FalloNombre::Ninguno &&
            EscribirPartida(p_.Ficheros(), BuscarPartida(p_.Ficheros(), p_.CarpetaPrograma(), nombre),
                            bytes)) {
            PonerTexto1("PARTIDA GUARDADA");
            return;
        }
        std::string aviso = "Se produjo un error al guardar la partida con ese nombre";
        if (fallo == FalloNombre::Caracter) aviso += ": Probablemente utilizó algún carácter no permitido";
        aviso += ". Introduzca un nombre nuevo o pulse en cancelar.";
        p_.MsgBox(aviso, vbOKOnly, kTituloPrograma);
        inicial = escrito;
    }
}

void Form1::CargarPartida() {
    std::string inicial;
    for (;;) {
        const std::string escrito =
            p_.InputBox("Introduzca el nombre de la partida que desea cargar:", "Cargar partida", inicial);
        inicial = escrito;
        const std::string nombre = Recortar(escrito);
        if (nombre.empty()) {
            PonerTexto1("Cancelado");
            return;
        }
        // Un nombre que saldría de la carpeta del programa no puede ser una partida.
        const std::string ruta = BuscarPartida(p_.Ficheros(), p_.CarpetaPrograma(), nombre);
        if (ComprobarNombrePartida(nombre) != FalloNombre::Ninguno || !p_.Ficheros().Existe(ruta)) {
            p_.MsgBox("No se encuentra ese archivo de partida", vbOKOnly, kTituloPrograma);
            continue;
        }
        // Todo se lee y se comprueba antes de tocar la partida en juego: si el fichero
        // está mal, se sigue jugando la de antes.
        const std::optional<PartidaLeida> leida = LeerPartida(canales_, ruta);
        if (!leida) {
            p_.MsgBox(
                "Se produjo un error al cargar el archivo. Indique otro nombre de archivo o pulse en "
                "cancelar",
                vbOKOnly, kTituloPrograma);
            continue;
        }
        PonerPartida(*leida, m_, *this);
        PonerTexto1(" partida cargada. Turno del jugador " + std::to_string(JugadorActual));
        DescribirCasilla();
        PonerTitulo(TituloJugador(JugadorActual));
        return;
    }
}

}  // namespace sabelot

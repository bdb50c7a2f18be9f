#include "storage/escritura.h"

namespace sabelot {

bool EscribirDeUnaVez(SistemaFicheros& ficheros, const std::string& ruta, const std::string& bytes) {
    if (ficheros.Protegido(ruta)) return false;
    std::string nuevo;
    std::unique_ptr<Fichero> f = ficheros.CrearJunto(ruta, nuevo);
    if (!f) return false;
    bool bien = f->Escribir(bytes);
    bien = f->Cerrar() && bien;
    if (bien && ficheros.Existe(ruta)) bien = ficheros.CopiarPermisos(ruta, nuevo);
    if (bien) bien = ficheros.Renombrar(nuevo, ruta);
    if (!bien) ficheros.Borrar(nuevo);
    return bien;
}

}  // namespace sabelot

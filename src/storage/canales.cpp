#include "storage/canales.h"

namespace sabelot {

int Canales::Abrir(int canal, const std::string& ruta) {
    if (canal < 1 || canal > 511) return kErrorCanal;
    if (Abierto(canal)) return 55;  // fichero ya abierto
    int error = 0;
    auto f = ficheros_.Abrir(ruta, error);
    if (!f) return error != 0 ? error : 75;
    abiertos_[canal] = std::move(f);
    return 0;
}

bool Canales::Abierto(int canal) const { return abiertos_.count(canal) != 0; }

Fichero* Canales::Get(int canal) {
    auto it = abiertos_.find(canal);
    return it == abiertos_.end() ? nullptr : it->second.get();
}

bool Canales::Cerrar(int canal) {
    auto it = abiertos_.find(canal);
    if (it == abiertos_.end()) return true;
    bool bien = it->second->Cerrar();
    abiertos_.erase(it);
    return bien;
}

int Canales::Libre() const {
    int n = 1;
    while (Abierto(n)) ++n;
    return n;
}

void Canales::CerrarTodos() {
    for (auto& [canal, f] : abiertos_) f->Cerrar();
    abiertos_.clear();
}

}  // namespace sabelot

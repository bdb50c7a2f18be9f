#include "comun/plataforma.h"

namespace sabelot {

std::string Ruta(const std::string& carpeta, std::initializer_list<std::string> partes) {
#ifdef _WIN32
    const char sep = '\\';
#else
    const char sep = '/';
#endif
    std::string r = carpeta;
    for (const auto& parte : partes) {
        if (r.empty() || r.back() != sep) r.push_back(sep);
        r += parte;
    }
    return r;
}

}  // namespace sabelot

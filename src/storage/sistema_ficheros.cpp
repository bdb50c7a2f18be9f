#include "storage/sistema_ficheros.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <random>
#include <system_error>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include "storage/canales.h"

namespace fs = std::filesystem;

namespace sabelot {

namespace {

fs::path RutaNativa(const std::string& ruta) {
#ifdef _WIN32
    return fs::u8path(ruta);
#else
    return fs::path(ruta);
#endif
}

// Dónde está, en b[i, n), el primer '>' que lleva delante la letra (en cualquier caja) y
// delante de ella un fin de línea; n si no hay. Mira dos bytes hacia atrás: i ≥ 2.
std::size_t BuscarMarca(const char* b, std::size_t i, std::size_t n, char letra) {
#ifdef __SSE2__
    // De 16 en 16 bytes, sin parar en cada línea: con el mazo casi gastado casi todo el
    // fichero pasa por aquí.
    const __m128i mayor = _mm_set1_epi8('>');
    const __m128i caja = _mm_set1_epi8(0x20);
    const __m128i minuscula = _mm_set1_epi8(letra);
    const __m128i lf = _mm_set1_epi8('\n');
    const __m128i cr = _mm_set1_epi8('\r');
    for (; i + 16 <= n; i += 16) {
        const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(b + i));
        const __m128i l = _mm_loadu_si128(reinterpret_cast<const __m128i*>(b + i - 1));
        const __m128i f = _mm_loadu_si128(reinterpret_cast<const __m128i*>(b + i - 2));
        __m128i m = _mm_and_si128(_mm_cmpeq_epi8(a, mayor), _mm_cmpeq_epi8(_mm_or_si128(l, caja), minuscula));
        m = _mm_and_si128(m, _mm_or_si128(_mm_cmpeq_epi8(f, lf), _mm_cmpeq_epi8(f, cr)));
        const int bits = _mm_movemask_epi8(m);
        if (bits != 0) return i + static_cast<std::size_t>(__builtin_ctz(static_cast<unsigned>(bits)));
    }
#endif
    while (i < n) {
        const char* g = static_cast<const char*>(std::memchr(b + i, '>', n - i));
        if (!g) return n;
        const auto k = static_cast<std::size_t>(g - b);
        if ((b[k - 1] | 0x20) == letra && (b[k - 2] == '\n' || b[k - 2] == '\r')) return k;
        i = k + 1;
    }
    return n;
}

// Un fichero con su propio almacén: las líneas se buscan con memchr, por trozos, y una línea
// larga solo se recorre. Leer así un fichero entero cuesta lo que pasar por él una vez.
class FicheroReal : public Fichero {
public:
    FicheroReal(std::FILE* f, bool escritura) : f_(f), escritura_(escritura) {}
    ~FicheroReal() override {
        if (f_) std::fclose(f_);
    }

    bool LeerLinea(std::string& linea) override {
        linea.clear();
        larga_ = false;
        if (!Hay()) return false;
        for (;;) {
            const char* ini = almacen_ + pos_;
            const std::size_t quedan = lleno_ - pos_;
            const char* lf = static_cast<const char*>(std::memchr(ini, '\n', quedan));
            const std::size_t hasta = lf ? static_cast<std::size_t>(lf - ini) : quedan;
            const char* cr = static_cast<const char*>(std::memchr(ini, '\r', hasta));
            const std::size_t trozo = cr ? static_cast<std::size_t>(cr - ini) : hasta;
            Guardar(linea, ini, trozo);
            pos_ += trozo;
            if (cr) {
                ++pos_;
                // Un CR LF es un solo fin de línea, aunque el LF quede en el trozo siguiente.
                if (Hay() && almacen_[pos_] == '\n') ++pos_;
                return true;
            }
            if (lf) {
                ++pos_;
                return true;
            }
            if (!Hay()) return true;  // la última línea, sin fin
        }
    }

    bool LineaLarga() const override { return larga_; }

    // Busca en los bytes del almacén, sin copiar las líneas que salta ni pasar cada una por la
    // capa virtual.
    bool LeerHastaMarca(char letra, std::string& linea) override {
        // La línea en curso empieza donde está la lectura, tenga antes lo que tenga.
        if (Asegurar(2) && (almacen_[pos_] | 0x20) == letra && almacen_[pos_ + 1] == '>') {
            return LeerLinea(linea);
        }
        if (lleno_ - pos_ < 2) {
            pos_ = lleno_;
            linea.clear();
            larga_ = false;
            return false;
        }
        std::size_t i = pos_ + 2;
        for (;;) {
            const std::size_t k = BuscarMarca(almacen_, i, lleno_, letra);
            if (k < lleno_) {
                pos_ = k - 1;
                return LeerLinea(linea);
            }
            // Los dos últimos bytes se quedan: un "q>" puede partirse entre dos lecturas.
            pos_ = lleno_ - 2;
            if (!Asegurar(3)) {
                pos_ = lleno_;
                linea.clear();
                larga_ = false;
                return false;
            }
            i = 2;
        }
    }

    bool Fin() override { return !Hay(); }

    std::int64_t Posicion() override { return inicio_ + static_cast<std::int64_t>(pos_) + 1; }

    void IrA(std::int64_t posicion1) override {
        const std::int64_t destino = posicion1 < 1 ? 0 : posicion1 - 1;
        Buscar(destino);
        inicio_ = destino;
        pos_ = lleno_ = 0;
    }

    std::int64_t Longitud() override {
        Buscar(0, SEEK_END);
        const std::int64_t fin = Decir();
        // El fichero queda donde lo dejó la última lectura del almacén.
        Buscar(inicio_ + static_cast<std::int64_t>(lleno_));
        return fin;
    }

    bool Escribir(const std::string& bytes) override {
        return std::fwrite(bytes.data(), 1, bytes.size(), f_) == bytes.size();
    }

    bool Cerrar() override {
        if (!f_) return true;
        bool bien = std::fflush(f_) == 0;
        // Lo escrito, en el disco antes de ponerlo en lugar de nada: un corte de luz no deja
        // un fichero a medias con el nombre bueno.
#ifdef _WIN32
        if (escritura_) bien = _commit(_fileno(f_)) == 0 && bien;
#else
        if (escritura_) bien = fsync(fileno(f_)) == 0 && bien;
#endif
        bien = std::fclose(f_) == 0 && bien;
        f_ = nullptr;
        return bien;
    }

private:
    static constexpr std::size_t kAlmacen = 64 * 1024;

    std::FILE* f_;
    bool escritura_;
    char almacen_[kAlmacen];
    std::size_t pos_ = 0, lleno_ = 0;
    std::int64_t inicio_ = 0;  // posición en el fichero del primer byte del almacén
    bool larga_ = false;

    // Verdadero si queda algo por leer; rellena el almacén cuando se acaba.
    bool Hay() {
        if (pos_ < lleno_) return true;
        if (!f_ || escritura_) return false;
        inicio_ += static_cast<std::int64_t>(lleno_);
        pos_ = 0;
        lleno_ = std::fread(almacen_, 1, kAlmacen, f_);
        return lleno_ > 0;
    }

    // Deja en el almacén al menos n bytes desde pos_ si el fichero los tiene, moviendo al
    // principio los que quedaban sin leer. Falso si no llegan.
    bool Asegurar(std::size_t n) {
        if (lleno_ - pos_ >= n) return true;
        if (!f_ || escritura_) return false;
        const std::size_t quedan = lleno_ - pos_;
        std::memmove(almacen_, almacen_ + pos_, quedan);
        inicio_ += static_cast<std::int64_t>(pos_);
        pos_ = 0;
        lleno_ = quedan;
        while (lleno_ < n) {
            const std::size_t leidos = std::fread(almacen_ + lleno_, 1, kAlmacen - lleno_, f_);
            if (leidos == 0) return false;
            lleno_ += leidos;
        }
        return true;
    }

    void Guardar(std::string& linea, const char* trozo, std::size_t n) {
        const std::size_t cabe = kMaxLinea > linea.size() ? kMaxLinea - linea.size() : 0;
        if (n > cabe) larga_ = true;
        linea.append(trozo, n < cabe ? n : cabe);
    }

    void Buscar(std::int64_t donde, int desde = SEEK_SET) {
#ifdef _WIN32
        _fseeki64(f_, donde, desde);
#else
        fseeko(f_, static_cast<off_t>(donde), desde);
#endif
    }
    std::int64_t Decir() {
#ifdef _WIN32
        return _ftelli64(f_);
#else
        return static_cast<std::int64_t>(ftello(f_));
#endif
    }
};

// Un nombre al azar para el fichero nuevo, oculto y con el del destino delante para
// reconocerlo. Se compone como ruta y no como texto: en Windows, un nombre con letras fuera
// de la página de códigos no pasa por ella.
fs::path NombreNuevo(const fs::path& destino, std::mt19937_64& azar) {
    static const char kLetras[] = "abcdefghijklmnopqrstuvwxyz0123456789";
    std::string sufijo = ".";
    for (int i = 0; i < 10; ++i) sufijo += kLetras[azar() % (sizeof kLetras - 1)];
    fs::path nombre(".");
    nombre += destino.filename();
    nombre += sufijo;
    return destino.parent_path() / nombre;
}

}  // namespace

bool SistemaFicherosReal::Existe(const std::string& ruta) {
    std::error_code ec;
    return fs::is_regular_file(RutaNativa(ruta), ec);
}

bool SistemaFicherosReal::EsCarpeta(const std::string& ruta) {
    std::error_code ec;
    return fs::is_directory(RutaNativa(ruta), ec);
}

std::vector<std::string> SistemaFicherosReal::Listar(const std::string& carpeta,
                                                     const std::string& extension) {
    std::vector<std::string> nombres;
    std::error_code ec;
    fs::directory_iterator it(RutaNativa(carpeta), ec);
    if (ec) return nombres;
    for (const auto& entrada : it) {
        std::error_code ec2;
        if (!entrada.is_regular_file(ec2)) continue;
#ifdef _WIN32
        std::string nombre = entrada.path().filename().u8string();
#else
        std::string nombre = entrada.path().filename().string();
#endif
        if (nombre.size() < extension.size()) continue;
        bool igual = true;
        for (std::size_t i = 0; i < extension.size(); ++i) {
            char a = nombre[nombre.size() - extension.size() + i];
            char b = extension[i];
            if (a >= 'A' && a <= 'Z') a = static_cast<char>(a - 'A' + 'a');
            if (b >= 'A' && b <= 'Z') b = static_cast<char>(b - 'A' + 'a');
            if (a != b) igual = false;
        }
        if (igual) nombres.push_back(nombre);
    }
    return nombres;
}

std::unique_ptr<Fichero> SistemaFicherosReal::Abrir(const std::string& ruta, int& error) {
    error = 0;
    const fs::path p = RutaNativa(ruta);
    std::error_code ec;
    if (!fs::exists(p, ec)) {
        error = kErrorNoExiste;
        return nullptr;
    }
    // Una carpeta, una tubería o un dispositivo no son ficheros del juego: abrir una tubería
    // dejaría el juego esperando.
    if (!fs::is_regular_file(p, ec)) {
        error = 75;  // ruta o fichero no accesible
        return nullptr;
    }
#ifdef _WIN32
    std::FILE* f = _wfopen(p.c_str(), L"rb");
#else
    std::FILE* f = std::fopen(p.c_str(), "rb");
#endif
    if (!f) {
        error = errno == ENOENT ? kErrorNoExiste : 75;
        return nullptr;
    }
    return std::make_unique<FicheroReal>(f, false);
}

std::unique_ptr<Fichero> SistemaFicherosReal::CrearJunto(const std::string& destino, std::string& ruta) {
    const fs::path d = RutaNativa(destino);
    for (int intento = 0; intento < 100; ++intento) {
        const fs::path p = NombreNuevo(d, azar_);
        // Crear en exclusiva: si algo ya tiene ese nombre (otro fichero, un enlace), falla.
#ifdef _WIN32
        const int fd = _wopen(p.c_str(), _O_CREAT | _O_EXCL | _O_WRONLY | _O_BINARY, _S_IREAD | _S_IWRITE);
#else
        const int fd = open(p.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_NOFOLLOW | O_CLOEXEC, 0666);
#endif
        if (fd < 0) {
            if (errno == EEXIST) continue;
            return nullptr;
        }
#ifdef _WIN32
        std::FILE* f = _fdopen(fd, "wb");
        ruta = p.u8string();
#else
        std::FILE* f = fdopen(fd, "wb");
        ruta = p.string();
#endif
        if (!f) {
#ifdef _WIN32
            _close(fd);
#else
            close(fd);
#endif
            std::error_code ec;
            fs::remove(p, ec);
            return nullptr;
        }
        return std::make_unique<FicheroReal>(f, true);
    }
    return nullptr;
}

bool SistemaFicherosReal::Protegido(const std::string& ruta) {
#ifdef _WIN32
    const DWORD a = GetFileAttributesW(RutaNativa(ruta).c_str());
    return a != INVALID_FILE_ATTRIBUTES && (a & FILE_ATTRIBUTE_READONLY) != 0;
#else
    // Por los permisos y no por poder escribir: el administrador puede escribir en todo, y el
    // fichero que el jugador protegió tampoco se toca entonces.
    struct stat st {};
    if (lstat(RutaNativa(ruta).c_str(), &st) != 0 || !S_ISREG(st.st_mode)) return false;
    return (st.st_mode & 0222) == 0;
#endif
}

bool SistemaFicherosReal::CopiarPermisos(const std::string& de, const std::string& a) {
    std::error_code ec;
    const fs::file_status estado = fs::status(RutaNativa(de), ec);
    if (ec) return false;
    fs::permissions(RutaNativa(a), estado.permissions(), fs::perm_options::replace, ec);
    return !ec;
}

bool SistemaFicherosReal::Renombrar(const std::string& de, const std::string& a) {
#ifdef _WIN32
    return MoveFileExW(RutaNativa(de).c_str(), RutaNativa(a).c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
#else
    if (std::rename(de.c_str(), a.c_str()) != 0) return false;
    // El cambio de nombre, también en el disco.
    const int carpeta = open(RutaNativa(a).parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (carpeta >= 0) {
        fsync(carpeta);
        close(carpeta);
    }
    return true;
#endif
}

bool SistemaFicherosReal::Borrar(const std::string& ruta) {
    std::error_code ec;
    return fs::remove(RutaNativa(ruta), ec);
}

bool MismoFichero(const std::string& a, const std::string& b) {
    // Por la identidad del fichero (dispositivo e inodo; en Windows, su índice), no por el texto.
    std::error_code ec;
    const bool mismo = fs::equivalent(RutaNativa(a), RutaNativa(b), ec);
    return !ec && mismo;
}

}  // namespace sabelot

#include "storage/sistema_ficheros.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

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

class FicheroReal : public Fichero {
public:
    explicit FicheroReal(std::FILE* f) : f_(f) {}
    ~FicheroReal() override {
        if (f_) std::fclose(f_);
    }

    bool LeerLinea(std::string& linea) override {
        linea.clear();
        int c = std::getc(f_);
        if (c == EOF) return false;
        while (c != EOF) {
            if (c == '\n') break;
            if (c == '\r') {
                int d = std::getc(f_);
                if (d != '\n' && d != EOF) std::ungetc(d, f_);
                break;
            }
            linea.push_back(static_cast<char>(c));
            c = std::getc(f_);
        }
        return true;
    }

    bool Fin() override {
        int c = std::getc(f_);
        if (c == EOF) return true;
        std::ungetc(c, f_);
        return false;
    }

    std::int64_t Posicion() override { return static_cast<std::int64_t>(std::ftell(f_)) + 1; }

    void IrA(std::int64_t posicion1) override {
        std::fseek(f_, static_cast<long>(posicion1 < 1 ? 0 : posicion1 - 1), SEEK_SET);
    }

    std::int64_t Longitud() override {
        long aqui = std::ftell(f_);
        std::fseek(f_, 0, SEEK_END);
        long fin = std::ftell(f_);
        std::fseek(f_, aqui, SEEK_SET);
        return fin;
    }

    bool Escribir(const std::string& bytes) override {
        return std::fwrite(bytes.data(), 1, bytes.size(), f_) == bytes.size();
    }

    bool Cerrar() override {
        if (!f_) return true;
        bool bien = std::fflush(f_) == 0;
        bien = std::fclose(f_) == 0 && bien;
        f_ = nullptr;
        return bien;
    }

private:
    std::FILE* f_;
};

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

std::unique_ptr<Fichero> SistemaFicherosReal::Abrir(const std::string& ruta, ModoApertura modo,
                                                    int& error) {
    error = 0;
    fs::path p = RutaNativa(ruta);
    if (modo == ModoApertura::Lectura) {
        std::error_code ec;
        if (!fs::exists(p, ec)) {
            error = kErrorNoExiste;
            return nullptr;
        }
        if (fs::is_directory(p, ec)) {
            error = 75;  // ruta o fichero no accesible
            return nullptr;
        }
    }
#ifdef _WIN32
    std::FILE* f = _wfopen(p.c_str(), modo == ModoApertura::Lectura ? L"rb" : L"wb");
#else
    std::FILE* f = std::fopen(p.c_str(), modo == ModoApertura::Lectura ? "rb" : "wb");
#endif
    if (!f) {
        error = (errno == ENOENT && modo == ModoApertura::Lectura) ? kErrorNoExiste : 75;
        return nullptr;
    }
    return std::make_unique<FicheroReal>(f);
}

bool SistemaFicherosReal::Renombrar(const std::string& de, const std::string& a) {
    std::error_code ec;
    fs::rename(RutaNativa(de), RutaNativa(a), ec);
    return !ec;
}

bool SistemaFicherosReal::Borrar(const std::string& ruta) {
    std::error_code ec;
    return fs::remove(RutaNativa(ruta), ec);
}

}  // namespace sabelot

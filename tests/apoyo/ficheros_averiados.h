// Una capa de ficheros que falla cuando se le pide, delante de la de verdad: para ver
// que una escritura a medias no se lleva por delante lo que ya había.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "comun/plataforma.h"

namespace sabelot::prueba {

// Un fichero que lo pasa todo al de debajo, salvo lo que una prueba quiera cambiar. No pasa la
// búsqueda de "q>": la hace la de la interfaz, línea a línea.
class FicheroDelegado : public Fichero {
public:
    explicit FicheroDelegado(std::unique_ptr<Fichero> f) : f_(std::move(f)) {}
    bool LeerLinea(std::string& linea) override { return f_->LeerLinea(linea); }
    bool LineaLarga() const override { return f_->LineaLarga(); }
    bool Fin() override { return f_->Fin(); }
    std::int64_t Posicion() override { return f_->Posicion(); }
    void IrA(std::int64_t posicion1) override { f_->IrA(posicion1); }
    std::int64_t Longitud() override { return f_->Longitud(); }
    bool Escribir(const std::string& bytes) override { return f_->Escribir(bytes); }
    bool Cerrar() override { return f_->Cerrar(); }

protected:
    std::unique_ptr<Fichero> f_;
};

class FicherosAveriados : public SistemaFicheros {
public:
    explicit FicherosAveriados(SistemaFicheros& real) : real_(real) {}

    bool fallaCrear = false;
    // Escribe la mitad de lo pedido y dice que no pudo (disco lleno).
    bool fallaEscribir = false;
    bool fallaCerrar = false;
    bool fallaRenombrar = false;
    // Se llama a mitad de una escritura, con la mitad ya escrita.
    std::function<void()> aMitadDeEscribir;

    // Los ficheros nuevos que se crearon para escribir, en orden.
    std::vector<std::string> creados;

    bool Existe(const std::string& ruta) override { return real_.Existe(ruta); }
    bool EsCarpeta(const std::string& ruta) override { return real_.EsCarpeta(ruta); }
    std::vector<std::string> Listar(const std::string& carpeta, const std::string& extension) override {
        return real_.Listar(carpeta, extension);
    }
    std::unique_ptr<Fichero> Abrir(const std::string& ruta, int& error) override {
        return real_.Abrir(ruta, error);
    }
    std::unique_ptr<Fichero> CrearJunto(const std::string& destino, std::string& ruta) override {
        if (fallaCrear) return nullptr;
        auto f = real_.CrearJunto(destino, ruta);
        if (!f) return nullptr;
        creados.push_back(ruta);
        return std::make_unique<FicheroAveriado>(std::move(f), *this);
    }
    bool Protegido(const std::string& ruta) override { return real_.Protegido(ruta); }
    bool CopiarPermisos(const std::string& de, const std::string& a) override {
        return real_.CopiarPermisos(de, a);
    }
    bool Renombrar(const std::string& de, const std::string& a) override {
        return !fallaRenombrar && real_.Renombrar(de, a);
    }
    bool Borrar(const std::string& ruta) override { return real_.Borrar(ruta); }

private:
    class FicheroAveriado : public FicheroDelegado {
    public:
        FicheroAveriado(std::unique_ptr<Fichero> f, FicherosAveriados& capa)
            : FicheroDelegado(std::move(f)), capa_(capa) {}
        bool Escribir(const std::string& bytes) override {
            if (!capa_.fallaEscribir && !capa_.aMitadDeEscribir) return f_->Escribir(bytes);
            f_->Escribir(bytes.substr(0, bytes.size() / 2));
            if (capa_.aMitadDeEscribir) capa_.aMitadDeEscribir();
            if (!capa_.fallaEscribir) return f_->Escribir(bytes.substr(bytes.size() / 2));
            return false;
        }
        bool Cerrar() override { return f_->Cerrar() && !capa_.fallaCerrar; }  // cierra siempre

    private:
        FicherosAveriados& capa_;
    };

    SistemaFicheros& real_;
};

}  // namespace sabelot::prueba

// La plataforma de las medidas: ficheros de verdad y nada más. Los cuadros se contestan
// Aceptar y se cuentan, los sonidos y diálogos no hacen nada; el azar es fijo y repetible.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>

#include "comun/plataforma.h"
#include "storage/sistema_ficheros.h"

namespace sabelot {

class PlataformaMuda : public Plataforma {
public:
    std::string carpeta;
    std::string respuestaInputBox;  // Guardar y Cargar preguntan el nombre: siempre el mismo
    long avisos = 0;

    void Beep() override {}
    void Reproducir(Reproductor, const std::string&) override {}
    void Hora(int& h, int& m, int& s) override { h = m = s = 1; }
    void Randomize(std::int64_t semilla) override {
        azar_.seed(static_cast<std::mt19937::result_type>(semilla));
    }
    double Rnd() override { return std::uniform_real_distribution<double>(0.0, 1.0)(azar_); }
    std::string CarpetaPrograma() override { return carpeta; }
    SistemaFicheros& Ficheros() override { return ficheros_; }
    [[noreturn]] void TerminarPrograma() override { std::abort(); }

protected:
    int CuadroMensaje(const std::string&, int, const std::string&) override {
        ++avisos;
        return vbOK;
    }
    std::string CuadroEntrada(const std::string&, const std::string&, const std::string&) override {
        return respuestaInputBox;
    }
    void AbrirDialog(Dialog&) override {}
    void AbrirDialog1(Dialog1&) override {}
    void AbrirDlgOpciones(DlgOpciones&) override {}
    void Decir(const std::string&, Anuncios::Lugar) override {}

private:
    SistemaFicherosReal ficheros_;
    std::mt19937 azar_{1};
};

}  // namespace sabelot

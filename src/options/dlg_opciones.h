// DlgOpciones: jugadores, quesitos, y para cada tema su fichero de preguntas y su etiqueta.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "engine/estado.h"
#include "engine/plataforma.h"

namespace sabelot {

class Canales;

class VistaDlgOpciones {
public:
    virtual ~VistaDlgOpciones() = default;
    virtual void Refrescar() = 0;
    virtual void Ocultar() = 0;
};

class DlgOpciones {
public:
    DlgOpciones(Module1& m, Plataforma& p, Canales& canales) : m_(m), p_(p), canales_(canales) {}
    void PonerVista(VistaDlgOpciones* vista) { vista_ = vista; }

    // Cargado en la primera apertura; después solo se oculta.
    bool Cargado = false;
    void Form_Load();

private:
    Module1& m_;
    Plataforma& p_;
    Canales& canales_;
    VistaDlgOpciones* vista_ = nullptr;
};

}  // namespace sabelot

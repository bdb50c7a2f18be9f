// Dialog1: hace una pregunta de un tema y juzga la respuesta. Dentro corre el lector
// de ficheros de preguntas (lector_preguntas.cpp).
#pragma once

#include <array>
#include <string>
#include <vector>

#include "comun/estado.h"
#include "comun/plataforma.h"
#include "questions/mazo.h"

namespace sabelot {

class Canales;

class VistaDialog1 {
public:
    virtual ~VistaDialog1() = default;
    // Vuelve a pintar título, Text1 (con su selección) y Text2 desde la lógica.
    virtual void Refrescar() = 0;
    // Se oculta: termina la llamada modal.
    virtual void Ocultar() = 0;
};

class Dialog1 {
public:
    Dialog1(Module1& m, Plataforma& p, Canales& canales) : m_(m), p_(p), canales_(canales) {}
    void PonerVista(VistaDialog1* vista) { vista_ = vista; }
    // La vista que se va deja de pintar, si era la de ahora.
    void QuitarVista(const VistaDialog1* vista) {
        if (vista_ == vista) vista_ = nullptr;
    }

    // Propiedades.
    int NTema = 1;
    bool RespuestaCorrecta = false;
    // Verdadero cuando no se pudo hacer ninguna pregunta (fichero que no abre o sin
    // preguntas válidas): no cuenta nada y el turno no pasa.
    bool SinPregunta = false;

    // Registro de la última pregunta leída.
    std::string Pregunta;
    std::vector<std::string> Respuestas{std::string()};  // Respuestas[0] es la 1
    int IndiceCorrecto = 0;
    std::string Comentario;
    int IndiceActual = 1;
    bool FalloApertura = false;
    // Mostrado como modal; Ocultar() lo pone a falso y termina la llamada modal.
    bool Visible = false;

    // Lo que se ve. Text2 empieza con "Text1" como en el formulario sin usar.
    std::string Titulo = "Pregunta de ";
    std::string Text1;
    std::string Text2 = "Text1";
    int Text1SelStart = 0;   // en caracteres
    int Text1SelLength = 0;  // en caracteres

    // Eventos.
    void Form_Activate();
    // KeyCode puede quedar a 0 (tecla tragada).
    void Text2_KeyDown(int& KeyCode, int Shift);
    void Text2_KeyPress(int& KeyAscii);

    // Lector de preguntas.
    void AbrirFichero(bool LeerDespues, bool AlAzar);
    void LeerPregunta();
    void ContarPreguntas();
    void MostrarPregunta();

    // Respuesta número i (desde 1).
    const std::string& Respuesta(int i) const { return Respuestas[static_cast<std::size_t>(i - 1)]; }
    int NumRespuestas() const { return static_cast<int>(Respuestas.size()); }

private:
    Module1& m_;
    Plataforma& p_;
    Canales& canales_;
    VistaDialog1* vista_ = nullptr;
    void Juzgar();
    void Ocultar();
    void Refrescar();
    // Vacía el mazo del tema y vuelve a abrir su fichero desde el primer byte.
    void DarLaVuelta(int tema);
    // Índice de MazoUsado por tema, para no recorrer la cadena en cada pregunta.
    std::array<IndiceMazo, kNumTemas + 1> indices_{};
};

}  // namespace sabelot

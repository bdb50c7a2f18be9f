// Un juego entero sobre la plataforma con guion, para las pruebas de escenario.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "apoyo/plataforma_guion.h"
#include "comun/teclas.h"
#include "engine/juego.h"

namespace sabelot::prueba {

// Seis ficheros de preguntas pequeños y unas opciones que los nombran, en la carpeta.
void PonerDatosMinimos(const CarpetaTemporal& carpeta, int jugadores = 1, int quesitos = 6);

// Un fichero .qzf (texto UTF-8 que se guarda en Windows-1252, líneas con CRLF).
std::string Qzf(const std::vector<std::string>& lineas);

// Lo que se guarda de una partida, en una línea: igual si y solo si la partida es la misma.
std::string Foto(Juego& j);
// La primera regla de la partida en juego que está rota, o "" si no hay ninguna: lo que ni una
// tecla ni un fichero estropeado pueden romper.
std::string InvarianteRota(Juego& j);

class JuegoPrueba {
public:
    JuegoPrueba();
    PlataformaGuion p;
    std::unique_ptr<Juego> juego;
    Form1& f() { return juego->form1; }
    Module1& m() { return juego->m; }

    // Form_Load; vacía lo que haya dicho antes la plataforma si se pide.
    void Arrancar(bool olvidarMensajes = true);
    // Una tecla a la ventana principal; si suena el dado, lo deja terminar.
    void Tecla(int codigo, int shift = 0);
};

}  // namespace sabelot::prueba

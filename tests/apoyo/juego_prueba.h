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

// Lo que la ventana principal recibe de la lógica: el último texto y, en orden, lo demás.
struct VistaApunte : VistaForm1 {
    std::string texto, hechos;
    bool foco = false;
    void Apuntar(const char* h) { hechos += (hechos.empty() ? "" : ",") + std::string(h); }
    void PonerTexto1(const std::string& t) override { texto = t; }
    void PonerTitulo(const std::string&) override {}
    void Mostrar() override { Apuntar("Mostrar"); }
    void Ocultar() override { Apuntar("Ocultar"); }
    bool FocoEnPicture1() override { return foco; }
    void FocoAPicture1() override { foco = true, Apuntar("Foco"); }
};

class JuegoPrueba {
public:
    JuegoPrueba();
    PlataformaGuion p;
    VistaApunte vista;  // sin poner: la pone quien la quiera mirar
    std::unique_ptr<Juego> juego;
    Form1& f() { return juego->form1; }
    Module1& m() { return juego->m; }

    // Form_Load; vacía lo que haya dicho antes la plataforma si se pide.
    void Arrancar(bool olvidarMensajes = true);
    // Una tecla a la ventana principal; si suena el dado, lo deja terminar.
    void Tecla(int codigo, int shift = 0);
};

}  // namespace sabelot::prueba

// Lo que comparten los objetivos de fuzzing: un juego entero sobre la plataforma con
// guion de las pruebas, con sus ficheros de verdad en una carpeta temporal.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>
#include <string>

#include "apoyo/plataforma_guion.h"
#include "comun/teclas.h"
#include "engine/juego.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t largo);

namespace sabelot::fuzz {

// Una carpeta por proceso con los datos mínimos (seis .qzf y Sabelot.ini), que se
// reutiliza entre entradas: crear una por entrada costaría más que el propio lector.
prueba::PlataformaGuion& Plataforma();

// Deja la plataforma como recién hecha (apuntes, guion, ganchos) y le pone ganchos que
// contestan cualquier diálogo, para que ningún guion se quede corto.
void Limpiar(prueba::PlataformaGuion& p, std::uint32_t semilla);

// Un juego nuevo sobre la plataforma, con el sonido del dado ya resuelto en cada tecla.
struct JuegoFuzz {
    explicit JuegoFuzz(prueba::PlataformaGuion& plataforma)
        : p(plataforma), juego(std::make_unique<Juego>(plataforma)) {}
    prueba::PlataformaGuion& p;
    std::unique_ptr<Juego> juego;
    Form1& f() { return juego->form1; }
    Module1& m() { return juego->m; }
    void Tecla(int codigo, int shift = 0);
};

// Las invariantes de una partida en juego; si alguna falla, lo dice y aborta.
void ComprobarPartida(JuegoFuzz& j);

// Falla de verdad (y la ve libFuzzer) si no se cumple.
void Comprobar(bool condicion, const char* que);

// Semilla que depende solo de los bytes: la misma entrada juega siempre igual.
std::uint32_t Semilla(const std::uint8_t* datos, std::size_t largo);

std::string Bytes(const std::uint8_t* datos, std::size_t largo);

}  // namespace sabelot::fuzz

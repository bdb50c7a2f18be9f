// Plataforma con guion para las pruebas sin ventanas: apunta lo que el juego dice
// y contesta lo que el guion manda. Los ficheros son de verdad, en una carpeta temporal.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "comun/plataforma.h"
#include "storage/sistema_ficheros.h"

namespace sabelot::prueba {

// Lo lanza TerminarPrograma: la prueba lo recoge donde quiera.
struct ProgramaTerminado {};

// Carpeta temporal que se borra al final.
class CarpetaTemporal {
public:
    CarpetaTemporal();
    ~CarpetaTemporal();
    CarpetaTemporal(const CarpetaTemporal&) = delete;
    CarpetaTemporal& operator=(const CarpetaTemporal&) = delete;
    const std::string& Ruta() const { return ruta_; }
    // Escribe bytes tal cual (ya en Windows-1252 si hace falta); crea las carpetas.
    void Escribir(const std::string& relativa, const std::string& bytes) const;
    std::string Leer(const std::string& relativa) const;
    bool Existe(const std::string& relativa) const;
    void CrearCarpeta(const std::string& relativa) const;

private:
    std::string ruta_;
};

class PlataformaGuion : public Plataforma {
public:
    PlataformaGuion();

    struct Mensaje {
        std::string texto;
        int estilo;
        std::string titulo;
    };
    struct Entrada {
        std::string indicacion, titulo, inicial;
    };

    // --- Lo que el juego hizo ---
    std::vector<Mensaje> mensajes;
    std::vector<Entrada> entradas;
    int pitidos = 0;
    std::vector<std::pair<Reproductor, std::string>> sonidos;
    std::int64_t ultimaSemilla = -1;
    int dialogosMostrados = 0, dialogos1Mostrados = 0, opcionesMostradas = 0;

    // --- Lo que el guion contesta ---
    // Respuestas a los cuadros Sí/No (vbYes, vbNo). Los de Aceptar no gastan respuesta.
    std::deque<int> siNo;
    std::deque<std::string> textos;  // respuestas de InputBox; "" es cancelar
    // Valores de Rnd() por orden; cuando se acaban, un generador con semilla.
    std::deque<double> azar;
    int hora = 12, minuto = 30, segundo = 15;

    // Dialog: índice del botón que se pulsa (0 a 6). Sin guion, falla la prueba.
    std::deque<int> botones;
    // Dialog1: número de respuesta (desde 1) que se confirma con Enter.
    std::deque<int> respuestas;
    // Ganchos para llevar un diálogo a mano; si están puestos, mandan.
    std::function<void(Dialog&)> alMostrarDialog;
    std::function<void(Dialog1&)> alMostrarDialog1;
    std::function<void(DlgOpciones&)> alMostrarDlgOpciones;
    // Se llama con cada MsgBox antes de contestar (para mirar el estado en ese momento).
    std::function<void(const Mensaje&)> alMensaje;

    // Capa de ficheros; se puede cambiar por una que falle.
    SistemaFicheros* ficheros = &real_;
    CarpetaTemporal carpeta;

    // Textos de los mensajes, en orden.
    std::vector<std::string> TextosMensajes() const;

    // Lo que el lector de pantalla oiría por orden: textos del panel y de los diálogos.
    struct Dicho {
        std::string texto;
        Anuncios::Lugar lugar;
    };
    std::vector<Dicho> dichos;
    // Solo los textos, en orden.
    std::vector<std::string> TextosDichos() const;

    // --- Plataforma ---
    void Beep() override { ++pitidos; }
    void Reproducir(Reproductor reproductor, const std::string& ruta) override;
    void Hora(int& h, int& m, int& s) override {
        h = hora;
        m = minuto;
        s = segundo;
    }
    void Randomize(std::int64_t semilla) override;
    double Rnd() override;
    std::string CarpetaPrograma() override { return carpeta.Ruta(); }
    SistemaFicheros& Ficheros() override { return *ficheros; }
    [[noreturn]] void TerminarPrograma() override { throw ProgramaTerminado{}; }

protected:
    int CuadroMensaje(const std::string& texto, int estilo, const std::string& titulo) override;
    std::string CuadroEntrada(const std::string& indicacion, const std::string& titulo,
                              const std::string& inicial) override;
    void AbrirDialog(Dialog& dialogo) override;
    void AbrirDialog1(Dialog1& dialogo) override;
    void AbrirDlgOpciones(DlgOpciones& dialogo) override;
    void Decir(const std::string& texto, Anuncios::Lugar lugar) override { dichos.push_back({texto, lugar}); }

private:
    SistemaFicherosReal real_;
    std::mt19937 generador_{1};
};

// Valor de Rnd() que da ese número en el dado: (cara - 1) / 6 con un poco de margen.
inline double AzarDado(int cara) { return (cara - 1) / 6.0 + 0.01; }

}  // namespace sabelot::prueba

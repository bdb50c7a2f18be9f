// Los servicios del sistema que necesita la lógica del juego. La capa de
// ventanas (src/wx) los da de verdad; las pruebas, con un guion.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace sabelot {

class Dialog;
class Dialog1;
class DlgOpciones;

// Estilos y resultados de los cuadros de mensaje.
enum EstiloMsg : int { vbOKOnly = 0, vbYesNo = 4, vbExclamation = 48 };
enum ResultadoMsg : int { vbOK = 1, vbYes = 6, vbNo = 7 };

// Título por omisión de los cuadros de mensaje.
inline constexpr const char* kTituloPrograma = "Sabelot";

// Los dos reproductores de la ventana principal.
enum class Reproductor { MediaPlayer1, MP2 };

// Un fichero abierto, en bytes: la conversión de página de códigos se hace fuera.
class Fichero {
public:
    virtual ~Fichero() = default;
    // Lee una línea sin su fin (CR LF, LF o CR sueltos). Falso al final del fichero.
    virtual bool LeerLinea(std::string& linea) = 0;
    // Verdadero cuando ya no quedan bytes por leer.
    virtual bool Fin() = 0;
    // Posición de lectura, contando el primer byte como 1.
    virtual std::int64_t Posicion() = 0;
    virtual void IrA(std::int64_t posicion1) = 0;
    virtual std::int64_t Longitud() = 0;
    // Escritura; falso si no se pudo escribir todo.
    virtual bool Escribir(const std::string& bytes) = 0;
    // Vuelca a disco; falso si falla.
    virtual bool Cerrar() = 0;
};

enum class ModoApertura { Lectura, Escritura };

// Capa de ficheros. La real está en storage/sistema_ficheros.h; las pruebas pueden
// poner delante una que falle a propósito.
class SistemaFicheros {
public:
    virtual ~SistemaFicheros() = default;
    virtual bool Existe(const std::string& ruta) = 0;
    virtual bool EsCarpeta(const std::string& ruta) = 0;
    // Nombres (sin carpeta) de los ficheros de la carpeta que terminan en la extensión dada,
    // sin distinguir mayúsculas, en el orden que dé el sistema.
    virtual std::vector<std::string> Listar(const std::string& carpeta, const std::string& extension) = 0;
    // nullptr si no se puede abrir; en 'error' queda 53 si no existe, otro número si no.
    virtual std::unique_ptr<Fichero> Abrir(const std::string& ruta, ModoApertura modo, int& error) = 0;
    virtual bool Renombrar(const std::string& de, const std::string& a) = 0;
    virtual bool Borrar(const std::string& ruta) = 0;
};

class Plataforma {
public:
    virtual ~Plataforma() = default;

    // Cuadros de mensaje y de entrada. Devuelven cuando el jugador los cierra.
    virtual int MsgBox(const std::string& texto, int estilo, const std::string& titulo) = 0;
    // Texto escrito, o "" si se cancela.
    virtual std::string InputBox(const std::string& indicacion, const std::string& titulo,
                                 const std::string& inicial) = 0;

    virtual void Beep() = 0;

    // Empieza a sonar el fichero sin esperar. El final de MediaPlayer1 llega a
    // Form1::MediaPlayer1_PlayStateChange(0), una sola vez por sonido; si no puede
    // sonar, llega igual, enseguida.
    virtual void Reproducir(Reproductor reproductor, const std::string& ruta) = 0;

    // Reloj y azar.
    virtual void Hora(int& hora, int& minuto, int& segundo) = 0;
    virtual void Randomize(std::int64_t semilla) = 0;
    // Un número de 0 incluido a 1 excluido.
    virtual double Rnd() = 0;

    virtual std::string CarpetaPrograma() = 0;
    virtual SistemaFicheros& Ficheros() = 0;

    // Diálogos modales: vuelven cuando el diálogo se oculta o se descarga.
    virtual void MostrarDialog(Dialog& dialogo) = 0;
    virtual void MostrarDialog1(Dialog1& dialogo) = 0;
    virtual void MostrarDlgOpciones(DlgOpciones& dialogo) = 0;

    // Termina el programa sin guardar nada; no vuelve.
    [[noreturn]] virtual void TerminarPrograma() = 0;
};

// Une carpeta y partes con el separador de esta plataforma.
std::string Ruta(const std::string& carpeta, std::initializer_list<std::string> partes);

}  // namespace sabelot

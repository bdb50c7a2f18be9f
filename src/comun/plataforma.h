// Los servicios del sistema que necesita la lógica del juego. La capa de ventanas
// (src/wx) los da de verdad; las pruebas, con un guion.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "comun/anuncios.h"

namespace sabelot {

class Dialog;
class Dialog1;
class DlgOpciones;

// Estilos y resultados de los cuadros de mensaje.
enum EstiloMsg : int { vbOKOnly = 0, vbYesNo = 4, vbExclamation = 48 };
enum ResultadoMsg : int { vbOK = 1, vbYes = 6, vbNo = 7 };

// Título por omisión de los cuadros de mensaje.
inline constexpr const char* kTituloPrograma = "Sabelot";

// Los dos reproductores de la ventana principal: el del dado y el de los aplausos.
enum class Reproductor { MediaPlayer1, MP2 };

// La línea más larga que se guarda al leer un fichero. Una más larga se lee hasta su final,
// para seguir por la siguiente, pero solo se guardan sus primeros bytes: ningún fichero del
// juego escrito a mano las tiene, y así leer uno raro no cuesta más memoria que una línea.
inline constexpr std::size_t kMaxLinea = 4096;

// Un fichero abierto, en bytes: la conversión de página de códigos se hace fuera.
class Fichero {
public:
    virtual ~Fichero() = default;
    // Lee una línea sin su fin (CR LF, LF o CR sueltos). Falso al final del fichero.
    virtual bool LeerLinea(std::string& linea) = 0;
    // Verdadero si la última línea leída pasaba de kMaxLinea bytes y quedó cortada.
    virtual bool LineaLarga() const = 0;
    // Pasa de largo las líneas hasta leer la primera que empieza por 'letra' (a-z en
    // minúscula; en el fichero, en cualquier caja) y '>', que queda en 'linea' como la
    // dejaría LeerLinea. Falso si el fichero se acaba antes. Da lo mismo que este bucle; el
    // fichero de verdad busca en sus bytes sin copiar las líneas que salta.
    virtual bool LeerHastaMarca(char letra, std::string& linea) {
        while (LeerLinea(linea)) {
            if (linea.size() >= 2 && linea[1] == '>' && (linea[0] | 0x20) == letra) return true;
        }
        return false;
    }
    // Verdadero cuando ya no quedan bytes por leer.
    virtual bool Fin() = 0;
    // Posición de lectura, contando el primer byte como 1.
    virtual std::int64_t Posicion() = 0;
    virtual void IrA(std::int64_t posicion1) = 0;
    virtual std::int64_t Longitud() = 0;
    // Escritura; falso si no se pudo escribir todo.
    virtual bool Escribir(const std::string& bytes) = 0;
    // Cierra; si se escribió, antes lo deja en el disco de verdad. Falso si algo falló.
    virtual bool Cerrar() = 0;
};

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
    // Abre para leer. nullptr si no se puede; en 'error' queda 53 si no existe, otro número si no.
    virtual std::unique_ptr<Fichero> Abrir(const std::string& ruta, int& error) = 0;

    // Lo que hace falta para escribir un fichero sin perder nunca el que había (ver
    // storage/escritura.h).
    // Crea para escribir un fichero nuevo en la carpeta de 'destino', con un nombre que no
    // existía: nunca abre uno que ya estuviera ni sigue un enlace. En 'ruta' queda su nombre.
    virtual std::unique_ptr<Fichero> CrearJunto(const std::string& destino, std::string& ruta) = 0;
    // Verdadero si el fichero existe y sus permisos no dejan escribir en él: alguien lo protegió.
    virtual bool Protegido(const std::string& ruta) = 0;
    // Da a 'a' los permisos que tiene 'de'.
    virtual bool CopiarPermisos(const std::string& de, const std::string& a) = 0;
    // Pone 'de' en lugar de 'a' de una vez: quien lea 'a' ve el fichero viejo o el nuevo entero.
    virtual bool Renombrar(const std::string& de, const std::string& a) = 0;
    virtual bool Borrar(const std::string& ruta) = 0;
};

class Plataforma {
public:
    Plataforma() : voz_([this](const std::string& texto, Anuncios::Lugar lugar) { Decir(texto, lugar); }) {}
    virtual ~Plataforma() = default;
    Plataforma(const Plataforma&) = delete;
    Plataforma& operator=(const Plataforma&) = delete;

    // Lo que el lector de pantalla tiene que decir; ver comun/anuncios.h.
    Anuncios& Voz() { return voz_; }

    // Cuadros y diálogos modales: vuelven cuando el jugador los cierra. Antes de abrirse se
    // dice lo pendiente, para que se oiga en su orden.
    int MsgBox(const std::string& texto, int estilo, const std::string& titulo) {
        voz_.Soltar();
        return CuadroMensaje(texto, estilo, titulo);
    }
    // Texto escrito, o "" si se cancela.
    std::string InputBox(const std::string& indicacion, const std::string& titulo,
                         const std::string& inicial) {
        voz_.Soltar();
        return CuadroEntrada(indicacion, titulo, inicial);
    }
    void MostrarDialog(Dialog& dialogo) {
        voz_.Soltar();
        AbrirDialog(dialogo);
    }
    void MostrarDialog1(Dialog1& dialogo) {
        voz_.Soltar();
        AbrirDialog1(dialogo);
    }
    void MostrarDlgOpciones(DlgOpciones& dialogo) {
        voz_.Soltar();
        AbrirDlgOpciones(dialogo);
    }

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

    // Termina el programa sin guardar nada; no vuelve.
    [[noreturn]] virtual void TerminarPrograma() = 0;

protected:
    // Lo que hace cada plataforma al abrir un cuadro o un diálogo. El diálogo llega lleno
    // y la plataforma lo presenta entero: el lector lo dice al recibir el foco.
    virtual int CuadroMensaje(const std::string& texto, int estilo, const std::string& titulo) = 0;
    virtual std::string CuadroEntrada(const std::string& indicacion, const std::string& titulo,
                                      const std::string& inicial) = 0;
    virtual void AbrirDialog(Dialog& dialogo) = 0;
    virtual void AbrirDialog1(Dialog1& dialogo) = 0;
    virtual void AbrirDlgOpciones(DlgOpciones& dialogo) = 0;
    // Hace llegar al lector de pantalla un texto que el núcleo decidió decir: los del panel,
    // por la ventana principal; los de un diálogo, por el control con el foco.
    virtual void Decir(const std::string& texto, Anuncios::Lugar lugar) = 0;

private:
    Anuncios voz_;
};

// Une carpeta y partes con el separador de esta plataforma.
std::string Ruta(const std::string& carpeta, std::initializer_list<std::string> partes);

}  // namespace sabelot

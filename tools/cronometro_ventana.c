/* Arranca un programa y cuenta los milisegundos hasta que una ventana suya está en pantalla;
   medio segundo después lee su pico de memoria residente (VmHWM) y lo cierra.
   Imprime "ms KiB ms_cpu": el último, el tiempo de procesador que el programa (todos sus hilos)
   ha gastado hasta ver su ventana, que depende menos de la carga de la máquina. Lo usa
   tools/medir_arranque.sh.

     cronometro_ventana [--titulo TEXTO] PROGRAMA [ARGUMENTOS...]

   Con --titulo solo cuenta una ventana con ese título (_NET_WM_NAME). Mira la pantalla cada
   2 ms desde este mismo proceso: lanzar una orden por cada mirada cargaría la máquina que se
   está midiendo. */
#define _POSIX_C_SOURCE 200809L
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <dirent.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

static Atom pid_atom, nombre_atom, utf8_atom;

static double ahora_ms(void) {
    struct timespec t;
    clock_gettime(CLOCK_MONOTONIC, &t);
    return t.tv_sec * 1000.0 + t.tv_nsec / 1e6;
}

/* Procesador gastado por todos los hilos del proceso, en ms (schedstat da ns). */
static double cpu_ms(pid_t pid) {
    char ruta[64];
    snprintf(ruta, sizeof ruta, "/proc/%d/task", (int)pid);
    DIR* tareas = opendir(ruta);
    if (!tareas) return -1;
    double total = 0;
    struct dirent* e;
    while ((e = readdir(tareas))) {
        if (e->d_name[0] == '.') continue;
        char f[400];
        snprintf(f, sizeof f, "%s/%s/schedstat", ruta, e->d_name);
        FILE* s = fopen(f, "r");
        unsigned long long ns = 0;
        if (s && fscanf(s, "%llu", &ns) == 1) total += ns / 1e6;
        if (s) fclose(s);
    }
    closedir(tareas);
    return total;
}

/* Una ventana puede desaparecer entre que se lista y que se pregunta por ella. */
static int sin_errores(Display* d, XErrorEvent* e) {
    (void)d;
    (void)e;
    return 0;
}

static int es_suya(Display* d, Window w, pid_t pid, const char* titulo) {
    Atom tipo;
    int formato;
    unsigned long n, resto;
    unsigned char* datos = NULL;
    int si = 0;
    if (XGetWindowProperty(d, w, pid_atom, 0, 1, False, XA_CARDINAL, &tipo, &formato, &n, &resto, &datos) ==
            Success &&
        datos && n == 1)
        si = (pid_t)(*(unsigned long*)datos) == pid;
    if (datos) XFree(datos);
    if (!si) return 0;
    XWindowAttributes a;
    if (!XGetWindowAttributes(d, w, &a) || a.map_state != IsViewable) return 0;
    if (!titulo) return 1;
    datos = NULL;
    si = XGetWindowProperty(d, w, nombre_atom, 0, 1024, False, utf8_atom, &tipo, &formato, &n, &resto,
                            &datos) == Success &&
         datos && strcmp((const char*)datos, titulo) == 0;
    if (datos) XFree(datos);
    return si;
}

/* Las ventanas de los programas cuelgan de la raíz o, con gestor de ventanas, de su marco. */
static int buscar(Display* d, Window w, pid_t pid, const char* titulo, int nivel) {
    Window raiz, madre, *hijas = NULL;
    unsigned int n = 0;
    int hallada = 0;
    if (!XQueryTree(d, w, &raiz, &madre, &hijas, &n)) return 0;
    for (unsigned int i = 0; i < n && !hallada; ++i)
        hallada =
            es_suya(d, hijas[i], pid, titulo) || (nivel < 2 && buscar(d, hijas[i], pid, titulo, nivel + 1));
    if (hijas) XFree(hijas);
    return hallada;
}

int main(int argc, char** argv) {
    const char* titulo = NULL;
    int i = 1;
    if (i + 1 < argc && strcmp(argv[i], "--titulo") == 0) {
        titulo = argv[i + 1];
        i += 2;
    }
    if (i >= argc) {
        fprintf(stderr, "uso: %s [--titulo TEXTO] PROGRAMA [ARGUMENTOS...]\n", argv[0]);
        return 2;
    }
    Display* d = XOpenDisplay(NULL);
    if (!d) {
        fprintf(stderr, "sin pantalla\n");
        return 2;
    }
    XSetErrorHandler(sin_errores);
    pid_atom = XInternAtom(d, "_NET_WM_PID", False);
    nombre_atom = XInternAtom(d, "_NET_WM_NAME", False);
    utf8_atom = XInternAtom(d, "UTF8_STRING", False);

    const double t0 = ahora_ms();
    const pid_t pid = fork();
    if (pid == 0) {
        /* Lo que diga el programa no es de la medida. */
        freopen("/dev/null", "w", stdout);
        freopen("/dev/null", "w", stderr);
        execv(argv[i], argv + i);
        _exit(127);
    }
    double t1 = -1, cpu = -1;
    const struct timespec paso = {0, 2 * 1000 * 1000};
    while (ahora_ms() - t0 < 30000) {
        if (waitpid(pid, NULL, WNOHANG) == pid) break;
        if (buscar(d, DefaultRootWindow(d), pid, titulo, 0)) {
            t1 = ahora_ms();
            cpu = cpu_ms(pid);
            break;
        }
        nanosleep(&paso, NULL);
    }
    if (t1 < 0) {
        fprintf(stderr, "%s no mostró su ventana\n", argv[i]);
        kill(pid, SIGKILL);
        waitpid(pid, NULL, 0);
        return 1;
    }
    /* Que termine de pintar y quede a la espera. */
    const struct timespec medio = {0, 500 * 1000 * 1000};
    nanosleep(&medio, NULL);
    char ruta[64], linea[256];
    long kib = -1;
    snprintf(ruta, sizeof ruta, "/proc/%d/status", (int)pid);
    FILE* f = fopen(ruta, "r");
    while (f && fgets(linea, sizeof linea, f))
        if (sscanf(linea, "VmHWM: %ld", &kib) == 1) break;
    if (f) fclose(f);
    kill(pid, SIGTERM);
    waitpid(pid, NULL, 0);
    XCloseDisplay(d);
    printf("%.1f %ld %.1f\n", t1 - t0, kib, cpu);
    return kib < 0;
}

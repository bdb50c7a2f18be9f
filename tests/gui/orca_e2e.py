#!/usr/bin/python3
"""El juego escuchado por Orca de verdad: arranca Orca con un fichero de depuración (la voz va a
un speech-dispatcher con el módulo mudo), arranca el programa en una carpeta temporal con los
datos al lado, pulsa teclas con xdotool y busca en lo que Orca dice (las líneas «SPEECH OUTPUT»)
la bienvenida, la casilla tras una flecha y el veredicto de una pregunta.

Uso (dentro de tools/con_pantalla.sh): orca_e2e.py PROGRAMA DATOS
Sale con 0 si se oye todo, 1 si falta algo, 2 si Orca no arranca.
"""
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time

sys.dont_write_bytecode = True  # nada de __pycache__ en el árbol
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from oido_e2e import BIENVENIDA, texto_panel  # noqa: E402

ESPERA = 15  # segundos por paso; Orca tarda en ver cada ventana nueva

# El fichero de depuración va por bloques: sin esto no se puede leer mientras Orca corre.
PERSONALIZACION = """from orca import debug
if debug.debugFile:
    debug.debugFile.reconfigure(line_buffering=True)
"""

# Sin tarjeta de sonido: el módulo mudo y la salida nula de libao.
SPEECHD_CONF = """AudioOutputMethod "libao"
AddModule "dummy" "sd_dummy" "dummy.conf"
DefaultModule dummy
LogDir "default"
"""

DICHO = re.compile(r"^(\d\d):(\d\d):(\d\d\.\d+) - SPEECH OUTPUT: '(.*?)'(?: voice=\w+)? ?\{", re.S | re.M)


class Orca:
    """Un Orca propio, con sus preferencias y su speech-dispatcher en una carpeta desechable."""

    def __init__(self, carpeta):
        self.carpeta = carpeta
        self.depuracion = os.path.join(carpeta, "orca.debug")
        self.prefs = os.path.join(carpeta, "orca")
        casa = os.path.join(carpeta, "casa")
        self.run = os.path.join(carpeta, "run")
        for d in (self.prefs, os.path.join(casa, ".config", "speech-dispatcher"), self.run):
            os.makedirs(d, exist_ok=True)
        os.chmod(self.run, 0o700)
        with open(os.path.join(self.prefs, "orca-customizations.py"), "w") as f:
            f.write(PERSONALIZACION)
        with open(os.path.join(casa, ".config", "speech-dispatcher", "speechd.conf"), "w") as f:
            f.write(SPEECHD_CONF)
        with open(os.path.join(casa, ".libao"), "w") as f:
            f.write("default_driver=null\n")
        self.entorno = dict(os.environ, HOME=casa, XDG_CONFIG_HOME=os.path.join(casa, ".config"),
                            XDG_DATA_HOME=os.path.join(casa, ".local", "share"),
                            XDG_RUNTIME_DIR=self.run, GSETTINGS_BACKEND="memory")
        self.proceso = None

    def arrancar(self):
        # Orca no arranca si ya hay otro del mismo usuario, y «-r» lo mataría: se espera un poco.
        fin = time.time() + 30
        while otros_orca() and time.time() < fin:
            time.sleep(1)
        if otros_orca():
            print(f"hay otro Orca de este usuario (pid {' '.join(map(str, otros_orca()))}): no se arranca")
            return False
        self.proceso = subprocess.Popen(["orca", "-u", self.prefs, "--debug-file", self.depuracion],
                                        env=self.entorno, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        fin = time.time() + 60
        while time.time() < fin and self.proceso.poll() is None:
            if "ORCA: Starting registry" in self.texto():
                time.sleep(1)
                return True
            time.sleep(0.1)
        print("Orca no llega a estar listo")
        return False

    def texto(self):
        try:
            with open(self.depuracion, encoding="utf-8", errors="replace", newline="") as f:
                return f.read()
        except OSError:
            return ""

    def dichos(self):
        """(segundos del día, texto) de cada cosa que Orca manda decir, en orden."""
        r = []
        for m in DICHO.finditer(self.texto()):
            h, mi, s, texto = m.groups()
            # El fichero sangra 18 blancos tras cada salto de línea.
            r.append((int(h) * 3600 + int(mi) * 60 + float(s), texto.replace("\n" + " " * 18, "\n")))
        return r

    def parar(self):
        if self.proceso is None:
            return
        if self.proceso.poll() is None:
            self.proceso.send_signal(signal.SIGTERM)
            try:
                self.proceso.wait(10)
            except subprocess.TimeoutExpired:
                self.proceso.kill()
                self.proceso.wait()
        # El speech-dispatcher que arrancó Orca se iría solo a los 5 s; se para ya.
        pid = os.path.join(self.run, "speech-dispatcher", "pid", "speech-dispatcher.pid")
        try:
            os.kill(int(open(pid).read().strip()), signal.SIGTERM)
        except (OSError, ValueError):
            pass


def otros_orca():
    r = subprocess.run(["pgrep", "-u", str(os.getuid()), "-x", "orca"], capture_output=True, text=True)
    return [int(p) for p in r.stdout.split()]


def segundos_del_dia():
    t = time.localtime()
    return t.tm_hour * 3600 + t.tm_min * 60 + t.tm_sec + (time.time() % 1)


def main():
    if len(sys.argv) != 3:
        print(__doc__)
        return 2
    programa, datos = sys.argv[1], sys.argv[2]
    for orden in ("orca", "xdotool", "pgrep"):
        if not shutil.which(orden):
            print(f"falta {orden}")
            return 2
    if not os.environ.get("DISPLAY"):
        print("sin pantalla: hay que correrlo dentro de tools/con_pantalla.sh")
        return 2

    carpeta = tempfile.mkdtemp(prefix="sabelot-orca-")
    orca = Orca(carpeta)
    prog = None
    fallos = []
    inicio = None
    try:
        juego = os.path.join(carpeta, "juego")
        os.makedirs(juego)
        shutil.copy2(programa, juego)
        shutil.copy2(os.path.join(datos, "Sabelot.ini"), juego)
        shutil.copytree(os.path.join(datos, "preguntas"), os.path.join(juego, "preguntas"))
        shutil.copytree(os.path.join(datos, "sonidos"), os.path.join(juego, "sonidos"))

        if not orca.arrancar():
            fallos.append("Orca no arranca")
            return 2

        inicio = segundos_del_dia()
        prog = subprocess.Popen([os.path.join(juego, os.path.basename(programa))],
                                env=dict(os.environ, NO_AT_BRIDGE="0"), stderr=subprocess.DEVNULL,
                                start_new_session=True)

        def esperar(desde, predicado, segundos=ESPERA):
            fin = time.time() + segundos
            while time.time() < fin:
                for t, texto in orca.dichos():
                    if t >= desde and predicado(texto):
                        return t, texto
                time.sleep(0.1)
            return None, None

        ultimo = [inicio]

        def paso(nombre, tecla, predicado, que, segundos=ESPERA):
            """Pulsa la tecla y espera a que Orca diga lo que cumple el predicado; sin tecla, lo
            busca desde lo último comprobado."""
            antes = segundos_del_dia() if tecla else ultimo[0]
            if tecla:
                subprocess.run(["xdotool", "key", "--clearmodifiers", tecla], check=True)
            t, texto = esperar(antes, predicado, segundos)
            if t is None:
                fallos.append(f"{nombre}: Orca no dice {que}")
                return None
            ultimo[0] = t
            print(f"{nombre}: dicho a los {(t - antes) * 1000:.0f} ms")
            time.sleep(0.5)  # que Orca acabe con la ventana antes de la tecla siguiente
            return texto

        def recorrido():
            if paso("bienvenida", None, lambda x: BIENVENIDA in x, "la bienvenida entera", 40) is None:
                return
            if paso("Intro (cierra la bienvenida)", "Return", lambda x: "Todas las fichas." in x,
                    "el texto de la casilla central") is None:
                return
            casilla = paso("Arriba", "Up", lambda x: x.startswith("Casilla de"), "la casilla de arriba")
            panel = texto_panel(prog.pid)
            if casilla is not None and (panel is None or casilla.rstrip() != panel.rstrip()):
                fallos.append(f"Arriba: Orca dice {casilla!r} y Text1 tiene {panel!r}")
            # Los cuadros se oyen al abrirse: «título dialog texto», no como anuncio aparte.
            # Desde el centro toda tirada cae en una casilla con pregunta.
            if paso("Intro (tira el dado)", "Return", lambda x: "Lanzas el dado y sacas un " in x,
                    "la tirada") is None:
                return
            if paso("Intro (elige destino)", "Return", lambda x: "Pregunta de " in x,
                    "la pregunta") is None:
                return
            # Se responde cuando ya se ha oído la respuesta que está a la vista.
            if paso("primera respuesta", None, lambda x: "1. " in x, "la respuesta 1") is None:
                return
            if paso("Intro (responde)", "Return",
                    lambda x: "respuesta correcta" in x or "La respuesta correcta era " in x,
                    "el veredicto") is None:
                return
            # Al cerrar el veredicto, el texto del panel; antes puede venir el aviso del quesito ganado.
            final = ("Muy bien, sigue  así.", "Fallaste, pierdes el turno.", "Fallaste: has desaprovechado")
            texto = paso("Intro (cierra el veredicto)", "Return", lambda x: any(f in x for f in final) or
                         "Has conseguido este quesito" in x, "el texto del panel tras el veredicto")
            if texto is not None and "Has conseguido" in texto:
                paso("Intro (cierra el quesito)", "Return", lambda x: final[0] in x, "el texto del panel")

        recorrido()
    finally:
        if prog is not None:
            try:
                os.killpg(prog.pid, signal.SIGKILL)
            except OSError:
                pass
            prog.wait()
        orca.parar()
        print("\nLo que dijo Orca desde el arranque del juego:")
        for t, texto in orca.dichos():
            if inicio is None or t >= inicio - 1:
                print("  " + repr(texto))
        for f in fallos:
            print("FALLO:", f)
        if os.path.exists(orca.depuracion):
            destino = os.path.join(tempfile.gettempdir(), "sabelot-orca.debug")
            shutil.copy2(orca.depuracion, destino)
            print("depuración completa de Orca en", destino)
        shutil.rmtree(carpeta, ignore_errors=True)
    print("FAIL" if fallos else "PASS")
    return 1 if fallos else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/python3
"""Una partida larga escuchada como la oye un jugador ciego.

Arranca el programa de verdad en una carpeta temporal con los datos del juego y lo juega con
teclas de verdad (xdotool): bienvenida, tiradas, casillas de quesito si las hay, al menos ocho
preguntas contestadas bien y mal (la buena se busca en los ficheros de preguntas), el informe,
F2, y una visita al diálogo de opciones que mueve sus listas, abre la ayuda y el cuadro de la
etiqueta. Lo que se oye sale de Orca de verdad (--orca: sus líneas «SPEECH OUTPUT») o del bus
de accesibilidad (lo que un lector diría: anuncios, descripción del objeto con el foco y
cambios de foco).

Después de cada tecla se cuenta:
- repetidas: lo dicho dos veces tras una misma tecla;
- pasadas: lo dicho que no está a la vista cuando la tecla acaba de sonar (una respuesta de
  otra pregunta, una entrada de lista que no es la elegida, un texto del panel ya cambiado).
Imprime cada tecla con lo oído, las dos cuentas y PASS si las dos son 0.

Uso (dentro de tools/con_pantalla.sh): partida_oida.py [--orca] [--semilla N] PROGRAMA DATOS
Sale con 0 si todo va bien, 1 si algo se repite, está pasado o falta, 2 si no puede arrancar,
77 si no hay pantalla, xdotool o pyatspi.
"""
import json
import os
import random
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unicodedata

sys.dont_write_bytecode = True  # nada de __pycache__ en el árbol
SALTAR = 77


# --- Lo que se oye -----------------------------------------------------------------------

class Bus:
    """Lo que diría un lector de pantalla, leído del bus AT-SPI: anuncios, cambios de la
    descripción del objeto con el foco y cambios de foco (con la ventana, su descripción, el
    nombre y la descripción del objeto)."""

    def __init__(self, carpeta):
        self.fichero = os.path.join(carpeta, "eventos.jsonl")
        self.proceso = None

    def arrancar(self):
        self.proceso = subprocess.Popen([sys.executable, os.path.abspath(__file__), "--escuchar", self.fichero])
        fin = time.time() + 20
        while time.time() < fin:
            if os.path.exists(self.fichero) and "listo" in open(self.fichero).read():
                return True
            time.sleep(0.05)
        return False

    def dichos(self):
        """GTK avisa a veces dos veces seguidas del mismo foco (un lector lo dice una vez): el
        segundo aviso igual, pegado al primero, no cuenta."""
        r = []
        try:
            lineas = open(self.fichero, encoding="utf-8").read().splitlines()
        except OSError:
            return r
        ultimo_foco = (0, None)
        for l in lineas:
            try:
                e = json.loads(l)
            except ValueError:
                continue
            tipo = e.get("tipo", "")
            texto = None
            if tipo in ("object:announcement", "object:notification"):
                texto = e.get("valor") or e.get("nombre")
            elif tipo == "object:property-change:accessible-description" and e.get("foco"):
                texto = e.get("valor") if e.get("valor") is not None else e.get("descripcion")
            elif tipo == "object:state-changed:focused" and e.get("d1") == 1:
                texto = " | ".join(x for x in (e.get("ventana"), e.get("ventana_desc"), e.get("nombre"),
                                               e.get("descripcion")) if x)
                if ultimo_foco[1] == texto and e["t"] - ultimo_foco[0] < 0.15:
                    continue
                ultimo_foco = (e["t"], texto)
            if texto and texto.strip():
                r.append((e["t"], texto))
        return r

    def parar(self):
        if self.proceso:
            self.proceso.kill()
            self.proceso.wait()


def escuchar(salida):
    import pyatspi
    f = open(salida, "w", buffering=1, encoding="utf-8")

    def cb(ev):
        try:
            src = ev.source
            d = {"t": time.time(), "tipo": ev.type, "rol": src.getRoleName(), "nombre": src.name,
                 "descripcion": src.description, "d1": ev.detail1,
                 "valor": ev.any_data if isinstance(ev.any_data, str) else None}
            try:
                d["foco"] = src.getState().contains(pyatspi.STATE_FOCUSED)
            except Exception:
                d["foco"] = None
            if ev.type.startswith("object:state-changed:focused") and ev.detail1 == 1:
                top = src
                while top.parent is not None and top.parent.getRoleName() != "application":
                    top = top.parent
                d["ventana"], d["ventana_desc"] = top.name, top.description
            f.write(json.dumps(d, ensure_ascii=False) + "\n")
        except Exception as e:  # un objeto que ya no existe
            f.write(json.dumps({"t": time.time(), "error": str(e)}) + "\n")

    pyatspi.Registry.registerEventListener(
        cb, "object:property-change:accessible-description", "object:announcement",
        "object:notification", "object:state-changed:focused")
    f.write(json.dumps({"t": time.time(), "tipo": "listo"}) + "\n")
    pyatspi.Registry.start()


# Orca: preferencias desechables, un speech-dispatcher con el módulo mudo y el fichero de
# depuración, que se lee mientras corre.
PERSONALIZACION = """from orca import debug
if debug.debugFile:
    debug.debugFile.reconfigure(line_buffering=True)
"""
SPEECHD_CONF = """AudioOutputMethod "libao"
AddModule "dummy" "sd_dummy" "dummy.conf"
DefaultModule dummy
LogDir "default"
"""
DICHO_ORCA = re.compile(r"^(\d\d):(\d\d):(\d\d\.\d+) - SPEECH OUTPUT: '(.*?)'(?: voice=\w+)? ?\{", re.S | re.M)


class Orca:
    def __init__(self, carpeta):
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
        # El fichero lleva la hora del día: se pasa a segundos desde la época con este desfase.
        t = time.localtime()
        self.medianoche = time.mktime((t.tm_year, t.tm_mon, t.tm_mday, 0, 0, 0, 0, 0, -1))

    def arrancar(self):
        fin = time.time() + 30
        while otros_orca() and time.time() < fin:
            time.sleep(1)
        if otros_orca():
            print("hay otro Orca de este usuario: no se arranca")
            return False
        self.proceso = subprocess.Popen(["orca", "-u", self.prefs, "--debug-file", self.depuracion],
                                        env=self.entorno, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
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
        r = []
        for m in DICHO_ORCA.finditer(self.texto()):
            h, mi, s, texto = m.groups()
            # El fichero sangra 18 blancos tras cada salto de línea.
            r.append((self.medianoche + int(h) * 3600 + int(mi) * 60 + float(s),
                      texto.replace("\n" + " " * 18, "\n")))
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
        pid = os.path.join(self.run, "speech-dispatcher", "pid", "speech-dispatcher.pid")
        try:
            os.kill(int(open(pid).read().strip()), signal.SIGTERM)
        except (OSError, ValueError):
            pass


def otros_orca():
    r = subprocess.run(["pgrep", "-u", str(os.getuid()), "-x", "orca"], capture_output=True, text=True)
    return [int(p) for p in r.stdout.split()]


# --- Lo que hay a la vista -----------------------------------------------------------------

class Vista:
    """El programa visto por AT-SPI, como lo ve un lector de pantalla."""

    def __init__(self, pid):
        import pyatspi
        self.at = pyatspi
        self.pid = pid
        # Mientras hay una pregunta la ventana principal se oculta y AT-SPI deja de verla; su
        # título y su panel siguen siendo los que eran.
        self.principal = []

    def app(self):
        for a in self.at.Registry.getDesktop(0):
            try:
                if a is not None and a.get_process_id() == self.pid:
                    return a
            except Exception:
                continue
        return None

    def ventanas(self, todas=False):
        a = self.app()
        if a is None:
            return []
        r = []
        for i in range(a.childCount):
            try:
                v = a[i]
                if todas or v.getState().contains(self.at.STATE_SHOWING):
                    r.append(v)
            except Exception:
                continue
        return r

    def activa(self):
        for v in self.ventanas():
            try:
                if v.getState().contains(self.at.STATE_ACTIVE):
                    return v
            except Exception:
                continue
        return None

    def recorrer(self, raiz, hondo=14):
        if raiz is None or hondo < 0:
            return
        yield raiz
        try:
            n = raiz.childCount
        except Exception:
            return
        for i in range(min(n, 400)):
            try:
                yield from self.recorrer(raiz[i], hondo - 1)
            except Exception:
                continue

    def foco(self):
        v = self.activa()
        for o in self.recorrer(v):
            try:
                if o.getState().contains(self.at.STATE_FOCUSED):
                    return o
            except Exception:
                continue
        return None

    @staticmethod
    def texto_de(o):
        try:
            return o.queryText().getText(0, -1)
        except Exception:
            return None

    def a_la_vista(self):
        """Todo lo que un jugador puede tener delante ahora: títulos, descripciones, rótulos,
        textos y, de cada lista, solo su entrada elegida."""
        r = []
        principal = [v for v in self.ventanas(todas=True) if (v.name or "").startswith("SÁBELOT")]
        if principal:
            self.principal = [principal[0].name, self.texto_panel(principal[0]) or ""]
        else:
            r.extend(self.principal)
        for v in self.ventanas():
            for o in self.recorrer(v):
                try:
                    rol = o.getRoleName()
                    estado = o.getState()
                except Exception:
                    continue
                if not estado.contains(self.at.STATE_SHOWING) and o is not v:
                    continue
                if rol in ("table cell", "list item"):
                    if estado.contains(self.at.STATE_SELECTED):
                        r.append(o.name or "")
                    continue
                r.extend(x for x in (o.name, o.description, self.texto_de(o)) if x)
        return r

    def texto_panel(self, principal):
        for o in self.recorrer(principal):
            if o.getRoleName() == "text":
                return self.texto_de(o)
        return None

    def botones(self, ventana):
        r = []
        for o in self.recorrer(ventana):
            try:
                if o.getRoleName() == "push button" and o.getState().contains(self.at.STATE_SHOWING):
                    r.append(o)
            except Exception:
                continue
        return r

    def texto_dialogo(self, ventana):
        for o in self.recorrer(ventana):
            if o.getRoleName() == "text":
                t = self.texto_de(o)
                if t:
                    return t
        return ""


# --- Quitar de lo oído lo que no es texto del juego ---------------------------------------

# Lo que Orca añade por su cuenta: papeles, estados y el eco de las teclas.
PALABRAS_DEL_LECTOR = [
    "botón de pulsación", "push button", "celda de tabla", "table cell", "cuadro de diálogo", "diálogo",
    "dialog", "marco", "frame", "panel", "texto", "text", "tabla", "table", "lista", "list", "etiqueta",
    "label", "seleccionado", "selected", "no seleccionado", "not selected", "elemento de lista", "list item",
    "casilla de verificación", "barra de desplazamiento", "página", "de", "intro", "abajo", "arriba",
    "izquierda", "derecha", "tabulador", "escape", "retroceso", "alt", "control", "mayúsculas", "espacio",
    "f1", "f2", "f3", "f4", "sólo lectura", "solo lectura", "editable", "desactivado", "no disponible",
    "fila", "columna", "columnas", "filas", "tecla", "lector de pantalla activado", "lector de pantalla desactivado",
    "return", "tab", "down", "up", "left", "right", "space", "escape", "shift", "alt", "control", "screen reader on",
    "screen reader off", "izquierdo", "derecho", "con", "todo el documento", "selección eliminada",
]


def normal(s):
    s = unicodedata.normalize("NFC", s)
    return " ".join(s.replace("\r", " ").replace("\n", " ").split())


def sobra(dicho, vista):
    """Lo que queda de lo dicho tras quitar lo que está a la vista y las palabras del lector:
    vacío si todo lo dicho es de ahora."""
    resto = normal(dicho)
    for t in sorted({normal(x) for x in vista if x and x.strip()}, key=len, reverse=True):
        if len(t) >= 3:
            resto = resto.replace(t, " ")
        else:
            resto = re.sub(r"(?<!\w)" + re.escape(t) + r"(?!\w)", " ", resto)
    resto = resto.lower()
    resto = re.sub(r"\d+ de \d+", " ", resto)
    for p in sorted(PALABRAS_DEL_LECTOR, key=len, reverse=True):
        resto = re.sub(r"(?<!\w)" + re.escape(p) + r"(?!\w)", " ", resto)
    resto = re.sub(r"[\s\.,;:|¿?¡!()«»\"'-]+", " ", resto)
    # El eco de una tecla de letra.
    resto = re.sub(r"(?<!\w)\w(?!\w)", " ", resto).strip()
    return resto


# La casilla a la que se llega se dice justo antes de que la pregunta oculte la ventana
# principal, y oculta AT-SPI ya no deja leer su panel: ese texto se da por bueno.
CASILLA = re.compile(r"^(Casilla de|Quesito de|Casilla central|Casilla de dados|Vuelve  a tirar)")


# --- Las preguntas, para acertar o fallar a propósito --------------------------------------

def leer_preguntas(carpeta):
    buenas = {}
    for nombre in os.listdir(carpeta):
        if not nombre.lower().endswith(".qzf"):
            continue
        lineas = open(os.path.join(carpeta, nombre), "rb").read().decode("cp1252").split("\r\n")
        pregunta, respuestas = None, []
        for l in lineas:
            if l[:2].lower() == "q>":
                pregunta, respuestas = l[2:], []
            elif pregunta is not None and l[:1].isdigit():
                respuestas.append(l[2:])
            elif pregunta is not None and l[:2].lower() == "a>":
                m = re.match(r"\s*(\d+)", l[2:])
                if m:
                    buenas[normal(pregunta)] = int(m.group(1))
                pregunta = None
    return buenas


# --- La partida ----------------------------------------------------------------------------

class Partida:
    def __init__(self, fuente, vista, preguntas, azar):
        self.fuente = fuente
        self.vista = vista
        self.preguntas = preguntas
        self.azar = azar
        self.teclas = []  # (instante, tecla, motivo)
        self.fotos = []  # lo que había a la vista al acabar de sonar cada tecla
        self.contestadas = {"bien": 0, "mal": 0}
        self.quesito = False  # se cayó en una casilla de quesito
        self.ganado = False  # se ganó un quesito: a por la casilla central
        self.prueba = 0  # preguntas de la prueba final
        self.opciones = False
        self.partidas = False  # guardar y cargar
        self.errores = []

    def pulsar(self, tecla, motivo=""):
        self.teclas.append((time.time(), tecla, motivo))
        subprocess.run(["xdotool", "key", "--clearmodifiers", tecla], check=True)
        self.calma()

    def escribir(self, texto):
        self.teclas.append((time.time(), "escribe " + texto, ""))
        subprocess.run(["xdotool", "type", "--delay", "60", texto], check=True)
        self.calma()

    def calma(self, silencio=1.2, tope=25):
        """Espera a que deje de hablar; entonces apunta lo que hay a la vista."""
        inicio = time.time()
        ultimo = inicio
        visto = len(self.fuente.dichos())
        while time.time() - inicio < tope:
            time.sleep(0.15)
            n = len(self.fuente.dichos())
            if n != visto:
                visto, ultimo = n, time.time()
            elif time.time() - ultimo >= silencio and time.time() - inicio >= 0.6:
                break
        self.fotos.append((time.time(), self.vista.a_la_vista()))

    def titulo_activa(self):
        v = self.vista.activa()
        return (v.name or "") if v is not None else ""

    def elegir_boton(self, ventana, quiero):
        """Lleva el foco con la flecha abajo hasta el botón cuyo rótulo cumple 'quiero' y lo pulsa."""
        for _ in range(8):
            f = self.vista.foco()
            if f is not None and f.getRoleName() == "push button" and quiero(f.name or ""):
                self.pulsar("Return", "elige " + (f.name or ""))
                return
            self.pulsar("Down", "busca")
        self.pulsar("Return", "elige el que haya")

    def contestar(self, ventana, en_la_prueba=False):
        titulo = ventana.name or ""
        pregunta = normal(titulo.split("\n", 1)[1]) if "\n" in titulo else ""
        buena = self.preguntas.get(pregunta)
        acertar = self.contestadas["mal"] >= 4 or (self.contestadas["bien"] < 5 and self.azar.random() < 0.5)
        if en_la_prueba:
            # La prueba final: un fallo y luego aciertos, hasta ganar.
            self.prueba += 1
            acertar = self.prueba != 1
        if buena is None:
            self.errores.append(f"pregunta que no está en los ficheros: {pregunta!r}")
            buena = 1
        objetivo = buena if acertar else (1 if buena != 1 else 2)
        for _ in range(objetivo - 1):
            self.pulsar("Down", "respuesta siguiente")
        self.pulsar("Return", "contesta " + ("bien" if acertar else "mal"))
        self.contestadas["bien" if acertar else "mal"] += 1

    def un_paso(self):
        """Mira la ventana activa y hace lo que haría un jugador. Falso si la partida acabó."""
        v = self.vista.activa()
        if v is None:
            time.sleep(0.5)
            v = self.vista.activa()
            if v is None:
                self.calma()
                return self.vista.app() is not None
        titulo = v.name or ""
        if titulo.startswith("SÁBELOT"):
            return None  # el juego espera una tecla de la ventana principal
        if titulo.startswith("Pregunta de "):
            self.contestar(v, en_la_prueba=self.en_la_prueba)
        elif titulo in ("Casilla central", "PRUEBA FINAL"):
            self.en_la_prueba = titulo == "PRUEBA FINAL"
            self.pulsar("Return", "elige categoría")
        elif re.fullmatch(r"[1-6]", titulo):
            self.en_la_prueba = False
            texto = self.vista.texto_dialogo(v)
            if self.ganado and " Casilla central " in texto:
                self.elegir_boton(v, lambda r: r.startswith(" Casilla central"))
            elif "Quesito " in texto and not self.ganado:
                self.quesito = True
                self.elegir_boton(v, lambda r: r.startswith("Quesito "))
            else:
                self.elegir_boton(v, lambda r: True)
        elif titulo == "Opciones":
            self.visitar_opciones()
        else:
            # Un cuadro de mensaje o de entrada: se acepta.
            if "Has conseguido este quesito" in self.vista.texto_dialogo(v) + (v.description or ""):
                self.ganado = True
            self.pulsar("Return", "cierra " + titulo)
        return True

    def esperar_ventana_principal(self):
        for _ in range(40):
            r = self.un_paso()
            if r is None:
                return True
            if r is False:
                return False
        return False

    def guardar_y_cargar(self):
        self.partidas = True
        self.pulsar("F3", "guardar")
        self.escribir("partida oida")
        self.pulsar("Return", "guarda")
        self.pulsar("F4", "cargar")
        self.escribir("no existe")
        self.pulsar("Return", "busca una que no existe")
        self.pulsar("Return", "cierra el aviso")
        self.pulsar("Escape", "cancela")
        self.pulsar("F4", "cargar otra vez")
        self.escribir("partida oida")
        self.pulsar("Return", "carga")

    def visitar_opciones(self):
        self.opciones = True
        # Número de jugadores: abajo dos veces (TRES), la ayuda y volver.
        self.pulsar("Down", "jugadores")
        self.pulsar("Down", "jugadores")
        self.pulsar("F1", "ayuda de la lista")
        self.pulsar("Return", "cierra la ayuda")
        self.pulsar("Tab", "a quesitos")
        self.pulsar("Up", "quesitos")
        self.pulsar("Tab", "a categorías")
        self.pulsar("Down", "categoría 2")
        self.pulsar("Down", "categoría 3")
        self.pulsar("Tab", "a ficheros")
        self.pulsar("shift+Tab", "vuelve a categorías")
        self.pulsar("alt+t", "a texto de la casilla")
        self.pulsar("F2", "edita la etiqueta")
        self.pulsar("Escape", "no la cambia")
        self.pulsar("Return", "la edita otra vez")
        self.pulsar("ctrl+a", "selecciona lo escrito")
        self.escribir("Historia antigua")
        self.pulsar("Return", "acepta la etiqueta")
        self.pulsar("alt+n", "a jugadores")
        self.pulsar("alt+a", "acepta las opciones")

    def jugar(self, minimo=8):
        self.en_la_prueba = False
        self.calma(tope=40)  # la bienvenida
        self.pulsar("Return", "cierra la bienvenida")
        self.pulsar("Up", "mira arriba")
        self.pulsar("F2", "sin casillas de alrededor")
        self.pulsar("F2", "con casillas de alrededor")
        tiradas = 0
        while tiradas < 60:
            hechas = self.contestadas["bien"] + self.contestadas["mal"]
            if hechas >= minimo and self.quesito and not self.partidas:
                self.pulsar("e", "informe")
                self.pulsar("Return", "cierra el informe")
                self.guardar_y_cargar()
            if hechas >= minimo and self.quesito and not self.opciones:
                self.pulsar("ctrl+o", "opciones")
                if not self.esperar_ventana_principal():
                    return
                continue
            if hechas >= minimo + 2 and self.opciones:
                return
            tiradas += 1
            self.pulsar("Return", "tira el dado")
            if not self.esperar_ventana_principal():
                return


def resumen(partida, dichos, inicio):
    teclas = partida.teclas
    repetidas = pasadas = 0
    for i, (t0, tecla, motivo) in enumerate(teclas):
        t1 = teclas[i + 1][0] if i + 1 < len(teclas) else float("inf")
        oidos = [d for t, d in dichos if t0 <= t < t1]
        vista = partida.fotos[i + 1][1] if i + 1 < len(partida.fotos) else []
        print(f"== {tecla}  ({motivo})")
        vistos = set()
        for d in oidos:
            marca = ""
            n = normal(d)
            # Al escribir, el lector repite el eco de cada letra: no es repetir un texto.
            eco = tecla.startswith("escribe ") and len(n.strip()) <= 1
            if n in vistos and not eco:
                marca = "   <-- REPETIDO"
                repetidas += 1
            vistos.add(n)
            resto = sobra(d, vista)
            if motivo.startswith("elige") and CASILLA.match(d):
                resto = ""
            if resto and not marca:
                marca = f"   <-- PASADO (no está a la vista: {resto!r})"
                pasadas += 1
            print(f"   {d!r}{marca}")
    antes = [d for t, d in dichos if inicio <= t < (teclas[0][0] if teclas else float("inf"))]
    return repetidas, pasadas, antes


def main():
    args = sys.argv[1:]
    if len(args) == 2 and args[0] == "--escuchar":
        escuchar(args[1])
        return 0
    con_orca = "--orca" in args
    if con_orca:
        args.remove("--orca")
    semilla = 1
    if "--semilla" in args:
        i = args.index("--semilla")
        semilla = int(args[i + 1])
        del args[i:i + 2]
    if len(args) != 2:
        print(__doc__)
        return 2
    programa, datos = args
    if not os.environ.get("DISPLAY") or not shutil.which("xdotool"):
        print("sin pantalla o sin xdotool: se salta")
        return SALTAR
    try:
        import pyatspi  # noqa: F401
    except ImportError:
        print("sin pyatspi: se salta")
        return SALTAR

    carpeta = tempfile.mkdtemp(prefix="sabelot-oida-")
    fuente = Orca(carpeta) if con_orca else Bus(carpeta)
    prog = None
    partida = None
    codigo = 0
    try:
        juego = os.path.join(carpeta, "juego")
        os.makedirs(juego)
        shutil.copy2(programa, juego)
        # Un quesito basta para ir a la prueba final: así también se juega.
        ini = open(os.path.join(datos, "Sabelot.ini"), "rb").read().split(b"\r\n", 1)
        open(os.path.join(juego, "Sabelot.ini"), "wb").write(b"2,1\r\n" + ini[1])
        shutil.copytree(os.path.join(datos, "preguntas"), os.path.join(juego, "preguntas"))
        shutil.copytree(os.path.join(datos, "sonidos"), os.path.join(juego, "sonidos"))
        if not fuente.arrancar():
            return 2
        inicio = time.time()
        entorno = dict(os.environ, NO_AT_BRIDGE="0", ASAN_OPTIONS="detect_leaks=0")
        prog = subprocess.Popen([os.path.join(juego, os.path.basename(programa))], env=entorno,
                                stderr=subprocess.DEVNULL, start_new_session=True)
        vista = Vista(prog.pid)
        partida = Partida(fuente, vista, leer_preguntas(os.path.join(datos, "preguntas")), random.Random(semilla))
        try:
            partida.jugar()
        except Exception as e:  # la partida no siguió: se cuenta lo que haya
            partida.errores.append(f"la partida se cortó: {e!r}")
        time.sleep(1)
        dichos = [(t, d) for t, d in fuente.dichos() if t >= inicio - 1]
        repetidas, pasadas, antes = resumen(partida, dichos, inicio)
        print("\nAntes de la primera tecla:")
        for d in antes:
            print(f"   {d!r}")
        hechas = partida.contestadas
        print(f"\nPreguntas: {hechas['bien']} bien y {hechas['mal']} mal; casilla de quesito: "
              f"{'sí' if partida.quesito else 'no'}; prueba final: {partida.prueba} preguntas; "
              f"guardar y cargar: {'sí' if partida.partidas else 'no'}; opciones: {'sí' if partida.opciones else 'no'}")
        print(f"Teclas: {len(partida.teclas)}; lo dicho: {len(dichos)}; repetidas: {repetidas}; pasadas: {pasadas}")
        faltas = list(partida.errores)
        if hechas["bien"] + hechas["mal"] < 8 or min(hechas.values()) == 0:
            faltas.append("no se llegaron a contestar ocho preguntas, bien y mal")
        if not partida.quesito:
            faltas.append("no se cayó en ninguna casilla de quesito")
        if not partida.opciones:
            faltas.append("no se visitaron las opciones")
        for f in faltas:
            print("FALTA:", f)
        codigo = 1 if repetidas or pasadas or faltas else 0
    finally:
        if prog is not None:
            try:
                os.killpg(prog.pid, signal.SIGKILL)
            except OSError:
                pass
            prog.wait()
        fuente.parar()
        if con_orca and os.path.exists(fuente.depuracion):
            destino = os.path.join(tempfile.gettempdir(), "sabelot-orca.debug")
            shutil.copy2(fuente.depuracion, destino)
            print("depuración completa de Orca en", destino)
        shutil.rmtree(carpeta, ignore_errors=True)
    print("PASS" if codigo == 0 else "FAIL")
    return codigo


if __name__ == "__main__":
    sys.exit(main())

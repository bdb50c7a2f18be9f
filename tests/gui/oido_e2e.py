#!/usr/bin/python3
"""El programa de verdad y lo que oiría un lector de pantalla: arranca el ejecutable en una
carpeta temporal con los datos del juego, pulsa teclas con xdotool y comprueba que los textos
llegan por el bus de accesibilidad (AT-SPI) como anuncios, descripciones del objeto con el
foco o eventos de foco.

Uso: oido_e2e.py PROGRAMA DATOS      (sale con 77 si no hay pantalla o falta pyatspi/xdotool)
"""
import json
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time

SALTAR = 77

BIENVENIDA = ("Partida de 2 jugadores  que deben conseguir 6 quesitos. \r\n"
              "Pulse Control o para modificar las opciones y F1 para ver la lista de teclas.\r\n"
              "Las categorías actualmente seleccionadas son: \r\n"
              "Cine,\r\nDeportes y espectáculos,\r\nHistoria,\r\nLiteratura,\r\nCiencias sociales,\r\nCotilleos.")


def escuchar(salida):
    """Apunta, una línea JSON cada uno, los eventos de los que habla un lector de pantalla."""
    import pyatspi
    f = open(salida, "w", buffering=1)

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


def dichos(fichero, desde):
    """Lo que se dice desde el instante dado: (instante, texto)."""
    r = []
    try:
        lineas = open(fichero).read().splitlines()
    except OSError:
        return r
    for l in lineas:
        try:
            e = json.loads(l)
        except ValueError:
            continue
        if e.get("t", 0) < desde:
            continue
        tipo = e.get("tipo", "")
        if tipo in ("object:announcement", "object:notification"):
            r.append((e["t"], e.get("valor") or e.get("nombre") or ""))
        elif tipo == "object:property-change:accessible-description" and e.get("foco"):
            r.append((e["t"], e.get("valor") if e.get("valor") is not None else e.get("descripcion") or ""))
        elif tipo == "object:state-changed:focused" and e.get("d1") == 1:
            r.append((e["t"], " | ".join(x for x in (e.get("ventana"), e.get("ventana_desc"), e.get("nombre"),
                                                     e.get("descripcion")) if x)))
    return r


def esperar_dicho(fichero, desde, predicado, segundos):
    fin = time.time() + segundos
    while time.time() < fin:
        for t, texto in dichos(fichero, desde):
            if predicado(texto):
                return t, texto
        time.sleep(0.02)
    return None, None


def texto_panel(pid):
    """El texto de Text1 de la ventana principal, leído por AT-SPI."""
    import pyatspi
    for app in pyatspi.Registry.getDesktop(0):
        try:
            if app is None or app.get_process_id() != pid:
                continue
        except Exception:
            continue
        pendientes = [app]
        while pendientes:
            a = pendientes.pop()
            try:
                if a.getRoleName() == "text" and a.parent is not None:
                    ventana = a
                    while ventana.parent is not None and ventana.parent.getRoleName() != "application":
                        ventana = ventana.parent
                    if ventana.name.startswith("SÁBELOT"):
                        return a.queryText().getText(0, -1)
                pendientes.extend(a[i] for i in range(a.childCount))
            except Exception:
                continue
    return None


def main():
    if len(sys.argv) == 3 and sys.argv[1] == "--escuchar":
        escuchar(sys.argv[2])
        return 0
    if len(sys.argv) != 3:
        print(__doc__)
        return 2
    programa, datos = sys.argv[1], sys.argv[2]
    if not os.environ.get("DISPLAY") or not shutil.which("xdotool"):
        print("sin pantalla o sin xdotool: se salta")
        return SALTAR
    try:
        import pyatspi  # noqa: F401
    except ImportError:
        print("sin pyatspi: se salta")
        return SALTAR

    carpeta = tempfile.mkdtemp(prefix="sabelot-oido-")
    eventos = os.path.join(carpeta, "eventos.jsonl")
    escucha = prog = None
    fallos = []
    try:
        # El programa lee todo de su propia carpeta: se copia con los datos al lado.
        shutil.copy2(programa, carpeta)
        shutil.copy2(os.path.join(datos, "Sabelot.ini"), carpeta)
        shutil.copytree(os.path.join(datos, "preguntas"), os.path.join(carpeta, "preguntas"))
        shutil.copytree(os.path.join(datos, "sonidos"), os.path.join(carpeta, "sonidos"))

        escucha = subprocess.Popen([sys.executable, os.path.abspath(__file__), "--escuchar", eventos])
        fin = time.time() + 20
        while time.time() < fin and not (os.path.exists(eventos) and "listo" in open(eventos).read()):
            time.sleep(0.05)

        inicio = time.time()
        entorno = dict(os.environ, NO_AT_BRIDGE="0", ASAN_OPTIONS="detect_leaks=0")
        prog = subprocess.Popen([os.path.join(carpeta, os.path.basename(programa))], env=entorno,
                                stderr=subprocess.DEVNULL, start_new_session=True)

        t, _ = esperar_dicho(eventos, inicio, lambda x: BIENVENIDA in x, 30)
        if t is None:
            fallos.append("no se oye la bienvenida entera")
        else:
            print(f"bienvenida oída a los {(t - inicio) * 1000:.0f} ms del arranque")
        time.sleep(0.3)

        def tecla(nombre, predicado, que):
            antes = time.time()
            subprocess.run(["xdotool", "key", "--clearmodifiers", nombre], check=True)
            t, texto = esperar_dicho(eventos, antes, predicado, 10)
            if t is None:
                fallos.append(f"{nombre}: no se oye {que}")
                return None
            print(f"{nombre}: oído a los {(t - antes) * 1000:.0f} ms: {texto!r}")
            return texto

        tecla("Return", lambda x: "Tablero" in x and "Todas las fichas." in x,
              "la ventana principal con el texto del centro")
        time.sleep(0.3)
        dicho = tecla("Up", lambda x: "Casilla" in x and "Todas las fichas." not in x, "la casilla 1")
        panel = texto_panel(prog.pid)
        if dicho is not None and panel is not None and dicho.rstrip(" ") != panel.rstrip(" "):
            fallos.append(f"Up: lo oído {dicho!r} no es lo que muestra Text1 {panel!r}")
        if panel is None:
            fallos.append("no se encuentra Text1 por AT-SPI")
        time.sleep(0.3)
        tecla("F2", lambda x: x.rstrip(" ") == "leer casillas anexas  desactivado", "el texto de F2 exacto")
        time.sleep(0.3)
        # El mismo texto dos veces seguidas se vuelve a oír.
        tecla("F2", lambda x: x.rstrip(" ") == "leer casillas anexas  activado", "el segundo F2")
        time.sleep(0.3)
        tecla("F2", lambda x: x.rstrip(" ") == "leer casillas anexas  desactivado", "el tercer F2")
    finally:
        for p in (prog, escucha):
            if p is not None:
                try:
                    os.killpg(p.pid, signal.SIGKILL) if p is prog else p.kill()
                except Exception:
                    pass
                p.wait()
        shutil.rmtree(carpeta, ignore_errors=True)
    for f in fallos:
        print("FALLO:", f)
    return 1 if fallos else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/python3
"""Latencia tecla → evento accesible: pulsa N teclas en un programa y mide, para cada una, cuánto
pasa desde que se envía la tecla hasta que llega al bus de accesibilidad (AT-SPI) el cambio de
descripción del control con el foco, que es lo que el lector de pantalla dice.

Uso: medir_latencia.py juego CARPETA_DEL_PROGRAMA [N]    (el juego; pulsa Derecha/Izquierda en el centro)
     medir_latencia.py eco EJECUTABLE [N]                 (bench/eco_minimo)
Imprime una línea "mediana_ms MIN MEDIANA MAX N". Necesita pantalla (tools/con_pantalla.sh).
"""
import ctypes
import json
import os
import shutil
import signal
import statistics
import subprocess
import sys
import tempfile
import time


# El mismo oyente que la partida escuchada de las pruebas: eventos en JSON, uno por línea.
OYENTE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "gui", "partida_oida.py")


def eventos(fichero, desde):
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
        if e.get("t", 0) > desde:
            r.append(e)
    return r


def esperar(fichero, desde, predicado, segundos):
    fin = time.time() + segundos
    while time.time() < fin:
        for e in eventos(fichero, desde):
            if predicado(e):
                return e
        time.sleep(0.005)
    return None


def descripcion(e):
    return e.get("tipo") == "object:property-change:accessible-description" and e.get("foco")


class Teclado:
    """Las teclas con libxdo (la biblioteca de xdotool) dentro de este proceso: así el instante de
    envío no carga con lanzar un proceso. Si no está, con la orden xdotool."""

    def __init__(self):
        try:
            self.xdo = ctypes.CDLL("libxdo.so.3")
            self.xdo.xdo_new.restype = ctypes.c_void_p
            self.xdo.xdo_send_keysequence_window.argtypes = [ctypes.c_void_p, ctypes.c_ulong,
                                                             ctypes.c_char_p, ctypes.c_uint]
            self.h = self.xdo.xdo_new(None)
        except OSError:
            self.xdo = None

    def pulsar(self, tecla):
        t0 = time.time()
        if self.xdo is not None and self.h:
            self.xdo.xdo_send_keysequence_window(self.h, 0, tecla.encode(), 12000)
        else:
            subprocess.run(["xdotool", "key", tecla], check=True)
        return t0


def main():
    if len(sys.argv) not in (3, 4) or sys.argv[1] not in ("juego", "eco"):
        print(__doc__)
        return 2
    modo, ruta = sys.argv[1], sys.argv[2]
    n = int(sys.argv[3]) if len(sys.argv) == 4 else 50
    carpeta = tempfile.mkdtemp(prefix="sabelot-latencia-")
    fichero = os.path.join(carpeta, "eventos.jsonl")
    escucha = prog = None
    try:
        if modo == "juego":
            # Una copia: el juego escribe junto al ejecutable.
            shutil.copytree(ruta, os.path.join(carpeta, "juego"))
            exe = os.path.join(carpeta, "juego", "sabelot")
        else:
            exe = ruta
        escucha = subprocess.Popen([sys.executable, OYENTE, "--escuchar", fichero])
        if not esperar(fichero, 0, lambda e: e.get("tipo") == "listo", 20):
            print("el oyente de AT-SPI no arranca", file=sys.stderr)
            return 1
        inicio = time.time()
        prog = subprocess.Popen([exe], env=dict(os.environ, NO_AT_BRIDGE="0"),
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True)
        teclado = Teclado()
        if modo == "juego":
            # La bienvenida (el cuadro la lleva como descripción al recibir el foco), y Enter para
            # cerrarla: el foco vuelve al tablero.
            if not esperar(fichero, inicio, lambda e: "Partida de" in (e.get("ventana_desc") or e.get("valor") or ""), 30):
                print("no llega la bienvenida", file=sys.stderr)
                return 1
            time.sleep(0.5)
            t0 = teclado.pulsar("Return")
            if not esperar(fichero, t0, lambda e: e.get("tipo") == "object:state-changed:focused" and e.get("d1") == 1, 10):
                print("el tablero no recibe el foco", file=sys.stderr)
                return 1
            teclas = ["Right", "Left"]
        else:
            if not esperar(fichero, inicio, lambda e: e.get("tipo") == "object:state-changed:focused" and e.get("d1") == 1, 30):
                print("el eco no recibe el foco", file=sys.stderr)
                return 1
            teclas = ["Right", "Left"]
        time.sleep(0.5)
        medidas = []
        for i in range(n):
            t0 = teclado.pulsar(teclas[i % 2])
            e = esperar(fichero, t0, descripcion, 5)
            if e is None:
                print(f"tecla {i + 1}: no llega el anuncio", file=sys.stderr)
                return 1
            medidas.append((e["t"] - t0) * 1000)
            time.sleep(0.15)
        print(f"mediana_ms {min(medidas):.1f} {statistics.median(medidas):.1f} {max(medidas):.1f} {n}")
        return 0
    finally:
        for p in (prog, escucha):
            if p is not None:
                try:
                    os.killpg(p.pid, signal.SIGKILL) if p is prog else p.kill()
                except Exception:
                    pass
                p.wait()
        shutil.rmtree(carpeta, ignore_errors=True)


if __name__ == "__main__":
    sys.exit(main())

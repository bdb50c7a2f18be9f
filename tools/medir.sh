#!/usr/bin/env bash
# ./probar --medir [VECES]: construye en Release (build/medidas, con pruebas y ventanas), pasa
# Google Benchmark, compara el arranque y la latencia tecla → lector con programas wxWidgets
# mínimos e imprime una sola tabla con la máquina y su carga. VECES: arranques y tandas de
# 50 teclas por programa (10 por omisión); todo son medianas.
set -euo pipefail
cd "$(dirname "$0")/.."
veces=${1:-10}
dir=build/medidas

tools/preparar.sh
falta=()
for p in bc libxdo3 util-linux; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || falta+=("$p")
done
if ((${#falta[@]})); then
  sudo_=""; [[ $(id -u) -eq 0 ]] || sudo_="sudo"
  DEBIAN_FRONTEND=noninteractive $sudo_ apt-get install -y -q --no-install-recommends "${falta[@]}" >/dev/null
fi

cmake -S . -B "$dir" -DCMAKE_BUILD_TYPE=Release -DSABELOT_PRUEBAS=ON -DSABELOT_GUI=ON >/dev/null
cmake --build "$dir" -j2 --target sabelot arranque_minimo eco_minimo medidas >/dev/null

tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
carga_antes=$(cut -d' ' -f1-3 /proc/loadavg)

echo "Google Benchmark..." >&2
SABELOT_FICHERO_GRANDE="$tmp/grande.qzf" "$dir/bench/medidas" --benchmark_repetitions=5 --benchmark_report_aggregates_only=true \
  --benchmark_format=json --benchmark_out="$tmp/bench.json" --benchmark_out_format=json >/dev/null 2>&1

# El suelo de sacar una pregunta: grep por el mismo fichero, justo después (11 veces, mediana;
# lleva dentro lanzar el proceso).
python3 - "$tmp/grande.qzf" >"$tmp/grep.txt" <<'PY'
import os, statistics, subprocess, sys, time
veces = []
for _ in range(11):
    t = time.perf_counter()
    subprocess.run(["grep", "-c", "^q>", sys.argv[1]], stdout=subprocess.DEVNULL, env=dict(os.environ, LC_ALL="C"))
    veces.append(time.perf_counter() - t)
print(statistics.median(veces) * 1000)
PY

echo "Arranque ($veces veces por programa)..." >&2
DISPLAY= tools/medir_arranque.sh "$veces" >"$tmp/arranque.txt"

echo "Latencia ($veces tandas de 50 teclas por programa)..." >&2
tools/con_pantalla.sh bash -c '
  for i in $(seq '"$veces"'); do
    /usr/bin/python3 tools/medir_latencia.py eco '"$dir"'/bench/eco_minimo 50 | sed "s/^/eco /"
    /usr/bin/python3 tools/medir_latencia.py juego '"$dir"'/programa 50 | sed "s/^/juego /"
  done' >"$tmp/latencia.txt"
carga_despues=$(cut -d' ' -f1-3 /proc/loadavg)

python3 - "$tmp" "$veces" "$carga_antes" "$carga_despues" <<'PY'
import json, statistics, subprocess, sys, os
tmp, veces, antes, despues = sys.argv[1], sys.argv[2], sys.argv[3], sys.argv[4]
def num(s, d=2):
    # Coma decimal y espacio de miles, a la española.
    return (f"{s:,.{d}f}" if s < 100 or d != 2 else f"{s:,.0f}").replace(",", " ").replace(".", ",")
modelo = next((l.split(":", 1)[1].strip() for l in subprocess.run(["lscpu"], capture_output=True, text=True).stdout.splitlines()
               if l.startswith("Model name")), "?")
print(f"Máquina: {modelo}, {os.cpu_count()} núcleos; carga (1/5/15 min) al empezar {antes}, al acabar {despues}")
print()
print(f"{'Medida':<44} {'Sábelot':>12} {'Mínimo':>10} {'Cociente':>9} {'Meta':>6}")
print("-" * 85)
mediana = {}
for b in json.load(open(os.path.join(tmp, "bench.json")))["benchmarks"]:
    if b.get("aggregate_name") != "median": continue
    mediana[b["run_name"].split("/")[0]] = b["real_time"]
    print(f"{b['run_name']:<44} {num(b['real_time']) + ' ' + b['time_unit'].replace('us', 'µs'):>12}")
# Sacar con el mazo al 95 % frente a una pasada por el mismo fichero, de la misma tanda, y
# frente a grep, el suelo.
sacar, getline = mediana.get("SacarConMazoAl95"), mediana.get("PasadaGetline")
if sacar and getline:
    print(f"{'Sacar al 95 % / pasada std::getline (ms)':<44} {num(sacar):>12} {num(getline):>10} {num(sacar / getline):>9} {'2':>6}")
    grep = float(open(os.path.join(tmp, "grep.txt")).read())
    etiqueta = "Sacar al 95 % / grep -c '^q>' (ms)"
    print(f"{etiqueta:<44} {num(sacar):>12} {num(grep):>10} {num(sacar / grep):>9}")
arr, carga_arr = {}, ""
for l in open(os.path.join(tmp, "arranque.txt")):
    p = l.split()
    if len(p) == 3 and p[0] in ("minimo", "juego"): arr[p[0]] = (float(p[1]), float(p[2]))
    if p and p[0] == "carga_arranque": carga_arr = " ".join(p[1:])
if len(arr) == 2:
    (mj, rj), (mm, rm) = arr["juego"], arr["minimo"]
    print(f"{'Arranque hasta la bienvenida (ms)':<44} {num(mj, 0):>12} {num(mm, 0):>10} {num(mj / mm):>9} {'1,1':>6}")
    print(f"{'Pico de memoria residente (MiB)':<44} {num(rj, 1):>12} {num(rm, 1):>10} {num(rj / rm):>9} {'1,2':>6}")
    print(f"{'  (vueltas alternadas; carga durante ellas)':<44} {carga_arr}")
lat = {"eco": [], "juego": []}
for l in open(os.path.join(tmp, "latencia.txt")):
    p = l.split()
    if len(p) == 6 and p[1] == "mediana_ms": lat[p[0]].append(float(p[3]))
if lat["eco"] and lat["juego"]:
    j, e = statistics.median(lat["juego"]), statistics.median(lat["eco"])
    print(f"{'Tecla → evento accesible, mediana (ms)':<44} {num(j, 1):>12} {num(e, 1):>10} {num(j / e):>9} {'1,2':>6}")
print()
print(f"Arranque: {veces} veces, medianas. Latencia: {veces} tandas de 50 teclas, mediana de las medianas.")
print("Mínimo: bench/arranque_minimo (arranque) y bench/eco_minimo (latencia).")
PY

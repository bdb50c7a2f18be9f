#!/usr/bin/env bash
# Genera con sox los tres sonidos del juego en datos/sonidos (22050 Hz, mono, 16 bits).
# Son sonidos hechos aquí, de ruido filtrado: -R hace que salgan iguales cada vez.
set -euo pipefail
cd "$(dirname "$0")/.."
destino=datos/sonidos
mkdir -p "$destino"
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
fmt=(-r 22050 -c 1 -b 16)
# -R: azar repetible también en el tramado, para que el resultado no cambie de una vez a otra.
sox() { command sox -R "$@"; }

# Un golpe seco: un chasquido de ruido muy corto con algo de cuerpo en medios.
golpe() {  # fichero duracion centro volumen
  sox -n "${fmt[@]}" "$1" synth "$2" whitenoise band "$3" 1200 fade q 0.001 "$2" 0.028 vol "$4"
}

# El dado: golpes contra la mesa cada vez más juntos y más flojos, cerca de un segundo.
entradas=()
n=0
for par in "0.00 0.95 1800" "0.16 0.80 2300" "0.29 0.85 1600" "0.40 0.60 2600" "0.49 0.70 2000" \
           "0.57 0.50 2900" "0.64 0.55 1700" "0.70 0.42 2400" "0.75 0.35 2100" "0.80 0.30 2700" \
           "0.84 0.24 1900" "0.88 0.18 2500" "0.91 0.13 2200" "0.94 0.08 2000"; do
  read -r t v f <<<"$par"
  golpe "$tmp/g$n.wav" 0.035 "$f" "$v"
  sox "$tmp/g$n.wav" "$tmp/p$n.wav" pad "$t" 0
  entradas+=("$tmp/p$n.wav")
  n=$((n + 1))
done
sox -m -v 1 "${entradas[@]}" "$tmp/dado.wav"
sox "$tmp/dado.wav" "${fmt[@]}" "$destino/lanzardados.wav" pad 0 0.05 norm -3

# Aplausos: varias "manos" de ruido con trémolos distintos, mezcladas y con entrada y salida suaves.
aplauso() {  # fichero duracion
  local partes=() i=0
  for r in "9.0 1500" "11.5 2200" "7.3 1800" "13.1 2600" "10.2 2000" "8.4 2400"; do
    read -r vel centro <<<"$r"
    sox -n "${fmt[@]}" "$tmp/m$i.wav" synth "$2" whitenoise band "$centro" 1400 tremolo "$vel" 95 vol 0.5
    partes+=("$tmp/m$i.wav")
    i=$((i + 1))
  done
  sox -m "${partes[@]}" "$tmp/a.wav"
  sox "$tmp/a.wav" "${fmt[@]}" "$1" fade q 0.25 "$2" 0.8 norm -4
}
aplauso "$destino/aplauso1.wav" 1.6
aplauso "$destino/aplauso3.wav" 4.0
ls -l "$destino"

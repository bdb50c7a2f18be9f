#!/usr/bin/env bash
# Mide el arranque del juego frente a un programa wxWidgets mínimo: milisegundos desde que
# se lanza hasta que su primera ventana está en pantalla (en el juego, el mensaje de
# bienvenida) y pico de memoria residente (VmHWM). Uso: tools/medir_arranque.sh [VECES]
set -euo pipefail
cd "$(dirname "$0")/.."
veces=${1:-10}
dir=build/medidas
if [[ -z "${DISPLAY:-}" ]]; then
  # Primero se construye, fuera de la pantalla virtual; luego se vuelve a entrar con ella.
  cmake -S . -B "$dir" -DCMAKE_BUILD_TYPE=Release -DSABELOT_PRUEBAS=ON -DSABELOT_GUI=ON >/dev/null
  cmake --build "$dir" -j2 --target sabelot arranque_minimo medidas >/dev/null
  exec tools/con_pantalla.sh "$0" "$veces"
fi

tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
# Copias: el juego puede escribir junto al ejecutable y no debe tocar la carpeta construida.
cp -r "$dir/programa" "$tmp/juego"
mkdir "$tmp/minimo" && cp "$dir/bench/arranque_minimo" "$tmp/minimo/"

ahora_ms() { echo $(( $(date +%s%N) / 1000000 )); }

# Una vuelta: imprime "ms KiB".
medir_una() {
  local exe=$1 t0 t1 pid kib
  t0=$(ahora_ms)
  "$exe" >/dev/null 2>&1 & pid=$!
  for _ in $(seq 2000); do
    xdotool search --onlyvisible --pid "$pid" >/dev/null 2>&1 && break
    sleep 0.005
  done
  t1=$(ahora_ms)
  sleep 0.5  # que termine de pintar y quede a la espera
  kib=$(awk '/^VmHWM:/ {print $2}' "/proc/$pid/status")
  kill "$pid" 2>/dev/null; wait "$pid" 2>/dev/null || true
  echo "$((t1 - t0)) $kib"
}

mediana() { sort -n | awk '{v[NR]=$1} END {print (NR%2 ? v[(NR+1)/2] : (v[NR/2]+v[NR/2+1])/2)}'; }

declare -A ms rss
for prog in minimo juego; do
  exe=$tmp/$prog/arranque_minimo; [[ $prog == juego ]] && exe=$tmp/juego/sabelot
  medir_una "$exe" >/dev/null  # la primera calienta la caché de disco
  : >"$tmp/$prog.txt"
  for _ in $(seq "$veces"); do medir_una "$exe" >>"$tmp/$prog.txt"; done
  ms[$prog]=$(cut -d' ' -f1 "$tmp/$prog.txt" | mediana)
  rss[$prog]=$(cut -d' ' -f2 "$tmp/$prog.txt" | mediana)
done

echo "Arranque ($veces veces, medianas; $(nproc) núcleos, $(grep -m1 'model name' /proc/cpuinfo | cut -d: -f2- | sed 's/^ //'))"
printf '%-16s %10s %14s\n' programa "ms" "pico RSS MiB"
for prog in minimo juego; do
  printf '%-16s %10s %14.1f\n' "$prog" "${ms[$prog]}" "$(echo "${rss[$prog]} / 1024" | bc -l)"
done
printf '%-16s %10.2f %14.2f\n' "juego/minimo" "$(echo "${ms[juego]} / ${ms[minimo]}" | bc -l)" \
  "$(echo "${rss[juego]} / ${rss[minimo]}" | bc -l)"

#!/usr/bin/env bash
# Mide el arranque del juego frente a un programa wxWidgets mínimo (un marco con un cuadro de
# texto): milisegundos desde que se lanza hasta que su primera ventana está en pantalla (en el
# juego, el mensaje de bienvenida «Sábelot») y pico de memoria residente (VmHWM) medio segundo
# después. Las vueltas de los dos programas van alternadas, para que los cambios de carga de la
# máquina caigan sobre los dos por igual. Uso: tools/medir_arranque.sh [VECES] (9 como mínimo).
set -euo pipefail
cd "$(dirname "$0")/.."
veces=${1:-11}
((veces >= 9)) || veces=9
dir=build/medidas
if [[ -z "${DISPLAY:-}" ]]; then
  # Primero se construye, fuera de la pantalla virtual; luego se vuelve a entrar con ella.
  cmake -S . -B "$dir" -DCMAKE_BUILD_TYPE=Release -DSABELOT_PRUEBAS=ON -DSABELOT_GUI=ON >/dev/null
  cmake --build "$dir" -j2 --target sabelot arranque_minimo >/dev/null
  if [[ ! -x $dir/cronometro_ventana || tools/cronometro_ventana.c -nt $dir/cronometro_ventana ]]; then
    cc -std=c11 -O2 -Wall -Wextra -Werror tools/cronometro_ventana.c -lX11 -o "$dir/cronometro_ventana"
  fi
  exec tools/con_pantalla.sh "$0" "$veces"
fi

tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
# Copias: el juego puede escribir junto al ejecutable y no debe tocar la carpeta construida.
cp -r "$dir/programa" "$tmp/juego"
mkdir "$tmp/minimo" && cp "$dir/bench/arranque_minimo" "$tmp/minimo/"
cronometro=$dir/cronometro_ventana

# Una vuelta: imprime "ms KiB".
medir_una() {
  case $1 in
    minimo) "$cronometro" "$tmp/minimo/arranque_minimo" ;;
    juego) "$cronometro" --titulo "Sábelot" "$tmp/juego/sabelot" ;;
  esac
}

mediana() { sort -n | awk '{v[NR]=$1} END {print (NR%2 ? v[(NR+1)/2] : (v[NR/2]+v[NR/2+1])/2)}'; }

carga_antes=$(cut -d' ' -f1-3 /proc/loadavg)
# La primera de cada uno calienta la caché de disco y no cuenta.
medir_una minimo >/dev/null
medir_una juego >/dev/null
: >"$tmp/minimo.txt"
: >"$tmp/juego.txt"
for i in $(seq "$veces"); do
  # Una vuelta empieza uno y la siguiente el otro.
  orden=(minimo juego)
  ((i % 2)) || orden=(juego minimo)
  for prog in "${orden[@]}"; do medir_una "$prog" >>"$tmp/$prog.txt"; done
done
carga_despues=$(cut -d' ' -f1-3 /proc/loadavg)

declare -A ms rss
for prog in minimo juego; do
  ms[$prog]=$(cut -d' ' -f1 "$tmp/$prog.txt" | mediana)
  rss[$prog]=$(cut -d' ' -f2 "$tmp/$prog.txt" | mediana)
done

echo "Arranque ($veces veces cada uno, alternados, medianas; $(nproc) núcleos, $(grep -m1 'model name' /proc/cpuinfo | cut -d: -f2- | sed 's/^ //'))"
echo "carga_arranque $carga_antes -> $carga_despues"
printf '%-16s %10s %14s\n' programa "ms" "pico RSS MiB"
for prog in minimo juego; do
  printf '%-16s %10.1f %14.1f\n' "$prog" "${ms[$prog]}" "$(echo "${rss[$prog]} / 1024" | bc -l)"
done
printf '%-16s %10.2f %14.2f\n' "juego/minimo" "$(echo "${ms[juego]} / ${ms[minimo]}" | bc -l)" \
  "$(echo "${rss[juego]} / ${rss[minimo]}" | bc -l)"
for prog in minimo juego; do
  echo "$prog, cada vuelta (ms): $(cut -d' ' -f1 "$tmp/$prog.txt" | tr '\n' ' ')"
done

#!/usr/bin/env bash
# ./probar --mutar [FILTRO]: cada fallo hecho a propósito de tools/mutar/mutantes.tsv se pone en
# el núcleo, se construye y se pasan las pruebas del núcleo; un fallo que las pruebas no notan
# es un mutante vivo. Construye aparte (build/mutar, sin sanitizers) y deja cada fichero como
# estaba. Con FILTRO, solo los mutantes cuya línea lo contenga. En build/mutar/matriz.tsv queda
# qué pruebas notó cada mutante: antes de quitar una prueba, se mira si es la única que mata alguno.
set -euo pipefail
cd "$(dirname "$0")/.."
filtro=${1:-}
dir=build/mutar
lista=tools/mutar/mutantes.tsv

tools/preparar.sh
cmake -S . -B "$dir" -DCMAKE_BUILD_TYPE=Debug -DSABELOT_GUI=OFF -DSABELOT_PRUEBAS=ON >/dev/null
# Desde cero: un objeto de un mutante de otra vez no puede colarse en la construcción.
cmake --build "$dir" -j"$(nproc)" --target pruebas --clean-first >/dev/null
"$dir/tests/pruebas" --gtest_brief=1 >/dev/null || { echo "Las pruebas ya fallan sin mutantes" >&2; exit 2; }

guardado=$(mktemp -d)
# Al devolver un fichero, con la hora de ahora (cp sin -p): con la de antes, make daría por buena la
# construcción del mutante y el siguiente se probaría con los dos fallos a la vez.
trap 'for f in "$guardado"/*; do [ -e "$f" ] && cp "$f" "$(cat "$f.ruta")"; done 2>/dev/null; rm -rf "$guardado"' EXIT

total=0 muertos=0 rotos=0
vivos=()
matriz=$dir/matriz.tsv
: >"$matriz"
while IFS=$'\t' read -r fichero original mutado que; do
  [[ -z $fichero || $fichero == \#* ]] && continue
  [[ -n $filtro && "$fichero $que" != *"$filtro"* ]] && continue
  total=$((total + 1))
  copia="$guardado/$total"
  cp -p "$fichero" "$copia" && echo "$fichero" >"$copia.ruta"
  python3 - "$fichero" "$original" "$mutado" <<'PY'
import sys
fichero, original, mutado = sys.argv[1], sys.argv[2].replace("⏎", "\n"), sys.argv[3].replace("⏎", "\n")
texto = open(fichero, encoding="utf-8").read()
if texto.count(original) != 1:
    sys.exit(f"{fichero}: el texto del mutante no está una sola vez")
open(fichero, "w", encoding="utf-8").write(texto.replace(original, mutado))
PY
  if ! cmake --build "$dir" -j"$(nproc)" --target pruebas >/dev/null 2>&1; then
    # Un mutante que no compila no dice nada de las pruebas: hay que arreglarlo en la lista.
    resultado="NO COMPILA"
    rotos=$((rotos + 1))
  elif timeout 300 "$dir/tests/pruebas" --gtest_brief=1 >"$guardado/salida" 2>&1; then
    resultado="VIVO"
    vivos+=("$fichero: $que")
  else
    resultado="muerto"
    muertos=$((muertos + 1))
  fi
  quien=$(sed -n 's/^\[  FAILED  \] \([^ ,]*\).*/\1/p' "$guardado/salida" 2>/dev/null | sort -u | paste -sd' ')
  [[ $resultado == muerto && -z $quien ]] && quien="(se cae o se cuelga)"
  printf '%s\t%s\t%s\n' "$fichero" "$que" "$quien" >>"$matriz"
  rm -f "$guardado/salida"
  cp "$copia" "$fichero" && rm -f "$copia" "$copia.ruta"

  printf '%3d %-8s %s: %s\n' "$total" "$resultado" "$fichero" "$que"
done <"$lista"
# Desde cero: un objeto de un mutante de otra vez no puede colarse en la construcción.
cmake --build "$dir" -j"$(nproc)" --target pruebas --clean-first >/dev/null

echo
echo "Mutantes: $((total - rotos)); muertos: $muertos; vivos: $((total - rotos - muertos))"
((rotos == 0)) || echo "  $rotos no compilan: arréglelos en $lista"
for v in "${vivos[@]+"${vivos[@]}"}"; do echo "  vivo: $v"; done

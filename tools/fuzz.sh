#!/usr/bin/env bash
# Cada lector de ficheros bajo libFuzzer (clang, ASan y UBSan) durante N segundos,
# uno tras otro, sobre una copia del corpus de tests/corpus.
#   tools/fuzz.sh N [objetivo...]     (objetivos: preguntas opciones partidas)
# Con SABELOT_FUZZ_EJECUCIONES=M cada objetivo para también al llegar a M ejecuciones.
# Con SABELOT_FUZZ_GUARDAR=1 lo que aporte ramas nuevas se funde en tests/corpus (sin contar
# repeticiones, para que el corpus siga pequeño).
set -euo pipefail
cd "$(dirname "$0")/.."

segundos=${1:-60}
shift || true
objetivos=("$@")
[[ ${#objetivos[@]} -gt 0 ]] || objetivos=(preguntas opciones partidas)

if ! command -v clang++ >/dev/null || ! command -v cmake >/dev/null; then
  sudo=""; [[ $(id -u) -eq 0 ]] || sudo=sudo
  $sudo apt-get install -y --no-install-recommends clang libclang-rt-dev cmake libgtest-dev
fi

banderas="-g -O1 -fno-omit-frame-pointer -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined"
cmake -S . -B build/fuzz -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_COMPILER=clang++ \
  -DCMAKE_CXX_FLAGS="$banderas" -DCMAKE_EXE_LINKER_FLAGS="-fsanitize=address,undefined" \
  -DSABELOT_FUZZ=ON -DSABELOT_PRUEBAS=OFF -DSABELOT_GUI=OFF >/dev/null
cmake --build build/fuzz -j2 --target "${objetivos[@]/#/fuzz_}"

declare -A semillas=([preguntas]=revision [opciones]=opciones_rotas [partidas]=)
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
# Las carpetas temporales del juego en memoria: en disco, escribir y leer pesa más que el lector.
[[ -d /dev/shm && -w /dev/shm ]] && export TMPDIR=/dev/shm
hallazgos=0
informe=()
for o in "${objetivos[@]}"; do
  trabajo=build/fuzz/trabajo/$o
  rm -rf "$trabajo"; mkdir -p "$trabajo/corpus" "$trabajo/hallazgos"
  cp tests/corpus/fuzz_$o/* "$trabajo/corpus/"
  [[ -z ${semillas[$o]} ]] || cp tests/corpus/${semillas[$o]}/* "$trabajo/corpus/"
  echo "== $o: $segundos s"
  t0=$SECONDS
  set +e
  build/fuzz/fuzz/fuzz_$o "$trabajo/corpus" -max_total_time="$segundos" -runs="${SABELOT_FUZZ_EJECUCIONES:--1}" -timeout=10 -rss_limit_mb=2048 \
    -max_len=8192 -detect_leaks=1 -print_final_stats=1 -artifact_prefix="$trabajo/hallazgos/" \
    >"$trabajo/registro.txt" 2>&1
  rc=$?
  set -e
  runs=$(grep -o 'stat::number_of_executed_units: *[0-9]*' "$trabajo/registro.txt" | grep -o '[0-9]*$' || echo "?")
  encontrados=$(ls "$trabajo/hallazgos" | wc -l)
  if [[ $rc -ne 0 || $encontrados -gt 0 ]]; then
    hallazgos=1
    informe+=("$o: $runs ejecuciones, HALLAZGO (salida $rc): $(ls "$trabajo/hallazgos" | tr '\n' ' ')")
    grep -m5 -E 'ERROR|SUMMARY|Invariante|runtime error' "$trabajo/registro.txt" || true
  else
    informe+=("$o: $runs ejecuciones en $((SECONDS - t0)) s, nada encontrado")
  fi
  if [[ ${SABELOT_FUZZ_GUARDAR:-0} == 1 ]]; then
    build/fuzz/fuzz/fuzz_$o -merge=1 -use_counters=0 tests/corpus/fuzz_$o "$trabajo/corpus" >/dev/null 2>&1 || true
  fi
done
printf '%s\n' "${informe[@]}"
exit $hallazgos

#!/usr/bin/env bash
# Maratón de teclas al azar bajo AddressSanitizer y UBSan durante MIN minutos.
#   tools/maraton.sh MIN [SEMILLA]      (o ./probar --maraton MIN)
# Sale con error al primer hallazgo; la semilla y el paso impresos lo repiten:
#   build/maraton/tests/maraton/maraton --segundos S --semilla N
set -euo pipefail
cd "$(dirname "$0")/.."

minutos=${1:?uso: tools/maraton.sh MINUTOS [SEMILLA]}
semilla=${2:-$(od -An -N4 -tu4 /dev/urandom | tr -d ' ')}

faltan=()
for paquete in cmake g++ libgtest-dev; do
  dpkg -s "$paquete" >/dev/null 2>&1 || faltan+=("$paquete")
done
if ((${#faltan[@]})); then
  sudo=""; [[ $(id -u) -ne 0 ]] && sudo=sudo
  $sudo apt-get update -qq && $sudo apt-get install -y -qq "${faltan[@]}"
fi

cmake -S . -B build/maraton -DCMAKE_BUILD_TYPE=Debug -DSABELOT_SANITIZERS=ON -DSABELOT_GUI=OFF >/dev/null
cmake --build build/maraton -j2 --target maraton

export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_stack_use_after_return=1:abort_on_error=0}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}
segundos=$((minutos * 60))
echo "Maratón de $minutos min con semilla $semilla ($(nproc) núcleos: $(grep -m1 'model name' /proc/cpuinfo | cut -d: -f2- | xargs))"
build/maraton/tests/maraton/maraton --segundos "$segundos" --semilla "$semilla"

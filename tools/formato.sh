#!/usr/bin/env bash
# El código C++ sigue .clang-format. Sin argumentos, dice qué ficheros no lo siguen y falla;
# con --arreglar, los deja como deben estar. Las tablas alineadas a mano van entre
# «// clang-format off» y «// clang-format on».
set -euo pipefail
cd "$(dirname "$0")/.."
mapfile -t ficheros < <(git ls-files -- src tests bench fuzz tools | grep -E '\.(cpp|h|mm)$')
if [[ ${1:-} == --arreglar ]]; then
  clang-format -i "${ficheros[@]}"
  exit 0
fi
mal=()
for f in "${ficheros[@]}"; do
  clang-format --dry-run --Werror "$f" >/dev/null 2>&1 || mal+=("$f")
done
if ((${#mal[@]})); then
  echo "Formato: ${#mal[@]} ficheros no siguen .clang-format (tools/formato.sh --arreglar los arregla):" >&2
  printf '  %s\n' "${mal[@]}" >&2
  exit 1
fi
echo "Formato: ${#ficheros[@]} ficheros, todos según .clang-format."

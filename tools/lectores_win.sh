#!/usr/bin/env bash
# La cadena de lectores de Windows (src/wx/lectores_win.cpp) compilada con MinGW y su prueba
# de consola (tests/windows/lectores_win_prueba.cpp) corrida bajo Wine en una pantalla virtual.
# Uso: tools/lectores_win.sh   (tools/windows.sh puede llamarlo; deja todo en build/lectores_win)
set -euo pipefail
raiz=$(cd "$(dirname "$0")/.." && pwd)
dir="$raiz/build/lectores_win"
mkdir -p "$dir"

paquetes=(g++-mingw-w64-x86-64-posix mingw-w64-tools wine wine64 xvfb)
"$raiz/tools/preparar.sh" "${paquetes[@]}"

cxx=x86_64-w64-mingw32-g++-posix
avisos=(-std=c++17 -Wall -Wextra -Wpedantic -Werror)
# Lo mismo que enlaza el juego para estas vías; oleacc solo para que la prueba lea el nombre.
"$cxx" "${avisos[@]}" -c "$raiz/src/wx/lectores_win.cpp" -o "$dir/lectores_win.o"
"$cxx" "${avisos[@]}" -municode -I "$raiz/src/wx" "$raiz/tests/windows/lectores_win_prueba.cpp" \
  "$dir/lectores_win.o" -lole32 -loleaut32 -luuid -loleacc -static -o "$dir/lectores_win_prueba.exe"
# La misma prueba con un cliente de NVDA de mentira junto al programa.
mkdir -p "$dir/con_nvda"
"$cxx" "${avisos[@]}" -shared "$raiz/tests/windows/nvda_falso.cpp" -static -o "$dir/con_nvda/nvdaControllerClient64.dll"
cp "$dir/lectores_win_prueba.exe" "$dir/con_nvda/"
echo "Compilado: $dir/lectores_win_prueba.exe y $dir/con_nvda/"

# Ni la DLL de UI Automation ni ninguna otra de los lectores debe estar entre las importadas.
if x86_64-w64-mingw32-objdump -p "$dir/lectores_win_prueba.exe" | grep -qiE "DLL Name: (uiautomationcore|nvda|jfw)"; then
  echo "FALLO: la prueba importa una DLL de un lector; tiene que cargarse al correr" >&2
  exit 1
fi

export WINEPREFIX="$dir/wine" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
echo "== Sin lectores junto al programa"
xvfb-run -a timeout 300 wine "$dir/lectores_win_prueba.exe" 2>/dev/null | tr -d '\r'
echo "== Con la DLL de NVDA (de mentira) junto al programa"
xvfb-run -a timeout 300 wine "$dir/con_nvda/lectores_win_prueba.exe" 2>/dev/null | tr -d '\r'

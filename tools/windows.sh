#!/usr/bin/env bash
# El programa para Windows, compilado desde Debian con MinGW-w64 y probado bajo Wine.
#
# wxWidgets y SDL2 salen de los paquetes fuente de Debian y se construyen
# una sola vez en una caché fuera del repositorio (SABELOT_WINDOWS_CACHE, por omisión
# /var/cache/sabelot-windows); las siguientes veces solo se recompila el juego.
#
#   tools/windows.sh                  todo: bibliotecas, juego, pruebas bajo Wine, arranque
#   tools/windows.sh --bibliotecas    solo preparar la caché
#   tools/windows.sh --compilar       bibliotecas y juego, sin Wine
set -euo pipefail
cd "$(dirname "$0")/.."
RAIZ=$PWD
CACHE=${SABELOT_WINDOWS_CACHE:-/var/cache/sabelot-windows}
HOST=x86_64-w64-mingw32
PREFIJO=$CACHE/mingw
FUENTES=$CACHE/fuentes
OBRA=$CACHE/obra
HECHO=$CACHE/hecho
CONSTRUCCION=$RAIZ/build/windows
TAREAS=${SABELOT_TAREAS:-2}
MODO=${1:-todo}
inicio=$SECONDS

paso() { printf '\n== %s (%ds)\n' "$*" $((SECONDS - inicio)); }

# --- Paquetes de Debian -----------------------------------------------------------------
sudo_=""
[[ $(id -u) -eq 0 ]] || sudo_="sudo"
paquetes=(g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix mingw-w64-tools binutils-mingw-w64-x86-64
          libz-mingw-w64-dev wine wine64 xvfb xdotool x11-utils openbox dpkg-dev cmake make pkg-config
          googletest nlohmann-json3-dev zip)
falta=()
for p in "${paquetes[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || falta+=("$p")
done
if ((${#falta[@]})); then
  paso "Instalando ${falta[*]}"
  export DEBIAN_FRONTEND=noninteractive
  $sudo_ apt-get update -q >/dev/null
  $sudo_ apt-get install -y -q --no-install-recommends "${falta[@]}" >/dev/null
fi

# Los fuentes, de las mismas suites que los binarios: un fichero propio con Types: deb-src.
habilitar_fuentes() {
  local propio=/etc/apt/sources.list.d/sabelot-fuentes.sources tmp
  tmp=$(mktemp)
  {
    echo "# Paquetes fuente para compilar las bibliotecas de Sabelot para Windows (tools/windows.sh)."
    for f in /etc/apt/sources.list.d/*.sources; do
      [[ -e $f && $f != "$propio" ]] || continue
      # Cada estrofa deb822 con Types: deb, otra vez como deb-src.
      awk 'BEGIN{RS=""; ORS="\n\n"} /(^|\n)Types:[^\n]*deb([ \t]|\n|$)/ && !/Enabled: *no/ {
             sub(/(^|\n)Types:[^\n]*/, "\nTypes: deb-src"); sub(/^\n/, ""); print }' "$f"
    done
    if [[ -f /etc/apt/sources.list ]]; then
      # Líneas de una sola fila: "deb [opciones] URI suite componentes...".
      awk '$1=="deb" { o=""; i=2; if ($2 ~ /^\[/) { while ($i !~ /\]$/) { o=o" "$i; i++ } o=o" "$i; i++ }
             s="Types: deb-src\nURIs: " $i "\nSuites: " $(i+1) "\nComponents:"; for (k=i+2;k<=NF;k++) s=s" "$k
             if (o ~ /signed-by=/) { match(o, /signed-by=[^] ]*/); s=s "\nSigned-By: " substr(o, RSTART+10, RLENGTH-10) }
             print s "\n" }' /etc/apt/sources.list
    fi
  } >"$tmp"
  if ! cmp -s "$tmp" "$propio" 2>/dev/null; then
    paso "Habilitando deb-src en $propio"
    $sudo_ install -m 644 "$tmp" "$propio"
    $sudo_ apt-get update -q >/dev/null
  fi
  rm -f "$tmp"
}

# Descarga y desempaqueta el paquete fuente $1 en $FUENTES; deja en $dir su carpeta.
fuente() {
  local paquete=$1
  mkdir -p "$FUENTES"
  dir=$(find "$FUENTES" -maxdepth 1 -type d -name "$2-[0-9]*" | sort | tail -1)
  if [[ -z $dir ]]; then
    habilitar_fuentes
    (cd "$FUENTES" && apt-get source -q "$paquete" >/dev/null)
    dir=$(find "$FUENTES" -maxdepth 1 -type d -name "$2-[0-9]*" | sort | tail -1)
  fi
  [[ -n $dir ]] || { echo "No se pudo desempaquetar $paquete" >&2; exit 1; }
}

export CC=$HOST-gcc-posix CXX=$HOST-g++-posix
export PKG_CONFIG_LIBDIR=$PREFIJO/lib/pkgconfig PKG_CONFIG_PATH=$PREFIJO/lib/pkgconfig
export PATH=$PREFIJO/bin:$PATH

construir_sdl2() {
  [[ -f $HECHO/sdl2 ]] && return
  fuente libsdl2 libsdl2
  paso "SDL2 para Windows ($dir)"
  rm -rf "$OBRA/sdl2"; mkdir -p "$OBRA/sdl2"; cd "$OBRA/sdl2"
  "$dir/configure" -q --host=$HOST --prefix="$PREFIJO" --disable-shared --enable-static \
    --disable-joystick --disable-haptic --disable-hidapi --disable-sensor >configure.log
  make -s -j"$TAREAS" >make.log 2>&1 || { tail -40 make.log; exit 1; }
  make -s install >/dev/null
  cd "$RAIZ"; touch "$HECHO/sdl2"
}

construir_wx() {
  [[ -f $HECHO/wx ]] && return
  fuente wxwidgets3.2 wxwidgets3.2
  paso "wxWidgets para Windows, estático y sin lo que el juego no usa ($dir)"
  rm -rf "$OBRA/wx"; mkdir -p "$OBRA/wx"; cd "$OBRA/wx"
  "$dir/configure" -q --host=$HOST --build="$(gcc -dumpmachine)" --prefix="$PREFIJO" \
    --disable-shared --enable-unicode --enable-accessibility --with-msw \
    --disable-webview --disable-mediactrl --disable-stc --disable-richtext --disable-propgrid \
    --disable-html --disable-htmlhelp --disable-xrc --disable-aui --disable-ribbon \
    --disable-webrequest --disable-sound --disable-svg --disable-mshtmlhelp --without-nanosvg --with-opengl=no \
    --without-libtiff --without-libjpeg --without-libpng --without-expat --without-liblzma \
    --without-regex --with-zlib=sys >configure.log 2>&1 \
    || { tail -40 configure.log; exit 1; }
  make -j"$TAREAS" >make.log 2>&1 || { tail -40 make.log; exit 1; }
  make install >install.log 2>&1
  cd "$RAIZ"; touch "$HECHO/wx"
}

mkdir -p "$HECHO" "$OBRA"
construir_sdl2
construir_wx
[[ $MODO == --bibliotecas ]] && { paso "Bibliotecas listas en $PREFIJO"; exit 0; }

# GoogleTest de Debian (/usr/src/googletest) compilado con el compilador cruzado.
construir_gtest() {
  [[ -f $HECHO/gtest ]] && return
  paso "GoogleTest para Windows"
  rm -rf "$OBRA/gtest"
  cmake -S /usr/src/googletest -B "$OBRA/gtest" -DCMAKE_TOOLCHAIN_FILE="$RAIZ/cmake/mingw-w64.cmake" \
    -DSABELOT_MINGW_PREFIJO="$PREFIJO" -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$PREFIJO" \
    -DBUILD_GMOCK=ON -DINSTALL_GTEST=ON >/dev/null
  cmake --build "$OBRA/gtest" -j"$TAREAS" >/dev/null
  cmake --install "$OBRA/gtest" >/dev/null
  touch "$HECHO/gtest"
}
construir_gtest

# nlohmann_json solo son cabeceras: las de Debian valen tal cual, vistas desde el prefijo
# (sin meter /usr/include, que es de Linux, entre las del compilador cruzado).
if [[ -d /usr/include/nlohmann && -d /usr/share/cmake/nlohmann_json ]]; then
  mkdir -p "$PREFIJO/include" "$PREFIJO/share/cmake/nlohmann_json"
  ln -sfn /usr/include/nlohmann "$PREFIJO/include/nlohmann"
  cp /usr/share/cmake/nlohmann_json/*.cmake "$PREFIJO/share/cmake/nlohmann_json/"
fi
[[ $MODO == --bibliotecas ]] && { paso "Bibliotecas listas en $PREFIJO"; exit 0; }

# --- El juego y las pruebas ---------------------------------------------------------------
paso "Juego y pruebas para Windows en $CONSTRUCCION"
cmake -S "$RAIZ" -B "$CONSTRUCCION" -DCMAKE_TOOLCHAIN_FILE="$RAIZ/cmake/mingw-w64.cmake" \
  -DSABELOT_MINGW_PREFIJO="$PREFIJO" -DCMAKE_BUILD_TYPE=Release -DSABELOT_GUI=ON -DSABELOT_PRUEBAS=ON \
  -DwxWidgets_CONFIG_EXECUTABLE="$PREFIJO/bin/wx-config" \
  -Dbenchmark_DIR="$RAIZ/cmake/cruzado" \
  -DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST \
  -DCMAKE_CXX_STANDARD_LIBRARIES="" >"$CACHE/configurar-juego.log" \
  || { tail -30 "$CACHE/configurar-juego.log"; exit 1; }
cmake --build "$CONSTRUCCION" -j"$TAREAS" --target sabelot pruebas
programa=$CONSTRUCCION/programa
ls -l "$programa/sabelot.exe" "$CONSTRUCCION/tests/pruebas.exe"
# Ninguna DLL de MinGW ni de las bibliotecas: solo las de Windows.
if x86_64-w64-mingw32-objdump -p "$programa/sabelot.exe" | grep -iE 'DLL Name: (lib|sdl|wx)'; then
  echo "FALLO: sabelot.exe depende de DLL que no van en el paquete" >&2
  exit 1
fi
[[ $MODO == --compilar ]] && exit 0

# --- Bajo Wine ---------------------------------------------------------------------------
export WINEPREFIX=${WINEPREFIX:-$CACHE/wine} WINEDEBUG=-all WINEARCH=win64 WINEDLLOVERRIDES="mscoree,mshtml="
sonda=$CACHE/sonda_bienvenida.exe
if [[ ! -f $sonda || $RAIZ/tools/sonda_bienvenida_win.cpp -nt $sonda ]]; then
  $CXX -std=c++17 -O2 -Wall -Wextra -Werror -municode "$RAIZ/tools/sonda_bienvenida_win.cpp" -static -o "$sonda"
fi

# Todo lo que necesita una pantalla, en una sola sesión de Xvfb y de wineserver.
cat >"$CACHE/bajo_wine.sh" <<'FIN'
set -uo pipefail
wineboot -i >/dev/null 2>&1
wineserver -w
echo "== Pruebas del núcleo bajo Wine"
# Las rutas de datos de las pruebas son de Unix: desde la unidad Z: de Wine se encuentran.
(cd "$RAIZ" && wine "$CONSTRUCCION/tests/pruebas.exe" --gtest_brief=1 --gtest_color=no) 2>&1 | tr -d '\r' | tee "$CACHE/pruebas-wine.log" | tail -25
rc_pruebas=${PIPESTATUS[0]}
echo "== Arranque del juego bajo Wine"
rm -f "$CACHE/bienvenida.txt"
wine "$programa/sabelot.exe" >/dev/null 2>&1 & juego=$!
wine "$CACHE/sonda_bienvenida.exe" 90 "$(winepath -w "$CACHE/bienvenida.txt")" 2>&1 | tr -d '\r'
rc_sonda=${PIPESTATUS[0]}
for i in $(seq 300); do kill -0 $juego 2>/dev/null || break; sleep 0.1; done
if kill -0 $juego 2>/dev/null; then echo "El juego no se cerró"; kill $juego; rc_sonda=1; fi
wineserver -k 2>/dev/null
exit $(( (rc_pruebas ? 1 : 0) + (rc_sonda ? 2 : 0) ))
FIN
export RAIZ CACHE CONSTRUCCION programa
set +e
"$RAIZ/tools/con_pantalla.sh" bash "$CACHE/bajo_wine.sh"
rc=$?
set -e

fallos=0
if (( rc & 1 )); then
  echo "FALLO: hay pruebas del núcleo que no pasan bajo Wine (ver $CACHE/pruebas-wine.log)"
  fallos=1
fi
bienvenida=$(tr -d '\r' <"$CACHE/bienvenida.txt" 2>/dev/null || true)
if (( rc & 2 )) || ! grep -q '^Partida de [0-9]* jugador' <<<"$bienvenida" \
   || ! grep -q '^Las categorías actualmente seleccionadas son:' <<<"$bienvenida"; then
  echo "FALLO: el juego no mostró su mensaje de bienvenida bajo Wine"
  fallos=1
else
  echo "El juego arrancó bajo Wine y mostró su bienvenida:"
  sed 's/^/    /' <<<"$bienvenida"
fi
paso "Fin"
exit $fallos

#!/usr/bin/env bash
# El juego escuchado por Orca de verdad, en una pantalla virtual: bienvenida, una casilla tras
# una flecha, una tirada, una pregunta y su veredicto. Imprime lo que Orca dijo y PASS o FAIL.
# Lento (un minuto largo) y fuera de las pruebas de siempre: ./probar --lector
set -euo pipefail
cd "$(dirname "$0")/.."
tools/preparar.sh
# Orca trae speech-dispatcher; su módulo mudo y libao bastan sin tarjeta de sonido.
paquetes=(orca speech-dispatcher speech-dispatcher-audio-plugins libao4 procps)
tools/preparar.sh "${paquetes[@]}"
# Construcción para jugar, en su propia carpeta.
cmake -S . -B build/orca -DCMAKE_BUILD_TYPE=Release -DSABELOT_PRUEBAS=OFF >/dev/null
cmake --build build/orca -j"$(nproc)" >/dev/null
exec tools/con_pantalla.sh /usr/bin/python3 tests/gui/orca_e2e.py build/orca/programa/sabelot datos

#!/usr/bin/env bash
# El juego escuchado por Orca de verdad, en una pantalla virtual: una partida larga (preguntas
# bien y mal, una casilla de quesito, guardar y cargar, las opciones con sus listas). Imprime lo
# que Orca dijo tras cada tecla, lo repetido y lo pasado, y PASS o FAIL.
# Lento (unos diez minutos) y fuera de las pruebas de siempre: ./probar --lector
set -euo pipefail
cd "$(dirname "$0")/.."
tools/preparar.sh
# Orca trae speech-dispatcher; su módulo mudo y libao bastan sin tarjeta de sonido.
paquetes=(orca speech-dispatcher speech-dispatcher-audio-plugins libao4 procps locales)
tools/preparar.sh "${paquetes[@]}"
# Orca en español, como lo tiene un jugador: «diálogo», «botón» y no «dialog», «push button».
if ! locale -a 2>/dev/null | grep -qi '^es_ES\.utf-\?8$'; then
  sudo_=""; [[ $(id -u) -eq 0 ]] || sudo_=sudo
  $sudo_ sed -i 's/^# *\(es_ES\.UTF-8 UTF-8\)/\1/' /etc/locale.gen
  grep -q '^es_ES.UTF-8 UTF-8' /etc/locale.gen || echo 'es_ES.UTF-8 UTF-8' | $sudo_ tee -a /etc/locale.gen >/dev/null
  $sudo_ locale-gen >/dev/null
fi
export LANG=es_ES.UTF-8 LANGUAGE=es
# Construcción para jugar, en su propia carpeta.
cmake -S . -B build/orca -DCMAKE_BUILD_TYPE=Release -DSABELOT_PRUEBAS=OFF >/dev/null
cmake --build build/orca -j"$(nproc)" >/dev/null
exec tools/con_pantalla.sh /usr/bin/python3 tests/gui/partida_oida.py --orca "$@" build/orca/programa/sabelot datos

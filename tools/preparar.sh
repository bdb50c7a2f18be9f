#!/usr/bin/env bash
# Instala con apt-get lo que falte para construir, jugar y probar. Callado si ya está todo.
# Con argumentos, instala solo esos paquetes (lo usan los modos largos de ./probar).
set -euo pipefail
paquetes=(build-essential cmake pkg-config libwxgtk3.2-dev libgtk-3-dev libsdl2-dev
          libgtest-dev libgmock-dev libbenchmark-dev nlohmann-json3-dev xvfb openbox xdotool dbus-x11 at-spi2-core
          python3-pyatspi x11-utils clang-format)
(($# == 0)) || paquetes=("$@")
falta=()
for p in "${paquetes[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || falta+=("$p")
done
if ((${#falta[@]})); then
  echo "Instalando: ${falta[*]}"
  sudo_=""
  [[ $(id -u) -eq 0 ]] || sudo_="sudo"
  export DEBIAN_FRONTEND=noninteractive
  $sudo_ apt-get update -q >/dev/null
  $sudo_ apt-get install -y -q --no-install-recommends "${falta[@]}" >/dev/null
fi

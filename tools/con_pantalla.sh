#!/usr/bin/env bash
# Ejecuta una orden con una pantalla virtual (Xvfb), un gestor de ventanas (openbox, sin él
# los diálogos no reciben el foco) y un bus de sesión con el de accesibilidad.
set -uo pipefail
exec dbus-run-session -- bash -c '
  for n in $(seq 1 100); do d=$((300 + RANDOM % 600)); [[ -e /tmp/.X11-unix/X$d ]] || break; done
  Xvfb :$d -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 & xpid=$!
  export DISPLAY=:$d GDK_BACKEND=x11 NO_AT_BRIDGE=0 GTK_MODULES=gail:atk-bridge
  for i in $(seq 100); do xdpyinfo >/dev/null 2>&1 && break; sleep 0.05; done
  openbox >/dev/null 2>&1 & opid=$!
  /usr/libexec/at-spi-bus-launcher --launch-immediately >/dev/null 2>&1 & apid=$!
  sleep 0.5
  "$@"; rc=$?
  kill $opid $apid 2>/dev/null; kill $xpid 2>/dev/null; wait 2>/dev/null
  exit $rc' con_pantalla "$@" 2> >(grep -v dbus-daemon >&2)

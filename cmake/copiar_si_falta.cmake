# Copia las opciones por defecto solo si el jugador aún no tiene las suyas.
if(NOT EXISTS "${DESTINO}")
  file(COPY_FILE "${ORIGEN}" "${DESTINO}")
endif()

# Las medidas de Google Benchmark no se compilan para Windows: objetivos vacíos para que el
# proyecto se configure igual; tools/windows.sh solo construye el juego y las pruebas.
if(NOT TARGET benchmark::benchmark)
  add_library(benchmark::benchmark INTERFACE IMPORTED)
  add_library(benchmark::benchmark_main INTERFACE IMPORTED)
endif()
set(benchmark_FOUND TRUE)

/* Un programa que necesita una biblioteca con nombre de SDL2 que no está en ningún
   sitio: el lanzador de Linux tiene que decir qué paquete instalar. */
int sin_biblioteca_falsa(void);
int main(void) { return sin_biblioteca_falsa(); }

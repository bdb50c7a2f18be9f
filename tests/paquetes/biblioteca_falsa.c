int sin_biblioteca_falsa(void) { return 0; }

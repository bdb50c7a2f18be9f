// Traducción de las teclas de wxWidgets a los códigos de tecla virtual que espera la lógica.
#pragma once

class wxKeyEvent;

// Código de tecla virtual (el de la mayúscula para las letras); 0 si la tecla no tiene uno.
int CodigoTecla(int codigoWx);
// Bits de los modificadores: 1 Mayúsculas, 2 Control, 4 Alt.
int Modificadores(bool mayusculas, bool control, bool alt);

int CodigoTecla(const wxKeyEvent& evento);
int Modificadores(const wxKeyEvent& evento);

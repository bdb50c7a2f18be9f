// Las medidas de los formularios van en twips: 15 por píxel a 96 ppp.
#pragma once

inline int Twips(int twips) { return twips / 15; }

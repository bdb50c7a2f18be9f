// Las teclas como las recibe la lógica: códigos de tecla virtual de Windows y bits de
// modificadores. La capa de ventanas traduce las suyas a estos.
#pragma once

namespace sabelot {

enum Tecla : int {
    vbKeyTab = 9,
    vbKeyReturn = 13,
    vbKeyEscape = 27,
    vbKeySpace = 32,
    vbKeyPageUp = 33,
    vbKeyPageDown = 34,
    vbKeyEnd = 35,
    vbKeyHome = 36,
    vbKeyLeft = 37,
    vbKeyUp = 38,
    vbKeyRight = 39,
    vbKeyDown = 40,
    vbKeyDelete = 46,
    vbKey0 = 48,
    vbKey1 = 49,
    vbKey6 = 54,
    vbKey9 = 57,
    vbKeyA = 65,
    vbKeyD = 68,
    vbKeyE = 69,
    vbKeyG = 71,
    vbKeyO = 79,
    vbKeyV = 86,
    vbKeyZ = 90,
    vbKeyF1 = 112,
    vbKeyF2 = 113,
    vbKeyF3 = 114,
    vbKeyF4 = 115,
};

enum Modificador : int { vbShiftMask = 1, vbCtrlMask = 2, vbAltMask = 4 };

}  // namespace sabelot

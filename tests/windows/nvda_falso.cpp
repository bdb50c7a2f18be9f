// Un cliente de NVDA de mentira para lectores_win_prueba: responde que NVDA corre y apunta lo
// que se le pide, para ver que la cadena lo carga de la carpeta del programa y lo usa bien.
#include <windows.h>

#include <string>

namespace {
std::wstring registro;
}

extern "C" {
__declspec(dllexport) unsigned long __stdcall nvdaController_testIfRunning() { return 0; }
__declspec(dllexport) unsigned long __stdcall nvdaController_cancelSpeech() {
    registro += L"[callar]";
    return 0;
}
__declspec(dllexport) unsigned long __stdcall nvdaController_speakText(const wchar_t* texto) {
    registro += L"[";
    registro += texto;
    registro += L"]";
    return 0;
}
__declspec(dllexport) const wchar_t* Falso_Registro() { return registro.c_str(); }
}

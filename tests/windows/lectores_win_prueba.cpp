// Prueba de consola de la cadena de lectores en Windows (o en Wine): arma la cadena sobre una
// ventana oculta, dice qué vía elige, anuncia sin caerse y comprueba lo que MSAA dejaría leer.
// Sin GoogleTest, para poder construirla con MinGW sin nada más.
//   x86_64-w64-mingw32-g++-posix -std=c++17 -municode -I src/wx tests/windows/lectores_win_prueba.cpp
//       src/wx/lectores_win.cpp -lole32 -loleaut32 -loleacc -luuid -static -o lectores_win_prueba.exe
#include <oleacc.h>

#include <cstdio>
#include <string>

#include "lectores_win.h"

namespace {

int fallos = 0;

std::string Utf8(const std::wstring& w) {
    if (w.empty()) return std::string();
    const int n =
        WideCharToMultiByte(CP_UTF8, 0, w.data(), static_cast<int>(w.size()), nullptr, 0, nullptr, nullptr);
    std::string r(static_cast<std::size_t>(n), '\0');
    WideCharToMultiByte(CP_UTF8, 0, w.data(), static_cast<int>(w.size()), &r[0], n, nullptr, nullptr);
    return r;
}

void Comprobar(bool bien, const char* que) {
    std::printf("%s %s\n", bien ? "bien " : "FALLO", que);
    if (!bien) ++fallos;
}

std::wstring TextoVentana(HWND v) {
    wchar_t b[512] = {};
    GetWindowTextW(v, b, 512);
    return b;
}

// Lo que un lector que use MSAA leería como nombre del control.
std::wstring NombreMsaa(HWND v) {
    IAccessible* acc = nullptr;
    const HRESULT hr = AccessibleObjectFromWindow(v, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                                  reinterpret_cast<void**>(&acc));
    if (FAILED(hr) || !acc) {
        wchar_t b[64];
        wsprintfW(b, L"(sin objeto: 0x%08lX)", static_cast<unsigned long>(hr));
        return b;
    }
    VARIANT yo;
    VariantInit(&yo);
    yo.vt = VT_I4;
    yo.lVal = CHILDID_SELF;
    BSTR nombre = nullptr;
    std::wstring r = L"(sin nombre)";
    if (SUCCEEDED(acc->get_accName(yo, &nombre)) && nombre) r = nombre;
    SysFreeString(nombre);
    acc->Release();
    return r;
}

}  // namespace

int wmain() {
    HINSTANCE inst = GetModuleHandleW(nullptr);
    WNDCLASSW clase = {};
    clase.lpfnWndProc = DefWindowProcW;
    clase.hInstance = inst;
    clase.lpszClassName = L"PruebaLectores";
    RegisterClassW(&clase);
    // Como Picture1: un hijo sin texto propio dentro de una ventana que no se muestra.
    HWND marco = CreateWindowExW(0, L"PruebaLectores", L"Sábelot", WS_OVERLAPPEDWINDOW, 0, 0, 300, 200,
                                 nullptr, nullptr, inst, nullptr);
    HWND lienzo = CreateWindowExW(0, L"PruebaLectores", L"", WS_CHILD | WS_TABSTOP, 0, 0, 100, 100, marco,
                                  nullptr, inst, nullptr);
    Comprobar(marco && lienzo, "ventanas creadas");

    Comprobar(lectores::Ancho("S\xC3\xA1"
                              "belot, \xC2\xBFpregunta?") == L"Sábelot, ¿pregunta?",
              "UTF-8 a UTF-16");
    Comprobar(lectores::Ancho("").empty(), "texto vacío");

    lectores::Cadena cadena;
    const lectores::Via elegida = cadena.Elegir();
    std::printf("vía elegida: %s\n", Utf8(lectores::NombreVia(elegida)).c_str());

    const std::string bienvenida =
        "\xC2\xA1"
        "Bienvenido a S\xC3\xA1"
        "belot!";
    const lectores::Via usada = cadena.Decir(lienzo, bienvenida, true);
    std::printf("anuncio dicho por: %s\n", Utf8(lectores::NombreVia(usada)).c_str());
    Comprobar(usada != lectores::Via::Ninguna, "el anuncio llega por alguna vía");

    // Con la DLL de NVDA al lado (la de mentira, nvda_falso.cpp), NVDA va antes que el resto:
    // el primer texto de una tecla corta lo anterior, los siguientes no.
    if (HMODULE falso = GetModuleHandleW(L"nvdaControllerClient64.dll")) {
        using Registro = const wchar_t* (*)();
        auto leer =
            reinterpret_cast<Registro>(reinterpret_cast<void*>(GetProcAddress(falso, "Falso_Registro")));
        Comprobar(usada == lectores::Via::Nvda, "NVDA elegido con su DLL junto al programa");
        cadena.Decir(lienzo, L"Casilla 5", true);
        cadena.Decir(lienzo, L"Casilla 5", true);
        cadena.Decir(lienzo, L"¿Quién fue?", false);
        Comprobar(leer && std::wstring(leer()) ==
                              L"[callar][¡Bienvenido a Sábelot!][callar][Casilla 5][callar][Casilla 5]"
                              L"[¿Quién fue?]",
                  "NVDA: lo dicho, repetido, y cortado solo al empezar");
    } else {
        Comprobar(cadena.DecirCon(lectores::Via::Nvda, lienzo, L"x", true) == false,
                  "sin la DLL de NVDA no se usa");
    }

    // Sin JAWS esa vía dice que no y no se cae.
    const bool hayJaws = FindWindowW(L"JFWUI2", nullptr) != nullptr;
    if (!hayJaws)
        Comprobar(!cadena.DecirCon(lectores::Via::Jaws, lienzo, L"x", true), "JAWS ausente: no se usa");
    std::printf("UI Automation directa: %s\n", cadena.DecirCon(lectores::Via::Uia, lienzo, L"Casilla 5", true)
                                                   ? "aceptada"
                                                   : "no disponible");

    // MSAA: el nombre cambia, se repite, y dos textos de una tecla se juntan.
    cadena.DecirCon(lectores::Via::Msaa, lienzo, L"Casilla 5", true);
    Comprobar(TextoVentana(lienzo) == L"Casilla 5", "MSAA pone el texto");
    cadena.DecirCon(lectores::Via::Msaa, lienzo, L"Casilla 5", true);
    Comprobar(TextoVentana(lienzo) != L"Casilla 5" && TextoVentana(lienzo).rfind(L"Casilla 5", 0) == 0,
              "MSAA: el mismo texto dos veces es un cambio");
    cadena.DecirCon(lectores::Via::Msaa, lienzo, L"Tema: Historia.", true);
    cadena.DecirCon(lectores::Via::Msaa, lienzo, L"¿Quién fue?", false);
    Comprobar(TextoVentana(lienzo) == L"Tema: Historia. ¿Quién fue?", "MSAA: sin interrumpir se junta");
    const std::wstring leido = NombreMsaa(lienzo);
    std::printf("nombre MSAA leído con oleacc: %s\n", Utf8(leido).c_str());
    Comprobar(leido == L"Tema: Historia. ¿Quién fue?", "un cliente MSAA lee el texto como nombre");

    // Otro control: lo de antes no se le junta.
    HWND boton =
        CreateWindowExW(0, L"BUTTON", L"Aceptar", WS_CHILD, 0, 120, 80, 24, marco, nullptr, inst, nullptr);
    cadena.DecirCon(lectores::Via::Msaa, boton, L"Aceptar", false);
    Comprobar(TextoVentana(boton) == L"Aceptar", "MSAA: otro control empieza de cero");

    // Con un PonerNombre propio (el de wxWidgets) el texto de la ventana no se toca.
    std::wstring recibido;
    cadena.PonerNombre = [&](HWND, const std::wstring& t) { recibido = t; };
    cadena.DecirCon(lectores::Via::Msaa, lienzo, L"Fin", true);
    Comprobar(recibido == L"Fin" && TextoVentana(lienzo) == L"Tema: Historia. ¿Quién fue?",
              "MSAA con PonerNombre");

    // Cien textos seguidos por la vía elegida: nada se cae ni se atasca.
    for (int i = 0; i < 100; ++i) cadena.Decir(lienzo, L"Texto " + std::to_wstring(i), i % 2 == 0);
    Comprobar(true, "cien anuncios seguidos");

    DestroyWindow(marco);
    std::printf("%s\n", fallos == 0 ? "todo bien" : "hay fallos");
    return fallos == 0 ? 0 : 1;
}

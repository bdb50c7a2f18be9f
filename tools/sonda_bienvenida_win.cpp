// Sonda para la prueba de humo de tools/windows.sh: otro proceso de Windows (bajo Wine) que
// espera el primer cuadro de mensaje del juego, copia su texto en UTF-8, pulsa Aceptar y
// cierra la ventana principal. Así el juego no lleva ningún gancho de pruebas.
//
//   sonda_bienvenida.exe SEGUNDOS FICHERO_DE_SALIDA
#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <string>
#include <vector>

namespace {

const wchar_t* const kTitulo = L"S\u00e1belot";

struct Busqueda {
    HWND encontrada = nullptr;
    HWND evitar = nullptr;
    DWORD proceso = 0;  // distinto de 0: cualquier ventana de ese proceso
    bool conEdit = false;
};

std::wstring Texto(HWND w) {
    const LRESULT n = SendMessageW(w, WM_GETTEXTLENGTH, 0, 0);
    std::vector<wchar_t> b(static_cast<std::size_t>(n) + 1, L'\0');
    SendMessageW(w, WM_GETTEXT, static_cast<WPARAM>(b.size()), reinterpret_cast<LPARAM>(b.data()));
    return std::wstring(b.data());
}

std::wstring Clase(HWND w) {
    wchar_t c[128] = {};
    GetClassNameW(w, c, 127);
    return c;
}

BOOL CALLBACK HijaEdit(HWND w, LPARAM l) {
    auto* r = reinterpret_cast<HWND*>(l);
    if (_wcsicmp(Clase(w).c_str(), L"Edit") == 0) {
        *r = w;
        return FALSE;
    }
    return TRUE;
}

BOOL CALLBACK HijaAceptar(HWND w, LPARAM l) {
    auto* r = reinterpret_cast<HWND*>(l);
    if (_wcsicmp(Clase(w).c_str(), L"Button") == 0 && Texto(w) == L"Aceptar") {
        *r = w;
        return FALSE;
    }
    return TRUE;
}

HWND Edit(HWND w) {
    HWND e = nullptr;
    EnumChildWindows(w, HijaEdit, reinterpret_cast<LPARAM>(&e));
    return e;
}

// Una ventana visible de primer nivel: con el título de los mensajes del juego o, tras el
// primero, cualquiera del mismo proceso (la principal lleva el jugador en el título).
BOOL CALLBACK Candidata(HWND w, LPARAM l) {
    auto* b = reinterpret_cast<Busqueda*>(l);
    if (w == b->evitar || !IsWindowVisible(w)) return TRUE;
    if (b->proceso) {
        DWORD pid = 0;
        GetWindowThreadProcessId(w, &pid);
        if (pid != b->proceso) return TRUE;
    } else if (Texto(w) != kTitulo) {
        return TRUE;
    }
    if (b->conEdit && !Edit(w)) return TRUE;
    b->encontrada = w;
    return FALSE;
}

HWND Esperar(DWORD hasta, bool conEdit, HWND evitar, DWORD proceso) {
    while (GetTickCount() < hasta) {
        Busqueda b;
        b.conEdit = conEdit;
        b.evitar = evitar;
        b.proceso = proceso;
        EnumWindows(Candidata, reinterpret_cast<LPARAM>(&b));
        if (b.encontrada) return b.encontrada;
        Sleep(200);
    }
    return nullptr;
}

std::string Utf8(const std::wstring& s) {
    if (s.empty()) return {};
    const int n =
        WideCharToMultiByte(CP_UTF8, 0, s.data(), static_cast<int>(s.size()), nullptr, 0, nullptr, nullptr);
    std::string r(static_cast<std::size_t>(n), '\0');
    WideCharToMultiByte(CP_UTF8, 0, s.data(), static_cast<int>(s.size()), r.data(), n, nullptr, nullptr);
    return r;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc != 3) {
        std::fputs("uso: sonda_bienvenida SEGUNDOS FICHERO\n", stderr);
        return 2;
    }
    const DWORD hasta = GetTickCount() + static_cast<DWORD>(_wtoi(argv[1])) * 1000;

    HWND caja = Esperar(hasta, true, nullptr, 0);
    if (!caja) {
        std::fputs("sonda: no apareció ningún cuadro de mensaje del juego\n", stderr);
        return 1;
    }
    const std::string texto = Utf8(Texto(Edit(caja)));
    FILE* f = _wfopen(argv[2], L"wb");
    if (!f) return 1;
    std::fwrite(texto.data(), 1, texto.size(), f);
    std::fclose(f);

    // Aceptar, como lo haría el jugador; luego se cierra la ventana principal.
    DWORD proceso = 0;
    GetWindowThreadProcessId(caja, &proceso);
    HWND aceptar = nullptr;
    EnumChildWindows(caja, HijaAceptar, reinterpret_cast<LPARAM>(&aceptar));
    if (aceptar)
        PostMessageW(aceptar, BM_CLICK, 0, 0);
    else
        PostMessageW(caja, WM_CLOSE, 0, 0);
    while (IsWindow(caja) && IsWindowVisible(caja) && GetTickCount() < hasta) Sleep(100);

    HWND principal = Esperar(hasta, false, caja, proceso);
    if (!principal) {
        std::fputs("sonda: la ventana principal no apareció tras el mensaje\n", stderr);
        return 1;
    }
    PostMessageW(principal, WM_CLOSE, 0, 0);
    return 0;
}

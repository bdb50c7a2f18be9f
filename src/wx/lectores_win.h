// Cómo llega un texto al lector de pantalla en Windows, sin wxWidgets: una cadena de vías
// que se elige al decir cada texto, porque el lector puede arrancar o cerrarse con el juego
// abierto. Todas se cargan al correr: en un Windows sin ningún lector el programa arranca.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace lectores {

// En el orden en que se prueban.
enum class Via { Jaws, Nvda, Uia, Msaa, Ninguna };

const wchar_t* NombreVia(Via via);

// UTF-8 a UTF-16; una secuencia rota se cambia por U+FFFD en vez de perder el texto.
std::wstring Ancho(const std::string& utf8);

class Cadena {
public:
    Cadena();
    ~Cadena();
    Cadena(const Cadena&) = delete;
    Cadena& operator=(const Cadena&) = delete;

    // La vía que se usaría ahora: JAWS si está corriendo, NVDA si su DLL está junto al
    // programa y responde, UI Automation si hay quien la escuche, y si no MSAA.
    Via Elegir();

    // 'interrumpir' corta lo que el lector esté diciendo; sin él, el texto va detrás (varios
    // textos de una misma tecla). Devuelve la vía usada.
    Via Decir(HWND foco, const std::wstring& texto, bool interrumpir);
    Via Decir(HWND foco, const std::string& utf8, bool interrumpir) {
        return Decir(foco, Ancho(utf8), interrumpir);
    }

    // Una vía concreta, sin mirar las anteriores (para probarlas una a una).
    bool DecirCon(Via via, HWND foco, const std::wstring& texto, bool interrumpir);

    // Cómo se pone el nombre accesible en la vía MSAA. Por omisión, el texto de la ventana.
    std::function<void(HWND, const std::wstring&)> PonerNombre;

private:
    bool Jaws(const std::wstring& texto, bool interrumpir);
    bool Nvda(const std::wstring& texto, bool interrumpir);
    bool Uia(HWND foco, const std::wstring& texto, bool interrumpir);
    bool Msaa(HWND foco, const std::wstring& texto, bool interrumpir);
    void SoltarJaws();
    bool UiaUtil() const;

    bool comIniciado_ = false;
    IDispatch* jaws_ = nullptr;
    DISPID decirJaws_ = 0;

    HMODULE nvda_ = nullptr;
    unsigned long(__stdcall* nvdaFunciona_)() = nullptr;
    unsigned long(__stdcall* nvdaCallar_)() = nullptr;
    unsigned long(__stdcall* nvdaDecir_)(const wchar_t*) = nullptr;

    HMODULE uia_ = nullptr;
    HRESULT(WINAPI* uiaProveedor_)(HWND, IUnknown**) = nullptr;
    HRESULT(WINAPI* uiaNotificar_)(IUnknown*, int, int, BSTR, BSTR) = nullptr;
    BOOL(WINAPI* uiaEscuchan_)() = nullptr;

    HWND focoMsaa_ = nullptr;
    std::wstring ultimoMsaa_;
};

}  // namespace lectores

// Las vías hacia el lector de pantalla en Windows. Nada se enlaza de antemano salvo lo que
// trae todo Windows (ole32, oleaut32, user32): JAWS por COM, NVDA por su DLL y UI Automation
// por GetProcAddress, para que falte lo que falte el juego arranque y siga.
#include "lectores_win.h"

#include <ole2.h>
#include <oleauto.h>

#include <vector>

namespace lectores {

namespace {

// Valores de NotificationKind y NotificationProcessing (uiautomationcoreapi.h); se copian
// porque no todas las cabeceras de MinGW los traen.
constexpr int kTipoOtro = 4;
constexpr int kImportanteTodo = 0;
constexpr int kImportanteUltimo = 1;

template <typename F>
F Funcion(HMODULE modulo, const char* nombre) {
    // Pasar por void* evita el aviso de conversión entre tipos de función.
    return reinterpret_cast<F>(reinterpret_cast<void*>(GetProcAddress(modulo, nombre)));
}

// La carpeta del ejecutable, con la barra final. Solo de ahí se carga la DLL de NVDA: buscarla
// en la ruta del sistema abriría la puerta a cargar una ajena.
std::wstring CarpetaPrograma() {
    std::vector<wchar_t> ruta(MAX_PATH);
    for (;;) {
        const DWORD n = GetModuleFileNameW(nullptr, ruta.data(), static_cast<DWORD>(ruta.size()));
        if (n == 0) return std::wstring();
        if (n < ruta.size()) break;
        ruta.resize(ruta.size() * 2);
    }
    std::wstring r(ruta.data());
    const auto barra = r.find_last_of(L"\\/");
    return barra == std::wstring::npos ? std::wstring() : r.substr(0, barra + 1);
}

// Un BSTR que se libera solo.
struct Bstr {
    explicit Bstr(const std::wstring& s) : b(SysAllocStringLen(s.data(), static_cast<UINT>(s.size()))) {}
    ~Bstr() { SysFreeString(b); }
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    BSTR b;
};

}  // namespace

const wchar_t* NombreVia(Via via) {
    switch (via) {
        case Via::Jaws: return L"JAWS";
        case Via::Nvda: return L"NVDA";
        case Via::Uia: return L"UI Automation";
        case Via::Msaa: return L"MSAA";
        case Via::Ninguna: break;
    }
    return L"ninguna";
}

std::wstring Ancho(const std::string& utf8) {
    if (utf8.empty()) return std::wstring();
    const int largo = static_cast<int>(utf8.size());
    const int n = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), largo, nullptr, 0);
    if (n <= 0) return std::wstring();
    std::wstring r(static_cast<std::size_t>(n), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), largo, &r[0], n);
    return r;
}

Cadena::Cadena() {
    // JAWS es un objeto COM: hace falta COM en este hilo. Si ya estaba (wxWidgets inicia OLE),
    // esta llamada solo suma una referencia que se devuelve al final.
    const HRESULT hr = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    comIniciado_ = SUCCEEDED(hr);

    const std::wstring carpeta = CarpetaPrograma();
    if (!carpeta.empty()) {
        const wchar_t* dll =
            sizeof(void*) == 8 ? L"nvdaControllerClient64.dll" : L"nvdaControllerClient32.dll";
        nvda_ = LoadLibraryExW((carpeta + dll).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    }
    if (nvda_) {
        nvdaFunciona_ = Funcion<decltype(nvdaFunciona_)>(nvda_, "nvdaController_testIfRunning");
        nvdaCallar_ = Funcion<decltype(nvdaCallar_)>(nvda_, "nvdaController_cancelSpeech");
        nvdaDecir_ = Funcion<decltype(nvdaDecir_)>(nvda_, "nvdaController_speakText");
    }

    // UiaRaiseNotificationEvent llegó con Windows 10 1709: en uno anterior falta y se sigue.
    // Con la ruta entera del sistema, para no tomar una DLL del mismo nombre de otra carpeta.
    wchar_t sistema[MAX_PATH];
    const UINT n = GetSystemDirectoryW(sistema, MAX_PATH);
    if (n > 0 && n < MAX_PATH)
        uia_ = LoadLibraryW((std::wstring(sistema) + L"\\uiautomationcore.dll").c_str());
    if (uia_) {
        uiaProveedor_ = Funcion<decltype(uiaProveedor_)>(uia_, "UiaHostProviderFromHwnd");
        uiaNotificar_ = Funcion<decltype(uiaNotificar_)>(uia_, "UiaRaiseNotificationEvent");
        uiaEscuchan_ = Funcion<decltype(uiaEscuchan_)>(uia_, "UiaClientsAreListening");
    }
}

Cadena::~Cadena() {
    SoltarJaws();
    if (nvda_) FreeLibrary(nvda_);
    if (uia_) FreeLibrary(uia_);
    if (comIniciado_) CoUninitialize();
}

Via Cadena::Elegir() {
    if (FindWindowW(L"JFWUI2", nullptr)) return Via::Jaws;
    if (nvdaFunciona_ && nvdaDecir_ && nvdaFunciona_() == 0) return Via::Nvda;
    if (UiaUtil()) return Via::Uia;
    return Via::Msaa;
}

Via Cadena::Decir(HWND foco, const std::wstring& texto, bool interrumpir) {
    if (!foco) foco = GetFocus();
    // Si la vía elegida falla (p. ej. JAWS se acaba de cerrar), se prueban las siguientes.
    for (int v = static_cast<int>(Elegir()); v < static_cast<int>(Via::Ninguna); ++v) {
        if (DecirCon(static_cast<Via>(v), foco, texto, interrumpir)) return static_cast<Via>(v);
    }
    return Via::Ninguna;
}

bool Cadena::DecirCon(Via via, HWND foco, const std::wstring& texto, bool interrumpir) {
    switch (via) {
        case Via::Jaws: return Jaws(texto, interrumpir);
        case Via::Nvda: return Nvda(texto, interrumpir);
        case Via::Uia: return Uia(foco, texto, interrumpir);
        case Via::Msaa: return Msaa(foco, texto, interrumpir);
        case Via::Ninguna: break;
    }
    return false;
}

bool Cadena::Jaws(const std::wstring& texto, bool interrumpir) {
    if (!FindWindowW(L"JFWUI2", nullptr)) {
        // JAWS se cerró: el objeto viejo ya no sirve.
        SoltarJaws();
        return false;
    }
    if (!jaws_) {
        CLSID clsid;
        if (FAILED(CLSIDFromProgID(L"FreedomSci.JawsApi", &clsid))) return false;
        if (FAILED(CoCreateInstance(clsid, nullptr, CLSCTX_ALL, IID_IDispatch,
                                    reinterpret_cast<void**>(&jaws_)))) {
            jaws_ = nullptr;
            return false;
        }
        LPOLESTR nombre = const_cast<LPOLESTR>(L"SayString");
        if (FAILED(jaws_->GetIDsOfNames(IID_NULL, &nombre, 1, LOCALE_USER_DEFAULT, &decirJaws_))) {
            SoltarJaws();
            return false;
        }
    }
    // Invoke recibe los argumentos al revés: el último (interrumpir) va primero.
    Bstr t(texto);
    VARIANTARG args[2];
    VariantInit(&args[0]);
    VariantInit(&args[1]);
    args[0].vt = VT_BOOL;
    args[0].boolVal = interrumpir ? VARIANT_TRUE : VARIANT_FALSE;
    args[1].vt = VT_BSTR;
    args[1].bstrVal = t.b;
    DISPPARAMS parametros = {args, nullptr, 2, 0};
    VARIANT resultado;
    VariantInit(&resultado);
    const HRESULT hr = jaws_->Invoke(decirJaws_, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parametros,
                                     &resultado, nullptr, nullptr);
    VariantClear(&resultado);
    if (FAILED(hr)) {
        SoltarJaws();
        return false;
    }
    return true;
}

// Sin nadie escuchando UI Automation, una notificación se perdería: MSAA llega a más.
bool Cadena::UiaUtil() const { return uiaProveedor_ && uiaNotificar_ && (!uiaEscuchan_ || uiaEscuchan_()); }

void Cadena::SoltarJaws() {
    if (jaws_) jaws_->Release();
    jaws_ = nullptr;
}

bool Cadena::Nvda(const std::wstring& texto, bool interrumpir) {
    if (!nvdaFunciona_ || !nvdaDecir_ || nvdaFunciona_() != 0) return false;
    if (interrumpir && nvdaCallar_) nvdaCallar_();
    return nvdaDecir_(texto.c_str()) == 0;
}

bool Cadena::Uia(HWND foco, const std::wstring& texto, bool interrumpir) {
    if (!foco || !UiaUtil()) return false;
    IUnknown* proveedor = nullptr;
    if (FAILED(uiaProveedor_(foco, &proveedor)) || !proveedor) return false;
    Bstr t(texto);
    Bstr actividad(L"Sabelot");
    // "El más reciente" deja que el lector descarte lo anterior; "todo" lo pone en cola.
    const HRESULT hr = uiaNotificar_(proveedor, kTipoOtro, interrumpir ? kImportanteUltimo : kImportanteTodo,
                                     t.b, actividad.b);
    proveedor->Release();
    return SUCCEEDED(hr);
}

bool Cadena::Msaa(HWND foco, const std::wstring& texto, bool interrumpir) {
    if (!foco) return false;
    // Lo anterior era de otro control: ni se junta ni cuenta como repetido.
    if (foco != focoMsaa_) ultimoMsaa_.clear();
    focoMsaa_ = foco;
    // El lector lee el nombre cuando le llega el evento, no cuando se pone: dos textos
    // seguidos de la misma tecla se juntan, o solo se oiría el último.
    std::wstring nuevo = interrumpir || ultimoMsaa_.empty() ? texto : ultimoMsaa_ + L" " + texto;
    // Un nombre igual al que ya tiene no es un cambio y no se diría: se alterna un blanco.
    if (nuevo == ultimoMsaa_) nuevo += L' ';
    ultimoMsaa_ = nuevo;
    if (PonerNombre)
        PonerNombre(foco, nuevo);
    else
        SetWindowTextW(foco, nuevo.c_str());
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, foco, OBJID_CLIENT, CHILDID_SELF);
    return true;
}

}  // namespace lectores

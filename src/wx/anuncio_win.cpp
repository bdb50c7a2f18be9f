// Anuncios en Windows: notificaciones de UI Automation (Windows 10 1709 y posteriores), que
// dicen Narrador, NVDA y JAWS. Las funciones se buscan al correr, así que en un Windows
// anterior el programa arranca igual, solo que sin anuncios.
#include <windows.h>

#include <oleauto.h>

#include "anuncio.h"

namespace {

using HostProviderFromHwnd = HRESULT(WINAPI*)(HWND, IUnknown**);
using RaiseNotificationEvent = HRESULT(WINAPI*)(IUnknown*, int, int, BSTR, BSTR);

constexpr int kNotificationKindOther = 4;
constexpr int kNotificationProcessingImportantAll = 0;

class AnunciadorWin : public Anunciador {
public:
    AnunciadorWin() {
        if (HMODULE uia = LoadLibraryW(L"UIAutomationCore.dll")) {
            proveedor_ = reinterpret_cast<HostProviderFromHwnd>(
                reinterpret_cast<void*>(GetProcAddress(uia, "UiaHostProviderFromHwnd")));
            notificar_ = reinterpret_cast<RaiseNotificationEvent>(
                reinterpret_cast<void*>(GetProcAddress(uia, "UiaRaiseNotificationEvent")));
        }
    }

    void Anunciar(wxWindow* foco, const wxString& texto) override {
        wxWindow* w = wxWindow::FindFocus();
        if (!w) w = foco;
        if (!w || !proveedor_ || !notificar_) return;
        IUnknown* proveedor = nullptr;
        if (FAILED(proveedor_(static_cast<HWND>(w->GetHandle()), &proveedor)) || !proveedor) return;
        BSTR t = SysAllocString(texto.wc_str());
        BSTR id = SysAllocString(L"sabelot");
        notificar_(proveedor, kNotificationKindOther, kNotificationProcessingImportantAll, t, id);
        SysFreeString(t);
        SysFreeString(id);
        proveedor->Release();
    }

    void Nombrar(wxWindow* control, const wxString& nombre, const wxString&) override {
        // Un control sin texto propio se nombra por el texto de su ventana; las de arriba ya
        // se nombran por su título.
        if (control && !nombre.empty() && !control->IsTopLevel()) control->SetLabel(nombre);
    }

private:
    HostProviderFromHwnd proveedor_ = nullptr;
    RaiseNotificationEvent notificar_ = nullptr;
};

}  // namespace

std::unique_ptr<Anunciador> CrearAnunciador() { return std::make_unique<AnunciadorWin>(); }

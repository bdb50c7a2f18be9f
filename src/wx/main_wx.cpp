// Punto de entrada del programa con ventanas.
#include <wx/wx.h>

#include <memory>

#include "programa_wx.h"

class Aplicacion : public wxApp {
public:
    bool OnInit() override {
        // Todo lo que lee y escribe el juego está junto al ejecutable.
        programa_ = std::make_unique<ProgramaWx>(CarpetaDelEjecutable());
        programa_->Arrancar();
        SetTopWindow(programa_->ventana());
        return true;
    }

    int OnExit() override {
        programa_.reset();
        return wxApp::OnExit();
    }

private:
    std::unique_ptr<ProgramaWx> programa_;
};

wxIMPLEMENT_APP(Aplicacion);

#if defined(__SANITIZE_ADDRESS__)
// Lo que fontconfig se guarda hasta el final del proceso no es una fuga nuestra.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig.so\n"; }
#endif

// Pruebas con ventanas: wx se inicia una vez y las pruebas atienden sus eventos.
#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/init.h>

#include <cstdlib>

namespace {

class AplicacionPruebas : public wxApp {
public:
    bool OnInit() override { return true; }
};

}  // namespace

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    // Sin tarjeta de sonido el dado dura lo mismo: el controlador "dummy" de SDL consume
    // el sonido a su ritmo.
    setenv("SDL_AUDIODRIVER", "dummy", 0);
    wxApp::SetInstance(new AplicacionPruebas);
    if (!wxEntryStart(argc, argv) || !wxTheApp->CallOnInit()) return 2;
    // Las pruebas cierran la ventana principal sin que haya bucle principal que terminar.
    wxTheApp->SetExitOnFrameDelete(false);
    // Una aserción de wx es un fallo de la prueba, no un cuadro que espera a alguien.
    wxSetAssertHandler([](const wxString& fichero, int linea, const wxString& funcion, const wxString& cond,
                          const wxString& msj) {
        ADD_FAILURE() << "Aserción de wx en " << fichero << ":" << linea << " (" << funcion << "): " << cond
                      << " " << msj;
    });
    int resultado = 0;
    {
        wxEventLoop bucle;
        wxEventLoopActivator activo(&bucle);
        resultado = RUN_ALL_TESTS();
    }
    wxTheApp->OnExit();
    wxEntryCleanup();
    return resultado;
}

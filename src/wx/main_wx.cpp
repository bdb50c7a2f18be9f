// Punto de entrada del programa con ventanas.
#include <wx/wx.h>

class Aplicacion : public wxApp {
public:
    bool OnInit() override { return false; }
};

wxIMPLEMENT_APP(Aplicacion);

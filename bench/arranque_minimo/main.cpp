// Lo mínimo con wxWidgets: un marco con un cuadro de texto de varias líneas. Sirve de
// vara de medir para el arranque del juego (tools/medir_arranque.sh).
#include <wx/wx.h>

class Minima : public wxApp {
public:
    bool OnInit() override {
        auto* marco = new wxFrame(nullptr, wxID_ANY, "Arranque minimo");
        new wxTextCtrl(marco, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxTE_MULTILINE);
        marco->Show();
        return true;
    }
};

wxIMPLEMENT_APP(Minima);

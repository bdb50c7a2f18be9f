// Vara de medir de la latencia tecla → lector: un marco con un solo cuadro de texto que,
// a cada tecla, cambia su texto y lo anuncia como el juego en GTK, cambiando la descripción
// accesible del control con el foco (con el blanco alterno para que un texto igual cuente).
#include <gtk/gtk.h>
#include <wx/wx.h>

#include <string>

class Eco : public wxApp {
public:
    bool OnInit() override {
        auto* marco = new wxFrame(nullptr, wxID_ANY, "Eco minimo");
        texto_ = new wxTextCtrl(marco, wxID_ANY, "");
        marco->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent&) { Tecla(); });
        marco->Show();
        texto_->SetFocus();
        return true;
    }

private:
    wxTextCtrl* texto_ = nullptr;
    long pulsadas_ = 0;

    void Tecla() {
        const std::string t = "Tecla " + std::to_string(++pulsadas_);
        texto_->ChangeValue(wxString::FromUTF8(t));
        AtkObject* acc = gtk_widget_get_accessible(static_cast<GtkWidget*>(texto_->GetHandle()));
        if (!acc) return;
        const gchar* actual = atk_object_get_description(acc);
        std::string nuevo = t;
        if (actual && nuevo == actual) nuevo += ' ';
        if (!acc->description) atk_object_set_description(acc, "");
        atk_object_set_description(acc, nuevo.c_str());
    }
};

wxIMPLEMENT_APP(Eco);

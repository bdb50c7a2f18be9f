#include "teclas.h"

#include <wx/defs.h>
#include <wx/event.h>

namespace {

struct Par {
    int wx;
    int vk;
};

// Las que no siguen una regla: el resto se calcula abajo.
// clang-format off
constexpr Par kTabla[] = {
    {WXK_BACK, 8},           {WXK_TAB, 9},             {WXK_RETURN, 13},
    {WXK_NUMPAD_ENTER, 13},  {WXK_SHIFT, 16},          {WXK_CONTROL, 17},
    {WXK_RAW_CONTROL, 17},   {WXK_ALT, 18},            {WXK_PAUSE, 19},
    {WXK_CAPITAL, 20},       {WXK_ESCAPE, 27},         {WXK_SPACE, 32},
    {WXK_NUMPAD_SPACE, 32},  {WXK_PAGEUP, 33},         {WXK_NUMPAD_PAGEUP, 33},
    {WXK_PAGEDOWN, 34},      {WXK_NUMPAD_PAGEDOWN, 34}, {WXK_END, 35},
    {WXK_NUMPAD_END, 35},    {WXK_HOME, 36},           {WXK_NUMPAD_HOME, 36},
    {WXK_LEFT, 37},          {WXK_NUMPAD_LEFT, 37},    {WXK_UP, 38},
    {WXK_NUMPAD_UP, 38},     {WXK_RIGHT, 39},          {WXK_NUMPAD_RIGHT, 39},
    {WXK_DOWN, 40},          {WXK_NUMPAD_DOWN, 40},    {WXK_SELECT, 41},
    {WXK_PRINT, 42},         {WXK_EXECUTE, 43},        {WXK_SNAPSHOT, 44},
    {WXK_INSERT, 45},        {WXK_NUMPAD_INSERT, 45},  {WXK_DELETE, 46},
    {WXK_NUMPAD_DELETE, 46}, {WXK_HELP, 47},           {WXK_WINDOWS_LEFT, 91},
    {WXK_WINDOWS_RIGHT, 92}, {WXK_WINDOWS_MENU, 93},   {WXK_NUMPAD_BEGIN, 12},
    {WXK_CLEAR, 12},         {WXK_MULTIPLY, 106},      {WXK_NUMPAD_MULTIPLY, 106},
    {WXK_ADD, 107},          {WXK_NUMPAD_ADD, 107},    {WXK_SEPARATOR, 108},
    {WXK_NUMPAD_SEPARATOR, 108}, {WXK_SUBTRACT, 109},  {WXK_NUMPAD_SUBTRACT, 109},
    {WXK_DECIMAL, 110},      {WXK_NUMPAD_DECIMAL, 110}, {WXK_DIVIDE, 111},
    {WXK_NUMPAD_DIVIDE, 111}, {WXK_NUMLOCK, 144},      {WXK_SCROLL, 145},
    // Signos de la fila principal, con los códigos OEM de un teclado español.
    {'`', 186}, {'+', 187}, {',', 188}, {'-', 189}, {'.', 190}, {0xE7, 191}, {0xC7, 191},
    {0xF1, 192}, {0xD1, 192}, {'\'', 219}, {0xBA, 220}, {0xA1, 221}, {0xB4, 222}, {'<', 226},
};
// clang-format on

}  // namespace

int CodigoTecla(int c) {
    if (c >= 'a' && c <= 'z') return c - 'a' + 'A';
    if ((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')) return c;
    // El teclado numérico tiene sus propios códigos: no son los dígitos de la fila principal.
    if (c >= WXK_NUMPAD0 && c <= WXK_NUMPAD9) return 96 + (c - WXK_NUMPAD0);
    if (c >= WXK_F1 && c <= WXK_F24) return 112 + (c - WXK_F1);
    if (c >= WXK_NUMPAD_F1 && c <= WXK_NUMPAD_F4) return 112 + (c - WXK_NUMPAD_F1);
    for (const Par& p : kTabla)
        if (p.wx == c) return p.vk;
    return 0;
}

int Modificadores(bool mayusculas, bool control, bool alt) {
    return (mayusculas ? 1 : 0) | (control ? 2 : 0) | (alt ? 4 : 0);
}

int CodigoTecla(const wxKeyEvent& evento) {
    int c = evento.GetKeyCode();
    // Una tecla sin código de wx (letra de otro alfabeto) trae al menos su carácter.
    if (c == WXK_NONE) c = static_cast<int>(evento.GetUnicodeKey());
    return CodigoTecla(c);
}

int Modificadores(const wxKeyEvent& evento) {
    return Modificadores(evento.ShiftDown(), evento.RawControlDown() || evento.ControlDown(),
                         evento.AltDown());
}

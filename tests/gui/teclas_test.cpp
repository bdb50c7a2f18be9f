// Las teclas de wx llegan a la lógica con los códigos de tecla virtual de Windows.
#include "wx/teclas.h"

#include <gtest/gtest.h>
#include <wx/defs.h>

namespace {

struct Caso {
    int wx;
    int vk;
};

TEST(Teclas, CodigosVirtuales) {
    // clang-format off
    const Caso casos[] = {
        {'a', 65},          {'A', 65},          {'d', 68},          {'Z', 90},
        {'1', 49},          {'6', 54},          {'9', 57},          {'0', 48},
        {WXK_NUMPAD1, 97},  {WXK_NUMPAD0, 96},  {WXK_NUMPAD9, 105}, {WXK_F1, 112},
        {WXK_F2, 113},      {WXK_F4, 115},      {WXK_F12, 123},     {WXK_LEFT, 37},
        {WXK_UP, 38},       {WXK_RIGHT, 39},    {WXK_DOWN, 40},     {WXK_NUMPAD_UP, 38},
        {WXK_RETURN, 13},   {WXK_NUMPAD_ENTER, 13}, {WXK_SPACE, 32}, {WXK_DELETE, 46},
        {WXK_HOME, 36},     {WXK_END, 35},      {WXK_ESCAPE, 27},   {WXK_TAB, 9},
        {WXK_SHIFT, 16},    {WXK_CONTROL, 17},  {WXK_ALT, 18},      {WXK_BACK, 8},
        {WXK_PAGEUP, 33},   {WXK_INSERT, 45},   {',', 188},         {0xF1, 192},
        {WXK_NONE, 0},
    };
    // clang-format on
    for (const Caso& c : casos) EXPECT_EQ(CodigoTecla(c.wx), c.vk) << "tecla wx " << c.wx;
}

TEST(Teclas, Modificadores) {
    EXPECT_EQ(Modificadores(false, false, false), 0);
    EXPECT_EQ(Modificadores(true, false, false), 1);
    EXPECT_EQ(Modificadores(false, true, false), 2);
    EXPECT_EQ(Modificadores(false, false, true), 4);
    EXPECT_EQ(Modificadores(true, true, true), 7);
}

}  // namespace

#include "ui/doors/contraste.h"

#include <QGuiApplication>
#include <QPalette>
#include <algorithm>

#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

static bool loDiceElSistema()
{
    HIGHCONTRASTW estado{};
    estado.cbSize = sizeof(estado);
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, estado.cbSize, &estado, 0) != 0 &&
           (estado.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

#else

static bool loDiceElSistema()
{
    return false; // its colours alone do
}

#endif

bool altoContraste()
{
    // As the start found it: who asks later, under the program's own palette, gets the same answer.
    static const bool pedido = []
    {
        const QPalette paleta = QGuiApplication::palette();
        const auto [oscuro, claro] =
            std::minmax({paleta.color(QPalette::Window).lightness(), paleta.color(QPalette::WindowText).lightness()});
        return loDiceElSistema() || (oscuro == 0 && claro == 255);
    }();
    return pedido;
}

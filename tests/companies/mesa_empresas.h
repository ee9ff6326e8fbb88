#pragma once

#include "apoyo/mesa.h"

/// The main window with the screens of the companies ready to open.
class MesaEmpresas : public Mesa
{
public:
    MesaEmpresas();
    static Pantalla* abrir(const char* nombre = "Empresas") { return Mesa::abrir(nombre); }
};

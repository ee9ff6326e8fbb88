#pragma once

#include "ui/shell/pantalla.h"

/// A screen that the user leaves at once.
struct PantallaCerrada : Pantalla
{
    using Pantalla::Pantalla;
    void cargar() override { cerrar(); }
};

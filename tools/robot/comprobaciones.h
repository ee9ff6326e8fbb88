#pragma once

#include "guion.h"

/// The focus is in this control. Throws Falla.
void exigirFoco(const QString& control);
/// The boxes that came of a line are those it names, in their order, or questions that it answers. Throws Falla.
void exigirCajas(const std::vector<DatosDeCaja>& cajas, const std::vector<guion::CajaEsperada>& esperadas);

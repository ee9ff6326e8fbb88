#pragma once

#include "guion.h"
#include "jugada.h"

/// The verbs that look and touch nothing. Each throws Falla with what was expected and what there is.
namespace comprobaciones
{
using guion::Argumentos;
void texto(Jugada& jugada, const Argumentos& a);
void activo(Jugada& jugada, const Argumentos& a);
void visible(Jugada& jugada, const Argumentos& a);
void marca(Jugada& jugada, const Argumentos& a);
void foco(Jugada& jugada, const Argumentos& a);
void lista(Jugada& jugada, const Argumentos& a);
void celda(Jugada& jugada, const Argumentos& a);
void fila(Jugada& jugada, const Argumentos& a);
void filas(Jugada& jugada, const Argumentos& a);
void amarillas(Jugada& jugada, const Argumentos& a);
void mensaje(Jugada& jugada, const Argumentos& a);
void caja(Jugada& jugada, const Argumentos& a);
void titulo(Jugada& jugada, const Argumentos& a);
void estado(Jugada& jugada, const Argumentos& a);
void ventana(Jugada& jugada, const Argumentos& a);
void archivo(Jugada& jugada, const Argumentos& a);
void sinArchivo(Jugada& jugada, const Argumentos& a);
void base(Jugada& jugada, const Argumentos& a);

/// The focus is in this control.
void exigirFoco(const QString& control);
/// The boxes that came of a line are those it names, in their order, or questions that it answers.
void exigirCajas(const std::vector<DatosDeCaja>& cajas, const std::vector<guion::CajaEsperada>& esperadas);
} // namespace comprobaciones

#pragma once

#include "acciones.h"

/// The lines that look and touch nothing. Each throws Falla with what was expected and what there is.
namespace comprobaciones
{
void comprobar(const guion::Espera& paso);
void comprobar(const guion::EsperaCelda& paso);
void comprobar(const guion::EsperaFilas& paso);
void comprobar(const guion::EsperaMensaje& paso, const Contexto& contexto);
void comprobar(const guion::EsperaTitulo& paso);
void comprobar(const guion::EsperaEstado& paso);
void comprobar(const guion::EsperaFoco& paso);
void comprobar(const guion::EsperaVentana& paso);
void comprobar(const guion::EsperaArchivo& paso, const Contexto& contexto);
void comprobar(const guion::EsperaSinArchivo& paso, const Contexto& contexto);
void comprobar(const guion::EsperaBase& paso, const Contexto& contexto);
} // namespace comprobaciones

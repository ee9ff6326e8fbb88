#pragma once

#include "guion.h"
#include "jugada.h"

/// The verbs that act. Each throws Falla when a person could not do it.
namespace acciones
{
using guion::Argumentos;
void menu(Jugada& jugada, const Argumentos& a);
void salir(Jugada& jugada, const Argumentos& a);
void pulsar(Jugada& jugada, const Argumentos& a);
void escribir(Jugada& jugada, const Argumentos& a);
void pegar(Jugada& jugada, const Argumentos& a);
void tecla(Jugada& jugada, const Argumentos& a);
void teclear(Jugada& jugada, const Argumentos& a);
void elegir(Jugada& jugada, const Argumentos& a);
void pagina(Jugada& jugada, const Argumentos& a);
void fila(Jugada& jugada, const Argumentos& a);
void doble(Jugada& jugada, const Argumentos& a);
void celda(Jugada& jugada, const Argumentos& a);
void ventana(Jugada& jugada, const Argumentos& a);
void cerrar(Jugada& jugada, const Argumentos& a);
void informe(Jugada& jugada, const Argumentos& a);
void responder(Jugada& jugada, const Argumentos& a);
void archivo(Jugada& jugada, const Argumentos& a);
void fecha(Jugada& jugada, const Argumentos& a);
void sql(Jugada& jugada, const Argumentos& a);
void captura(Jugada& jugada, const Argumentos& a);
void retrato(Jugada& jugada, const Argumentos& a);
} // namespace acciones

/// Chooses an entry of a list that is already open, by the keyboard: the mouse would choose whatever lies under it if
/// it let go too late.
void elegirAbierta(QComboBox* lista, int entrada);
/// The entry with this text; throws Falla with those near it.
[[nodiscard]] int entradaEn(const QComboBox& lista, const QString& texto);
/// Types over what the field with the focus holds; an empty text deletes it.
void reemplazarTexto(const QString& texto);

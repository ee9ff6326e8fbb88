#pragma once

class Jugada;
class QComboBox;
class QString;

namespace guion
{
/// A click, or two, on row `fila` of a grid, scrolled into view; 0 is the header. Throws Falla when there is no such
/// row or a person could not click it.
void pulsarFila(const Jugada& jugada, const QString& nombre, int fila, bool dosVeces);
} // namespace guion

/// Chooses an entry of a list that is already open, by the keyboard: the mouse would choose whatever lies under it if
/// it let go too late. Throws Falla when there is no such entry.
void elegirAbierta(QComboBox* lista, const QString& texto);
/// Types over what the field with the focus holds; an empty text deletes it.
void reemplazarTexto(const QString& texto);

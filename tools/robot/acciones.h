#pragma once

class QComboBox;
class QString;

/// Chooses an entry of a list that is already open, by the keyboard: the mouse would choose whatever lies under it if
/// it let go too late. Throws Falla when there is no such entry.
void elegirAbierta(QComboBox* lista, const QString& texto);
/// Types over what the field with the focus holds; an empty text deletes it.
void reemplazarTexto(const QString& texto);

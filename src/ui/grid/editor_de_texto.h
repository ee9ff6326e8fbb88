#pragma once

#include "ui/grid/grilla_celdas.h"

#include <QLineEdit>

class QKeyEvent;

/// Whether a key types a sign, and is not a command with Ctrl or Alt.
[[nodiscard]] bool escribe(const QKeyEvent& evento);

/// The editor of a cell that holds a text, a number or a date. A key that its column does not admit is told and changes
/// nothing, not even a selected text; in amounts the dot key types a comma.
class EditorDeTexto : public QLineEdit
{
    Q_OBJECT
public:
    EditorDeTexto(ColumnaDeGrilla columna, QWidget* padre);

protected:
    void keyPressEvent(QKeyEvent* evento) override;

private:
    ColumnaDeGrilla m_columna;
};

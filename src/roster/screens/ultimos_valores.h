#pragma once

#include <QHash>
#include <QString>
#include <initializer_list>

class QWidget;

/// What fields held at one moment, to be put into the same field later by a key: lines of text, masked fields, lists
/// and ticks, which live longer than this.
class UltimosValores
{
public:
    void recordar(std::initializer_list<const QWidget*> cuales);
    /// Puts the value into the field as if the user had entered it there, with all events of the field. False when
    /// there is none.
    [[nodiscard]] bool repetir(QWidget* campo) const;

private:
    QHash<const QWidget*, QString> m_valores; ///< as campos::contenido gives them; empty for none
};

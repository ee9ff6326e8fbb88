#pragma once

#include <QPoint>
#include <QString>
#include <functional>

class QWidget;

/// The mouse and the keyboard of a person: events go to the windows, so that what lies on top, what is disabled and
/// what a dialog blocks are as real as the leaving checks.
namespace entrada
{
/// Click in the middle of a control, or at a point of it. Throws Falla when something else lies there.
void clic(QWidget* control);
void clic(QWidget* control, QPoint lugar);
/// Two clicks; the second one only if after the first `sigue` says so: a box may have come in between.
void dobleClic(QWidget* control, QPoint lugar, const std::function<bool()>& sigue);
/// One key, to whatever holds the focus.
void tecla(Qt::Key tecla, Qt::KeyboardModifiers modificadores = Qt::NoModifier);
/// Key by key, any character.
void escribir(const QString& texto);
[[nodiscard]] bool tieneFoco(const QWidget* control);
} // namespace entrada

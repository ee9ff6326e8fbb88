#include "teclas.h"

#include <QHash>
#include <QStringList>

namespace
{
const QHash<QString, Qt::Key>& teclas()
{
    static const QHash<QString, Qt::Key> tabla = {
        {"enter", Qt::Key_Return},
        {"intro", Qt::Key_Return},
        {"return", Qt::Key_Return},
        {"tab", Qt::Key_Tab},
        {"backtab", Qt::Key_Backtab},
        {"up", Qt::Key_Up},
        {"down", Qt::Key_Down},
        {"left", Qt::Key_Left},
        {"right", Qt::Key_Right},
        {"home", Qt::Key_Home},
        {"end", Qt::Key_End},
        {"pageup", Qt::Key_PageUp},
        {"pagedown", Qt::Key_PageDown},
        {"insert", Qt::Key_Insert},
        {"delete", Qt::Key_Delete},
        {"backspace", Qt::Key_Backspace},
        {"escape", Qt::Key_Escape},
        {"esc", Qt::Key_Escape},
        {"space", Qt::Key_Space},
        {"f1", Qt::Key_F1},
        {"f2", Qt::Key_F2},
        {"f3", Qt::Key_F3},
        {"f4", Qt::Key_F4},
        {"f5", Qt::Key_F5},
        {"f6", Qt::Key_F6},
        {"f7", Qt::Key_F7},
        {"f8", Qt::Key_F8},
        {"f9", Qt::Key_F9},
        {"f10", Qt::Key_F10},
        {"f11", Qt::Key_F11},
        {"f12", Qt::Key_F12},
    };
    return tabla;
}

const QHash<QString, Qt::KeyboardModifier>& modificadores()
{
    static const QHash<QString, Qt::KeyboardModifier> tabla = {
        {"ctrl", Qt::ControlModifier}, {"alt", Qt::AltModifier}, {"shift", Qt::ShiftModifier}};
    return tabla;
}
} // namespace

std::optional<QKeyCombination> teclaDeNombre(const QString& nombre)
{
    QStringList partes = nombre.toLower().split(u'+');
    const QString ultima = partes.takeLast();
    Qt::KeyboardModifiers con;
    for (const QString& parte : partes)
    {
        const auto modificador = modificadores().constFind(parte);
        if (modificador == modificadores().constEnd())
        {
            return std::nullopt;
        }
        con |= *modificador;
    }
    if (const auto tecla = teclas().constFind(ultima); tecla != teclas().constEnd())
    {
        const bool atras = *tecla == Qt::Key_Tab && con.testFlag(Qt::ShiftModifier);
        return QKeyCombination(con, atras ? Qt::Key_Backtab : *tecla);
    }
    // A single letter, digit or sign: its key code is that of the capital.
    if (ultima.size() == 1 && ultima.at(0).unicode() > 0x20 && ultima.at(0).unicode() < 0x7f)
    {
        return QKeyCombination(con, static_cast<Qt::Key>(ultima.at(0).toUpper().unicode()));
    }
    return std::nullopt;
}

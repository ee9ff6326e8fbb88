#include "teclas.h"

#include <QHash>
#include <QKeySequence>

/// The names that the toolkit writes in another way.
std::optional<Teclas> leerTeclas(const QString& nombre)
{
    static const QHash<QString, QString> otros = {
        {"enter", "Return"}, {"intro", "Return"}, {"pageup", "PgUp"}, {"pagedown", "PgDown"},
        {"insert", "Ins"},   {"delete", "Del"},   {"escape", "Esc"},
    };
    const qsizetype por = nombre.lastIndexOf(u'*');
    const int veces = por > 0 ? nombre.sliced(por + 1).toInt() : 1;
    QStringList partes = nombre.first(por > 0 ? por : nombre.size()).toLower().split(u'+');
    partes.last() = otros.value(partes.last(), partes.last());
    const QKeySequence leida(partes.join(u'+'), QKeySequence::PortableText);
    if (veces < 1 || leida.count() != 1 || leida[0].key() == Qt::Key_unknown)
    {
        return std::nullopt;
    }
    const bool atras = leida[0].key() == Qt::Key_Tab && leida[0].keyboardModifiers().testFlag(Qt::ShiftModifier);
    return Teclas{atras ? QKeyCombination(leida[0].keyboardModifiers(), Qt::Key_Backtab) : leida[0], veces};
}

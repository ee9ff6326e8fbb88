#include "reposo.h"

#include <QApplication>
#include <QTimer>

Reposo::Reposo(const QObject* propio)
    : m_propio(propio)
{
    qApp->installEventFilter(this);
}

bool Reposo::alcanzado()
{
    if (m_eventos != m_vistos)
    {
        m_vistos = m_eventos;
        m_quietos = 0;
        return false;
    }
    return ++m_quietos >= 2;
}

bool Reposo::eventFilter(QObject* objeto, QEvent* evento)
{
    // On Windows a timer of no time is an event to the dispatcher before it is one to its owner: the robot's own one,
    // too.
    if (objeto == m_propio || evento->type() == QEvent::ZeroTimerEvent)
    {
        return false;
    }
    const auto* reloj = evento->type() == QEvent::Timer ? qobject_cast<const QTimer*>(objeto) : nullptr;
    if (evento->type() != QEvent::Timer || (reloj != nullptr && reloj->interval() == 0))
    {
        ++m_eventos;
    }
    return false;
}

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
    if (objeto == m_propio)
    {
        return false;
    }
    if (evento->type() != QEvent::Timer)
    {
        ++m_eventos;
    }
    else if (const auto* reloj = qobject_cast<const QTimer*>(objeto); reloj != nullptr && reloj->interval() == 0)
    {
        ++m_eventos;
    }
    return false;
}

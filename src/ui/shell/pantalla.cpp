#include "ui/shell/pantalla.h"

#include <QCloseEvent>
#include <QScopedValueRollback>

Pantalla::Pantalla(const QString& nombre, QWidget* padre)
    : QWidget(padre)
{
    setObjectName(nombre);
    Validacion::instancia();
}

bool Pantalla::puedeCerrarse()
{
    if (m_cerrada || m_preguntando)
    {
        return m_cerrada;
    }
    bool puede = false;
    const QScopedValueRollback preguntando(m_preguntando, true);
    protegido([&] { puede = descargar(); });
    return puede;
}

bool Pantalla::pedirCierre()
{
    m_cerrada = puedeCerrarse();
    return m_cerrada;
}

void Pantalla::cerrar()
{
    if (!m_cerrada && pedirCierre())
    {
        Q_EMIT pideCerrar();
    }
}

void Pantalla::closeEvent(QCloseEvent* evento)
{
    evento->setAccepted(pedirCierre());
}

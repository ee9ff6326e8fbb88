#include "platform/screens/pantalla.h"

#include <QCloseEvent>

Pantalla::Pantalla(const QString& nombre, QWidget* padre)
    : QWidget(padre)
{
    setObjectName(nombre);
    Validacion::instancia();
}

bool Pantalla::pedirCierre()
{
    if (m_cerrada || m_preguntando)
    {
        return m_cerrada;
    }
    bool puede = false;
    m_preguntando = true;
    protegido([&] { puede = descargar(); });
    m_preguntando = false;
    m_cerrada = puede;
    return puede;
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

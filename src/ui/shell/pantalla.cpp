#include "ui/shell/pantalla.h"

#include "ui/fields/reglas_de_campos.h"

#include <QCloseEvent>
#include <QScopedValueRollback>

Pantalla::Pantalla(const QString& nombre, QWidget* padre)
    : QWidget(padre)
{
    setObjectName(nombre);
    Validacion::instancia();
    ReglasDeCampos::aplicar();
}

bool Pantalla::puedeCerrarse(Cierre cierre)
{
    if (m_cerrada || m_preguntando)
    {
        return m_cerrada;
    }
    bool puede = false;
    const QScopedValueRollback preguntando(m_preguntando, true);
    protegido([&] { puede = (cierre == Cierre::DeLaPantalla || dejaLoTipeado()) && descargar(); });
    return puede;
}

bool Pantalla::pedirCierre(Cierre cierre)
{
    m_cerrada = puedeCerrarse(cierre);
    return m_cerrada;
}

void Pantalla::cerrar()
{
    if (!m_cerrada && pedirCierre(Cierre::DeLaPantalla))
    {
        Q_EMIT pideCerrar();
    }
}

void Pantalla::closeEvent(QCloseEvent* evento)
{
    evento->setAccepted(pedirCierre(Cierre::DeLaVentana));
}

#include "core/screens/area_principal.h"

#include "ui/look/estilo.h"

#include <QPainter>

AreaPrincipal::AreaPrincipal(QWidget* padre)
    : QMdiArea(padre)
{
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

void AreaPrincipal::paintEvent(QPaintEvent*)
{
    const QSize tamano = viewport()->size();
    if (m_fondo.isNull() || m_tamanoDelFondo != tamano)
    {
        // Drawn once a size.
        m_tamanoDelFondo = tamano;
        m_fondo = QPixmap(tamano * devicePixelRatioF());
        m_fondo.setDevicePixelRatio(devicePixelRatioF());
        QPainter pintor(&m_fondo);
        Estilo::pintarFondo(pintor, QRect(QPoint(), tamano));
    }
    QPainter(viewport()).drawPixmap(0, 0, m_fondo);
}

#include "core/screens/area_principal.h"

#include <QPainter>
#include <QSvgRenderer>

AreaPrincipal::AreaPrincipal(QWidget* padre)
    : QMdiArea(padre)
{
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

void AreaPrincipal::paintEvent(QPaintEvent* evento)
{
    const QSize tamano = viewport()->size();
    if (m_tamanoDelFondo != tamano)
    {
        // Drawn once a size; the picture covers the whole area and keeps its proportions.
        m_tamanoDelFondo = tamano;
        QSvgRenderer dibujo(QStringLiteral(":/fondo.svg"));
        dibujo.setAspectRatioMode(Qt::KeepAspectRatioByExpanding);
        const qreal escala = devicePixelRatioF();
        m_fondo = QPixmap(tamano * escala);
        m_fondo.setDevicePixelRatio(escala);
        m_fondo.fill(palette().color(QPalette::Window));
        QPainter pintor(&m_fondo);
        QSizeF medida = dibujo.defaultSize();
        medida.scale(tamano, Qt::KeepAspectRatioByExpanding);
        const QPointF origen((tamano.width() - medida.width()) / 2, (tamano.height() - medida.height()) / 2);
        dibujo.render(&pintor, QRectF(origen, medida));
    }
    QPainter pintor(viewport());
    pintor.drawPixmap(0, 0, m_fondo);
    pintor.end();
    Q_UNUSED(evento);
}

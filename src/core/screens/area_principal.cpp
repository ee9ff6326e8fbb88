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
    QPainter pintor(viewport());
    Estilo::pintarFondo(pintor, viewport()->rect());
}

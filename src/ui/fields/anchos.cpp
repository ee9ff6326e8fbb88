#include "ui/fields/anchos.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>

void ensancharCampos(QWidget& formulario)
{
    const int letra = formulario.fontInfo().pixelSize();
    if (letra <= letraDeFormularios)
    {
        return;
    }
    const auto crecido = [letra](int ancho)
    {
        const bool fijado = ancho < QWIDGETSIZE_MAX;
        return fijado ? (ancho * letra + letraDeFormularios - 1) / letraDeFormularios : ancho;
    };
    const QList<QWidget*> controles = formulario.findChildren<QWidget*>();
    for (QWidget* control : controles)
    {
        if (qobject_cast<QLineEdit*>(control) != nullptr || qobject_cast<QComboBox*>(control) != nullptr ||
            qobject_cast<QGroupBox*>(control) != nullptr)
        {
            control->setMaximumWidth(crecido(control->maximumWidth()));
            control->setMinimumWidth(crecido(control->minimumWidth()));
        }
    }
}

#include "maintenance/screens/rotulos.h"

#include <QLabel>

void rotuloDePrograma(QLabel* etiqueta)
{
    QFont grande = etiqueta->font();
    grande.setPointSizeF(grande.pointSizeF() * 1.6);
    grande.setBold(true);
    etiqueta->setFont(grande);
}

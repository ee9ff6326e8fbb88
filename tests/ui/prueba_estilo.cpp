#include "ui/look/estilo.h"

#include <QtWidgets>
#include <gtest/gtest.h>

namespace
{
/// The look stays on for the tests that follow: they run under what the user sees.
TEST(Aspecto, IconosTextosDeQtYCamposQueSoloMuestran)
{
    Estilo::aplicar(*qApp);
    for (const char* nombre : {"nueva", "grabar", "eliminar", "boleta", "enviar", "respaldo", "salir"})
    {
        EXPECT_FALSE(Estilo::icono(nombre).pixmap(QSize(48, 48)).isNull()) << nombre;
    }
    const QDialogButtonBox caja(QDialogButtonBox::Yes | QDialogButtonBox::Cancel);
    EXPECT_EQ(caja.button(QDialogButtonBox::Yes)->text(), "&Sí");
    EXPECT_EQ(caja.button(QDialogButtonBox::Cancel)->text().remove(u'&'), "Cancelar");
    QLineEdit campo;
    Estilo::soloMuestra(&campo);
    EXPECT_TRUE(campo.isReadOnly());
    EXPECT_FALSE(campo.focusPolicy() & Qt::TabFocus);
}
} // namespace

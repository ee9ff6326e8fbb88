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
    Estilo::soloMuestra({&campo});
    EXPECT_TRUE(campo.isReadOnly());
    EXPECT_FALSE(campo.focusPolicy() & Qt::TabFocus);
    Estilo::importe(&campo); // a figure too wide for its field loses no digit
    campo.resize(100, 30);
    campo.setText(QStringLiteral("$ 99.999.999.999,99"));
    EXPECT_LT(campo.fontMetrics().horizontalAdvance(campo.text()), 90);
}

TEST(Aspecto, LosColoresDeAltoContrasteSonLosDelUsuario)
{
    QApplication::setPalette(QPalette(Qt::white, Qt::black, Qt::gray, Qt::gray, Qt::gray, Qt::white, Qt::black));
    Estilo::aplicar(*qApp, true);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), QColor(Qt::black));
    EXPECT_EQ(qApp->styleSheet(), QString());
    Estilo::aplicar(*qApp);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), Estilo::paleta().color(QPalette::Window));
    EXPECT_NE(qApp->styleSheet(), QString());
}
} // namespace

// The notice of a new version. The About box is in its script.
#include "apoyo/entrada.h"
#include "configuracion.h"
#include "maintenance/screens/version.h"
#include "ui/doors/dialogos.h"

#include <QLabel>
#include <QTest>
#include <gtest/gtest.h>

TEST(Version, ElEnlaceSePintaDeRojoAlPasarYSeAbreAlPulsar)
{
    QStringList enlaces;
    reemplazarAbrirEnlace([&](const QString& direccion)
                          { return enlaces.append(direccion), false; }); // nobody looks at it
    Version aviso;
    aviso.cargar();
    Entrada::activar(aviso);
    auto& enlace = *aviso.findChild<QLabel*>(QStringLiteral("lblLink"));
    const auto color = [&](const char* bajoElPuntero)
    {
        QWidget& destino = *aviso.findChild<QWidget*>(QString::fromLatin1(bajoElPuntero));
        QTest::mouseMove(aviso.windowHandle(), destino.mapTo(&aviso, destino.rect().center()));
        Entrada::asentar();
        return enlace.palette().color(enlace.foregroundRole());
    };
    EXPECT_EQ(QColor(0, 0, 255), color("lblVersion"));
    EXPECT_EQ(QColor(255, 0, 0), color("lblLink"));
    EXPECT_EQ(QColor(0, 0, 255), color("lblVersion"));
    Entrada::pulsar(enlace, {}, Qt::RightButton);
    Entrada::pulsar(enlace);
    EXPECT_EQ(QStringList(QString::fromUtf8(configuracion::enlaceVersion)), enlaces);
    Entrada::tecla(Qt::Key_Space);
    EXPECT_EQ(2, enlaces.size());
    reemplazarAbrirEnlace({});

    aviso.findChild<QLabel*>(QStringLiteral("lblVersion"))->clear();
    enlace.clear();
    aviso.cargar();
    EXPECT_FALSE(enlace.isVisible() || aviso.findChild<QLabel*>(QStringLiteral("lblVersion"))->isVisible());
}

// The notice of a new version. The About box is in its script.
#include "apoyo/entrada.h"
#include "configuracion.h"
#include "maintenance/screens/version.h"
#include "ui/doors/dialogos.h"

#include <QLabel>
#include <gtest/gtest.h>

TEST(Version, ElEnlaceSeAbreAlPulsar)
{
    QStringList enlaces;
    reemplazarAbrirEnlace([&](const QString& direccion) { return enlaces.append(direccion), true; });
    Version aviso;
    aviso.cargar();
    Entrada::activar(aviso);
    auto& enlace = *aviso.findChild<QLabel*>("lblLink");
    Entrada::pulsar(enlace, {}, Qt::RightButton);
    Entrada::pulsar(enlace);
    EXPECT_EQ(QStringList(QString::fromUtf8(configuracion::enlaceVersion)), enlaces);
    Entrada::tecla(Qt::Key_Space);
    EXPECT_EQ(2, enlaces.size());
    reemplazarAbrirEnlace({});
}

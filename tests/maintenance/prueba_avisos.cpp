// The About box and the notice of a new version.
#include "apoyo/entrada.h"
#include "apoyo/mesa.h"
#include "configuracion.h"
#include "maintenance/screens/acercade.h"
#include "maintenance/screens/version.h"
#include "platform/screens/dialogos.h"
#include "platform/screens/navegacion.h"
#include "platform/screens/pantalla.h"

#include <QLabel>
#include <QTest>
#include <gtest/gtest.h>

namespace
{
class Avisos : public testing::Test
{
protected:
    Avisos()
    {
        Navegacion::instancia().registrar(QStringLiteral("Acercade"), [] { return new Acercade; });
        Navegacion::instancia().registrar(QStringLiteral("Version"), [] { return new Version; });
        reemplazarAbrirEnlace(
            [this](const QString& direccion)
            {
                enlaces.append(direccion);
                return false; // nobody looks at it
            });
    }
    ~Avisos() override { reemplazarAbrirEnlace({}); }
    static void mover(QWidget& a)
    {
        QTest::mouseMove(a.window()->windowHandle(), a.mapTo(a.window(), a.rect().center()));
        Entrada::asentar();
    }
    [[nodiscard]] static QColor color()
    {
        const QWidget& enlace = Mesa::control("lblLink");
        return enlace.palette().color(enlace.foregroundRole());
    }

    Mesa mesa;
    QStringList enlaces;
};
} // namespace

TEST_F(Avisos, AcercadeDiceLaVersionDeLaBase)
{
    mesa.conexion().ejecutar("UPDATE Parametros SET Version = '1.2'");
    Mesa::abrirModal("Acercade",
                     []
                     {
                         EXPECT_EQ(QStringLiteral("Sistema Altoverde: Acerca de"), Mesa::titulo());
                         EXPECT_EQ(QStringLiteral("Versión: 1.2"), Mesa::texto("lblVersion"));
                         EXPECT_EQ(QString::fromUtf8(configuracion::web), Mesa::texto("Label4_0"));
                         EXPECT_EQ(QString::fromUtf8(configuracion::correoSoporte), Mesa::texto("Label4_1"));
                         EXPECT_EQ(QString::fromUtf8(configuracion::telefonoSoporte), Mesa::texto("Label4_2"));
                         Mesa::cerrar();
                     });
}

TEST_F(Avisos, ElEnlaceSePintaDeRojoAlPasarYSeAbreAlPulsar)
{
    mesa.menu->MostrarVersion = true;
    QEvent cambio(QEvent::ActivationChange);
    QCoreApplication::sendEvent(mesa.menu.get(), &cambio);
    Entrada::asentar();
    EXPECT_EQ(QStringLiteral("Sistema Altoverde: Nueva Versión disponible"), Mesa::titulo());
    const QWidget& ventana = *Mesa::actual()->parentWidget();
    EXPECT_TRUE(ventana.windowFlags() & Qt::WindowCloseButtonHint);
    EXPECT_FALSE(ventana.windowFlags() & Qt::WindowMinMaxButtonsHint);
    QWidget& enlace = Mesa::control("lblLink");
    EXPECT_TRUE(enlace.isVisible());
    EXPECT_EQ(QColor(0, 0, 255), color());
    mover(enlace);
    EXPECT_EQ(QColor(255, 0, 0), color());
    mover(Mesa::control("lblVersion"));
    EXPECT_EQ(QColor(0, 0, 255), color());
    Entrada::pulsar(enlace, {}, Qt::RightButton);
    EXPECT_EQ(QStringList(), enlaces);
    Entrada::pulsar(enlace);
    EXPECT_EQ(QStringList{QString::fromUtf8(configuracion::enlaceVersion)}, enlaces);
    Entrada::tecla(Qt::Key_Space);
    EXPECT_EQ(2, enlaces.size());
}

TEST_F(Avisos, SinTextoNoSeMuestra)
{
    auto* version = new Version;
    version->findChild<QLabel*>(QStringLiteral("lblVersion"))->clear();
    version->findChild<QLabel*>(QStringLiteral("lblLink"))->clear();
    Navegacion::instancia().registrar(QStringLiteral("Version"), [version] { return version; });
    Mesa::abrir("Version");
    EXPECT_TRUE(Mesa::control("Label1").isVisible());
    EXPECT_FALSE(Mesa::control("lblVersion").isVisible());
    EXPECT_FALSE(Mesa::control("lblLink").isVisible());
}

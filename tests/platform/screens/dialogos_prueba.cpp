#include "platform/screens/dialogos.h"

#include "apoyo/cajas_de_prueba.h"
#include "apoyo/entrada.h"
#include "platform/data/error_de_ejecucion.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPrinterInfo>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>

using namespace Entrada;

namespace
{
QString nativa(const QString& ruta)
{
    return QDir::toNativeSeparators(ruta);
}

/// Types a name into the next real file dialog and accepts it.
void conElDialogo(const QString& nombre)
{
    QTimer::singleShot(0, qApp,
                       [nombre]
                       {
                           auto* dialogo = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
                           if (dialogo == nullptr || !dialogo->isVisible())
                           {
                               conElDialogo(nombre);
                               return;
                           }
                           EXPECT_TRUE(hayCajaAbierta());
                           dialogo->activateWindow();
                           auto* campo = dialogo->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
                           ASSERT_NE(campo, nullptr);
                           campo->setText(nombre);
                           static_cast<QDialog*>(dialogo)->accept();
                           if (dialogo->isVisible())
                           {
                               ADD_FAILURE() << "refused " << nombre.toStdString();
                               dialogo->reject();
                           }
                       });
}

class Dialogos : public testing::Test
{
protected:
    Dialogos()
    {
        QFile archivo(ruta(QStringLiteral("hay.txt")));
        EXPECT_TRUE(archivo.open(QIODevice::WriteOnly));
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    }
    [[nodiscard]] QString ruta(const QString& nombre) const { return carpeta.filePath(nombre); }

    QTemporaryDir carpeta;
};
} // namespace

TEST_F(Dialogos, ElArchivoElegidoVuelveConSuRuta)
{
    PedidoDeArchivo pedido;
    pedido.titulo = QStringLiteral("Abrir");
    pedido.filtro = QStringLiteral("*.txt");
    pedido.nombreInicial = nativa(ruta(QStringLiteral("antes.txt")));
    conElDialogo(QStringLiteral("hay.txt"));
    EXPECT_EQ(DialogoArchivo(pedido).toStdString(), nativa(ruta(QStringLiteral("hay.txt"))).toStdString());
    EXPECT_FALSE(hayCajaAbierta());

    pedido.debeExistir = false;
    pedido.extension = QStringLiteral("txt");
    conElDialogo(QStringLiteral("nuevo"));
    EXPECT_EQ(DialogoArchivo(pedido).toStdString(), nativa(ruta(QStringLiteral("nuevo.txt"))).toStdString());
}

TEST_F(Dialogos, LaRespuestaReemplazadaSigueLasMismasReglas)
{
    PedidoDeArchivo pedido;
    pedido.nombreInicial = QStringLiteral("como/estaba");
    pedido.extension = QStringLiteral("txt");
    CajasDePrueba cajas;
    cajas.archivo(QString()).archivo(QStringLiteral("/c/nuevo")).archivo(QStringLiteral("/c/nuevo.dat"));
    EXPECT_EQ(DialogoArchivo(pedido), QStringLiteral("como/estaba"));
    EXPECT_EQ(DialogoArchivo(pedido), nativa(QStringLiteral("/c/nuevo.txt")));
    EXPECT_EQ(DialogoArchivo(pedido), nativa(QStringLiteral("/c/nuevo.dat")));
    EXPECT_EQ(cajas.archivosPedidos().size(), 3U);
    cajas.carpeta(QStringLiteral("/c/Copias"));
    EXPECT_EQ(DialogoCarpeta(QStringLiteral("Carpeta"), QString()), nativa(QStringLiteral("/c/Copias")));
}

TEST(Impresora, ElDialogoOElAvisoDeQueNoHayNinguna)
{
    CajasDePrueba cajas;
    const bool hay = !QPrinterInfo::availablePrinterNames().isEmpty();
    int dialogos = 0;
    QTimer cierra;
    QObject::connect(&cierra, &QTimer::timeout, &cierra,
                     [&]
                     {
                         if (auto* dialogo = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
                         {
                             ++dialogos;
                             dialogo->reject();
                         }
                     });
    cierra.start();
    if (!hay)
    {
        cajas.esperaQueDiga(Caja::Informacion, QStringLiteral("No hay ninguna impresora"));
    }
    ConfigurarImpresora();
    EXPECT_EQ(dialogos > 0, hay);
}

TEST(Correo, SinProgramaOSinAdjuntoEsUnError)
{
    MensajeDeCorreo mensaje{QStringLiteral("ddjj@example.org"), QStringLiteral("DDJJ"), QStringLiteral("Va."), {}};
    mensaje.adjunto = QStringLiteral("/no/existe.txt");
    try
    {
        Correo(mensaje);
        FAIL() << "sent a file that is not there";
    }
    catch (const ErrorDeEjecucion& error)
    {
        EXPECT_EQ(error.numero(), ErrorDeEjecucion::ArchivoNoEncontrado);
    }
}

#ifndef Q_OS_WIN
TEST(Correo, EntregaAlProgramaDelSistemaLoQueDiceElMensaje)
{
    const QTemporaryDir carpeta;
    const QString anotado = carpeta.filePath(QStringLiteral("anotado"));
    QFile programa(carpeta.filePath(QStringLiteral("xdg-email")));
    ASSERT_TRUE(programa.open(QIODevice::WriteOnly));
    programa.write("#!/bin/sh\nfor a in \"$@\"; do echo \"$a\" >> '" + anotado.toUtf8() + "'; done\nexit $SALIDA\n");
    programa.close();
    programa.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QByteArray camino = qgetenv("PATH");
    qputenv("PATH", carpeta.path().toUtf8() + ":" + camino);
    const MensajeDeCorreo mensaje{QStringLiteral("--help ddjj@example.org"), QStringLiteral("DDJJ 1"),
                                  QStringLiteral("Va."), programa.fileName()};
    qputenv("SALIDA", "0");
    Correo(mensaje);
    qputenv("SALIDA", "4");
    EXPECT_THROW(Correo(mensaje), ErrorDeEjecucion);
    qputenv("PATH", camino);

    QFile resultado(anotado);
    ASSERT_TRUE(resultado.open(QIODevice::ReadOnly));
    const QList<QByteArray> lineas = resultado.readAll().split('\n');
    EXPECT_EQ(lineas.mid(0, 8), (QList<QByteArray>{"--utf8", "--subject", "DDJJ 1", "--body", "Va.", "--attach",
                                                   programa.fileName().toUtf8(), "mailto:--help%20ddjj@example.org"}));
}
#endif

TEST(Enlace, SoloLosEsquemasConocidos)
{
    for (const char* malo : {"javascript:alert(1)", "ssh://x", ""})
    {
        EXPECT_FALSE(AbrirEnlace(QString::fromLatin1(malo))) << malo;
    }
    QStringList abiertos;
    reemplazarAbrirEnlace(
        [&](const QString& direccion)
        {
            abiertos << direccion;
            return true;
        });
    EXPECT_TRUE(AbrirEnlace(QStringLiteral("http://www.example.org")));
    reemplazarAbrirEnlace({});
    EXPECT_EQ(abiertos, QStringList{QStringLiteral("http://www.example.org")});
}

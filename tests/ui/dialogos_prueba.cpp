// The doors to the system's dialogs and programs.
#include "ui/doors/dialogos.h"

#include "apoyo/archivos_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/datos.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>

namespace
{
/// Types a name into the next real file dialog and accepts it; an empty name cancels.
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
                           dialogo->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(nombre);
                           nombre.isEmpty() ? dialogo->reject() : static_cast<QDialog*>(dialogo)->accept();
                       });
}
} // namespace

TEST(Dialogos, LoElegidoVuelveConSuRutaYUnNombreSinExtensionLaRecibe)
{
    const QTemporaryDir carpeta;
    escribirArchivo(carpeta.filePath(QStringLiteral("hay.txt")), "x");
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QString inicial = QDir::toNativeSeparators(carpeta.filePath(QStringLiteral("como.estaba")));
    for (const auto& [nombre, vuelve] :
         {std::pair("hay.txt", "hay.txt"), {"nuevo", "nuevo.txt"}, {"nuevo.dat", "nuevo.dat"}, {"", "como.estaba"}})
    {
        conElDialogo(QString::fromLatin1(nombre));
        EXPECT_EQ(
            QDir::toNativeSeparators(carpeta.filePath(QString::fromLatin1(vuelve))),
            DialogoArchivo({QStringLiteral("Guardar"), inicial, QStringLiteral("*"), QStringLiteral("txt"), false}));
    }
}

TEST(Dialogos, AntesDeEscribirSobreOtroArchivoSePregunta)
{
    const QTemporaryDir carpeta;
    const QString hay = carpeta.filePath(QStringLiteral("hay.txt"));
    escribirArchivo(hay, "x");
    CajasDePrueba cajas;
    const QString pregunta = QStringLiteral("El archivo 'hay.txt' ya existe. ¿Desea reemplazarlo?");
    cajas.esperaPregunta(pregunta, false)
        .esperaPregunta(pregunta, true)
        .esperaQueDiga(Caja::Exclamacion, QStringLiteral("' es una carpeta."));
    EXPECT_FALSE(ConfirmarDestino(hay));
    EXPECT_TRUE(ConfirmarDestino(hay));
    EXPECT_FALSE(ConfirmarDestino(carpeta.path()));
    EXPECT_TRUE(ConfirmarDestino(hay, hay)) << "its copy fails by itself";
    EXPECT_TRUE(ConfirmarDestino(carpeta.filePath(QStringLiteral("nuevo.txt"))));
}

#ifndef Q_OS_WIN
TEST(Correo, EntregaAlProgramaDelSistemaLoQueDiceElMensaje)
{
    const QTemporaryDir carpeta;
    const QString programa = carpeta.filePath(QStringLiteral("xdg-email"));
    escribirArchivo(programa, "#!/bin/sh\nprintf '%s|' \"$@\" >> \"$0.anotado\"\nexit $SALIDA\n");
    QFile::setPermissions(programa, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QByteArray camino = qgetenv("PATH");
    qputenv("PATH", carpeta.path().toUtf8() + ":" + camino);
    MensajeDeCorreo mensaje{QStringLiteral("--help ddjj@example.org"), QStringLiteral("DDJJ 1"), QStringLiteral("Va."),
                            programa};
    EXPECT_EQ(0, numeroDe([&] { Correo(mensaje); }));
    qputenv("SALIDA", "4");
    EXPECT_EQ(429, numeroDe([&] { Correo(mensaje); }));
    mensaje.adjunto += QStringLiteral(".falta");
    EXPECT_EQ(53, numeroDe([&] { Correo(mensaje); }));
    qputenv("PATH", camino);
    EXPECT_TRUE(leerArchivo(programa + QStringLiteral(".anotado"))
                    .startsWith("--utf8|--subject|DDJJ 1|--body|Va.|--attach|" + programa.toUtf8() +
                                "|mailto:--help%20ddjj@example.org|"));
}
#endif

TEST(Enlace, SoloLosEsquemasConocidos)
{
    for (const char* malo : {"javascript:alert(1)", "ssh://x", ""})
    {
        EXPECT_FALSE(AbrirEnlace(QString::fromLatin1(malo))) << malo;
    }
}

#include "ui/doors/correo_sistema.h"

#include <QtGlobal>

#ifndef Q_OS_WIN

#include "base/error_de_ejecucion.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

bool entregarAlSistema(const MensajeDeCorreo& mensaje)
{
    const QString programa = QStandardPaths::findExecutable(QStringLiteral("xdg-email"));
    if (programa.isEmpty())
    {
        return false;
    }
    QStringList argumentos = {QStringLiteral("--utf8"), QStringLiteral("--subject"), mensaje.asunto,
                              QStringLiteral("--body"), mensaje.texto};
    if (!mensaje.adjunto.isEmpty())
    {
        argumentos << QStringLiteral("--attach") << QFileInfo(mensaje.adjunto).absoluteFilePath();
    }
    argumentos << direccionDeCorreo(mensaje);

    // It ends at once where a mail program is running, and stays with one that it had to start.
    constexpr int paciencia = 5000; // ms
    auto* proceso = new QProcess(qApp);
    QObject::connect(proceso, &QProcess::finished, proceso, &QObject::deleteLater);
    proceso->setProgram(programa);
    proceso->setArguments(argumentos);
    proceso->setStandardOutputFile(QProcess::nullDevice());
    proceso->setStandardErrorFile(QProcess::nullDevice());
    proceso->start();
    const bool fallo =
        !proceso->waitForStarted() || (proceso->waitForFinished(paciencia) &&
                                       (proceso->exitStatus() != QProcess::NormalExit || proceso->exitCode() != 0));
    if (fallo)
    {
        throw ErrorDeEjecucion(errorDeCorreo, QStringLiteral("El programa de correo no aceptó el mensaje."));
    }
    return true;
}

#endif

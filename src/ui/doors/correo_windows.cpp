#include "ui/doors/correo_sistema.h"

#include <QtGlobal>

#ifdef Q_OS_WIN

#include "base/error_de_ejecucion.h"

#include <QDir>
#include <QFileInfo>
#include <QLibrary>

#include <windows.h>

#include <mapi.h>

// Simple MAPI, whose texts are in the system's own code page.
bool entregarAlSistema(const MensajeDeCorreo& mensaje)
{
    QLibrary biblioteca(QStringLiteral("mapi32"));
    const auto enviar = reinterpret_cast<LPMAPISENDMAIL>(biblioteca.resolve("MAPISendMail"));
    if (enviar == nullptr)
    {
        return false;
    }
    QByteArray direccion = "SMTP:" + mensaje.destinatario.toLocal8Bit();
    QByteArray nombre = mensaje.destinatario.toLocal8Bit();
    QByteArray asunto = mensaje.asunto.toLocal8Bit();
    QByteArray texto = mensaje.texto.toLocal8Bit();
    QByteArray ruta = QDir::toNativeSeparators(QFileInfo(mensaje.adjunto).absoluteFilePath()).toLocal8Bit();

    MapiRecipDesc destinatario = {};
    destinatario.ulRecipClass = MAPI_TO;
    destinatario.lpszName = nombre.data();
    destinatario.lpszAddress = direccion.data();
    MapiFileDesc adjunto = {};
    adjunto.nPosition = static_cast<ULONG>(-1);
    adjunto.lpszPathName = ruta.data();
    MapiMessage carta = {};
    carta.lpszSubject = asunto.data();
    carta.lpszNoteText = texto.data();
    carta.nRecipCount = 1;
    carta.lpRecips = &destinatario;
    if (!mensaje.adjunto.isEmpty())
    {
        carta.nFileCount = 1;
        carta.lpFiles = &adjunto;
    }
    // No dialog to edit it in: what the caller reports as sent has been sent.
    const ULONG resultado = enviar(0, 0, &carta, MAPI_LOGON_UI, 0);
    if (resultado != SUCCESS_SUCCESS)
    {
        throw ErrorDeEjecucion(
            errorDeCorreo,
            QStringLiteral("El programa de correo no aceptó el mensaje (MAPI %1).").arg(QString::number(resultado)));
    }
    return true;
}

#endif

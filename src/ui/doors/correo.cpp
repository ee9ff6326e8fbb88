#include "ui/doors/correo_sistema.h"

#include "base/error_de_ejecucion.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>
#include <QUrlQuery>

namespace
{
std::function<void(const MensajeDeCorreo&)> otroCorreo;

QString escapado(const QString& texto)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(texto));
}

/// The road of every desktop, which carries no attachment.
bool abrirEnlaceDeCorreo(const MensajeDeCorreo& mensaje)
{
    QUrlQuery partes;
    partes.addQueryItem(QStringLiteral("subject"), escapado(mensaje.asunto));
    partes.addQueryItem(QStringLiteral("body"), escapado(mensaje.texto));
    QUrl enlace(direccionDeCorreo(mensaje));
    enlace.setQuery(partes);
    return QDesktopServices::openUrl(enlace);
}
} // namespace

QString direccionDeCorreo(const MensajeDeCorreo& mensaje)
{
    return QStringLiteral("mailto:") + QString::fromLatin1(QUrl::toPercentEncoding(mensaje.destinatario, "@"));
}

void Correo(const MensajeDeCorreo& mensaje)
{
    if (otroCorreo)
    {
        otroCorreo(mensaje);
        return;
    }
    if (!mensaje.adjunto.isEmpty() && !QFileInfo::exists(mensaje.adjunto))
    {
        throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::ArchivoNoEncontrado, mensaje.adjunto);
    }
    if (entregarAlSistema(mensaje))
    {
        return;
    }
    if (!mensaje.adjunto.isEmpty())
    {
        throw ErrorDeEjecucion(errorDeCorreo, QStringLiteral("No hay un programa de correo que pueda enviar el archivo "
                                                             "adjunto. Envíelo a mano: %1")
                                                  .arg(mensaje.adjunto));
    }
    if (!abrirEnlaceDeCorreo(mensaje))
    {
        throw ErrorDeEjecucion(errorDeCorreo, QStringLiteral("No hay un programa de correo instalado."));
    }
}

void reemplazarCorreo(std::function<void(const MensajeDeCorreo&)> atiende)
{
    otroCorreo = std::move(atiende);
}

#include "ui/doors/guardado.h"

#include "base/error_de_ejecucion.h"
#include "ui/doors/dialogos.h"
#include "ui/doors/mensajes.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace
{
QString carpetaDelUltimo; // of this run: nothing of it is kept on disk

QString propuesta(const PedidoDeGuardado& pedido)
{
    static const QRegularExpression prohibidos(QStringLiteral("[\\\\/:*?\"<>|\\x00-\\x1f]"));
    const QString nombre = QString(pedido.nombre).replace(prohibidos, QStringLiteral("-")).trimmed();
    if (nombre.isEmpty())
    {
        return {};
    }
    const QString archivo = nombre + QLatin1Char('.') + pedido.extension;
    return carpetaDelUltimo.isEmpty() ? QDir::home().filePath(archivo) : QDir(carpetaDelUltimo).filePath(archivo);
}
} // namespace

PedidoDeGuardado pedidoDePlanilla(const QString& titulo, const QString& nombre)
{
    return {titulo, nombre, QStringLiteral("xlsx"),
            QStringLiteral("Planilla de Excel (*.xlsx);;Texto separado por punto y coma (*.csv)")};
}

QString GuardarEnArchivo(const PedidoDeGuardado& pedido, const std::function<void(const QString& ruta)>& escribir)
{
    QString ruta =
        DialogoArchivo({.titulo = pedido.titulo,
                        .nombreInicial = {},
                        .filtro = pedido.filtro.isEmpty() ? QStringLiteral("*.") + pedido.extension : pedido.filtro,
                        .extension = pedido.extension,
                        .debeExistir = false,
                        .propuesta = propuesta(pedido)});
    if (ruta.isEmpty() || !ConfirmarDestino(ruta))
    {
        return {};
    }
    try
    {
        escribir(ruta);
    }
    catch (const ErrorParaAvisar&)
    {
        throw;
    }
    catch (const ErrorDeEjecucion& error)
    {
        decirErrorDeArchivo(error);
        return {};
    }
    carpetaDelUltimo = QFileInfo(ruta).absolutePath();
    return ruta;
}

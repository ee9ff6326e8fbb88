#include "platform/data/servidor_ftp.h"

#include "configuracion.h"

namespace
{
QString reemplazo;
} // namespace

QString ServidorFtp()
{
    return reemplazo.isEmpty() ? QString::fromUtf8(configuracion::ftpServidor) : reemplazo;
}

void reemplazarServidorFtp(const QString& servidor)
{
    reemplazo = servidor;
}

#include "platform/data/servidor_ftp.h"

#include "configuracion.h"

namespace
{
QString reemplazo;
TransporteFtp::Limites limitesFtp;
} // namespace

QString ServidorFtp()
{
    return reemplazo.isEmpty() ? QString::fromUtf8(configuracion::ftpServidor) : reemplazo;
}

void reemplazarServidorFtp(const QString& servidor)
{
    reemplazo = servidor;
}

TransporteFtp::Limites LimitesFtp()
{
    return limitesFtp;
}

void reemplazarLimitesFtp(const TransporteFtp::Limites& limites)
{
    limitesFtp = limites;
}

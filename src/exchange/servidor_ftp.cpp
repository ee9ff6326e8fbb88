#include "exchange/servidor_ftp.h"

#include "configuracion.h"

namespace
{
QString reemplazo;
TransporteFtp::Limites limitesFtp = limitesDelPrograma;
} // namespace

TransporteFtp::Cuenta CuentaFtp()
{
    return {reemplazo.isEmpty() ? QString::fromUtf8(configuracion::ftpServidor) : reemplazo,
            QStringLiteral("administrador"), QStringLiteral("KT-marcados")};
}

TransporteFtp::Limites LimitesFtp()
{
    return limitesFtp;
}

void reemplazarServidorFtp(const QString& servidor)
{
    reemplazo = servidor;
}

void reemplazarLimitesFtp(const TransporteFtp::Limites& limites)
{
    limitesFtp = limites;
}

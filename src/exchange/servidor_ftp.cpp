#include "exchange/servidor_ftp.h"

#include "configuracion.h"

namespace
{
QString reemplazo;
} // namespace

TransporteFtp::Cuenta CuentaFtp()
{
    return {reemplazo.isEmpty() ? QString::fromUtf8(configuracion::ftpServidor) : reemplazo,
            QStringLiteral("administrador"), QStringLiteral("KT-marcados")};
}

void reemplazarServidorFtp(const QString& servidor)
{
    reemplazo = servidor;
}

#include "core/domicilio.h"

#include "base/db/conexion.h"

QString domicilioDeEmpresa(const Fila& empresa)
{
    QString texto = empresa.texto("Calle");
    if (const qint64 numero = empresa.enteroONulo("Numero").value_or(0); numero != 0)
    {
        texto += QLatin1Char(' ') + QString::number(numero);
    }
    for (const char* columna : {"NroLocal", "Piso", "Depto"})
    {
        if (const QString parte = empresa.texto(columna); !parte.isEmpty())
        {
            texto += QLatin1Char(' ') + parte;
        }
    }
    return texto;
}

QString domicilioDeSucursal(const Fila& sucursal)
{
    const qint64 numero = sucursal.enteroONulo("Numero").value_or(0);
    return sucursal.texto("Domicilio") + QLatin1Char(' ') + (numero != 0 ? QString::number(numero) : QString());
}

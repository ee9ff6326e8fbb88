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

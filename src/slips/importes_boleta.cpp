#include "slips/importes_boleta.h"

#include "platform/data/conexion.h"
#include "platform/data/formato.h"

namespace
{
AportesDeBoleta sumar(Conexion& conexion, const ClaveDDJJ& clave, int secuencia)
{
    const Recordset sumas =
        conexion.consultar("SELECT Sum(ART100) AS Sum100, Sum(ART101A) AS Sum101A, Sum(ART101B) AS Sum101B "
                           "FROM DDJJ_Empleados WHERE CUIT = ? AND Periodo = ? AND Secuencia = ?",
                           clave.cuit, clave.periodo, secuencia);
    const Fila fila = sumas.primera();
    return {fila.moneda("Sum100"), fila.moneda("Sum101A"), fila.moneda("Sum101B"), false};
}

/// A number of more than four decimals, cut so that it rounds to two as the whole of it: what follows the third decimal
/// only tells whether there is something.
QString conCuatroDecimales(const QString& texto)
{
    const qsizetype tercero = texto.lastIndexOf(QLatin1Char(',')) + 4;
    if (tercero < 4 || texto.size() <= tercero)
    {
        return texto;
    }
    const QString resto = texto.mid(tercero);
    const bool esCero = resto.count(QLatin1Char('0')) == resto.size();
    return texto.left(tercero) + QLatin1Char(esCero ? '0' : '1');
}
} // namespace

AportesDeBoleta calcularAportesDeBoleta(Conexion& conexion, const ClaveDDJJ& clave)
{
    if (clave.secuencia == 0)
    {
        return sumar(conexion, clave, 0);
    }
    const AportesDeBoleta original = sumar(conexion, clave, 0);
    AportesDeBoleta aportes = sumar(conexion, clave, clave.secuencia);
    aportes.menorQueOriginal =
        original.art100 > aportes.art100 || original.art101A > aportes.art101A || original.art101B > aportes.art101B;
    aportes.art100 -= original.art100;
    aportes.art101A -= original.art101A;
    aportes.art101B -= original.art101B;
    return aportes;
}

Moneda importeDeCampo(const QString& texto)
{
    return Moneda::deTexto(conCuatroDecimales(texto)).redondeada(2);
}

QString importeSinSigno(const QString& texto)
{
    QString despojado = texto;
    return despojado.remove(QStringLiteral("$ ")).remove(QLatin1Char('.'));
}

QString importeParaEditar(const QString& texto)
{
    const QString despojado = importeSinSigno(texto);
    const std::optional<float> valor = LeerNumero(despojado);
    return valor && *valor == 0.0F ? QString() : despojado;
}

QString domicilioDeBoleta(const QString& calle, qint64 numero, const QString& nroLocal, const QString& piso,
                          const QString& depto, const QString& codPos, const QString& localidad)
{
    QString domicilio = calle;
    if (numero != 0)
    {
        domicilio += QLatin1Char(' ') + QString::number(numero);
    }
    for (const QString& parte : {nroLocal, piso, depto})
    {
        if (!parte.isEmpty())
        {
            domicilio += QLatin1Char(' ') + parte;
        }
    }
    return domicilio + QStringLiteral(" - (") + codPos + QStringLiteral(") ") + localidad;
}

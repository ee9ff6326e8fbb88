#include "slips/importes_boleta.h"

#include "base/db/conexion.h"
#include "base/numbers/formato.h"
#include "core/nombre_ddjj.h"
#include "core/vigencia.h"

namespace
{
/// Throws 94 for an empty roster.
AportesDeBoleta sumar(Conexion& conexion, const ClaveDDJJ& clave)
{
    return conexion.primera(
        "SELECT Sum(ART100) AS Sum100, Sum(ART101A) AS Sum101A, Sum(ART101B) AS Sum101B "
        "FROM DDJJ_Empleados WHERE CUIT = ? AND Periodo = ? AND Secuencia = ?",
        [](const Fila& fila) {
            return AportesDeBoleta{fila.moneda("Sum100"), fila.moneda("Sum101A"), fila.moneda("Sum101B"), false};
        },
        clave.cuit, clave.periodo, clave.secuencia);
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

void exigirNomina(Conexion& conexion, const ClaveDDJJ& clave)
{
    exigirDeclaracion(conexion, clave);
    if (!conexion.hay("SELECT 1 FROM DDJJ_Empleados WHERE CUIT = ? AND Periodo = ? AND Secuencia = ?", clave.cuit,
                      clave.periodo, clave.secuencia))
    {
        throw YaNoEsta(QStringLiteral("La Nómina de Empleados de la Declaración Jurada %1 ya no se encuentra en "
                                      "la Base: fue eliminada desde otra ventana u otro puesto.")
                           .arg(textoDe(clave)));
    }
}

AportesDeBoleta calcularAportesDeBoleta(Conexion& conexion, const ClaveDDJJ& clave)
{
    if (clave.periodo.isValid()) // without a month there never was a declaration
    {
        exigirNomina(conexion, clave);
    }
    if (clave.secuencia == 0)
    {
        return sumar(conexion, clave);
    }
    const ClaveDDJJ primera{clave.cuit, clave.periodo, 0};
    exigirDeclaracion(conexion, primera);
    const AportesDeBoleta original = sumar(conexion, primera);
    AportesDeBoleta aportes = sumar(conexion, clave);
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

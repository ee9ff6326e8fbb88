#include "slips/emision.h"

#include "base/db/conexion.h"
#include "core/nombre_ddjj.h"
#include "core/vigencia.h"
#include "slips/importes_boleta.h"
#include "slips/numero_boleta.h"
#include "slips/pagos.h"

ValoresDeInforme emitirBoleta(Conexion& conexion, const Boleta& boleta, TextosDeBoleta textos)
{
    textos.numero = numeroBoleta(boleta);
    Transaccion transaccion(conexion);
    exigirEmpresa(conexion, boleta.cuit);
    switch (boleta.tipo)
    {
    case TipoBoleta::Aportes:
        exigirNomina(conexion, boleta.declaracion);
        break;
    case TipoBoleta::Interes:
        exigirDeclaracion(conexion, boleta.declaracion);
        break;
    case TipoBoleta::Acta:
        break;
    }
    ValoresDeInforme valores = valoresDeBoleta(conexion, boleta, textos);
    if (!pagoRegistrado(conexion, boleta)) // under the same lock, so that two desks cannot register it twice
    {
        registrarPago(conexion, boleta);
    }
    transaccion.confirmar();
    return valores;
}

QString nombreDeBoleta(const Boleta& boleta)
{
    if (boleta.tipo == TipoBoleta::Acta)
    {
        return QStringLiteral("%1 acta %2 cuota %3 boleta")
            .arg(boleta.cuit, QString::number(boleta.nroActa), QString::number(boleta.cuota));
    }
    return nombreDeDeclaracion(boleta.declaracion) +
           (boleta.tipo == TipoBoleta::Interes ? QStringLiteral(" boleta de intereses") : QStringLiteral(" boleta"));
}

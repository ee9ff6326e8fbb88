#include "slips/datos_boleta.h"

#include "base/db/conexion.h"
#include "slips/numero_boleta.h"

namespace
{
void agregarPeriodo(ValoresDeInforme& valores, const Boleta& boleta, const QString& tipoPago)
{
    valores.push_back({QStringLiteral("TipoPago"), tipoPago});
    valores.push_back({QStringLiteral("Periodo"), boleta.declaracion.periodo.toString(u"yyyy/MM")});
    valores.push_back({QStringLiteral("Secuencia"), qint64{boleta.declaracion.secuencia}});
}

void agregarAportes(ValoresDeInforme& valores, Conexion& conexion, const Boleta& boleta)
{
    valores.push_back({QStringLiteral("Aporte_2"), boleta.art100});
    valores.push_back({QStringLiteral("Aporte_1A"), boleta.art101A});
    valores.push_back({QStringLiteral("Aporte_1B"), boleta.art101B});
    const ClaveDDJJ& clave = boleta.declaracion;
    {
        const Recordset todos = conexion.consultar(
            "SELECT Sum(Imponible) AS RemImponible, Count(Cuil) AS SumEmpleados, Sum(Acuerdo) AS SumAcuerdo, "
            "Sum(Acuerdo2) AS SumAcuerdo2 FROM DDJJ_Empleados WHERE CUIT = ? AND Periodo = ? AND Secuencia = ?",
            boleta.cuit, clave.periodo, clave.secuencia);
        const Fila fila = todos.primera();
        valores.push_back({QStringLiteral("Empleados_2"), fila.entero("SumEmpleados")});
        valores.push_back({QStringLiteral("Remuneracion_2"),
                           fila.moneda("RemImponible") + fila.moneda("SumAcuerdo") + fila.moneda("SumAcuerdo2")});
    }
    // Of the members only the taxable remuneration counts, without the agreement sums.
    const Recordset afiliados =
        conexion.consultar("SELECT Sum(Imponible) AS RemImponible, Count(Cuil) AS SumEmpleados FROM DDJJ_Empleados "
                           "WHERE CUIT = ? AND Periodo = ? AND Secuencia = ? AND Afiliado = 1",
                           boleta.cuit, clave.periodo, clave.secuencia);
    const Fila fila = afiliados.primera();
    const qint64 cantidad = fila.entero("SumEmpleados");
    valores.push_back({QStringLiteral("Empleados_1"), cantidad});
    valores.push_back({QStringLiteral("Remuneracion_1"), cantidad == 0 ? Moneda() : fila.moneda("RemImponible")});
}

void agregarActa(ValoresDeInforme& valores, const Boleta& boleta, const TextosDeBoleta& textos)
{
    valores.push_back({QStringLiteral("TipoPago"), QStringLiteral("PAGO DE ACTAS")});
    valores.push_back({QStringLiteral("Cuenta"), textos.concepto});
    valores.push_back(
        {QStringLiteral("Acta_Cuota"), QStringLiteral("ACTA Nº %1  -  CUOTA Nº %2").arg(textos.nroActa, textos.cuota)});
    valores.push_back({QStringLiteral("Importe"), boleta.importeActa});
}
} // namespace

ValoresDeInforme valoresDeBoleta(Conexion& conexion, const Boleta& boleta, const TextosDeBoleta& textos)
{
    constexpr QLatin1String sinLocalidad(" - () ");
    const QString domicilio =
        textos.domicilio.endsWith(sinLocalidad) ? textos.domicilio.chopped(sinLocalidad.size()) : textos.domicilio;
    const QString otros = boleta.dias == 0 ? QString() : QStringLiteral("INTERES %1 DIAS").arg(textos.dias);
    ValoresDeInforme valores{
        {QStringLiteral("Version"), conexion.consultar("SELECT * FROM Parametros").primera().texto("Version")},
        {QStringLiteral("CUIT"), boleta.cuit},
        {QStringLiteral("Domicilio"), domicilio},
        {QStringLiteral("Empresa"), textos.empresa},
        {QStringLiteral("ImporteTotal"), boleta.importeTotal},
        {QStringLiteral("Otros_Conceptos"), otros},
        {QStringLiteral("Interes"), boleta.interes},
        {QStringLiteral("BarCode"), StrToI2of5(textos.numero, false)},
        {QStringLiteral("BarNro"), textos.numero},
    };
    switch (boleta.tipo)
    {
    case TipoBoleta::Aportes:
        agregarPeriodo(valores, boleta, QStringLiteral("APORTE MENSUAL"));
        agregarAportes(valores, conexion, boleta);
        break;
    case TipoBoleta::Interes:
        agregarPeriodo(valores, boleta, QStringLiteral("INTERES APORTE"));
        break;
    case TipoBoleta::Acta:
        agregarActa(valores, boleta, textos);
        break;
    }
    valores.push_back({QStringLiteral("Fecha"), boleta.fecha});
    valores.push_back({QStringLiteral("FuenteDeBarras"), qint64{textos.hayFuente ? 1 : 0}});
    return valores;
}

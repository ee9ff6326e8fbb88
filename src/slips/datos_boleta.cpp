#include "slips/datos_boleta.h"

#include "base/db/conexion.h"
#include "core/domicilio.h"
#include "core/rutinas.h"
#include "core/vigencia.h"
#include "slips/numero_boleta.h"

namespace
{
/// Some employees of a declaration and what they earn.
struct Personal
{
    qint64 empleados = 0;
    Moneda remuneracion;
};

void agregarPeriodo(ValoresDeInforme& valores, const Boleta& boleta, const QString& tipoPago)
{
    valores.insert(valores.end(), {{QStringLiteral("TipoPago"), tipoPago},
                                   {QStringLiteral("Periodo"), boleta.declaracion.periodo.toString(u"yyyy/MM")},
                                   {QStringLiteral("Secuencia"), qint64{boleta.declaracion.secuencia}}});
}

void agregarAportes(ValoresDeInforme& valores, Conexion& conexion, const Boleta& boleta)
{
    const ClaveDDJJ& clave = boleta.declaracion;
    const Personal todos = conexion.primera(
        "SELECT Sum(Imponible) AS RemImponible, Count(Cuil) AS SumEmpleados, Sum(Acuerdo) AS SumAcuerdo, "
        "Sum(Acuerdo2) AS SumAcuerdo2 FROM DDJJ_Empleados WHERE CUIT = ? AND Periodo = ? AND Secuencia = ?",
        [](const Fila& fila)
        {
            return Personal{fila.entero("SumEmpleados"),
                            fila.moneda("RemImponible") + fila.moneda("SumAcuerdo") + fila.moneda("SumAcuerdo2")};
        },
        boleta.cuit, clave.periodo, clave.secuencia);
    // Of the members only the taxable remuneration counts, without the agreement sums.
    const Personal afiliados = conexion.primera(
        "SELECT Sum(Imponible) AS RemImponible, Count(Cuil) AS SumEmpleados FROM DDJJ_Empleados "
        "WHERE CUIT = ? AND Periodo = ? AND Secuencia = ? AND Afiliado = 1",
        [](const Fila& fila)
        {
            const qint64 cantidad = fila.entero("SumEmpleados");
            return Personal{cantidad, cantidad == 0 ? Moneda() : fila.moneda("RemImponible")};
        },
        boleta.cuit, clave.periodo, clave.secuencia);
    valores.insert(valores.end(), {{QStringLiteral("Aporte_2"), boleta.art100},
                                   {QStringLiteral("Aporte_1A"), boleta.art101A},
                                   {QStringLiteral("Aporte_1B"), boleta.art101B},
                                   {QStringLiteral("Empleados_2"), todos.empleados},
                                   {QStringLiteral("Remuneracion_2"), todos.remuneracion},
                                   {QStringLiteral("Empleados_1"), afiliados.empleados},
                                   {QStringLiteral("Remuneracion_1"), afiliados.remuneracion}});
}

void agregarActa(ValoresDeInforme& valores, const Boleta& boleta, const TextosDeBoleta& textos)
{
    const QString acta = QStringLiteral("ACTA Nº %1  -  CUOTA Nº %2").arg(textos.nroActa, textos.cuota);
    valores.insert(valores.end(), {{QStringLiteral("TipoPago"), QStringLiteral("PAGO DE ACTAS")},
                                   {QStringLiteral("Cuenta"), textos.concepto},
                                   {QStringLiteral("Acta_Cuota"), acta},
                                   {QStringLiteral("Importe"), boleta.importeActa}});
}
} // namespace

EmpresaDeBoleta empresaDeBoleta(Conexion& conexion, const QString& cuit)
{
    if (!cuit.isEmpty())
    {
        exigirEmpresa(conexion, cuit);
    }
    return conexion.primera(
        "SELECT * FROM Empresas WHERE CUIT = ?",
        [](const Fila& fila)
        {
            return EmpresaDeBoleta{fila.texto("Razon"),
                                   QStringLiteral("%1 - (%2) %3")
                                       .arg(domicilioDeEmpresa(fila), fila.texto("CodPos"), fila.texto("Localidad"))};
        },
        cuit);
}

ValoresDeInforme valoresDeBoleta(Conexion& conexion, const Boleta& boleta, const TextosDeBoleta& textos)
{
    constexpr QLatin1String sinLocalidad(" - () ");
    const QString domicilio =
        textos.domicilio.endsWith(sinLocalidad) ? textos.domicilio.chopped(sinLocalidad.size()) : textos.domicilio;
    const QString otros = boleta.dias == 0 ? QString() : QStringLiteral("INTERES %1 DIAS").arg(textos.dias);
    ValoresDeInforme valores{
        {QStringLiteral("Version"), Rutinas::VersionDe(conexion)},
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
    valores.insert(valores.end(), {{QStringLiteral("Fecha"), boleta.fecha},
                                   {QStringLiteral("FuenteDeBarras"), qint64{textos.hayFuente ? 1 : 0}}});
    return valores;
}

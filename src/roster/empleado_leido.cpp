#include "roster/empleado_leido.h"

#include "base/db/conexion.h"
#include "base/numbers/formato.h"

namespace
{
QString fecha(QDate una)
{
    return una.toString(u"dd/MM/yyyy");
}

QString nombreDeSexo(std::optional<int> sexo)
{
    return !sexo ? QString() : *sexo == 0 ? QStringLiteral("Femenino") : QStringLiteral("Masculino");
}

std::vector<CampoMostrado> camposDe(Conexion& conexion, const QString& cuit, const Empleado& e)
{
    const QString sucursal = textoSucursal(conexion, e.sucursal, cuit).value_or(QString::number(e.sucursal));
    return {
        {QStringLiteral("Apellido y Nombre"), e.ayn},
        {QStringLiteral("Tipo y Nro. Documento"),
         e.documento.value_or(QString()) + QLatin1Char(' ') + QString::number(e.nroDoc)},
        {QStringLiteral("Sexo"), nombreDeSexo(e.sexo)},
        {QStringLiteral("Fecha de Nacimiento"), fecha(e.nacio)},
        {QStringLiteral("Domicilio - Calle"), e.calle},
        {QStringLiteral("Nro."), QString::number(e.numero)},
        {QStringLiteral("Piso"), e.piso},
        {QStringLiteral("Depto"), e.depto},
        {QStringLiteral("Localidad"), e.localidad},
        {QStringLiteral("Cód.Postal"), e.codPos},
        {QStringLiteral("Provincia"), e.provincia.value_or(QString())},
        {QStringLiteral("Teléfono"), e.telefono},
        {QStringLiteral("Estado Civil"), e.estadoCivil.value_or(QString())},
        {QStringLiteral("Fecha de Ingreso"), fecha(e.ingreso)},
        {QStringLiteral("Categoría"), e.categoria.value_or(QString())},
        {QStringLiteral("Jornada Mensual Laboral"), QString::number(e.qHoras)},
        {QStringLiteral("Fecha de Egreso"), fecha(e.egreso)},
        {QStringLiteral("Sucursal"), sucursal},
        {QStringLiteral("Total de Haberes"), sinMiles(e.imponible)},
        {QStringLiteral("Acuerdo Colectivo Vigente"), sinMiles(e.acuerdo)},
        {QStringLiteral("Turismo y Rec."), e.afiliado ? QStringLiteral("Sí") : QStringLiteral("No")},
    };
}

std::vector<FilaMostrada> filasDe(const std::vector<FilaFamiliar>& familia)
{
    std::vector<FilaMostrada> filas;
    for (const FilaFamiliar& uno : familia)
    {
        const QString documento = uno.nroDoc ? QString::number(*uno.nroDoc) : QString();
        filas.push_back({0, {uno.familiar, uno.tipoDoc, documento, uno.ayn, uno.sexo, fecha(uno.nacio)}});
    }
    return filas;
}
} // namespace

std::optional<EmpleadoLeido> leerEmpleado(Conexion& conexion, const ClaveDDJJ& clave, const QString& cuil,
                                          AccionEmpleado accion)
{
    const auto empleado = cargarEmpleado(conexion, clave, accion, cuil);
    if (!empleado)
    {
        return std::nullopt;
    }
    return EmpleadoLeido{*empleado, cargarFamiliares(conexion, empleado->cuil)};
}

Cambios cambiosEnEmpleado(Conexion& conexion, const QString& cuit, const EmpleadoLeido& antes,
                          const EmpleadoLeido& ahora)
{
    Cambios cambios =
        compararCampos(camposDe(conexion, cuit, antes.empleado), camposDe(conexion, cuit, ahora.empleado));
    const Cambios familia = compararFilas(QStringLiteral("Familiares"), filasDe(antes.familia), filasDe(ahora.familia));
    cambios.insert(cambios.end(), familia.begin(), familia.end());
    return cambios;
}

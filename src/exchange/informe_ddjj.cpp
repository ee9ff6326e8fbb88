#include "exchange/informe_ddjj.h"

#include "base/db/conexion.h"
#include "core/domicilio.h"

namespace
{
void prepararDeclaracion(Conexion& conexion, const ClaveDDJJ& clave, qint64 indice)
{
    conexion.ejecutar("INSERT INTO RptEmpleados (Indice, Tipo, Sucursal_Cod, AyN, Cuil, Ingreso, Categoria, QHoras, "
                      "Imponible, Art100, Art101A, Art101B, Egreso, Acuerdo, Acuerdo2) "
                      "SELECT ?, 0, Sucursal, AyN, Cuil, Ingreso, Categorias.Nombre, QHoras, "
                      "Imponible, ART100, ART101A, ART101B, Egreso, Acuerdo, Acuerdo2 FROM DDJJ_Empleados "
                      "LEFT JOIN Categorias ON DDJJ_Empleados.Categoria = Categorias.Codigo "
                      "WHERE Cuit = ? AND Periodo = ? AND Secuencia = ?",
                      indice, clave.cuit, clave.periodo, clave.secuencia);
    // From the branch's ID to its code.
    conexion.ejecutar("UPDATE RptEmpleados SET Sucursal = Sucursales.Sucursal FROM Empresas_Sucursales AS Sucursales "
                      "WHERE RptEmpleados.Sucursal_Cod = Sucursales.ID AND RptEmpleados.Indice = ?",
                      indice);
    conexion.ejecutar("INSERT INTO RptEmpleados (Indice, Tipo, Sucursal, Calle, Numero, CodPos, Localidad, Telefono) "
                      "SELECT ?, 1, Sucursal, Domicilio, Numero, CodPos, Localidad, Telefono FROM Empresas_Sucursales "
                      "WHERE Cuit = ? ORDER BY Localidad, Domicilio, Numero",
                      indice, clave.cuit);
}

void prepararIncompletos(Conexion& conexion, const ClaveDDJJ& clave, qint64 indice)
{
    // A Null document number is compared and not tested for Null, so it does not count as missing.
    conexion.ejecutar(
        "INSERT INTO RptEmpleados (Indice, Tipo, AyN, Cuil, TipoDoc, NroDoc, Sexo, Nacio, EstCivil, Categoria, "
        "Ingreso) SELECT ?, NULL, ifnull(AyN, ''), Cuil, Documentos.Nombre, NroDoc, Sexo, Nacio, EstadoCivil.Nombre, "
        "Categorias.Nombre, Ingreso FROM DDJJ_Empleados "
        "LEFT JOIN Categorias ON DDJJ_Empleados.Categoria = Categorias.Codigo "
        "LEFT JOIN Documentos ON DDJJ_Empleados.TipoDoc = Documentos.Codigo "
        "LEFT JOIN EstadoCivil ON DDJJ_Empleados.EstCivil = EstadoCivil.Codigo "
        "WHERE CUIT = ? AND Periodo = ? AND Secuencia = ? "
        "AND (Documentos.Nombre IS NULL OR NroDoc = 0 OR Sexo IS NULL OR Nacio IS NULL OR EstadoCivil.Nombre IS NULL "
        "OR Categorias.Nombre IS NULL OR Ingreso IS NULL) ORDER BY Cuil",
        indice, clave.cuit, clave.periodo, clave.secuencia);
}

QString entreParentesis(const QString& texto)
{
    return QLatin1Char('(') + texto + QLatin1Char(')');
}
} // namespace

bool hayNomina(Conexion& conexion, const ClaveDDJJ& clave)
{
    return conexion.hay("SELECT 1 FROM DDJJ_Empleados WHERE CUIT = ? AND Periodo = ? AND Secuencia = ?", clave.cuit,
                        clave.periodo, clave.secuencia);
}

void crearPreparacion(Conexion& conexion)
{
    (void)conexion.preparar("SELECT * FROM main.RptEmpleados"); // a base without the table is told as one
    QString tabla = conexion.primera(
        "SELECT sql FROM main.sqlite_schema WHERE type = 'table' AND name = 'RptEmpleados' COLLATE NOCASE",
        [](const Fila& fila) { return fila.texto("sql"); });
    constexpr QLatin1String crear("CREATE TABLE");
    conexion.ejecutar("PRAGMA temp_store = MEMORY");
    conexion.ejecutar(tabla.replace(0, crear.size(), QStringLiteral("CREATE TEMP TABLE")).toStdString());
}

void prepararInforme(Conexion& conexion, const ClaveDDJJ& clave, qint64 indice, InformeDDJJ cual)
{
    Transaccion transaccion(conexion);
    if (cual == InformeDDJJ::Declaracion)
    {
        prepararDeclaracion(conexion, clave, indice);
    }
    else
    {
        prepararIncompletos(conexion, clave, indice);
    }
    transaccion.confirmar();
}

ValoresDeInforme valoresDeInforme(const Fila& empresa, const ClaveDDJJ& clave, qint64 indice, const QString& mes,
                                  const QString& anio, InformeDDJJ cual)
{
    ValoresDeInforme valores{
        {QStringLiteral("Indice"), indice},   {QStringLiteral("Empresa"), empresa.texto("Razon")},
        {QStringLiteral("CUIT"), clave.cuit}, {QStringLiteral("Mes"), mes},
        {QStringLiteral("Anio"), anio},
    };
    if (cual != InformeDDJJ::Declaracion)
    {
        return valores;
    }
    const auto agregar = [&](const char* nombre, const QString& texto) {
        valores.push_back({QString::fromLatin1(nombre), texto});
    };
    agregar("Domicilio", domicilioDeEmpresa(empresa));
    agregar("Localidad", entreParentesis(empresa.texto("CodPos")) + QLatin1Char(' ') + empresa.texto("Localidad"));
    agregar("Telefono", empresa.texto("Telefono"));
    agregar("Actividad", empresa.texto("Nombre"));
    agregar("EMail", empresa.texto("Email"));
    agregar("Estudio", empresa.texto("Estudio"));
    agregar("Estudio_Domicilio", empresa.texto("Est_Domicilio"));
    agregar("Estudio_CodPos", entreParentesis(empresa.texto("Est_CodPos")));
    agregar("Estudio_Localidad", empresa.texto("Est_Localidad"));
    agregar("Estudio_Telefono", empresa.texto("Est_Telefono"));
    agregar("Estudio_EMail", empresa.texto("Est_EMail"));
    return valores;
}

QString archivoDeInforme(InformeDDJJ cual)
{
    return cual == InformeDDJJ::DatosIncompletos ? QStringLiteral("RptDDJJ_Incompleto.rpt")
                                                 : QStringLiteral("RptDDJJ.rpt");
}

#include "maintenance/esquema.h"

#include "base/db/conexion.h"
#include "base/error_de_ejecucion.h"
#include "core/versiones.h"

#include <QSet>
#include <QStringList>

namespace
{
struct Tabla
{
    const char* nombre;
    const char* columnas; ///< at version 1.0
};

constexpr Tabla tablas[] = {
    {"Parametros", "Version Indice EMail Bak_Carpeta Bak_Fecha Bak_Hora"},
    {"Provincias", "Codigo Nombre"},
    {"Documentos", "Codigo Nombre"},
    {"Categorias", "Codigo Nombre"},
    {"Familiar", "Codigo Nombre"},
    {"EstadoCivil", "Codigo Nombre"},
    {"Rubros", "Codigo Nombre"},
    {"Empresas", "CUIT Razon Fantasia Calle Numero NroLocal Piso Depto CodPos Localidad Provincia Telefono Fax Rubro "
                 "Contacto Web Email Estudio Est_Domicilio Est_CodPos Est_Localidad Est_Telefono Est_EMail"},
    {"Empresas_Sucursales", "ID CUIT Sucursal Domicilio Numero CodPos Localidad Telefono Marca"},
    {"Empresas_Responsables", "CUIT AyN Domicilio Localidad TipoDoc NroDoc"},
    {"DDJJ", "Cuit Periodo Secuencia Fecha"},
    {"DDJJ_Empleados", "Cuit Periodo Secuencia Cuil AyN TipoDoc NroDoc Sexo Calle Numero Piso Depto CodPos Localidad "
                       "Provincia Telefono Nacio EstCivil Afiliado Sueldo Imponible Categoria Ingreso Egreso Sucursal "
                       "QHoras ART100 ART101A ART101B Familiares"},
    {"Empleados_Familiares", "CUIL Familiar AyN TipoDoc NroDoc Sexo Nacio"},
    {"PAGOS",
     "Pago Cuit Tipo Periodo Secuencia Fecha Art100 Art101A Art101B Dias Interes Importe NroActa Cuota Cuenta"},
    {"RptEmpleados", "Indice Tipo Sucursal_Cod Sucursal AyN Cuil TipoDoc NroDoc Sexo Nacio EstCivil Categoria Ingreso "
                     "Egreso QHoras Imponible Art100 Art101A Art101B Calle Numero CodPos Localidad Telefono"},
};

[[noreturn]] void falta(const QString& que)
{
    throw ErrorDeEjecucion(ErrorDeEjecucion::NoEsBase,
                           QStringLiteral("El archivo no es una base de datos de este programa: falta ") + que);
}

void exigirColumnas(Conexion& conexion, const QString& tabla, const QStringList& columnas)
{
    QSet<QString> halladas;
    conexion.recorrer(
        "SELECT c.name AS n FROM sqlite_schema t, pragma_table_info(t.name) c "
        "WHERE t.type = 'table' AND t.name = ? COLLATE NOCASE",
        [&](const Fila& fila) { halladas.insert(fila.texto("n").toLower()); }, tabla);
    if (halladas.isEmpty())
    {
        falta(QStringLiteral("la tabla ") + tabla);
    }
    for (const QString& columna : columnas)
    {
        if (!halladas.contains(columna.toLower()))
        {
            falta(QStringLiteral("la columna ") + tabla + QLatin1Char('.') + columna);
        }
    }
}
} // namespace

void exigirEsquema(const QString& ruta)
{
    Conexion conexion;
    conexion.abrir(ruta, Conexion::Modo::SoloLectura);
    for (const Tabla& tabla : tablas)
    {
        exigirColumnas(conexion, QString::fromLatin1(tabla.nombre), QString::fromLatin1(tabla.columnas).split(u' '));
    }
    const auto version =
        conexion.una("SELECT Version FROM Parametros", [](const Fila& fila) { return fila.texto("Version"); });
    if (!version)
    {
        falta(QStringLiteral("la fila de Parametros"));
    }
    // A version that is not known counts as the newest.
    QStringList sumas = {QStringLiteral("Acuerdo"), QStringLiteral("Acuerdo2")};
    sumas.resize(*version == versiones::inicial ? 0 : *version == versiones::conAcuerdo ? 1 : 2);
    exigirColumnas(conexion, QStringLiteral("DDJJ_Empleados"), sumas);
    exigirColumnas(conexion, QStringLiteral("RptEmpleados"), sumas);
}

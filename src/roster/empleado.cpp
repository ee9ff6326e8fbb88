#include "roster/empleado.h"

#include "base/db/conexion.h"
#include "core/domicilio.h"

#include <string>

namespace
{
constexpr const char* consultaBase =
    "SELECT DDJJ_Empleados.*, Documentos.Nombre AS Nombre_DOC, Provincias.Nombre AS Nombre_PRO, "
    "EstadoCivil.Nombre AS Nombre_EST, Categorias.Nombre AS Nombre_CAT FROM DDJJ_Empleados "
    "LEFT JOIN Documentos ON DDJJ_Empleados.TipoDoc = Documentos.Codigo "
    "LEFT JOIN Provincias ON DDJJ_Empleados.Provincia = Provincias.Codigo "
    "LEFT JOIN EstadoCivil ON DDJJ_Empleados.EstCivil = EstadoCivil.Codigo "
    "LEFT JOIN Categorias ON DDJJ_Empleados.Categoria = Categorias.Codigo "
    "WHERE DDJJ_Empleados.Cuit = ? AND DDJJ_Empleados.Periodo = ? AND DDJJ_Empleados.Secuencia = ?";
constexpr const char* ascendente = " ORDER BY DDJJ_Empleados.Cuil";
constexpr const char* descendente = " ORDER BY DDJJ_Empleados.Cuil DESC";

std::optional<int> sexo(const Fila& fila)
{
    const std::optional<qint64> valor = fila.enteroONulo("Sexo");
    return valor == 0 || valor == 1 ? std::optional(static_cast<int>(*valor)) : std::nullopt;
}

Empleado leer(const Fila& fila)
{
    Empleado e;
    e.cuil = fila.texto("Cuil");
    e.ayn = fila.texto("AyN");
    e.documento = fila.textoONulo("Nombre_DOC");
    e.nroDoc = fila.entero("NroDoc");
    e.sexo = sexo(fila);
    e.nacio = fila.fecha("Nacio");
    e.calle = fila.texto("Calle");
    e.numero = fila.entero("Numero");
    e.piso = fila.texto("Piso");
    e.depto = fila.texto("Depto");
    e.localidad = fila.texto("Localidad");
    e.codPos = fila.texto("CodPos");
    e.provincia = fila.textoONulo("Nombre_PRO");
    e.telefono = fila.texto("Telefono");
    e.estadoCivil = fila.textoONulo("Nombre_EST");
    e.categoria = fila.textoONulo("Nombre_CAT");
    e.ingreso = fila.fecha("Ingreso");
    e.egreso = fila.fecha("Egreso");
    e.qHoras = static_cast<int>(fila.entero("QHoras"));
    e.sucursal = fila.entero("Sucursal");
    e.afiliado = fila.si("Afiliado");
    e.imponible = fila.moneda("Imponible");
    e.acuerdo = fila.moneda("Acuerdo") + fila.moneda("Acuerdo2");
    e.art100 = fila.moneda("ART100");
    e.art101A = fila.moneda("ART101A");
    e.art101B = fila.moneda("ART101B");
    return e;
}

QString leerSucursal(const Fila& fila)
{
    const QString separador = QStringLiteral(" - ");
    return fila.texto("Sucursal") + separador + domicilioDeSucursal(fila) + separador + fila.texto("Localidad");
}
} // namespace

std::optional<Empleado> cargarEmpleado(Conexion& conexion, const ClaveDDJJ& clave, AccionEmpleado accion,
                                       const QString& cuil)
{
    const auto buscar = [&](const std::string& sql, const auto&... limite)
    { return conexion.una(sql, leer, clave.cuit, clave.periodo, clave.secuencia, limite...); };

    const std::string base = consultaBase;
    switch (accion)
    {
    case AccionEmpleado::Anterior:
        return buscar(base + " AND DDJJ_Empleados.Cuil < ?" + descendente, cuil);
    case AccionEmpleado::Siguiente:
        return buscar(base + " AND DDJJ_Empleados.Cuil > ?" + ascendente, cuil);
    case AccionEmpleado::Buscado:
        return buscar(base + " AND DDJJ_Empleados.Cuil = ?" + ascendente, cuil);
    case AccionEmpleado::Ultimo:
        return buscar(base + descendente);
    case AccionEmpleado::Primero:
    case AccionEmpleado::Inicio:
        break;
    }
    return buscar(base + ascendente);
}

LugarEnNomina lugarEnNomina(Conexion& conexion, const ClaveDDJJ& clave, const QString& cuil)
{
    return conexion.primera(
        "SELECT Count(CASE WHEN Cuil <= ? THEN 1 END) AS Lugar, Count(*) AS Total "
        "FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND Secuencia = ?",
        [](const Fila& fila) {
            return LugarEnNomina{fila.entero("Lugar"), fila.entero("Total")};
        },
        cuil, clave.cuit, clave.periodo, clave.secuencia);
}

std::optional<QString> textoSucursal(Conexion& conexion, qint64 id, const QString& cuit)
{
    return id == 0
               ? QString()
               : conexion.una("SELECT * FROM Empresas_Sucursales WHERE ID = ? AND Cuit = ?", leerSucursal, id, cuit);
}

std::optional<QString> textoSucursal(Conexion& conexion, qint64 id)
{
    return conexion.una("SELECT * FROM Empresas_Sucursales WHERE ID = ?", leerSucursal, id);
}

EmpleadoEliminado::EmpleadoEliminado(const QString& cuil)
    : YaNoEsta(QStringLiteral("El Empleado %1 ya no se encuentra en la Declaración Jurada: fue eliminado desde otra "
                              "ventana u otro puesto.  No se ha grabado ningún dato.")
                   .arg(cuil))
{
}

void eliminarEmpleado(Conexion& conexion, const ClaveDDJJ& clave, const QString& cuil)
{
    Transaccion transaccion(conexion);
    exigirDeclaracion(conexion, clave);
    if (conexion.ejecutar("DELETE FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND Secuencia = ? AND Cuil = ?",
                          clave.cuit, clave.periodo, clave.secuencia, cuil) == 0)
    {
        throw EmpleadoEliminado(cuil);
    }
    transaccion.confirmar();
}

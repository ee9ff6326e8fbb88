#include "fallos/base_grande.h"

#include "platform/data/error_de_ejecucion.h"

#include <QCryptographicHash>

void llenarBase(Conexion& conexion, int empleados, int sueldo)
{
    Transaccion transaccion(conexion);
    agregar(conexion, EmpresaDePrueba{});
    agregar(conexion, DeclaracionDePrueba{});
    conexion.ejecutar("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
                      "INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN, TipoDoc, NroDoc, Imponible, "
                      "QHoras, Calle) SELECT ?, ?, 0, printf('20-%08d-0', i), printf('Empleado de prueba %d', i), 1, "
                      "i, ?, 200, 'Calle de nombre largo' FROM n",
                      empleados, dePrueba::cuit, dePrueba::periodo, Moneda::deEntero(sueldo));
    transaccion.confirmar();
}

QByteArray contenidoDe(Conexion& conexion)
{
    QCryptographicHash resumen(QCryptographicHash::Md5);
    const Recordset tablas = conexion.consultar("SELECT name AS Tabla, sql AS Orden FROM sqlite_schema "
                                                "WHERE type = 'table' OR sql IS NOT NULL ORDER BY name");
    for (const Fila& tabla : tablas)
    {
        resumen.addData(tabla.texto("Orden").toUtf8());
    }
    for (const Fila& tabla : tablas)
    {
        const QString nombre = tabla.texto("Tabla");
        if (!tabla.texto("Orden").startsWith(QLatin1String("CREATE TABLE")))
        {
            continue;
        }
        conexion.recorrer((QStringLiteral("SELECT * FROM ") + nombre).toStdString(),
                          [&](const Fila& fila)
                          {
                              for (int i = 0; i < fila.columnas(); ++i)
                              {
                                  const char* columna = fila.nombre(i);
                                  resumen.addData(fila.esNulo(columna) ? "\x01" : fila.texto(columna).toUtf8());
                                  resumen.addData("\x02");
                              }
                          });
    }
    return resumen.result().toHex();
}

QString problemaDeLaBase()
{
    try
    {
        Rutinas::AbrirBase();
        const QString hallado =
            Rutinas::Conexion.consultar("PRAGMA integrity_check").primera().texto("integrity_check");
        Rutinas::CerrarBase();
        return hallado == QLatin1String("ok") ? QString() : hallado;
    }
    catch (const ErrorDeEjecucion& error)
    {
        return QStringLiteral("%1 - %2").arg(error.numero()).arg(error.descripcion());
    }
}

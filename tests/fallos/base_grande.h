#pragma once

#include "apoyo/base_de_prueba.h"
#include "apoyo/datos.h"
#include "roster/guardar_empleado.h"

/// Fills the open database with a company, a declaration and `empleados` employees, about 150 bytes each.
inline void llenarBase(int empleados)
{
    Conexion& conexion = Rutinas::Conexion;
    Transaccion transaccion(conexion);
    poner("Empresas");
    poner("DDJJ");
    conexion.ejecutar("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
                      "INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN, TipoDoc, NroDoc, Imponible, "
                      "QHoras, Calle) SELECT Cuit, Periodo, Secuencia, printf('20-%08d-0', i), "
                      "printf('Empleado de prueba %d', i), 1, i, 10000000, 200, 'Calle de nombre largo' FROM n, DDJJ",
                      empleados);
    transaccion.confirmar();
}

/// An employee as the screen gives him to the save.
[[nodiscard]] inline EntradaEmpleado entrada(const QString& cuil, int sueldo, bool nuevo)
{
    EntradaEmpleado e;
    e.nuevo = nuevo;
    e.cuil = cuil;
    e.ayn = QStringLiteral("Guardado ") + cuil;
    e.tipoDoc = 1;
    e.documento = QStringLiteral("12345678");
    e.qHoras = QStringLiteral("200");
    e.haberes = QString::number(sueldo);
    return e;
}

/// What the database says, and not how it lies in the file: its schema and all rows of all tables.
[[nodiscard]] inline std::string contenidoDe()
{
    std::string todo = filas("SELECT sql FROM sqlite_schema ORDER BY name");
    Rutinas::Conexion.recorrer("SELECT name FROM sqlite_schema WHERE type = 'table'", [&](const Fila& tabla)
                               { todo += filas("SELECT * FROM " + tabla.texto("name").toStdString()); });
    return todo;
}

/// A number that the variable of this name changes, so that runs can be longer or other ones.
[[nodiscard]] inline int pedido(const char* variable, int sinElla)
{
    return qEnvironmentVariableIsSet(variable) ? qEnvironmentVariableIntValue(variable) : sinElla;
}

/// A tax agency's file of so many people.
[[nodiscard]] inline QByteArray nominaDe(int personas)
{
    QByteArray lineas;
    for (int i = 0; i < personas; ++i)
    {
        lineas += QByteArray::number(20'900'000'000 + i) + "Importado                     T02" + QByteArray(13, ' ') +
                  "001" + QByteArray(9, ' ') + "       1000       1000\r\n";
    }
    return lineas;
}

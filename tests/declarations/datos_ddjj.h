#pragma once

#include "apoyo/base_de_prueba.h"
#include "core/clave_ddjj.h"
#include "platform/data/conexion.h"

#include <optional>

/// One roster row as the tests need it: complete and of a full working day unless told otherwise.
struct EmpleadoBreve
{
    const char* cuil = "20-12345678-6";
    bool afiliado = true;
    const char* imponible = "0"; ///< amounts as typed, comma decimals
    const char* acuerdo = "0";
    const char* acuerdo2 = "0";
    const char* art100 = "0";
    const char* art101a = "0";
    const char* art101b = "0";
    int familiares = 0;
    std::optional<int> horas = 200;
};

extern const QString cuitUno; ///< "30-12345678-1"
extern const QString cuitDos; ///< "30-87654321-5"

void agregarEmpresa(Conexion& conexion, const QString& cuit, const QString& razon);
void agregarDeclaracion(Conexion& conexion, const ClaveDDJJ& clave, QDate fecha = QDate(2009, 6, 3));
void agregarEmpleado(Conexion& conexion, const ClaveDDJJ& clave, const EmpleadoBreve& empleado = {});
[[nodiscard]] qint64 contar(Conexion& conexion, const char* tabla);

#include "declarations/totales_ddjj.h"

#include "base/db/conexion.h"
#include "base/error_de_ejecucion.h"
#include "core/vigencia.h"

#include <limits>

namespace
{
qint16 sumarCantidad(qint16 a, qint64 b)
{
    const qint64 suma = a + b;
    if (suma > std::numeric_limits<qint16>::max() || suma < std::numeric_limits<qint16>::min())
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::Desbordamiento);
    }
    return static_cast<qint16>(suma);
}

void agregar(SumaDePersonal& suma, const Fila& grupo)
{
    suma.remuneracion += grupo.moneda("RemImponible") + grupo.moneda("SumAcuerdo") + grupo.moneda("SumAcuerdo2");
    suma.familiares = sumarCantidad(suma.familiares, grupo.entero("SumFamiliares"));
    suma.empleados = sumarCantidad(suma.empleados, grupo.entero("SumEmpleados"));
}

std::optional<SumasDDJJ> sumarGrupos(Conexion& conexion, const ClaveDDJJ& clave)
{
    std::optional<SumasDDJJ> sumas;
    conexion.recorrer(
        "SELECT Afiliado, Sum(Imponible) AS RemImponible, Sum(Familiares) AS SumFamiliares, "
        "Count(Cuil) AS SumEmpleados, Sum(ART100) AS SumArt100, Sum(ART101A) AS SumART101A, "
        "Sum(ART101B) AS SumART101B, Sum(Acuerdo) AS SumAcuerdo, Sum(Acuerdo2) AS SumAcuerdo2 "
        "FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND Secuencia = ? GROUP BY Afiliado",
        [&](const Fila& grupo)
        {
            if (!sumas)
            {
                sumas.emplace();
            }
            agregar(sumas->todos, grupo);
            if (grupo.si("Afiliado"))
            {
                agregar(sumas->afiliados, grupo);
            }
            sumas->art100 += grupo.moneda("SumArt100");
            sumas->art101a += grupo.moneda("SumART101A");
            sumas->art101b += grupo.moneda("SumART101B");
        },
        clave.cuit, clave.periodo, clave.secuencia);
    return sumas;
}

qint64 contados(const Fila& fila)
{
    return fila.entero("QCuil");
}
} // namespace

TotalesDDJJ calcularTotales(Conexion& conexion, const ClaveDDJJ& clave)
{
    const auto fecha = conexion.una(
        "SELECT Fecha FROM DDJJ WHERE Cuit = ? AND Periodo = ? AND Secuencia = ?",
        [](const Fila& fila) { return fila.fecha("Fecha"); }, clave.cuit, clave.periodo, clave.secuencia);
    if (!fecha)
    {
        exigirDeclaracion(conexion, clave); // says which
        throw ErrorDeEjecucion(ErrorDeEjecucion::SinRegistro);
    }
    TotalesDDJJ totales;
    totales.fecha = *fecha;
    totales.sumas = sumarGrupos(conexion, clave);
    if (!totales.sumas)
    {
        return totales;
    }
    totales.incompletos =
        conexion.primera("SELECT Count(Cuil) AS QCuil FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? "
                         "AND Secuencia = ? AND (TipoDoc = 0 OR NroDoc = 0 OR Sexo IS NULL OR Nacio IS NULL "
                         "OR EstCivil = 0 OR Categoria = 0 OR Ingreso IS NULL)",
                         contados, clave.cuit, clave.periodo, clave.secuencia);
    // The whole month, whatever the sequence.
    totales.jornadaReducida = conexion.primera(
        "SELECT Count(Cuil) AS QCuil FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND QHoras <> 200", contados,
        clave.cuit, clave.periodo);
    return totales;
}

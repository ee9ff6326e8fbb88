#include "exchange/sumas_de_nomina.h"

#include "base/db/conexion.h"
#include "base/error_de_ejecucion.h"
#include "exchange/linea_de_nomina.h"

#include <limits>

namespace
{
constexpr qint64 mayorCantidad = std::numeric_limits<qint16>::max();

void contar(qint64& cuenta, qint64 mas, const char* campo)
{
    cuenta += mas;
    if (cuenta > mayorCantidad)
    {
        throw FallaDeCampo{ErrorDeEjecucion::Desbordamiento, campo};
    }
}

Moneda importeONada(const Fila& fila, const char* columna)
{
    return Moneda::deDiezMilesimos(fila.enteroONulo(columna).value_or(0));
}
} // namespace

SumasDeNomina::SumasDeNomina(Conexion& conexion, const ClaveDDJJ& clave)
{
    const auto agregarFila = [this](const Fila& fila)
    {
        agregar(fila.enteroONulo("Familiares").value_or(0),
                {importeONada(fila, "Imponible"), importeONada(fila, "Acuerdo"), importeONada(fila, "Acuerdo2"),
                 importeONada(fila, "ART100"), importeONada(fila, "ART101A"), importeONada(fila, "ART101B")});
    };
    try
    {
        conexion.recorrer("SELECT Familiares, Imponible, Acuerdo, Acuerdo2, ART100, ART101A, ART101B FROM "
                          "DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND Secuencia = ?",
                          agregarFila, clave.cuit, clave.periodo, clave.secuencia);
    }
    catch (const FallaDeCampo&)
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::Desbordamiento);
    }
}

void SumasDeNomina::agregar(qint64 familiares, std::initializer_list<Moneda> importes)
{
    contar(m_empleados, 1, "Cuil");
    contar(m_familiares, familiares, "Familiares");
    try
    {
        for (const Moneda importe : importes)
        {
            m_importes += importe < Moneda() ? -importe : importe;
        }
    }
    catch (const ErrorDeEjecucion&)
    {
        throw FallaDeCampo{ErrorDeEjecucion::Desbordamiento, "Imponible"};
    }
}

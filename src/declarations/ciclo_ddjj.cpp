#include "declarations/ciclo_ddjj.h"

#include "base/db/conexion.h"
#include "base/db/latido.h"
#include "core/vigencia.h"

namespace
{
constexpr int primerAnio = 2006;
constexpr int ultimoAnio = 9999; // what the field holds

void borrarNomina(Conexion& conexion, const ClaveDDJJ& clave)
{
    conexion.ejecutar("DELETE FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND Secuencia = ?", clave.cuit,
                      clave.periodo, clave.secuencia);
}
} // namespace

std::optional<QDate> proponerPeriodo(std::optional<QDate> ultimo)
{
    const QDate siguiente = ultimo ? ultimo->addMonths(1) : QDate();
    return siguiente.isValid() && siguiente.year() <= ultimoAnio ? std::optional(siguiente) : std::nullopt;
}

std::optional<RechazoDePeriodo> comprobarPeriodo(const QString& anio, const QString& mes)
{
    if (anio.isEmpty())
    {
        return RechazoDePeriodo{QStringLiteral("Debe ingresar el Año correspondiente a la Declaración Jurada."), false,
                                CampoDePeriodo::Anio};
    }
    if (const int numero = anio.toInt(); numero < primerAnio || numero > ultimoAnio)
    {
        return RechazoDePeriodo{QStringLiteral("Por favor verifique el Año ingresado.  El mismo no es Válido."), true,
                                CampoDePeriodo::Anio};
    }
    if (mes.isEmpty())
    {
        return RechazoDePeriodo{QStringLiteral("Debe ingresar el Mes correspondiente a la Declaración Jurada."), false,
                                CampoDePeriodo::Mes};
    }
    if (const int numero = mes.toInt(); numero < 1 || numero > 12)
    {
        return RechazoDePeriodo{QStringLiteral("Verifique el Mes ingresado.  El mismo es incorrecto."), false,
                                CampoDePeriodo::Mes};
    }
    return std::nullopt;
}

int crearDeclaracion(Conexion& conexion, const QString& cuit, QDate periodo, QDate hoy)
{
    Transaccion transaccion(conexion);
    exigirEmpresa(conexion, cuit);
    const std::optional<qint64> ultima = conexion.primera(
        "SELECT Max(Secuencia) AS UltSecuencia FROM DDJJ WHERE Cuit = ? AND Periodo = ?",
        [](const Fila& fila) { return fila.enteroONulo("UltSecuencia"); }, cuit, periodo);
    const int secuencia = ultima ? static_cast<int>(*ultima + 1) : 0;
    borrarNomina(conexion, {cuit, periodo, secuencia});
    conexion.ejecutar("INSERT INTO DDJJ (Cuit, Periodo, Secuencia, Fecha) VALUES (?, ?, ?, ?)", cuit, periodo,
                      secuencia, hoy);
    transaccion.confirmar();
    return secuencia;
}

void eliminarDeclaracion(Conexion& conexion, const ClaveDDJJ& clave, const Aviso& aviso)
{
    Transaccion transaccion(conexion);
    exigirDeclaracion(conexion, clave);
    conLatido(conexion, aviso, [&] { borrarNomina(conexion, clave); });
    conexion.ejecutar("DELETE FROM DDJJ WHERE Cuit = ? AND Periodo = ? AND Secuencia = ?", clave.cuit, clave.periodo,
                      clave.secuencia);
    transaccion.confirmar();
}

#include "roster/sueldos.h"

#include "platform/data/conexion.h"
#include "platform/data/error_de_ejecucion.h"
#include "platform/data/formato.h"
#include "roster/aportes.h"

namespace
{
float flotante(Moneda importe)
{
    return static_cast<float>(importe.aDoble());
}

Moneda sueldoMostrado(const Fila& fila)
{
    return fila.moneda("Imponible").redondeada(2);
}

Moneda acuerdoMostrado(const Fila& fila)
{
    return Moneda::deFlotante(double{flotante(fila.moneda("Acuerdo") + fila.moneda("Acuerdo2"))}).redondeada(2);
}

/// How a 32-bit float reaches the database: by its text of at most seven significant digits.
Moneda comoTexto(float valor)
{
    return Moneda::deTexto(TextoSimple(valor));
}

/// Writes a row if it changed; true when it did.
bool actualizarFila(Sentencia& leer, Sentencia& escribir, const ClaveDDJJ& clave, FilaSueldo& nueva)
{
    const Recordset guardada = leer.consultar(clave.cuit, clave.periodo, clave.secuencia, nueva.cuil);
    if (guardada.vacio())
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::SinRegistro,
                               QStringLiteral("El Empleado %1 ya no está en la Declaración Jurada.").arg(nueva.cuil));
    }
    const Fila fila = guardada.primera();
    if (sueldoMostrado(fila) == nueva.sueldo && acuerdoMostrado(fila) == nueva.acuerdo)
    {
        return false;
    }
    const float sueldo = flotante(nueva.sueldo);
    const float acuerdo = flotante(nueva.acuerdo);
    const Aportes aportes =
        aportesEnLote(sueldo, acuerdo, static_cast<int>(fila.entero("QHoras")), fila.si("Afiliado"));
    nueva.sueldo = comoTexto(sueldo);
    nueva.acuerdo = comoTexto(acuerdo);
    escribir.ejecutar(nueva.sueldo, comoTexto(aportes.art100), comoTexto(aportes.art101A), comoTexto(aportes.art101B),
                      nueva.acuerdo, clave.cuit, clave.periodo, clave.secuencia, nueva.cuil);
    return true;
}
} // namespace

std::vector<FilaSueldo> cargarSueldos(Conexion& conexion, const ClaveDDJJ& clave)
{
    std::vector<FilaSueldo> filas;
    conexion.recorrer(
        "SELECT DDJJ_Empleados.*, Categorias.Nombre AS Nombre_Cat FROM DDJJ_Empleados "
        "LEFT JOIN Categorias ON DDJJ_Empleados.Categoria = Categorias.Codigo "
        "WHERE DDJJ_Empleados.CUIT = ? AND DDJJ_Empleados.Periodo = ? AND DDJJ_Empleados.Secuencia = ? "
        "ORDER BY DDJJ_Empleados.Cuil",
        [&](const Fila& fila)
        {
            filas.push_back({fila.texto("Cuil"), fila.texto("AyN"), fila.texto("Nombre_Cat"), sueldoMostrado(fila),
                             acuerdoMostrado(fila)});
        },
        clave.cuit, clave.periodo, clave.secuencia);
    return filas;
}

int actualizarSueldos(Conexion& conexion, const ClaveDDJJ& clave, std::vector<FilaSueldo>& filas)
{
    std::vector<FilaSueldo> guardadas = filas;
    Transaccion transaccion(conexion);
    Sentencia leer = conexion.preparar("SELECT Imponible, Acuerdo, Acuerdo2, QHoras, Afiliado FROM DDJJ_Empleados "
                                       "WHERE CUIT = ? AND Periodo = ? AND Secuencia = ? AND Cuil = ?");
    Sentencia escribir = conexion.preparar("UPDATE DDJJ_Empleados SET Imponible = ?, ART100 = ?, ART101A = ?, "
                                           "ART101B = ?, Acuerdo = ?, Acuerdo2 = 0 "
                                           "WHERE CUIT = ? AND Periodo = ? AND Secuencia = ? AND Cuil = ?");
    int cantidad = 0;
    for (FilaSueldo& fila : guardadas)
    {
        cantidad += actualizarFila(leer, escribir, clave, fila) ? 1 : 0;
    }
    transaccion.confirmar();
    filas = std::move(guardadas);
    return cantidad;
}

QString textoActualizaciones(int cantidad)
{
    const bool una = cantidad == 1;
    return QStringLiteral("Se ha%1 realizado %2 Actualizaci%3.")
        .arg(una ? QString() : QStringLiteral("n"))
        .arg(cantidad)
        .arg(una ? QStringLiteral("ón") : QStringLiteral("ones"));
}

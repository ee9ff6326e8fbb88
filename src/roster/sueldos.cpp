#include "roster/sueldos.h"

#include "platform/data/conexion.h"
#include "platform/data/error_de_ejecucion.h"
#include "roster/aportes.h"

#include <optional>
#include <string>

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

/// A row as the database has it.
struct Guardada
{
    Moneda sueldo;
    Moneda acuerdo;
    std::optional<qint64> horas;
    bool afiliado = false;
};

std::optional<Guardada> leerFila(Sentencia& leer, std::string_view cuit, const ClaveDDJJ& clave, std::string_view cuil)
{
    std::optional<Guardada> guardada;
    leer.recorrer(
        [&](const Fila& fila) {
            guardada = {sueldoMostrado(fila), acuerdoMostrado(fila), fila.enteroONulo("QHoras"), fila.si("Afiliado")};
        },
        cuit, clave.periodo, clave.secuencia, cuil);
    return guardada;
}

/// Writes a row if it changed; true when it did.
bool actualizarFila(Sentencia& leer, Sentencia& escribir, std::string_view cuit, const ClaveDDJJ& clave,
                    FilaSueldo& nueva)
{
    const QByteArray utf8 = nueva.cuil.toUtf8();
    const std::string_view cuil(utf8.constData(), static_cast<std::size_t>(utf8.size()));
    const std::optional<Guardada> guardada = leerFila(leer, cuit, clave, cuil);
    if (!guardada)
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::SinRegistro,
                               QStringLiteral("El Empleado %1 ya no está en la Declaración Jurada.").arg(nueva.cuil));
    }
    if (guardada->sueldo == nueva.sueldo && guardada->acuerdo == nueva.acuerdo)
    {
        return false;
    }
    if (!guardada->horas)
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::UsoDeNull, QStringLiteral("QHoras"));
    }
    const float sueldo = flotante(nueva.sueldo);
    const float acuerdo = flotante(nueva.acuerdo);
    const Aportes aportes = aportesEnLote(sueldo, acuerdo, static_cast<int>(*guardada->horas), guardada->afiliado);
    nueva.sueldo = Moneda::deSimple(sueldo);
    nueva.acuerdo = Moneda::deSimple(acuerdo);
    escribir.ejecutar(nueva.sueldo, Moneda::deSimple(aportes.art100), Moneda::deSimple(aportes.art101A),
                      Moneda::deSimple(aportes.art101B), nueva.acuerdo, cuit, clave.periodo, clave.secuencia, cuil);
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
    const std::string cuit = clave.cuit.toStdString();
    int cantidad = 0;
    for (FilaSueldo& fila : guardadas)
    {
        cantidad += actualizarFila(leer, escribir, cuit, clave, fila) ? 1 : 0;
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

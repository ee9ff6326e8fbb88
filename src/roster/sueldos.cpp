#include "roster/sueldos.h"

#include "base/db/conexion.h"
#include "base/error_de_ejecucion.h"
#include "base/numbers/formato.h"
#include "companies/cambios.h"
#include "roster/aportes.h"
#include "roster/empleado.h"

#include <optional>
#include <string>

namespace
{
/// Rows between two calls of the progress.
constexpr std::size_t tramo = 64;

float flotante(Moneda importe)
{
    return static_cast<float>(importe.aDoble());
}

Moneda sueldoMostrado(const Fila& fila)
{
    return fila.moneda("Imponible").redondeada(2);
}

/// An agreement sum as the grid shows it: through a 32-bit float.
Moneda acuerdoMostrado(Moneda guardado)
{
    return Moneda::deFlotante(flotante(guardado)).redondeada(2);
}

Moneda acuerdoMostrado(const Fila& fila)
{
    return acuerdoMostrado(fila.moneda("Acuerdo") + fila.moneda("Acuerdo2"));
}

/// A row as the database has it.
struct Guardada
{
    Moneda sueldo;
    Moneda acuerdo;
    std::optional<qint64> horas;
    bool afiliado = false;
};

/// The statements of one update, and the declaration that they work on.
class Actualizacion
{
public:
    Actualizacion(Conexion& conexion, const ClaveDDJJ& clave)
        : m_leer(conexion.preparar("SELECT Imponible, Acuerdo, Acuerdo2, QHoras, Afiliado FROM DDJJ_Empleados "
                                   "WHERE CUIT = ? AND Periodo = ? AND Secuencia = ? AND Cuil = ?"))
        , m_escribir(conexion.preparar("UPDATE DDJJ_Empleados SET Imponible = ?, ART100 = ?, ART101A = ?, "
                                       "ART101B = ?, Acuerdo = ?, Acuerdo2 = 0 "
                                       "WHERE CUIT = ? AND Periodo = ? AND Secuencia = ? AND Cuil = ?"))
        , m_cuit(clave.cuit.toStdString())
        , m_clave(clave)
    {
    }

    /// Throws YaNoEsta when the row is not there.
    [[nodiscard]] Guardada leer(const QString& cuil)
    {
        const auto guardada = m_leer.una(
            [](const Fila& fila) {
                return Guardada{sueldoMostrado(fila), acuerdoMostrado(fila), fila.enteroONulo("QHoras"),
                                fila.si("Afiliado")};
            },
            m_cuit, m_clave.periodo, m_clave.secuencia, cuil);
        if (!guardada)
        {
            throw EmpleadoEliminado(cuil);
        }
        return *guardada;
    }

    /// Writes a row if it changed; true when it did.
    [[nodiscard]] bool escribir(const Guardada& guardada, FilaSueldo& nueva)
    {
        if (guardada.sueldo == nueva.sueldo && guardada.acuerdo == nueva.acuerdo)
        {
            return false;
        }
        if (!guardada.horas)
        {
            throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::UsoDeNull, QStringLiteral("QHoras"));
        }
        const float sueldo = flotante(nueva.sueldo);
        const float acuerdo = flotante(nueva.acuerdo);
        const Aportes aportes = aportesEnLote(sueldo, acuerdo, static_cast<int>(*guardada.horas), guardada.afiliado);
        nueva.sueldo = Moneda::deSimple(sueldo);
        nueva.acuerdo = Moneda::deSimple(acuerdo);
        m_escribir.ejecutar(nueva.sueldo, Moneda::deSimple(aportes.art100), Moneda::deSimple(aportes.art101A),
                            Moneda::deSimple(aportes.art101B), nueva.acuerdo, m_cuit, m_clave.periodo,
                            m_clave.secuencia, nueva.cuil);
        return true;
    }

private:
    Sentencia m_leer;
    Sentencia m_escribir;
    std::string m_cuit;
    ClaveDDJJ m_clave;
};

void agregarCambios(Cambios& cambios, const FilaSueldo& leida, const Guardada& guardada)
{
    const auto comparar = [&](const QString& campo, Moneda antes, Moneda ahora)
    {
        if (antes != ahora)
        {
            cambios.push_back({leida.ayn + QStringLiteral(", ") + campo, conMiles(antes), conMiles(ahora)});
        }
    };
    comparar(QStringLiteral("Sueldo"), leida.sueldo, guardada.sueldo);
    // What was saved last stands in the grid as it was written: both sides are compared as a reading shows them.
    comparar(QStringLiteral("Acuerdo"), acuerdoMostrado(leida.acuerdo), guardada.acuerdo);
}
} // namespace

std::vector<FilaSueldo> cargarSueldos(Conexion& conexion, const ClaveDDJJ& clave)
{
    return conexion.lista(
        "SELECT DDJJ_Empleados.*, Categorias.Nombre AS Nombre_Cat FROM DDJJ_Empleados "
        "LEFT JOIN Categorias ON DDJJ_Empleados.Categoria = Categorias.Codigo "
        "WHERE DDJJ_Empleados.CUIT = ? AND DDJJ_Empleados.Periodo = ? AND DDJJ_Empleados.Secuencia = ? "
        "ORDER BY DDJJ_Empleados.Cuil",
        [](const Fila& fila)
        {
            return FilaSueldo{fila.texto("Cuil"), fila.texto("AyN"), fila.texto("Nombre_Cat"), sueldoMostrado(fila),
                              acuerdoMostrado(fila)};
        },
        clave.cuit, clave.periodo, clave.secuencia);
}

int actualizarSueldos(Conexion& conexion, const ClaveDDJJ& clave, std::vector<FilaSueldo>& filas,
                      const std::vector<FilaSueldo>& leidas, const Aviso& aviso)
{
    std::vector<FilaSueldo> guardadas = filas;
    Transaccion transaccion(conexion);
    exigirDeclaracion(conexion, clave);
    Actualizacion actualizacion(conexion, clave);
    Cambios cambios;
    int cantidad = 0;
    for (std::size_t i = 0; i < guardadas.size(); ++i)
    {
        const Guardada guardada = actualizacion.leer(guardadas[i].cuil);
        if (!leidas.empty())
        {
            agregarCambios(cambios, leidas.at(i), guardada);
        }
        cantidad += actualizacion.escribir(guardada, guardadas[i]) ? 1 : 0;
        if (aviso && i % tramo == 0)
        {
            aviso(static_cast<qint64>(i), static_cast<qint64>(guardadas.size()));
        }
    }
    exigirSinCambios(std::move(cambios));
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

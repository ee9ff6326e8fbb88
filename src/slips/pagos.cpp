#include "slips/pagos.h"

#include "base/db/insertar.h"
#include "core/vigencia.h"

namespace
{
[[noreturn]] void avisarQueNoEsta()
{
    throw YaNoEsta(QStringLiteral("El Pago seleccionado ya no se encuentra en la Base: fue eliminado desde otra "
                                  "ventana u otro puesto."));
}
} // namespace

bool pagoRegistrado(Conexion& conexion, const Boleta& b)
{
    return conexion.hay(
        "SELECT 1 FROM PAGOS WHERE Cuit = ? AND Tipo = ? AND Fecha = ? AND Dias = ? AND Interes = ? AND Importe = ? "
        "AND (Tipo <> 0 OR (Periodo = ? AND Secuencia = ? AND Art100 = ? AND Art101A = ? AND Art101B = ?)) "
        "AND (Tipo <> 2 OR (NroActa = ? AND Cuota = ? AND Cuenta = ?))",
        b.cuit, static_cast<int>(b.tipo), b.fecha, b.dias, b.interes, b.importeTotal, b.declaracion.periodo,
        b.declaracion.secuencia, b.art100, b.art101A, b.art101B, b.nroActa, b.cuota, b.cuenta);
}

void registrarPago(Conexion& conexion, const Boleta& b)
{
    const bool aportes = b.tipo == TipoBoleta::Aportes;
    const bool acta = b.tipo == TipoBoleta::Acta;
    const Moneda nada;
    insertar(conexion, "PAGOS",
             {{"Cuit", b.cuit},
              {"Tipo", static_cast<int>(b.tipo)},
              {"Periodo", acta ? QDate() : b.declaracion.periodo},
              {"Secuencia", acta ? 0 : b.declaracion.secuencia},
              {"Fecha", b.fecha},
              {"Art100", aportes ? b.art100 : nada},
              {"Art101A", aportes ? b.art101A : nada},
              {"Art101B", aportes ? b.art101B : nada},
              {"Dias", b.dias},
              {"Interes", b.interes},
              {"Importe", b.importeTotal},
              {"NroActa", acta ? b.nroActa : 0},
              {"Cuota", acta ? b.cuota : 0},
              {"Cuenta", acta ? b.cuenta : 0}});
}

std::vector<PagoDeActa> listarPagosDeActas(Conexion& conexion, const QString& cuit, int cuenta)
{
    return conexion.lista(
        "SELECT Pago, Fecha, NroActa, Cuota, Importe FROM PAGOS WHERE Cuit = ? AND Tipo = 2 AND Cuenta = ? "
        "ORDER BY NroActa DESC, Cuota DESC",
        [](const Fila& fila)
        {
            return PagoDeActa{fila.entero("Pago"), fila.fecha("Fecha"), fila.entero("NroActa"), fila.entero("Cuota"),
                              fila.moneda("Importe")};
        },
        cuit, cuenta);
}

PagoGuardado cargarPago(Conexion& conexion, qint64 pago)
{
    const auto guardado = conexion.una(
        "SELECT * FROM PAGOS WHERE Pago = ?",
        [](const Fila& fila)
        {
            return PagoGuardado{fila.entero("Dias"), fila.moneda("Interes"), fila.entero("NroActa"),
                                fila.entero("Cuota"), fila.moneda("Importe")};
        },
        pago);
    if (!guardado)
    {
        avisarQueNoEsta();
    }
    return *guardado;
}

void eliminarPago(Conexion& conexion, qint64 pago)
{
    if (conexion.ejecutar("DELETE FROM PAGOS WHERE Pago = ?", pago) == 0)
    {
        avisarQueNoEsta();
    }
}

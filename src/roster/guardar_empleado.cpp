#include "roster/guardar_empleado.h"

#include "platform/data/conexion.h"
#include "platform/data/error_de_ejecucion.h"
#include "platform/data/formato.h"

#include <limits>

namespace
{
const QString cuilVacio = QStringLiteral("__-________-_");
constexpr int horasMinimas = 100;
constexpr int horasMaximas = 200;

qint64 enteroDe(const QString& texto)
{
    bool bien = false;
    const qint64 valor = texto.toLongLong(&bien);
    if (!bien)
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::NoCoincidenTipos, texto);
    }
    return valor;
}

int horasDe(const QString& texto)
{
    const qint64 horas = enteroDe(texto);
    if (horas > std::numeric_limits<int>::max())
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::Desbordamiento);
    }
    return static_cast<int>(horas);
}

float flotanteDe(const QString& texto)
{
    if (texto.isEmpty())
    {
        return 0;
    }
    const std::optional<float> valor = LeerNumero(texto);
    if (!valor)
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::NoCoincidenTipos, texto);
    }
    return *valor;
}

Moneda importeTecleado(const QString& texto)
{
    return texto.isEmpty() ? Moneda() : Moneda::deTexto(texto);
}

/// A contribution as its field shows it, with two decimals.
Moneda importeMostrado(float valor)
{
    return Moneda::deTexto(Formato(valor, u"0.00"));
}

std::optional<FaltaEnEmpleado> faltaJornada(const EntradaEmpleado& entrada)
{
    bool numero = false;
    const int horas = entrada.qHoras.toInt(&numero);
    if (numero && horas >= horasMinimas && horas <= horasMaximas)
    {
        return std::nullopt;
    }
    return FaltaEnEmpleado{CampoEmpleado::QHoras, 2,
                           QStringLiteral("Debe informar la Cantidad de Horas Mensuales de la Jornada Laboral que "
                                          "realiza el Empleado.")};
}

/// The values in the order of both statements, from AyN to Acuerdo.
template <class Consumidor>
int conValores(const EntradaEmpleado& e, const Aportes& aportes, Consumidor&& consumidor)
{
    return consumidor(e.ayn, e.tipoDoc, enteroDe(e.documento), e.sexo, e.calle,
                      e.numero.isEmpty() ? qint64{0} : enteroDe(e.numero), e.piso, e.depto, e.codPos, e.localidad,
                      e.provincia, e.telefono, e.nacio, e.estCivil, e.afiliado, Moneda::deSimple(aportes.total),
                      importeTecleado(e.haberes), e.categoria, e.ingreso, e.egreso, e.sucursal, enteroDe(e.qHoras),
                      importeMostrado(aportes.art100), importeMostrado(aportes.art101A),
                      importeMostrado(aportes.art101B), importeTecleado(e.acuerdo));
}

void insertar(Conexion& conexion, const ClaveDDJJ& clave, const EntradaEmpleado& entrada, const Aportes& aportes)
{
    conValores(
        entrada, aportes,
        [&](const auto&... valores)
        {
            return conexion.ejecutar(
                "INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN, TipoDoc, NroDoc, Sexo, Calle, "
                "Numero, Piso, Depto, CodPos, Localidad, Provincia, Telefono, Nacio, EstCivil, Afiliado, Sueldo, "
                "Imponible, Categoria, Ingreso, Egreso, Sucursal, QHoras, ART100, ART101A, ART101B, Acuerdo, "
                "Acuerdo2) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
                "?, ?, ?, ?, ?, 0)",
                clave.cuit, clave.periodo, clave.secuencia, entrada.cuil, valores...);
        });
}

void actualizar(Conexion& conexion, const ClaveDDJJ& clave, const EntradaEmpleado& entrada, const Aportes& aportes)
{
    // The screen shows the sum of both agreement sums: it goes to Acuerdo, and Acuerdo2 becomes 0.
    const int filas = conValores(
        entrada, aportes,
        [&](const auto&... valores)
        {
            return conexion.ejecutar(
                "UPDATE DDJJ_Empleados SET AyN = ?, TipoDoc = ?, NroDoc = ?, Sexo = ?, Calle = ?, Numero = ?, "
                "Piso = ?, Depto = ?, CodPos = ?, Localidad = ?, Provincia = ?, Telefono = ?, Nacio = ?, "
                "EstCivil = ?, Afiliado = ?, Sueldo = ?, Imponible = ?, Categoria = ?, Ingreso = ?, Egreso = ?, "
                "Sucursal = ?, QHoras = ?, ART100 = ?, ART101A = ?, ART101B = ?, Acuerdo = ?, Acuerdo2 = 0 "
                "WHERE Cuit = ? AND Periodo = ? AND Secuencia = ? AND Cuil = ?",
                valores..., clave.cuit, clave.periodo, clave.secuencia, entrada.cuil);
        });
    if (filas == 0)
    {
        throw ErrorDeEjecucion(3021, QStringLiteral("El Empleado ya no está en la Declaración Jurada: fue eliminado "
                                                    "desde otro puesto."));
    }
}
} // namespace

bool cuilExistente(Conexion& conexion, const ClaveDDJJ& clave, const QString& cuil)
{
    return conexion.hay("SELECT 1 FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND Secuencia = ? AND Cuil = ?",
                        clave.cuit, clave.periodo, clave.secuencia, cuil);
}

std::optional<FaltaEnEmpleado> revisarEmpleado(Conexion& conexion, const QString& cuit, const EntradaEmpleado& entrada)
{
    using Campo = CampoEmpleado;
    if (entrada.cuil == cuilVacio)
    {
        return FaltaEnEmpleado{Campo::Cuil, 0, QStringLiteral("Debe informar el Nro. de Cuil del Empleado.")};
    }
    if (entrada.ayn.isEmpty())
    {
        return FaltaEnEmpleado{Campo::AyN, 0, QStringLiteral("Debe informar el Apellido y Nombre del Empleado.")};
    }
    if (!entrada.tipoDoc)
    {
        return FaltaEnEmpleado{Campo::TipoDoc, 0, QStringLiteral("Debe informar el Tipo de Documento del Empleado.")};
    }
    if (entrada.documento.isEmpty())
    {
        return FaltaEnEmpleado{Campo::Documento, 0,
                               QStringLiteral("Debe informar el Número de Documento del Empleado.")};
    }
    if (auto falta = faltaJornada(entrada))
    {
        return falta;
    }
    if (entrada.sucursal == 0 && conexion.hay("SELECT 1 FROM Empresas_Sucursales WHERE CUIT = ?", cuit))
    {
        return FaltaEnEmpleado{
            Campo::Sucursal, 2,
            QStringLiteral("Debe seleccionar la Sucursal correspondiente donde trabaja el Empleado.")};
    }
    return std::nullopt;
}

Aportes aportesDe(const EntradaEmpleado& entrada)
{
    return aportesDePantalla(flotanteDe(entrada.haberes), flotanteDe(entrada.acuerdo), horasDe(entrada.qHoras),
                             entrada.afiliado);
}

std::optional<Aportes> guardarEmpleado(Conexion& conexion, const ClaveDDJJ& clave, const EntradaEmpleado& entrada)
{
    const Aportes aportes = aportesDe(entrada);
    Transaccion transaccion(conexion);
    if (entrada.nuevo)
    {
        insertar(conexion, clave, entrada, aportes);
    }
    else
    {
        actualizar(conexion, clave, entrada, aportes);
    }
    if (!guardarFamiliares(conexion, entrada.cuil, entrada.familia))
    {
        return std::nullopt;
    }
    transaccion.confirmar();
    return aportes;
}

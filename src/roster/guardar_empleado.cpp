#include "roster/guardar_empleado.h"

#include "base/db/conexion.h"
#include "base/db/insertar.h"
#include "base/error_de_ejecucion.h"
#include "base/numbers/formato.h"
#include "core/cuit.h"
#include "core/vigencia.h"

#include <limits>

namespace
{
constexpr int horasMinimas = 100;
constexpr int horasMaximas = 200;

qint64 enteroDe(const QString& texto)
{
    bool bien = false;
    const qint64 valor = texto.toLongLong(&bien);
    if (!bien)
    {
        throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::NoCoincidenTipos, texto);
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
        throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::NoCoincidenTipos, texto);
    }
    return *valor;
}

Moneda importeTecleado(const QString& texto)
{
    return texto.isEmpty() ? Moneda() : Moneda::deTexto(texto);
}

bool esJornada(const QString& texto)
{
    bool numero = false;
    const int horas = texto.toInt(&numero);
    return numero && horas >= horasMinimas && horas <= horasMaximas;
}

ValoresDeColumnas claveDe(const ClaveDDJJ& clave, const QString& cuil)
{
    return {{"Cuit", clave.cuit}, {"Periodo", clave.periodo}, {"Secuencia", clave.secuencia}, {"Cuil", cuil}};
}

ValoresDeColumnas valoresDe(const EntradaEmpleado& e, const Aportes& aportes)
{
    return {
        {"AyN", e.ayn},
        {"TipoDoc", e.tipoDoc},
        {"NroDoc", enteroDe(e.documento)},
        {"Sexo", e.sexo},
        {"Calle", e.calle},
        {"Numero", e.numero.isEmpty() ? qint64{0} : enteroDe(e.numero)},
        {"Piso", e.piso},
        {"Depto", e.depto},
        {"CodPos", e.codPos},
        {"Localidad", e.localidad},
        {"Provincia", e.provincia},
        {"Telefono", e.telefono},
        {"Nacio", e.nacio},
        {"EstCivil", e.estCivil},
        {"Afiliado", e.afiliado},
        {"Sueldo", Moneda::deSimple(aportes.total)},
        {"Imponible", importeTecleado(e.haberes)},
        {"Categoria", e.categoria},
        {"Ingreso", e.ingreso},
        {"Egreso", e.egreso},
        {"Sucursal", e.sucursal},
        {"QHoras", enteroDe(e.qHoras)},
        // As their fields show them.
        {"ART100", Moneda::enCentavos(aportes.art100)},
        {"ART101A", Moneda::enCentavos(aportes.art101A)},
        {"ART101B", Moneda::enCentavos(aportes.art101B)},
        {"Acuerdo", importeTecleado(e.acuerdo)},
        // The screen shows the sum of both agreement sums: it goes to Acuerdo.
        {"Acuerdo2", 0},
    };
}

/// The branch that was stored already is saved again whatever became of it; one chosen now must be there.
void exigirSucursal(Conexion& conexion, const EntradaEmpleado& entrada, qint64 guardada)
{
    if (entrada.sucursal != 0 && entrada.sucursal != guardada && !textoSucursal(conexion, entrada.sucursal))
    {
        throw ErrorParaAvisar(ErrorDeEjecucion::SinRegistro,
                              QStringLiteral("La Sucursal elegida ya no se encuentra en la Base: fue eliminada desde "
                                             "otra ventana u otro puesto.  Elija otra para grabar los datos."));
    }
}

void insertarEmpleado(Conexion& conexion, const ClaveDDJJ& clave, const EntradaEmpleado& entrada,
                      const Aportes& aportes)
{
    exigirSucursal(conexion, entrada, 0);
    ValoresDeColumnas valores = claveDe(clave, entrada.cuil);
    const ValoresDeColumnas otros = valoresDe(entrada, aportes);
    valores.insert(valores.end(), otros.begin(), otros.end());
    insertar(conexion, "DDJJ_Empleados", valores);
}

void actualizarEmpleado(Conexion& conexion, const ClaveDDJJ& clave, const EntradaEmpleado& entrada,
                        const Aportes& aportes)
{
    const auto guardado = leerEmpleado(conexion, clave, entrada.cuil);
    if (!guardado)
    {
        throw EmpleadoEliminado(entrada.cuil);
    }
    if (entrada.leido)
    {
        exigirSinCambios(cambiosEnEmpleado(conexion, clave.cuit, *entrada.leido, *guardado));
    }
    exigirSucursal(conexion, entrada, guardado->empleado.sucursal);
    actualizar(conexion, "DDJJ_Empleados", valoresDe(entrada, aportes), claveDe(clave, entrada.cuil));
}
} // namespace

bool cuilExistente(Conexion& conexion, const ClaveDDJJ& clave, const QString& cuil)
{
    return conexion.hay("SELECT 1 FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND Secuencia = ? AND Cuil = ?",
                        clave.cuit, clave.periodo, clave.secuencia, cuil);
}

std::optional<FaltaEnEmpleado> revisarEmpleado(Conexion& conexion, const QString& cuit, const EntradaEmpleado& entrada)
{
    using enum CampoEmpleado;
    const std::pair<bool, FaltaEnEmpleado> revisiones[] = {
        {entrada.cuil != cuitVacio, {Cuil, 0, QStringLiteral("Debe informar el Nro. de Cuil del Empleado.")}},
        {!entrada.ayn.isEmpty(), {AyN, 0, QStringLiteral("Debe informar el Apellido y Nombre del Empleado.")}},
        {entrada.tipoDoc.has_value(), {TipoDoc, 0, QStringLiteral("Debe informar el Tipo de Documento del Empleado.")}},
        {!entrada.documento.isEmpty(),
         {Documento, 0, QStringLiteral("Debe informar el Número de Documento del Empleado.")}},
        {esJornada(entrada.qHoras),
         {QHoras, 2,
          QStringLiteral("Debe informar la Cantidad de Horas Mensuales de la Jornada Laboral que realiza el "
                         "Empleado.")}},
    };
    for (const auto& [vale, falta] : revisiones)
    {
        if (!vale)
        {
            return falta;
        }
    }
    if (entrada.sucursal == 0 && conexion.hay("SELECT 1 FROM Empresas_Sucursales WHERE CUIT = ?", cuit))
    {
        return FaltaEnEmpleado{
            Sucursal, 2, QStringLiteral("Debe seleccionar la Sucursal correspondiente donde trabaja el Empleado.")};
    }
    return std::nullopt;
}

Aportes aportesDe(const EntradaEmpleado& entrada)
{
    return aportesDePantalla(flotanteDe(entrada.haberes), flotanteDe(entrada.acuerdo), horasDe(entrada.qHoras),
                             entrada.afiliado);
}

std::optional<EmpleadoLeido> guardarEmpleado(Conexion& conexion, const ClaveDDJJ& clave, const EntradaEmpleado& entrada)
{
    const Aportes aportes = aportesDe(entrada);
    Transaccion transaccion(conexion);
    exigirDeclaracion(conexion, clave);
    if (entrada.nuevo)
    {
        insertarEmpleado(conexion, clave, entrada, aportes);
    }
    else
    {
        actualizarEmpleado(conexion, clave, entrada, aportes);
    }
    if (!guardarFamiliares(conexion, entrada.cuil, entrada.familia))
    {
        return std::nullopt;
    }
    EmpleadoLeido guardado = leerEmpleado(conexion, clave, entrada.cuil).value();
    transaccion.confirmar();
    return guardado;
}

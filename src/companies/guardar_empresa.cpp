#include "companies/guardar_empresa.h"

#include "base/db/conexion.h"
#include "core/cuit.h"
#include "core/vigencia.h"

namespace
{
std::vector<CampoMostrado> camposDe(const Empresa& empresa)
{
    std::vector<CampoMostrado> campos;
    for (const TextoDeEmpresa& uno : textosDeEmpresa())
    {
        campos.push_back({QString::fromUtf8(uno.rotulo), empresa.*uno.lugar});
    }
    return campos;
}

QString numero(std::optional<qint64> uno)
{
    return uno ? QString::number(*uno) : QString();
}

std::vector<FilaMostrada> filasDe(const std::vector<FilaSucursal>& sucursales)
{
    std::vector<FilaMostrada> filas;
    filas.reserve(sucursales.size());
    for (const FilaSucursal& s : sucursales)
    {
        filas.push_back({s.id, {s.sucursal, s.domicilio, numero(s.numero), s.localidad, s.codPos, s.telefono}});
    }
    return filas;
}

std::vector<FilaMostrada> filasDe(const std::vector<FilaResponsable>& responsables)
{
    std::vector<FilaMostrada> filas;
    filas.reserve(responsables.size());
    for (const FilaResponsable& r : responsables)
    {
        filas.push_back({0, {r.ayn, r.tipoDoc, numero(r.nroDoc), r.domicilio, r.localidad}});
    }
    return filas;
}

/// What this save would replace and is no longer stored as it was read: a list that it does not write does not count.
Cambios cambiosEnEmpresa(const EntradaEmpresa& entrada, const EmpresaLeida& ahora)
{
    const EmpresaLeida& antes = *entrada.leida;
    Cambios cambios = compararCampos(camposDe(antes.empresa), camposDe(ahora.empresa));
    const auto agregar = [&](const QString& campo, const auto& filasAntes, const auto& filasAhora)
    {
        const Cambios otros = compararFilas(campo, filasDe(filasAntes), filasDe(filasAhora));
        cambios.insert(cambios.end(), otros.begin(), otros.end());
    };
    if (entrada.sucursales)
    {
        agregar(QStringLiteral("Sucursales"), antes.sucursales, ahora.sucursales);
    }
    if (entrada.responsables)
    {
        agregar(QStringLiteral("Responsables"), antes.responsables, ahora.responsables);
    }
    return cambios;
}
} // namespace

std::optional<EmpresaLeida> leerEmpresa(Conexion& conexion, const QString& cuit)
{
    auto empresa = cargarEmpresa(conexion, cuit);
    if (!empresa)
    {
        return std::nullopt;
    }
    return EmpresaLeida{std::move(*empresa), cargarSucursales(conexion, cuit), cargarResponsables(conexion, cuit)};
}

std::optional<FaltaEnEmpresa> revisarEmpresa(Empresa& empresa, bool hayProvincia)
{
    using enum CampoEmpresa;
    const struct
    {
        bool hay;
        CampoEmpresa campo;
        const char* falta;
    } exigidos[] = {
        {!empresa.cuit.isEmpty() && empresa.cuit != cuitVacio, Cuit,
         "Debe ingresar el Nro. de C.U.I.T. de la Empresa."},
        {!empresa.razon.isEmpty(), Razon, "Debe ingresar la Razón Social de la Empresa."},
        {!empresa.calle.isEmpty(), Calle, "Debe informar la Calle correspondiente."},
        {!empresa.codPos.isEmpty(), CodPos, "Debe informar el Código Postal correspondiente."},
        {!empresa.localidad.isEmpty(), Localidad, "Debe informar la Localidad correspondiente."},
        {hayProvincia, Provincia, "Debe ingresar la Provincia correspondiente."},
        {!empresa.rubro.isEmpty(), Rubro, "Debe informar el RUBRO correspondiente."},
    };
    for (const auto& [hay, campo, falta] : exigidos)
    {
        if (campo == CodPos && empresa.numero.isEmpty()) // once the fields before it are there, it is no fault
        {
            empresa.numero = QStringLiteral("0");
        }
        if (!hay)
        {
            return FaltaEnEmpresa{campo, QString::fromUtf8(falta)};
        }
    }
    return std::nullopt;
}

std::optional<QString> guardarEmpresa(Conexion& conexion, EntradaEmpresa& entrada)
{
    EntradaEmpresa guardada = entrada;
    const QString& cuit = entrada.empresa.cuit;
    Transaccion transaccion(conexion);
    if (guardada.nueva)
    {
        insertarEmpresa(conexion, guardada.empresa);
    }
    else
    {
        exigirEmpresa(conexion, cuit);
        exigirSucursales(conexion, cuit, guardada.sucursales.value_or(std::vector<FilaSucursal>()));
        if (guardada.leida)
        {
            exigirSinCambios(cambiosEnEmpresa(guardada, leerEmpresa(conexion, cuit).value()));
        }
        actualizarEmpresa(conexion, guardada.empresa);
    }
    std::optional<QString> rechazo;
    if (guardada.sucursales)
    {
        rechazo = guardarSucursales(conexion, cuit, *guardada.sucursales);
    }
    if (!rechazo && guardada.responsables)
    {
        rechazo = guardarResponsables(conexion, cuit, *guardada.responsables);
    }
    if (rechazo)
    {
        return rechazo;
    }
    guardada.leida = leerEmpresa(conexion, cuit);
    transaccion.confirmar();
    entrada = std::move(guardada);
    return std::nullopt;
}

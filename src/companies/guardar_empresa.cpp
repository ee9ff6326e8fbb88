#include "companies/guardar_empresa.h"

#include "platform/data/conexion.h"

std::optional<FaltaEnEmpresa> revisarEmpresa(Empresa& empresa, bool hayProvincia)
{
    if (empresa.cuit.isEmpty() || empresa.cuit == QStringLiteral("__-________-_"))
    {
        return FaltaEnEmpresa{CampoEmpresa::Cuit, QStringLiteral("Debe ingresar el Nro. de C.U.I.T. de la Empresa.")};
    }
    if (empresa.razon.isEmpty())
    {
        return FaltaEnEmpresa{CampoEmpresa::Razon, QStringLiteral("Debe ingresar la Razón Social de la Empresa.")};
    }
    if (empresa.calle.isEmpty())
    {
        return FaltaEnEmpresa{CampoEmpresa::Calle, QStringLiteral("Debe informar la Calle correspondiente.")};
    }
    if (empresa.numero.isEmpty())
    {
        empresa.numero = QStringLiteral("0");
    }
    if (empresa.codPos.isEmpty())
    {
        return FaltaEnEmpresa{CampoEmpresa::CodPos, QStringLiteral("Debe informar el Código Postal correspondiente.")};
    }
    if (empresa.localidad.isEmpty())
    {
        return FaltaEnEmpresa{CampoEmpresa::Localidad, QStringLiteral("Debe informar la Localidad correspondiente.")};
    }
    if (!hayProvincia)
    {
        return FaltaEnEmpresa{CampoEmpresa::Provincia, QStringLiteral("Debe ingresar la Provincia correspondiente.")};
    }
    if (empresa.rubro.isEmpty())
    {
        return FaltaEnEmpresa{CampoEmpresa::Rubro, QStringLiteral("Debe informar el RUBRO correspondiente.")};
    }
    return std::nullopt;
}

std::optional<QString> guardarEmpresa(Conexion& conexion, const EntradaEmpresa& entrada)
{
    Transaccion transaccion(conexion);
    if (entrada.nueva)
    {
        insertarEmpresa(conexion, entrada.empresa);
    }
    else if (!actualizarEmpresa(conexion, entrada.empresa))
    {
        return QStringLiteral("La Empresa %1 no se encuentra en la Base de Empresas: pudo ser eliminada desde otro "
                              "puesto.  No se ha grabado ningún dato.")
            .arg(entrada.empresa.cuit);
    }
    if (entrada.sucursales)
    {
        if (const auto rechazo = guardarSucursales(conexion, entrada.empresa.cuit, *entrada.sucursales))
        {
            return rechazo;
        }
    }
    if (entrada.responsables)
    {
        if (const auto rechazo = guardarResponsables(conexion, entrada.empresa.cuit, *entrada.responsables))
        {
            return rechazo;
        }
    }
    transaccion.confirmar();
    return std::nullopt;
}

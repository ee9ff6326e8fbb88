#include "companies/empresa.h"

#include "base/db/conexion.h"
#include "base/db/insertar.h"
#include "base/error_de_ejecucion.h"
#include "core/lista_empresas.h"
#include "core/rutinas.h"
#include "core/vigencia.h"

namespace
{
qint64 numeroDe(const Empresa& empresa)
{
    bool esNumero = false;
    const qint64 numero = empresa.numero.toLongLong(&esNumero);
    if (!esNumero)
    {
        throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::NoCoincidenTipos,
                                           QStringLiteral("el número del domicilio no es un número"));
    }
    return numero;
}

/// All columns but the key.
ValoresDeColumnas valoresDe(const Empresa& e)
{
    return {
        {"Razon", e.razon},
        {"Fantasia", e.fantasia},
        {"Calle", e.calle},
        {"Numero", numeroDe(e)},
        {"NroLocal", e.nroLocal},
        {"Piso", e.piso},
        {"Depto", e.depto},
        {"CodPos", e.codPos},
        {"Localidad", e.localidad},
        {"Provincia", e.provincia},
        {"Telefono", e.telefono},
        {"Fax", e.fax},
        {"Rubro", e.rubro},
        {"Contacto", e.contacto},
        {"Web", e.web},
        {"Email", e.email},
        {"Estudio", e.estudio},
        {"Est_Domicilio", e.estDomicilio},
        {"Est_CodPos", e.estCodPos},
        {"Est_Localidad", e.estLocalidad},
        {"Est_Telefono", e.estTelefono},
        {"Est_EMail", e.estEmail},
    };
}
} // namespace

std::optional<Empresa> cargarEmpresa(Conexion& conexion, const QString& cuit)
{
    return conexion.una(
        "SELECT Empresas.*, Provincias.Nombre FROM Empresas LEFT JOIN Provincias "
        "ON Empresas.Provincia = Provincias.Codigo WHERE Empresas.Cuit = ?",
        [](const Fila& fila)
        {
            return Empresa{.cuit = fila.texto("Cuit"),
                           .razon = fila.texto("Razon"),
                           .fantasia = fila.texto("Fantasia"),
                           .calle = fila.texto("Calle"),
                           .numero = fila.texto("Numero"),
                           .nroLocal = fila.texto("NroLocal"),
                           .piso = fila.texto("Piso"),
                           .depto = fila.texto("Depto"),
                           .codPos = fila.texto("CodPos"),
                           .localidad = fila.texto("Localidad"),
                           .provincia = fila.enteroONulo("Provincia").value_or(0),
                           .nombreProvincia = fila.texto("Nombre"),
                           .telefono = fila.texto("Telefono"),
                           .fax = fila.texto("Fax"),
                           .rubro = fila.texto("Rubro"),
                           .contacto = fila.texto("Contacto"),
                           .web = fila.texto("Web"),
                           .email = fila.texto("Email"),
                           .estudio = fila.texto("Estudio"),
                           .estDomicilio = fila.texto("Est_Domicilio"),
                           .estCodPos = fila.texto("Est_CodPos"),
                           .estLocalidad = fila.texto("Est_Localidad"),
                           .estTelefono = fila.texto("Est_Telefono"),
                           .estEmail = fila.texto("Est_EMail")};
        },
        cuit);
}

void insertarEmpresa(Conexion& conexion, const Empresa& empresa)
{
    ValoresDeColumnas valores = valoresDe(empresa);
    valores.insert(valores.begin(), {"CUIT", empresa.cuit});
    insertar(conexion, "Empresas", valores);
}

void actualizarEmpresa(Conexion& conexion, const Empresa& empresa)
{
    actualizar(conexion, "Empresas", valoresDe(empresa), {{"CUIT", empresa.cuit}});
}

ExamenDeCuit examinarCuitNuevo(Conexion& conexion, const QString& cuit)
{
    if (!Rutinas::VerificarCuit(cuit))
    {
        return {ExamenDeCuit::Incorrecto, {}};
    }
    if (const auto razon = razonDeCuit(conexion, cuit))
    {
        return {ExamenDeCuit::Existente, *razon};
    }
    return {};
}

ImpedimentoDeBaja impedimentoDeBaja(Conexion& conexion, const QString& cuit)
{
    if (conexion.hay("SELECT * FROM DDJJ WHERE CUIT = ?", cuit))
    {
        return ImpedimentoDeBaja::Declaraciones;
    }
    if (conexion.hay("SELECT * FROM PAGOS WHERE CUIT = ?", cuit))
    {
        return ImpedimentoDeBaja::Pagos;
    }
    return ImpedimentoDeBaja::Ninguno;
}

ImpedimentoDeBaja eliminarEmpresa(Conexion& conexion, const QString& cuit)
{
    Transaccion transaccion(conexion);
    exigirEmpresa(conexion, cuit);
    // The other desk may have entered one while the question stood on the screen.
    const ImpedimentoDeBaja impedimento = impedimentoDeBaja(conexion, cuit);
    if (impedimento == ImpedimentoDeBaja::Ninguno)
    {
        conexion.ejecutar("DELETE FROM Empresas WHERE CUIT = ?", cuit);
        conexion.ejecutar("DELETE FROM Empresas_Responsables WHERE CUIT = ?", cuit);
        conexion.ejecutar("DELETE FROM Empresas_Sucursales WHERE CUIT = ?", cuit);
        transaccion.confirmar();
    }
    return impedimento;
}

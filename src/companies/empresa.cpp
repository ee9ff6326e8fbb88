#include "companies/empresa.h"

#include "core/lista_empresas.h"
#include "core/rutinas.h"
#include "platform/data/conexion.h"
#include "platform/data/error_de_ejecucion.h"

namespace
{
qint64 numeroDe(const Empresa& empresa)
{
    bool esNumero = false;
    const qint64 numero = empresa.numero.toLongLong(&esNumero);
    if (!esNumero)
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::NoCoincidenTipos,
                               QStringLiteral("el número del domicilio no es un número"));
    }
    return numero;
}
} // namespace

std::optional<Empresa> cargarEmpresa(Conexion& conexion, const QString& cuit)
{
    const Recordset filas = conexion.consultar("SELECT Empresas.*, Provincias.Nombre "
                                               "FROM Empresas INNER JOIN Provincias "
                                               "ON Empresas.Provincia = Provincias.Codigo "
                                               "WHERE Empresas.Cuit = ?",
                                               cuit);
    if (filas.vacio() && !razonDeCuit(conexion, cuit))
    {
        return std::nullopt;
    }
    const Fila fila = filas.primera();
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
                   .provincia = fila.entero("Provincia"),
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
}

void insertarEmpresa(Conexion& conexion, const Empresa& empresa)
{
    conexion.ejecutar("INSERT INTO Empresas (CUIT, Razon, Fantasia, Calle, Numero, NroLocal, Piso, Depto, CodPos, "
                      "Localidad, Provincia, Telefono, Fax, Rubro, Contacto, Web, Email, Estudio, Est_Domicilio, "
                      "Est_CodPos, Est_Localidad, Est_Telefono, Est_EMail) "
                      "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
                      empresa.cuit, empresa.razon, empresa.fantasia, empresa.calle, numeroDe(empresa), empresa.nroLocal,
                      empresa.piso, empresa.depto, empresa.codPos, empresa.localidad, empresa.provincia,
                      empresa.telefono, empresa.fax, empresa.rubro, empresa.contacto, empresa.web, empresa.email,
                      empresa.estudio, empresa.estDomicilio, empresa.estCodPos, empresa.estLocalidad,
                      empresa.estTelefono, empresa.estEmail);
}

bool actualizarEmpresa(Conexion& conexion, const Empresa& empresa)
{
    return conexion.ejecutar(
               "UPDATE Empresas SET Razon = ?, Fantasia = ?, Calle = ?, Numero = ?, NroLocal = ?, Piso = ?, Depto = ?, "
               "CodPos = ?, Localidad = ?, Provincia = ?, Telefono = ?, Fax = ?, Rubro = ?, Contacto = ?, Web = ?, "
               "Email = ?, Estudio = ?, Est_Domicilio = ?, Est_CodPos = ?, Est_Localidad = ?, Est_Telefono = ?, "
               "Est_EMail = ? WHERE CUIT = ?",
               empresa.razon, empresa.fantasia, empresa.calle, numeroDe(empresa), empresa.nroLocal, empresa.piso,
               empresa.depto, empresa.codPos, empresa.localidad, empresa.provincia, empresa.telefono, empresa.fax,
               empresa.rubro, empresa.contacto, empresa.web, empresa.email, empresa.estudio, empresa.estDomicilio,
               empresa.estCodPos, empresa.estLocalidad, empresa.estTelefono, empresa.estEmail, empresa.cuit) > 0;
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

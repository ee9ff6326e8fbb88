#include "companies/empresa.h"

#include "base/db/conexion.h"
#include "base/db/insertar.h"
#include "base/error_de_ejecucion.h"
#include "core/lista_empresas.h"
#include "core/rutinas.h"
#include "core/vigencia.h"

namespace
{
constexpr TextoDeEmpresa textos[] = {
    {"Razon", "Razón Social", &Empresa::razon},
    {"Fantasia", "Nombre Fantasía", &Empresa::fantasia},
    {"Calle", "Calle", &Empresa::calle},
    {"Numero", "Nro.", &Empresa::numero},
    {"NroLocal", "Local", &Empresa::nroLocal},
    {"Piso", "Piso", &Empresa::piso},
    {"Depto", "Depto", &Empresa::depto},
    {"CodPos", "Cód.Postal", &Empresa::codPos},
    {"Localidad", "Localidad", &Empresa::localidad},
    {"Nombre", "Provincia", &Empresa::nombreProvincia}, // of the table Provincias
    {"Telefono", "Teléfono", &Empresa::telefono},
    {"Fax", "Fax", &Empresa::fax},
    {"Rubro", "Rubro", &Empresa::rubro},
    {"Contacto", "Contacto", &Empresa::contacto},
    {"Web", "Web", &Empresa::web},
    {"Email", "E-Mail", &Empresa::email},
    {"Estudio", "Contador/a", &Empresa::estudio},
    {"Est_Domicilio", "Domicilio del Estudio", &Empresa::estDomicilio},
    {"Est_CodPos", "Cód.Post. del Estudio", &Empresa::estCodPos},
    {"Est_Localidad", "Localidad del Estudio", &Empresa::estLocalidad},
    {"Est_Telefono", "Tel. del Estudio", &Empresa::estTelefono},
    {"Est_EMail", "E-Mail del Estudio", &Empresa::estEmail},
};

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
    ValoresDeColumnas valores{{"Numero", numeroDe(e)}, {"Provincia", e.provincia}};
    for (const TextoDeEmpresa& uno : textos)
    {
        if (uno.lugar != &Empresa::numero && uno.lugar != &Empresa::nombreProvincia)
        {
            valores.push_back({uno.columna, e.*uno.lugar});
        }
    }
    return valores;
}
} // namespace

std::span<const TextoDeEmpresa> textosDeEmpresa()
{
    return textos;
}

std::optional<Empresa> cargarEmpresa(Conexion& conexion, const QString& cuit)
{
    return conexion.una(
        "SELECT Empresas.*, Provincias.Nombre FROM Empresas LEFT JOIN Provincias "
        "ON Empresas.Provincia = Provincias.Codigo WHERE Empresas.Cuit = ?",
        [](const Fila& fila)
        {
            Empresa empresa;
            empresa.cuit = fila.texto("Cuit");
            empresa.provincia = fila.enteroONulo("Provincia").value_or(0);
            for (const TextoDeEmpresa& uno : textos)
            {
                empresa.*uno.lugar = fila.texto(uno.columna);
            }
            return empresa;
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

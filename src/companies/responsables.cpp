#include "companies/responsables.h"

#include "base/db/conexion.h"
#include "base/db/insertar.h"
#include "base/error_de_ejecucion.h"
#include "companies/catalogos.h"

namespace
{
bool sinDocumento(const FilaResponsable& fila)
{
    return fila.nroDoc.value_or(0) == 0;
}

bool enBlanco(const FilaResponsable& fila)
{
    return fila.ayn.isEmpty() && sinDocumento(fila) && fila.domicilio.isEmpty() && fila.localidad.isEmpty();
}

bool incompleta(const FilaResponsable& fila)
{
    return fila.ayn.isEmpty() || fila.tipoDoc.isEmpty() || sinDocumento(fila);
}

void insertarResponsable(Conexion& conexion, const QString& cuit, const FilaResponsable& fila)
{
    const auto tipoDoc = codigoDe(conexion, Catalogo::Documentos, fila.tipoDoc);
    if (!tipoDoc)
    {
        throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::SinRegistro,
                                           QStringLiteral("No existe el tipo de documento %1").arg(fila.tipoDoc));
    }
    insertar(conexion, "Empresas_Responsables",
             {{"CUIT", cuit},
              {"AyN", fila.ayn},
              {"Domicilio", fila.domicilio},
              {"Localidad", fila.localidad},
              {"TipoDoc", *tipoDoc},
              {"NroDoc", fila.nroDoc}});
}
} // namespace

std::vector<FilaResponsable> cargarResponsables(Conexion& conexion, const QString& cuit)
{
    return conexion.lista(
        "SELECT Empresas_Responsables.AyN, Documentos.Nombre AS Nombre_DOC, Empresas_Responsables.NroDoc, "
        "Empresas_Responsables.Domicilio, Empresas_Responsables.Localidad "
        "FROM Empresas_Responsables INNER JOIN Documentos ON Empresas_Responsables.TipoDoc = Documentos.Codigo "
        "WHERE Empresas_Responsables.CUIT = ? "
        "ORDER BY Empresas_Responsables.AyN",
        [](const Fila& fila)
        {
            return FilaResponsable{fila.texto("AyN"), fila.texto("Nombre_DOC"), fila.enteroONulo("NroDoc"),
                                   fila.texto("Domicilio"), fila.texto("Localidad")};
        },
        cuit);
}

std::optional<QString> guardarResponsables(Conexion& conexion, const QString& cuit,
                                           const std::vector<FilaResponsable>& filas)
{
    conexion.ejecutar("DELETE FROM Empresas_Responsables WHERE CUIT = ?", cuit);
    for (const FilaResponsable& fila : filas)
    {
        if (enBlanco(fila))
        {
            continue;
        }
        if (incompleta(fila))
        {
            return QStringLiteral("Los datos de los Responsables están incompletos.  Por favor, verifique los mismos.");
        }
        insertarResponsable(conexion, cuit, fila);
    }
    return std::nullopt;
}

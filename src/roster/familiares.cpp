#include "roster/familiares.h"

#include "base/db/conexion.h"
#include "base/db/insertar.h"
#include "base/error_de_ejecucion.h"
#include "companies/catalogos.h"

namespace
{
const QString femenino = QStringLiteral("Fem.");
const QString masculino = QStringLiteral("Masc.");

bool enBlanco(const FilaFamiliar& fila)
{
    return fila.familiar.isEmpty() && !fila.nroDoc && fila.ayn.isEmpty() && !fila.nacio.isValid();
}

bool incompleta(const FilaFamiliar& fila)
{
    return fila.familiar.isEmpty() || fila.tipoDoc.isEmpty() || fila.ayn.isEmpty() || fila.sexo.isEmpty() ||
           !fila.nacio.isValid();
}

qint64 codigo(Conexion& conexion, Catalogo catalogo, const QString& nombre)
{
    const auto hallado = codigoDe(conexion, catalogo, nombre);
    if (!hallado)
    {
        throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::SinRegistro, nombre);
    }
    return *hallado;
}

void insertarFamiliar(Conexion& conexion, const QString& cuil, const FilaFamiliar& fila)
{
    const qint64 documento = codigo(conexion, Catalogo::Documentos, fila.tipoDoc);
    const qint64 familiar = codigo(conexion, Catalogo::Familiar, fila.familiar);
    if (!fila.nroDoc)
    {
        throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::NoCoincidenTipos,
                                           QStringLiteral("falta el número de documento de %1").arg(fila.ayn));
    }
    insertar(conexion, "Empleados_Familiares",
             {{"CUIL", cuil},
              {"Familiar", familiar},
              {"AyN", fila.ayn},
              {"TipoDoc", documento},
              {"NroDoc", *fila.nroDoc},
              {"Sexo", fila.sexo == femenino ? 0 : 1},
              {"Nacio", fila.nacio}});
}
} // namespace

std::vector<FilaFamiliar> cargarFamiliares(Conexion& conexion, const QString& cuil)
{
    return conexion.lista(
        "SELECT Familiar.Nombre AS Nombre_FAM, Documentos.Nombre AS Nombre_DOC, Empleados_Familiares.NroDoc, "
        "Empleados_Familiares.AyN, Empleados_Familiares.Sexo, Empleados_Familiares.Nacio "
        "FROM Empleados_Familiares "
        "INNER JOIN Familiar ON Empleados_Familiares.Familiar = Familiar.Codigo "
        "INNER JOIN Documentos ON Documentos.Codigo = Empleados_Familiares.TipoDoc "
        "WHERE Empleados_Familiares.CUIL = ? "
        "ORDER BY Familiar.Nombre, Empleados_Familiares.Nacio DESC",
        [](const Fila& fila)
        {
            const bool esFemenino = fila.enteroONulo("Sexo") == 0;
            return FilaFamiliar{fila.texto("Nombre_FAM"), fila.texto("Nombre_DOC"),          fila.enteroONulo("NroDoc"),
                                fila.texto("AyN"),        esFemenino ? femenino : masculino, fila.fecha("Nacio")};
        },
        cuil);
}

bool guardarFamiliares(Conexion& conexion, const QString& cuil, const std::vector<FilaFamiliar>& filas)
{
    conexion.ejecutar("DELETE FROM Empleados_Familiares WHERE CUIL = ?", cuil);
    for (const FilaFamiliar& fila : filas)
    {
        if (enBlanco(fila))
        {
            continue;
        }
        if (incompleta(fila))
        {
            return false;
        }
        insertarFamiliar(conexion, cuil, fila);
    }
    return true;
}

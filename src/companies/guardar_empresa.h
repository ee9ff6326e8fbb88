#pragma once

#include "companies/cambios.h"
#include "companies/empresa.h"
#include "companies/responsables.h"
#include "companies/sucursales.h"

#include <optional>
#include <vector>

/// A company as a screen read it, to be compared at the save with what is stored then.
struct EmpresaLeida
{
    Empresa empresa;
    std::vector<FilaSucursal> sucursales;
    std::vector<FilaResponsable> responsables;
};
/// Nothing when there is no company of this CUIT (any more).
[[nodiscard]] std::optional<EmpresaLeida> leerEmpresa(Conexion& conexion, const QString& cuit);

/// A company as it was typed, with its two lists.
struct EntradaEmpresa
{
    bool nueva = false; ///< inserted; otherwise the company of this CUIT is updated
    Empresa empresa;
    std::optional<std::vector<FilaSucursal>> sucursales = {};      ///< nothing: not touched, not written
    std::optional<std::vector<FilaResponsable>> responsables = {}; ///< nothing: not touched, not written
    std::optional<EmpresaLeida> leida = {};                        ///< nothing: whatever is stored now is replaced
};

enum class CampoEmpresa
{
    Cuit,
    Razon,
    Calle,
    CodPos,
    Localidad,
    Provincia,
    Rubro,
};

/// What is missing for a save: where the user is sent and what he is told.
struct FaltaEnEmpresa
{
    CampoEmpresa campo;
    QString texto;
    friend bool operator==(const FaltaEnEmpresa&, const FaltaEnEmpresa&) = default;
};

/// The first field that is missing, in the order of the save; nothing when all are there. A number left empty becomes
/// "0" once the fields before it are there. `hayProvincia`: the list of provinces has a position.
[[nodiscard]] std::optional<FaltaEnEmpresa> revisarEmpresa(Empresa& empresa, bool hayProvincia);

/// Writes the company, its branches and its responsible persons in one transaction. Gives the text of a refusal, with
/// everything as it was; nothing when all is stored: `entrada` then holds the IDs of the branches just added and, as
/// read, what is stored now. Throws, with everything as it was: YaNoEsta when the company or a branch was deleted
/// meanwhile, CambiadoPorOtro when what would be replaced is no longer stored as it was read, ErrorDeEjecucion for the
/// rest.
[[nodiscard]] std::optional<QString> guardarEmpresa(Conexion& conexion, EntradaEmpresa& entrada);

#pragma once

#include <QString>
#include <optional>
#include <vector>

class Conexion;

/// One row of the list of responsible persons as the screen holds it.
struct FilaResponsable
{
    QString ayn = {};
    QString tipoDoc = {}; ///< name of the document type
    std::optional<qint64> nroDoc = {};
    QString domicilio = {};
    QString localidad = {};

    friend bool operator==(const FilaResponsable&, const FilaResponsable&) = default;
};

/// Responsible persons of a company by name; one whose document type is in no catalogue is left out.
[[nodiscard]] std::vector<FilaResponsable> cargarResponsables(Conexion& conexion, const QString& cuit);

/// Replaces the company's responsible persons by the rows, inside the caller's transaction. A row whose name, document
/// number, address and town are empty is passed over. Gives the text of the refusal when a row is incomplete: the
/// caller rolls back. Throws ErrorDeEjecucion 3021 for a document type in no catalogue.
[[nodiscard]] std::optional<QString> guardarResponsables(Conexion& conexion, const QString& cuit,
                                                         const std::vector<FilaResponsable>& filas);

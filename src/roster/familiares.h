#pragma once

#include <QDate>
#include <QString>
#include <optional>
#include <vector>

class Conexion;

/// One row of the family list as the grid shows it. Dependants belong to the person and not to a declaration.
struct FilaFamiliar
{
    QString familiar; ///< name of the relation
    QString tipoDoc;  ///< name of the document type
    std::optional<qint64> nroDoc;
    QString ayn;
    QString sexo; ///< "Fem." or "Masc."
    QDate nacio;
};

/// Dependants of a person by relation, the youngest first. A row whose relation or document type is not in its lookup
/// is not listed.
[[nodiscard]] std::vector<FilaFamiliar> cargarFamiliares(Conexion& conexion, const QString& cuil);

/// Replaces the whole list of a person, within the caller's transaction. Rows with neither relation, number, name nor
/// birth date are skipped. False as soon as a row is incomplete (relation, type, name, sex or date missing): the
/// caller rolls back. Throws ErrorDeEjecucion for a name that is not in its lookup or a missing document number.
[[nodiscard]] bool guardarFamiliares(Conexion& conexion, const QString& cuil, const std::vector<FilaFamiliar>& filas);

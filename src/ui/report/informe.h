#pragma once

#include "base/numbers/valor_informe.h"

#include <QString>

class Conexion;

/// The report control: a layout file beside the program, named values by index, rows read from the data file, a
/// preview on the screen. See informe_plantilla.h for what a layout is made of.
class Informe
{
public:
    QString ArchivoInforme; ///< path of the layout
    QString ArchivoDatos;   ///< path of the database file, read over a read-only connection
    ValoresDeInforme Formulas;
    QString NombreDeArchivo; ///< proposed where the preview is saved, without extension; empty: the report's title

    /// Reads the rows, lays the pages out and shows the preview, which lives on by itself: the rows may be deleted when
    /// this returns. 0 when all went well, else an error number; nothing is shown then.
    [[nodiscard]] int PrintReport();
    /// The same with the rows read over a connection of the caller's, in place of ArchivoDatos. The user can cancel it;
    /// not the other one, whose slip is registered already.
    [[nodiscard]] int PrintReport(Conexion& datos);
    /// What the last PrintReport failed of, for the user.
    [[nodiscard]] QString LastErrorString() const { return m_error; }

private:
    int imprimir(Conexion* datos);
    QString m_error;
};

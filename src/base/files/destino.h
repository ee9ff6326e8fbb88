#pragma once

#include <QString>

/// What stands in the way of writing a file that the user has named, before anything is written.
struct Destino
{
    bool existe = false; ///< another file would be replaced: to be asked
    QString rechazo;     ///< why it must not be written, a whole sentence; empty when it may
};

/// The program's own files are refused by what they are, whatever name, letter case or link leads to them: databases
/// and what lies beside them, locks, safety copy and backups, report layouts, font, executable, help. So is a name that
/// such a file would have, and a file that is protected against writing.
[[nodiscard]] Destino puedeEscribirse(const QString& ruta);

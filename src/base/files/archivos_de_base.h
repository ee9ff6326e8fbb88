#pragma once

#include <QStringList>

/// What lies beside a database lies beside the file itself, not beside a link to it.

/// The lock file of running copies on a database.
[[nodiscard]] QString archivoDeCandado(const QString& base);

/// The files in which SQLite keeps changes beside a database: what a transaction may have to undo, then the
/// write-ahead log and its index. Beside a closed database they stand only after a death.
[[nodiscard]] QStringList acompanantes(const QString& base);

#pragma once

#include <QByteArray>
#include <QString>

/// Whole files, without the program's own file routines; a failure fails the test.
[[nodiscard]] QByteArray leerArchivo(const QString& ruta);
/// All files below a folder but the locks of running copies, as "a b/c", by name.
[[nodiscard]] std::string archivosDe(const QString& carpeta);
void escribirArchivo(const QString& ruta, const QByteArray& bytes);

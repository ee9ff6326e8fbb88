#pragma once

#include <QByteArray>
#include <QString>

/// Whole files, without the program's own file routines; a failure fails the test.
[[nodiscard]] QByteArray leerArchivo(const QString& ruta);
void escribirArchivo(const QString& ruta, const QByteArray& bytes);

#pragma once

#include "platform/data/conexion.h"

#include <QString>
#include <QTemporaryDir>

/// A program's directory of its own, with a database fresh from the seed that is open as Rutinas::Conexion. While it
/// lives the program's directory is this one.
class BaseTemporal
{
public:
    BaseTemporal();
    ~BaseTemporal();
    BaseTemporal(const BaseTemporal&) = delete;
    BaseTemporal& operator=(const BaseTemporal&) = delete;

    [[nodiscard]] Conexion& conexion() const;
    /// Path of a file in the directory, which need not exist.
    [[nodiscard]] QString ruta(const QString& nombre) const;
    [[nodiscard]] QByteArray leer(const QString& nombre) const;
    /// Writes a file there and gives its path.
    QString escribir(const QString& nombre, const QByteArray& contenido) const;

private:
    QTemporaryDir m_carpeta;
};

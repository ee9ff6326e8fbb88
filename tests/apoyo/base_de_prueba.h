#pragma once

#include "core/clave_ddjj.h"
#include "core/rutinas.h"

#include <QDate>
#include <QString>
#include <QTemporaryDir>

/// While it lives the program works in a directory of its own that holds a fresh copy of the seed database, open as
/// Rutinas::Conexion. The public variables begin as at the start of the program; at the end they and the program's
/// directory are put back.
class BaseDePrueba
{
public:
    BaseDePrueba();
    ~BaseDePrueba();
    BaseDePrueba(const BaseDePrueba&) = delete;
    BaseDePrueba& operator=(const BaseDePrueba&) = delete;

    /// A start of the program on it.
    static void arrancar();
    [[nodiscard]] Conexion& conexion() const { return Rutinas::Conexion; }
    /// Path of a file in the program's directory, which need not exist.
    [[nodiscard]] QString ruta(const QString& nombre) const;
    [[nodiscard]] QByteArray leer(const QString& nombre) const;
    /// Writes a file there and gives its path.
    QString escribir(const QString& nombre, const QByteArray& contenido) const;
    [[nodiscard]] QString rutaBase() const { return ruta("DBBrivo.mdb"); }

private:
    QTemporaryDir m_carpeta;
};

/// The company, month and employee of the rows that poner() adds where a test does not say otherwise. Their check
/// digits agree.
namespace dePrueba
{
inline const QString cuit = "30-12345678-1";
inline const QString cuil = "20-12345678-6";
inline const QDate periodo(2009, 5, 1);
inline const ClaveDDJJ clave{cuit, periodo, 0};
} // namespace dePrueba

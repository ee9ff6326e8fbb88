#pragma once

#include "apoyo/archivos_de_prueba.h"
#include "core/clave_ddjj.h"
#include "core/rutinas.h"

#include <QDate>
#include <QDir>
#include <QString>
#include <QTemporaryDir>
#include <gtest/gtest.h>

/// While it lives the program works in a directory of its own that holds a fresh copy of the seed database, open as
/// Rutinas::Conexion. The public variables begin as at the start of the program; at the end they and the program's
/// directory are put back.
class BaseDePrueba
{
public:
    BaseDePrueba();
    ~BaseDePrueba();

    /// A start of the program on it.
    static void arrancar();
    [[nodiscard]] Conexion& conexion() const { return Rutinas::Conexion; }
    /// Path of a file in the program's directory, which need not exist.
    [[nodiscard]] QString ruta(const QString& de) const { return QDir::toNativeSeparators(m_carpeta.filePath(de)); }
    [[nodiscard]] QByteArray leer(const QString& nombre) const { return leerArchivo(ruta(nombre)); }
    /// Writes a file there and gives its path.
    QString escribir(const QString& nombre, const QByteArray& contenido) const;
    [[nodiscard]] QString rutaBase() const { return ruta("DBBrivo.mdb"); }

private:
    QTemporaryDir m_carpeta;
};

/// Another desk that now and then holds the base alone; nobody waits for it.
class OtroPuesto
{
public:
    explicit OtroPuesto(const BaseDePrueba& base) { m_conexion.abrir(base.rutaBase()); }
    void tomar() { m_conexion.ejecutar("BEGIN EXCLUSIVE"); }
    void soltar() { m_conexion.ejecutar("COMMIT"); }

private:
    Conexion m_conexion;
    Conexion::EsperaCorta m_nada{std::chrono::milliseconds(0)};
};

/// What a test of a rule begins with.
struct ConBase : testing::Test
{
    BaseDePrueba base;
    Conexion& conexion = base.conexion();
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

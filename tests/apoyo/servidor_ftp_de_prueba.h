#pragma once

#include "apoyo/archivos_de_prueba.h"

#include <QProcess>
#include <QTemporaryDir>

/// A real FTP server of the test's own on this machine, "si" or "lleno": what con_ftp.py offers. It
/// knows the program's account; the test fails when it cannot be started.
class ServidorFtpDePrueba
{
public:
    explicit ServidorFtpDePrueba(const QString& como);
    ~ServidorFtpDePrueba() { terminar(); }

    [[nodiscard]] const QString& direccion() const { return m_direccion; } ///< host:port
    /// Ends it, so that what it has received no longer changes.
    void terminar();
    /// All that it has received, as "DDJJ/x.txt DDJJ/y.txt".
    [[nodiscard]] QString archivos() const { return QString::fromStdString(archivosDe(m_carpeta.path())); }
    [[nodiscard]] QByteArray leer(const QString& archivo) const { return leerArchivo(m_carpeta.filePath(archivo)); }
    /// After terminar(): the commands that came, with "|" between them.
    [[nodiscard]] QByteArray ordenes();

private:
    QTemporaryDir m_carpeta;
    QProcess m_proceso;
    QString m_direccion;
    QByteArray m_ordenes;
};

#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A real FTP server of the test's own on this machine, "si" or "lleno": what con_ftp.py offers. It
/// knows the program's account; the test fails when it cannot be started.
class ServidorFtpDePrueba
{
public:
    explicit ServidorFtpDePrueba(const QString& como);
    ~ServidorFtpDePrueba();
    ServidorFtpDePrueba(const ServidorFtpDePrueba&) = delete;
    ServidorFtpDePrueba& operator=(const ServidorFtpDePrueba&) = delete;

    [[nodiscard]] const QString& direccion() const { return m_direccion; } ///< host:port
    /// Ends it, so that what it has received no longer changes.
    void terminar();
    [[nodiscard]] QStringList archivos() const; ///< all that it has received, as "DDJJ/x.txt"
    [[nodiscard]] QByteArray leer(const QString& archivo) const;
    /// After terminar(): the commands that came, with "|" between them.
    [[nodiscard]] QByteArray ordenes();

private:
    QTemporaryDir m_carpeta;
    QProcess m_proceso;
    QString m_direccion;
    QByteArray m_ordenes;
};

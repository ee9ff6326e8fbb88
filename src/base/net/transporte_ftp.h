#pragma once

#include "base/aviso.h"

#include <QString>
#include <chrono>
#include <memory>

/// One FTP connection, passive, kept open over its operations. Nothing here throws for what the server or the net does:
/// each operation tells whether it worked, and ultimoError() says why not. What it is given is never written anywhere.
class TransporteFtp
{
public:
    enum class Tipo : long
    {
        Ascii = 1,
        Binario = 2,
    };
    struct Limites
    {
        std::chrono::milliseconds conexion;  ///< until signed on
        std::chrono::milliseconds sinAvance; ///< with nothing sent and nothing received
    };
    struct Cuenta
    {
        QString servidor; ///< host, or host:port; port 21 unless it says another
        QString usuario;
        QString clave;
    };

    explicit TransporteFtp(Limites limites);
    ~TransporteFtp();
    TransporteFtp(const TransporteFtp&) = delete;
    TransporteFtp& operator=(const TransporteFtp&) = delete;

    /// Called while an operation runs, at least once a second: bytes done and in all (0 while unknown). Must not throw.
    void setAviso(Aviso aviso);
    /// Of the operations that begin from now on.
    void setLimites(Limites limites);
    /// Connects and signs on.
    bool conectar(const Cuenta& cuenta);
    /// Says goodbye and does not wait for the answer. False when there was no connection.
    bool cerrar();
    /// After conectar(): false when the library itself could not be started.
    [[nodiscard]] bool iniciada() const;

    /// The server's current directory; an empty text when it does not say.
    [[nodiscard]] QString directorioActual();
    /// The path goes to the server as it is given.
    bool cambiarDirectorio(const QString& ruta);
    /// Stores a local file in the current directory. In ASCII every line end arrives as CR LF, once.
    bool subir(const QString& local, const QString& remoto, Tipo tipo);
    /// Fetches into a temporary file and renames: the local file is whole or is not there.
    bool bajar(const QString& remoto, const QString& local, bool fallarSiExiste, Tipo tipo);
    bool borrar(const QString& remoto);
    bool borrarDirectorio(const QString& remoto);

    [[nodiscard]] int ultimoCodigo() const;
    [[nodiscard]] QString ultimoError() const;

private:
    struct Interno;
    std::unique_ptr<Interno> m_interno;
};

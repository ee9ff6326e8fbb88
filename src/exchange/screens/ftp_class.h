#pragma once

#include "base/net/transporte_ftp.h"

#include <QDateTime>
#include <QString>
#include <functional>
#include <optional>

/// The FTP client of the upload. It tells what it does on a status control that its holder gives it; only ConectarFtp
/// and ObtenerArchivo have results. One object serves one upload.
class FTP_Class
{
public:
    /// Writes the control's caption. An empty function: the texts are dropped.
    using ControlDeEstado = std::function<void(const QString&)>;
    /// Switches the form's mouse pointer.
    using Formulario = std::function<void(bool ocupado)>;

    explicit FTP_Class(TransporteFtp::Limites limites);
    ~FTP_Class();
    FTP_Class(const FTP_Class&) = delete;
    FTP_Class& operator=(const FTP_Class&) = delete;

    /// False, with a critical box, when server, user or password is empty, and when the server cannot be reached or
    /// refuses. Throws ErrorDeEjecucion 91 when Inicializar has not been called.
    [[nodiscard]] bool ConectarFtp(ControlDeEstado controlStatus);
    void Desconectar();
    /// The server's current directory in 260 characters, the rest of them NUL; kept for CambiarDirectorio.
    QString GetDirectorioActual();
    /// Always relative to the last asked directory, with a "/" between: never asked, "/DDJJ/" goes out as "//DDJJ/".
    void CambiarDirectorio(const QString& pathDirectorio);
    void SubirArchivo(const QString& localArchivo, const QString& nombreArchivoRemoto);
    /// `sobreEscribir` true refuses to overwrite, contrary to its name.
    bool ObtenerArchivo(const QString& archivoRemoto, const QString& archivoLocal, bool sobreEscribir);
    void EliminarArchivo(const QString& archivo);
    void EliminarDirectorio(const QString& directorio);
    void Inicializar(Formulario formulario);
    // Nothing in the program calls these two.
    /// The server's last refusal, in a critical box.
    void MostrarRespuestaFtp() const;
    /// The moment that a FILETIME counts (100 ns since 1601, UTC); nothing past what one can hold (2^63).
    [[nodiscard]] static std::optional<QDateTime> FechaDeArchivo(quint64 fileTime);
    /// Called while the transport works, so that the screen can show that something is going on.
    void setAviso(Aviso aviso);
    /// Of the operations that begin from now on.
    void setLimites(TransporteFtp::Limites limites);

    QString Usuario;
    QString PassWord;
    QString Servidor;
    long TipoTransferencia = 0; ///< 1 ASCII

private:
    void Mensaje(const QString& texto) const;
    void puntero(bool ocupado) const;
    void terminar();
    [[nodiscard]] TransporteFtp::Tipo tipo() const;

    TransporteFtp m_transporte;
    QString m_directorioActual;
    Formulario m_formulario;
    ControlDeEstado m_controlStatus;
};

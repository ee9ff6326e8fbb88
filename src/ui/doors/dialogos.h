#pragma once

#include <QString>
#include <functional>

class QPrinter;

/// The doors to the system's dialogs and programs, each replaceable by tests and the robot.

struct PedidoDeArchivo
{
    QString titulo;
    QString nombreInicial; ///< handed back as it stands when the user cancels
    QString filtro;        ///< "*.txt"; several kinds of a new file: "Texto (*.txt);;Todo (*.xml)"
    QString extension;     ///< added to a name typed without one: "txt"
    bool debeExistir = true;
    QString propuesta = {}; ///< name offered where there is no `nombreInicial`; not handed back
};
/// Open-file dialog. Gives the chosen path with native separators; when cancelled, `nombreInicial` as it was given.
[[nodiscard]] QString DialogoArchivo(const PedidoDeArchivo& pedido);
/// The replacement gives the chosen path, or an empty text to cancel.
void reemplazarDialogoArchivo(std::function<QString(const PedidoDeArchivo&)> atiende);

/// May the file that the user chose be written? Tells why not, and asks before another file is replaced; `origen` is a
/// file whose copy goes there, about which nothing is asked when it is the same one.
[[nodiscard]] bool ConfirmarDestino(const QString& ruta, const QString& origen = {});

/// The printer set-up dialog; the reports use the printer as it leaves it.
void ConfigurarImpresora();
void reemplazarConfigurarImpresora(std::function<void()> atiende);
/// The printer and page set-up as the dialog left them, the system's default printer until then. Lives as long as the
/// application.
[[nodiscard]] QPrinter& impresoraActual();

/// Opens an address or a file with the system's own program; false when that cannot be done.
bool AbrirEnlace(const QString& direccion);
void reemplazarAbrirEnlace(std::function<bool(const QString&)> atiende);

struct MensajeDeCorreo
{
    QString destinatario;
    QString asunto;
    QString texto;
    QString adjunto; ///< path
};
/// Hands a message to the system's mail program. Throws ErrorDeEjecucion when there is none.
void Correo(const MensajeDeCorreo& mensaje);
void reemplazarCorreo(std::function<void(const MensajeDeCorreo&)> atiende);

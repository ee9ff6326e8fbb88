#pragma once

#include "platform/data/aviso.h"

#include <QByteArray>
#include <QString>

/// Files as the program sees them: numbered text channels in Windows-1252, and whole-file operations.
/// Everything fails with ErrorDeEjecucion: 52 channel not open, 53 not found, 54 channel open the other way, 55 channel
/// already open, 57 the disk fails, 61 disk full, 70 in use or (whole files) not permitted, 75 exists or (channels and
/// folders) no access, 76 no such folder.
namespace Archivos
{
/// Opens file number `canal` (1 to 511) to read or, emptying it, to write. The number stays open until cerrar(),
/// whatever happens in between; opening it again fails with 55.
void abrirParaLeer(int canal, const QString& ruta);
void abrirParaEscribir(int canal, const QString& ruta);
/// Next line without its end: CR LF, LF or CR; 14 for one of a mebibyte or more. Bytes as they stand in the file, save
/// that one 0x1A at its very end is no part of it. The view of the bytes is good until the next call for the channel.
/// False at the end of the file.
[[nodiscard]] bool leerLinea(int canal, QByteArrayView& linea);
/// Bytes read so far and in all, for the progress shown to the user.
[[nodiscard]] qint64 posicion(int canal);
[[nodiscard]] qint64 largo(int canal);
/// Writes a line and CR LF. The bytes overload writes what is already in Windows-1252.
void imprimir(int canal, QStringView linea);
void imprimir(int canal, QByteArrayView linea);
/// Writes out what is pending and closes; a channel that is not open is left alone. The channel is closed even when
/// the last write fails.
void cerrar(int canal);
void cerrarTodos();
[[nodiscard]] bool abierto(int canal);

[[nodiscard]] bool existe(const QString& ruta);
/// The file that a path leads to at the end of its links, as a full path; the file need not exist.
[[nodiscard]] QString detrasDeEnlaces(const QString& ruta);
/// Why no file may be put in the place of what stands at `ruta`, for the user: a folder, or a file that is protected
/// against writing, also from one who may write everything. Empty when nothing speaks against it.
[[nodiscard]] QString impedimento(const QString& ruta);

/// A file in the making. It is written under the name "X.parte" beside `destino`, put in its place by colocar() in one
/// step, and removed when that does not happen: `destino` is the old file or the whole new one, never a part. Links are
/// followed, and stay links. Failures name `destino`, as the user knows it.
class Parte
{
public:
    /// What a killed process left under the temporary name is removed. `nombre` is another temporary name, in the same
    /// folder. Throws 75 for what impedimento() tells, 76 when there is no such folder.
    explicit Parte(const QString& destino, const QString& nombre = {});
    ~Parte();
    /// Removes what a killed process left half made for `destino`; true when there was something.
    static bool quitarResto(const QString& destino);
    Parte(const Parte&) = delete;
    Parte& operator=(const Parte&) = delete;

    [[nodiscard]] const QString& ruta() const { return m_ruta; }
    /// Writes a copy of `origen` to the temporary name with `fin` behind it. `aviso` is told the bytes.
    void copiar(const QString& origen, const Aviso& aviso = {}, const QString& fin = {});
    /// Flushes first. The new file takes over the permissions of the one that it replaces.
    void colocar();

private:
    QString m_destino; // as it was given
    QString m_real;
    QString m_ruta;
};
/// Copies by way of a Parte. A file onto itself fails with 70. Not for a database that this process has open: on POSIX,
/// closing the copy's descriptor would drop the database's locks.
void copiar(const QString& origen, const QString& destino);
/// Removes a file; a folder of that name counts as not there.
void borrar(const QString& ruta);
/// Fails with 75 when it exists.
void crearCarpeta(const QString& ruta);
/// Flushes a closed file (and on POSIX its folder) to the disk.
void asegurarEnDisco(const QString& ruta);
} // namespace Archivos

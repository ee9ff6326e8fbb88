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
/// Copies under a temporary name in the target's folder, flushes, and renames: the target is the old file or the whole
/// copy, never a part. What a killed copy to the same target left under its temporary name is removed first. A file
/// onto itself fails with 70. Not for a database that this process has open: on POSIX, closing the copy's descriptor
/// would drop the database's locks.
void copiar(const QString& origen, const QString& destino);
/// Copies into `parte`, flushed, for who checks the copy before reemplazar(): a file of that name is written anew, and
/// none is left by a failure. `aviso` is told the bytes.
void copiarAParte(const QString& origen, const QString& parte, const Aviso& aviso = {});
/// Puts `origen` in the place of `destino` in one step; `destino` may exist, and then hands on its permissions.
void reemplazar(const QString& origen, const QString& destino);
/// `destino` must not exist (else 58 is told as 75).
void renombrar(const QString& origen, const QString& destino);
void borrar(const QString& ruta);
/// Fails with 75 when it exists.
void crearCarpeta(const QString& ruta);
/// Flushes a closed file (and on POSIX its folder) to the disk.
void asegurarEnDisco(const QString& ruta);
} // namespace Archivos

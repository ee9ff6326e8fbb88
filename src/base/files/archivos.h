#pragma once

#include "base/aviso.h"

#include <QString>

/// Whole files. Everything fails with ErrorDeEjecucion: 53 not found, 57 the disk fails, 61 disk full, 70 in use or not
/// permitted, 75 exists, is a folder or is protected, 76 no such folder.
namespace Archivos
{
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

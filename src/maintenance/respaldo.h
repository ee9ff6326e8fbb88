#pragma once

#include "base/db/conexion.h"

#include <QDateTime>
#include <QString>

/// What leerUltimaCopia gives from now on.
void anotarCopia(Conexion& conexion, const QString& destino, const QDateTime& cuando);

/// The folder of a backup made at `cuando`: one a minute, under Copias.
[[nodiscard]] QString carpetaDeCopia(const QString& programa, const QDateTime& cuando);

/// Makes the folder of a backup; that of this minute may be there already. Gives the path of the copy to be made in it.
/// Throws ErrorDeEjecucion: 76 when Copias is missing, 75 when the folder cannot be made.
[[nodiscard]] QString prepararCopia(const QString& carpeta);

/// Copies the closed database `origen` to `destino`, which becomes a whole copy or stays as it was. A damaged database
/// is copied as well: gives what is wrong with the copy, in Spanish, empty when it is sound. What killed backups left
/// half made is removed. Throws ErrorDeEjecucion: 70 when another copy of the program has the database open, 75 for a
/// folder of that name, and what the file system refuses.
QString resguardar(const QString& origen, const QString& destino, const Aviso& aviso = {});

enum class FallaDeRestauracion
{
    Ninguna,
    SinOrigen,
    SobreSiMisma,   ///< also by another name, or through a link
    NoEsDelSistema, ///< the name does not end in "\DBBrivo.mdb", case included
};
[[nodiscard]] FallaDeRestauracion revisarRestauracion(const QString& origen, const QString& destino);

/// Puts the database `origen` in the place of the closed `destino`, in one step once it is whole, checked and found to
/// hold the program's tables, after a copy of `destino`, if it is there, to `seguridad`. A failure or a kill leaves the
/// old database or the new one, never none. What a killed process left half done in either is undone first.
/// Throws ErrorDeEjecucion: 70 when another copy of the program has one of them open, 26 when the tables are not there.
void restaurar(const QString& origen, const QString& destino, const QString& seguridad, const Aviso& aviso = {});

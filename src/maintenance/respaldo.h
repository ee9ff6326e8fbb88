#pragma once

#include "platform/data/conexion.h"

#include <QDateTime>
#include <QString>

/// Where the last backup lies and when it was made, as Parametros remembers it.
struct UltimaCopia
{
    QString carpeta; ///< full path with the file name; empty when there is none
    QDate fecha;
    QTime hora;
};
[[nodiscard]] UltimaCopia leerUltimaCopia(Conexion& conexion);
void anotarCopia(Conexion& conexion, const QString& destino, const QDateTime& cuando);

/// The folder of a backup made at `cuando`: one a minute, under Copias.
[[nodiscard]] QString carpetaDeCopia(const QString& programa, const QDateTime& cuando);

/// Copies the closed database `origen` to the folder, made if it is not there, as DBBrivo.mdb; gives the copy's path.
/// The copy is whole and checked, or is not there. No other copy of the program may have the database open: throws
/// ErrorDeEjecucion 70. 76 when Copias is missing.
QString resguardar(const QString& origen, const QString& carpeta);

enum class FallaDeRestauracion
{
    Ninguna,
    SinOrigen,
    SobreSiMisma,
    NoEsDelSistema, ///< the name does not end in "\DBBrivo.mdb", case included
};
[[nodiscard]] FallaDeRestauracion revisarRestauracion(const QString& origen, const QString& destino);

/// Puts the database `origen` in the place of the closed `destino`, in one step once it is whole and checked, after a
/// copy of `destino` to `seguridad`. A failure or a kill leaves the old database or the new one, never none.
/// Throws ErrorDeEjecucion: 70 when another copy of the program has it open.
void restaurar(const QString& origen, const QString& destino, const QString& seguridad);

#pragma once

#include <QDate>
#include <QString>
#include <QTime>

class Conexion;

/// Where the last backup lies and when it was made, as Parametros remembers it.
struct UltimaCopia
{
    QString carpeta; ///< full path with the file name; empty when there is none
    QDate fecha;
    QTime hora;
};
[[nodiscard]] UltimaCopia leerUltimaCopia(Conexion& conexion);

/// The last backup in a few words, "Última copia: 24/11/26", with its age when that is a reason to make another one.
struct AvisoDeCopia
{
    QString texto;
    bool atencion = false; ///< there is none, or it is older than thirty days
};
[[nodiscard]] AvisoDeCopia avisoDeCopia(const UltimaCopia& ultima, QDate hoy);

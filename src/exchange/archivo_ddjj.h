#pragma once

#include "base/aviso.h"

#include <QDate>
#include <QString>

class Conexion;

/// What the declaration's screen shows of the declaration that goes into the text file. The routine does not check
/// that the fields agree with one another.
struct DatosArchivoDDJJ
{
    QString cuit;      ///< MaskCuit, with its dashes
    QDate periodo;     ///< PeriodoSel
    QString anio;      ///< txtAnio, written as it stands
    QString mes;       ///< txtMes, "5" or "05"
    QString secuencia; ///< txtSecuencia
};

/// Name of the declaration's text file: "30-12345678-9 2009-05 00.txt".
[[nodiscard]] QString nombreArchivoDDJJ(const DatosArchivoDDJJ& datos);

/// Where GrabarArchivoDDJJ writes a file of this name: in the program's directory.
[[nodiscard]] QString rutaArchivoDDJJ(const QString& nombreArchivo);

/// Writes the declaration's text file (Windows-1252, CR LF) over file number 1 and puts its name into `nombreArchivo`
/// before anything can fail. A file of the same name is overwritten. Memory does not grow with the declaration.
/// `aviso(hecho, total)` is called now and then with the employees written; the total is 0, for it is not counted.
/// Throws ErrorDeEjecucion: whatever opening, reading or writing fails with, 55 when file number 1 was left open
/// before, 3021 when the company is not in Empresas, 13 when the sequence is no number. File number 1 is closed then,
/// and the lines already written stay in the file. What `aviso` throws leaves the file that was there before.
void GrabarArchivoDDJJ(Conexion& conexion, const DatosArchivoDDJJ& datos, QString& nombreArchivo,
                       const Aviso& aviso = {});

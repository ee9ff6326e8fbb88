#pragma once

#include "base/aviso.h"
#include "core/clave_ddjj.h"

#include <QString>

class Conexion;

/// Where GrabarArchivoDDJJ writes a file of this name: in the program's directory.
[[nodiscard]] QString rutaArchivoDDJJ(const QString& nombreArchivo);

/// Writes the declaration's text file (Windows-1252, CR LF) over file number 1 and puts its name into `nombreArchivo`
/// before anything can fail: "30-12345678-9 2009-05 00.txt". A file of the same name is overwritten. Memory does not
/// grow with the declaration. `aviso(hecho, total)` is called now and then with the employees written; the total is 0,
/// for it is not counted. Throws ErrorDeEjecucion: whatever opening, reading or writing fails with, 55 when file number
/// 1 was left open before, 3021 when the company is not in Empresas. File number 1 is closed then, and the lines
/// already written stay in the file. What `aviso` throws leaves the file that was there before.
void GrabarArchivoDDJJ(Conexion& conexion, const ClaveDDJJ& clave, QString& nombreArchivo, const Aviso& aviso = {});

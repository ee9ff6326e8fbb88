#pragma once

#include "base/aviso.h"
#include "core/clave_ddjj.h"

#include <QString>

class Conexion;

/// Line formats of a roster file; the numbers are those of Rutinas::FormatoImportar.
enum class FormatoDeNomina : quint8
{
    AfipSijp = 0, ///< the tax agency's export: employees only
    Brivo = 1,    ///< the union's own layout: employees and their family members
};

/// What an import has inserted.
struct ResultadoImportacion
{
    int titulares = 0;
    int familiares = 0;

    friend bool operator==(const ResultadoImportacion&, const ResultadoImportacion&) = default;
};

/// Fills the declaration from a roster file: reads the whole file, at most 64 MiB, and then takes it line by line in
/// one transaction. Employees who already stand in the declaration are left alone and not counted; a family line counts
/// only after its employee. `aviso(hecho, total)` is called now and then, with 0 done while the file is read.
/// Throws with nothing of the run in the database: YaNoEsta when the declaration is gone, else ErrorDeEjecucion. An
/// error in a line names it and, where it can, the field: "No coinciden los tipos: línea 12, campo Sueldo"; a line
/// after which the totals of the declaration could not be shown is one (6). The file is read over file number 1, which
/// stays open after an error in it: the next import then fails with 55 until something closes it. What `aviso` throws
/// closes it.
[[nodiscard]] ResultadoImportacion importarNomina(Conexion& conexion, const ClaveDDJJ& clave, const QString& ruta,
                                                  FormatoDeNomina formato, const Aviso& aviso = {});

/// The closing message of an import, for an exclamation box.
[[nodiscard]] QString mensajeDeImportacion(const ResultadoImportacion& resultado, FormatoDeNomina formato);

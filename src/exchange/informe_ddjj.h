#pragma once

#include "base/numbers/valor_informe.h"
#include "core/clave_ddjj.h"

#include <QString>

class Conexion;
class Fila;

/// The two reports of a declaration; the number is the index of their button.
enum class InformeDDJJ
{
    Declaracion = 0,
    DatosIncompletos = 1,
};

[[nodiscard]] bool hayNomina(Conexion& conexion, const ClaveDDJJ& clave);

/// Gives a connection a RptEmpleados of its own, in its temporary tables, that hides the one of the database.
void crearPreparacion(Conexion& conexion);

/// Stages the rows of a report in RptEmpleados under a fresh index, in one transaction: the roster and the company's
/// branches, or the employees with missing data. Throws ErrorDeEjecucion with nothing staged.
void prepararInforme(Conexion& conexion, const ClaveDDJJ& clave, qint64 indice, InformeDDJJ cual);

/// The named values of a report, by index: five common ones, then the company's and its accountants' data for the
/// declaration. `empresa` is a row of the company joined with its trade; `mes` and `anio` go as the screen shows them.
[[nodiscard]] ValoresDeInforme valoresDeInforme(const Fila& empresa, const ClaveDDJJ& clave, qint64 indice,
                                                const QString& mes, const QString& anio, InformeDDJJ cual);

/// File name of the layout beside the program.
[[nodiscard]] QString archivoDeInforme(InformeDDJJ cual);

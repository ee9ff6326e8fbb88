#pragma once

#include "base/aviso.h"
#include "base/db/conexion.h"
#include "core/clave_ddjj.h"

#include <QDate>
#include <QString>
#include <functional>

/// The public variables through which screens hand state to each other, set just before a screen is shown and
/// overwritten by whichever screen acts last, and the routines that all of them share.
namespace Rutinas
{
inline ::Conexion Conexion; ///< the one connection, open for the life of the process
inline QString RutaApp;     ///< the program's directory and one separator
inline QString CuitActual;  ///< masked form; empty means none
inline QString EmpresaActual;
inline QDate PeriodoActual; ///< first of a month
inline quint8 SecuenciaActual = 0;
inline QString CuilElegido;        ///< answer of BuscarEmpleado; empty means cancelled
inline qint32 SucursalElegida = 0; ///< answer of BuscarSucursal, a branch ID; 0 means none
inline quint8 ModoAbrir = 0;       ///< index of the command that opened a screen; on Boletas the slip kind
inline QString TextoDevuelto;      ///< answer of BuscarRubro and of Importar
inline quint8 FormatoImportar = 0; ///< 0 "AFIP - SIJP", 1 "B.R.I.V.O."
inline qint32 CantidadEmpleados = 0;
inline qint32 CantidadAfiliados = 0;
inline bool BoletaEmitida = false; ///< a contributions slip was issued; DDJJ acts on it

/// The declaration that CuitActual, PeriodoActual and SecuenciaActual name.
[[nodiscard]] inline ClaveDDJJ declaracionActual()
{
    return {CuitActual, PeriodoActual, SecuenciaActual};
}

/// Path of the database file.
[[nodiscard]] QString rutaBase();

/// Process entry: opens the database, runs at most one upgrade step, zeroes null agreement sums and shows the main
/// window. A database that cannot be opened throws, and so does a window that cannot be shown; the failing statements
/// in between are passed over.
void Main(const std::function<void()>& mostrarMenuPpal);
/// Opens a new Conexion on the database file beside the program.
void AbrirBase();
void CerrarBase();

/// What a start does for an older database, on the open one: the one upgrade step of its version, as one transaction,
/// and zero for agreement sums that are null. Nothing of it throws. It waits for other copies of the program one second
/// in all; what they did not let it do is left to the next call.
void SubirUnaVersion();
/// The statements of each step, in whatever transaction there is.
void ActualizarA11();
void ActualizarA12();
void ActualizarA20();

/// Check digit of CUIT and CUIL over ten digits: weights 5 4 3 2 7 6 5 4 3 2, remainder of 11. Gives 0 to 9, or 11
/// when no digit exists (remainder 1).
[[nodiscard]] quint8 CalcularDV(qint64 primerosDiez);
/// True when the number has exactly 11 digits (so none begins with 0) and its check digit agrees.
[[nodiscard]] bool VerificarCuit(qint64 numero);
/// The same from a masked text; false when digits are missing.
[[nodiscard]] bool VerificarCuit(const QString& conMascara);

/// What Parametros.Version says. Throws ErrorDeEjecucion 3021 when the table has no row.
[[nodiscard]] QString VersionDe(::Conexion& conexion);

/// A new report index: reads Parametros.Indice, adds one, writes it back.
[[nodiscard]] qint64 ObtenerIndice();
/// Deletes a run's staged rows, and what killed programs have left of earlier ones. The counter keeps its value.
void LiberarIndice(qint64 indice);

/// Rewrites the closed database compactly and puts it in place by one rename. Throws with the old file untouched;
/// 70 when another copy of the program holds it.
void CompactarBase(const Aviso& aviso = {});
} // namespace Rutinas

#pragma once

#include "base/numbers/moneda.h"
#include "core/vigencia.h"

#include <QDate>
#include <QString>
#include <optional>

class Conexion;

/// Which record of a declaration's roster, in the order of the text of the CUIL.
enum class AccionEmpleado
{
    Primero = 0,
    Anterior = 1,
    Siguiente = 2,
    Ultimo = 3,
    Buscado = 8,
    Inicio = 9,
};

/// An employee of a declaration as the screen shows him. A lookup name that is Null gives nothing: the code is not in
/// its lookup.
struct Empleado
{
    QString cuil;
    QString ayn;
    std::optional<QString> documento; ///< name of the document type
    qint64 nroDoc = 0;
    std::optional<int> sexo; ///< 0 female, 1 male; nothing for any other code
    QDate nacio;
    QString calle;
    qint64 numero = 0;
    QString piso;
    QString depto;
    QString localidad;
    QString codPos;
    std::optional<QString> provincia;
    QString telefono;
    std::optional<QString> estadoCivil;
    std::optional<QString> categoria;
    QDate ingreso;
    QDate egreso;
    int qHoras = 0;
    qint64 sucursal = 0; ///< branch ID, 0 for none
    bool afiliado = false;
    Moneda imponible;
    Moneda acuerdo; ///< both agreement sums
    Moneda art100;
    Moneda art101A;
    Moneda art101B;
};

/// The record wanted; nothing when there is none. `cuil` is the masked text of the record on screen, which Anterior,
/// Siguiente and Buscado compare with. One row is read, whatever the size of the roster.
/// Throws ErrorDeEjecucion 94 for a Null amount, number or branch.
[[nodiscard]] std::optional<Empleado> cargarEmpleado(Conexion& conexion, const ClaveDDJJ& clave, AccionEmpleado accion,
                                                     const QString& cuil);

/// Where an employee stands in the roster, in the order in which it is walked through.
struct LugarEnNomina
{
    qint64 lugar = 0; ///< from 1
    qint64 total = 0;
};
/// Reads this declaration's roster alone, whatever else the table holds.
[[nodiscard]] LugarEnNomina lugarEnNomina(Conexion& conexion, const ClaveDDJJ& clave, const QString& cuil);

/// The branch as one line: code, address and town. Empty for the ID 0, nothing when the company has no branch of this
/// ID.
[[nodiscard]] std::optional<QString> textoSucursal(Conexion& conexion, qint64 id, const QString& cuit);
/// The same for a branch just picked, whatever its company.
[[nodiscard]] std::optional<QString> textoSucursal(Conexion& conexion, qint64 id);

/// An employee who is no longer in the declaration.
class EmpleadoEliminado : public YaNoEsta
{
public:
    explicit EmpleadoEliminado(const QString& cuil);
};

/// Deletes an employee from the declaration; his dependants stay. Throws YaNoEsta when he or the declaration was
/// deleted meanwhile.
void eliminarEmpleado(Conexion& conexion, const ClaveDDJJ& clave, const QString& cuil);

#pragma once

#include "core/clave_ddjj.h"
#include "roster/aportes.h"
#include "roster/empleado_leido.h"

#include <QDate>
#include <QString>
#include <optional>
#include <vector>

class Conexion;

/// An employee as he was typed. Numbers are the fields' texts; a list with no position gives nothing.
struct EntradaEmpleado
{
    bool nuevo = false;
    QString cuil; ///< masked
    QString ayn;
    std::optional<int> tipoDoc;
    QString documento;
    std::optional<int> sexo; ///< 0 female, 1 male
    QDate nacio;
    QString calle;
    QString numero; ///< empty means 0
    QString piso;
    QString depto;
    QString localidad;
    QString codPos;
    std::optional<int> provincia;
    QString telefono;
    std::optional<int> estCivil;
    QDate ingreso;
    std::optional<int> categoria;
    QString qHoras;
    QDate egreso;
    qint64 sucursal = 0;
    QString haberes; ///< empty means 0
    QString acuerdo; ///< empty means 0
    bool afiliado = false;
    std::vector<FilaFamiliar> familia;
    std::optional<EmpleadoLeido> leido = {}; ///< as the screen read him; nothing: whatever is stored now is replaced
};

enum class CampoEmpleado
{
    Cuil,
    AyN,
    TipoDoc,
    Documento,
    QHoras,
    Sucursal,
};

/// What is missing for a save: where the user is sent and what he is told.
struct FaltaEnEmpleado
{
    CampoEmpleado campo;
    int pagina;
    QString texto;
    friend bool operator==(const FaltaEnEmpleado&, const FaltaEnEmpleado&) = default;
};

/// Is there an employee of this CUIL in the declaration?
[[nodiscard]] bool cuilExistente(Conexion& conexion, const ClaveDDJJ& clave, const QString& cuil);

/// The first check that fails, in the order of the save; nothing when all pass. Hours are 100 to 200; a branch is
/// wanted only when the company has one. Does not look for a duplicate CUIL: that test comes before these.
[[nodiscard]] std::optional<FaltaEnEmpleado> revisarEmpleado(Conexion& conexion, const QString& cuit,
                                                             const EntradaEmpleado& entrada);

/// Inserts or updates the employee with contributions computed anew and replaces his dependants, in one transaction;
/// gives him as he is stored now. Nothing is returned, and nothing stays in the database, when a family row is
/// incomplete. Every failure throws with nothing written: YaNoEsta when the declaration or the employee was deleted
/// meanwhile, CambiadoPorOtro when he is no longer stored as he was read, ErrorParaAvisar when the branch chosen was
/// deleted, ErrorDeEjecucion for the rest.
[[nodiscard]] std::optional<EmpleadoLeido> guardarEmpleado(Conexion& conexion, const ClaveDDJJ& clave,
                                                           const EntradaEmpleado& entrada);

/// The contributions of what is typed. Throws ErrorDeEjecucion 13 for a text that is no number, 11 for 0 hours.
[[nodiscard]] Aportes aportesDe(const EntradaEmpleado& entrada);

#pragma once

#include <QString>
#include <optional>
#include <span>

class Conexion;

/// A company as it is stored. Texts are as typed, empty for none.
struct Empresa
{
    QString cuit; ///< masked form; the key
    QString razon;
    QString fantasia;
    QString calle;
    QString numero; ///< digits
    QString nroLocal;
    QString piso;
    QString depto;
    QString codPos;
    QString localidad;
    qint64 provincia = 0;
    QString nombreProvincia; ///< only read, empty for a code that Provincias does not hold; the save takes the code
    QString telefono;
    QString fax;
    QString rubro; ///< code of the trade
    QString contacto;
    QString web;
    QString email;
    QString estudio;
    QString estDomicilio;
    QString estCodPos;
    QString estLocalidad;
    QString estTelefono;
    QString estEmail;

    friend bool operator==(const Empresa&, const Empresa&) = default;
};

/// A text of a company as its table and the user know it.
struct TextoDeEmpresa
{
    const char* columna;
    const char* rotulo;
    QString Empresa::*lugar;
};
/// All but the key, in the order of the screen.
[[nodiscard]] std::span<const TextoDeEmpresa> textosDeEmpresa();

/// The company of a CUIT; nothing when there is none (any more).
[[nodiscard]] std::optional<Empresa> cargarEmpresa(Conexion& conexion, const QString& cuit);

/// Throws ErrorDeEjecucion: 13 for a number that is none, the database's own number for a CUIT that exists.
void insertarEmpresa(Conexion& conexion, const Empresa& empresa);
/// Throws 13 as above.
void actualizarEmpresa(Conexion& conexion, const Empresa& empresa);

/// What stands against a CUIT typed for a new company.
struct ExamenDeCuit
{
    enum Estado
    {
        Bueno,
        Incorrecto, ///< digits missing, a leading 0 or a wrong check digit
        Existente,
    };
    Estado estado = Bueno;
    QString razon; ///< of the company that has it already
};
[[nodiscard]] ExamenDeCuit examinarCuitNuevo(Conexion& conexion, const QString& cuit);

/// Why a company cannot be deleted; the first that holds counts.
enum class ImpedimentoDeBaja
{
    Ninguno,
    Declaraciones,
    Pagos,
};
[[nodiscard]] ImpedimentoDeBaja impedimentoDeBaja(Conexion& conexion, const QString& cuit);
/// Deletes the company, its responsible persons and its branches in one transaction. What stands against it is looked
/// at once more inside: nothing is deleted then. Throws YaNoEsta when it was deleted meanwhile.
[[nodiscard]] ImpedimentoDeBaja eliminarEmpresa(Conexion& conexion, const QString& cuit);

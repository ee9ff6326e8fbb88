#pragma once

#include "core/rutinas.h"
#include "platform/data/moneda.h"

#include <QDate>
#include <QString>
#include <QTemporaryDir>
#include <optional>

/// While it lives the program works in a directory of its own that holds a fresh copy of the seed database, open as
/// Rutinas::Conexion. The public variables begin as at the start of the program; at the end they, the program's
/// directory and the text channels are put back.
class BaseDePrueba
{
public:
    BaseDePrueba();
    ~BaseDePrueba();
    BaseDePrueba(const BaseDePrueba&) = delete;
    BaseDePrueba& operator=(const BaseDePrueba&) = delete;

    [[nodiscard]] Conexion& conexion() const { return Rutinas::Conexion; }
    /// Path of a file in the program's directory, which need not exist.
    [[nodiscard]] QString ruta(const QString& nombre) const;
    [[nodiscard]] QByteArray leer(const QString& nombre) const;
    /// Writes a file there and gives its path.
    QString escribir(const QString& nombre, const QByteArray& contenido) const;
    [[nodiscard]] QString rutaBase() const { return ruta(QStringLiteral("DBBrivo.mdb")); }

private:
    struct Publicas; // the variables as they were before
    QTemporaryDir m_carpeta;
    std::unique_ptr<Publicas> m_anteriores;
};

/// The company, month and employee of the rows below where a test does not say otherwise. Their check digits agree.
namespace dePrueba
{
inline const QString cuit = QStringLiteral("30-12345678-1");
inline const QString cuil = QStringLiteral("20-12345678-6");
inline const QDate periodo(2009, 5, 1);
} // namespace dePrueba

struct EmpresaDePrueba
{
    QString cuit = dePrueba::cuit;
    QString razon = QStringLiteral("Panadería Ñandú");
    QString calle = QStringLiteral("San Martín");
    int numero = 123;
    QString codPos = QStringLiteral("1870");
    QString localidad = QStringLiteral("Avellaneda");
    int provincia = 1;
};
void agregar(Conexion& conexion, const EmpresaDePrueba& empresa);

struct SucursalDePrueba
{
    QString cuit = dePrueba::cuit;
    QString sucursal = QStringLiteral("1");
    QString domicilio = QStringLiteral("Belgrano");
    int numero = 45;
    QString localidad = QStringLiteral("Avellaneda");
};
/// Gives the ID of the branch.
qint64 agregar(Conexion& conexion, const SucursalDePrueba& sucursal);

struct DeclaracionDePrueba
{
    QString cuit = dePrueba::cuit;
    QDate periodo = dePrueba::periodo;
    int secuencia = 0;
    QDate fecha = QDate(2009, 6, 3);
};
void agregar(Conexion& conexion, const DeclaracionDePrueba& declaracion);

/// Complete data, so that nothing counts as missing; Sueldo is Imponible plus Acuerdo.
struct EmpleadoDePrueba
{
    QString cuit = dePrueba::cuit;
    QDate periodo = dePrueba::periodo;
    int secuencia = 0;
    QString cuil = dePrueba::cuil;
    QString ayn = QStringLiteral("Pérez Juan");
    int tipoDoc = 1;
    int nroDoc = 12345678;
    std::optional<int> sexo = 1;
    std::optional<int> provincia = 1;
    QDate nacio = QDate(1970, 3, 15);
    int estCivil = 1;
    bool afiliado = true;
    Moneda imponible = Moneda::deEntero(1000);
    Moneda acuerdo = {};
    Moneda acuerdo2 = {};
    int categoria = 1;
    QDate ingreso = QDate(2001, 2, 1);
    QDate egreso = {};
    qint64 sucursal = 0;
    int qHoras = 200;
    Moneda art100 = Moneda::deEntero(20);
    Moneda art101A = Moneda::deEntero(10);
    Moneda art101B = Moneda::deEntero(10);
    int familiares = 0;
};
void agregar(Conexion& conexion, const EmpleadoDePrueba& empleado);

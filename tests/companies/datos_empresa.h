#pragma once

#include "companies/empresa.h"

class Conexion;

// Made-up companies with right check digits.
inline const QString cuitUno = QStringLiteral("20-12345678-6");
inline const QString cuitDos = QStringLiteral("30-50001091-2");
inline const QString cuitTres = QStringLiteral("20-20202020-9");

/// A company with a text of its own in every field, an apostrophe in several.
[[nodiscard]] Empresa empresaCompleta(const QString& cuit = cuitUno,
                                      const QString& razon = QStringLiteral("Panadería D'Angelo"));
/// Stores such a company.
void sembrarEmpresa(Conexion& conexion, const QString& cuit = cuitUno,
                    const QString& razon = QStringLiteral("Panadería D'Angelo"));
/// Stores a branch and gives its ID.
qint64 sembrarSucursal(Conexion& conexion, const QString& cuit, const QString& codigo, const QString& localidad);
/// Stores an employee of a declaration who works in this branch.
void sembrarEmpleado(Conexion& conexion, const QString& cuit, qint64 sucursal);
/// Number of rows of "FROM ..." with its conditions.
[[nodiscard]] qint64 contar(Conexion& conexion, const char* desde);

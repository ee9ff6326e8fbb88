#pragma once

#include <QString>
#include <vector>

class Conexion;

struct RubroHallado
{
    QString codigo;
    QString nombre;
    friend bool operator==(const RubroHallado&, const RubroHallado&) = default;
};

/// Trades by code, from `codigo` on, which compares as text (all when it is empty), whose name contains `nombre`, in
/// which "%" and "_" are wild cards.
[[nodiscard]] std::vector<RubroHallado> buscarRubros(Conexion& conexion, const QString& codigo, const QString& nombre);

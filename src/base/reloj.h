#pragma once

#include <QDateTime>
#include <functional>

/// The program's only clock. Tests and the robot replace it.
namespace Reloj
{
[[nodiscard]] QDateTime Ahora();
[[nodiscard]] inline QDate Hoy()
{
    return Ahora().date();
}
/// Replaces the clock; an empty function brings the system's back.
void reemplazar(std::function<QDateTime()> reloj);
} // namespace Reloj

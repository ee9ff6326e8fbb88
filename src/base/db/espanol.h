#pragma once

struct sqlite3;

namespace detalle
{
/// Gives a connection the collation `espanol` and a LIKE that ignores case in Spanish.
void registrarEspanol(sqlite3* base);
} // namespace detalle

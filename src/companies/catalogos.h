#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

class Conexion;

/// The lookup tables with a number for their code. No screen maintains them.
enum class Catalogo
{
    Provincias,
    Documentos,
    Categorias,
    Familiar,
    EstadoCivil,
};

struct EntradaDeCatalogo
{
    qint64 codigo = 0;
    QString nombre;
};

/// All entries, ordered by name.
[[nodiscard]] std::vector<EntradaDeCatalogo> leerCatalogo(Conexion& conexion, Catalogo catalogo);
/// The names alone, in the same order: the entries of a list.
[[nodiscard]] QStringList nombresDe(const std::vector<EntradaDeCatalogo>& entradas);
/// Code of a name shown in a list; nothing when the catalogue has no such name.
[[nodiscard]] std::optional<qint64> codigoDe(Conexion& conexion, Catalogo catalogo, const QString& nombre);
/// Name of a trade by its code, a text; nothing when there is no such trade.
[[nodiscard]] std::optional<QString> nombreDeRubro(Conexion& conexion, const QString& codigo);

#include "companies/catalogos.h"

#include "base/db/conexion.h"

#include <string>

namespace
{
/// By the number of their catalogue.
constexpr const char* tablas[] = {"Provincias", "Documentos", "Categorias", "Familiar", "EstadoCivil"};

std::string de(Catalogo catalogo)
{
    return std::string(" FROM ") + tablas[static_cast<std::size_t>(catalogo)];
}
} // namespace

std::vector<EntradaDeCatalogo> leerCatalogo(Conexion& conexion, Catalogo catalogo)
{
    return conexion.lista("SELECT Codigo, Nombre" + de(catalogo) + " ORDER BY Nombre",
                          [](const Fila& fila) {
                              return EntradaDeCatalogo{fila.entero("Codigo"), fila.texto("Nombre")};
                          });
}

QStringList nombresDe(const std::vector<EntradaDeCatalogo>& entradas)
{
    QStringList nombres;
    nombres.reserve(static_cast<qsizetype>(entradas.size()));
    for (const EntradaDeCatalogo& entrada : entradas)
    {
        nombres.append(entrada.nombre);
    }
    return nombres;
}

std::optional<qint64> codigoDe(Conexion& conexion, Catalogo catalogo, const QString& nombre)
{
    return conexion.una(
        "SELECT Codigo" + de(catalogo) + " WHERE Nombre = ?", [](const Fila& fila) { return fila.entero("Codigo"); },
        nombre);
}

std::optional<QString> nombreDeRubro(Conexion& conexion, const QString& codigo)
{
    return conexion.una(
        "SELECT Nombre FROM Rubros WHERE Codigo = ?", [](const Fila& fila) { return fila.texto("Nombre"); }, codigo);
}

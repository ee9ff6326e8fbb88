#include "companies/catalogos.h"

#include "base/db/conexion.h"

#include <array>

namespace
{
struct Sentencias
{
    const char* leer;
    const char* codigo;
};

constexpr std::array<Sentencias, 5> sentencias{{
    {"SELECT Codigo, Nombre FROM Provincias ORDER BY Nombre", "SELECT Codigo FROM Provincias WHERE Nombre = ?"},
    {"SELECT Codigo, Nombre FROM Documentos ORDER BY Nombre", "SELECT Codigo FROM Documentos WHERE Nombre = ?"},
    {"SELECT Codigo, Nombre FROM Categorias ORDER BY Nombre", "SELECT Codigo FROM Categorias WHERE Nombre = ?"},
    {"SELECT Codigo, Nombre FROM Familiar ORDER BY Nombre", "SELECT Codigo FROM Familiar WHERE Nombre = ?"},
    {"SELECT Codigo, Nombre FROM EstadoCivil ORDER BY Nombre", "SELECT Codigo FROM EstadoCivil WHERE Nombre = ?"},
}};

const Sentencias& de(Catalogo catalogo)
{
    return sentencias.at(static_cast<std::size_t>(catalogo));
}
} // namespace

std::vector<EntradaDeCatalogo> leerCatalogo(Conexion& conexion, Catalogo catalogo)
{
    return conexion.lista(de(catalogo).leer,
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
        de(catalogo).codigo, [](const Fila& fila) { return fila.entero("Codigo"); }, nombre);
}

std::optional<QString> nombreDeRubro(Conexion& conexion, const QString& codigo)
{
    return conexion.una(
        "SELECT Nombre FROM Rubros WHERE Codigo = ?", [](const Fila& fila) { return fila.texto("Nombre"); }, codigo);
}

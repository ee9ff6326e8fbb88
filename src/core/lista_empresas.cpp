#include "core/lista_empresas.h"

#include "base/db/conexion.h"

namespace
{
QString leerCuit(const Fila& fila)
{
    return fila.texto("Cuit");
}
} // namespace

QStringList razonesDeEmpresas(Conexion& conexion)
{
    QStringList razones;
    conexion.recorrer("SELECT Razon FROM Empresas ORDER BY Razon",
                      [&](const Fila& fila) { razones.append(fila.texto("Razon")); });
    return razones;
}

std::optional<QString> razonDeCuit(Conexion& conexion, const QString& cuit)
{
    return conexion.una(
        "SELECT Razon FROM Empresas WHERE Cuit = ?", [](const Fila& fila) { return fila.texto("Razon"); }, cuit);
}

std::optional<QString> cuitDeRazon(Conexion& conexion, const QString& razon)
{
    return conexion.una("SELECT Cuit FROM Empresas WHERE (Razon = ?1 AND Razon = ?1 COLLATE BINARY) "
                        "OR (?1 = '' AND Razon IS NULL) LIMIT 1",
                        leerCuit, razon);
}

std::optional<QString> cuitDeUnicaEmpresa(Conexion& conexion)
{
    const auto cuits = conexion.lista("SELECT Cuit FROM Empresas LIMIT 2", leerCuit);
    return cuits.size() == 1 ? std::optional(cuits.front()) : std::nullopt;
}

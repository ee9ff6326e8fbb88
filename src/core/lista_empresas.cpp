#include "core/lista_empresas.h"

#include "base/db/conexion.h"

namespace
{
std::optional<QString> primerTexto(const Recordset& filas, const char* columna)
{
    return filas.vacio() ? std::nullopt : std::optional(filas.primera().texto(columna));
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
    return primerTexto(conexion.consultar("SELECT Razon FROM Empresas WHERE Cuit = ?", cuit), "Razon");
}

std::optional<QString> cuitDeRazon(Conexion& conexion, const QString& razon)
{
    return primerTexto(conexion.consultar("SELECT Cuit FROM Empresas WHERE (Razon = ?1 AND Razon = ?1 COLLATE BINARY) "
                                          "OR (?1 = '' AND Razon IS NULL) LIMIT 1",
                                          razon),
                       "Cuit");
}

std::optional<QString> cuitDeUnicaEmpresa(Conexion& conexion)
{
    const Recordset filas = conexion.consultar("SELECT Cuit FROM Empresas LIMIT 2");
    return filas.cantidad() == 1 ? primerTexto(filas, "Cuit") : std::nullopt;
}

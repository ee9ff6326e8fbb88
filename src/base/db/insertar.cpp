#include "base/db/insertar.h"

#include <string>

namespace
{
std::string unidas(const ValoresDeColumnas& valores, const char* entre, const char* detras)
{
    std::string texto;
    for (const ValorDeColumna& uno : valores)
    {
        texto += texto.empty() ? "" : entre;
        texto += uno.columna;
        texto += detras;
    }
    return texto;
}

std::vector<Valor> soloValores(const ValoresDeColumnas& valores, const ValoresDeColumnas& clave = {})
{
    std::vector<Valor> solos;
    solos.reserve(valores.size() + clave.size());
    for (const ValoresDeColumnas* lista : {&valores, &clave})
    {
        for (const ValorDeColumna& uno : *lista)
        {
            solos.push_back(uno.valor);
        }
    }
    return solos;
}
} // namespace

void insertar(Conexion& conexion, const char* tabla, const ValoresDeColumnas& valores)
{
    std::string marcas;
    for (std::size_t i = 0; i < valores.size(); ++i)
    {
        marcas += i == 0 ? "?" : ", ?";
    }
    const std::string sql =
        std::string("INSERT INTO ") + tabla + " (" + unidas(valores, ", ", "") + ") VALUES (" + marcas + ")";
    const std::vector<Valor> solos = soloValores(valores);
    conexion.preparar(sql).ejecutarCon(solos.data(), solos.size());
}

int actualizar(Conexion& conexion, const char* tabla, const ValoresDeColumnas& valores, const ValoresDeColumnas& clave)
{
    const std::string sql = std::string("UPDATE ") + tabla + " SET " + unidas(valores, ", ", " = ?") + " WHERE " +
                            unidas(clave, " AND ", " = ?");
    const std::vector<Valor> solos = soloValores(valores, clave);
    return conexion.preparar(sql).ejecutarCon(solos.data(), solos.size());
}

#include "declarations/lista_ddjj.h"

#include "base/db/conexion.h"

std::vector<ClaveDDJJ> listarDeclaraciones(Conexion& conexion, const QString& cuit)
{
    return conexion.lista(
        "SELECT Periodo, Secuencia FROM DDJJ WHERE Cuit = ? ORDER BY Periodo DESC, Secuencia DESC",
        [&](const Fila& fila) {
            return ClaveDDJJ{cuit, fila.fecha("Periodo"), static_cast<int>(fila.entero("Secuencia"))};
        },
        cuit);
}

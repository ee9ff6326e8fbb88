#include "declarations/lista_ddjj.h"

#include "base/db/conexion.h"

std::vector<ClaveDDJJ> listarDeclaraciones(Conexion& conexion, const QString& cuit)
{
    std::vector<ClaveDDJJ> declaraciones;
    conexion.recorrer(
        "SELECT Periodo, Secuencia FROM DDJJ WHERE Cuit = ? ORDER BY Periodo DESC, Secuencia DESC",
        [&](const Fila& fila) {
            declaraciones.push_back({cuit, fila.fecha("Periodo"), static_cast<int>(fila.entero("Secuencia"))});
        },
        cuit);
    return declaraciones;
}

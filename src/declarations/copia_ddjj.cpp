#include "declarations/copia_ddjj.h"

#include "platform/data/conexion.h"

std::vector<FuenteDeCopia> fuentesDeCopia(Conexion& conexion, const ClaveDDJJ& destino)
{
    std::vector<FuenteDeCopia> fuentes;
    // Only whether a declaration has people counts, so they are not counted.
    for (const Fila& fila : conexion.consultar("SELECT Periodo, Secuencia FROM DDJJ WHERE Cuit = ? AND EXISTS "
                                               "(SELECT 1 FROM DDJJ_Empleados WHERE DDJJ_Empleados.Cuit = DDJJ.Cuit "
                                               "AND DDJJ_Empleados.Periodo = DDJJ.Periodo "
                                               "AND DDJJ_Empleados.Secuencia = DDJJ.Secuencia) "
                                               "ORDER BY Periodo DESC, Secuencia DESC",
                                               destino.cuit))
    {
        const FuenteDeCopia fuente{fila.fecha("Periodo"), static_cast<int>(fila.entero("Secuencia"))};
        if (fuente.periodo != destino.periodo || fuente.secuencia != destino.secuencia)
        {
            fuentes.push_back(fuente);
        }
    }
    return fuentes;
}

void copiarNomina(Conexion& conexion, const ClaveDDJJ& destino, const FuenteDeCopia& fuente)
{
    Transaccion transaccion(conexion);
    conexion.ejecutar("DELETE FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND Secuencia = ?", destino.cuit,
                      destino.periodo, destino.secuencia);
    conexion.ejecutar(
        "INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN, TipoDoc, NroDoc, Sexo, Calle, Numero, Piso, "
        "Depto, CodPos, Localidad, Provincia, Telefono, Nacio, EstCivil, Afiliado, Sueldo, Imponible, Categoria, "
        "Ingreso, Egreso, Sucursal, QHoras, ART100, ART101A, ART101B, Acuerdo, Acuerdo2) "
        "SELECT Cuit, ?, ?, Cuil, AyN, TipoDoc, NroDoc, Sexo, Calle, Numero, Piso, Depto, CodPos, Localidad, "
        "Provincia, "
        "Telefono, Nacio, EstCivil, Afiliado, Sueldo, Imponible, Categoria, Ingreso, Egreso, Sucursal, QHoras, ART100, "
        "ART101A, ART101B, Acuerdo + Acuerdo2, 0 "
        "FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND Secuencia = ?",
        destino.periodo, destino.secuencia, destino.cuit, fuente.periodo, fuente.secuencia);
    transaccion.confirmar();
}

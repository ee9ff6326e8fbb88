#include "declarations/copia_ddjj.h"

#include "base/db/conexion.h"
#include "base/db/latido.h"
#include "core/nombre_ddjj.h"
#include "core/vigencia.h"

std::vector<ClaveDDJJ> fuentesDeCopia(Conexion& conexion, const ClaveDDJJ& destino)
{
    // Only whether a declaration has people counts, so they are not counted.
    auto fuentes = conexion.lista(
        "SELECT Periodo, Secuencia FROM DDJJ WHERE Cuit = ? AND EXISTS "
        "(SELECT 1 FROM DDJJ_Empleados WHERE DDJJ_Empleados.Cuit = DDJJ.Cuit "
        "AND DDJJ_Empleados.Periodo = DDJJ.Periodo AND DDJJ_Empleados.Secuencia = DDJJ.Secuencia) "
        "ORDER BY Periodo DESC, Secuencia DESC",
        [&](const Fila& fila) {
            return ClaveDDJJ{destino.cuit, fila.fecha("Periodo"), static_cast<int>(fila.entero("Secuencia"))};
        },
        destino.cuit);
    std::erase(fuentes, destino);
    return fuentes;
}

namespace
{
/// Gives the number of employees copied.
int reemplazarNomina(Conexion& conexion, const ClaveDDJJ& destino, const ClaveDDJJ& fuente)
{
    conexion.ejecutar("DELETE FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND Secuencia = ?", destino.cuit,
                      destino.periodo, destino.secuencia);
    return conexion.ejecutar(
        "INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN, TipoDoc, NroDoc, Sexo, Calle, Numero, Piso, "
        "Depto, CodPos, Localidad, Provincia, Telefono, Nacio, EstCivil, Afiliado, Sueldo, Imponible, Categoria, "
        "Ingreso, Egreso, Sucursal, QHoras, ART100, ART101A, ART101B, Acuerdo, Acuerdo2) "
        "SELECT Cuit, ?, ?, Cuil, AyN, TipoDoc, NroDoc, Sexo, Calle, Numero, Piso, "
        "Depto, CodPos, Localidad, Provincia, Telefono, Nacio, EstCivil, Afiliado, Sueldo, Imponible, Categoria, "
        "Ingreso, Egreso, Sucursal, QHoras, ART100, ART101A, ART101B, Acuerdo + Acuerdo2, 0 "
        "FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND Secuencia = ?",
        destino.periodo, destino.secuencia, fuente.cuit, fuente.periodo, fuente.secuencia);
}
} // namespace

void copiarNomina(Conexion& conexion, const ClaveDDJJ& destino, const ClaveDDJJ& fuente, const Aviso& aviso)
{
    Transaccion transaccion(conexion);
    exigirDeclaracion(conexion, destino);
    exigirDeclaracion(conexion, fuente);
    int copiados = 0;
    conLatido(conexion, aviso, [&] { copiados = reemplazarNomina(conexion, destino, fuente); });
    if (copiados == 0)
    {
        throw YaNoEsta(QStringLiteral("La Declaración Jurada %1 ya no tiene Empleados: fueron eliminados desde "
                                      "otra ventana u otro puesto.  No se ha grabado ningún dato.")
                           .arg(textoDe(fuente)));
    }
    transaccion.confirmar();
}

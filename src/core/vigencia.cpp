#include "core/vigencia.h"

#include "base/db/conexion.h"
#include "core/nombre_ddjj.h"

void exigirDeclaracion(Conexion& conexion, const ClaveDDJJ& clave)
{
    if (!conexion.hay("SELECT Cuit FROM DDJJ WHERE Cuit = ? AND Periodo = ? AND Secuencia = ?", clave.cuit,
                      clave.periodo, clave.secuencia))
    {
        ++YaNoEsta::m_veces;
        throw YaNoEsta(QStringLiteral("La Declaración Jurada %1 ya no se encuentra en la Base: fue eliminada "
                                      "desde otra ventana u otro puesto.  No se ha grabado ningún dato.")
                           .arg(textoDe(clave)));
    }
}

void exigirEmpresa(Conexion& conexion, const QString& cuit)
{
    if (!conexion.hay("SELECT CUIT FROM Empresas WHERE CUIT = ?", cuit))
    {
        ++YaNoEsta::m_veces;
        throw YaNoEsta(QStringLiteral("La Empresa %1 ya no se encuentra en la Base: fue eliminada desde otra ventana u "
                                      "otro puesto.  No se ha grabado ningún dato.")
                           .arg(cuit));
    }
}

#include "datos_ddjj.h"

const QString cuitUno = QStringLiteral("30-12345678-1");
const QString cuitDos = QStringLiteral("30-87654321-5");

namespace
{
Moneda importe(const char* texto)
{
    return Moneda::deTexto(QString::fromLatin1(texto));
}
} // namespace

void agregarEmpresa(Conexion& conexion, const QString& cuit, const QString& razon)
{
    agregar(conexion, EmpresaDePrueba{.cuit = cuit, .razon = razon});
}

void agregarDeclaracion(Conexion& conexion, const ClaveDDJJ& clave, QDate fecha)
{
    agregar(conexion, DeclaracionDePrueba{clave.cuit, clave.periodo, clave.secuencia, fecha});
}

void agregarEmpleado(Conexion& conexion, const ClaveDDJJ& clave, const EmpleadoBreve& breve)
{
    EmpleadoDePrueba e;
    e.cuit = clave.cuit;
    e.periodo = clave.periodo;
    e.secuencia = clave.secuencia;
    e.cuil = QString::fromLatin1(breve.cuil);
    e.afiliado = breve.afiliado;
    e.imponible = importe(breve.imponible);
    e.acuerdo = importe(breve.acuerdo);
    e.acuerdo2 = importe(breve.acuerdo2);
    e.art100 = importe(breve.art100);
    e.art101A = importe(breve.art101a);
    e.art101B = importe(breve.art101b);
    e.familiares = breve.familiares;
    agregar(conexion, e);
    conexion.ejecutar(
        "UPDATE DDJJ_Empleados SET QHoras = ? WHERE Cuit = ? AND Periodo = ? AND Secuencia = ? AND Cuil = ?",
        breve.horas, e.cuit, e.periodo, e.secuencia, e.cuil);
}

qint64 contar(Conexion& conexion, const char* tabla)
{
    return conexion.consultar(std::string("SELECT Count(*) AS N FROM ") + tabla).primera().entero("N");
}

#include "datos_empresa.h"

#include "platform/data/conexion.h"

Empresa empresaCompleta(const QString& cuit, const QString& razon)
{
    Empresa empresa;
    empresa.cuit = cuit;
    empresa.razon = razon;
    empresa.fantasia = QStringLiteral("L'Horno");
    empresa.calle = QStringLiteral("O'Higgins");
    empresa.numero = QStringLiteral("1234");
    empresa.nroLocal = QStringLiteral("L-5");
    empresa.piso = QStringLiteral("3");
    empresa.depto = QStringLiteral("B");
    empresa.codPos = QStringLiteral("B1900");
    empresa.localidad = QStringLiteral("Berisso");
    empresa.provincia = 1;
    empresa.nombreProvincia = QStringLiteral("Buenos Aires");
    empresa.telefono = QStringLiteral("0221-461-0000");
    empresa.fax = QStringLiteral("0221-461-0001");
    empresa.rubro = QStringLiteral("522120");
    empresa.contacto = QStringLiteral("Ñandú D'Elía");
    empresa.web = QStringLiteral("www.example.org");
    empresa.email = QStringLiteral("a@example.org");
    empresa.estudio = QStringLiteral("Estudio O'Connor");
    empresa.estDomicilio = QStringLiteral("Calle 7");
    empresa.estCodPos = QStringLiteral("1900");
    empresa.estLocalidad = QStringLiteral("La Plata");
    empresa.estTelefono = QStringLiteral("0221-422-0000");
    empresa.estEmail = QStringLiteral("e@example.org");
    return empresa;
}

void sembrarEmpresa(Conexion& conexion, const QString& cuit, const QString& razon)
{
    insertarEmpresa(conexion, empresaCompleta(cuit, razon));
}

qint64 sembrarSucursal(Conexion& conexion, const QString& cuit, const QString& codigo, const QString& localidad)
{
    conexion.ejecutar(
        "INSERT INTO Empresas_Sucursales (CUIT, Sucursal, Domicilio, Numero, CodPos, Localidad, Telefono) "
        "VALUES (?, ?, 'Calle 60', 10, '1900', ?, '')",
        cuit, codigo, localidad);
    return conexion.ultimoNumero();
}

void sembrarEmpleado(Conexion& conexion, const QString& cuit, qint64 sucursal)
{
    conexion.ejecutar("INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, Sucursal) "
                      "VALUES (?, '2024-05-01', 0, '27-00000001-4', ?)",
                      cuit, sucursal);
}

qint64 contar(Conexion& conexion, const char* desde)
{
    return conexion.consultar(std::string("SELECT COUNT(*) AS Cuantos ") + desde).primera().entero("Cuantos");
}

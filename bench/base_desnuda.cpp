#include "base_desnuda.h"

#include "base/db/espanol.h"

#include <QFile>

desnuda::Base::Base(const std::string& ruta)
{
    exigir(sqlite3_open_v2(ruta.c_str(), &m_base, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) == SQLITE_OK,
           m_base);
    detalle::registrarEspanol(m_base);
    ejecutar("PRAGMA journal_mode=DELETE");
    ejecutar("PRAGMA synchronous=FULL");
    ejecutar("PRAGMA cache_size=-32768");
    ejecutar("SELECT count(*) FROM sqlite_schema"); // the schema is read at opening, as the program does
}

std::string desnuda::volcar(const std::string& ruta, const char* consulta)
{
    const Base base(ruta);
    Sentencia sentencia(*base, consulta);
    std::string todo;
    while (sentencia.paso())
    {
        for (int i = 0; i < sqlite3_column_count(*sentencia); ++i)
        {
            todo += sentencia.esNulo(i) ? "NULL" : sentencia.leer(i);
            todo += '|';
        }
        todo += '\n';
    }
    return todo;
}

void Taller::ponerBase(const char* nombre) const
{
    const QString destino = ruta(nombre);
    QFile::remove(destino);
    desnuda::exigir(QFile::copy(QStringLiteral(BASE_SEMBRADA), destino), nullptr);
    desnuda::exigir(QFile::setPermissions(destino, QFile::ReadOwner | QFile::WriteOwner), nullptr);
    desnuda::Base base(destino.toStdString());
    base.ejecutar("INSERT INTO Empresas (CUIT, Razon, Calle, Numero, Localidad, Provincia, Rubro) VALUES "
                  "('30-12345678-9', 'Fincas del Sauce', 'San Martín', 123, 'Maipú', 7, '000001');"
                  "INSERT INTO Empresas_Sucursales (CUIT, Sucursal, Domicilio) VALUES "
                  "('30-12345678-9', 'BODEGA-001', 'Ruta 50');"
                  "INSERT INTO DDJJ VALUES ('30-12345678-9', '2009-05-01', 0, '2009-06-01')");
}

#include "apoyo/rutas.h"
#include "apoyo/version_anterior.h"
#include "configuracion.h"
#include "platform/data/conexion.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace
{
/// A table's columns in their order, "name:kind". Kinds: t text, d date, h time, n number, N number or null, c
/// currency, y yes/no, a automatic number; "*" after it marks the key.
struct Tabla
{
    const char* nombre;
    const char* columnas;
    bool sinRowid = false;
};

const Tabla tablas[] = {
    {"Parametros", "Version:t Indice:n EMail:t Bak_Carpeta:t Bak_Fecha:d Bak_Hora:h"},
    {"Empresas", "CUIT:t* Razon:t Fantasia:t Calle:t Numero:n NroLocal:t Piso:t Depto:t CodPos:t Localidad:t "
                 "Provincia:n Telefono:t Fax:t Rubro:t Contacto:t Web:t Email:t Estudio:t Est_Domicilio:t "
                 "Est_CodPos:t Est_Localidad:t Est_Telefono:t Est_EMail:t"},
    {"Empresas_Sucursales", "ID:a* CUIT:t Sucursal:t Domicilio:t Numero:n CodPos:t Localidad:t Telefono:t Marca:y"},
    {"Empresas_Responsables", "CUIT:t AyN:t Domicilio:t Localidad:t TipoDoc:n NroDoc:n"},
    {"DDJJ", "Cuit:t* Periodo:d* Secuencia:n* Fecha:d", true},
    {"DDJJ_Empleados",
     "Cuit:t* Periodo:d* Secuencia:n* Cuil:t* AyN:t TipoDoc:n NroDoc:n Sexo:N Calle:t Numero:n Piso:t Depto:t CodPos:t "
     "Localidad:t Provincia:n Telefono:t Nacio:d EstCivil:n Afiliado:y Sueldo:c Imponible:c Categoria:n Ingreso:d "
     "Egreso:d Sucursal:n QHoras:n ART100:c ART101A:c ART101B:c Acuerdo:c Acuerdo2:c Familiares:n",
     true},
    {"Empleados_Familiares", "CUIL:t Familiar:n AyN:t TipoDoc:n NroDoc:n Sexo:n Nacio:d"},
    {"PAGOS", "Pago:a* Cuit:t Tipo:n Periodo:d Secuencia:n Fecha:d Art100:c Art101A:c Art101B:c Dias:n Interes:c "
              "Importe:c NroActa:n Cuota:n Cuenta:n"},
    {"RptEmpleados", "Indice:n Tipo:n Sucursal_Cod:n Sucursal:t AyN:t Cuil:t TipoDoc:t NroDoc:n Sexo:n Nacio:d "
                     "EstCivil:t Categoria:t Ingreso:d Egreso:d QHoras:n Imponible:c Art100:c Art101A:c Art101B:c "
                     "Acuerdo:c Acuerdo2:c Calle:t Numero:n CodPos:t Localidad:t Telefono:t"},
    {"Provincias", "Codigo:a* Nombre:t"},
    {"Documentos", "Codigo:a* Nombre:t"},
    {"Categorias", "Codigo:a* Nombre:t"},
    {"Familiar", "Codigo:a* Nombre:t"},
    {"EstadoCivil", "Codigo:a* Nombre:t"},
    {"Rubros", "Codigo:t* Nombre:t"},
};

class Semilla : public testing::Test
{
protected:
    Semilla()
    {
        EXPECT_TRUE(QFile::copy(rutas::baseSembrada(), ruta));
        EXPECT_TRUE(QFile::setPermissions(ruta, QFile::ReadOwner | QFile::WriteOwner));
        conexion.abrir(ruta);
    }

    QStringList lista(std::string_view sql)
    {
        QStringList valores;
        conexion.recorrer(sql, [&](const Fila& fila) { valores += fila.texto("v"); });
        return valores;
    }

    QTemporaryDir carpeta;
    QString ruta = carpeta.filePath(QStringLiteral("DBBrivo.mdb"));
    Conexion conexion;
};

QString declarado(QChar clase)
{
    switch (clase.toLatin1())
    {
    case 't':
        return QStringLiteral("TEXT null");
    case 'd':
        return QStringLiteral("DATE null");
    case 'h':
        return QStringLiteral("TIME null");
    case 'c':
        return QStringLiteral("CURRENCY 0");
    case 'y':
        return QStringLiteral("YESNO 0");
    case 'n':
        return QStringLiteral("INTEGER 0");
    default: // automatic, or "or null"
        return QStringLiteral("INTEGER null");
    }
}

/// The columns as they should be read back: "name TYPE default [key N]".
QStringList esperadas(const Tabla& tabla)
{
    QStringList todas;
    int clave = 0;
    for (const QString& columna : QString::fromLatin1(tabla.columnas).split(QLatin1Char(' ')))
    {
        const QStringList partes = columna.split(QLatin1Char(':'));
        QString texto = partes[0] + QLatin1Char(' ') + declarado(partes[1][0]);
        if (partes[1].endsWith(QLatin1Char('*')))
        {
            texto += QStringLiteral(" key %1").arg(++clave);
        }
        todas += texto;
    }
    return todas;
}

TEST_F(Semilla, EveryTableHasItsColumnsWithTypeDefaultAndNullability)
{
    std::set<QString> nombres;
    for (const Tabla& tabla : tablas)
    {
        nombres.insert(QLatin1String(tabla.nombre));
        QStringList halladas;
        conexion.recorrer(
            "SELECT name, type, \"notnull\" AS firme, dflt_value, pk FROM pragma_table_info(?)",
            [&](const Fila& fila)
            {
                EXPECT_EQ(fila.si("firme"), fila.entero("pk") > 0) << fila.texto("name").toStdString();
                const QString defecto = fila.esNulo("dflt_value") ? QStringLiteral("null") : fila.texto("dflt_value");
                const QString clave = fila.entero("pk") > 0 ? QStringLiteral(" key ") + fila.texto("pk") : QString();
                halladas +=
                    fila.texto("name") + QLatin1Char(' ') + fila.texto("type") + QLatin1Char(' ') + defecto + clave;
            },
            tabla.nombre);
        EXPECT_EQ(halladas.join(QLatin1Char('\n')).toStdString(),
                  esperadas(tabla).join(QLatin1Char('\n')).toStdString())
            << tabla.nombre;
        EXPECT_EQ(conexion.consultar("SELECT wr FROM pragma_table_list(?)", tabla.nombre).primera().si("wr"),
                  tabla.sinRowid)
            << tabla.nombre;
    }
    const QStringList reales =
        lista("SELECT name AS v FROM sqlite_schema WHERE type = 'table' AND name NOT GLOB 'sqlite_*'");
    EXPECT_EQ(std::set<QString>(reales.begin(), reales.end()), nombres);
}

TEST_F(Semilla, NumbersOfBranchesAndPaymentsAreNeverUsedAgain)
{
    for (const char* tabla : {"Empresas_Sucursales", "PAGOS"})
    {
        const std::string nombre(tabla);
        conexion.ejecutar("INSERT INTO " + nombre + " (Cuit) VALUES ('a')");
        const qint64 primero = conexion.ultimoNumero();
        conexion.ejecutar("DELETE FROM " + nombre);
        conexion.ejecutar("INSERT INTO " + nombre + " (Cuit) VALUES ('b')");
        EXPECT_GT(conexion.ultimoNumero(), primero) << tabla;
    }
}

TEST_F(Semilla, LookUpTablesAndSettingsAreFilled)
{
    const struct
    {
        const char* tabla;
        int alMenos;
        int mayorCodigo; // what a fixed-width file has room for
    } casos[] = {{"Provincias", 24, 99}, {"Documentos", 4, 9},  {"Categorias", 10, 99},
                 {"Familiar", 9, 9},     {"EstadoCivil", 4, 9}, {"Rubros", 40, 999999}};
    for (const auto& caso : casos)
    {
        const std::string tabla(caso.tabla);
        const Recordset cuenta = conexion.consultar(
            "SELECT Count(*) AS filas, Count(DISTINCT Nombre) AS nombres, Min(CAST(Codigo AS INTEGER)) AS menor, "
            "Max(CAST(Codigo AS INTEGER)) AS mayor FROM " +
            tabla);
        EXPECT_GE(cuenta.primera().entero("filas"), caso.alMenos) << tabla;
        EXPECT_EQ(cuenta.primera().entero("nombres"), cuenta.primera().entero("filas")) << tabla;
        EXPECT_LE(cuenta.primera().entero("mayor"), caso.mayorCodigo) << tabla;
        // 0 in a roster row means that the value is missing; only the first province has that code.
        EXPECT_EQ(cuenta.primera().entero("menor") == 0, tabla == "Provincias") << tabla;
    }
    EXPECT_EQ(lista("SELECT Codigo AS v FROM Provincias").size(), 24);
    EXPECT_EQ(lista("SELECT Nombre AS v FROM Provincias WHERE Codigo = 1"),
              QStringList(QStringLiteral("Buenos Aires")));
    EXPECT_EQ(lista("SELECT Nombre AS v FROM Documentos WHERE Codigo = 1"), QStringList(QStringLiteral("DNI")));
    EXPECT_EQ(lista("SELECT Codigo AS v FROM Rubros WHERE Codigo NOT GLOB '[0-9][0-9][0-9][0-9][0-9][0-9]'"),
              QStringList());

    const Recordset parametros = conexion.consultar("SELECT * FROM Parametros");
    ASSERT_EQ(parametros.cantidad(), 1U);
    EXPECT_EQ(parametros.primera().texto("Version"), QStringLiteral("2.0"));
    EXPECT_EQ(parametros.primera().entero("Indice"), 0);
    EXPECT_EQ(parametros.primera().texto("EMail"), QLatin1String(configuracion::buzonDdjj));
    for (const char* nulo : {"Bak_Carpeta", "Bak_Fecha", "Bak_Hora"})
    {
        EXPECT_TRUE(parametros.primera().esNulo(nulo)) << nulo;
    }
    EXPECT_EQ(lista("SELECT integrity_check AS v FROM pragma_integrity_check"), QStringList(QStringLiteral("ok")));
}

TEST_F(Semilla, NamesOrderAndCompareTheSpanishWay)
{
    const QStringList provincias = lista("SELECT Nombre AS v FROM Provincias ORDER BY Nombre");
    EXPECT_LT(provincias.indexOf(QStringLiteral("Córdoba")), provincias.indexOf(QStringLiteral("Corrientes")));

    const struct
    {
        std::string tabla;
        std::string fila; // columns and values of a row to try on
        std::vector<std::string> columnas;
    } casos[] = {
        {"Empresas", "(Cuit) VALUES ('a')", {"Razon", "Fantasia", "Localidad", "Contacto", "Estudio"}},
        {"Empresas_Sucursales", "(Cuit) VALUES ('a')", {"Sucursal", "Domicilio", "Localidad"}},
        {"Empresas_Responsables", "(Cuit) VALUES ('a')", {"AyN", "Domicilio", "Localidad"}},
        {"DDJJ_Empleados", "(Cuit, Periodo, Cuil) VALUES ('a', '2024-05-01', 'b')", {"AyN", "Calle", "Localidad"}},
        {"Empleados_Familiares", "(Cuil) VALUES ('a')", {"AyN"}},
        {"RptEmpleados", "(Indice) VALUES (1)", {"Sucursal", "AyN", "Categoria", "Calle", "Localidad"}},
        {"Rubros", "(Codigo) VALUES ('a')", {"Nombre"}},
    };
    for (const auto& [tabla, fila, columnas] : casos)
    {
        conexion.ejecutar("INSERT INTO " + tabla + ' ' + fila);
        for (const std::string& columna : columnas)
        {
            conexion.ejecutar("UPDATE " + tabla + " SET " + columna + " = ?", "Ñandú");
            EXPECT_TRUE(conexion.hay("SELECT 1 FROM " + tabla + " WHERE " + columna + " = ?", "ñANDÚ"))
                << tabla << '.' << columna;
        }
    }
}

/// Statements about one declaration, one company, one person or one report must find their rows by a key or an index
/// however large the tables are. Each belongs to a road of the program; `por` is what the plan has to name, if more
/// than "no scan" is asked for.
const struct
{
    const char* sql;
    const char* por = "";
} sentencias[] = {
    {"SELECT Razon FROM Empresas WHERE Cuit = ?"},
    {"SELECT Cuit FROM Empresas WHERE Razon = ?"},
    {"SELECT Empresas.*, Provincias.Nombre FROM Empresas INNER JOIN Provincias ON Empresas.Provincia = "
     "Provincias.Codigo WHERE Empresas.Cuit = ?"},
    {"SELECT Empresas.*, Rubros.Nombre FROM Empresas INNER JOIN Rubros ON Empresas.Rubro = Rubros.Codigo WHERE "
     "Empresas.CUIT = ?"},
    {"SELECT * FROM Empresas_Sucursales WHERE CUIT = ?"},
    {"SELECT ID FROM Empresas_Sucursales WHERE Cuit = ? AND Sucursal = ?", "Sucursal=?"},
    {"UPDATE Empresas_Sucursales SET Marca = 1 WHERE CUIT = ?"},
    {"SELECT * FROM Empresas_Responsables WHERE CUIT = ?"},
    {"SELECT * FROM DDJJ_Empleados WHERE Cuit = ? AND Sucursal = ?", "Sucursal=?"},
    {"SELECT Periodo, Secuencia FROM DDJJ WHERE Cuit = ? ORDER BY Periodo DESC, Secuencia DESC"},
    {"SELECT Periodo FROM DDJJ WHERE CUIT = ? GROUP BY Periodo ORDER BY Periodo DESC"},
    {"SELECT Max(Secuencia) AS UltSecuencia FROM DDJJ WHERE Cuit = ? AND Periodo = ?", "Periodo=?"},
    {"DELETE FROM DDJJ WHERE CUIT = ? AND Periodo <= ?", "Periodo<?"},
    {"DELETE FROM DDJJ_Empleados WHERE CUIT = ? AND Periodo <= ?", "Periodo<?"},
    {"DELETE FROM DDJJ_Empleados WHERE CUIT = ? AND Periodo = ? AND Secuencia = ?", "Secuencia=?"},
    {"SELECT Afiliado, Sum(Imponible) FROM DDJJ_Empleados WHERE CUIT = ? AND Periodo = ? AND Secuencia = ? GROUP BY "
     "Afiliado",
     "Secuencia=?"},
    {"SELECT Count(Cuil) FROM DDJJ_Empleados WHERE CUIT = ? AND Periodo = ? AND QHoras <> 200", "Periodo=?"},
    {"SELECT Count(Cuil) FROM DDJJ_Empleados WHERE CUIT = ? AND Periodo = ? AND Secuencia = ? AND (TipoDoc = 0 OR "
     "NroDoc = 0 OR Sexo IS NULL OR Nacio IS NULL OR EstCivil = 0 OR Categoria = 0 OR Ingreso IS NULL)",
     "Secuencia=?"},
    {"INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, Acuerdo) SELECT Cuit, ?, ?, Cuil, Acuerdo + Acuerdo2 "
     "FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND Secuencia = ?",
     "Secuencia=?"},
    {"SELECT DDJJ.Periodo, DDJJ.Secuencia, Count(DDJJ_Empleados.Cuil) FROM DDJJ INNER JOIN DDJJ_Empleados ON "
     "DDJJ.Secuencia = DDJJ_Empleados.Secuencia AND DDJJ.Periodo = DDJJ_Empleados.Periodo AND DDJJ.CUIT = "
     "DDJJ_Empleados.CUIT WHERE DDJJ.CUIT = ? GROUP BY DDJJ.Periodo, DDJJ.Secuencia ORDER BY DDJJ.Periodo DESC, "
     "DDJJ.Secuencia DESC"},
    {"SELECT DDJJ_Empleados.*, Documentos.Nombre, EstadoCivil.Nombre FROM DDJJ_Empleados LEFT JOIN Documentos ON "
     "DDJJ_Empleados.TipoDoc = Documentos.Codigo LEFT JOIN EstadoCivil ON DDJJ_Empleados.EstCivil = "
     "EstadoCivil.Codigo WHERE Cuit = ? AND Periodo = ? AND Secuencia = ? AND Cuil < ? ORDER BY Cuil DESC",
     "Cuil<?"},
    {"SELECT Cuil, AyN FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND Secuencia = ? AND AyN LIKE ? ORDER BY "
     "AyN",
     "Secuencia=?"},
    {"UPDATE DDJJ_Empleados SET Imponible = ? WHERE CUIT = ? AND Periodo = ? AND Secuencia = ? AND Cuil = ?", "Cuil=?"},
    {"SELECT Familiar.Nombre, Documentos.Nombre FROM Documentos INNER JOIN (Empleados_Familiares INNER JOIN Familiar "
     "ON "
     "Empleados_Familiares.Familiar = Familiar.Codigo) ON Documentos.Codigo = Empleados_Familiares.TipoDoc WHERE "
     "Empleados_Familiares.CUIL = ? ORDER BY Familiar.Nombre, Empleados_Familiares.Nacio DESC"},
    {"SELECT * FROM Empleados_Familiares WHERE CUIL = ? AND Familiar = ? AND AyN = ? AND TipoDoc = ? AND NroDoc = ? "
     "AND "
     "Sexo = ? AND Nacio = ?"},
    {"DELETE FROM Empleados_Familiares WHERE CUIL = ?"},
    {"SELECT * FROM PAGOS WHERE Cuit = ? AND Tipo = ? AND Fecha = ? AND Dias = ? AND Interes = ? AND Importe = ?"},
    {"SELECT Pago, Fecha FROM PAGOS WHERE Cuit = ? AND Tipo = 2 AND Cuenta = ? ORDER BY NroActa DESC, Cuota DESC"},
    {"DELETE FROM PAGOS WHERE Pago = ?"},
    {"UPDATE RptEmpleados SET Sucursal = (SELECT Empresas_Sucursales.Sucursal FROM Empresas_Sucursales WHERE "
     "Empresas_Sucursales.ID = RptEmpleados.Sucursal_Cod) WHERE Indice = ?"},
    {"DELETE FROM RptEmpleados WHERE Indice = ?"},
};

TEST_F(Semilla, NoStatementAboutOneThingReadsAWholeTable)
{
    for (const auto& [sql, por] : sentencias)
    {
        const std::string texto = std::string("EXPLAIN QUERY PLAN ") + sql;
        const std::vector<Valor> nulos(static_cast<std::size_t>(std::count(texto.begin(), texto.end(), '?')),
                                       Valor(nullptr));
        QStringList plan;
        for (const Fila& paso : conexion.preparar(texto).consultarCon(nulos.data(), nulos.size()))
        {
            plan += paso.texto("detail");
        }
        const std::string hallado = plan.join(QStringLiteral("; ")).toStdString();
        EXPECT_FALSE(plan.isEmpty()) << sql;
        EXPECT_EQ(hallado.find("SCAN"), std::string::npos) << sql << "\n" << hallado;
        EXPECT_NE(hallado.find(por), std::string::npos) << sql << "\n" << hallado;
    }
    // The two statements of every start read an index that holds nothing but what they look for.
    for (const std::string columna : {"Acuerdo", "Acuerdo2"})
    {
        const QStringList plan =
            lista("SELECT sql AS v FROM sqlite_schema WHERE name = 'IX_DDJJ_Empleados_" + columna + "Nulo'");
        ASSERT_EQ(plan.size(), 1);
        EXPECT_TRUE(plan[0].endsWith(QString::fromStdString("WHERE " + columna + " IS NULL"))) << columna;
        const Recordset pasos = conexion.consultar("EXPLAIN QUERY PLAN UPDATE DDJJ_Empleados SET " + columna +
                                                   " = 0 WHERE " + columna + " IS NULL");
        EXPECT_TRUE(pasos.primera().texto("detail").contains(
            QString::fromStdString("INDEX IX_DDJJ_Empleados_" + columna + "Nulo")))
            << pasos.primera().texto("detail").toStdString();
    }
}

TEST_F(Semilla, CanBeTurnedIntoEarlierVersions)
{
    const struct
    {
        const char* version;
        std::set<QString> quedan;
    } casos[] = {{"1.2", {"Acuerdo", "Acuerdo2"}}, {"1.1", {"Acuerdo"}}, {"1.0", {}}};
    conexion.cerrar();
    for (const auto& caso : casos)
    {
        const QString copia = carpeta.filePath(QLatin1String(caso.version) + QStringLiteral(".mdb"));
        ASSERT_TRUE(QFile::copy(ruta, copia));
        volverAVersion(copia, QLatin1String(caso.version));
        conexion.abrir(copia);
        for (const char* tabla : {"DDJJ_Empleados", "RptEmpleados"})
        {
            const QStringList columnas = lista(std::string("SELECT name AS v FROM pragma_table_info('") + tabla +
                                               "') WHERE name LIKE 'Acuerdo%'");
            EXPECT_EQ(std::set<QString>(columnas.begin(), columnas.end()), caso.quedan) << tabla << caso.version;
        }
        EXPECT_EQ(lista("SELECT Version || ' ' || EMail AS v FROM Parametros"),
                  QStringList(QLatin1String(caso.version) + QLatin1Char(' ') + QLatin1String(buzonAnterior)));
        conexion.cerrar();
    }
}
} // namespace

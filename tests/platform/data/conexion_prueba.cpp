#include "platform/data/conexion.h"
#include "platform/data/error_de_ejecucion.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

TEST(Conexion, AbreLoQueCrea)
{
    QTemporaryDir carpeta;
    const QString ruta = carpeta.filePath("Base.mdb");
    Conexion::crear(ruta);
    Conexion c;
    c.abrir(ruta);
    c.ejecutar("CREATE TABLE t (id INTEGER PRIMARY KEY AUTOINCREMENT, n TEXT, f DATE, m CURRENCY)");
    EXPECT_EQ(1, c.ejecutar("INSERT INTO t (n, f, m) VALUES (?, ?, ?)", QStringLiteral("Ñandú"), QDate(2009, 5, 1),
                            Moneda::deTexto("1,5")));
    const Recordset r = c.consultar("SELECT * FROM t");
    EXPECT_EQ(QStringLiteral("Ñandú"), r.primera().texto("N"));
    EXPECT_EQ(QDate(2009, 5, 1), r.primera().fecha("F"));
    EXPECT_EQ(15000, r.primera().moneda("m").diezMilesimos());
    EXPECT_STREQ("CURRENCY", r.primera().tipo(3));
}

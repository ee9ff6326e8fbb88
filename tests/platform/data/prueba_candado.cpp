#include "apoyo/hijo.h"
#include "errores.h"
#include "platform/data/candado.h"
#include "platform/data/conexion.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <optional>

namespace
{
using Modo = Candado::Modo;

int numeroDeTomar(const QString& ruta, Modo modo)
{
    return numeroDe([&] { const Candado candado(ruta, modo); });
}

/// A database with the one row ('antes').
class DosProcesos : public testing::Test
{
protected:
    DosProcesos()
    {
        Conexion::crear(base);
        Conexion conexion;
        conexion.abrir(base);
        conexion.ejecutar("CREATE TABLE t (n TEXT)");
        conexion.ejecutar("INSERT INTO t VALUES ('antes')");
    }
    [[nodiscard]] QStringList textos() const
    {
        Conexion conexion;
        conexion.abrir(base);
        QStringList todos;
        conexion.recorrer("SELECT n FROM t ORDER BY rowid LIMIT 5",
                          [&](const Fila& fila) { todos += fila.texto("n"); });
        return todos;
    }
    QTemporaryDir carpeta;
    QString base = carpeta.filePath(QStringLiteral("DBBrivo.mdb"));
    QString candado = carpeta.filePath(QStringLiteral("DBBrivo.ldb"));
};
} // namespace

// The parts of the other process.
TEST(HijoDeCandado, DISABLED_Comparte)
{
    const Candado candado(hijo::ruta(), Modo::Compartido);
    hijo::listoYEsperar();
}

TEST(HijoDeCandado, DISABLED_Excluye)
{
    const Candado candado(hijo::ruta(), Modo::Exclusivo);
    hijo::listoYEsperar();
}

TEST(HijoDeCandado, DISABLED_Prueba)
{
    const int exclusivo = numeroDeTomar(hijo::ruta(), Modo::Exclusivo);
    const int compartido = numeroDeTomar(hijo::ruta(), Modo::Compartido);
    hijo::listoYEsperar(QStringLiteral("%1 %2").arg(exclusivo).arg(compartido));
}

TEST(HijoDeCandado, DISABLED_AMitadDeUnaTransaccion)
{
    Conexion conexion;
    conexion.abrir(hijo::ruta());
    conexion.ejecutar("PRAGMA cache_size = 10"); // so that changes reach the file before the commit
    Transaccion transaccion(conexion);
    conexion.ejecutar("DELETE FROM t");
    conexion.ejecutar("WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c WHERE i < 20000) "
                      "INSERT INTO t SELECT 'a medias ' || hex(randomblob(50)) FROM c");
    hijo::listoYEsperar();
    transaccion.confirmar();
}

TEST(HijoDeCandado, DISABLED_Escribe)
{
    Conexion conexion;
    conexion.abrir(hijo::ruta());
    Transaccion transaccion(conexion);
    conexion.ejecutar("UPDATE t SET n = 'del hijo'");
    hijo::listoYEsperar();
    transaccion.confirmar();
}

TEST(HijoDeCandado, DISABLED_LeeYEscribe)
{
    Conexion conexion;
    conexion.abrir(hijo::ruta());
    const Recordset copia = conexion.consultar("SELECT n FROM t");
    hijo::listoYEsperar(copia.primera().texto("n"));
    EXPECT_EQ(QStringLiteral("antes"), copia.primera().texto("n"));
    EXPECT_EQ(QStringLiteral("del otro"), conexion.consultar("SELECT n FROM t").primera().texto("n"));
    conexion.ejecutar("UPDATE t SET n = 'del hijo'");
}

TEST_F(DosProcesos, UnExclusivoNoVaConNinguno)
{
    {
        Hijo otro(QStringLiteral("HijoDeCandado.DISABLED_Comparte"), candado);
        EXPECT_EQ(70, numeroDeTomar(candado, Modo::Exclusivo));
        EXPECT_EQ(0, numeroDeTomar(candado, Modo::Compartido));
        EXPECT_TRUE(otro.seguir());
    }
    EXPECT_EQ(0, numeroDeTomar(candado, Modo::Exclusivo));
    Hijo otro(QStringLiteral("HijoDeCandado.DISABLED_Excluye"), candado);
    EXPECT_EQ(70, numeroDeTomar(candado, Modo::Exclusivo));
    EXPECT_EQ(70, numeroDeTomar(candado, Modo::Compartido));
    Conexion conexion;
    EXPECT_EQ(70, numeroDe([&] { conexion.abrir(base); }));
    EXPECT_FALSE(conexion.abierta());
    otro.matar();
    EXPECT_EQ(0, numeroDe([&] { conexion.abrir(base); })) << "the system frees what a dead process held";
}

TEST_F(DosProcesos, VariasConexionesDeUnProcesoSonUnSoloCandado)
{
    const auto otroProceso = [&]
    {
        Hijo otro(QStringLiteral("HijoDeCandado.DISABLED_Prueba"), candado);
        const QString dicho = otro.dicho();
        EXPECT_TRUE(otro.seguir());
        return dicho.toStdString();
    };
    Conexion una;
    una.abrir(base);
    {
        Conexion otra;
        otra.abrir(carpeta.filePath(QStringLiteral("./DBBrivo.mdb"))); // the same file by another name
        EXPECT_EQ(70, numeroDeTomar(candado, Modo::Exclusivo));
    }
    EXPECT_EQ("70 0", otroProceso()) << "closing one connection must not drop the lock of the other";
    una.cerrar();
    EXPECT_EQ("0 0", otroProceso());
    {
        Candado solo(candado, Modo::Exclusivo);
        EXPECT_EQ(70, numeroDeTomar(candado, Modo::Exclusivo));
        EXPECT_EQ(70, numeroDe([&] { una.abrir(base); }));
        const Candado movido = std::move(solo);
        EXPECT_EQ("70 70", otroProceso());
        EXPECT_NO_THROW(Conexion::comprobar(base)) << "checking takes no lock";
    }
    EXPECT_EQ("0 0", otroProceso());
}

TEST_F(DosProcesos, UnCandadoSinLugar)
{
    EXPECT_EQ(76, numeroDeTomar(carpeta.filePath(QStringLiteral("falta/x.ldb")), Modo::Compartido));
    EXPECT_EQ(75, numeroDeTomar(carpeta.path(), Modo::Compartido));
}

TEST_F(DosProcesos, UnProcesoMuertoAMitadDeUnaTransaccionNoDejaNada)
{
    const qint64 antes = QFileInfo(base).size();
    Hijo otro(QStringLiteral("HijoDeCandado.DISABLED_AMitadDeUnaTransaccion"), base);
    EXPECT_GT(QFileInfo(base).size(), antes) << "the half-done work stands in the file";
    otro.matar();
    EXPECT_TRUE(QFile::exists(base + QStringLiteral("-journal")));
    EXPECT_EQ(QStringList{QStringLiteral("antes")}, textos());
    EXPECT_NO_THROW(Conexion::comprobar(base));
    EXPECT_EQ(antes, QFileInfo(base).size());
}

TEST_F(DosProcesos, DosConexionesEnDosProcesos)
{
    Hijo otro(QStringLiteral("HijoDeCandado.DISABLED_LeeYEscribe"), base);
    EXPECT_EQ("antes", otro.dicho().toStdString());
    Conexion conexion;
    conexion.abrir(base);
    conexion.ejecutar("UPDATE t SET n = 'del otro'"); // a snapshot that is held elsewhere stops nobody
    EXPECT_TRUE(otro.seguir());
    EXPECT_EQ(QStringLiteral("del hijo"), conexion.consultar("SELECT n FROM t").primera().texto("n"));
}

TEST_F(DosProcesos, MientrasOtroEscribeSeLeeLoAnteriorYNoSeEscribe)
{
    Hijo otro(QStringLiteral("HijoDeCandado.DISABLED_Escribe"), base);
    Conexion conexion;
    conexion.abrir(base);
    EXPECT_EQ(QStringLiteral("antes"), conexion.consultar("SELECT n FROM t").primera().texto("n"));
    conexion.ejecutar("PRAGMA busy_timeout = 0"); // so that the test need not wait for it
    try
    {
        const Transaccion transaccion(conexion);
        FAIL();
    }
    catch (const ErrorDeEjecucion& error)
    {
        EXPECT_EQ(5, error.numero() & 0xFF);
        EXPECT_EQ("La base de datos está ocupada por otra copia del programa.  Espere unos segundos e "
                  "inténtelo nuevamente.",
                  error.descripcion().toStdString());
    }
    EXPECT_TRUE(otro.seguir());
    Transaccion transaccion(conexion);
    EXPECT_EQ(QStringLiteral("del hijo"), conexion.consultar("SELECT n FROM t").primera().texto("n"));
}

#include "errores.h"
#include "platform/data/conexion.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace
{
class ConexionAbierta : public testing::Test
{
protected:
    ConexionAbierta()
    {
        Conexion::crear(ruta);
        conexion.abrir(ruta);
        conexion.ejecutar("CREATE TABLE t (id INTEGER PRIMARY KEY AUTOINCREMENT, n TEXT, e INTEGER, f DATE, h TIME, "
                          "m CURRENCY, s YESNO)");
    }

    [[nodiscard]] qint64 filas() { return conexion.consultar("SELECT count(*) AS q FROM t").primera().entero("q"); }

    QTemporaryDir carpeta;
    QString ruta = carpeta.filePath(QStringLiteral("Bäse ñ.mdb"));
    Conexion conexion;
};
} // namespace

TEST_F(ConexionAbierta, CadaClaseDeValorVaYVuelve)
{
    const std::optional<int> ninguno;
    EXPECT_EQ(1, conexion.ejecutar("INSERT INTO t (n, e, f, h, m, s) VALUES (?, ?, ?, ?, ?, ?)",
                                   QStringLiteral("O'Higgins Ñandú €"), qint64{1} << 40, QDate(2009, 5, 1),
                                   QTime(23, 5, 9), Moneda::deTexto(QStringLiteral("-1,2345")), true));
    EXPECT_EQ(1, conexion.ultimoNumero());
    conexion.ejecutar("INSERT INTO t (n, e, f, h, m, s) VALUES (?, ?, ?, ?, ?, ?)", nullptr, ninguno, QDate(), QTime(),
                      nullptr, nullptr);
    conexion.ejecutar("INSERT INTO t (n, e, s) VALUES (?, ?, ?)", QString(), quint8{7}, std::optional<bool>(false));

    const auto revisar = [](const Fila& fila)
    {
        EXPECT_EQ(7, fila.columnas());
        EXPECT_STREQ("n", fila.nombre(1));
        EXPECT_STREQ("CURRENCY", fila.tipo(5));
        switch (fila.entero("ID"))
        {
        case 1:
            EXPECT_EQ(QStringLiteral("O'Higgins Ñandú €"), fila.texto("N"));
            EXPECT_EQ("O'Higgins Ñandú €", fila.utf8("n"));
            EXPECT_EQ(qint64{1} << 40, fila.entero("e"));
            EXPECT_EQ(QStringLiteral("1099511627776"), fila.texto("e"));
            EXPECT_EQ(QDate(2009, 5, 1), fila.fecha("f"));
            EXPECT_EQ(QStringLiteral("2009-05-01"), fila.texto("f"));
            EXPECT_EQ(QTime(23, 5, 9), fila.hora("H"));
            EXPECT_EQ(-12345, fila.moneda("m").diezMilesimos());
            EXPECT_TRUE(fila.si("s"));
            break;
        case 2:
            for (const char* columna : {"n", "e", "f", "h", "m", "s"})
            {
                EXPECT_TRUE(fila.esNulo(columna)) << columna;
            }
            EXPECT_EQ(QStringLiteral(""), fila.texto("n"));
            EXPECT_EQ(std::nullopt, fila.enteroONulo("e"));
            EXPECT_FALSE(fila.fecha("f").isValid());
            EXPECT_FALSE(fila.hora("h").isValid());
            EXPECT_FALSE(fila.si("s"));
            EXPECT_EQ(94, numeroDe([&] { return fila.entero("e"); }));
            EXPECT_EQ(94, numeroDe([&] { return fila.moneda("m"); }));
            break;
        default:
            EXPECT_FALSE(fila.esNulo("n")) << "an empty text is no Null";
            EXPECT_EQ(7, fila.entero("e"));
            EXPECT_FALSE(fila.esNulo("s"));
            EXPECT_FALSE(fila.si("s"));
        }
    };
    int vistas = 0;
    EXPECT_TRUE(conexion.recorrer("SELECT * FROM t ORDER BY id",
                                  [&](const Fila& fila)
                                  {
                                      revisar(fila);
                                      ++vistas;
                                  }));
    EXPECT_EQ(3, vistas);
    const Recordset copia = conexion.consultar("SELECT * FROM t ORDER BY id");
    EXPECT_EQ(3, copia.cantidad());
    for (const Fila& fila : copia)
    {
        revisar(fila);
    }
}

TEST_F(ConexionAbierta, ValoresQueNoSonLoQueSePide)
{
    conexion.ejecutar("INSERT INTO t (n, e, f, h) VALUES ('12x', 1.5, '01/05/2009', '7:5')");
    conexion.ejecutar("INSERT INTO t (n, e, f, h) VALUES ('12', 3.0, '2009-02-30', '24:00:00')");
    conexion.ejecutar("INSERT INTO t (n, e, f, h) VALUES ('', 9223372036854775807, '', 5)");
    const Recordset copia = conexion.consultar("SELECT * FROM t");
    EXPECT_EQ(13, numeroDe([&] { return copia[0].entero("n"); }));
    EXPECT_EQ(13, numeroDe([&] { return copia[0].entero("e"); }));
    EXPECT_EQ(12, copia[1].entero("n"));
    EXPECT_EQ(3, copia[1].entero("e"));
    EXPECT_EQ(13, numeroDe([&] { return copia[2].entero("n"); }));
    EXPECT_EQ(13, numeroDe([&] { return copia[2].utf8("e"); }));
    for (const Fila& fila : copia)
    {
        EXPECT_EQ(13, numeroDe([&] { return fila.fecha("f"); }));
        EXPECT_EQ(13, numeroDe([&] { return fila.hora("h"); }));
    }
    EXPECT_EQ(3021, numeroDe([&] { return copia[3]; }));
    EXPECT_EQ(3021, numeroDe([&] { return conexion.consultar("SELECT 1 WHERE 0").primera(); }));
}

TEST_F(ConexionAbierta, ColumnaPorNombre)
{
    conexion.ejecutar("INSERT INTO t (n, e) VALUES ('a', 1)");
    const Recordset copia = conexion.consultar("SELECT n, e, e + 1 AS Otro, n AS N FROM t");
    const Fila fila = copia.primera();
    EXPECT_EQ(2, fila.entero("oTRO"));
    EXPECT_EQ(3265, numeroDe([&] { return fila.texto("id"); }));
    EXPECT_EQ(3265, numeroDe([&] { return fila.texto(""); }));
    // The same address with another text in it is another name.
    char nombre[] = "n";
    EXPECT_EQ(QStringLiteral("a"), fila.texto(nombre));
    nombre[0] = 'e';
    EXPECT_EQ(QStringLiteral("1"), fila.texto(nombre));
    nombre[0] = 'x';
    EXPECT_EQ(3265, numeroDe([&] { return fila.texto(nombre); }));
}

TEST_F(ConexionAbierta, UnRecordsetNoVeCambiosPosteriores)
{
    conexion.ejecutar("INSERT INTO t (n) VALUES ('uno'), ('dos')");
    const Recordset copia = conexion.consultar("SELECT * FROM t ORDER BY id");
    conexion.ejecutar("UPDATE t SET n = 'tres'");
    conexion.ejecutar("DELETE FROM t WHERE id = 2");
    EXPECT_EQ(2, copia.cantidad());
    EXPECT_EQ(QStringLiteral("uno"), copia[0].texto("n"));
    EXPECT_EQ(QStringLiteral("dos"), copia[1].texto("n"));
    // nor does it follow its statement's text to another result
    EXPECT_EQ(1, conexion.consultar("SELECT * FROM t ORDER BY id").cantidad());
    EXPECT_EQ(2, copia.cantidad());
    conexion.cerrar();
    EXPECT_EQ(QStringLiteral("dos"), copia[1].texto("n"));
}

TEST_F(ConexionAbierta, UnaFilaYTodas)
{
    conexion.ejecutar("INSERT INTO t (e) VALUES (1), (2), (3)");
    const auto leer = [](const Fila& fila) { return fila.entero("e"); };
    EXPECT_EQ((std::vector<qint64>{3, 2}), conexion.lista("SELECT e FROM t WHERE e > ? ORDER BY e DESC", leer, 1));
    EXPECT_EQ(2, conexion.una("SELECT e FROM t WHERE e > ? ORDER BY e", leer, 1));
    EXPECT_EQ(std::nullopt, conexion.una("SELECT e FROM t WHERE e > ?", leer, 3));
    EXPECT_EQ(std::vector<qint64>(), conexion.lista("SELECT e FROM t WHERE e > ?", leer, 3));
    conexion.ejecutar("DELETE FROM t"); // no row is still being read
}

TEST_F(ConexionAbierta, UnaSentenciaSeUsaDentroDeSiMisma)
{
    conexion.ejecutar("INSERT INTO t (e) VALUES (1), (2), (3)");
    std::vector<qint64> vistos;
    const char* sql = "SELECT e FROM t WHERE e >= ? ORDER BY e";
    const std::function<void(int)> recorrer = [&](int desde)
    {
        conexion.recorrer(
            sql,
            [&](const Fila& fila)
            {
                vistos.push_back(fila.entero("e"));
                if (fila.entero("e") < 3)
                {
                    recorrer(static_cast<int>(fila.entero("e")) + 1);
                }
                vistos.push_back(-fila.entero("e")); // the outer row is still its own
            },
            desde);
    };
    recorrer(1);
    EXPECT_EQ((std::vector<qint64>{1, 2, 3, -3, -2, 3, -3, -1, 2, 3, -3, -2, 3, -3}), vistos);
}

TEST_F(ConexionAbierta, SiempreSeReponeLaSentencia)
{
    conexion.ejecutar("INSERT INTO t (e) VALUES (1), (2)");
    Conexion otra;
    otra.abrir(ruta);
    // A statement left in mid-step would keep a read lock, and the other connection's commit would wait for it.
    EXPECT_THROW(conexion.recorrer("SELECT e FROM t", [](const Fila&) { throw std::runtime_error("visitante"); }),
                 std::runtime_error);
    otra.ejecutar("DELETE FROM t WHERE e = 1");
    EXPECT_TRUE(conexion.recorrer("SELECT e FROM t", [](const Fila&) { return false; }));
    otra.ejecutar("INSERT INTO t (e) VALUES (5)");
    EXPECT_TRUE(conexion.hay("SELECT e FROM t WHERE e > ?", 1));
    EXPECT_FALSE(conexion.hay("SELECT e FROM t WHERE e > ?", 5));
    otra.ejecutar("DELETE FROM t");
    EXPECT_FALSE(conexion.recorrer("SELECT e FROM t", [](const Fila&) { FAIL(); }));
}

TEST_F(ConexionAbierta, UnaSentenciaSirveDespuesDeUnError)
{
    Sentencia insertar = conexion.preparar("INSERT INTO t (id, n) VALUES (?, ?)");
    EXPECT_EQ(1, insertar.ejecutar(5, "uno"));
    try
    {
        insertar.ejecutar(5, "dos");
        FAIL();
    }
    catch (const ErrorDeEjecucion& error)
    {
        EXPECT_EQ(1555, error.numero()); // SQLITE_CONSTRAINT_PRIMARYKEY
        EXPECT_EQ("Ya existe un registro con la misma clave (t.id)", error.descripcion().toStdString());
        EXPECT_EQ("1555 - " + error.descripcion().toStdString(), error.what());
    }
    EXPECT_EQ(1, insertar.ejecutar(6, "tres"));
    EXPECT_EQ(25, numeroDe([&] { return insertar.ejecutar(7); })); // too few values
    EXPECT_EQ(25, numeroDe([&] { return insertar.ejecutar(7, "a", "b"); }));
    // Past what the database takes; the text is not even looked at.
    EXPECT_EQ(18, numeroDe([&] { return insertar.ejecutar(7, std::string_view("", 1'000'000'001)); }));
    EXPECT_EQ(1, insertar.ejecutar(7, nullptr));
    EXPECT_EQ(3, filas());
    EXPECT_EQ(1, numeroDe([&] { return conexion.ejecutar("DELETE FROM nada"); }));
    EXPECT_EQ(1, numeroDe([&] { return conexion.ejecutar("esto no es SQL"); }));
    EXPECT_EQ(21, numeroDe([&] { return conexion.ejecutar("DELETE FROM t; DELETE FROM t"); }));
    EXPECT_EQ(21, numeroDe([&] { return conexion.ejecutar("  "); }));
    EXPECT_EQ(3, filas());
    EXPECT_EQ(3, conexion.ejecutar("DELETE FROM t ;\n"));
}

TEST_F(ConexionAbierta, VeLasColumnasNuevasDeUnaTabla)
{
    conexion.ejecutar("INSERT INTO t (n) VALUES ('a')");
    EXPECT_EQ(3265, numeroDe([&] { return conexion.consultar("SELECT * FROM t").primera().entero("nueva"); }));
    conexion.ejecutar("ALTER TABLE t ADD COLUMN nueva INTEGER DEFAULT 4");
    const Recordset copia = conexion.consultar("SELECT * FROM t");
    EXPECT_EQ(4, copia.primera().entero("nueva"));
    EXPECT_EQ(8, copia.primera().columnas());
}

TEST_F(ConexionAbierta, MuchasSentenciasDistintas)
{
    Sentencia guardada = conexion.preparar("SELECT 7 AS n");
    for (int i = 0; i < 2000; ++i)
    {
        const std::string sql = "SELECT " + std::to_string(i) + " AS n";
        ASSERT_EQ(i, conexion.consultar(sql).primera().entero("n"));
    }
    EXPECT_EQ(7, guardada.consultar().primera().entero("n"));
}

TEST_F(ConexionAbierta, Transacciones)
{
    {
        Transaccion transaccion(conexion);
        conexion.ejecutar("INSERT INTO t (n) VALUES ('se pierde')");
        EXPECT_TRUE(conexion.enTransaccion());
        EXPECT_EQ(1, numeroDe([&] { const Transaccion anidada(conexion); }));
        EXPECT_TRUE(conexion.enTransaccion());
    }
    EXPECT_FALSE(conexion.enTransaccion());
    EXPECT_EQ(0, filas());
    {
        Transaccion transaccion(conexion);
        conexion.ejecutar("INSERT INTO t (n) VALUES ('queda')");
        transaccion.confirmar();
        EXPECT_FALSE(conexion.enTransaccion());
        EXPECT_EQ(1, numeroDe([&] { transaccion.confirmar(); }));
    }
    {
        Transaccion transaccion(conexion);
        conexion.ejecutar("DELETE FROM t");
        transaccion.deshacer();
        transaccion.deshacer();
    }
    EXPECT_EQ(1, filas());
    {
        Transaccion transaccion(conexion);
        conexion.ejecutar("DELETE FROM t");
        conexion.recorrer("SELECT 1 AS uno UNION SELECT 2",
                          [&](const Fila&)
                          {
                              transaccion.deshacer();
                              return false;
                          });
        EXPECT_EQ(1, filas());
    }
    {
        Transaccion transaccion(conexion);
        conexion.ejecutar("DELETE FROM t");
        conexion.cerrar();
    }
    conexion.abrir(ruta);
    EXPECT_EQ(1, filas());
}

TEST_F(ConexionAbierta, UnaCerradaFallaCon91)
{
    Sentencia vieja = conexion.preparar("SELECT id FROM t");
    conexion.ejecutar("INSERT INTO t (n) VALUES ('a'), ('b')");
    EXPECT_EQ(91, numeroDe([&] { conexion.recorrer("SELECT id FROM t", [&](const Fila&) { conexion.cerrar(); }); }));
    conexion.cerrar();
    EXPECT_FALSE(conexion.abierta());
    EXPECT_EQ(QString(), conexion.ruta());
    EXPECT_EQ(91, numeroDe([&] { return conexion.ejecutar("DELETE FROM t"); }));
    EXPECT_EQ(91, numeroDe([&] { return conexion.ultimoNumero(); }));
    EXPECT_EQ(91, numeroDe([&] { const Transaccion transaccion(conexion); }));
    EXPECT_EQ(91, numeroDe([&] { return vieja.ejecutar(); }));
    conexion.abrir(ruta);
    EXPECT_EQ(91, numeroDe([&] { return vieja.consultar(); }));
    EXPECT_EQ(2, filas());
}

TEST_F(ConexionAbierta, AlMoverseSiguenSusSentencias)
{
    Sentencia sentencia = conexion.preparar("INSERT INTO t (n) VALUES (?)");
    Conexion otra = std::move(conexion);
    EXPECT_EQ(1, sentencia.ejecutar("a"));
    EXPECT_EQ(1, otra.consultar("SELECT * FROM t").cantidad());
    EXPECT_EQ(ruta, otra.ruta());
}

TEST_F(ConexionAbierta, SoloLecturaNoEscribeNiTraba)
{
    Conexion lectora;
    lectora.abrir(ruta, Conexion::Modo::SoloLectura);
    EXPECT_EQ(8, numeroDe([&] { return lectora.ejecutar("INSERT INTO t (n) VALUES ('a')"); }));
    conexion.ejecutar("INSERT INTO t (n) VALUES ('b')");
    EXPECT_EQ(1, lectora.consultar("SELECT * FROM t").cantidad());
}

TEST_F(ConexionAbierta, ElArchivoEsUnoSoloYNoConfiaEnSuEsquema)
{
    EXPECT_EQ(QStringLiteral("delete"), conexion.consultar("PRAGMA journal_mode").primera().texto("journal_mode"));
    EXPECT_EQ(2, conexion.consultar("PRAGMA synchronous").primera().entero("synchronous"));
    EXPECT_EQ(0, conexion.consultar("PRAGMA trusted_schema").primera().entero("trusted_schema"));
    conexion.cerrar();
    EXPECT_EQ((QStringList{QStringLiteral("Bäse ñ.ldb"), QStringLiteral("Bäse ñ.mdb")}),
              QDir(carpeta.path()).entryList(QDir::Files, QDir::Name));
}

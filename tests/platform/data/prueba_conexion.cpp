#include "apoyo/datos.h"
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

    [[nodiscard]] qint64 cuantas() { return cuantos(conexion, "t"); }

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
    conexion.ejecutar("INSERT INTO t (n, e, f, h, m, s) VALUES (?, ?, ?, ?, ?, ?)", nullptr, ninguno, QDate(), QTime(),
                      nullptr, nullptr);
    conexion.ejecutar("INSERT INTO t (n, e, s) VALUES (?, ?, ?)", QString(), quint8{7}, std::optional<bool>(false));
    EXPECT_EQ("1|O'Higgins Ñandú €|1099511627776|2009-05-01|23:05:09|-12345|1;2|Null|Null|Null|Null|Null|Null;"
              "3||7|Null|Null|Null|0",
              filas(conexion, "SELECT * FROM t"));
    const auto revisar = [](const Fila& fila)
    {
        EXPECT_EQ(7, fila.columnas());
        EXPECT_STREQ("n", fila.nombre(1));
        switch (fila.entero("ID"))
        {
        case 1:
            EXPECT_EQ("O'Higgins Ñandú €", fila.utf8("N"));
            EXPECT_EQ(QDate(2009, 5, 1), fila.fecha("f"));
            EXPECT_EQ(QTime(23, 5, 9), fila.hora("H"));
            EXPECT_EQ(-12345, fila.moneda("m").diezMilesimos());
            EXPECT_TRUE(fila.si("s"));
            break;
        case 2:
            EXPECT_TRUE(fila.esNulo("e"));
            EXPECT_EQ(QStringLiteral(""), fila.texto("n"));
            EXPECT_EQ(std::nullopt, fila.enteroONulo("e"));
            EXPECT_FALSE(fila.fecha("f").isValid() || fila.hora("h").isValid() || fila.si("s"));
            EXPECT_EQ(94, numeroDe([&] { return fila.entero("e"); }));
            EXPECT_EQ(94, numeroDe([&] { return fila.moneda("m"); }));
            break;
        default:
            EXPECT_FALSE(fila.esNulo("n")) << "an empty text is no Null";
            EXPECT_FALSE(fila.si("s"));
        }
        EXPECT_EQ(3265, numeroDe([&] { return fila.texto("otra"); }));
    };
    EXPECT_TRUE(conexion.recorrer("SELECT * FROM t", revisar));
}

TEST_F(ConexionAbierta, ValoresQueNoSonLoQueSePide)
{
    struct Caso
    {
        const char* valor; ///< as SQL
        int entero;        ///< number of the error; 0 for none
        int fecha;
        int hora;
    };
    for (const Caso& caso :
         {Caso{"'12x'", 13, 13, 13}, Caso{"'12'", 0, 13, 13}, Caso{"''", 13, 13, 13}, Caso{"1.5", 13, 13, 13},
          Caso{"'01/05/2009'", 13, 13, 13}, Caso{"'2009-02-30'", 13, 13, 13}, Caso{"'2009-02-28'", 13, 0, 13},
          Caso{"'7:5'", 13, 13, 13}, Caso{"'24:00:00'", 13, 13, 13}, Caso{"'23:59:59'", 13, 13, 0}})
    {
        conexion.recorrer(std::string("SELECT ") + caso.valor + " AS v, 5 AS n",
                          [&](const Fila& fila)
                          {
                              EXPECT_EQ(caso.entero, numeroDe([&] { return fila.entero("v"); })) << caso.valor;
                              EXPECT_EQ(caso.fecha, numeroDe([&] { return fila.fecha("v"); })) << caso.valor;
                              EXPECT_EQ(caso.hora, numeroDe([&] { return fila.hora("v"); })) << caso.valor;
                              EXPECT_EQ(13, numeroDe([&] { return fila.utf8("n"); }));
                          });
    }
}

TEST_F(ConexionAbierta, UnRecordsetNoVeCambiosPosteriores)
{
    conexion.ejecutar("INSERT INTO t (n) VALUES ('uno'), ('dos')");
    const Recordset copia = conexion.consultar("SELECT * FROM t ORDER BY id");
    conexion.ejecutar("DELETE FROM t");
    conexion.cerrar();
    EXPECT_EQ(2, copia.cantidad());
    EXPECT_EQ(QStringLiteral("dos"), copia[1].texto("N"));
    EXPECT_EQ(3021, numeroDe([&] { return copia[2]; }));
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

TEST_F(ConexionAbierta, UnaSentenciaNoSeUsaDentroDeSiMisma)
{
    conexion.ejecutar("INSERT INTO t (e) VALUES (1), (2)");
    const char* sql = "SELECT e FROM t";
    EXPECT_EQ(21, numeroDe([&] { return conexion.recorrer(sql, [&](const Fila&) { (void)conexion.hay(sql); }); }));
    EXPECT_TRUE(conexion.hay(sql));
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
    EXPECT_EQ(1555, numeroDe([&] { return insertar.ejecutar(5, "dos"); })); // SQLITE_CONSTRAINT_PRIMARYKEY
    EXPECT_EQ(1, insertar.ejecutar(6, "tres"));
    EXPECT_EQ(25, numeroDe([&] { return insertar.ejecutar(7); })); // too few values
    EXPECT_EQ(25, numeroDe([&] { return insertar.ejecutar(7, "a", "b"); }));
    // Past what the database takes; the text is not even looked at.
    EXPECT_EQ(18, numeroDe([&] { return insertar.ejecutar(7, std::string_view("", 1'000'000'001)); }));
    EXPECT_EQ(1, insertar.ejecutar(7, nullptr));
    EXPECT_EQ(3, cuantas());
    EXPECT_EQ(1, numeroDe([&] { return conexion.ejecutar("DELETE FROM nada"); }));
    EXPECT_EQ(1, numeroDe([&] { return conexion.ejecutar("esto no es SQL"); }));
    EXPECT_EQ(21, numeroDe([&] { return conexion.ejecutar("DELETE FROM t; DELETE FROM t"); }));
    EXPECT_EQ(21, numeroDe([&] { return conexion.ejecutar("  "); }));
    EXPECT_EQ(3, cuantas());
    EXPECT_EQ(3, conexion.ejecutar("DELETE FROM t ;\n"));
}

TEST_F(ConexionAbierta, VeLasColumnasNuevasDeUnaTabla)
{
    conexion.ejecutar("INSERT INTO t (id) VALUES (1)");
    EXPECT_EQ("1|Null|Null|Null|Null|Null|Null", filas(conexion, "SELECT * FROM t"));
    conexion.ejecutar("ALTER TABLE t ADD COLUMN nueva INTEGER DEFAULT 4");
    EXPECT_EQ("1|Null|Null|Null|Null|Null|Null|4", filas(conexion, "SELECT * FROM t"));
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
    EXPECT_EQ(0, cuantas());
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
    EXPECT_EQ(1, cuantas());
    {
        Transaccion transaccion(conexion);
        conexion.ejecutar("DELETE FROM t");
        conexion.recorrer("SELECT 1 AS uno UNION SELECT 2",
                          [&](const Fila&)
                          {
                              transaccion.deshacer();
                              return false;
                          });
        EXPECT_EQ(1, cuantas());
    }
    {
        Transaccion transaccion(conexion);
        conexion.ejecutar("DELETE FROM t");
        conexion.cerrar();
    }
    conexion.abrir(ruta);
    EXPECT_EQ(1, cuantas());
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
    EXPECT_EQ(2, cuantas());
}

TEST_F(ConexionAbierta, AlMoverseSiguenSusSentencias)
{
    Sentencia sentencia = conexion.preparar("INSERT INTO t (n) VALUES (?)");
    Conexion otra = std::move(conexion);
    EXPECT_EQ(1, sentencia.ejecutar("a"));
    EXPECT_EQ(1, cuantos(otra, "t"));
    EXPECT_EQ(ruta, otra.ruta());
}

TEST_F(ConexionAbierta, SoloLecturaNoEscribeNiTraba)
{
    Conexion lectora;
    lectora.abrir(ruta, Conexion::Modo::SoloLectura);
    EXPECT_EQ(8, numeroDe([&] { return lectora.ejecutar("INSERT INTO t (n) VALUES ('a')"); }));
    conexion.ejecutar("INSERT INTO t (n) VALUES ('b')");
    EXPECT_EQ(1, cuantos(lectora, "t"));
}

TEST_F(ConexionAbierta, ElArchivoEsUnoSoloYNoConfiaEnSuEsquema)
{
    EXPECT_EQ("delete", filas(conexion, "PRAGMA journal_mode"));
    EXPECT_EQ("2", filas(conexion, "PRAGMA synchronous"));
    EXPECT_EQ("0", filas(conexion, "PRAGMA trusted_schema"));
    conexion.cerrar();
    EXPECT_EQ((QStringList{QStringLiteral("Bäse ñ.ldb"), QStringLiteral("Bäse ñ.mdb")}),
              QDir(carpeta.path()).entryList(QDir::Files, QDir::Name));
}

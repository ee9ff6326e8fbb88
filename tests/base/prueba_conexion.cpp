#include "apoyo/archivos_de_prueba.h"
#include "base_nueva.h"

namespace
{
class ConexionAbierta : public BaseNueva
{
protected:
    ConexionAbierta()
    {
        conexion.ejecutar("CREATE TABLE t (id INTEGER PRIMARY KEY AUTOINCREMENT, n TEXT, e INTEGER, f DATE, h TIME, "
                          "m CURRENCY, s YESNO)");
    }
};
} // namespace

TEST_F(ConexionAbierta, CadaClaseDeValorVaYVuelve)
{
    const std::optional<int> ninguno;
    EXPECT_EQ(1,
              conexion.ejecutar("INSERT INTO t (n, e, f, h, m, s) VALUES (?, ?, ?, ?, ?, ?)", "O'Higgins Ñandú €",
                                qint64{1} << 40, QDate(2009, 5, 1), QTime(23, 5, 9), Moneda::deTexto("-1,2345"), true));
    conexion.ejecutar("INSERT INTO t (n, e, f, h, m, s) VALUES (?, ?, ?, ?, ?, ?)", nullptr, ninguno, QDate(), QTime(),
                      nullptr, nullptr);
    conexion.ejecutar("INSERT INTO t (n, e, s) VALUES (?, ?, ?)", QString(), quint8{7}, std::optional<bool>(false));
    EXPECT_EQ("1|O'Higgins Ñandú €|1099511627776|2009-05-01|23:05:09|-12345|1;2|Null|Null|Null|Null|Null|Null;"
              "3||7|Null|Null|Null|0",
              filas(conexion, "SELECT * FROM t"));
    // By any case of the name; without a value, numbers fail and the rest is empty.
    const auto leer = [](const Fila& fila)
    {
        const auto numero = [](auto valor) { return numeroDe(valor) == 0 ? QString::number(valor()) : fallaDe(valor); };
        const QStringList valores{QString::fromUtf8(fila.utf8("N")),
                                  fila.texto("n"),
                                  numero([&] { return fila.entero("E"); }),
                                  QString::number(fila.enteroONulo("e").value_or(-1)),
                                  fila.fecha("F").toString(Qt::ISODate),
                                  fila.hora("h").toString(),
                                  numero([&] { return fila.moneda("m").diezMilesimos(); }),
                                  QString::number(fila.si("s")),
                                  QString::number(fila.esNulo("n"))};
        return valores.join(u'|').toStdString();
    };
    EXPECT_EQ((std::vector<std::string>{
                  "O'Higgins Ñandú €|O'Higgins Ñandú €|1099511627776|1099511627776|2009-05-01|23:05:09|-12345|1|0",
                  "||94 Uso no válido de Null: E|-1|||94 Uso no válido de Null: m|0|1",
                  "||7|7|||94 Uso no válido de Null: m|0|0"}),
              conexion.lista("SELECT * FROM t", leer));
    const auto otra = [](const Fila& fila) { return fila.texto("otra"); };
    EXPECT_EQ(3265, numeroDe([&] { return conexion.primera("SELECT * FROM t", otra); }));
    EXPECT_EQ(3021, numeroDe([&] { return conexion.primera("SELECT * FROM t WHERE id > 3", otra); }));
}

TEST_F(ConexionAbierta, ValoresQueNoSonLoQueSePide)
{
    // The errors that reading a value as an integer, a date and a time gives.
    const auto errores = [this](const std::string& valor)
    {
        const auto leer = [](const Fila& fila)
        {
            EXPECT_EQ(13, numeroDe([&] { return fila.utf8("n"); }));
            return std::tuple(numeroDe([&] { return fila.entero("v"); }), numeroDe([&] { return fila.fecha("v"); }),
                              numeroDe([&] { return fila.hora("v"); }));
        };
        return conexion.primera("SELECT 5 AS n, " + valor + " AS v", leer);
    };
    for (const char* nada : {"'12x'", "''", "1.5", "'01/05/2009'", "'2009-02-30'", "'7:5'", "'24:00:00'"})
    {
        EXPECT_EQ(std::tuple(13, 13, 13), errores(nada)) << nada;
    }
    EXPECT_EQ(std::tuple(0, 13, 13), errores("'12'"));
    EXPECT_EQ(std::tuple(13, 0, 13), errores("'2009-02-28'"));
    EXPECT_EQ(std::tuple(13, 13, 0), errores("'23:59:59'"));
}

TEST_F(ConexionAbierta, SiempreSeReponeLaSentencia)
{
    conexion.ejecutar("INSERT INTO t (e) VALUES (1), (2)");
    const char* sql = "SELECT e FROM t";
    EXPECT_EQ(21, numeroDe([&] { return conexion.recorrer(sql, [&](const Fila&) { (void)conexion.hay(sql); }); }));
    Conexion otra;
    otra.abrir(base);
    // A statement left in mid-step would keep a read lock, and the other connection's commit would wait for it.
    EXPECT_ANY_THROW(conexion.recorrer(sql, [](const Fila&) { throw 0; }));
    otra.ejecutar("DELETE FROM t WHERE e = 1");
    EXPECT_TRUE(conexion.recorrer(sql, [](const Fila&) { return false; }));
    otra.ejecutar("INSERT INTO t (e) VALUES (5)");
    EXPECT_TRUE(conexion.hay("SELECT e FROM t WHERE e > ?", 1));
    otra.ejecutar("DELETE FROM t");
    EXPECT_FALSE(conexion.recorrer(sql, [](const Fila&) { FAIL(); }));
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
    constexpr std::size_t demasiados = 1'000'000'001;
    EXPECT_EQ(18, numeroDe([&] { return insertar.ejecutar(7, std::string_view("", demasiados)); }));
    EXPECT_EQ(1, insertar.ejecutar(7, nullptr));
    for (const auto& [sql, numero] : {std::pair("DELETE FROM nada", 1), std::pair("esto no es SQL", 1),
                                      std::pair("DELETE FROM t; DELETE FROM t", 21), std::pair("  ", 21)})
    {
        EXPECT_EQ(numero, numeroDe([&, sql = sql] { return conexion.ejecutar(sql); })) << sql;
    }
    EXPECT_EQ(3, conexion.ejecutar("DELETE FROM t ;\n"));
}

TEST_F(ConexionAbierta, Transacciones)
{
    // The rows that are there after a transaction in which this was done.
    const auto quedan = [this](const std::function<void(Transaccion&)>& haz)
    {
        conexion.ejecutar("DELETE FROM t");
        {
            Transaccion una(conexion);
            conexion.ejecutar("INSERT INTO t (n) VALUES ('una')");
            EXPECT_TRUE(conexion.enTransaccion());
            haz(una);
        }
        EXPECT_FALSE(conexion.abierta() && conexion.enTransaccion());
        conexion.abrir(base);
        return cuantos(conexion, "t");
    };
    const auto confirmarDosVeces = [](Transaccion& una)
    {
        una.confirmar();
        EXPECT_EQ(1, numeroDe([&] { una.confirmar(); }));
    };
    const auto anidar = [this] { const Transaccion otra(conexion); };
    EXPECT_EQ(0, quedan([&](Transaccion&) { EXPECT_EQ(1, numeroDe(anidar)); }));
    EXPECT_EQ(1, quedan([&](Transaccion& una) { confirmarDosVeces(una); }));
    EXPECT_EQ(0, quedan([this](Transaccion&) { conexion.cerrar(); }));
}

TEST_F(ConexionAbierta, UnaCerradaFallaCon91)
{
    Sentencia vieja = conexion.preparar("SELECT id FROM t");
    conexion.ejecutar("INSERT INTO t (n) VALUES ('a'), ('b')");
    EXPECT_EQ(91, numeroDe([&] { conexion.recorrer("SELECT id FROM t", [&](const Fila&) { conexion.cerrar(); }); }));
    EXPECT_EQ(91, numeroDe([&] { return conexion.ejecutar("DELETE FROM t"); }));
    EXPECT_EQ(91, numeroDe([&] { return conexion.ultimoNumero(); }));
    EXPECT_EQ(91, numeroDe([&] { const Transaccion transaccion(conexion); }));
    EXPECT_EQ(91, numeroDe([&] { return vieja.ejecutar(); }));
    conexion.abrir(base);
    EXPECT_EQ(91, numeroDe([&] { return vieja.hay(); }));
    Sentencia sentencia = conexion.preparar("INSERT INTO t (n) VALUES (?)");
    Conexion otra = std::move(conexion);
    EXPECT_EQ(1, sentencia.ejecutar("a")) << "statements follow a connection that moves";
    EXPECT_EQ(3, cuantos(otra, "t"));
}

TEST_F(ConexionAbierta, ElArchivoEsUnoSoloYNoConfiaEnSuEsquema)
{
    EXPECT_EQ("delete|2|0", filas(conexion, "PRAGMA journal_mode") + '|' + filas(conexion, "PRAGMA synchronous") + '|' +
                                filas(conexion, "PRAGMA trusted_schema"));
    Conexion lectora;
    lectora.abrir(base, Conexion::Modo::SoloLectura);
    EXPECT_EQ(8, numeroDe([&] { return lectora.ejecutar("INSERT INTO t (n) VALUES ('a')"); }));
    conexion.ejecutar("INSERT INTO t (n) VALUES ('b')"); // a reader does not block
    EXPECT_EQ(1, cuantos(lectora, "t"));
    EXPECT_EQ("Bäse ñ.mdb", archivosDe(carpeta.path()));
}

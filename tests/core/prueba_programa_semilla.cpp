#include "apoyo/rutas.h"
#include "configuracion.h"
#include "platform/data/conexion.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace
{
const QByteArray esquema = "-- comment; with a semicolon\n"
                           "CREATE TABLE Cosas (\n"
                           "    Codigo INTEGER NOT NULL PRIMARY KEY,\n"
                           "    Nombre TEXT COLLATE espanol\n"
                           ");\n";

class ProgramaSemilla : public testing::Test
{
protected:
    void escribir(const QString& nombre, const QByteArray& contenido) const
    {
        QFile archivo(carpeta.filePath(nombre));
        ASSERT_TRUE(archivo.open(QIODevice::WriteOnly));
        ASSERT_EQ(archivo.write(contenido), contenido.size());
    }

    /// Runs the tool; gives its exit status and keeps what it wrote in `errores`.
    int sembrar()
    {
        QProcess programa;
        programa.start(rutas::programaSemilla(), {carpeta.path(), destino});
        EXPECT_TRUE(programa.waitForFinished(60'000));
        errores = programa.readAllStandardError();
        return programa.exitCode();
    }

    QByteArray enDestino() const
    {
        QFile archivo(destino);
        EXPECT_TRUE(archivo.open(QIODevice::ReadOnly));
        return archivo.readAll();
    }

    QTemporaryDir carpeta;
    QTemporaryDir salida;
    QString destino = salida.filePath(QStringLiteral("DBBrivo.mdb"));
    QByteArray errores;
};

TEST_F(ProgramaSemilla, ReadsQuotedFieldsNullsAndBothLineEnds)
{
    escribir(QStringLiteral("esquema.sql"), esquema);
    escribir(QStringLiteral("Cosas.csv"), "\xEF\xBB\xBF"
                                          "Codigo,Nombre\r\n"
                                          "1,\"uno, dos\"\r\n"
                                          "2,\"dice \"\"no\"\"\"\n"
                                          "\n"
                                          "3,\"dos\nlíneas\"\r\n"
                                          "4,\n"
                                          "5,\"\"\n"
                                          "6,@BUZON_DDJJ@\n"
                                          "7,D'Angelo; DROP");
    ASSERT_EQ(sembrar(), 0) << errores.toStdString();

    Conexion conexion;
    conexion.abrir(destino);
    QStringList hallado;
    conexion.recorrer("SELECT Nombre FROM Cosas ORDER BY Codigo", [&](const Fila& fila)
                      { hallado += fila.esNulo("Nombre") ? QStringLiteral("(null)") : fila.texto("Nombre"); });
    EXPECT_EQ(hallado, QStringList({QStringLiteral("uno, dos"), QStringLiteral("dice \"no\""),
                                    QStringLiteral("dos\nlíneas"), QStringLiteral("(null)"), QString(),
                                    QLatin1String(configuracion::buzonDdjj), QStringLiteral("D'Angelo; DROP")}));
    conexion.cerrar();
}

TEST_F(ProgramaSemilla, FailsWithTheLineAtFaultAndLeavesTheOldFile)
{
    const struct
    {
        const char* nombre;
        QByteArray esquema;
        QByteArray csv;
        const char* dice;
    } casos[] = {
        {"Cosas.csv", esquema, "Codigo,Nombre\n1,a\n\n2,b,c\n", "línea 4: No coinciden los tipos"},
        {"Cosas.csv", esquema, "Codigo,Nombre\n1,\"a\nb\n", "línea 2"},
        {"Cosas.csv", esquema, "Codigo,Nombre\n1,\"a\"b\n", "línea 2"},
        {"Cosas.csv", esquema, "Codigo,Nombre\n1,a\"b\n", "línea 2"},
        {"Cosas.csv", esquema, "Codigo,Nombre\n1,\"x\ny\"\n1,b\n", "línea 4"}, // the same key again
        {"Cosas.csv", esquema, "Codigo,Nombre\nuno,a\n", "línea 2"},           // no number
        {"Cosas.csv", esquema, "Codigo,Nombre\n1,Espa\xF1ol\n", "UTF-8"},
        {"Cosas.csv", esquema, "", "columnas"},
        {"Cosas.csv", esquema, "Codigo,Nombre) VALUES (1,2); --\n", "nombre inválido"},
        {"Otras.csv", esquema, "Codigo,Nombre\n1,a\n", "Otras"},
        {"Cosas.csv", "CREATE TABLE Cosas (Codigo INTEGER,);\n", "Codigo\n1\n", "esquema.sql: 1"},
        {"Cosas.csv", "CREATE TABLE Cosas (Codigo INTEGER)\n", "Codigo\n1\n", "no termina"},
    };
    QFile viejo(destino);
    ASSERT_TRUE(viejo.open(QIODevice::WriteOnly));
    viejo.write("old");
    viejo.close();
    for (const auto& caso : casos)
    {
        SCOPED_TRACE(caso.csv.toStdString());
        for (const QString& csv : QDir(carpeta.path()).entryList({QStringLiteral("*.csv")}))
        {
            ASSERT_TRUE(QFile::remove(carpeta.filePath(csv)));
        }
        escribir(QStringLiteral("esquema.sql"), caso.esquema);
        escribir(QLatin1String(caso.nombre), caso.csv);
        EXPECT_EQ(sembrar(), 1);
        EXPECT_TRUE(errores.contains(caso.dice)) << errores.toStdString();
        EXPECT_EQ(enDestino(), QByteArray("old"));
        EXPECT_EQ(QDir(salida.path()).entryList(QDir::Files).size(), 1);
    }
}
} // namespace

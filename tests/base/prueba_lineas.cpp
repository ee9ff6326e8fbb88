// Text files line by line: line ends at every place of the block, and a disk that fills up.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/datos.h"
#include "apoyo/limite_de_archivos.h"
#include "base/files/lineas.h"
#include "base/files/planilla.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace
{
class Lineas : public testing::Test
{
protected:
    /// The lines of a file of these bytes as the program reads them, "|" after each.
    [[nodiscard]] QByteArray lineas(const QByteArray& bytes) const
    {
        escribirArchivo(archivo, bytes);
        QByteArray todas;
        LectorDeLineas lector(archivo);
        QByteArrayView linea;
        while (lector.leer(linea))
        {
            todas.append(linea).append('|');
        }
        EXPECT_FALSE(lector.leer(linea));
        EXPECT_EQ(bytes.size(), lector.largo());
        return todas;
    }

    QTemporaryDir carpeta;
    QString archivo = carpeta.filePath("texto.txt");
};
} // namespace

TEST_F(Lineas, FinesDeLinea)
{
    EXPECT_EQ("", lineas(""));
    EXPECT_EQ("a|", lineas("a"));
    EXPECT_EQ("a|b|", lineas("a\r\nb\r\n"));
    EXPECT_EQ("a||b||c|", lineas("a\r\n\nb\r\rc"));
    EXPECT_EQ("||", lineas("\n\r"));
    EXPECT_EQ("a||b|", lineas("a\r\r\nb"));
    EXPECT_EQ("a|", lineas("a\r\n\x1A"));
    EXPECT_EQ("", lineas("\x1A"));
    EXPECT_EQ("a\x1A|", lineas("a\x1A\x1A"));
    EXPECT_EQ("a\x1A|", lineas("a\x1A\r\n"));
    EXPECT_EQ(QByteArray("a\0b\xD1|", 5), lineas(QByteArray("a\0b\xD1\r\n", 6)));
    // The block has 64 KiB: the end of a line falls before, on and behind its edge, and lines are longer than it.
    for (const QByteArray& fin : {QByteArray("\r\n"), QByteArray("\r"), QByteArray("\n")})
    {
        for (const int largo : {65533, 65534, 65535, 65536, 65537, 131071, 131072, 200000, 1048575})
        {
            const QByteArray primera(largo, 'x');
            EXPECT_TRUE(primera + "|segunda||cuarta|" == lineas(primera + fin + "segunda" + fin + fin + "cuarta"))
                << largo << fin.toHex().constData();
        }
    }
}

TEST_F(Lineas, LoQueNoSePuedeLeerNiEscribir)
{
    EXPECT_EQ(53, numeroDe([&] { LectorDeLineas{archivo}; }));
    EXPECT_EQ(76, numeroDe([&] { LectorDeLineas{carpeta.filePath("falta/falta")}; }));
    EXPECT_EQ(75, numeroDe([&] { LectorDeLineas{carpeta.path()}; }));
    EXPECT_EQ(75, numeroDe([&] { EscritorDeLineas{carpeta.path()}; }));
    // A line without an end fails instead of filling the memory.
    EXPECT_EQ(14, numeroDe([&] { return lineas("corta\r\n" + QByteArray(5'242'880, 'x')); }));
    EXPECT_EQ(14, numeroDe([&] { return lineas(QByteArray(1048576, 'x')); }));
    EXPECT_EQ(76, numeroDe([&] { EscritorDeLineas{archivo + "/falta"}; })) << "below a file";
}

TEST_F(Lineas, EscribeLineasConCrLfEnBloques)
{
    escribirArchivo(archivo, "lo de antes");
    QByteArray mucho; // more than one block
    EscritorDeLineas escritor(archivo);
    for (int i = 0; i < 3000; ++i)
    {
        const QByteArray linea = i == 1 ? QByteArray() : QByteArray::number(i) + QByteArray(60, '\xD1');
        escritor.imprimir(linea);
        mucho += linea + "\r\n";
    }
    escritor.cerrar();
    EXPECT_EQ(mucho, leerArchivo(archivo));
}

#ifndef _WIN32
TEST_F(Lineas, ElDiscoSeLlena)
{
    const QByteArray mucho(100'000, 'x');
    EscritorDeLineas poco("/dev/full");
    poco.imprimir("poco");
    EXPECT_EQ(61, numeroDe([&] { poco.cerrar(); }));
    EscritorDeLineas bloque("/dev/full");
    EXPECT_EQ(61, numeroDe([&] { bloque.imprimir(mucho); }));
    EXPECT_EQ(0, numeroDe([&] { bloque.cerrar(); })) << "told once";
    // A disk with room for some of the last block takes that much, and only then tells.
    EscritorDeLineas ultimo(archivo);
    ultimo.imprimir(mucho);
    ultimo.imprimir("la última línea");
    const LimiteDeArchivos limite(100'007);
    EXPECT_EQ(61, numeroDe([&] { ultimo.cerrar(); }));
    EXPECT_EQ(100'007, leerArchivo(archivo).size());
}
#endif

TEST_F(Lineas, PlanillasDeIdaYVuelta)
{
    const planilla::Filas filas = {
        {"C.U.I.L.", "Sueldo"}, {"Ñandú; \"El\" Sur", "-1.234,50"}, {"=1+1", "-A1"}, {"a\tb\nc", ""}};
    planilla::escribirCsv(archivo, filas);
    EXPECT_EQ(QByteArray("\xEF\xBB\xBF"
                         "C.U.I.L.;Sueldo\r\n\"Ñandú; \"\"El\"\" Sur\";-1.234,50\r\n'=1+1;'-A1\r\n"
                         "\"a\tb\nc\";\r\n"),
              leerArchivo(archivo));
    EXPECT_EQ("a b c\t\n", planilla::tabulado({filas[3]}));
    const QString copiado = planilla::tabulado({{"\"El\" Sur", "-1,50", "12\""}, {"=1+1", ""}});
    EXPECT_EQ("\"\"\"El\"\" Sur\"\t-1,50\t12\"\n'=1+1\t\n", copiado);
    EXPECT_EQ(planilla::Filas({{"\"El\" Sur", "-1,50", "12\""}, {"'=1+1", ""}}), planilla::leerTabulado(copiado));
    EXPECT_EQ(planilla::Filas({{"1", "a\tb\n\"c\""}, {"", ""}, {"2"}}),
              planilla::leerTabulado("1\t\"a\tb\n\"\"c\"\"\"\r\n\t\r\n2\n"));
    EXPECT_EQ(planilla::Filas({{"1"}, {"2"}}), planilla::leerTabulado("1\r2"));
    EXPECT_EQ(planilla::Filas({{"\"1", "2"}, {"3"}}), planilla::leerTabulado("\"1\t2\n3\n"));
    EXPECT_EQ(planilla::Filas(), planilla::leerTabulado(""));
}

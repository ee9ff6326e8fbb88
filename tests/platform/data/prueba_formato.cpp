#include "platform/data/error_de_ejecucion.h"
#include "platform/data/formato.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace
{
std::string de(const QString& texto)
{
    return texto.toStdString();
}
} // namespace

TEST(Formato, Importes)
{
    struct Caso
    {
        const char* valor;
        const char* patron;
        const char* texto;
    };
    const Caso casos[] = {
        {"1234,5", "0000000.00", "0001234,50"},
        {"0", "0000000.00", "0000000,00"},
        {"-1234,5", "0000000.00", "-0001234,50"},
        {"12345678,9", "0000000.00", "12345678,90"}, // longer than the pattern
        {"1234567,891", "#,##0.00", "1.234.567,89"},
        {"999", "#,##0.00", "999,00"},
        {"0", "#,##0.00", "0,00"},
        {"-1000", "#,##0.00", "-1.000,00"},
        {"1100", "$ #,##0.00", "$ 1.100,00"},
        {"-0,5", "$ #,##0.00", "-$ 0,50"},
        {"12,3456", "000000.00", "000012,35"},
        // past the pattern, halves go away from zero
        {"0,125", "0.00", "0,13"},
        {"0,1249", "0.00", "0,12"},
        {"-0,125", "0.00", "-0,13"},
        {"0,135", "0.00", "0,14"},
        {"999,995", "#,##0.00", "1.000,00"},
        {"0,5", "0", "1"},
        {"1,5", "00", "02"},
        {"-0,004", "0.00", "0,00"}, // no sign before what shows as zero
        {"0,0001", "0.0000", "0,0001"},
        {"1,5", "0.000000", "1,500000"},
        {"1,5", "0.##", "1,5"},
        {"2", "0.##", "2"},
        {"0,5", "#,###.00", ",50"},
        {"922337203685477,5807", "#,##0.0000", "922.337.203.685.477,5807"},
        {"-922337203685477,5808", "0.00", "-922337203685477,58"},
    };
    for (const Caso& caso : casos)
    {
        SCOPED_TRACE(caso.valor);
        SCOPED_TRACE(caso.patron);
        EXPECT_EQ(caso.texto,
                  de(Formato(Moneda::deTexto(QString::fromLatin1(caso.valor)), QString::fromLatin1(caso.patron))));
    }
}

TEST(Formato, Enteros)
{
    struct Caso
    {
        qint64 valor;
        const char* patron;
        const char* texto;
    };
    const Caso casos[] = {
        {5, "00", "05"},
        {123, "00", "123"},
        {-5, "00", "-05"},
        {0, "00000", "00000"},
        {12345678, "00000000", "12345678"},
        {0, "0", "0"},
        {0, "#", ""},
        {7, "0.00", "7,00"},
        {1234567, "#,##0", "1.234.567"},
        {2012345678, "0000000000", "2012345678"},
        {42, "0000,000", "0.000.042"},
        {std::numeric_limits<qint64>::min(), "0", "-9223372036854775808"},
    };
    for (const Caso& caso : casos)
    {
        SCOPED_TRACE(caso.patron);
        EXPECT_EQ(caso.texto, de(Formato(caso.valor, QString::fromLatin1(caso.patron))));
    }
}

TEST(Formato, FlotantesPorSuValorExacto)
{
    struct Caso
    {
        float valor;
        const char* patron;
        const char* texto;
    };
    const Caso casos[] = {
        {12.5F, "0.00", "12,50"},
        {0.125F, "0.00", "0,13"}, // a true half
        {0.375F, "0.00", "0,38"},
        {-0.125F, "0.00", "-0,13"},
        {1.005F, "0.00", "1,00"}, // 1.00499999523...
        {1.015F, "0.00", "1,01"}, // 1.01499998569...
        {1.045F, "0.00", "1,04"}, // 1.04499995708...
        {16777216.0F, "#,##0.00", "16.777.216,00"},
        {1e20F, "0.00", "100000002004087734272,00"},
        {-0.001F, "0.00", "0,00"},
        {0.0F, "0.00", "0,00"},
        {0.1F, "0.000000000000", "0,100000001490"},
    };
    for (const Caso& caso : casos)
    {
        SCOPED_TRACE(caso.texto);
        EXPECT_EQ(caso.texto, de(Formato(caso.valor, QString::fromLatin1(caso.patron))));
    }
    EXPECT_THROW(static_cast<void>(Formato(std::nanf(""), u"0.00")), ErrorDeEjecucion);
    EXPECT_THROW(static_cast<void>(Formato(HUGE_VALF, u"0.00")), ErrorDeEjecucion);
}

TEST(Formato, FechasYHoras)
{
    struct Caso
    {
        QDate fecha;
        const char* patron;
        const char* texto;
    };
    const QDate fecha(2009, 5, 7);
    const Caso casos[] = {
        {fecha, "DD/MM/YYYY", "07/05/2009"}, {fecha, "MM/DD/YYYY", "05/07/2009"},
        {fecha, "YYYY/MM", "2009/05"},       {fecha, "DD/MM/YY", "07/05/09"},
        {fecha, "YYYYMMDD", "20090507"},     {fecha, "dd/mm/yyyy", "07/05/2009"},
        {fecha, "d/m/yy", "7/5/09"},         {{950, 1, 2}, "DD/MM/YYYY", "02/01/0950"},
        {QDate(), "DD/MM/YYYY", ""},         {{1999, 12, 31}, "YY-MM", "99-12"},
    };
    for (const Caso& caso : casos)
    {
        EXPECT_EQ(caso.texto, de(Formato(caso.fecha, QString::fromLatin1(caso.patron))));
    }
    EXPECT_EQ("0905", de(Formato(QTime(9, 5, 59), u"HHMM")));
    EXPECT_EQ("09:05", de(Formato(QTime(9, 5, 59), u"HH:MM")));
    EXPECT_EQ("09:05:59", de(Formato(QTime(9, 5, 59), u"hh:mm:ss")));
    EXPECT_EQ("", de(Formato(QTime(), u"HH:MM")));
}

TEST(Formato, LeerNumero)
{
    struct Caso
    {
        const char* texto;
        std::optional<float> vale;
    };
    const Caso casos[] = {
        {"12,5", 12.5F},
        {"1.234,5", 1234.5F},
        {"1.234", 1234.0F},
        {" 7 ", 7.0F},
        {"-0,25", -0.25F},
        {"0,1", 0.1F},
        {"16777217", 16777216.0F},
        {"0,000000000000000000000000000000000000000000000000001", 0.0F},
        {"1,2,3", {}},
        {"1.5", {}},
        {"1.2345,6", {}},
        {"", {}},
        {"abc", {}},
        {"1 2", {}},
        {"1E5", {}},
        {"-", {}},
        {"1,234.5", {}},
        {"9999999999999999999999999999999999999999", {}},
    };
    for (const Caso& caso : casos)
    {
        SCOPED_TRACE(caso.texto);
        EXPECT_EQ(caso.vale, LeerNumero(QString::fromLatin1(caso.texto)));
    }
}

TEST(Formato, LeerImporteDeArchivo)
{
    struct Caso
    {
        const char* texto;
        float vale;
        int error = 0;
    };
    const Caso casos[] = {
        {"1234.50", 1234.5F},
        {"1234,50", 1234.5F},
        {"0001234.5", 1234.5F},
        {"-3,5", -3.5F},
        {" 12 ", 12.0F},
        {"1.234,50", 0, 13},
        {"1,234.50", 0, 13},
        {"1.2.3", 0, 13},
        {"", 0, 13},
        {"1 2", 0, 13},
        {"x", 0, 13},
        {".", 0, 13},
        {"1.234", 1.234F},
        {"9999999999999999999999999999999999999999", 0, 6},
    };
    for (const Caso& caso : casos)
    {
        SCOPED_TRACE(caso.texto);
        int error = 0;
        float leido = 0;
        try
        {
            leido = LeerImporteDeArchivo(QString::fromLatin1(caso.texto));
        }
        catch (const ErrorDeEjecucion& e)
        {
            error = e.numero();
        }
        EXPECT_EQ(caso.error, error);
        EXPECT_EQ(caso.vale, leido);
    }
}

TEST(Formato, TextoSimple)
{
    struct Caso
    {
        float valor;
        const char* texto;
    };
    const Caso casos[] = {
        {0.0F, "0"},
        {-0.0F, "0"},
        {12.5F, "12,5"},
        {-1234.5F, "-1234,5"},
        {0.1F, "0,1"},
        {1.0F / 3, "0,3333333"},
        {2.0F / 3, "0,6666667"},
        {100.0F / 3, "33,33333"},
        {1234.56F, "1234,56"},
        {99999.99F, "99999,99"},
        {123456.78F, "123456,8"},
        {1234567.8F, "1234568"},
        {1234566.5F, "1234567"}, // a true half, away from zero
        {9999999.0F, "9999999"},
        {1000.0F, "1000"},
        {1000000.0F, "1000000"},
        {10000000.0F, "1E+07"},
        {12345678.0F, "1,234568E+07"},
        {16777216.0F, "1,677722E+07"},
        {1e10F, "1E+10"},
        {std::numeric_limits<float>::max(), "3,402823E+38"},
        {0.01F, "0,01"},
        {0.0001F, "0,0001"},
        {0.00001F, "0,00001"},
        {0.0123456F, "0,0123456"},
        {0.01234567F, "1,234567E-02"},
        {1e-10F, "1E-10"},
        {std::numeric_limits<float>::denorm_min(), "1,401298E-45"},
        {0.99999999F, "1"},
        {999999.94F, "999999,9"},
        {9.9999998F, "10"},
    };
    for (const Caso& caso : casos)
    {
        EXPECT_EQ(caso.texto, de(TextoSimple(caso.valor)));
    }
    EXPECT_THROW(static_cast<void>(TextoSimple(std::nanf(""))), ErrorDeEjecucion);
}

TEST(Formato, Redondear2LlevaLasMitadesAlPar)
{
    struct Caso
    {
        float valor;
        float vale;
    };
    const Caso casos[] = {
        {0.125F, 0.12F},   {0.375F, 0.38F}, {0.625F, 0.62F},          {-0.125F, -0.12F},
        {1.005F, 1.0F},    {2.675F, 2.67F}, // 2.67499995
        {23.456F, 23.46F}, {0.0F, 0.0F},    {1234567.0F, 1234567.0F}, {16777217.0F, 16777216.0F},
    };
    for (const Caso& caso : casos)
    {
        SCOPED_TRACE(caso.valor);
        EXPECT_EQ(caso.vale, Redondear2(caso.valor));
    }
}

TEST(Formato, LeerFechaYPeriodo)
{
    struct Caso
    {
        const char* texto;
        std::optional<QDate> vale;
    };
    const Caso fechas[] = {
        {"01/02/2003", QDate(2003, 2, 1)},
        {"29/02/2004", QDate(2004, 2, 29)},
        {"1/2/2003", QDate(2003, 2, 1)},
        {"31/12/0100", QDate(100, 12, 31)},
        {" 01/02/2003 ", QDate(2003, 2, 1)},
        {"31/02/2005", {}},
        {"13/13/2005", {}},
        {"12/31/2005", {}},
        {"29/02/2005", {}},
        {"01/02/03", {}},
        {"00/01/2005", {}},
        {"01/01/0099", {}},
        {"__/__/____", {}},
        {"01-02-2003", {}},
        {"01/02/2003x", {}},
        {"001/02/2003", {}},
        {"", {}},
        {"01/02", {}},
        {"01/02/20033", {}},
    };
    for (const Caso& caso : fechas)
    {
        SCOPED_TRACE(caso.texto);
        EXPECT_EQ(caso.vale, LeerFecha(QString::fromLatin1(caso.texto)));
    }
    const Caso periodos[] = {
        {"2009/05", QDate(2009, 5, 1)},
        {"2009/5", QDate(2009, 5, 1)},
        {"2009/13", {}},
        {"2009/00", {}},
        {"09/05", {}},
        {"2009-05", {}},
        {"2009/05/01", {}},
        {"", {}},
    };
    for (const Caso& caso : periodos)
    {
        SCOPED_TRACE(caso.texto);
        EXPECT_EQ(caso.vale, LeerPeriodo(QString::fromLatin1(caso.texto)));
    }
    EXPECT_EQ(2000, AnioCompleto(0));
    EXPECT_EQ(2029, AnioCompleto(29));
    EXPECT_EQ(1930, AnioCompleto(30));
    EXPECT_EQ(1999, AnioCompleto(99));
}

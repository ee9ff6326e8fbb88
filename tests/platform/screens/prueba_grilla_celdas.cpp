#include "platform/screens/grilla_celdas.h"

#include <gtest/gtest.h>

namespace
{
using C = ColumnaDeGrilla;

struct Caso
{
    C columna;
    const char* escrito;
    const char* mostrado; ///< as the cell shows it; nullptr: refused
};

C columna(C::Clase clase, qint64 maximo = 0, qint64 minimo = 0)
{
    C c;
    c.clase = clase;
    c.maximo = maximo;
    c.minimo = minimo;
    return c;
}

TEST(CeldasDeGrilla, LeeLoEscrito)
{
    C lista = columna(C::Lista);
    lista.opciones = QStringList{QStringLiteral("Hijo"), QStringLiteral("Cónyuge")};
    const C sueldo = columna(C::Decimal, 9999999);
    const C fecha = columna(C::Fecha);
    const Caso casos[] = {
        {columna(C::Texto, 5), "D'Angelo", "D'Ang"},
        {columna(C::Texto), "  a ", "  a "},
        {columna(C::Entero, 99999999), "99999999", "99999999"},
        {columna(C::Entero, 99999999), "100000000", nullptr},
        {columna(C::Entero, 99999999), "99999999999999999999999", nullptr},
        {columna(C::Entero), "007", "7"},
        {columna(C::Entero), "-1", nullptr},
        {columna(C::Entero, 0, -10), "-10", "-10"},
        {columna(C::Entero, 0, -10), "-11", nullptr},
        {columna(C::Entero), "1,5", nullptr},
        {columna(C::Entero), "+5", nullptr},
        {columna(C::Entero), "", ""},
        {sueldo, "1234,5", "1.234,50"},
        {sueldo, "1.234,56", "1.234,56"},
        {sueldo, "0,005", "0,00"}, // halves to the even digit
        {sueldo, "0,015", "0,02"},
        {sueldo, "9999999,99", "9.999.999,99"},
        {sueldo, "9999999,994", "9.999.999,99"},
        {sueldo, "10000000", nullptr},
        {sueldo, "1,2,3", nullptr},
        {sueldo, ",", nullptr},
        {sueldo, "-1", nullptr},
        {sueldo, "99999999999999999999", nullptr},
        {sueldo, "", ""},
        {columna(C::Decimal, 0, -100), "-99,5", "-99,50"},
        {fecha, "05/03/1980", "05/03/1980"},
        {fecha, "05/03/29__", "05/03/2029"},
        {fecha, "05/03/30__", "05/03/1930"},
        {fecha, "5_/3_/1980", "05/03/1980"},
        {fecha, "03/25/1980", nullptr}, // never month first
        {fecha, "29/02/2023", nullptr},
        {fecha, "29/02/2024", "29/02/2024"},
        {fecha, "05/03/198_", nullptr},
        {fecha, "05/__/1980", nullptr},
        {fecha, "31/12/1899", nullptr},
        {fecha, "01/01/1900", "01/01/1900"},
        {fecha, "31/12/2100", "31/12/2100"},
        {fecha, "01/01/2101", nullptr},
        {fecha, "__/__/____", ""},
        {lista, "Cónyuge", "Cónyuge"},
        {lista, "Primo", nullptr},
        {lista, "", ""},
        {columna(C::Fija), "x", nullptr},
    };
    for (const Caso& caso : casos)
    {
        SCOPED_TRACE(caso.escrito);
        const LecturaDeCelda leida = leerCelda(caso.columna, QString::fromUtf8(caso.escrito));
        EXPECT_EQ(leida.error.isEmpty(), caso.mostrado != nullptr) << leida.error.toStdString();
        EXPECT_EQ(textoDeCelda(caso.columna, leida.valor).toStdString(), caso.mostrado ? caso.mostrado : "");
    }
}

TEST(CeldasDeGrilla, DicePorQueNo)
{
    const std::pair<C, const char*> casos[] = {
        {columna(C::Entero, 99999999), "El valor máximo es 99.999.999."},
        {columna(C::Decimal, 9999999), "El valor máximo es 9.999.999,99."},
        {columna(C::Fecha), "La fecha ingresada no es válida (DD/MM/AAAA)."},
    };
    for (const auto& [col, mensaje] : casos)
    {
        EXPECT_EQ(leerCelda(col, QStringLiteral("100000000")).error, QString::fromUtf8(mensaje));
    }
}

TEST(CeldasDeGrilla, TomaLoQueElProgramaPone)
{
    const QVariant plata = QVariant::fromValue(Moneda::deDiezMilesimos(12345600));
    const struct
    {
        C columna;
        QVariant puesto;
        const char* mostrado;
    } casos[] = {
        {columna(C::Decimal), plata, "1.234,56"},
        {columna(C::Decimal), 12, "12,00"},
        {columna(C::Decimal), 0.5, "0,50"},
        {columna(C::Decimal), QStringLiteral("1.234,56"), "1.234,56"},
        {columna(C::Decimal), QStringLiteral("nada"), ""},
        {columna(C::Fija), plata, "1.234,56"},
        {columna(C::Fija), 7, "7"},
        {columna(C::Fija), QDate(2024, 3, 5), "05/03/2024"},
        {columna(C::Fija), QStringLiteral("2024/03"), "2024/03"},
        {columna(C::Entero), QStringLiteral("12"), "12"},
        {columna(C::Entero), QStringLiteral("x"), ""},
        {columna(C::Fecha), QStringLiteral("05/03/24"), "05/03/2024"},
        {columna(C::Fecha), QDate(1929, 3, 5), "05/03/1929"}, // by program, any year of the calendar
        {columna(C::Fecha), QDate(), ""},
        {columna(C::Texto), 5, "5"},
        {columna(C::Lista), QVariant(), ""},
    };
    for (const auto& caso : casos)
    {
        const QVariant valor = valorDeCelda(caso.columna, caso.puesto);
        EXPECT_EQ(textoDeCelda(caso.columna, valor).toStdString(), caso.mostrado);
        EXPECT_EQ(celdaVacia(valor), *caso.mostrado == '\0') << caso.mostrado;
    }
    EXPECT_FALSE(celdaVacia(valorDeCelda(columna(C::Entero), 0))) << "a zero is a number";
    EXPECT_EQ(textoParaEditar(columna(C::Decimal), plata), QStringLiteral("1234,56"));
}
} // namespace

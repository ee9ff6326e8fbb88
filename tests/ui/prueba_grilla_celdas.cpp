#include "ui/grid/grilla_celdas.h"

#include <gtest/gtest.h>

TEST(CeldasDeGrilla, LeeLoEscritoODicePorQueNo)
{
    using C = ColumnaDeGrilla;
    const C texto{.clase = C::Texto, .maximo = 5};
    const C entero{.clase = C::Entero};
    const C documento{.clase = C::Entero, .maximo = 99999999};
    const C sueldo{.clase = C::Decimal, .maximo = 9999999};
    const C importe{.clase = C::Decimal};
    const C fecha{.clase = C::Fecha};
    const C lista{.clase = C::Lista, .opciones = {"Hijo", "Cónyuge"}};
    const char* const noEntero = "!El valor ingresado no es un número entero.";
    const char* const noImporte = "!El valor ingresado no es un importe.";
    const char* const noFecha = "!La fecha ingresada no es válida (DD/MM/AAAA).";
    const char* const fueraDeEpoca = "!La fecha debe estar entre 01/01/1900 y 31/12/2100.";
    const std::tuple<C, const char*, const char*> casos[] = {
        {texto, "D'Angelo", "D'Ang"},
        {C{.clase = C::Texto}, "  a ", "  a "},
        {entero, "007", "7"},
        {entero, "-1", noEntero},
        {entero, "9223372036854775807", "9223372036854775807"},
        {entero, "9999999999999999999999999", noEntero},
        {entero, "", ""},
        {documento, "99999999", "99999999"},
        {documento, "100000000", "!El valor máximo es 99.999.999."},
        {documento, "9999999999999999999999999", "!El valor máximo es 99.999.999."},
        {sueldo, "1234,5", "1.234,50"},
        {sueldo, "1.234,56", "1.234,56"},
        {sueldo, "0,005", "0,00"}, // halves to the even digit
        {sueldo, "0,015", "0,02"},
        {sueldo, "9999999,994", "9.999.999,99"},
        {sueldo, "10000000", "!El valor máximo es 9.999.999,99."},
        {sueldo, "1,2,3", noImporte},
        {sueldo, "-1", noImporte},
        {sueldo, "9999999999999999999999999", noImporte},
        {importe, "922337203685477,58", "922.337.203.685.477,58"},
        {importe, "922337203685478", noImporte},
        {fecha, "05/03/29__", "05/03/2029"},
        {fecha, "05/03/30__", "05/03/1930"},
        {fecha, "5_/3_/1980", "05/03/1980"},
        {fecha, "03/25/1980", noFecha}, // never month first
        {fecha, "29/02/2023", noFecha},
        {fecha, "29/02/2024", "29/02/2024"},
        {fecha, "05/__/1980", noFecha},
        {fecha, "31/12/1899", fueraDeEpoca},
        {fecha, "01/01/1900", "01/01/1900"},
        {fecha, "31/12/2100", "31/12/2100"},
        {fecha, "01/01/2101", fueraDeEpoca},
        {fecha, "__/__/____", ""},
        {lista, "Cónyuge", "Cónyuge"},
        {lista, "Primo", "!Debe elegir un valor de la lista."},
        {C{}, "x", "!La celda no se puede modificar."},
    };
    for (const auto& [columna, escrito, queda] : casos)
    {
        const LecturaDeCelda leida = leerCelda(columna, escrito);
        const QString mostrado = leida.error.isEmpty() ? textoDeCelda(columna, leida.valor) : '!' + leida.error;
        EXPECT_EQ(queda, mostrado) << escrito;
        EXPECT_EQ(leida.error.isEmpty() && mostrado.isEmpty(), celdaVacia(leida.valor) && leida.error.isEmpty());
    }
    EXPECT_EQ("1234,56", textoParaEditar(sueldo, QVariant::fromValue(Moneda::deDiezMilesimos(12345600))));
    EXPECT_EQ("05/03/1829", textoDeCelda(C{}, QDate(1829, 3, 5))); // by program, any year
    EXPECT_FALSE(celdaVacia(qlonglong{0}));                        // a zero is a number
    EXPECT_TRUE(celdaVacia(QDate()));
}

// What a spreadsheet's cells become in a grid of amounts.
#include "grilla_de_prueba.h"
#include "ui/grid/grilla_celdas.h"
#include "ui/grid/pegado.h"

namespace
{
using C = ColumnaDeGrilla;

const DestinoDePegado tresPersonas{{{C::Fija, "C.U.I.L."},
                                    {C::Fija, "Nombre"},
                                    {C::Decimal, "Oculta", 0},
                                    {C::Decimal, "Sueldo", 100, 9999999},
                                    {C::Decimal, "Acuerdo", 100, 9999999}},
                                   1,
                                   {"20-00000001-1", "20-00000002-1", "20-00000003-1"},
                                   4,
                                   1};

/// "column,row=value" of each cell, what was refused, and "!" before what stopped all of it.
QString pegado(const char* texto, int columna = 4, int fila = 1)
{
    DestinoDePegado destino = tresPersonas;
    destino.columnaActual = columna;
    destino.filaActual = fila;
    const Pegado hecho = prepararPegado(QString(texto), destino);
    QStringList todo;
    for (const CeldaAPegar& celda : hecho.celdas)
    {
        todo += QString("%1,%2=%3").arg(celda.columna).arg(celda.fila).arg(textoDeCelda({C::Decimal}, celda.valor));
    }
    return (todo + hecho.rechazos).join(u'|') + (hecho.error.isEmpty() ? QString() : '!' + hecho.error);
}
} // namespace

TEST(PegadoEnGrilla, DondeVaCadaImporte)
{
    const char* const sinCelda = "!Elija la celda en que va el primer importe.";
    const char* const noSeLee = "!En lo copiado hay una columna que no se lee como importes.  Copie sólo los importes, "
                                "con el C.U.I.L. delante o sin él.";
    const char* const sinImportes = "!Lo copiado no tiene importes.";
    const std::tuple<const char*, int, int, const char*> casos[] = {
        {"100\n\n300\n", 5, 1, "5,1=100,00|5,3=300,00"}, // an empty cell leaves what is there
        {"1\n2\n3", 4, 2, "4,2=1,00|4,3=2,00|Renglón 3: «3».  No hay más filas en la grilla."},
        {"Acuerdo\n7", 5, 2, "5,2=7,00"},
        {"s/d\n7", 5, 2,
         "!La primera fila, «s/d», no es de importes ni nombra las columnas de la grilla.  No se sabe en qué fila va "
         "el primer importe: cópielos sin ella."},
        {"Acuerdo\n1", 4, 1, "!El encabezado dice «Acuerdo», y la celda elegida es de «Sueldo»."},
        {"1", 1, 1, sinCelda},
        {"1", 0, 0, sinCelda},
        {"1\t2\n\t3", 5, 2, "4,2=1,00|5,2=2,00|5,3=3,00"},
        {"x1\n2", 4, 1, "4,2=2,00|20-00000001-1: «x1».  El valor ingresado no es un importe."}, // nothing moves up
        {"1\t2\t3", 4, 1,
         "!Lo copiado tiene 3 columnas.  Se pega una columna de importes, o las de todos los importes, con el C.U.I.L. "
         "delante o sin él."},
        {"20-00000003-1\t7\n\n20000000011\t8", 5, 2, "5,3=7,00|5,1=8,00"},
        {"20000000011\t8", 1, 1, "!Elija una celda de la columna en que van los importes."},
        {"CUIL\tACUERDO\n20000000011\t8", 4, 1, "5,1=8,00"},
        {"CUIL\tAcuerdo\tSueldo\n20000000011\t8\t9", 4, 1, "5,1=8,00|4,1=9,00"},
        {"CUIL\tBásico\tPremio\n20000000011\t8\t9", 4, 1, "4,1=8,00|5,1=9,00"},
        {"20000000011\t1\n20-00000001-1\t2\n20000000021\t3", 4, 1,
         "4,2=3,00|Renglón 1: «20000000011».  El C.U.I.L. está repetido.|"
         "Renglón 2: «20-00000001-1».  El C.U.I.L. está repetido."},
        {"20000000091\t1\n2000000001\t2\n20000000021\t", 4, 1,
         "Renglón 1: «20000000091».  El C.U.I.L. no está en la grilla.|Renglón 2: «2000000001».  No es un C.U.I.L."},
        {"CUIL\tLegajo\tSueldo\n20000000011\t15\t8", 4, 1,
         "!El encabezado «CUIL Legajo Sueldo» no nombra todas las columnas de importes.  Copie sólo el C.U.I.L. y los "
         "importes."},
        {"20000000011\tAna\t8", 4, 1, noSeLee},
        {"2,01E+10\t8\n2,02E+10\t9", 4, 1, noSeLee},
        {"7\t\n8\t", 5, 1, "5,1=7,00|5,2=8,00"}, // an empty column copied along
        {"20000000011", 4, 1, sinImportes},
        {"C.U.I.L.\tNombre\tSueldo\tAcuerdo\n20-00000002-1\tAna 20\t5,00\t6,00", 1, 1, "4,2=5,00|5,2=6,00"},
        {"\n\n", 4, 1, sinImportes},
        {"", 4, 1, sinImportes},
    };
    for (const auto& [texto, columna, fila, queda] : casos)
    {
        EXPECT_EQ(queda, pegado(texto, columna, fila)) << texto;
    }
}

TEST(PegadoEnGrilla, CadaImporteEsUnoSoloONinguno)
{
    const std::pair<const char*, const char*> casos[] = {
        {"1234|1.234|$ 1.234,50|1.234.567|9999999,99", "1.234,00|1.234,00|1.234,50|1.234.567,00|9.999.999,99"},
        {"1,234|1234.5|1,234.50|1,234,567|1234.5000", "1.234,00|1.234,50|1.234,50|1.234.567,00|1.234,50"},
        {"1,234|45,000|1234,567|5,|-5|1 234,5|#N/A|$|1.2.3,4|10000000", ""}, // with nothing that tells of dots
        {"1.234|0.125|1,23,456|1,2,3", ""},
        {"1,5|2.5|1.234|1,234", "1,50|2,50"}, // of both kinds
    };
    for (const auto& [importes, quedan] : casos)
    {
        const QStringList filas = QString(importes).split('|');
        DestinoDePegado destino = tresPersonas;
        destino.claves = QStringList(filas.size(), "20-00000001-1");
        const Pegado hecho = prepararPegado(filas.join('\n'), destino);
        QStringList todo;
        for (const CeldaAPegar& celda : hecho.celdas)
        {
            todo += textoDeCelda({C::Decimal}, celda.valor);
        }
        EXPECT_EQ(quedan, todo.join('|')) << importes << ": " << hecho.rechazos.join('\n').toStdString();
        EXPECT_EQ(filas.size(), todo.size() + hecho.rechazados);
    }
}

TEST(PegadoEnGrilla, UnPortapapelesHostil)
{
    const Pegado mucho = prepararPegado(QString("1\n").repeated(1'000'000), tresPersonas);
    EXPECT_EQ(3U, mucho.celdas.size());
    EXPECT_EQ("Se pegaron 3 importes.\n\nNo se tomaron 999997:\nRenglón 4: «1».  No hay más filas en la grilla.",
              textoDePegado(mucho).section('\n', 0, 3));
    EXPECT_TRUE(textoDePegado(mucho).endsWith("\nRenglón 13: «1».  No hay más filas en la grilla.\n..."));
    EXPECT_EQ("Lo copiado es demasiado grande para esta grilla.",
              textoDePegado(prepararPegado(QString(10'000'000, u'1'), tresPersonas)));
    EXPECT_EQ("Se pegó 1 importe.\nLa primera fila, «CUIL Básico», se tomó como encabezado.",
              textoDePegado(prepararPegado("CUIL\tBásico\n20000000011\t1", tresPersonas)));
}

TEST_F(PruebaGrilla, PegaComoSiSeTecleara)
{
    g.setPegable(Nombre);
    // The amounts after the gestures, with a star when the grid is changed.
    const auto quedan = [this](const char* caja, const char* texto, const char* gestos)
    {
        QGuiApplication::clipboard()->setText(texto);
        const Caja clase = QString(caja).contains("No") ? Caja::Exclamacion : Caja::Informacion;
        *caja != '\0' ? static_cast<void>(cajas.espera(clase, caja)) : void();
        tras(gestos);
        return g.texto(Sueldo, 1) + '|' + g.texto(Sueldo, 2) + '|' + g.texto(Sueldo, 3) + (g.cambiada() ? "*" : "");
    };
    tras("5,1");
    EXPECT_EQ("11,00||33,00*", quedan("Se pegaron 2 importes.", "11\n\n33", "Ctrl+V"));
    EXPECT_EQ("editada 5,1; editada 5,3", eventos.join("; "));
    EXPECT_EQ("1.000,00||", quedan("", "", "Ctrl+Z"));
    EXPECT_EQ("1.000,00||", quedan("No se pegó ningún importe.\n\nNo se tomó 1:\nAna: «1,234».  Tiene más de dos "
                                   "decimales.",
                                   "1,234", "Ctrl+V"));
    EXPECT_EQ("1.000,00|22,00|*",
              quedan("Se pegaron 3 importes.", "1\n2\n3", "Ctrl+V Down '22 Return Ctrl+Z")); // typed since
    tras("5,1");
    EXPECT_EQ("5,00|22,00|*", quedan("Se pegó 1 importe.", "5", "Ctrl+V"));
    g.setCambiada(false); // saved
    EXPECT_EQ("5,00|22,00|", quedan("", "", "Ctrl+Z"));
    for (const char* texto : {"$ 1.500,00\r\n", "10\n20", "-5"}) // into an open cell; the last two do not go in
    {
        EXPECT_EQ("5,00|1.500,00|*", quedan("", texto, "5,2 F2 Ctrl+V Return"));
    }
}

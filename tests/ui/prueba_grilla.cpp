// The grid of every screen: its rows, what keys and mouse do to them, and its events in their order.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/hojas.h"
#include "apoyo/rutas.h"
#include "grilla_de_prueba.h"
#include "ui/shell/validacion.h"

#include <QDir>

TEST_F(PruebaGrilla, FilasCeldasYFilaActualPorPrograma)
{
    g.setFilas(5);
    EXPECT_EQ("1.000,00", g.texto(Sueldo, 1)); // growing keeps the rows
    EXPECT_EQ("Apellido", g.texto(Apellido, 0) + g.texto(Apellido, 9));
    EXPECT_EQ(0, g.filaActual());
    g.setValor(8, 3, qlonglong{45});
    g.setFilaActual(4, 8); // never on a hidden column
    EXPECT_EQ("5 filas, en 1,4", filas());
    g.borrarFila(2);
    EXPECT_EQ("4 filas, en 1,3", filas()); // the same row, one place up
    EXPECT_EQ(45, g.entero(8, 2));
    g.borrarFila(3);
    EXPECT_EQ("3 filas, en 1,3", filas()); // the row that took its place
    g.setFilas(2);
    EXPECT_EQ(0, g.filaActual());
    g.setFilaActual(2);
    g.cargar({{"a"}, {"b"}});
    EXPECT_EQ(0, g.filaActual());
    EXPECT_TRUE(g.celdaVacia(Sueldo, 1));
    EXPECT_EQ("", eventos.join(u';') + (g.cambiada() ? "cambiada" : ""));
}

TEST_F(PruebaGrilla, LaFilaAmarilla)
{
    g.pintarFila(2, Grilla::amarillo);
    g.borrarFila(1);
    EXPECT_EQ("Ab", colores()); // a colour goes with its row
    g.setFilas(3);
    g.pintarTodo(Grilla::amarillo);
    g.pintarFila(2, Grilla::blanco);
    g.setFilas(4);
    EXPECT_EQ("AbAb", colores()); // a new row is white
    llenar();
    g.setPintaActual(true);
    EXPECT_EQ("bbb", colores());
    tras("1,2 Down @boton");
    EXPECT_EQ("bbA", colores());
}

TEST_F(PruebaGrilla, LoQueSeEscribeEnUnaCelda)
{
    EXPECT_EQ("1234; editada 3,1; dejar 3,1 4,1", en(Documento, "'12a3-4 Return"));   // replaces what was there
    EXPECT_EQ("2.500,75; editada 5,1; dejar 5,1 6,1", en(Sueldo, "'2500.75 Return")); // the dot key is the comma
    EXPECT_EQ("1.000,00; editada 5,1; dejar 5,1 6,1", en(Sueldo, "'1000 Return"));    // the value it had: a change, too
    EXPECT_EQ("05/03/1981; editada 6,1; dejar 6,1 7,1", en(Nacio, "'05031981 Return"));
    EXPECT_EQ("Conyuge; editada 2,1; dejar 2,1 3,1", en(Parentesco, "'cony Return")); // by its first letters
    EXPECT_EQ("; editada 3,1; dejar 3,1 4,1", en(Documento, "F2 Del Return"));        // Delete is the text's own key
    EXPECT_EQ("; editada 6,1; dejar 6,1 7,1", en(Nacio, "F2 Del Return"));
    // What stores, and where it leads.
    EXPECT_EQ("77; editada 3,1; dejar 3,1 4,1", en(Documento, "'77 Tab"));
    EXPECT_EQ("77; editada 4,1; dejar 4,1 3,1", en(Apellido, "'77 Backtab"));
    EXPECT_EQ("77; editada 3,1; dejar 3,1 3,2", en(Documento, "'77 Down"));
    EXPECT_EQ("77; editada 3,1", en(Documento, "'77 Up"));
    EXPECT_EQ("9,00; editada 5,1; dejar 5,1 4,3; clic 4,3", en(Sueldo, "'9 4,3"));
    EXPECT_EQ("; dejar 7,1 2,2", en(Afiliado, "Return")); // past the fixed column
    EXPECT_EQ("; dejar 7,1 7,3; editada 7,3; clic 7,3; dejar 7,3 -1,-1", en(Afiliado, "7,3 Return")); // leads out
    // What changes nothing.
    EXPECT_EQ("1.000,00", en(Sueldo, "'9 Esc"));
    EXPECT_EQ("1.000,00; dejar 5,1 6,1", en(Sueldo, "F2 'x- Return")); // keys of other columns leave the marked text
    EXPECT_EQ("Hijo; dejar 2,1 1,1; clic 1,1", en(Parentesco, "'z 1,1"));
    EXPECT_EQ("Ana", en(Nombre, "'x F2"));
    tras("5,1 F2");
    EXPECT_EQ("1000,00", editor()->text()); // no dots to edit around
    tras("'8");
    EXPECT_TRUE(g.confirmarEdicion());
    EXPECT_EQ("8,00", g.texto(Sueldo, 1));
    g.setEditable(false);
    EXPECT_EQ("Sosa; dejar 4,1 7,1; clic 7,1; dejar 7,1 4,1; clic 4,1", en(Apellido, "7,1 4,1 'x"));
}

TEST_F(PruebaGrilla, HayCeldaDondeEscribirDesdeQueSeEntra)
{
    g.cargar({{}, {}, {}});
    tras("Tab 'hi Return 1,1 'z Down 'con Return 3,1 'x F2 'y Esc"); // a fixed column takes nothing, nor is walked down
    EXPECT_EQ("Hijo", g.texto(Parentesco, 1));
    EXPECT_EQ("Concubino", g.texto(Parentesco, 2));
    EXPECT_EQ("La columna «Nombre» no se modifica|En la columna «Documento» no entra «x»|"
              "En la columna «Documento» no entra «y»",
              dichos.join('|'));
}

TEST_F(PruebaGrilla, UnTextoRechazadoDejaElEditor)
{
    for (const char* salida : {"Return", "Tab", "Down", "4,3", "@boton", "Alt+G", ""})
    {
        SCOPED_TRACE(salida);
        cajas.espera(Caja::Informacion, "El valor máximo es 9.999.999,99.");
        tras("5,1 '99999999");
        EXPECT_EQ("", tras(salida));
        EXPECT_TRUE(*salida != '\0' || !g.confirmarEdicion()); // the last one by program
        ASSERT_TRUE(g.editando() && editor() != nullptr);
        EXPECT_TRUE(editor()->hasSelectedText());
        tras("Esc");
        EXPECT_EQ("1.000,00", g.texto(Sueldo, 1));
    }
    EXPECT_FALSE(g.cambiada());
}

TEST_F(PruebaGrilla, LosBotonesActuanSobreLoGuardado)
{
    for (const Qt::FocusPolicy politica : {Qt::StrongFocus, Qt::NoFocus})
    {
        boton->setFocusPolicy(politica);
        EXPECT_TRUE(tras("5,2 '50 @boton").endsWith("boton: 50,00"));
        EXPECT_FALSE(g.editando());
        tras("5,2 '60 Alt+G");
        EXPECT_TRUE(QTest::qWaitFor([&] { return eventos.back() == "boton: 60,00"; }, deSobra));
    }
}

TEST_F(PruebaGrilla, LaListaYLaTilde)
{
    tras("2,2 'h Return 2,2 'h Up Up Return"); // the arrows stay in the list
    EXPECT_EQ("Concubino", g.texto(Parentesco, 2));
    g.setValor(Parentesco, 1, "Tutor"); // of another time
    for (const bool elige : {false, true})
    {
        g.setCambiada(false);
        tras("2,1 F2");
        ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }, deSobra));
        QAbstractItemView* lista = g.findChild<QComboBox*>()->view();
        QTest::keyClick(lista, elige ? Qt::Key_Down : Qt::Key_Escape);
        elige ? QTest::keyClick(lista, Qt::Key_Return) : void();
        ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() == nullptr; }, deSobra));
        Entrada::activar(ventana); // without a window manager nobody does it after a popup
        EXPECT_EQ(elige, QTest::qWaitFor([this] { return !g.editando(); }, elige ? deSobra : 0)); // stored at once
        tras("Return");
        EXPECT_EQ(elige, g.texto(Parentesco, 1) != "Tutor");
        EXPECT_EQ(elige, g.cambiada());
    }
    EXPECT_TRUE(tras("7,1 Space 7,1").endsWith("editada 7,1; clic 7,1; editada 7,1; editada 7,1; clic 7,1"));
    EXPECT_FALSE(g.tilde(Afiliado, 1));
}

TEST_F(PruebaGrilla, TeclasDeFila)
{
    g.setTeclasDeFila([this] { return !g.celdaVacia(Documento, g.filas()); }, [](int fila) { return fila != 2; });
    // What happens to rows and cursor, the document of the last row, and whether it is a change.
    const auto quedan = [this](const char* gestos)
    {
        g.setCambiada(false);
        tras(gestos);
        return filas() + ": " + g.texto(Documento, g.filas()) + (g.cambiada() ? "*" : "");
    };
    EXPECT_EQ("3 filas, en 3,3: ", quedan("3,3 Down Ins"));    // the screen did not want one
    EXPECT_EQ("4 filas, en 2,4: *", quedan("'12 Down"));       // stored before the screen was asked
    EXPECT_EQ("4 filas, en 3,3: 7*", quedan("3,4 '7 Up Ins")); // on the last row only
    EXPECT_EQ("4 filas, en 1,2: 7", quedan("1,2 Del"));        // refused by the screen
    EXPECT_EQ("3 filas, en 1,3: 7*", quedan("1,3 Del"));
    EXPECT_EQ("1 filas, en 1,1: *", quedan("1,3 Del 1,1 Del Del")); // one row always stays
    EXPECT_TRUE(g.celdaVacia(Sueldo, 1));
}

TEST_F(PruebaGrilla, LosEventosEnSuOrden)
{
    g.setEditable(false);
    EXPECT_EQ("", tras("Tab"));                        // entering chooses nothing
    EXPECT_EQ("dejar 1,1 1,2; clic 1,2", tras("1,2")); // with none, the first cell is left
    EXPECT_EQ("clic 1,2", tras("1,2"));                // the same row again
    EXPECT_EQ("dejar 1,2 3,3; clic 3,3", tras("3,3"));
    EXPECT_EQ("clic 3,0", tras("@cabeza3")); // the header is row 0
    EXPECT_EQ("dejar 3,3 3,2", tras("Up"));
    EXPECT_EQ("dejar 3,2 1,2; clic 1,2; doble 1,2", tras("@dobleEn1,2"));
    EXPECT_EQ("", tras("@debajo"));                          // below the rows
    EXPECT_EQ("dejar 1,2 1,1; clic 1,1", tras("@arrastra")); // does not run through the rows
    EXPECT_EQ("dejar 1,1 -1,-1; boton: ", tras("@boton"));   // to another control of the window
    // Another window is no leaving, and closes no editor.
    g.setEditable(true);
    tras("4,1 'Gi");
    {
        QDialog otra(&ventana);
        Entrada::activar(otra);
        EXPECT_TRUE(g.editando());
    }
    Entrada::activar(ventana);
    EXPECT_EQ("editada 4,1; dejar 4,1 5,1", tras("'l Return"));
    EXPECT_EQ("Gil", g.texto(Apellido, 1));
    // Enter on a row of a grid that is not edited; with nobody to listen it is Tab.
    g.setEditable(false);
    tras("Return");
    EXPECT_TRUE(boton->hasFocus());
    QObject::connect(&g, &Grilla::entrar, &ventana,
                     [this](int c, int f) { eventos += QString("%1,%2").arg(c).arg(f); });
    EXPECT_TRUE(tras("1,3 Num+Enter").endsWith("; 1,3"));
}

TEST_F(PruebaGrilla, ElManejadorPuedeRecargarlaOCerrarLaPantalla)
{
    g.setEditable(false);
    auto conexion = QObject::connect(&g, &Grilla::dejarCelda, &ventana, [this] { g.cargar({{"2025/01"}}); });
    EXPECT_EQ("dejar 1,1 1,3", tras("1,3")); // the row clicked is gone: no click on it
    EXPECT_EQ(0, g.filaActual());
    QObject::disconnect(conexion);
    for (const char* escrito : {"5", "100000000"}) // with an editor open: no event, no box, nothing stored
    {
        Grilla otra(&ventana);
        otra.setColumnas({{C::Entero, "Documento", 100, 99999999}});
        otra.setEditable(true);
        otra.setFilas(1);
        otra.setFilaActual(1);
        otra.show();
        otra.setFocus();
        Entrada::escribir(escrito);
        ASSERT_TRUE(otra.editando());
    }
    const QPointer<Grilla> viva = &g;
    QObject::connect(&g, &Grilla::dejarCelda, &ventana, [this] { delete &g; });
    tras("1,1");
    EXPECT_TRUE(viva.isNull());
}

TEST_F(PruebaGrilla, SeCopiaYSeExportaLoQueSeVe)
{
    g.setValor(8, 1, qlonglong{99}); // hidden
    tras("5,1 Ctrl+C");
    EXPECT_EQ("Nombre\tFamiliar\tDocumento\tApellido\tSueldo\tFecha Nac.\tAfiliado\n"
              "Ana\tHijo\t12\tSosa\t1000,00\t05/03/1980\tSí\n\t\t\t\t\t\tNo\n\t\t\t\t\t\tNo\n",
              QGuiApplication::clipboard()->text());
    tras("F2 Ctrl+A Ctrl+C Esc"); // a cell's own
    EXPECT_EQ("1000,00", QGuiApplication::clipboard()->text());
    const QTemporaryDir carpeta;
    const QString archivo = carpeta.filePath("planilla.csv");
    cajas.archivo(archivo);
    g.setFilas(1);
    g.actions()[1]->trigger();
    EXPECT_TRUE(leerArchivo(archivo).endsWith("Afiliado\r\nAna;Hijo;12;Sosa;1000,00;05/03/1980;Sí\r\n"));
    g.setFilas(0);
    tras("Ctrl+C");
    g.setEditable(false);
    g.setFilas(3);
    g.selectAll();
    g.cargar({{"Eva"}, {"Luz"}}); // none of the marked ones is there
    tras("Ctrl+C");
    EXPECT_EQ("Se copiaron 3 filas|Exportación de 1 fila en " + QDir::toNativeSeparators(archivo) +
                  "|No hay filas|Se copiaron 2 filas",
              dichos.join('|'));
}

TEST_F(PruebaGrilla, LaHojaDeExcelGuardaLoQueEsCadaCelda)
{
    g.cargar({{"=1+1", {}, 12LL, "007", QVariant::fromValue(Moneda::deTexto("1000,50")), QDate(1980, 3, 5), false}});
    const QTemporaryDir carpeta;
    cajas.archivo(carpeta.filePath("Año"));
    g.actions()[1]->trigger();
    const QString hoja = hojas::correr(
        rutas::programaPython(),
        {"-c", "import sys, zipfile; print(zipfile.ZipFile(sys.argv[1]).read('xl/worksheets/sheet1.xml').decode())",
         carpeta.filePath("Año.xlsx")});
    for (const char* celda : {"Cell=\"A2\"", ">=1+1</t>", "<v>12</v>", ">007</t>", "<v>1000.5</v>", "<v>29285</v>"})
    {
        EXPECT_TRUE(hoja.contains(celda)) << celda << " in " << hoja.toStdString();
    }
}

TEST_F(PruebaGrilla, ElMenuNoDejaNingunCampo)
{
    const auto chequeos = std::make_shared<int>(0);
    Validacion::instancia().alDejar(&g, [chequeos] { return ++*chequeos > 0; });
    g.setPegable(Nombre);
    tras("5,1");
    for (const bool raton : {false, true})
    {
        raton ? Entrada::pulsar(*g.viewport(), centro(5, 3), Qt::RightButton) : Entrada::jugar("Shift+F10");
        const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu != nullptr && menu->actions().size() == 4);
        EXPECT_EQ("Deshacer pegado", menu->actions().constLast()->text());
        Entrada::jugar("Esc");
        Entrada::activar(ventana);
        EXPECT_EQ(raton ? 3 : 1, g.filaActual()); // it pastes where it was asked for
    }
    EXPECT_EQ(0, *chequeos);
    EXPECT_EQ(2, Grilla().actions().size());
}

TEST_F(PruebaGrilla, LaCabezaOrdena)
{
    g.setEditable(false);
    g.setOrdenable();
    const auto cargar = [this]
    {
        g.cargar({{"Ñandú", "1", 1000LL, "", QVariant::fromValue(Moneda::deEntero(9)), QDate(2020, 1, 31), true},
                  {"ana", "2", 200LL, "", QVariant::fromValue(Moneda::deEntero(10)), QDate(1999, 12, 1), false},
                  {"Álvarez", "3"}});
        g.setFilaActual(2, Sueldo);
    };
    const auto tocar = [this](int columna)
    {
        pulsarCabeza(columna);
        EXPECT_EQ("2", g.texto(2, g.filaActual())); // the same person
        return g.texto(2, 1) + g.texto(2, 2) + g.texto(2, 3);
    };
    cargar();
    const QStringList ordenes{tocar(Nombre), tocar(Nombre), tocar(Documento), tocar(Sueldo),
                              tocar(Nacio),  tocar(Nacio),  tocar(Afiliado)};
    EXPECT_EQ("321 123 321 312 321 123 321", ordenes.join(' ')); // Álvarez, ana, Ñandú; none, 200, 1000 ...
    cargar();
    EXPECT_EQ("1", g.texto(2, 1));
    EXPECT_EQ("321", tocar(Afiliado)); // begins anew
}

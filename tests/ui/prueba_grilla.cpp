// The grid of every screen: its rows, what keys and mouse do to them, and its events in their order.
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/entrada.h"
#include "ui/grid/grilla.h"

#include <QComboBox>
#include <QDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>

namespace
{
using C = ColumnaDeGrilla;
using Entrada::escribir;
using Entrada::tecla;

enum Columna
{
    Nombre = 1,
    Parentesco,
    Documento,
    Apellido,
    Sueldo,
    Nacio,
    Afiliado,
};

/// A window with a grid of all kinds of columns, editable, between a field and a button; its events are written down.
struct PruebaGrilla : testing::Test
{
    QWidget ventana;
    QLineEdit* antes = new QLineEdit(&ventana);
    Grilla& g = *new Grilla(&ventana);
    QPushButton* boton = new QPushButton("&Grabar", &ventana);
    CajasDePrueba cajas; ///< a box that no test expects fails it
    QStringList eventos;
    int pulsado = 0;

    PruebaGrilla()
    {
        auto* fila = new QHBoxLayout(&ventana);
        for (QWidget* control : std::initializer_list<QWidget*>{antes, &g, boton})
        {
            fila->addWidget(control);
        }
        ventana.resize(1000, 400);
        g.setColumnas({{C::Fija, "Nombre"},
                       {C::Lista, "Familiar", 100, 0, {"Concubino", "Conyuge", "Hijo"}},
                       {C::Entero, "Documento", 100, 99999999},
                       {C::Texto, "Apellido", 120, 10},
                       {C::Decimal, "Sueldo", 100, 9999999},
                       {C::Fecha, "Fecha Nac."},
                       {C::Tilde, "Afiliado"},
                       {C::Entero, {}, 0}});
        g.setEditable(true);
        g.setFilas(3);
        g.setValor(Sueldo, 1, QVariant::fromValue(Moneda::deDiezMilesimos(12345000)));
        const auto anotar = [this](const char* que, int c, int f)
        { eventos += QString("%1 %2,%3").arg(que).arg(c).arg(f); };
        QObject::connect(&g, &Grilla::clic, &ventana, [=](int c, int f) { anotar("clic", c, f); });
        QObject::connect(&g, &Grilla::dobleClic, &ventana, [=](int c, int f) { anotar("doble", c, f); });
        QObject::connect(&g, &Grilla::celdaEditada, &ventana, [=](int c, int f) { anotar("editada", c, f); });
        QObject::connect(&g, &Grilla::dejarCelda, &ventana,
                         [=, this](int c, int f, int nc, int nf)
                         {
                             anotar("dejar", c, f);
                             eventos.back() += QString(" %1,%2").arg(nc).arg(nf);
                         });
        QObject::connect(boton, &QPushButton::clicked, &ventana, [this] { ++pulsado; });
        Entrada::activar(ventana);
        antes->setFocus();
    }

    [[nodiscard]] QPoint centro(int columna, int fila) const
    {
        return g.visualRect(g.model()->index(fila - 1, columna - 1)).center();
    }
    void celda(int columna, int fila) { Entrada::pulsar(*g.viewport(), centro(columna, fila)); }
    void poner(int columna, int fila, const char* que)
    {
        celda(columna, fila);
        escribir(que);
        tecla(Qt::Key_Return);
    }
    [[nodiscard]] QString tomarEventos() { return std::exchange(eventos, {}).join("; "); }
    [[nodiscard]] static QLineEdit* editor() { return qobject_cast<QLineEdit*>(QApplication::focusWidget()); }
    /// The colours of the rows: "A" yellow, "b" white.
    [[nodiscard]] std::string colores() const
    {
        std::string texto;
        for (int fila = 1; fila <= g.filas(); ++fila)
        {
            texto += g.colorDeFila(fila) == Grilla::amarillo ? 'A' : 'b';
        }
        return texto;
    }
};
} // namespace

TEST_F(PruebaGrilla, FilasCeldasYFilaActualPorPrograma)
{
    g.setFilas(5);
    EXPECT_EQ("1.234,50", g.texto(Sueldo, 1)); // growing keeps the rows
    EXPECT_EQ("Apellido", g.texto(Apellido, 0));
    EXPECT_EQ("", g.texto(Apellido, 9));
    EXPECT_EQ(0, g.filaActual());
    g.setValor(8, 3, qlonglong{45});
    g.setFilaActual(4, 8);
    EXPECT_EQ(Nombre, g.columnaActual()); // never on a hidden column
    g.borrarFila(2);
    EXPECT_EQ(3, g.filaActual()); // the same row, one place up
    EXPECT_EQ(45, g.entero(8, 2));
    g.borrarFila(3);
    EXPECT_EQ(3, g.filaActual()); // the row that took its place
    g.setFilas(2);
    EXPECT_EQ(0, g.filaActual());
    g.setFilaActual(2);
    g.cargar({{"a"}, {"b"}});
    EXPECT_EQ(0, g.filaActual());
    EXPECT_TRUE(g.celdaVacia(Sueldo, 1));
    g.setFilas(0);
    EXPECT_EQ(0, g.filas());
    EXPECT_FALSE(g.cambiada());
    EXPECT_EQ("", tomarEventos());
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
    g.cargar({{"a"}, {"b"}, {"c"}});
    EXPECT_EQ("bbb", colores());

    g.setPintaActual(true);
    g.setTeclasDeFila([] { return true; }, [](int) { return true; });
    EXPECT_EQ("bbb", colores());
    g.setFilaActual(2);
    EXPECT_EQ("bAb", colores());
    celda(Nombre, 3);
    EXPECT_EQ("bbA", colores());
    tecla(Qt::Key_Down);
    EXPECT_EQ("bbbA", colores());
    tecla(Qt::Key_Delete);
    EXPECT_EQ("bbA", colores());
    Entrada::pulsar(*boton);
    EXPECT_EQ("bbA", colores());
}

TEST_F(PruebaGrilla, EscribirReemplazaYEsUnCambio)
{
    const std::tuple<Columna, const char*, const char*> casos[] = {
        {Documento, "12a3-4", "1234"},
        {Documento, "5", "5"},
        {Apellido, "Perez Garcia", "Perez Garc"},
        {Sueldo, "2500.75", "2.500,75"}, // the dot key is the comma
        {Sueldo, "2500,75", "2.500,75"}, // the value it had is a change, too
        {Nacio, "05031980", "05/03/1980"},
        {Nacio, "5/3/30", "05/03/1930"},
        {Parentesco, "cony", "Conyuge"}, // by its first letters
    };
    for (const auto& [columna, escrito, queda] : casos)
    {
        g.setCambiada(false);
        poner(columna, 2, escrito);
        EXPECT_EQ(queda, g.texto(columna, 2));
        EXPECT_TRUE(g.cambiada()) << escrito;
        EXPECT_TRUE(tomarEventos().endsWith(QString("editada %1,2; dejar %1,2 %2,2").arg(columna).arg(columna + 1)));
    }
    // Delete in an editor is the text's own key.
    for (const int columna : {Documento, Sueldo, Nacio, Apellido})
    {
        celda(columna, 2);
        tecla(Qt::Key_F2);
        tecla(Qt::Key_Delete);
        tecla(Qt::Key_Return);
        EXPECT_TRUE(g.celdaVacia(columna, 2)) << columna;
    }
}

TEST_F(PruebaGrilla, LoQueNoCambiaNada)
{
    celda(Sueldo, 1);
    escribir("9");
    tecla(Qt::Key_Escape);
    EXPECT_TRUE(g.hasFocus());
    tecla(Qt::Key_F2);
    EXPECT_EQ("1234,50", editor()->text()); // no dots to edit around
    escribir("x- ");                        // keys of other columns leave the marked text alone
    tecla(Qt::Key_Return);
    celda(Sueldo, 1);
    escribir("x-");
    tecla(Qt::Key_Delete);
    EXPECT_FALSE(g.editando());
    celda(Parentesco, 3);
    escribir("z");
    celda(Nombre, 1);
    EXPECT_TRUE(g.celdaVacia(Parentesco, 3));
    escribir("x"); // a fixed column
    tecla(Qt::Key_F2);
    EXPECT_FALSE(g.editando());
    g.setEditable(false);
    celda(Afiliado, 1);
    celda(Apellido, 1);
    escribir("x");
    EXPECT_EQ("1.234,50", g.texto(Sueldo, 1));
    EXPECT_FALSE(g.tilde(Afiliado, 1));
    EXPECT_FALSE(g.cambiada());
    EXPECT_FALSE(tomarEventos().contains("editada"));
}

TEST_F(PruebaGrilla, LasTeclasQueGuardanYADondeVan)
{
    const std::tuple<Qt::Key, int, int, int, int> casos[] = {
        {Qt::Key_Return, Documento, 1, Apellido, 1}, {Qt::Key_Enter, Apellido, 1, Sueldo, 1},
        {Qt::Key_Tab, Documento, 1, Apellido, 1},    {Qt::Key_Backtab, Apellido, 1, Documento, 1},
        {Qt::Key_Down, Documento, 1, Documento, 2},  {Qt::Key_Up, Documento, 1, Documento, 1},
    };
    for (const auto& [codigo, columna, fila, aColumna, aFila] : casos)
    {
        g.setValor(columna, fila, QVariant());
        celda(columna, fila);
        escribir("77");
        tecla(codigo);
        EXPECT_EQ("77", g.texto(columna, fila)) << codigo;
        EXPECT_FALSE(g.editando());
        EXPECT_EQ(QPoint(aColumna, aFila), QPoint(g.columnaActual(), g.filaActual())) << codigo;
        EXPECT_TRUE(g.hasFocus());
    }
    celda(Afiliado, 1);
    tecla(Qt::Key_Return);
    EXPECT_EQ(QPoint(Parentesco, 2), QPoint(g.columnaActual(), g.filaActual())); // past the fixed column
    celda(Afiliado, 3);
    tecla(Qt::Key_Return);
    EXPECT_TRUE(boton->hasFocus()); // after the last cell it leads out

    celda(Sueldo, 1);
    escribir("8");
    EXPECT_TRUE(g.confirmarEdicion());
    EXPECT_EQ("8,00", g.texto(Sueldo, 1));
    escribir("9");
    celda(Apellido, 3);
    EXPECT_EQ("9,00", g.texto(Sueldo, 1)); // a click elsewhere stores
}

TEST_F(PruebaGrilla, UnTextoRechazadoDejaElEditor)
{
    const std::pair<const char*, std::function<void()>> salidas[] = {
        {"Enter", [] { tecla(Qt::Key_Return); }},
        {"Tab", [] { tecla(Qt::Key_Tab); }},
        {"Down", [] { tecla(Qt::Key_Down); }},
        {"clic", [this] { celda(Apellido, 3); }},
        {"boton", [this] { Entrada::pulsar(*boton); }},
        {"atajo", [] { tecla(Qt::Key_G, Qt::AltModifier); }},
        {"codigo", [this] { EXPECT_FALSE(g.confirmarEdicion()); }},
    };
    for (const auto& [como, salir] : salidas)
    {
        SCOPED_TRACE(como);
        cajas.espera(Caja::Informacion, "El valor máximo es 9.999.999,99.");
        celda(Sueldo, 1);
        escribir("99999999");
        salir();
        ASSERT_TRUE(g.editando());
        ASSERT_NE(nullptr, editor());
        EXPECT_TRUE(editor()->hasSelectedText());
        tecla(Qt::Key_Escape);
        EXPECT_EQ("1.234,50", g.texto(Sueldo, 1));
    }
    EXPECT_EQ(0, pulsado);
    EXPECT_FALSE(g.cambiada());
}

TEST_F(PruebaGrilla, LosBotonesActuanSobreLoGuardado)
{
    QString visto;
    QObject::connect(boton, &QPushButton::clicked, &g, [&] { visto += g.texto(Sueldo, 2) + ' '; });
    for (const Qt::FocusPolicy politica : {Qt::StrongFocus, Qt::NoFocus})
    {
        boton->setFocusPolicy(politica);
        celda(Sueldo, 2);
        escribir("50");
        Entrada::pulsar(*boton);
        EXPECT_FALSE(g.editando());
        celda(Sueldo, 2);
        escribir("60");
        tecla(Qt::Key_G, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return pulsado % 2 == 0; }));
    }
    EXPECT_EQ("50,00 60,00 50,00 60,00 ", visto);
}

TEST_F(PruebaGrilla, LaListaYLaTilde)
{
    poner(Parentesco, 2, "h");
    celda(Parentesco, 2);
    escribir("h");
    tecla(Qt::Key_Up);
    tecla(Qt::Key_Up); // the arrows stay in the list
    tecla(Qt::Key_Return);
    EXPECT_EQ("Concubino", g.texto(Parentesco, 2));
    g.setValor(Parentesco, 1, "Tutor"); // of another time
    for (const bool elige : {false, true})
    {
        g.setCambiada(false);
        celda(Parentesco, 1);
        tecla(Qt::Key_F2);
        ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
        QAbstractItemView* lista = g.findChild<QComboBox*>()->view();
        QTest::keyClick(lista, elige ? Qt::Key_Down : Qt::Key_Escape);
        if (elige)
        {
            QTest::keyClick(lista, Qt::Key_Return);
        }
        ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() == nullptr; }));
        Entrada::activar(ventana); // without a window manager nobody does it after a popup
        EXPECT_EQ(elige, QTest::qWaitFor([this] { return !g.editando(); }, elige ? 5000 : 0)); // stored at once
        tecla(Qt::Key_Return);
        EXPECT_EQ(elige, g.texto(Parentesco, 1) != "Tutor");
        EXPECT_EQ(elige, g.cambiada());
    }
    g.setCambiada(false);
    (void)tomarEventos();
    celda(Afiliado, 1);
    EXPECT_TRUE(g.tilde(Afiliado, 1));
    EXPECT_TRUE(tomarEventos().endsWith("editada 7,1; clic 7,1"));
    tecla(Qt::Key_Space);
    EXPECT_FALSE(g.tilde(Afiliado, 1));
    EXPECT_TRUE(g.cambiada());
}

TEST_F(PruebaGrilla, TeclasDeFila)
{
    g.setTeclasDeFila([this] { return !g.celdaVacia(Documento, g.filas()); }, [](int fila) { return fila != 2; });
    celda(Documento, 3);
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Insert);
    EXPECT_EQ(3, g.filas()); // the screen did not want one
    escribir("12");
    tecla(Qt::Key_Down);
    EXPECT_EQ(4, g.filas()); // stored before the screen was asked
    EXPECT_EQ(QPoint(Parentesco, 4), QPoint(g.columnaActual(), g.filaActual()));
    g.setValor(Documento, 4, qlonglong{1});
    tecla(Qt::Key_Up);
    tecla(Qt::Key_Insert);
    EXPECT_EQ(4, g.filas()); // on the last row only
    g.setCambiada(false);
    g.setFilaActual(2);
    tecla(Qt::Key_Delete);
    EXPECT_FALSE(g.cambiada()); // refused by the screen
    g.setFilaActual(3);
    (void)tomarEventos();
    tecla(Qt::Key_Delete);
    EXPECT_TRUE(g.cambiada());
    EXPECT_EQ(3, g.filas());
    EXPECT_EQ("1", g.texto(Documento, 3));
    g.setFilas(1);
    g.setFilaActual(1);
    tecla(Qt::Key_Delete);
    EXPECT_EQ(1, g.filas()); // one row always stays
    EXPECT_EQ(1, g.filaActual());
    EXPECT_TRUE(g.celdaVacia(Sueldo, 1));
    EXPECT_EQ("", tomarEventos());
}

TEST_F(PruebaGrilla, LosEventosEnSuOrden)
{
    g.setEditable(false);
    const auto clicEnLaCabeza = [this]
    {
        QWidget* tira = g.horizontalHeader()->viewport();
        Entrada::pulsar(*tira, QPoint(g.columnViewportPosition(2) + 20, tira->height() / 2));
    };
    const auto arrastrar = [this]
    {
        QWidget* v = g.viewport();
        QTest::mousePress(ventana.windowHandle(), Qt::LeftButton, {}, v->mapTo(&ventana, centro(1, 1)));
        QMouseEvent mueve(QEvent::MouseMove, centro(1, 3), v->mapToGlobal(centro(1, 3)), Qt::NoButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(v, &mueve);
        QTest::mouseRelease(ventana.windowHandle(), Qt::LeftButton, {}, v->mapTo(&ventana, centro(1, 3)));
    };
    const std::pair<std::function<void()>, const char*> casos[] = {
        {[] { tecla(Qt::Key_Tab); }, ""},                     // entering chooses nothing
        {[this] { celda(1, 2); }, "dejar 1,1 1,2; clic 1,2"}, // with none, the first cell is left
        {[this] { celda(1, 2); }, "clic 1,2"},                // the same row again
        {[this] { celda(3, 3); }, "dejar 1,2 3,3; clic 3,3"}, //
        {clicEnLaCabeza, "clic 3,0"},                         // the header is row 0
        {[] { tecla(Qt::Key_Up); }, "dejar 3,3 3,2"},         //
        {[this] { Entrada::pulsarDosVeces(*g.viewport(), centro(1, 2)); }, "dejar 3,2 1,2; clic 1,2; doble 1,2"},
        {[this] {
             Entrada::pulsar(*g.viewport(), {40, g.viewport()->height() - 5});
         },
         ""},                                                     // below the rows
        {arrastrar, "dejar 1,2 1,1; clic 1,1"},                   // does not run through the rows
        {[this] { Entrada::pulsar(*boton); }, "dejar 1,1 -1,-1"}, // to another control of the window
        {[this] { antes->setFocus(); }, ""},                      // it was not in the grid any more
    };
    for (const auto& [hacer, esperados] : casos)
    {
        hacer();
        EXPECT_EQ(esperados, tomarEventos());
    }
    // Another window is no leaving, and closes no editor.
    g.setEditable(true);
    celda(Apellido, 1);
    escribir("Gi");
    (void)tomarEventos();
    {
        QDialog otra(&ventana);
        otra.show();
        otra.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&otra));
        EXPECT_TRUE(g.editando());
    }
    Entrada::activar(ventana);
    escribir("l");
    tecla(Qt::Key_Return);
    EXPECT_EQ("Gil", g.texto(Apellido, 1));
    EXPECT_EQ("editada 4,1; dejar 4,1 5,1", tomarEventos());
    // Enter on a row of a grid that is not edited; with nobody to listen it is Tab.
    g.setEditable(false);
    tecla(Qt::Key_Return);
    EXPECT_TRUE(boton->hasFocus());
    QString entradas;
    QObject::connect(&g, &Grilla::entrar, &ventana, [&](int c, int f) { entradas += QString("%1,%2").arg(c).arg(f); });
    celda(1, 3);
    tecla(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ("1,3", entradas);
}

TEST_F(PruebaGrilla, ElManejadorPuedeRecargarlaOCerrarLaPantalla)
{
    g.setEditable(false);
    auto conexion = QObject::connect(&g, &Grilla::dejarCelda, &ventana, [this] { g.cargar({{"2025/01"}}); });
    celda(1, 3);
    EXPECT_EQ("dejar 1,1 1,3", tomarEventos()); // the row clicked is gone: no click on it
    EXPECT_EQ(0, g.filaActual());
    QObject::disconnect(conexion);
    const QPointer<Grilla> viva = &g;
    for (const char* escrito : {"5", "100000000"}) // with an editor open: no event, no box, nothing stored
    {
        Grilla otra(&ventana);
        otra.setColumnas({{C::Entero, "Documento", 100, 99999999}});
        otra.setEditable(true);
        otra.setFilas(1);
        otra.setFilaActual(1);
        otra.show();
        otra.setFocus();
        escribir(escrito);
        ASSERT_TRUE(otra.editando());
    }
    QObject::connect(&g, &Grilla::dejarCelda, &ventana, [this] { delete &g; });
    celda(1, 1);
    EXPECT_TRUE(viva.isNull());
}

#include "mesa_de_grilla.h"

#include "apoyo/cajas_de_prueba.h"

#include <QComboBox>

namespace
{
using C = ColumnaDeGrilla;
enum Columna
{
    Nombre = 1,
    Parentesco,
    Documento,
    Apellido,
    Sueldo,
    Nacio,
    Afiliado
};

class EdicionDeGrilla : public testing::Test
{
protected:
    MesaDeGrilla m;
    Grilla& g = *m.grilla;

    void SetUp() override
    {
        C lista{C::Lista, QStringLiteral("Familiar")};
        lista.opciones = QStringList{QStringLiteral("Concubino"), QStringLiteral("Conyuge"), QStringLiteral("Hijo")};
        g.setColumnas({{C::Fija, QStringLiteral("Nombre")},
                       lista,
                       {C::Entero, QStringLiteral("Documento"), 100, 99999999},
                       {C::Texto, QStringLiteral("Apellido"), 120, 10},
                       {C::Decimal, QStringLiteral("Sueldo"), 100, 9999999},
                       {C::Fecha, QStringLiteral("Fecha Nac.")},
                       {C::Tilde, QStringLiteral("Afiliado")}});
        g.setEditable(true);
        g.setFilas(3);
        g.setValor(Sueldo, 1, QStringLiteral("1234,5"));
        m.mostrar();
    }
    [[nodiscard]] std::string texto(int columna, int fila = 1) const { return g.texto(columna, fila).toStdString(); }
    /// Writes into a cell and stores it with Enter.
    void poner(int columna, int fila, const QString& que)
    {
        m.celda(columna, fila);
        Entrada::escribir(que);
        Entrada::tecla(Qt::Key_Return);
    }
};

TEST_F(EdicionDeGrilla, EscribirReemplaza)
{
    const struct
    {
        Columna columna;
        const char* escrito;
        const char* mostrado;
    } casos[] = {
        {Documento, "12a3-4", "1234"}, // digits only
        {Documento, "5", "5"},         // replaces what stood there
        {Apellido, "Perez Garcia", "Perez Garc"},
        {Sueldo, "2500.75", "2.500,75"}, // the dot key is the comma
        {Sueldo, "12x,5", "12,50"},
        {Nacio, "05031980", "05/03/1980"},
        {Nacio, "050329", "05/03/2029"},
        {Nacio, "5/3/30", "05/03/1930"},
    };
    for (const auto& caso : casos)
    {
        SCOPED_TRACE(caso.escrito);
        g.setCambiada(false);
        m.tomarEventos();
        poner(caso.columna, 2, QString::fromLatin1(caso.escrito));
        EXPECT_FALSE(g.editando());
        EXPECT_EQ(texto(caso.columna, 2), caso.mostrado);
        EXPECT_TRUE(g.cambiada());
        EXPECT_TRUE(m.tomarEventos().contains(QStringLiteral("editada %1,2; dejar").arg(caso.columna)));
    }
    EXPECT_TRUE(g.filaCambiada(2));
    EXPECT_FALSE(g.filaCambiada(1));
    g.olvidarCambios();
    EXPECT_FALSE(g.filaCambiada(2));
}

TEST_F(EdicionDeGrilla, LasFijasNoSeEditan)
{
    m.doble(Nombre, 1);
    EXPECT_FALSE(g.editando());
    Entrada::escribir(QStringLiteral("x"));
    EXPECT_FALSE(g.editando());
    g.setEditable(false);
    m.doble(Apellido, 1);
    Entrada::escribir(QStringLiteral("x"));
    Entrada::tecla(Qt::Key_F2);
    EXPECT_FALSE(g.editando());
    EXPECT_FALSE(g.cambiada());
}

TEST_F(EdicionDeGrilla, F2YDobleClicAbrenLaCelda)
{
    m.celda(Sueldo, 1);
    Entrada::tecla(Qt::Key_F2);
    auto* linea = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(linea, nullptr);
    EXPECT_EQ(linea->text(), QStringLiteral("1234,50")) << "no dots to edit around";
    EXPECT_EQ(linea->accessibleName(), QStringLiteral("Sueldo"));
    Entrada::tecla(Qt::Key_Return);
    EXPECT_FALSE(g.cambiada()) << "nothing was typed";
    m.doble(Apellido, 1);
    EXPECT_TRUE(g.editando());
    Entrada::escribir(QStringLiteral("Gil"));
    m.celda(Apellido, 3);
    EXPECT_EQ(texto(Apellido), "Gil") << "a click elsewhere stores";
    EXPECT_EQ(g.filaActual(), 3);
    EXPECT_TRUE(g.cambiada());
}

TEST_F(EdicionDeGrilla, RetipearElMismoValorEsUnCambio)
{
    poner(Sueldo, 1, QStringLiteral("1234,5"));
    EXPECT_EQ(texto(Sueldo), "1.234,50");
    EXPECT_TRUE(g.cambiada());
}

TEST_F(EdicionDeGrilla, LasTeclasQueGuardan)
{
    const struct
    {
        Qt::Key tecla;
        int columna;
        int fila;
        int columnaDespues;
        int filaDespues;
    } casos[] = {
        {Qt::Key_Return, Documento, 1, Apellido, 1}, {Qt::Key_Enter, Apellido, 1, Sueldo, 1},
        {Qt::Key_Tab, Documento, 1, Apellido, 1},    {Qt::Key_Backtab, Apellido, 1, Documento, 1},
        {Qt::Key_Down, Documento, 1, Documento, 2},  {Qt::Key_Up, Documento, 3, Documento, 2},
        {Qt::Key_Up, Documento, 1, Documento, 1},
    };
    for (const auto& caso : casos)
    {
        SCOPED_TRACE(caso.tecla);
        g.setValor(caso.columna, caso.fila, QVariant());
        m.celda(caso.columna, caso.fila);
        Entrada::escribir(QStringLiteral("77"));
        Entrada::tecla(caso.tecla);
        EXPECT_EQ(texto(caso.columna, caso.fila), "77");
        EXPECT_FALSE(g.editando());
        EXPECT_EQ(g.columnaActual(), caso.columnaDespues);
        EXPECT_EQ(g.filaActual(), caso.filaDespues);
        EXPECT_TRUE(g.hasFocus());
    }
}

TEST_F(EdicionDeGrilla, EnterPasaALaFilaSiguiente)
{
    m.celda(Afiliado, 1);
    Entrada::tecla(Qt::Key_Return);
    EXPECT_EQ(g.filaActual(), 2);
    EXPECT_EQ(g.columnaActual(), Parentesco) << "the fixed column is passed over";
    m.celda(Afiliado, 3);
    Entrada::tecla(Qt::Key_Return);
    EXPECT_TRUE(m.boton->hasFocus()) << "after the last cell it leads out";
}

TEST_F(EdicionDeGrilla, EscapeDejaElValorQueHabia)
{
    m.celda(Sueldo, 1);
    Entrada::escribir(QStringLiteral("9"));
    Entrada::tecla(Qt::Key_Escape);
    EXPECT_EQ(texto(Sueldo), "1.234,50");
    EXPECT_FALSE(g.cambiada());
    EXPECT_TRUE(g.hasFocus());
    Entrada::tecla(Qt::Key_Escape);
    EXPECT_FALSE(g.editando());
}

TEST_F(EdicionDeGrilla, UnTextoRechazadoDejaElEditor)
{
    const struct
    {
        Columna columna;
        const char* escrito;
        const char* mensaje;
    } casos[] = {
        {Documento, "100000000", "El valor máximo es 99.999.999."},
        {Sueldo, "10000000", "El valor máximo es 9.999.999,99."},
        {Sueldo, "1,2,3", "El valor ingresado no es un importe."},
        {Nacio, "31022020", "La fecha ingresada no es válida (DD/MM/AAAA)."},
        {Nacio, "01011899", "La fecha debe estar entre 01/01/1900 y 31/12/2100."},
    };
    for (const auto& caso : casos)
    {
        for (const char* salida : {"Enter", "Tab", "Down", "clic", "boton", "atajo", "codigo"})
        {
            SCOPED_TRACE(testing::Message() << caso.escrito << " / " << salida);
            CajasDePrueba cajas;
            cajas.espera(Caja::Informacion, QString::fromUtf8(caso.mensaje));
            const QString habia = g.texto(caso.columna, 1);
            m.celda(caso.columna, 1);
            Entrada::escribir(QString::fromLatin1(caso.escrito));
            const QString como = QString::fromLatin1(salida);
            if (como == QStringLiteral("clic"))
            {
                m.celda(Apellido, 3);
            }
            else if (como == QStringLiteral("boton"))
            {
                Entrada::pulsar(*m.boton);
            }
            else if (como == QStringLiteral("atajo"))
            {
                Entrada::tecla(Qt::Key_G, Qt::AltModifier);
            }
            else if (como == QStringLiteral("codigo"))
            {
                EXPECT_FALSE(g.confirmarEdicion());
            }
            else
            {
                Entrada::tecla(como == QStringLiteral("Enter") ? Qt::Key_Return
                               : como == QStringLiteral("Tab") ? Qt::Key_Tab
                                                               : Qt::Key_Down);
            }
            EXPECT_TRUE(g.editando());
            EXPECT_EQ(g.filaActual(), 1);
            EXPECT_EQ(m.pulsado, 0);
            auto* linea = qobject_cast<QLineEdit*>(QApplication::focusWidget());
            ASSERT_NE(linea, nullptr);
            EXPECT_TRUE(linea->hasSelectedText());
            Entrada::tecla(Qt::Key_Escape);
            EXPECT_EQ(g.texto(caso.columna, 1), habia);
        }
    }
    EXPECT_FALSE(g.cambiada());
}

TEST_F(EdicionDeGrilla, LosBotonesActuanSobreLoGuardado)
{
    for (const bool conFoco : {true, false})
    {
        m.boton->setFocusPolicy(conFoco ? Qt::StrongFocus : Qt::NoFocus);
        for (const bool conTecla : {true, false})
        {
            SCOPED_TRACE(testing::Message() << conFoco << conTecla);
            const int antes = m.pulsado;
            std::string visto;
            const auto conexion =
                QObject::connect(m.boton, &QPushButton::clicked, &g, [&] { visto = texto(Sueldo, 2); });
            g.setValor(Sueldo, 2, QVariant());
            m.celda(Sueldo, 2);
            Entrada::escribir(QStringLiteral("50"));
            if (conTecla)
            {
                Entrada::tecla(Qt::Key_G, Qt::AltModifier);
            }
            else
            {
                Entrada::pulsar(*m.boton);
            }
            EXPECT_TRUE(QTest::qWaitFor([&] { return m.pulsado == antes + 1; }));
            EXPECT_EQ(visto, "50,00");
            EXPECT_FALSE(g.editando());
            QObject::disconnect(conexion);
        }
    }
}

TEST_F(EdicionDeGrilla, ElCodigoConfirmaOCancela)
{
    EXPECT_TRUE(g.confirmarEdicion());
    m.celda(Sueldo, 1);
    Entrada::escribir(QStringLiteral("8"));
    EXPECT_TRUE(g.confirmarEdicion());
    EXPECT_EQ(texto(Sueldo), "8,00");
    Entrada::escribir(QStringLiteral("9"));
    g.setEnabled(false);
    EXPECT_FALSE(g.editando());
    g.setEnabled(true);
    m.celda(Sueldo, 1);
    Entrada::escribir(QStringLiteral("9"));
    g.cargar({});
    EXPECT_FALSE(g.editando());
    EXPECT_EQ(g.filas(), 0);
}

TEST_F(EdicionDeGrilla, UnaCajaNoCierraElEditor)
{
    m.celda(Apellido, 1);
    Entrada::escribir(QStringLiteral("Gi"));
    {
        QWidget otra;
        otra.show();
        otra.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&otra));
        EXPECT_TRUE(g.editando());
    }
    m.ventana.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m.ventana));
    Entrada::escribir(QStringLiteral("l"));
    Entrada::tecla(Qt::Key_Return);
    EXPECT_EQ(texto(Apellido), "Gil");
}

TEST_F(EdicionDeGrilla, BorrarElTextoVaciaLaCelda)
{
    for (const int columna : {Documento, Sueldo, Nacio, Apellido})
    {
        poner(columna, 1, columna == Nacio ? QStringLiteral("01012000") : QStringLiteral("1"));
        m.celda(columna, 1);
        Entrada::tecla(Qt::Key_F2);
        Entrada::tecla(Qt::Key_Delete); // in an editor it is the text's own key
        Entrada::tecla(Qt::Key_Return);
        EXPECT_TRUE(g.celdaVacia(columna, 1)) << columna;
    }
}

TEST_F(EdicionDeGrilla, ListaConElTeclado)
{
    poner(Parentesco, 1, QStringLiteral("h"));
    EXPECT_EQ(texto(Parentesco), "Hijo") << "its first letter picks";
    EXPECT_EQ(g.columnaActual(), Documento);
    poner(Parentesco, 2, QStringLiteral("cony"));
    EXPECT_EQ(texto(Parentesco, 2), "Conyuge");
    m.celda(Parentesco, 2);
    Entrada::escribir(QStringLiteral("h"));
    Entrada::tecla(Qt::Key_Up);
    Entrada::tecla(Qt::Key_Up);
    EXPECT_TRUE(g.editando()) << "the arrows stay in the list";
    EXPECT_EQ(g.filaActual(), 2);
    Entrada::tecla(Qt::Key_Return);
    EXPECT_EQ(texto(Parentesco, 2), "Concubino");
    m.celda(Parentesco, 3);
    Entrada::escribir(QStringLiteral("z"));
    m.celda(Apellido, 3);
    EXPECT_TRUE(g.celdaVacia(Parentesco, 3)) << "nothing was chosen";
    EXPECT_FALSE(g.filaCambiada(3));
}

TEST_F(EdicionDeGrilla, ListaAbierta)
{
    m.celda(Parentesco, 1);
    Entrada::tecla(Qt::Key_F2);
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
    auto* lista = g.findChild<QComboBox*>();
    ASSERT_NE(lista, nullptr);
    QTest::keyClick(lista->view(), Qt::Key_Down);
    QTest::keyClick(lista->view(), Qt::Key_Down);
    QTest::keyClick(lista->view(), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !g.editando(); })) << "a choice in the open list is stored at once";
    EXPECT_FALSE(g.celdaVacia(Parentesco, 1));
    EXPECT_EQ(g.columnaActual(), Parentesco);
    EXPECT_TRUE(g.cambiada());
}

TEST_F(EdicionDeGrilla, ListaConUnValorDeOtraEpoca)
{
    g.setValor(Parentesco, 1, QStringLiteral("Tutor"));
    m.celda(Parentesco, 1);
    Entrada::tecla(Qt::Key_F2);
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() == nullptr; }));
    Entrada::activar(m.ventana); // without a window manager nobody does it after a popup
    Entrada::tecla(Qt::Key_Return);
    EXPECT_EQ(texto(Parentesco), "Tutor");
    EXPECT_FALSE(g.cambiada());
}

TEST_F(EdicionDeGrilla, Tildes)
{
    m.celda(Afiliado, 1);
    EXPECT_TRUE(g.tilde(Afiliado, 1));
    EXPECT_TRUE(m.tomarEventos().endsWith(QStringLiteral("editada 7,1; clic 7,1")));
    Entrada::tecla(Qt::Key_Space);
    EXPECT_FALSE(g.tilde(Afiliado, 1));
    EXPECT_TRUE(g.cambiada());
    g.setEditable(false);
    m.celda(Afiliado, 1);
    Entrada::tecla(Qt::Key_Space);
    EXPECT_FALSE(g.tilde(Afiliado, 1));
}

TEST_F(EdicionDeGrilla, BajarDesdeElEditorAgregaLaFila)
{
    g.setTeclasDeFila([this] { return !g.celdaVacia(Documento, g.filas()); }, {});
    m.celda(Documento, 3);
    Entrada::tecla(Qt::Key_Down);
    EXPECT_EQ(g.filas(), 3);
    Entrada::escribir(QStringLiteral("12"));
    Entrada::tecla(Qt::Key_Down);
    EXPECT_EQ(g.filas(), 4) << "the text was stored before the screen was asked";
    EXPECT_EQ(g.filaActual(), 4);
    EXPECT_EQ(g.columnaActual(), Parentesco) << "where the new row is typed from";
}

TEST_F(EdicionDeGrilla, UnaTeclaAjenaNoTocaLoQueHay)
{
    for (const int columna : {Documento, Sueldo, Nacio})
    {
        g.setValor(columna, 1, columna == Nacio ? QVariant(QDate(1980, 3, 5)) : QVariant(55));
        const std::string habia = texto(columna);
        m.celda(columna, 1);
        Entrada::escribir(QStringLiteral("x-"));
        EXPECT_FALSE(g.editando()) << "a letter opens no number";
        Entrada::tecla(Qt::Key_F2);
        Entrada::escribir(QStringLiteral("x- "));
        Entrada::tecla(Qt::Key_Return);
        EXPECT_EQ(texto(columna), habia);
    }
    m.celda(Sueldo, 1);
    Entrada::tecla(Qt::Key_Delete);
    Entrada::tecla(Qt::Key_Backspace);
    EXPECT_FALSE(g.editando());
    EXPECT_FALSE(g.cambiada());
}

TEST(EdicionDeGrillaQueSeVa, ConLaCeldaAbierta)
{
    for (const char* escrito : {"5", "100000000"})
    {
        MesaDeGrilla m;
        m.grilla->setColumnas({{C::Entero, QStringLiteral("Documento"), 100, 99999999}});
        m.grilla->setEditable(true);
        m.grilla->setFilas(2);
        m.mostrar();
        m.celda(1, 2);
        Entrada::escribir(QString::fromLatin1(escrito));
        ASSERT_TRUE(m.grilla->editando());
        m.tomarEventos();
        delete m.grilla;
        QCoreApplication::processEvents();
        EXPECT_EQ(m.tomarEventos(), QString()) << "no event, no box, nothing stored";
    }
}

TEST_F(EdicionDeGrilla, PegarUnImporteConPuntos)
{
    m.celda(Sueldo, 2);
    Entrada::tecla(Qt::Key_F2);
    auto* linea = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(linea, nullptr);
    linea->insert(QStringLiteral("$ 1.234,5"));
    linea->setModified(true);
    EXPECT_EQ(linea->text(), QStringLiteral("1.234,5"));
    Entrada::tecla(Qt::Key_Return);
    EXPECT_EQ(texto(Sueldo, 2), "1.234,50");
}
} // namespace

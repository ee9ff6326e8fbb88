#include "mesa_de_grilla.h"

namespace
{
using C = ColumnaDeGrilla;

std::vector<C> columnasDeLista()
{
    return {{C::Fija, QStringLiteral("Periodo"), 90}, {C::Fija, QStringLiteral("Sec"), 60}, {C::Fija, {}, 0}};
}

std::vector<std::vector<QVariant>> filasDeLista(int cuantas)
{
    std::vector<std::vector<QVariant>> filas;
    for (int i = 1; i <= cuantas; ++i)
    {
        filas.push_back({QStringLiteral("2024/%1").arg(i, 2, 10, QLatin1Char('0')), 0, i * 10});
    }
    return filas;
}

TEST(Grilla, FilasYCeldas)
{
    MesaDeGrilla m;
    Grilla& g = *m.grilla;
    g.setColumnas({{C::Entero, {}, 0}, {C::Texto, QStringLiteral("Suc.")}, {C::Tilde, QStringLiteral("Afiliado")}});
    g.setFilas(2);
    EXPECT_EQ(g.filas(), 2);
    EXPECT_TRUE(g.celdaVacia(1, 1));
    EXPECT_EQ(g.entero(1, 1), 0);
    EXPECT_FALSE(g.tilde(3, 1));
    g.setValor(1, 2, 45);
    g.setValor(2, 2, QStringLiteral("Norte"));
    g.setValor(3, 2, 1);
    g.setValor(2, 3, QStringLiteral("nowhere"));
    g.setFilas(3);
    EXPECT_EQ(g.entero(1, 2), 45) << "growing keeps the rows";
    EXPECT_EQ(g.texto(2, 2), QStringLiteral("Norte"));
    EXPECT_TRUE(g.tilde(3, 2));
    EXPECT_TRUE(g.celdaVacia(2, 3));
    EXPECT_EQ(g.texto(2, 0), QStringLiteral("Suc.")) << "row 0 is the header";
    EXPECT_EQ(g.texto(2, 9), QString());
    g.borrarFila(1);
    EXPECT_EQ(g.filas(), 2);
    EXPECT_EQ(g.entero(1, 1), 45);
    EXPECT_FALSE(g.cambiada()) << "the program's own changes are not the user's";
    g.setFilas(0);
    EXPECT_EQ(g.filas(), 0);
    EXPECT_TRUE(m.eventos.isEmpty());
}

TEST(Grilla, LaFilaActualSigueALasFilas)
{
    MesaDeGrilla m;
    Grilla& g = *m.grilla;
    g.setColumnas({{C::Entero, {}, 0}, {C::Texto, QStringLiteral("Suc.")}});
    g.setFilas(5);
    EXPECT_EQ(g.filaActual(), 0);
    g.setFilaActual(4);
    EXPECT_EQ(g.filaActual(), 4);
    EXPECT_EQ(g.columnaActual(), 2) << "never on a hidden column";
    g.setFilas(6);
    EXPECT_EQ(g.filaActual(), 4);
    g.borrarFila(2);
    EXPECT_EQ(g.filaActual(), 3) << "the same row, one place up";
    g.borrarFila(3);
    EXPECT_EQ(g.filaActual(), 3) << "the row that took its place";
    g.setFilas(2);
    EXPECT_EQ(g.filaActual(), 0);
    g.setFilaActual(2);
    g.setFilaActual(0);
    EXPECT_EQ(g.filaActual(), 0);
    g.setFilaActual(2);
    g.cargar({{1, QStringLiteral("a")}, {2, QStringLiteral("b")}});
    EXPECT_EQ(g.filaActual(), 0);
    EXPECT_TRUE(m.eventos.isEmpty()) << "by program: no event";
}

TEST(Grilla, PintaLoQuePideLaPantalla)
{
    MesaDeGrilla m;
    Grilla& g = *m.grilla;
    g.setColumnas(columnasDeLista());
    g.cargar(filasDeLista(4));
    const auto colores = [&g]
    {
        QString texto;
        for (int fila = 1; fila <= g.filas(); ++fila)
        {
            texto += g.colorDeFila(fila) == Grilla::amarillo ? u'A'
                     : g.colorDeFila(fila) == Grilla::blanco ? u'b'
                                                             : u'?';
        }
        return texto.toStdString();
    };
    EXPECT_EQ(colores(), "bbbb");
    g.pintarFila(3, Grilla::amarillo);
    g.pintarFila(4, Grilla::amarillo);
    g.pintarFila(5, Grilla::amarillo);
    EXPECT_EQ(colores(), "bbAA");
    g.borrarFila(3);
    EXPECT_EQ(colores(), "bbA") << "a colour goes with its row";
    g.setFilas(4);
    EXPECT_EQ(colores(), "bbAb");
    g.pintarTodo(Grilla::blanco);
    EXPECT_EQ(colores(), "bbbb");
    g.pintarTodo(Grilla::amarillo);
    g.pintarFila(2, Grilla::blanco);
    EXPECT_EQ(colores(), "AbAA");
    g.setFilas(5);
    EXPECT_EQ(colores(), "AbAAb") << "a new row is white";
    g.cargar(filasDeLista(2));
    EXPECT_EQ(colores(), "bb");
    g.setFilaActual(2);
    EXPECT_EQ(colores(), "bb");
    g.setPintaActual(true);
    EXPECT_EQ(colores(), "bA");
    g.setFilaActual(1);
    EXPECT_EQ(colores(), "Ab");
}

TEST(Grilla, ElAmarilloSeVeEnLaPantalla)
{
    MesaDeGrilla m;
    m.grilla->setColumnas({{C::Fija, QStringLiteral("Periodo"), -1}});
    m.grilla->cargar(filasDeLista(3));
    m.mostrar();
    m.grilla->pintarFila(2, Grilla::amarillo);
    const QImage imagen = m.grilla->viewport()->grab().toImage();
    const int x = imagen.width() - 12; // right of the text
    EXPECT_EQ(imagen.pixelColor(x, m.centro(1, 2).y()), QColor(255, 255, 0));
    EXPECT_EQ(imagen.pixelColor(x, m.centro(1, 1).y()), QColor(255, 255, 255));
    m.grilla->setEnabled(false);
    EXPECT_NE(m.grilla->viewport()->grab().toImage().pixelColor(x, m.centro(1, 1).y()), QColor(255, 255, 255))
        << "a disabled grid is grey";
}

TEST(Grilla, AnchosDeColumnas)
{
    MesaDeGrilla m;
    Grilla& g = *m.grilla;
    g.setColumnas({{C::Fija, QStringLiteral("CUIL"), 120},
                   {C::Fija, QStringLiteral("Nombre"), -1},
                   {C::Fija, {}, 0},
                   {C::Fija, QStringLiteral("Un título más largo que su columna"), 20}});
    m.mostrar();
    EXPECT_TRUE(g.isColumnHidden(2));
    const int juntos = g.columnWidth(0) + g.columnWidth(1) + g.columnWidth(3);
    EXPECT_EQ(juntos, g.viewport()->width()) << "the open column takes what is left over";
    EXPECT_GE(g.columnWidth(3), g.fontMetrics().horizontalAdvance(g.texto(4, 0))) << "headers are never clipped";
    const int ancho = g.columnWidth(0);
    QFont grande = g.font();
    grande.setPixelSize(g.fontInfo().pixelSize() * 2);
    g.setFont(grande);
    EXPECT_NEAR(g.columnWidth(0), 2 * ancho, 2);
}

TEST(Grilla, VeinteMilFilas)
{
    MesaDeGrilla m;
    Grilla& g = *m.grilla;
    std::vector<C> columnas(7, C{C::Fija, QStringLiteral("Dato"), 80});
    columnas.push_back({C::Decimal, QStringLiteral("Sueldo"), 90});
    g.setColumnas(columnas);
    m.mostrar();
    const auto filas = []
    {
        std::vector<std::vector<QVariant>> todas;
        for (int i = 0; i < 20000; ++i)
        {
            std::vector<QVariant> fila(7, QStringLiteral("texto"));
            fila.push_back(QVariant::fromValue(Moneda::deEntero(i)));
            todas.push_back(std::move(fila));
        }
        return todas;
    }();
    auto copia = filas;
    QElapsedTimer reloj;
    reloj.start();
    g.cargar(std::move(copia));
    QCoreApplication::processEvents();
    RecordProperty("carga_ms", std::to_string(reloj.elapsed()));
    EXPECT_EQ(g.texto(8, 20000), QStringLiteral("19.999,00"));
    g.setFilaActual(20000);
    EXPECT_TRUE(g.viewport()->rect().intersects(g.visualRect(g.model()->index(19999, 0))));
    reloj.restart();
    for (int fila = 1; fila <= 20000; ++fila)
    {
        g.pintarTodo(Grilla::blanco);
        g.pintarFila(fila, Grilla::amarillo);
    }
    RecordProperty("pintar_20000_veces_ms", std::to_string(reloj.elapsed()));
    EXPECT_EQ(g.colorDeFila(19999), Grilla::blanco);
    EXPECT_EQ(g.colorDeFila(20000), Grilla::amarillo);
    g.setFilas(0);
    g.setFilas(20000);
    EXPECT_TRUE(g.celdaVacia(8, 20000));
}
} // namespace

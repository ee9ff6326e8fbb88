#pragma once

#include "apoyo/cajas_de_prueba.h"
#include "apoyo/entrada.h"
#include "ui/doors/anuncio.h"
#include "ui/grid/grilla.h"

#include <QtTest>
#include <QtWidgets>
#include <gtest/gtest.h>
#include <map>

/// A window with a grid of all kinds of columns, editable, between a field and a button; its events are written down.
struct PruebaGrilla : testing::Test
{
    using C = ColumnaDeGrilla;
    static constexpr int Nombre = 1, Parentesco = 2, Documento = 3, Apellido = 4, Sueldo = 5, Nacio = 6, Afiliado = 7;
    static constexpr int deSobra = 60'000; // milliseconds: a machine may be busy

    QWidget ventana;
    QLineEdit* antes = new QLineEdit(&ventana);
    Grilla& g = *new Grilla(&ventana);
    QPushButton* boton = new QPushButton("&Grabar", &ventana);
    CajasDePrueba cajas; ///< a box that no test expects fails it
    QStringList eventos, dichos;

    PruebaGrilla()
    {
        reemplazarAnuncios([this](const QString& texto) { dichos += texto; });
        auto* fila = new QHBoxLayout(&ventana);
        fila->addWidget(antes);
        fila->addWidget(&g);
        fila->addWidget(boton);
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
        llenar();
        const auto anotar = [this](const QString& que)
        { return [this, que](int c, int f) { eventos += QString(que + " %1,%2").arg(c).arg(f); }; };
        QObject::connect(&g, &Grilla::clic, &ventana, anotar("clic"));
        QObject::connect(&g, &Grilla::dobleClic, &ventana, anotar("doble"));
        QObject::connect(&g, &Grilla::celdaEditada, &ventana, anotar("editada"));
        QObject::connect(&g, &Grilla::dejarCelda, &ventana, anotar("dejar"));
        QObject::connect(&g, &Grilla::dejarCelda, &ventana,
                         [this](int, int, int c, int f) { eventos.back() += QString(" %1,%2").arg(c).arg(f); });
        QObject::connect(boton, &QPushButton::clicked, &ventana, [this] { eventos += "boton: " + g.texto(Sueldo, 2); });
        Entrada::activar(ventana);
        antes->setFocus();
    }
    ~PruebaGrilla() override { reemplazarAnuncios({}); }
    void llenar()
    {
        g.cargar({{"Ana", "Hijo", 12LL, "Sosa", QVariant::fromValue(Moneda::deEntero(1000)), QDate(1980, 3, 5), true},
                  {},
                  {}});
    }
    [[nodiscard]] QPoint centro(int columna, int fila) const
    {
        return g.visualRect(g.model()->index(fila - 1, columna - 1)).center();
    }
    void pulsarCabeza(int columna)
    {
        QWidget* cabeza = g.horizontalHeader()->viewport();
        Entrada::pulsar(*cabeza, {g.columnViewportPosition(columna - 1) + 20, cabeza->height() / 2});
    }
    void arrastrar()
    {
        QWidget* v = g.viewport();
        QTest::mousePress(ventana.windowHandle(), Qt::LeftButton, {}, v->mapTo(&ventana, centro(1, 1)));
        QMouseEvent va(QEvent::MouseMove, centro(1, 3), v->mapToGlobal(centro(1, 3)), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(v, &va);
        QTest::mouseRelease(ventana.windowHandle(), Qt::LeftButton, {}, v->mapTo(&ventana, centro(1, 3)));
    }
    /// The events after the words of jugar(), of which "5,2" is a click on column 5 and row 2; those below, elsewhere.
    QString tras(const QString& gestos)
    {
        const std::map<QString, std::function<void()>> otros = {
            {"@boton", [&] { Entrada::pulsar(*boton); }},
            {"@cabeza3", [&] { pulsarCabeza(3); }},
            {"@dobleEn1,2", [&] { Entrada::pulsarDosVeces(*g.viewport(), centro(1, 2)); }},
            {"@debajo", [&] { Entrada::pulsar(*g.viewport(), QPoint(40, g.viewport()->height() - 5)); }},
            {"@arrastra", [&] { arrastrar(); }},
        };
        eventos.clear();
        for (const QString& gesto : gestos.split(u' ', Qt::SkipEmptyParts))
        {
            const auto otro = otros.find(gesto);
            otro != otros.end()  ? otro->second()
            : gesto[0].isDigit() ? Entrada::pulsar(*g.viewport(), centro(gesto.first(1).toInt(), gesto.last(1).toInt()))
                                 : Entrada::jugar(gesto);
        }
        return eventos.join("; ");
    }
    /// The text of a cell of the first row, and the events, after these gestures upon it.
    QString en(int columna, const QString& gestos)
    {
        g.setFilaActual(1, columna);
        tras(QString("%1,1").arg(columna));
        llenar(); // the click has changed a tick
        g.setFilaActual(1, columna);
        g.setCambiada(false);
        const QString hechos = tras(gestos);
        EXPECT_FALSE(g.editando());
        EXPECT_EQ(hechos.contains("editada"), g.cambiada());
        return hechos.isEmpty() ? g.texto(columna, 1) : g.texto(columna, 1) + "; " + hechos;
    }
    [[nodiscard]] static QLineEdit* editor() { return qobject_cast<QLineEdit*>(QApplication::focusWidget()); }
    [[nodiscard]] QString filas() const
    {
        return QString("%1 filas, en %2,%3").arg(g.filas()).arg(g.columnaActual()).arg(g.filaActual());
    }
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

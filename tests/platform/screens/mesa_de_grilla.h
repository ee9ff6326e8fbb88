#pragma once

#include "apoyo/entrada.h"
#include "platform/screens/grilla.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStringList>
#include <QTest>
#include <gtest/gtest.h>

/// A window with a grid between a field and a button, the events of the grid written down in their order.
struct MesaDeGrilla
{
    QWidget ventana;
    QLineEdit* antes = new QLineEdit(&ventana);
    Grilla* grilla = new Grilla(&ventana);
    QPushButton* boton = new QPushButton(QStringLiteral("&Grabar"), &ventana);
    QStringList eventos;
    int pulsado = 0;

    MesaDeGrilla()
    {
        auto* fila = new QHBoxLayout(&ventana);
        fila->addWidget(antes);
        fila->addWidget(grilla, 1);
        fila->addWidget(boton);
        ventana.resize(1000, 400);
        const auto anotar = [this](const char* que, std::initializer_list<int> numeros)
        {
            QStringList partes;
            for (const int n : numeros)
            {
                partes.append(QString::number(n));
            }
            eventos.append(QStringLiteral("%1 %2").arg(QString::fromLatin1(que), partes.join(u',')));
        };
        QObject::connect(grilla, &Grilla::clic, &ventana, [anotar](int c, int f) { anotar("clic", {c, f}); });
        QObject::connect(grilla, &Grilla::dobleClic, &ventana, [anotar](int c, int f) { anotar("doble", {c, f}); });
        QObject::connect(grilla, &Grilla::celdaEditada, &ventana,
                         [anotar](int c, int f) {
                             anotar("editada", {c, f});
                         });
        QObject::connect(grilla, &Grilla::dejarCelda, &ventana,
                         [anotar](int c, int f, int nc, int nf) {
                             anotar("dejar", {c, f, nc, nf});
                         });
        QObject::connect(boton, &QPushButton::clicked, &ventana, [this] { ++pulsado; });
    }

    void mostrar()
    {
        Entrada::activar(ventana);
        antes->setFocus();
    }

    [[nodiscard]] QPoint centro(int columna, int fila) const
    {
        return grilla->visualRect(grilla->model()->index(fila - 1, columna - 1)).center();
    }
    void celda(int columna, int fila) { Entrada::pulsar(*grilla->viewport(), centro(columna, fila)); }
    void doble(int columna, int fila) { Entrada::pulsarDosVeces(*grilla->viewport(), centro(columna, fila)); }
    void cabeza(int columna)
    {
        QWidget* tira = grilla->horizontalHeader()->viewport();
        Entrada::pulsar(*tira, QPoint(grilla->columnViewportPosition(columna - 1) + 20, tira->height() / 2));
    }
    QString tomarEventos()
    {
        const QString juntos = eventos.join(QStringLiteral("; "));
        eventos.clear();
        return juntos;
    }
};

#include "apoyo/mesa.h"

#include "apoyo/entrada.h"
#include "platform/screens/estilo.h"
#include "platform/screens/grilla.h"
#include "platform/screens/navegacion.h"
#include "platform/screens/pantalla.h"

#include <QApplication>
#include <QDialog>
#include <QHeaderView>
#include <QMdiSubWindow>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>
#include <stdexcept>

namespace
{
/// Waits by the event loop alone until the screen of that dialog is up and active.
void alEstarArriba(const Pantalla* debajo, const std::function<void()>& haz)
{
    QTimer::singleShot(0, qApp,
                       [debajo, haz]
                       {
                           const Pantalla* arriba = Navegacion::instancia().actual();
                           if (arriba == debajo || arriba == nullptr || !arriba->window()->isVisible())
                           {
                               alEstarArriba(debajo, haz);
                               return;
                           }
                           if (!arriba->window()->isActiveWindow())
                           {
                               arriba->window()->activateWindow();
                               alEstarArriba(debajo, haz);
                               return;
                           }
                           haz();
                       });
}

/// Where to click for a cell, scrolled into view; row 0 is the header.
std::pair<QWidget*, QPoint> celdaDe(Grilla& tabla, int columna, int fila)
{
    if (fila == 0)
    {
        const QHeaderView& titulos = *tabla.horizontalHeader();
        return {titulos.viewport(),
                {titulos.sectionViewportPosition(columna - 1) + titulos.sectionSize(columna - 1) / 2,
                 titulos.height() / 2}};
    }
    const QModelIndex indice = tabla.model()->index(fila - 1, columna - 1);
    tabla.scrollTo(indice);
    return {tabla.viewport(), tabla.visualRect(indice).center()};
}

/// `abre` returns once the modal screen that it opens is closed.
void conModal(const std::function<void()>& abre, const std::function<void()>& haz)
{
    bool corrio = false;
    alEstarArriba(Navegacion::instancia().actual(),
                  [&]
                  {
                      corrio = true;
                      const Pantalla* modal = Navegacion::instancia().actual();
                      try
                      {
                          haz();
                      }
                      catch (const std::exception& error)
                      {
                          ADD_FAILURE() << error.what();
                      }
                      if (Navegacion::instancia().actual() == modal)
                      {
                          ADD_FAILURE() << "the modal screen was left open";
                          Mesa::cerrar();
                      }
                  });
    abre();
    EXPECT_TRUE(corrio) << "no modal screen came";
}
} // namespace

Mesa::Mesa()
{
    reemplazarFinDelProceso([this](int) { ++fines; });
    Estilo::aplicar(*qApp);
    menu = std::make_unique<MDIMenuPpal>();
    menu->resize(1024, 740);
    Entrada::activar(*menu);
}

Mesa::~Mesa()
{
    menu.reset();
    Entrada::asentar();
    reemplazarFinDelProceso({});
}

Pantalla* Mesa::abrir(const char* nombre)
{
    Navegacion::instancia().mostrar(QString::fromLatin1(nombre));
    Entrada::asentar();
    return Navegacion::instancia().abierta(QString::fromLatin1(nombre));
}

Pantalla* Mesa::actual()
{
    return Navegacion::instancia().actual();
}

QWidget& Mesa::control(const char* nombre)
{
    auto* hallado = actual() != nullptr ? actual()->findChild<QWidget*>(QString::fromLatin1(nombre)) : nullptr;
    if (hallado == nullptr)
    {
        throw std::runtime_error(std::string("no such control: ") + nombre);
    }
    return *hallado;
}

Grilla& Mesa::grilla(const char* nombre)
{
    return dynamic_cast<Grilla&>(control(nombre));
}

QString Mesa::texto(const char* nombre)
{
    const QWidget& uno = control(nombre);
    return uno
        .property(qstrncmp(nombre, "cmb", 3) == 0    ? "currentText"
                  : qstrncmp(nombre, "Mask", 4) == 0 ? "displayText"
                                                     : "text")
        .toString();
}

bool Mesa::activo(const char* nombre)
{
    return control(nombre).isEnabled();
}

QString Mesa::foco()
{
    const QWidget* enfocado = actual()->window()->focusWidget();
    return enfocado != nullptr ? enfocado->objectName() : QString();
}

QString Mesa::titulo()
{
    return actual()->windowTitle();
}

void Mesa::pulsar(const char* nombre)
{
    QWidget& uno = control(nombre);
    ASSERT_TRUE(uno.isVisible()) << nombre;
    Entrada::pulsar(uno);
}

void Mesa::escribir(const char* nombre, const char* texto)
{
    QWidget& campo = control(nombre);
    ASSERT_TRUE(campo.isEnabled()) << nombre;
    Entrada::pulsar(campo);
    Entrada::tecla(Qt::Key_A, Qt::ControlModifier);
    Entrada::tecla(Qt::Key_Delete);
    Entrada::escribir(QString::fromUtf8(texto));
}

void Mesa::pulsarCelda(const char* nombre, int columna, int fila)
{
    const auto [donde, lugar] = celdaDe(grilla(nombre), columna, fila);
    Entrada::pulsar(*donde, lugar);
}

void Mesa::pulsarDosVeces(const char* nombre, int columna, int fila)
{
    const auto [donde, lugar] = celdaDe(grilla(nombre), columna, fila);
    Entrada::pulsarDosVeces(*donde, lugar);
}

void Mesa::celda(const char* nombre, int columna, int fila, const char* texto)
{
    pulsarCelda(nombre, columna, fila);
    Entrada::escribir(QString::fromUtf8(texto));
    Entrada::tecla(Qt::Key_Return);
}

QStringList Mesa::filas(const char* nombre)
{
    const Grilla& tabla = grilla(nombre);
    QStringList todas;
    for (int fila = 1; fila <= tabla.filas(); ++fila)
    {
        QStringList celdas;
        for (int columna = 1; columna <= tabla.columnas(); ++columna)
        {
            if (!tabla.isColumnHidden(columna - 1))
            {
                celdas.append(tabla.texto(columna, fila));
            }
        }
        todas.append(celdas.join(QLatin1Char('|')));
    }
    return todas;
}

QList<int> Mesa::amarillas(const char* nombre)
{
    const Grilla& tabla = grilla(nombre);
    QList<int> lista;
    for (int fila = 1; fila <= tabla.filas(); ++fila)
    {
        if (tabla.colorDeFila(fila) == Grilla::amarillo)
        {
            lista.append(fila);
        }
    }
    return lista;
}

void Mesa::enDialogo(const char* boton, const std::function<void()>& haz)
{
    conModal([boton] { pulsar(boton); }, haz);
}

void Mesa::enDialogo(const std::function<void()>& abre, const std::function<void()>& haz)
{
    conModal(abre, haz);
}

void Mesa::abrirModal(const char* nombre, const std::function<void()>& haz)
{
    conModal([nombre] { Navegacion::instancia().mostrarModal(QString::fromLatin1(nombre)); }, haz);
}

void Mesa::cerrar()
{
    QWidget* dentro = actual();
    QWidget* ventana = qobject_cast<QMdiSubWindow*>(dentro->parentWidget());
    (ventana != nullptr ? ventana : dentro->window())->close();
    Entrada::asentar();
}

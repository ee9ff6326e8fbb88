#include "mesa_empresas.h"

#include "apoyo/entrada.h"
#include "companies/screens/buscar_empresa.h"
#include "companies/screens/buscar_rubro.h"
#include "companies/screens/empresas.h"
#include "platform/screens/estilo.h"
#include "platform/screens/grilla.h"
#include "platform/screens/navegacion.h"

#include <QApplication>
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
} // namespace

MesaEmpresas::MesaEmpresas()
{
    reemplazarFinDelProceso([this](int) { ++fines; });
    auto& navegacion = Navegacion::instancia();
    navegacion.registrar(QStringLiteral("Empresas"), [] { return new Empresas; });
    navegacion.registrar(QStringLiteral("BuscarEmpresa"), [] { return new BuscarEmpresa; });
    navegacion.registrar(QStringLiteral("BuscarRubro"), [] { return new BuscarRubro; });
    Estilo::aplicar(*qApp);
    menu = std::make_unique<MDIMenuPpal>();
    menu->resize(1024, 740);
    Entrada::activar(*menu);
}

MesaEmpresas::~MesaEmpresas()
{
    menu.reset();
    Entrada::asentar();
    reemplazarFinDelProceso({});
}

Pantalla* MesaEmpresas::abrir(const char* nombre) const
{
    Navegacion::instancia().mostrar(QString::fromLatin1(nombre));
    Entrada::asentar();
    return Navegacion::instancia().abierta(QString::fromLatin1(nombre));
}

Pantalla* MesaEmpresas::actual()
{
    return Navegacion::instancia().actual();
}

QWidget& MesaEmpresas::control(const char* nombre)
{
    auto* hallado = actual() != nullptr ? actual()->findChild<QWidget*>(QString::fromLatin1(nombre)) : nullptr;
    if (hallado == nullptr)
    {
        throw std::runtime_error(std::string("no such control: ") + nombre);
    }
    return *hallado;
}

Grilla& MesaEmpresas::grilla(const char* nombre)
{
    return dynamic_cast<Grilla&>(control(nombre));
}

QString MesaEmpresas::texto(const char* nombre)
{
    const QWidget& uno = control(nombre);
    return uno
        .property(qstrncmp(nombre, "cmb", 3) == 0    ? "currentText"
                  : qstrncmp(nombre, "Mask", 4) == 0 ? "displayText"
                                                     : "text")
        .toString();
}

bool MesaEmpresas::activo(const char* nombre)
{
    return control(nombre).isEnabled();
}

QString MesaEmpresas::foco() const
{
    const QWidget* enfocado = actual()->window()->focusWidget();
    return enfocado != nullptr ? enfocado->objectName() : QString();
}

QString MesaEmpresas::titulo()
{
    return actual()->windowTitle();
}

void MesaEmpresas::pulsar(const char* nombre) const
{
    QWidget& uno = control(nombre);
    ASSERT_TRUE(uno.isVisible()) << nombre;
    Entrada::pulsar(uno);
}

void MesaEmpresas::escribir(const char* nombre, const char* texto) const
{
    QWidget& campo = control(nombre);
    ASSERT_TRUE(campo.isEnabled()) << nombre;
    Entrada::pulsar(campo);
    Entrada::tecla(Qt::Key_A, Qt::ControlModifier);
    Entrada::tecla(Qt::Key_Delete);
    Entrada::escribir(QString::fromUtf8(texto));
}

void MesaEmpresas::pulsarCelda(const char* nombre, int columna, int fila) const
{
    Grilla& tabla = grilla(nombre);
    const QModelIndex indice = tabla.model()->index(fila - 1, columna - 1);
    tabla.scrollTo(indice);
    Entrada::pulsar(*tabla.viewport(), tabla.visualRect(indice).center());
}

void MesaEmpresas::celda(const char* nombre, int columna, int fila, const char* texto) const
{
    pulsarCelda(nombre, columna, fila);
    Entrada::escribir(QString::fromUtf8(texto));
    Entrada::tecla(Qt::Key_Return);
}

QStringList MesaEmpresas::filas(const char* nombre)
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

QList<int> MesaEmpresas::amarillas(const char* nombre)
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

void MesaEmpresas::enDialogo(const char* boton, const std::function<void()>& haz) const
{
    bool corrio = false;
    alEstarArriba(actual(),
                  [&]
                  {
                      haz();
                      corrio = true;
                  });
    pulsar(boton);
    EXPECT_TRUE(corrio) << boton;
}

#include "mesa_boletas.h"

#include "apoyo/entrada.h"
#include "companies/screens/buscar_empresa.h"
#include "platform/data/reloj.h"
#include "platform/screens/estilo.h"
#include "platform/screens/grilla.h"
#include "platform/screens/informe_vista.h"
#include "platform/screens/navegacion.h"
#include "slips/screens/boletas.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QTimer>
#include <gtest/gtest.h>

namespace
{
class OtraPantalla : public Pantalla
{
public:
    OtraPantalla()
        : Pantalla(QStringLiteral("Otra"))
    {
    }
};

/// Waits by the event loop alone until a dialog is up and active.
void alEstarArriba(const std::function<void()>& haz)
{
    QTimer::singleShot(0, qApp,
                       [haz]
                       {
                           QWidget* arriba = QApplication::activeModalWidget();
                           if (arriba == nullptr || !arriba->isVisible() || !arriba->isActiveWindow())
                           {
                               if (arriba != nullptr)
                               {
                                   arriba->activateWindow();
                               }
                               alEstarArriba(haz);
                               return;
                           }
                           haz();
                       });
}
} // namespace

MesaBoletas::MesaBoletas()
{
    Reloj::reemplazar([] { return QDateTime(QDate(2009, 6, 10), QTime(10, 0)); });
    reemplazarFinDelProceso([this](int) { ++fines; });
    for (const char* nombre : {"RptBoleta0.rpt", "RptBoleta1.rpt", "RptBoleta2.rpt", "PF_I2OF5.ttf"})
    {
        const QString archivo = QString::fromLatin1(nombre);
        EXPECT_TRUE(QFile::copy(QStringLiteral(CARPETA_INSTALACION "/") + archivo, base.ruta(archivo))) << nombre;
    }
    auto& navegacion = Navegacion::instancia();
    navegacion.registrar(QStringLiteral("Boletas"), [] { return new Boletas; });
    navegacion.registrar(QStringLiteral("BuscarEmpresa"), [] { return new BuscarEmpresa; });
    navegacion.registrar(QStringLiteral("Otra"), [] { return new OtraPantalla; });
    Estilo::aplicar(*qApp);
    menu = std::make_unique<MDIMenuPpal>();
    menu->resize(1024, 740);
    Entrada::activar(*menu);
}

MesaBoletas::~MesaBoletas()
{
    cerrarVistas();
    menu.reset();
    Entrada::asentar();
    reemplazarFinDelProceso({});
    Reloj::reemplazar({});
}

void MesaBoletas::abrir(int tipo, int secuencia) const
{
    Rutinas::ModoAbrir = static_cast<quint8>(tipo);
    Rutinas::CuitActual = dePrueba::cuit;
    Rutinas::PeriodoActual = dePrueba::periodo;
    Rutinas::SecuenciaActual = static_cast<quint8>(secuencia);
    Rutinas::CantidadEmpleados = 3;
    Rutinas::CantidadAfiliados = 2;
    Navegacion::instancia().mostrar(QStringLiteral("Boletas"));
    Entrada::asentar();
}

void MesaBoletas::abrirDelMenu() const
{
    Rutinas::ModoAbrir = 2;
    Rutinas::CuitActual.clear();
    Navegacion::instancia().mostrar(QStringLiteral("Boletas"));
    Entrada::asentar();
}

void MesaBoletas::irYVolver() const
{
    for (const char* nombre : {"Otra", "Boletas"})
    {
        Navegacion::instancia().mostrar(QString::fromLatin1(nombre));
        Entrada::asentar();
    }
}

Boletas* MesaBoletas::pantalla()
{
    return qobject_cast<Boletas*>(Navegacion::instancia().abierta(QStringLiteral("Boletas")));
}

bool MesaBoletas::cerrar() const
{
    qobject_cast<QMdiSubWindow*>(pantalla()->parentWidget())->close();
    Entrada::asentar();
    return pantalla() == nullptr;
}

QWidget* MesaBoletas::buscar(const char* nombre)
{
    QString objeto = QString::fromLatin1(nombre);
    objeto.replace(QLatin1Char('('), QLatin1Char('_')).remove(QLatin1Char(')'));
    return pantalla() != nullptr ? pantalla()->findChild<QWidget*>(objeto) : nullptr;
}

QString MesaBoletas::texto(const char* nombre) const
{
    auto& uno = control<QWidget>(nombre);
    return uno
        .property(qobject_cast<QGroupBox*>(&uno) != nullptr   ? "title"
                  : qobject_cast<QComboBox*>(&uno) != nullptr ? "currentText"
                  : qobject_cast<QLineEdit*>(&uno) != nullptr ? "displayText"
                                                              : "text")
        .toString();
}

QStringList MesaBoletas::textos(std::initializer_list<const char*> nombres) const
{
    QStringList lista;
    for (const char* nombre : nombres)
    {
        lista.append(texto(nombre));
    }
    return lista;
}

bool MesaBoletas::activo(const char* nombre) const
{
    return control<QWidget>(nombre).isEnabled();
}

bool MesaBoletas::visible(const char* nombre) const
{
    return control<QWidget>(nombre).isVisible();
}

QString MesaBoletas::foco() const
{
    const QWidget* enfocado = menu->focusWidget();
    return enfocado != nullptr ? enfocado->objectName() : QString();
}

void MesaBoletas::pulsar(const char* nombre) const
{
    ASSERT_TRUE(visible(nombre)) << nombre;
    Entrada::pulsar(control<QWidget>(nombre));
}

void MesaBoletas::escribir(const char* nombre, const char* texto) const
{
    auto& campo = control<QLineEdit>(nombre);
    ASSERT_TRUE(campo.isEnabled()) << nombre;
    pulsar(nombre);
    campo.selectAll();
    Entrada::tecla(Qt::Key_Delete);
    Entrada::escribir(QString::fromLatin1(texto));
}

void MesaBoletas::poner(const char* nombre, const char* texto) const
{
    escribir(nombre, texto);
    Entrada::tecla(Qt::Key_Tab);
}

void MesaBoletas::elegirFondo(int posicion) const
{
    auto& combo = control<QComboBox>("cmbConcepto");
    pulsar("cmbConcepto"); // drops the list down
    Entrada::tecla(Qt::Key_Home);
    for (int i = 0; i < posicion; ++i)
    {
        Entrada::tecla(Qt::Key_Down);
    }
    Entrada::tecla(Qt::Key_Return);
    ASSERT_EQ(combo.currentIndex(), posicion);
}

void MesaBoletas::generar(bool si)
{
    cajas.esperaPregunta(QStringLiteral("Desea Generar la Boleta Correspondiente?"), si);
    pulsar("cmdBoletas");
}

Grilla& MesaBoletas::lista() const
{
    return control<Grilla>("vsActas");
}

QStringList MesaBoletas::filas() const
{
    QStringList todas;
    for (int fila = 1; fila <= lista().filas(); ++fila)
    {
        QStringList celdas;
        for (int columna = 1; columna <= lista().columnas(); ++columna)
        {
            if (!lista().isColumnHidden(columna - 1))
            {
                celdas.append(lista().texto(columna, fila));
            }
        }
        todas.append(celdas.join(QLatin1Char('|')));
    }
    return todas;
}

void MesaBoletas::pulsarFila(int fila) const
{
    if (fila == 0)
    {
        Entrada::pulsar(*lista().horizontalHeader()->viewport(), {10, 10});
        return;
    }
    Entrada::pulsar(*lista().viewport(), lista().visualRect(lista().model()->index(fila - 1, 0)).center());
}

int MesaBoletas::amarilla() const
{
    int cual = 0;
    for (int fila = 1; fila <= lista().filas(); ++fila)
    {
        if (lista().colorDeFila(fila) == Grilla::amarillo)
        {
            cual = cual == 0 ? fila : -1;
        }
    }
    return cual;
}

void MesaBoletas::enDialogo(const std::function<void()>& abre, const std::function<void()>& haz) const
{
    bool corrio = false;
    alEstarArriba(
        [&]
        {
            haz();
            corrio = true;
        });
    abre();
    EXPECT_TRUE(corrio) << "no dialog came";
}

void MesaBoletas::cerrarDialogo()
{
    qobject_cast<QDialog*>(QApplication::activeModalWidget())->reject();
}

QList<VistaDeInforme*> MesaBoletas::vistas()
{
    QList<VistaDeInforme*> abiertas;
    for (QWidget* ventana : QApplication::topLevelWidgets())
    {
        if (auto* vista = qobject_cast<VistaDeInforme*>(ventana); vista != nullptr && vista->isVisible())
        {
            abiertas.append(vista);
        }
    }
    return abiertas;
}

void MesaBoletas::cerrarVistas() const
{
    for (VistaDeInforme* vista : vistas())
    {
        vista->close();
    }
    Entrada::asentar();
    Entrada::activar(*menu);
}

qint64 MesaBoletas::pagos() const
{
    return conexion().consultar("SELECT count(*) AS N FROM PAGOS").primera().entero("N");
}

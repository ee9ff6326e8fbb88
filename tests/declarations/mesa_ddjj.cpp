#include "mesa_ddjj.h"

#include "apoyo/entrada.h"
#include "declarations/screens/ddjj.h"
#include "platform/data/reloj.h"
#include "platform/screens/grilla.h"
#include "platform/screens/navegacion.h"
#include "platform/screens/trabajo_largo.h"

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <gtest/gtest.h>

MesaDDJJ::MesaDDJJ()
{
    Reloj::reemplazar([] { return QDateTime(QDate(2009, 6, 3), QTime(10, 0)); });
    reemplazarFinDelProceso([this](int) { ++fines; });
    Navegacion::instancia().registrar(QStringLiteral("DDJJ"), [] { return new DDJJ; });
    menu = std::make_unique<MDIMenuPpal>();
    menu->resize(1024, 740);
    Entrada::activar(*menu);
}

MesaDDJJ::~MesaDDJJ()
{
    menu.reset();
    Entrada::asentar();
    reemplazarFinDelProceso({});
    Reloj::reemplazar({});
    Puntero::normal();
}

void MesaDDJJ::abrir()
{
    Navegacion::instancia().mostrar(QStringLiteral("DDJJ"));
    Entrada::asentar();
}

DDJJ* MesaDDJJ::pantalla()
{
    return qobject_cast<DDJJ*>(Navegacion::instancia().abierta(QStringLiteral("DDJJ")));
}

QWidget* MesaDDJJ::buscar(const char* nombre)
{
    QString objeto = QString::fromLatin1(nombre);
    objeto.replace(QLatin1Char('('), QLatin1Char('_')).remove(QLatin1Char(')'));
    return pantalla() != nullptr ? pantalla()->findChild<QWidget*>(objeto) : nullptr;
}

QString MesaDDJJ::texto(const char* nombre) const
{
    auto& uno = control<QWidget>(nombre);
    return uno.property(qobject_cast<QGroupBox*>(&uno) != nullptr ? "title" : "text").toString();
}

Grilla& MesaDDJJ::lista() const
{
    return control<Grilla>("vsDDJJ");
}

QStringList MesaDDJJ::filas() const
{
    QStringList todas;
    for (int fila = 1; fila <= lista().filas(); ++fila)
    {
        todas.append(lista().texto(1, fila) + QLatin1Char(' ') + lista().texto(2, fila));
    }
    return todas;
}

int MesaDDJJ::amarilla() const
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

void MesaDDJJ::pulsar(const char* nombre) const
{
    auto& uno = control<QWidget>(nombre);
    ASSERT_TRUE(uno.isVisible()) << nombre;
    Entrada::pulsar(uno);
}

void MesaDDJJ::pulsarFila(int fila) const
{
    if (fila == 0)
    {
        Entrada::pulsar(*lista().horizontalHeader()->viewport());
        return;
    }
    const QRect celda = lista().visualRect(lista().model()->index(fila - 1, 0));
    Entrada::pulsar(*lista().viewport(), celda.center());
}

void MesaDDJJ::pagina(int numero) const
{
    auto* barra = control<QTabWidget>("SSTab1").tabBar();
    Entrada::pulsar(*barra, barra->tabRect(numero).center());
}

void MesaDDJJ::escribir(const char* nombre, const char* texto) const
{
    auto& campo = control<QLineEdit>(nombre);
    ASSERT_TRUE(campo.isEnabled()) << nombre;
    Entrada::pulsar(campo);
    campo.selectAll();
    Entrada::tecla(Qt::Key_Delete);
    Entrada::escribir(QString::fromLatin1(texto));
}

void MesaDDJJ::elegirEmpresa(const QString& razon) const
{
    auto& combo = control<QComboBox>("cmbEmpresa");
    const int posicion = combo.findText(razon);
    ASSERT_NE(-1, posicion);
    combo.setFocus();
    Entrada::tecla(Qt::Key_Home);
    for (int i = combo.currentIndex(); i < posicion; ++i)
    {
        Entrada::tecla(Qt::Key_Down);
    }
    ASSERT_EQ(razon, combo.currentText());
}

QString MesaDDJJ::foco() const
{
    const QWidget* enfocado = menu->focusWidget();
    return enfocado != nullptr ? enfocado->objectName() : QString();
}

QStringList MesaDDJJ::habilitados(std::initializer_list<const char*> nombres) const
{
    QStringList lista;
    for (const char* nombre : nombres)
    {
        if (control<QWidget>(nombre).isEnabled())
        {
            lista.append(QString::fromLatin1(nombre));
        }
    }
    return lista;
}

bool MesaDDJJ::cerrar() const
{
    qobject_cast<QMdiSubWindow*>(pantalla()->parentWidget())->close();
    Entrada::asentar();
    return pantalla() == nullptr;
}

QString MesaDDJJ::escribirArchivo(const QString& nombre, const QByteArray& contenido) const
{
    QFile archivo(base.ruta(nombre));
    EXPECT_TRUE(archivo.open(QIODevice::WriteOnly));
    EXPECT_EQ(contenido.size(), archivo.write(contenido));
    return archivo.fileName();
}

QByteArray MesaDDJJ::leerArchivo(const QString& nombre) const
{
    QFile archivo(base.ruta(nombre));
    EXPECT_TRUE(archivo.open(QIODevice::ReadOnly)) << nombre.toStdString();
    return archivo.readAll();
}

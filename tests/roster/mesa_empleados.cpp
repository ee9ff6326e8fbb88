#include "mesa_empleados.h"

#include "apoyo/entrada.h"
#include "platform/screens/contenedores.h"
#include "platform/screens/error_fatal.h"
#include "platform/screens/estilo.h"
#include "platform/screens/grilla.h"
#include "platform/screens/navegacion.h"
#include "roster/screens/empleados.h"
#include "roster/screens/grilla_familiar.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace
{
const QString tituloDeLaPantalla = QStringLiteral("B.R.I.V.O. Zona Sauce - Nómina de Empleados");
} // namespace

MesaEmpleados::MesaEmpleados()
{
    reemplazarFinDelProceso([this](int) { ++fines; });
    QApplication::setKeyboardInputInterval(0); // a list is searched by its first letter, however fast the keys come
    agregar(conexion(), EmpresaDePrueba());
    agregar(conexion(), DeclaracionDePrueba());
    Rutinas::CuitActual = dePrueba::cuit;
    Rutinas::EmpresaActual = QStringLiteral("Panadería Ñandú");
    Rutinas::PeriodoActual = dePrueba::periodo;
    Rutinas::SecuenciaActual = 0;
}

MesaEmpleados::~MesaEmpleados()
{
    m_ventana.reset();
    Entrada::asentar();
    reemplazarFinDelProceso({});
    EXPECT_EQ(0, fines) << "the program was to end";
}

void MesaEmpleados::abrir()
{
    auto* nueva = new Empleados;
    {
        const Validacion::Pausa pausa;
        nueva->cargar();
    }
    m_ventana = std::make_unique<VentanaModal>(nueva, nullptr);
    m_ventana->resize(m_ventana->sizeHint());
    Entrada::activar(*m_ventana);
    nueva->activar();
    Entrada::asentar();
}

bool MesaEmpleados::abierta() const
{
    return m_ventana && m_ventana->isVisible();
}

Empleados& MesaEmpleados::pantalla() const
{
    return *qobject_cast<Empleados*>(m_ventana->pantalla());
}

QString MesaEmpleados::titulo() const
{
    const QString entero = m_ventana->windowTitle();
    EXPECT_TRUE(entero.startsWith(tituloDeLaPantalla)) << entero.toStdString();
    return entero.mid(tituloDeLaPantalla.size());
}

int MesaEmpleados::pagina() const
{
    return control<QTabWidget>("SSTab1").currentIndex();
}

void MesaEmpleados::irAPagina(int numero) const
{
    auto* barra = control<QTabWidget>("SSTab1").tabBar();
    Entrada::pulsar(*barra, barra->tabRect(numero).center());
}

QWidget* MesaEmpleados::buscar(const char* nombre) const
{
    QString objeto = QString::fromLatin1(nombre);
    objeto.replace(QLatin1Char('('), QLatin1Char('_')).remove(QLatin1Char(')'));
    return m_ventana ? m_ventana->findChild<QWidget*>(objeto) : nullptr;
}

QString MesaEmpleados::texto(const char* nombre) const
{
    auto& uno = control<QWidget>(nombre);
    if (const auto* linea = qobject_cast<QLineEdit*>(&uno))
    {
        return linea->displayText();
    }
    const auto* lista = qobject_cast<QComboBox*>(&uno);
    return lista != nullptr ? lista->currentText() : uno.property("text").toString();
}

QStringList MesaEmpleados::textos(std::initializer_list<const char*> nombres) const
{
    QStringList todos;
    for (const char* nombre : nombres)
    {
        todos.append(texto(nombre));
    }
    return todos;
}

bool MesaEmpleados::activo(const char* nombre) const
{
    return control<QWidget>(nombre).isEnabled();
}

QString MesaEmpleados::foco() const
{
    const QWidget* enfocado = m_ventana->focusWidget();
    return enfocado != nullptr ? enfocado->objectName() : QString();
}

GrillaFamiliar& MesaEmpleados::familia() const
{
    return control<GrillaFamiliar>("vsFamiliares");
}

QStringList MesaEmpleados::familiares() const
{
    QStringList filas;
    for (int fila = 1; fila <= familia().filas(); ++fila)
    {
        QStringList celdas;
        for (int columna = 1; columna <= familia().columnas(); ++columna)
        {
            celdas.append(familia().texto(columna, fila));
        }
        filas.append(celdas.join(QLatin1Char('|')));
    }
    return filas;
}

int MesaEmpleados::amarilla() const
{
    int cual = 0;
    for (int fila = 1; fila <= familia().filas(); ++fila)
    {
        if (familia().colorDeFila(fila) == Grilla::amarillo)
        {
            cual = cual == 0 ? fila : -1;
        }
    }
    return cual;
}

void MesaEmpleados::pulsar(const char* nombre) const
{
    auto& uno = control<QWidget>(nombre);
    ASSERT_TRUE(uno.isVisible()) << nombre;
    Entrada::pulsar(uno);
}

void MesaEmpleados::tecla(Qt::Key una, Qt::KeyboardModifiers con)
{
    ++teclas;
    Entrada::tecla(una, con);
}

void MesaEmpleados::teclear(const QString& texto)
{
    for (const QChar letra : texto)
    {
        if (letra == QLatin1Char('\n'))
        {
            tecla(Qt::Key_Return);
        }
        else if (letra == QLatin1Char('\t'))
        {
            tecla(Qt::Key_Tab);
        }
        else
        {
            ++teclas;
            QWindow* ventana = QGuiApplication::focusWindow();
            ASSERT_NE(ventana, nullptr) << "no window has the focus";
            QTest::sendKeyEvent(QTest::Click, ventana, Qt::Key_unknown, QString(letra), Qt::NoModifier);
            Entrada::asentar();
        }
    }
}

void MesaEmpleados::escribir(const char* nombre, const QString& texto)
{
    auto& campo = control<QWidget>(nombre);
    ASSERT_TRUE(campo.isEnabled()) << nombre;
    Entrada::pulsar(campo);
    tecla(Qt::Key_A, Qt::ControlModifier);
    tecla(Qt::Key_Delete);
    teclear(texto);
}

void MesaEmpleados::pegar(const char* nombre, const QString& texto)
{
    QApplication::clipboard()->setText(texto);
    Entrada::pulsar(control<QWidget>(nombre));
    tecla(Qt::Key_A, Qt::ControlModifier);
    tecla(Qt::Key_V, Qt::ControlModifier);
}

QString MesaEmpleados::guardado(const char* columna, const QString& cuil) const
{
    const Recordset filas =
        conexion().consultar(std::string("SELECT ") + columna +
                                 " FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND Secuencia = 0 AND Cuil = ?",
                             dePrueba::cuit, dePrueba::periodo, cuil);
    return filas.vacio() ? QStringLiteral("(no row)") : filas.primera().texto(columna);
}

qint64 MesaEmpleados::contar(const char* sql) const
{
    return conexion().consultar(std::string("SELECT count(*) AS n FROM ") + sql).primera().entero("n");
}

QString cuilDe(int documento)
{
    const QString ocho = QString::number(documento).rightJustified(8, QLatin1Char('0'));
    for (const qint64 prefijo : {20, 27, 23, 24})
    {
        const quint8 digito = Rutinas::CalcularDV(prefijo * 100000000 + documento);
        if (digito < 10)
        {
            return QStringLiteral("%1-%2-%3").arg(prefijo).arg(ocho).arg(digito);
        }
    }
    throw std::invalid_argument("no check digit for any prefix");
}

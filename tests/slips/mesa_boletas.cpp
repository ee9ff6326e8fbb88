#include "mesa_boletas.h"

#include "apoyo/entrada.h"
#include "apoyo/rutas.h"
#include "companies/screens/buscar_empresa.h"
#include "platform/data/reloj.h"
#include "platform/screens/informe_vista.h"
#include "platform/screens/navegacion.h"
#include "slips/screens/boletas.h"

#include <QApplication>
#include <QComboBox>
#include <QFile>
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
} // namespace

MesaBoletas::MesaBoletas()
{
    Reloj::reemplazar([] { return QDateTime(QDate(2009, 6, 10), QTime(10, 0)); });
    for (const char* nombre : {"RptBoleta0.rpt", "RptBoleta1.rpt", "RptBoleta2.rpt", "PF_I2OF5.ttf"})
    {
        const QString archivo = QString::fromLatin1(nombre);
        EXPECT_TRUE(QFile::copy(rutas::enInstalacion(archivo), base.ruta(archivo))) << nombre;
    }
    auto& navegacion = Navegacion::instancia();
    navegacion.registrar(QStringLiteral("Boletas"), [] { return new Boletas; });
    navegacion.registrar(QStringLiteral("BuscarEmpresa"), [] { return new BuscarEmpresa; });
    navegacion.registrar(QStringLiteral("Otra"), [] { return new OtraPantalla; });
}

MesaBoletas::~MesaBoletas()
{
    cerrarVistas();
    Reloj::reemplazar({});
}

void MesaBoletas::abrir(int tipo, int secuencia)
{
    Rutinas::ModoAbrir = static_cast<quint8>(tipo);
    Rutinas::CuitActual = dePrueba::cuit;
    Rutinas::PeriodoActual = dePrueba::periodo;
    Rutinas::SecuenciaActual = static_cast<quint8>(secuencia);
    Rutinas::CantidadEmpleados = 3;
    Rutinas::CantidadAfiliados = 2;
    Mesa::abrir("Boletas");
}

void MesaBoletas::abrirDelMenu()
{
    Rutinas::ModoAbrir = 2;
    Rutinas::CuitActual.clear();
    Mesa::abrir("Boletas");
}

void MesaBoletas::irYVolver()
{
    Mesa::abrir("Otra");
    Mesa::abrir("Boletas");
}

Boletas* MesaBoletas::pantalla()
{
    return qobject_cast<Boletas*>(Navegacion::instancia().abierta(QStringLiteral("Boletas")));
}

QStringList MesaBoletas::textos(std::initializer_list<const char*> nombres)
{
    QStringList lista;
    for (const char* nombre : nombres)
    {
        lista.append(texto(nombre));
    }
    return lista;
}

QString MesaBoletas::marco(const char* nombre)
{
    return control(nombre).property("title").toString();
}

bool MesaBoletas::visible(const char* nombre)
{
    return control(nombre).isVisible();
}

void MesaBoletas::poner(const char* nombre, const char* texto)
{
    escribir(nombre, texto);
    Entrada::tecla(Qt::Key_Tab);
}

void MesaBoletas::elegirFondo(int posicion)
{
    pulsar("cmbConcepto"); // drops the list down
    Entrada::tecla(Qt::Key_Home);
    for (int i = 0; i < posicion; ++i)
    {
        Entrada::tecla(Qt::Key_Down);
    }
    Entrada::tecla(Qt::Key_Return);
    ASSERT_EQ(dynamic_cast<QComboBox&>(control("cmbConcepto")).currentIndex(), posicion);
}

void MesaBoletas::generar(bool si)
{
    cajas.esperaPregunta(QStringLiteral("Desea Generar la Boleta Correspondiente?"), si);
    pulsar("cmdBoletas");
}

int MesaBoletas::amarilla()
{
    const QList<int> todas = amarillas("vsActas");
    return todas.size() > 1 ? -1 : todas.value(0);
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

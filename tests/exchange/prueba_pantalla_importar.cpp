#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/entrada.h"
#include "exchange/screens/importar.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <gtest/gtest.h>

namespace
{
const QString sinArchivo = QStringLiteral("Debe seleccionar el Nombre y la Ubicación del Archivo de Texto a Importar.");
const QString sinFormato = QStringLiteral("Debe seleccionar el Formato correspondiente del Archivo Seleccionado.");
const QString seguro =
    QStringLiteral("Está seguro que desea Importar los Datos de la DDJJ desde el Achivo Seleccionado?");

class PantallaImportar : public testing::Test
{
protected:
    PantallaImportar() { Entrada::activar(pantalla); }
    template <class W>
    [[nodiscard]] W& control(const char* nombre)
    {
        return *pantalla.findChild<W*>(QString::fromLatin1(nombre));
    }
    void pulsar(const char* nombre) { Entrada::pulsar(control<QWidget>(nombre)); }
    [[nodiscard]] QString origen() { return control<QLineEdit>("txtOrigen").text(); }

    BaseDePrueba base;
    CajasDePrueba cajas;
    Importar pantalla;
};
} // namespace

TEST_F(PantallaImportar, PideTodoEnSuOrdenYDevuelveLaRespuesta)
{
    EXPECT_EQ(QStringLiteral("B.R.I.V.O. Zona Sauce - Importar DDJJ"), pantalla.windowTitle());
    cajas.espera(Caja::Informacion, sinArchivo);
    pulsar("cmdOK");
    cajas.archivo(QStringLiteral("/datos/nomina.txt"));
    pulsar("cmdExaminar");
    EXPECT_EQ(QStringLiteral("Seleccione el Archivo a Importar"), cajas.archivosPedidos().back().titulo);
    EXPECT_EQ(QStringLiteral("/datos/nomina.txt"), origen());
    cajas.espera(Caja::Informacion, sinFormato);
    pulsar("cmdOK");
    pulsar("optFormato_0");
    pulsar("optFormato_1");
    cajas.esperaPregunta(seguro, false);
    pulsar("cmdOK");
    EXPECT_FALSE(pantalla.cerrada());
    EXPECT_EQ(QString(), Rutinas::TextoDevuelto);
    cajas.esperaPregunta(seguro, true);
    pulsar("cmdOK");
    EXPECT_TRUE(pantalla.cerrada());
    EXPECT_EQ(QStringLiteral("/datos/nomina.txt"), Rutinas::TextoDevuelto);
    EXPECT_EQ(1, Rutinas::FormatoImportar);
}

TEST_F(PantallaImportar, RutaTecleadaYPrimerFormato)
{
    pulsar("txtOrigen");
    Entrada::escribir(QStringLiteral("C:\\nomina.txt"));
    cajas.archivo(QString()); // a cancelled dialog changes nothing
    pulsar("cmdExaminar");
    EXPECT_EQ(QStringLiteral("C:\\nomina.txt"), origen());
    pulsar("optFormato_0");
    Rutinas::FormatoImportar = 1;
    cajas.esperaPregunta(seguro, true);
    pulsar("cmdOK");
    EXPECT_EQ(QStringLiteral("C:\\nomina.txt"), Rutinas::TextoDevuelto);
    EXPECT_EQ(0, Rutinas::FormatoImportar);
}

TEST_F(PantallaImportar, SalirNoDevuelveNada)
{
    cajas.archivo(QStringLiteral("/datos/nomina.txt"));
    pulsar("cmdExaminar");
    pulsar("optFormato_1");
    pulsar("cmdSalir");
    EXPECT_TRUE(pantalla.cerrada());
    EXPECT_EQ(QString(), Rutinas::TextoDevuelto);
    EXPECT_EQ(0, Rutinas::FormatoImportar);
}

// What the screen hands to other screens, the import and the text file.
#include "apoyo/entrada.h"
#include "core/rutinas.h"
#include "datos_ddjj.h"
#include "mesa_ddjj.h"
#include "platform/data/archivos.h"
#include "platform/data/error_de_ejecucion.h"
#include "platform/screens/navegacion.h"
#include "platform/screens/trabajo_largo.h"

#include <QFile>
#include <QTabWidget>
#include <gtest/gtest.h>

namespace
{
const QDate mayo(2009, 5, 1);
const QString nombreDelArchivo = QStringLiteral("30-12345678-1 2009-05 01.txt");

class MandosDDJJ : public testing::Test
{
protected:
    MandosDDJJ()
    {
        agregarEmpresa(c, cuitUno, QStringLiteral("Del Norte"));
        agregarDeclaracion(c, clave);
        Rutinas::CuitActual.clear();
        Rutinas::PeriodoActual = {};
        Rutinas::SecuenciaActual = 77;
        Rutinas::ModoAbrir = 77;
    }
    void abrirYElegir()
    {
        mesa.abrir();
        mesa.pulsarFila(1);
    }
    [[nodiscard]] static qsizetype avisos() { return Navegacion::instancia().avisos().size(); }

    const ClaveDDJJ clave{cuitUno, mayo, 1};
    MesaDDJJ mesa;
    Conexion& c = mesa.conexion();
};
} // namespace

TEST_F(MandosDDJJ, SinDeclaracionCallan)
{
    mesa.abrir();
    const auto antes = avisos();
    mesa.pulsar("cmdNomina");
    mesa.pulsar("cmdSueldos");
    mesa.pagina(2);
    for (const char* mando : {"cmdInformes(0)", "cmdInformes(1)", "cmdInformes(2)"})
    {
        mesa.pulsar(mando);
    }
    mesa.pagina(1);
    for (const char* mando : {"cmdBoletas(0)", "cmdBoletas(1)", "cmdBoletas(3)"})
    {
        mesa.pulsar(mando);
    }
    EXPECT_EQ(antes, avisos());
    EXPECT_EQ(77, Rutinas::ModoAbrir);
    mesa.pulsar("cmdBoletas(2)"); // acts need no declaration
    EXPECT_EQ(2, Rutinas::ModoAbrir);
    EXPECT_EQ(cuitUno, Rutinas::CuitActual);
    EXPECT_EQ(0, Rutinas::SecuenciaActual);
    EXPECT_EQ(0, Rutinas::CantidadEmpleados);
}

TEST_F(MandosDDJJ, LaNominaSeAbreSobreLaDeclaracionYAlVolverSeSuma)
{
    abrirYElegir();
    mesa.fugaces.registrar(QStringLiteral("Empleados"),
                           [&]
                           {
                               EXPECT_EQ(cuitUno, Rutinas::CuitActual);
                               EXPECT_EQ(QStringLiteral("Del Norte"), Rutinas::EmpresaActual);
                               EXPECT_EQ(mayo, Rutinas::PeriodoActual);
                               EXPECT_EQ(1, Rutinas::SecuenciaActual);
                               agregarEmpleado(c, clave, {.imponible = "12,5"});
                           });
    mesa.pulsar("cmdNomina");
    EXPECT_EQ(QStringLiteral("$ 12,50"), mesa.texto("txtImporte(0)"));
}

TEST_F(MandosDDJJ, BoletasExigeNominaYRecuerdaLaRectificativa)
{
    abrirYElegir();
    mesa.pagina(1);
    for (const char* mando : {"cmdBoletas(0)", "cmdBoletas(3)"})
    {
        mesa.pagina(1);
        mesa.cajas.espera(Caja::Exclamacion, QStringLiteral("Debe ingresar primero la Nómina de Empleados."));
        mesa.pulsar(mando);
        EXPECT_EQ(QStringLiteral("cmdNomina"), mesa.foco());
    }
    agregarEmpleado(c, clave);
    agregarEmpleado(c, clave, {.cuil = "27-00000002-1", .afiliado = false});
    mesa.pulsarFila(1);
    mesa.pagina(1);
    mesa.cajas.esperaQueDiga(Caja::Informacion, QStringLiteral("una Boleta Rectificativa (Secuencia 1, 2, 3)"));
    mesa.pulsar("cmdBoletas(0)");
    EXPECT_EQ(0, Rutinas::ModoAbrir);
    EXPECT_EQ(1, Rutinas::SecuenciaActual);
    EXPECT_EQ(mayo, Rutinas::PeriodoActual);
    EXPECT_EQ(2, Rutinas::CantidadEmpleados);
    EXPECT_EQ(1, Rutinas::CantidadAfiliados);
    mesa.pulsar("cmdBoletas(1)");
    EXPECT_EQ(1, Rutinas::ModoAbrir);

    mesa.cajas.esperaPregunta(QStringLiteral("Debe enviar la Declaración Jurada seleccionada?"), false);
    mesa.pulsar("cmdBoletas(3)");
    EXPECT_FALSE(QFile::exists(mesa.base.ruta(nombreDelArchivo)));
}

TEST_F(MandosDDJJ, ImportarNecesitaPeriodoYArchivo)
{
    mesa.abrir();
    for (const char* mando : {"cmdImportar", "cmdCopiar"})
    {
        mesa.cajas.espera(Caja::Exclamacion, QStringLiteral("Debe dar de Alta primero el Periodo Correspondiente."));
        mesa.pulsar(mando);
    }
    mesa.pulsarFila(1);
    Rutinas::TextoDevuelto = QStringLiteral("de antes");
    mesa.fugaces.registrar(QStringLiteral("Importar"), [] {});
    mesa.pulsar("cmdImportar"); // cancelled: no box
    EXPECT_EQ(0, contar(c, "DDJJ_Empleados"));
}

TEST_F(MandosDDJJ, ImportaYMuestraLosTotales)
{
    const QByteArray linea = QByteArray("20123456786PEREZ JUAN").leftJustified(41) + " 02" + QByteArray(13, ' ') +
                             "001" + QByteArray(9, ' ') + "    1200,00" + "    1000,00";
    const QString archivo = mesa.escribirArchivo(QStringLiteral("nomina.txt"), linea + "\r\n");
    mesa.fugaces.registrar(QStringLiteral("Importar"),
                           [&]
                           {
                               Rutinas::TextoDevuelto = archivo;
                               Rutinas::FormatoImportar = 0;
                           });
    abrirYElegir();
    mesa.cajas.espera(Caja::Exclamacion, QStringLiteral("Se han ingresado 1 Registros Titulares.  Por favor, "
                                                        "complete los datos faltantes."));
    mesa.pulsar("cmdImportar");
    EXPECT_EQ(QStringLiteral("$ 1.200,00"), mesa.texto("txtImporte(0)"));
    EXPECT_EQ(QStringLiteral("2"), mesa.texto("txtCantidad(2)"));
    EXPECT_FALSE(Puntero::estaOcupado());

    mesa.cajas.espera(Caja::Exclamacion, QStringLiteral("No se ha actualizado ningún Registro.  Por favor, verifique "
                                                        "los datos ingresados."));
    mesa.pulsar("cmdImportar");
}

TEST_F(MandosDDJJ, UnaImportacionFallidaDejaElArchivoAbiertoYElPunteroOcupado)
{
    const QString archivo = mesa.escribirArchivo(QStringLiteral("mala.txt"), "20123456786PEREZ JUAN\r\n");
    mesa.fugaces.registrar(QStringLiteral("Importar"), [&] { Rutinas::TextoDevuelto = archivo; });
    abrirYElegir();
    mesa.cajas.esperaQueDiga(Caja::Simple, QStringLiteral("13 - "));
    mesa.pulsar("cmdImportar");
    EXPECT_EQ(0, contar(c, "DDJJ_Empleados"));
    EXPECT_FALSE(c.enTransaccion());
    EXPECT_TRUE(Puntero::estaOcupado());
    EXPECT_TRUE(Archivos::abierto(1));

    mesa.cajas.esperaQueDiga(Caja::Simple, QStringLiteral("55 - "));
    mesa.pulsar("cmdImportar");
    mesa.pagina(2); // the text file stumbles over it too, and closes it
    mesa.cajas.esperaQueDiga(Caja::Informacion, QStringLiteral("Error: 55 - "));
    mesa.pulsar("cmdInformes(2)");
    EXPECT_EQ(QStringLiteral("Error de Apertura"), mesa.cajas.vistas().back().titulo);
    EXPECT_FALSE(Archivos::abierto(1));
}

TEST_F(MandosDDJJ, GuardaElArchivoDondeSePide)
{
    abrirYElegir();
    mesa.pagina(2);
    const QString copia = mesa.base.ruta(QStringLiteral("copia.txt"));
    mesa.cajas.archivo(copia);
    mesa.cajas.espera(Caja::Informacion,
                      QStringLiteral("El Archivo correspondiente ha sido grabado en la Ubicación especificada."));
    mesa.pulsar("cmdInformes(2)");
    EXPECT_EQ(QStringLiteral("Guardar como"), mesa.cajas.archivosPedidos().back().titulo);
    EXPECT_EQ(nombreDelArchivo, mesa.cajas.archivosPedidos().back().nombreInicial);
    EXPECT_EQ(mesa.leerArchivo(nombreDelArchivo), mesa.leerArchivo(QStringLiteral("copia.txt")));
    EXPECT_TRUE(mesa.leerArchivo(QStringLiteral("copia.txt"))
                    .startsWith("030-12345678-1200905"
                                "01Del Norte"));

    mesa.cajas.archivo(mesa.base.ruta(QStringLiteral("no/hay.txt")));
    mesa.cajas.esperaQueDiga(Caja::Simple, QStringLiteral(" - (76)"));
    mesa.pulsar("cmdInformes(2)");
}

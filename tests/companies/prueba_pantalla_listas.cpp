// The two grids of the companies' screen.
#include "apoyo/entrada.h"
#include "companies/empresa.h"
#include "companies/responsables.h"
#include "companies/sucursales.h"
#include "datos_empresa.h"
#include "mesa_empresas.h"
#include "platform/screens/grilla.h"

#include <gtest/gtest.h>

namespace
{
const QString preguntaGrabar = QStringLiteral("Esta seguro de desea Grabar los Datos ingresados?");

struct GrillasDeEmpresas : testing::Test
{
    MesaEmpresas mesa;
    CajasDePrueba& cajas = mesa.cajas;
    Conexion& conexion = mesa.conexion();
    qint64 primera = 0;

    GrillasDeEmpresas()
    {
        conexion.ejecutar("INSERT OR IGNORE INTO Rubros (Codigo, Nombre) VALUES ('522120', 'Panaderías')");
        sembrarEmpresa(conexion);
        primera = sembrarSucursal(conexion, cuitUno, QStringLiteral("1"), QStringLiteral("Berisso"));
        sembrarSucursal(conexion, cuitUno, QStringLiteral("2"), QStringLiteral("Ensenada"));
        mesa.abrir();
        mesa.pulsar("CmdABM_1");
    }
    void grabar()
    {
        cajas.esperaPregunta(preguntaGrabar, true);
        mesa.pulsar("CmdActualiza");
    }
    void sucursal(int fila, const char* codigo, const char* calle, const char* numero, const char* localidad) const
    {
        mesa.pulsarCelda("vsSucursales", 2, fila);
        for (const char* dato : {codigo, calle, numero, localidad})
        {
            Entrada::escribir(QString::fromLatin1(dato));
            Entrada::tecla(Qt::Key_Return);
        }
    }
};
} // namespace

TEST_F(GrillasDeEmpresas, LasFilasSeAgreganTrasUnaUsadaYSePintanDeAUna)
{
    EXPECT_EQ(mesa.amarillas("vsSucursales"), QList<int>());
    mesa.pulsarCelda("vsSucursales", 3, 1);
    mesa.pulsarCelda("vsSucursales", 3, 3);
    EXPECT_EQ(mesa.amarillas("vsSucursales"), QList<int>{3});
    for (const Qt::Key tecla : {Qt::Key_Down, Qt::Key_Insert})
    {
        Entrada::tecla(tecla); // the last row has no code
        EXPECT_EQ(mesa.filas("vsSucursales").size(), 3);
    }
    mesa.celda("vsSucursales", 3, 3, "Calle sola"); // nor does another cell count
    mesa.pulsarCelda("vsSucursales", 3, 3);
    Entrada::tecla(Qt::Key_Down);
    EXPECT_EQ(mesa.filas("vsSucursales").size(), 3);
    mesa.celda("vsSucursales", 2, 3, "7");
    mesa.pulsarCelda("vsSucursales", 2, 3);
    Entrada::tecla(Qt::Key_Down);
    EXPECT_EQ(mesa.filas("vsSucursales").size(), 4);
    EXPECT_EQ(mesa.grilla("vsSucursales").filaActual(), 4);
    EXPECT_EQ(mesa.amarillas("vsSucursales"), QList<int>{4});
    mesa.pulsar("txtRazon"); // leaving the grid paints nothing
    EXPECT_EQ(mesa.amarillas("vsSucursales"), QList<int>{4});

    mesa.celda("vsResponsables", 1, 1, "Alguien");
    mesa.pulsarCelda("vsResponsables", 1, 1);
    Entrada::tecla(Qt::Key_Insert);
    EXPECT_EQ(mesa.filas("vsResponsables").size(), 2);
}

TEST_F(GrillasDeEmpresas, LoTipeadoSeGraba)
{
    sucursal(3, "10", "O'Higgins", "45", "Gonnet");
    mesa.celda("vsSucursales", 3, 1, "Otra calle");
    mesa.celda("vsResponsables", 1, 1, "Perez D'Elia");
    mesa.celda("vsResponsables", 2, 1, "DNI");
    mesa.celda("vsResponsables", 3, 1, "12345678");
    grabar();
    const auto sucursales = cargarSucursales(conexion, cuitUno);
    ASSERT_EQ(sucursales.size(), 3U);
    EXPECT_EQ(sucursales[0].id, primera);
    EXPECT_EQ(sucursales[0].domicilio, QStringLiteral("Otra calle"));
    EXPECT_EQ(sucursales[1].sucursal, QStringLiteral("10"));
    EXPECT_EQ(sucursales[1].domicilio, QStringLiteral("O'Higgins"));
    EXPECT_EQ(sucursales[1].numero, 45);
    const auto responsables = cargarResponsables(conexion, cuitUno);
    ASSERT_EQ(responsables.size(), 1U);
    EXPECT_EQ(responsables[0].ayn, QStringLiteral("Perez D'Elia"));
    EXPECT_EQ(responsables[0].nroDoc, 12345678);
    EXPECT_EQ(mesa.filas("vsSucursales").size(), 3); // the data stay as they were typed
    mesa.pulsar("CmdABM_1");
    mesa.pulsarCelda("vsSucursales", 3, 2);
    EXPECT_EQ(mesa.amarillas("vsSucursales"), QList<int>{2}); // none is left from the last time
}

TEST_F(GrillasDeEmpresas, LaCeldaEnEdicionTambienSeGraba)
{
    mesa.pulsarCelda("vsSucursales", 3, 1);
    Entrada::escribir(QStringLiteral("Sin Enter"));
    grabar();
    EXPECT_EQ(cargarSucursales(conexion, cuitUno)[0].domicilio, QStringLiteral("Sin Enter"));
}

TEST_F(GrillasDeEmpresas, SucursalEnUsoBorradaEnLaGrilla)
{
    sembrarEmpleado(conexion, cuitUno, primera);
    mesa.escribir("txtRazon", "Cambiada");
    mesa.pulsarCelda("vsSucursales", 2, 1);
    Entrada::tecla(Qt::Key_Delete);
    EXPECT_EQ(mesa.filas("vsSucursales").size(), 2);
    cajas.esperaPregunta(preguntaGrabar, true)
        .espera(Caja::Exclamacion,
                QStringLiteral("Error - No se puede Eliminar la Sucursal 1 - Calle 60 10 - Berisso.  "
                               "Tiene Empleados asignados a dicha Sucursal."));
    mesa.pulsar("CmdActualiza");
    EXPECT_TRUE(mesa.activo("CmdActualiza"));
    EXPECT_EQ(mesa.filas("vsSucursales").size(), 2); // the row stays gone
    EXPECT_EQ(cargarEmpresa(conexion, cuitUno), empresaCompleta());
    EXPECT_EQ(cargarSucursales(conexion, cuitUno).size(), 2U);
}

TEST_F(GrillasDeEmpresas, BorradasTodasQuedaUnaFilaVaciaYNingunaSucursal)
{
    mesa.pulsarCelda("vsSucursales", 2, 1);
    for (int i = 0; i < 5; ++i)
    {
        Entrada::tecla(Qt::Key_Delete);
    }
    EXPECT_EQ(mesa.filas("vsSucursales"), QStringList{QStringLiteral("|||||")});
    grabar();
    EXPECT_EQ(cargarSucursales(conexion, cuitUno).size(), 0U);
}

TEST_F(GrillasDeEmpresas, RechazosYErroresDejanElEstado)
{
    mesa.celda("vsSucursales", 2, 3, "3");
    cajas.esperaPregunta(preguntaGrabar, true)
        .espera(Caja::Exclamacion,
                QStringLiteral("Los datos de las Sucursales están incompletos.  Por favor, verifique los mismos (Nro. "
                               "de Sucursal, Domicilio y Localidad)."));
    mesa.pulsar("CmdActualiza");
    mesa.celda("vsSucursales", 3, 3, "Calle 3");
    mesa.celda("vsSucursales", 5, 3, "Gonnet");
    cajas.esperaPregunta(preguntaGrabar, true).esperaQueDiga(Caja::Simple, QStringLiteral("13 "));
    mesa.pulsar("CmdActualiza"); // its number is missing
    mesa.celda("vsSucursales", 4, 3, "0");
    mesa.celda("vsResponsables", 1, 1, "Alguien");
    cajas.esperaPregunta(preguntaGrabar, true)
        .espera(Caja::Exclamacion, QStringLiteral("Los datos de los Responsables están incompletos.  Por favor, "
                                                  "verifique los mismos."));
    mesa.pulsar("CmdActualiza");
    EXPECT_TRUE(mesa.activo("CmdActualiza"));
    EXPECT_EQ(cargarSucursales(conexion, cuitUno).size(), 2U);
    EXPECT_EQ(contar(conexion, "FROM Empresas_Sucursales WHERE Marca <> 0"), 0);
}

TEST_F(GrillasDeEmpresas, LaRecienEntradaEsNuevaHastaCargarLaEmpresa)
{
    sucursal(3, "3", "Calle 3", "3", "Gonnet");
    grabar();
    const qint64 id = cargarSucursales(conexion, cuitUno)[2].id;
    mesa.pulsar("CmdABM_1");
    mesa.celda("vsSucursales", 3, 3, "Calle 4");
    grabar();
    const auto filas = cargarSucursales(conexion, cuitUno);
    ASSERT_EQ(filas.size(), 3U);
    EXPECT_EQ(filas[2].domicilio, QStringLiteral("Calle 4"));
    EXPECT_NE(filas[2].id, id);
}

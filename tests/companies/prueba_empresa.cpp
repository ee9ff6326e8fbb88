#include "apoyo/base_de_prueba.h"
#include "apoyo/datos.h"
#include "companies/catalogos.h"
#include "companies/empresa.h"
#include "core/lista_empresas.h"
#include "empresa_completa.h"

#include <gtest/gtest.h>

namespace
{
struct PruebaEmpresa : testing::Test
{
    BaseDePrueba base;
    Conexion& conexion = base.conexion();
};
} // namespace

TEST_F(PruebaEmpresa, UnaProvinciaQueNoEstaEnLaListaNoEsNinguna)
{
    poner("Empresas", {{"Provincia", 77}});
    EXPECT_EQ("", cargarEmpresa(conexion, cuitUno).value().nombreProvincia);
    conexion.ejecutar("UPDATE Empresas SET Provincia = NULL");
    EXPECT_EQ("", cargarEmpresa(conexion, cuitUno).value().nombreProvincia);
}

TEST_F(PruebaEmpresa, LaBajaTomaLasTresTablasDeEsaEmpresaSolaOTodoQueda)
{
    for (const QString& cuit : {cuitUno, cuitDos})
    {
        poner("Empresas", {{"CUIT", cuit}});
        poner("Empresas_Sucursales", {{"CUIT", cuit}});
        poner("Empresas_Responsables", {{"CUIT", cuit}});
    }
    poner("PAGOS");
    EXPECT_EQ(ImpedimentoDeBaja::Pagos, eliminarEmpresa(conexion, cuitUno));
    poner("DDJJ");
    EXPECT_EQ(ImpedimentoDeBaja::Declaraciones, eliminarEmpresa(conexion, cuitUno));
    EXPECT_EQ(2, cuantos("Empresas"));
    conexion.ejecutar("DELETE FROM DDJJ");
    conexion.ejecutar("DELETE FROM PAGOS");

    EXPECT_EQ("", fueraDeTransaccion([&] { (void)eliminarEmpresa(conexion, cuitUno); }));
    EXPECT_EQ("1|1|1", filas("SELECT (SELECT count(*) FROM Empresas) AS E, (SELECT count(*) FROM Empresas_Sucursales) "
                             "AS S, (SELECT count(*) FROM Empresas_Responsables) AS R"));
    EXPECT_EQ(cuitDos, cuitDeUnicaEmpresa(conexion));
    EXPECT_THROW((void)eliminarEmpresa(conexion, cuitUno), YaNoEsta);
}

TEST_F(PruebaEmpresa, CatalogosPorNombre)
{
    for (const Catalogo catalogo :
         {Catalogo::Provincias, Catalogo::Documentos, Catalogo::Categorias, Catalogo::Familiar, Catalogo::EstadoCivil})
    {
        const auto entradas = leerCatalogo(conexion, catalogo);
        ASSERT_GT(entradas.size(), 2U);
        for (std::size_t i = 1; i < entradas.size(); ++i)
        {
            EXPECT_LT(compararEspanol(entradas[i - 1].nombre.toStdString(), entradas[i].nombre.toStdString()), 0);
        }
        EXPECT_EQ(entradas.back().codigo, codigoDe(conexion, catalogo, entradas.back().nombre));
        EXPECT_EQ(std::nullopt, codigoDe(conexion, catalogo, "ninguno"));
    }
}

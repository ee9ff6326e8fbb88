#include "apoyo/base_de_prueba.h"
#include "apoyo/datos.h"
#include "companies/empresa.h"
#include "core/lista_empresas.h"
#include "core/vigencia.h"

#include <gtest/gtest.h>

namespace
{
const QString otroCuit = "30-50001091-2";

using PruebaEmpresa = ConBase;
} // namespace

TEST_F(PruebaEmpresa, LaBajaTomaLasTresTablasDeEsaEmpresaSolaOTodoQueda)
{
    for (const QString& cuit : {dePrueba::cuit, otroCuit})
    {
        poner("Empresas", {{"CUIT", cuit}});
        poner("Empresas_Sucursales", {{"CUIT", cuit}});
        poner("Empresas_Responsables", {{"CUIT", cuit}});
    }
    poner("PAGOS");
    EXPECT_EQ(ImpedimentoDeBaja::Pagos, eliminarEmpresa(conexion, dePrueba::cuit));
    poner("DDJJ");
    EXPECT_EQ(ImpedimentoDeBaja::Declaraciones, eliminarEmpresa(conexion, dePrueba::cuit));
    EXPECT_EQ(2, cuantos("Empresas"));
    conexion.ejecutar("DELETE FROM DDJJ");
    conexion.ejecutar("DELETE FROM PAGOS");

    EXPECT_EQ("", fueraDeTransaccion([&] { (void)eliminarEmpresa(conexion, dePrueba::cuit); }));
    EXPECT_EQ("1|1|1", filas("SELECT (SELECT count(*) FROM Empresas) AS E, (SELECT count(*) FROM Empresas_Sucursales) "
                             "AS S, (SELECT count(*) FROM Empresas_Responsables) AS R"));
    EXPECT_EQ(otroCuit, cuitDeUnicaEmpresa(conexion));
    EXPECT_THROW((void)eliminarEmpresa(conexion, dePrueba::cuit), YaNoEsta);
}

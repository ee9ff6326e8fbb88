#include "apoyo/base_de_prueba.h"
#include "apoyo/datos.h"
#include "companies/busqueda_empresa.h"
#include "companies/busqueda_rubro.h"
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

    [[nodiscard]] std::string razones(const char* cuit, const char* nombre) const
    {
        QStringList lista;
        for (const EmpresaHallada& hallada : buscarEmpresas(conexion, cuit, nombre))
        {
            lista += hallada.razon;
        }
        return lista.join(u';').toStdString();
    }
    [[nodiscard]] std::string rubros(const char* codigo, const char* nombre) const
    {
        QStringList lista;
        for (const RubroHallado& hallado : buscarRubros(conexion, codigo, nombre))
        {
            lista += hallado.codigo;
        }
        return lista.join(u';').toStdString();
    }
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
    EXPECT_EQ(ImpedimentoDeBaja::Declaraciones, impedimentoDeBaja(conexion, cuitUno));
    EXPECT_EQ(ImpedimentoDeBaja::Declaraciones, eliminarEmpresa(conexion, cuitUno));
    EXPECT_EQ(2, cuantos("Empresas"));
    conexion.ejecutar("DELETE FROM DDJJ");
    conexion.ejecutar("DELETE FROM PAGOS");

    conexion.ejecutar("CREATE TRIGGER traba BEFORE DELETE ON Empresas_Sucursales BEGIN SELECT RAISE(ABORT, 'no'); END");
    EXPECT_NE(0, numeroDe([&] { return eliminarEmpresa(conexion, cuitUno); }));
    EXPECT_EQ(2, cuantos("Empresas"));
    conexion.ejecutar("DROP TRIGGER traba");
    EXPECT_EQ("", fueraDeTransaccion([&] { (void)eliminarEmpresa(conexion, cuitUno); }));
    EXPECT_EQ("1|1|1", filas("SELECT (SELECT count(*) FROM Empresas) AS E, (SELECT count(*) FROM Empresas_Sucursales) "
                             "AS S, (SELECT count(*) FROM Empresas_Responsables) AS R"));
    EXPECT_EQ(cuitDos, cuitDeUnicaEmpresa(conexion));
    EXPECT_THROW((void)eliminarEmpresa(conexion, cuitUno), YaNoEsta);
}

TEST_F(PruebaEmpresa, EmpresasPorCuitYNombre)
{
    poner("Empresas", {{"CUIT", "20-12345678-6"}, {"Razon", "Panadería D'Angelo"}});
    poner("Empresas", {{"CUIT", cuitDos}, {"Razon", "Confitería 100% Ñoquis"}});
    poner("Empresas", {{"CUIT", "20-20202020-9"}, {"Razon", "Abasto y Panificación"}});
    const char* const vacio = "__-________-_";
    const std::tuple<const char*, const char*, const char*> casos[] = {
        {vacio, "", "Abasto y Panificación;Confitería 100% Ñoquis;Panadería D'Angelo"}, // the full list by name
        {vacio, "PAN", "Panadería D'Angelo;Abasto y Panificación"},                     // a narrowed one by CUIT
        {vacio, "ÑOQUIS", "Confitería 100% Ñoquis"},
        {vacio, "D'A", "Panadería D'Angelo"},
        {vacio, "D_A", "Panadería D'Angelo"}, // wild cards
        {vacio, "0%q", "Confitería 100% Ñoquis"},
        {vacio, "\\", ""},
        {"20-12345678-6", "pan", "Panadería D'Angelo"},
        {"20-12345678-6", "Abasto", ""},
        {"20-1_______-_", "", ""},
    };
    for (const auto& [cuit, nombre, esperadas] : casos)
    {
        EXPECT_EQ(esperadas, razones(cuit, nombre)) << cuit << ' ' << nombre;
    }
}

TEST_F(PruebaEmpresa, RubrosDesdeUnCodigo)
{
    conexion.ejecutar("DELETE FROM Rubros");
    conexion.ejecutar("INSERT INTO Rubros VALUES ('', 'Sin código'), ('10', 'Pan'), ('5', 'Panadería'), "
                      "('511', 'Fábrica de pan'), ('9', 'Otros')");
    const std::tuple<const char*, const char*, const char*> casos[] = {
        {"", "", "10;5;511;9"}, {"5", "", "5;511;9"},    {"", "pan", "10;5;511"},
        {"51", "PAN", "511"},   {"", "p_n", "10;5;511"}, {"'", "", "10;5;511;9"},
    };
    for (const auto& [codigo, nombre, esperados] : casos)
    {
        EXPECT_EQ(esperados, rubros(codigo, nombre)) << codigo << ' ' << nombre;
    }
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

// What the screen of the roster reads: one employee and his branch; and the delete.
#include "apoyo/base_de_prueba.h"
#include "apoyo/datos.h"
#include "roster/empleado.h"

#include <gtest/gtest.h>

namespace
{
using dePrueba::clave;
const QString sinCuil = "__-________-_";

using PruebaEmpleado = ConBase;
} // namespace

TEST_F(PruebaEmpleado, RecorreLaNominaPorElTextoDelCuil)
{
    for (const char* cuil : {"20-3", "20-1", "20-2"})
    {
        poner("DDJJ_Empleados", {{"Cuil", cuil}});
    }
    // Neighbours in the table that belong to other declarations.
    poner("DDJJ_Empleados", {{"Cuil", "20-0"}, {"Secuencia", 1}});
    poner("DDJJ_Empleados", {{"Cuil", "20-9"}, {"Periodo", "2009-06-01"}});
    using enum AccionEmpleado;
    // An emptied screen compares with the untouched mask, which as a text comes after every digit.
    const std::tuple<AccionEmpleado, QString, QString> pasos[] = {
        {Primero, "20-3", "20-1"},    {Inicio, "20-3", "20-1"},    {Ultimo, "20-1", "20-3"},
        {Siguiente, "20-1", "20-2"},  {Siguiente, "20-3", "none"}, {Anterior, "20-3", "20-2"},
        {Anterior, "20-1", "none"},   {Buscado, "20-2", "20-2"},   {Siguiente, "20-25", "20-3"},
        {Siguiente, sinCuil, "none"}, {Anterior, sinCuil, "20-3"}};
    const auto hallado = [&](AccionEmpleado accion, const QString& desde)
    {
        const auto empleado = cargarEmpleado(conexion, clave, accion, desde);
        return empleado ? empleado->cuil : "none";
    };
    for (const auto& [accion, desde, llega] : pasos)
    {
        EXPECT_EQ(llega, hallado(accion, desde)) << static_cast<int>(accion) << " from " << desde.toStdString();
    }
    EXPECT_EQ(2, lugarEnNomina(conexion, clave, "20-2").lugar);
    EXPECT_EQ(3, lugarEnNomina(conexion, clave, "20-2").total);
    conexion.ejecutar("DELETE FROM DDJJ_Empleados");
    EXPECT_EQ("none", hallado(Primero, sinCuil));
    const qint64 suya = poner("Empresas_Sucursales");
    EXPECT_TRUE(textoSucursal(conexion, suya, clave.cuit));
    EXPECT_FALSE(textoSucursal(conexion, suya, "20-1")) << "another company's";
}

TEST_F(PruebaEmpleado, LoQueNingunaListaTieneEsNadaYUnNuloSinPrevisionFalla)
{
    const auto cargar = [&] { return cargarEmpleado(conexion, clave, AccionEmpleado::Primero, sinCuil); };
    for (const std::string columna :
         {"NroDoc", "Numero", "QHoras", "Sucursal", "Imponible", "Acuerdo", "Acuerdo2", "ART100", "ART101A", "ART101B"})
    {
        poner("DDJJ_Empleados");
        conexion.ejecutar("UPDATE DDJJ_Empleados SET " + columna + " = NULL");
        EXPECT_EQ(ErrorDeEjecucion::UsoDeNull, numeroDe(cargar)) << columna;
        conexion.ejecutar("DELETE FROM DDJJ_Empleados");
    }
    poner("DDJJ_Empleados");
    conexion.ejecutar("UPDATE DDJJ_Empleados SET Sexo = NULL, Afiliado = NULL, Categoria = NULL, AyN = NULL, "
                      "Egreso = NULL");
    EXPECT_FALSE(cargar()->sexo);
    conexion.ejecutar(
        "UPDATE DDJJ_Empleados SET TipoDoc = 99, Provincia = 99, EstCivil = 99, Categoria = 99, Sexo = 5, "
        "Acuerdo = 202000, Acuerdo2 = 33000");
    const auto leido = cargar();
    EXPECT_FALSE(leido->documento || leido->provincia || leido->estadoCivil || leido->categoria || leido->sexo);
    EXPECT_EQ(Moneda::deTexto("23,50"), leido->acuerdo);
}

TEST_F(PruebaEmpleado, EliminarSoloLoQuitaDeEstaDeclaracionYDejaASusFamiliares)
{
    poner("DDJJ");
    poner("DDJJ_Empleados");
    poner("DDJJ_Empleados", {{"Secuencia", 1}});
    poner("Empleados_Familiares");
    const auto eliminar = [&] { eliminarEmpleado(conexion, clave, "20-12345678-6"); };
    EXPECT_EQ("", fueraDeTransaccion(eliminar));
    EXPECT_EQ("1", filas("SELECT Secuencia FROM DDJJ_Empleados"));
    EXPECT_EQ(1, cuantos("Empleados_Familiares"));
    EXPECT_THROW(eliminar(), EmpleadoEliminado);
    poner("DDJJ_Empleados");
    conexion.ejecutar("DELETE FROM DDJJ");
    EXPECT_THROW(eliminar(), YaNoEsta);
    EXPECT_EQ(2, cuantos("DDJJ_Empleados"));
}

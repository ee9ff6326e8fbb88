#include "apoyo/base_de_prueba.h"
#include "mesa_empleados.h"
#include "platform/data/error_de_ejecucion.h"
#include "roster/empleado.h"

#include <gtest/gtest.h>

namespace
{
const ClaveDDJJ clave{dePrueba::cuit, dePrueba::periodo, 0};
const QString sinCuil = QStringLiteral("__-________-_");

QString hallado(Conexion& conexion, AccionEmpleado accion, const QString& cuil = sinCuil)
{
    const auto empleado = cargarEmpleado(conexion, clave, accion, cuil);
    return empleado ? empleado->cuil : QStringLiteral("none");
}

/// The number of the error with which loading the one row fails; 0 when it loads.
int errorAlCargar(Conexion& conexion)
{
    try
    {
        (void)cargarEmpleado(conexion, clave, AccionEmpleado::Primero, sinCuil);
        return 0;
    }
    catch (const ErrorDeEjecucion& error)
    {
        return error.numero();
    }
}

TEST(CargarEmpleado, RecorreLaNominaPorElTextoDelCuil)
{
    const BaseDePrueba base;
    Conexion& conexion = base.conexion();
    const QString a = cuilDe(11111111);
    const QString b = cuilDe(22222222);
    const QString c = cuilDe(33333333);
    for (const QString& cuil : {c, a, b})
    {
        EmpleadoDePrueba empleado;
        empleado.cuil = cuil;
        agregar(conexion, empleado);
    }
    // Neighbours in the table that belong to other declarations.
    EmpleadoDePrueba ajeno;
    ajeno.secuencia = 1;
    agregar(conexion, ajeno);
    ajeno.secuencia = 0;
    ajeno.periodo = dePrueba::periodo.addMonths(1);
    agregar(conexion, ajeno);

    using enum AccionEmpleado;
    const std::tuple<AccionEmpleado, QString, QString> pasos[] = {
        {Primero, c, a},
        {Inicio, c, a},
        {Ultimo, a, c},
        {Siguiente, a, b},
        {Siguiente, b, c},
        {Siguiente, c, {}},
        {Anterior, c, b},
        {Anterior, a, {}},
        {Buscado, b, b},
        {Anterior, b, a},
        {Buscado, sinCuil, {}},
        {Siguiente, cuilDe(30000000), c},
        {Anterior, {}, {}},
        // An emptied screen compares with the untouched mask, which as a text comes after every digit.
        {Siguiente, sinCuil, {}},
        {Anterior, sinCuil, c},
    };
    for (const auto& [accion, desde, llega] : pasos)
    {
        EXPECT_EQ(llega.isEmpty() ? QStringLiteral("none") : llega, hallado(conexion, accion, desde))
            << static_cast<int>(accion) << " from " << desde.toStdString();
    }
}

TEST(CargarEmpleado, UnaNominaVaciaNoDaNada)
{
    const BaseDePrueba base;
    for (const auto accion : {AccionEmpleado::Primero, AccionEmpleado::Anterior, AccionEmpleado::Siguiente,
                              AccionEmpleado::Ultimo, AccionEmpleado::Buscado, AccionEmpleado::Inicio})
    {
        EXPECT_EQ(QStringLiteral("none"), hallado(base.conexion(), accion));
    }
}

TEST(CargarEmpleado, MuestraVacioLoQueNoEstaEnSuCatalogo)
{
    const BaseDePrueba base;
    EmpleadoDePrueba empleado;
    empleado.tipoDoc = 99;
    empleado.provincia = 99;
    empleado.estCivil = 99;
    empleado.categoria = 99;
    empleado.sexo = std::nullopt;
    empleado.nacio = {};
    empleado.imponible = Moneda::deTexto(QStringLiteral("100,10"));
    empleado.acuerdo = Moneda::deTexto(QStringLiteral("20,20"));
    empleado.acuerdo2 = Moneda::deTexto(QStringLiteral("3,30"));
    agregar(base.conexion(), empleado);

    const auto leido = cargarEmpleado(base.conexion(), clave, AccionEmpleado::Primero, sinCuil);
    ASSERT_TRUE(leido);
    EXPECT_FALSE(leido->documento);
    EXPECT_FALSE(leido->provincia);
    EXPECT_FALSE(leido->estadoCivil);
    EXPECT_FALSE(leido->categoria);
    EXPECT_FALSE(leido->sexo);
    EXPECT_FALSE(leido->nacio.isValid());
    EXPECT_EQ(QString(), leido->calle);
    EXPECT_EQ(Moneda::deTexto(QStringLiteral("23,50")), leido->acuerdo);
}

TEST(CargarEmpleado, FallaPorUnNuloSinPrevisionYPorUnSexoDesconocido)
{
    const std::pair<const char*, int> casos[] = {
        {"NroDoc = NULL", 94},    {"Numero = NULL", 94},   {"QHoras = NULL", 94},   {"Sucursal = NULL", 94},
        {"Imponible = NULL", 94}, {"Acuerdo = NULL", 94},  {"Acuerdo2 = NULL", 94}, {"ART100 = NULL", 94},
        {"ART101A = NULL", 94},   {"ART101B = NULL", 94},  {"Sexo = 2", 380},       {"Sexo = -1", 380},
        {"Sexo = NULL", 0},       {"Afiliado = NULL", 0},  {"TipoDoc = NULL", 0},   {"Provincia = NULL", 0},
        {"EstCivil = NULL", 0},   {"Categoria = NULL", 0}, {"AyN = NULL", 0},       {"Egreso = NULL", 0},
    };
    for (const auto& [cambio, numero] : casos)
    {
        const BaseDePrueba base;
        agregar(base.conexion(), EmpleadoDePrueba());
        base.conexion().ejecutar(std::string("UPDATE DDJJ_Empleados SET ") + cambio);
        EXPECT_EQ(numero, errorAlCargar(base.conexion())) << cambio;
    }
}

TEST(TextoSucursal, SoloLoDaALaEmpresaQueLaTiene)
{
    const BaseDePrueba base;
    Conexion& conexion = base.conexion();
    SucursalDePrueba datos;
    datos.domicilio = QStringLiteral("O'Higgins");
    const qint64 conNumero = agregar(conexion, datos);
    datos.numero = 0;
    const qint64 sinNumero = agregar(conexion, datos);
    const QString otroCuit = QStringLiteral("30-99999999-5");

    EXPECT_EQ(QStringLiteral("1 - O'Higgins 45 - Avellaneda"), textoSucursal(conexion, conNumero, dePrueba::cuit));
    EXPECT_EQ(QStringLiteral("1 - O'Higgins  - Avellaneda"), textoSucursal(conexion, sinNumero, dePrueba::cuit));
    EXPECT_EQ(std::nullopt, textoSucursal(conexion, conNumero, otroCuit));
    EXPECT_EQ(std::nullopt, textoSucursal(conexion, sinNumero + 1));
    EXPECT_EQ(QStringLiteral("1 - O'Higgins 45 - Avellaneda"), textoSucursal(conexion, conNumero));
}

TEST(EliminarEmpleado, SoloLoQuitaDeEstaDeclaracionYDejaASusFamiliares)
{
    const BaseDePrueba base;
    Conexion& conexion = base.conexion();
    EmpleadoDePrueba empleado;
    agregar(conexion, empleado);
    empleado.secuencia = 1;
    agregar(conexion, empleado);
    conexion.ejecutar("INSERT INTO Empleados_Familiares VALUES (?, 1, 'Gómez Ana', 1, 1, 0, '1975-05-06')",
                      empleado.cuil);

    eliminarEmpleado(conexion, clave, empleado.cuil);

    EXPECT_FALSE(conexion.hay("SELECT 1 FROM DDJJ_Empleados WHERE Secuencia = 0"));
    EXPECT_TRUE(conexion.hay("SELECT 1 FROM DDJJ_Empleados WHERE Secuencia = 1"));
    EXPECT_TRUE(conexion.hay("SELECT 1 FROM Empleados_Familiares"));
}
} // namespace

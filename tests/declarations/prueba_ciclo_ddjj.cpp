#include "apoyo/base_de_prueba.h"
#include "datos_ddjj.h"
#include "declarations/ciclo_ddjj.h"
#include "declarations/lista_ddjj.h"
#include "platform/data/error_de_ejecucion.h"

#include <gmock/gmock.h>
#include <numeric>
#include <thread>

namespace
{
const QDate mayo(2007, 5, 1);
const QDate hoy(2009, 6, 3);
} // namespace

TEST(CicloDDJJ, ProponeElMesSiguiente)
{
    EXPECT_EQ(std::nullopt, proponerPeriodo(std::nullopt));
    EXPECT_EQ(QDate(2007, 6, 1), proponerPeriodo(mayo));
    EXPECT_EQ(QDate(2008, 1, 1), proponerPeriodo(QDate(2007, 12, 1)));
    EXPECT_EQ(std::nullopt, proponerPeriodo(QDate(9999, 12, 1))); // the field holds four digits
}

TEST(CicloDDJJ, RechazaElPeriodoEnSuOrden)
{
    struct Caso
    {
        const char* anio;
        const char* mes;
        const char* texto; ///< nothing when it is accepted
        bool grave;
        CampoDePeriodo campo;
    };
    const char* const sinAnio = "Debe ingresar el Año correspondiente a la Declaración Jurada.";
    const char* const anioMalo = "Por favor verifique el Año ingresado.  El mismo no es Válido.";
    const char* const sinMes = "Debe ingresar el Mes correspondiente a la Declaración Jurada.";
    const char* const mesMalo = "Verifique el Mes ingresado.  El mismo es incorrecto.";
    const Caso casos[] = {
        {"", "", sinAnio, false, CampoDePeriodo::Anio},       {"2005", "", anioMalo, true, CampoDePeriodo::Anio},
        {"2005", "13", anioMalo, true, CampoDePeriodo::Anio}, {"7", "5", anioMalo, true, CampoDePeriodo::Anio},
        {"2006", "", sinMes, false, CampoDePeriodo::Mes},     {"2006", "0", mesMalo, false, CampoDePeriodo::Mes},
        {"2006", "00", mesMalo, false, CampoDePeriodo::Mes},  {"2006", "13", mesMalo, false, CampoDePeriodo::Mes},
        {"2006", "1", nullptr, false, CampoDePeriodo::Mes},   {"9999", "12", nullptr, false, CampoDePeriodo::Mes},
        {"2031", "07", nullptr, false, CampoDePeriodo::Mes},
    };
    for (const Caso& caso : casos)
    {
        SCOPED_TRACE(std::string(caso.anio) + "/" + caso.mes);
        const auto rechazo = comprobarPeriodo(QString::fromUtf8(caso.anio), QString::fromUtf8(caso.mes));
        ASSERT_EQ(caso.texto != nullptr, rechazo.has_value());
        if (rechazo)
        {
            EXPECT_EQ(QString::fromUtf8(caso.texto), rechazo->texto);
            EXPECT_EQ(caso.grave, rechazo->grave);
            EXPECT_EQ(caso.campo, rechazo->campo);
        }
    }
}

TEST(CicloDDJJ, NumeraPorEmpresaYMesDesdeLoQueQueda)
{
    const BaseDePrueba base;
    Conexion& c = base.conexion();
    EXPECT_EQ(0, crearDeclaracion(c, cuitUno, mayo, hoy));
    EXPECT_EQ(1, crearDeclaracion(c, cuitUno, mayo, hoy));
    EXPECT_EQ(2, crearDeclaracion(c, cuitUno, mayo, hoy));
    EXPECT_EQ(0, crearDeclaracion(c, cuitUno, mayo.addMonths(1), hoy));
    EXPECT_EQ(0, crearDeclaracion(c, cuitDos, mayo, hoy));

    eliminarDeclaracion(c, {cuitUno, mayo, 1}); // a gap below the top stays
    EXPECT_EQ(3, crearDeclaracion(c, cuitUno, mayo, hoy));
    eliminarDeclaracion(c, {cuitUno, mayo, 3}); // one at the top is filled again
    EXPECT_EQ(3, crearDeclaracion(c, cuitUno, mayo, hoy));

    const ClaveDDJJ esperadas[] = {
        {cuitUno, mayo.addMonths(1), 0}, {cuitUno, mayo, 3}, {cuitUno, mayo, 2}, {cuitUno, mayo, 0}};
    EXPECT_THAT(listarDeclaraciones(c, cuitUno), testing::ElementsAreArray(esperadas));
    EXPECT_EQ(hoy, c.consultar("SELECT Fecha FROM DDJJ WHERE Cuit = ?", cuitDos).primera().fecha("Fecha"));
}

TEST(CicloDDJJ, PasaDeNoventaYNueve)
{
    const BaseDePrueba base;
    agregarDeclaracion(base.conexion(), {cuitUno, mayo, 99});
    EXPECT_EQ(100, crearDeclaracion(base.conexion(), cuitUno, mayo, hoy));
    EXPECT_EQ(101, crearDeclaracion(base.conexion(), cuitUno, mayo, hoy));
}

TEST(CicloDDJJ, DosEscritoriosNoTomanLaMismaSecuencia)
{
    const BaseDePrueba base;
    constexpr int veces = 15;
    Conexion conexiones[2];
    for (Conexion& una : conexiones)
    {
        una.abrir(base.rutaBase());
    }
    std::vector<int> dadas[2];
    const auto escritorio = [&](std::size_t cual)
    {
        for (int i = 0; i < veces; ++i)
        {
            dadas[cual].push_back(crearDeclaracion(conexiones[cual], cuitUno, mayo, hoy));
        }
    };
    std::thread otro(escritorio, 1);
    escritorio(0);
    otro.join();

    std::vector<int> todas = dadas[0];
    todas.insert(todas.end(), dadas[1].begin(), dadas[1].end());
    std::vector<int> esperadas(2 * veces);
    std::iota(esperadas.begin(), esperadas.end(), 0);
    EXPECT_THAT(todas, testing::UnorderedElementsAreArray(esperadas));
    EXPECT_EQ(2 * veces, contar(base.conexion(), "DDJJ"));
}

TEST(CicloDDJJ, EliminarSeLlevaSoloSuNomina)
{
    const BaseDePrueba base;
    Conexion& c = base.conexion();
    const ClaveDDJJ original{cuitUno, mayo, 0};
    const ClaveDDJJ rectificativa{cuitUno, mayo, 1};
    const ClaveDDJJ deOtra{cuitDos, mayo, 0};
    for (const ClaveDDJJ& clave : {original, rectificativa, deOtra})
    {
        agregarDeclaracion(c, clave);
        agregarEmpleado(c, clave);
    }
    c.ejecutar("INSERT INTO PAGOS (Cuit, Periodo, Secuencia) VALUES (?, ?, 0)", cuitUno, mayo);
    c.ejecutar("INSERT INTO Empleados_Familiares (CUIL, AyN) VALUES ('20-12345678-6', 'Hija')");

    eliminarDeclaracion(c, original);

    EXPECT_FALSE(tieneNomina(c, original));
    EXPECT_TRUE(tieneNomina(c, rectificativa));
    EXPECT_TRUE(tieneNomina(c, deOtra));
    EXPECT_EQ(2, contar(c, "DDJJ"));
    EXPECT_EQ(1, contar(c, "PAGOS"));
    EXPECT_EQ(1, contar(c, "Empleados_Familiares"));
}

TEST(CicloDDJJ, EliminarQueFallaNoBorraNada)
{
    const BaseDePrueba base;
    Conexion& c = base.conexion();
    const ClaveDDJJ clave{cuitUno, mayo, 0};
    agregarDeclaracion(c, clave);
    agregarEmpleado(c, clave);
    c.ejecutar("CREATE TRIGGER traba BEFORE DELETE ON DDJJ BEGIN SELECT RAISE(ABORT, 'traba'); END");
    EXPECT_THROW(eliminarDeclaracion(c, clave), ErrorDeEjecucion);
    EXPECT_FALSE(c.enTransaccion());
    EXPECT_TRUE(tieneNomina(c, clave));
    EXPECT_EQ(1, contar(c, "DDJJ"));
}

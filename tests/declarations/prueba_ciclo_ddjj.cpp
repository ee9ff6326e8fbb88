#include "apoyo/base_de_prueba.h"
#include "apoyo/datos.h"
#include "declarations/ciclo_ddjj.h"
#include "declarations/lista_ddjj.h"

#include <gmock/gmock.h>

namespace
{
const QString otraEmpresa = "30-87654321-5";
const QDate mayo(2009, 5, 1);
const QDate hoy(2009, 6, 3);

/// The company of the tests and another one.
struct CicloDDJJ : ConBase
{
    Conexion& c = base.conexion();
    CicloDDJJ()
    {
        poner("Empresas");
        poner("Empresas", {{"CUIT", otraEmpresa}});
    }
};
} // namespace

// In what order, and with which words: in the script.
TEST(PeriodoDDJJ, DesdeEneroDe2006YSeProponeElSiguiente)
{
    for (const QString caso : {"2005/12!", "7/5!", "2006/0!", "2006/1", "2006/13!", "9999/12"}) // "!": refused
    {
        const QStringList partes = QString(caso).remove(u'!').split(u'/');
        EXPECT_EQ(caso.endsWith(u'!'), comprobarPeriodo(partes[0], partes[1]).has_value()) << qPrintable(caso);
    }
    EXPECT_EQ(std::nullopt, proponerPeriodo(std::nullopt));
    EXPECT_EQ(QDate(2008, 1, 1), proponerPeriodo(QDate(2007, 12, 1)));
    EXPECT_EQ(std::nullopt, proponerPeriodo(QDate(9999, 12, 1))); // the field holds four digits
}

/// Two desks never take the same sequence, and neither deletes half of a declaration.
TEST_F(CicloDDJJ, NumeraPorEmpresaYMesDesdeLoQueQueda)
{
    const auto crear = [&](const QString& cuit = dePrueba::cuit, QDate mes = mayo)
    {
        int secuencia = -1;
        EXPECT_EQ("", fueraDeTransaccion([&] { secuencia = crearDeclaracion(c, cuit, mes, hoy); }));
        return secuencia;
    };
    EXPECT_EQ((std::vector{0, 1, 2}), (std::vector{crear(), crear(), crear()}));
    EXPECT_EQ(0, crear(dePrueba::cuit, mayo.addMonths(1)));
    EXPECT_EQ(0, crear(otraEmpresa));
    eliminarDeclaracion(c, {dePrueba::cuit, mayo, 1}); // a gap below the top stays
    EXPECT_EQ(3, crear());
    EXPECT_EQ("", fueraDeTransaccion([&] { eliminarDeclaracion(c, {dePrueba::cuit, mayo, 3}); }));
    EXPECT_EQ(3, crear()); // one at the top is filled again
    poner("DDJJ", {{"Secuencia", 99}});
    EXPECT_EQ(100, crear());

    std::vector<int> secuencias;
    for (const ClaveDDJJ& una : listarDeclaraciones(c, dePrueba::cuit))
    {
        secuencias.push_back(una.secuencia + 1000 * una.periodo.month());
    }
    EXPECT_THAT(secuencias, testing::ElementsAre(6000, 5100, 5099, 5003, 5002, 5000));
    EXPECT_EQ("2009-06-03", filas("SELECT Fecha FROM DDJJ WHERE Cuit = ?", otraEmpresa));
}

TEST_F(CicloDDJJ, NaceVaciaYSeVaConSuNomina)
{
    poner("DDJJ_Empleados"); // left by a declaration that is gone
    crearDeclaracion(c, dePrueba::cuit, mayo, hoy);
    EXPECT_EQ(0, cuantos("DDJJ_Empleados"));
    poner("DDJJ", {{"Secuencia", 1}});
    poner("DDJJ", {{"Cuit", otraEmpresa}});
    for (const auto& [cuit, secuencia] : {std::pair{dePrueba::cuit, 0}, {dePrueba::cuit, 1}, {otraEmpresa, 0}})
    {
        poner("DDJJ_Empleados", {{"Cuit", cuit}, {"Secuencia", secuencia}});
    }
    poner("PAGOS");
    poner("Empleados_Familiares");
    eliminarDeclaracion(c, {dePrueba::cuit, mayo, 0});
    EXPECT_EQ("30-12345678-1|1;30-87654321-5|0", filas("SELECT Cuit, Secuencia FROM DDJJ ORDER BY 1"));
    EXPECT_EQ("30-12345678-1|1;30-87654321-5|0", filas("SELECT Cuit, Secuencia FROM DDJJ_Empleados ORDER BY 1"));
    EXPECT_EQ(2, cuantos("PAGOS") + cuantos("Empleados_Familiares"));
}

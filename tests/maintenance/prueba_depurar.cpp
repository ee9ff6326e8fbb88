// What the purge deletes. Its screen is played by a script.
#include "apoyo/base_de_prueba.h"
#include "apoyo/datos.h"
#include "core/vigencia.h"
#include "maintenance/depuracion.h"

#include <gtest/gtest.h>

namespace
{
/// Company A: 2009/03 (0), 2009/04 (0, 1), 2009/05 (0); company B: 2009/02. Two employees and one payment each.
struct Depuracion : ConBase
{
    Conexion& c = base.conexion();
    std::vector<QDate> vistos;

    Depuracion()
    {
        poner("Empresas");
        for (const std::string tabla : {"DDJJ", "PAGOS"})
        {
            c.ejecutar("INSERT INTO " + tabla +
                       " (Cuit, Periodo, Secuencia) VALUES ('30-12345678-1', '2009-03-01', 0), "
                       "('30-12345678-1', '2009-04-01', 0), ('30-12345678-1', '2009-04-01', 1), "
                       "('30-12345678-1', '2009-05-01', 0), ('30-87654321-5', '2009-02-01', 0)");
        }
        c.ejecutar(
            "INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil) SELECT Cuit, Periodo, Secuencia, column1 "
            "FROM DDJJ, (VALUES ('20-1'), ('20-2'))");
        vistos = periodosDeEmpresa(c, dePrueba::cuit);
    }
    /// Months and sequences left, of the declarations and, which must be the same, of their rosters.
    [[nodiscard]] static std::string quedan()
    {
        const std::string sql = "SELECT DISTINCT substr(Periodo, 6, 2) || Secuencia AS M FROM ";
        EXPECT_EQ(filas(sql + "DDJJ ORDER BY 1"), filas(sql + "DDJJ_Empleados ORDER BY 1"));
        return filas(sql + "DDJJ ORDER BY 1");
    }
    void depurar(int mes) { depurarHasta(c, dePrueba::cuit, limite(mes), vistos); }
    [[nodiscard]] static QDate limite(int mes) { return mes == 0 ? QDate() : QDate(2009, mes, 1); }
};
} // namespace

TEST_F(Depuracion, BorraHastaElMesConTodasSusSecuencias)
{
    EXPECT_EQ((std::vector{QDate(2009, 5, 1), QDate(2009, 4, 1), QDate(2009, 3, 1)}), vistos);
    for (const auto& [mes, queda] :
         {std::pair{0, "020;030;040;041;050"}, {2, "020;030;040;041;050"}, {3, "020;040;041;050"}, {4, "020;050"}})
    {
        const AlcanceDeDepuracion dicho = alcanceDeDepuracion(c, dePrueba::cuit, limite(mes));
        const qint64 declaraciones = cuantos("DDJJ");
        const qint64 empleados = cuantos("DDJJ_Empleados");
        const std::size_t meses = vistos.size();
        EXPECT_EQ("", fueraDeTransaccion([&, mes = mes] { depurar(mes); }));
        EXPECT_EQ(queda, quedan());
        vistos = periodosDeEmpresa(c, dePrueba::cuit);
        EXPECT_EQ(dicho.declaraciones, declaraciones - cuantos("DDJJ"));
        EXPECT_EQ(dicho.empleados, empleados - cuantos("DDJJ_Empleados"));
        EXPECT_EQ(dicho.meses, static_cast<qint64>(meses - vistos.size()));
    }
    EXPECT_EQ(6, cuantos("PAGOS") + cuantos("Empresas"));
}

TEST(AlcanceDeLaDepuracion, SeDiceEnUnaOracion)
{
    EXPECT_EQ("Se eliminarán 14 declaraciones de 5 meses, hasta 2026/05, con 1.203 empleados, de Sur.",
              textoDelAlcance({14, 5, 1203}, QDate(2026, 5, 1), "Sur"));
    EXPECT_EQ("Se eliminará 1 declaración de 1 mes, hasta 2026/05, con 1 empleado, de X S.A.",
              textoDelAlcance({1, 1, 1}, QDate(2026, 5, 1), "X S.A."));
}

TEST_F(Depuracion, LoQueYaNoEstaLaDetiene)
{
    c.ejecutar("DELETE FROM DDJJ WHERE Periodo = '2009-03-01'");
    c.ejecutar("DELETE FROM DDJJ_Empleados WHERE Periodo = '2009-03-01'");
    EXPECT_THROW(depurar(4), YaNoEsta);
    EXPECT_EQ("020;040;041;050", quedan());
    vistos = periodosDeEmpresa(c, dePrueba::cuit);
    c.ejecutar("DELETE FROM DDJJ WHERE Periodo = '2009-05-01'");
    c.ejecutar("DELETE FROM DDJJ_Empleados WHERE Periodo = '2009-05-01'");
    depurar(4); // a month past the limit is not the purge's
    EXPECT_EQ("020", quedan());
    c.ejecutar("DELETE FROM Empresas");
    vistos.clear();
    EXPECT_THROW(depurar(4), YaNoEsta);
}

// The bulk wage update: what is read, what is written, what a failure leaves, and what another desk did meanwhile.
#include "apoyo/base_de_prueba.h"
#include "apoyo/datos.h"
#include "companies/cambios_en_texto.h"
#include "core/vigencia.h"
#include "roster/totales_de_sueldos.h"

#include <gtest/gtest.h>

namespace
{
using dePrueba::clave;

struct Sueldos : ConBase
{
    Sueldos() { poner("DDJJ"); }

    static void empleado(const char* cuil, const char* imponible, const char* acuerdo = "0", const char* acuerdo2 = "0",
                         int horas = 200, bool afiliado = true)
    {
        poner("DDJJ_Empleados", {{"Cuil", cuil},
                                 {"Imponible", imponible},
                                 {"Acuerdo", acuerdo},
                                 {"Acuerdo2", acuerdo2},
                                 {"QHoras", horas},
                                 {"Afiliado", afiliado},
                                 {"Sueldo", "7"}});
    }
    /// Saves the roster as it is read, with these amounts in the rows named by their number.
    int guardar(const std::vector<std::tuple<std::size_t, const char*, const char*>>& cambios) const
    {
        const auto leidas = cargarSueldos(conexion, clave);
        auto filas = leidas;
        for (const auto& [i, sueldo, acuerdo] : cambios)
        {
            filas[i].sueldo = Moneda::deTexto(sueldo);
            filas[i].acuerdo = Moneda::deTexto(acuerdo);
        }
        const int escritas = actualizarSueldos(conexion, clave, filas, leidas);
        EXPECT_EQ(0, actualizarSueldos(conexion, clave, filas, filas)); // what comes back is what is stored
        return escritas;
    }
    /// Imponible, Acuerdo, Acuerdo2, the contributions and Sueldo.
    [[nodiscard]] std::string guardado(const char* cuil) const
    {
        return filas("SELECT Imponible, Acuerdo, Acuerdo2, ART100, ART101A, ART101B, Sueldo FROM DDJJ_Empleados "
                     "WHERE Cuil = ? AND Periodo = ? AND Secuencia = 0",
                     cuil, clave.periodo);
    }
    [[nodiscard]] std::string todo() const { return filas("SELECT * FROM DDJJ_Empleados"); }
};
} // namespace

TEST_F(Sueldos, LoQueEscribeLaReglaEnLote)
{
    const std::tuple<int, bool, const char*, const char*, const char*> casos[] = {
        {150, true, "1000", "0", "10000000|0|0|150000|75000|75000|70000"},
        {129, true, "1000", "0", "10000000|0|0|128000|64000|64000|70000"}, // 0,645 to the even cent
        {128, true, "1000", "0", "10000000|0|0|200000|64000|64000|70000"},
        {200, true, "900", "100", "9000000|1000000|0|200000|100000|100000|70000"},
        // Seven digits, as a 32-bit float is written.
        {200, false, "1234567,89", "0", "12345680000|0|0|246913600|0|0|70000"},
        {200, false, "0,01", "123456,78", "100|1234568000|0|24691400|0|0|70000"},
    };
    for (const auto& [horas, afiliado, sueldo, acuerdo, queda] : casos)
    {
        conexion.ejecutar("DELETE FROM DDJJ_Empleados");
        empleado("20-1", "7", "0", "0", horas, afiliado);
        EXPECT_EQ(1, guardar({{0, sueldo, acuerdo}}));
        EXPECT_EQ(queda, guardado("20-1")) << horas << ' ' << sueldo;
    }
}

TEST_F(Sueldos, SoloSeEscribeLoCambiadoDeEstaDeclaracion)
{
    empleado("20-1", "1000", "100", "50", 150); // its contributions, 20 and 10, were computed under another rule
    empleado("20-2", "500", "100", "50");
    poner("DDJJ_Empleados", {{"Cuil", "20-2"}, {"Secuencia", 1}});
    poner("DDJJ_Empleados", {{"Cuil", "20-2"}, {"Periodo", "2009-06-01"}});
    const std::string ajenas = filas("SELECT * FROM DDJJ_Empleados WHERE Secuencia = 1 OR Periodo = '2009-06-01'");
    EXPECT_EQ(0, guardar({}));
    EXPECT_EQ(1, guardar({{1, "500", "150,01"}}));
    EXPECT_EQ("10000000|1000000|500000|200000|100000|100000|70000", guardado("20-1"));
    EXPECT_EQ("5000000|1500100|0|130000|65000|65000|70000", guardado("20-2"));
    EXPECT_EQ(ajenas, filas("SELECT * FROM DDJJ_Empleados WHERE Secuencia = 1 OR Periodo = '2009-06-01'"));
}

TEST_F(Sueldos, UnaFallaNoEscribeNada)
{
    empleado("20-1", "1000");
    empleado("20-2", "1000");
    conexion.ejecutar("UPDATE DDJJ_Empleados SET QHoras = NULL WHERE Cuil = '20-2'");
    std::string antes = todo();
    EXPECT_EQ(ErrorDeEjecucion::UsoDeNull, numeroDe([&] { return guardar({{0, "2000", "0"}, {1, "2000", "0"}}); }));
    EXPECT_EQ(antes, todo());
    EXPECT_EQ(1, guardar({{0, "2000", "0"}})); // Null hours of a row that has not changed are not looked at

    const auto leidas = cargarSueldos(conexion, clave);
    auto filas = leidas;
    filas[0].sueldo = {};
    conexion.ejecutar("DELETE FROM DDJJ_Empleados WHERE Cuil = '20-2'");
    antes = todo();
    EXPECT_THROW((void)actualizarSueldos(conexion, clave, filas, leidas), YaNoEsta);
    conexion.ejecutar("DELETE FROM DDJJ");
    filas.pop_back();
    EXPECT_THROW((void)actualizarSueldos(conexion, clave, filas, {}), YaNoEsta);
    EXPECT_EQ(antes, todo());
}

TEST_F(Sueldos, LoQueOtroPuestoCambioSePreguntaAntesDeReemplazarlo)
{
    empleado("20-1", "1000");
    empleado("20-2", "1000", "40", "60");
    const auto leidas = cargarSueldos(conexion, clave);
    auto filas = leidas;
    filas[0].sueldo = Moneda::deEntero(2000);
    conexion.ejecutar("UPDATE DDJJ_Empleados SET Imponible = 12345050, Acuerdo2 = 700000 WHERE Cuil = '20-2'");
    conexion.ejecutar("UPDATE DDJJ_Empleados SET AyN = 'Otra', QHoras = 150 WHERE Cuil = '20-1'"); // not of this grid
    const std::string antes = todo();
    EXPECT_EQ("Pérez Juan, Sueldo=1.000,00>1.234,50;Pérez Juan, Acuerdo=100,00>110,00",
              cambiosAl([&] { return actualizarSueldos(conexion, clave, filas, leidas); }));
    EXPECT_EQ(antes, todo());
    // Asked for a second time, they are replaced.
    EXPECT_EQ("", fueraDeTransaccion([&] { EXPECT_EQ(2, actualizarSueldos(conexion, clave, filas, {})); }));
    EXPECT_EQ("20000000|0|0|300000|150000|150000|70000", guardado("20-1"));
    EXPECT_EQ("10000000|1000000|0|220000|110000|110000|70000", guardado("20-2"));
    filas[0].acuerdo = Moneda::deTexto("200000,10"); // a reading shows 200.000,09
    EXPECT_EQ(1, actualizarSueldos(conexion, clave, filas, {}));
    EXPECT_NO_THROW((void)actualizarSueldos(conexion, clave, filas, filas)) << "what this grid saved itself";
}

// How they follow each row: in the script.
TEST(TotalesDeSueldos, LoQueNoSePuedeSumarNoSeMuestra)
{
    std::vector<FilaSueldo> filas(2);
    filas[0].sueldo = Moneda::deEntero(1000);
    TotalesDeSueldos totales;
    totales.contar(filas, filas);
    totales.cambiar(1, Moneda::deTexto("922337203685477,58"), Moneda());
    EXPECT_EQ("2 personas - 1 modificada", totales.texto());
}

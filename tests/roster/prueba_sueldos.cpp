// The bulk wage update: what is read, what is written, what a failure leaves, and what another desk did meanwhile.
#include "apoyo/base_de_prueba.h"
#include "apoyo/datos.h"
#include "companies/cambios_en_texto.h"
#include "core/vigencia.h"
#include "roster/sueldos.h"

#include <gtest/gtest.h>

namespace
{
const ClaveDDJJ clave{"30-12345678-1", QDate(2009, 5, 1), 0};

struct Sueldos : testing::Test
{
    Sueldos() { poner("DDJJ"); }

    BaseDePrueba base;
    Conexion& conexion = base.conexion();

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
    [[nodiscard]] std::string guardado(const char* cuil) const
    {
        QStringList textos;
        for (const Fila& fila : conexion.consultar(
                 "SELECT * FROM DDJJ_Empleados WHERE Cuil = ? AND Cuit = ? AND Periodo = ? AND Secuencia = ?", cuil,
                 clave.cuit, clave.periodo, clave.secuencia))
        {
            for (const char* columna : {"Imponible", "Acuerdo", "Acuerdo2", "ART100", "ART101A", "ART101B", "Sueldo"})
            {
                textos += fila.moneda(columna).textoPlano();
            }
        }
        return textos.join(' ').toStdString();
    }
    [[nodiscard]] std::string todo() const { return filas("SELECT * FROM DDJJ_Empleados"); }
};
} // namespace

TEST_F(Sueldos, LaNominaPorCuilConSuCategoriaYLosAcuerdosSumados)
{
    poner("DDJJ_Empleados", {{"Secuencia", 1}});
    empleado("20-2", "1000", "100", "50,25");
    empleado("20-1", "10,125"); // an even cent below the half
    conexion.ejecutar("UPDATE DDJJ_Empleados SET Categoria = 11 WHERE Cuil = '20-1'");
    const std::vector<FilaSueldo> filas = cargarSueldos(conexion, clave);
    ASSERT_EQ(2U, filas.size());
    EXPECT_EQ("20-1", filas[0].cuil);
    EXPECT_EQ("Peón de bodega", filas[0].categoria);
    EXPECT_EQ(Moneda::deTexto("10,12"), filas[0].sueldo);
    EXPECT_EQ("", filas[1].categoria); // no such category
    EXPECT_EQ(Moneda::deTexto("150,25"), filas[1].acuerdo);
}

TEST_F(Sueldos, LoQueEscribeLaReglaEnLote)
{
    const std::tuple<int, bool, const char*, const char*, const char*> casos[] = {
        {150, true, "1000", "0", "1000 0 0 15 7.5 7.5 7"},
        {129, true, "1000", "0", "1000 0 0 12.8 6.4 6.4 7"}, // 0,645 to the even cent
        {128, true, "1000", "0", "1000 0 0 20 6.4 6.4 7"},
        {200, true, "900", "100", "900 100 0 20 10 10 7"},
        {0, true, "1000", "0", "1000 0 0 20 0 0 7"},
        // Seven digits, as a 32-bit float is written.
        {200, false, "1234567,89", "0", "1234568 0 0 24691.36 0 0 7"},
        {200, false, "9999999,99", "0", "10000000 0 0 200000 0 0 7"},
        {200, false, "0,01", "123456,78", "0.01 123456.8 0 2469.14 0 0 7"},
    };
    for (const auto& [horas, afiliado, sueldo, acuerdo, queda] : casos)
    {
        conexion.ejecutar("DELETE FROM DDJJ_Empleados");
        empleado("20-1", "7", "0", "0", horas, afiliado);
        EXPECT_EQ(1, guardar({{0, sueldo, acuerdo}}));
        EXPECT_EQ(queda, guardado("20-1")) << horas << ' ' << sueldo;
    }
    EXPECT_EQ("Se ha realizado 1 Actualización.", textoActualizaciones(1));
    EXPECT_EQ("Se han realizado 3 Actualizaciones.", textoActualizaciones(3));
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
    EXPECT_EQ("1000 100 50 20 10 10 7", guardado("20-1"));
    EXPECT_EQ("500 150.01 0 13 6.5 6.5 7", guardado("20-2"));
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
    conexion.ejecutar("UPDATE DDJJ_Empleados SET Imponible = 12345000, Acuerdo2 = 700000 WHERE Cuil = '20-2'");
    conexion.ejecutar("UPDATE DDJJ_Empleados SET AyN = 'Otra', QHoras = 150 WHERE Cuil = '20-1'"); // not of this grid
    const std::string antes = todo();
    EXPECT_EQ("Pérez Juan, Sueldo=1.000,00>1.234,50;Pérez Juan, Acuerdo=100,00>110,00",
              cambiosAl([&] { return actualizarSueldos(conexion, clave, filas, leidas); }));
    EXPECT_EQ(antes, todo());
    EXPECT_EQ(2, actualizarSueldos(conexion, clave, filas, {})); // asked for a second time, they are replaced
    EXPECT_EQ("2000 0 0 30 15 15 7", guardado("20-1"));
    EXPECT_EQ("1000 100 0 22 11 11 7", guardado("20-2"));
    filas[0].acuerdo = Moneda::deTexto("200000,10"); // a reading shows 200.000,09
    EXPECT_EQ(1, actualizarSueldos(conexion, clave, filas, {}));
    EXPECT_NO_THROW((void)actualizarSueldos(conexion, clave, filas, filas)) << "what this grid saved itself";
}

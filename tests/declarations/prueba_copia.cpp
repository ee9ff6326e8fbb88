#include "apoyo/base_de_prueba.h"
#include "apoyo/datos.h"
#include "core/vigencia.h"
#include "declarations/copia_ddjj.h"

#include <gtest/gtest.h>

namespace
{
const QDate abril(2009, 4, 1);
const ClaveDDJJ fuente{dePrueba::cuit, abril, 0};
const ClaveDDJJ destino{dePrueba::cuit, dePrueba::periodo, 1};

/// The source with two people, the target with one of its own, and so has the other sequence of its month; nobody in
/// June.
struct Copia : ConBase
{
    Conexion& c = base.conexion();
    Copia()
    {
        c.ejecutar(
            "INSERT INTO DDJJ (Cuit, Periodo, Secuencia) VALUES ('30-12345678-1', '2009-05-01', 0), ('30-12345678-1', "
            "'2009-05-01', 1), ('30-12345678-1', '2009-04-01', 0), ('30-12345678-1', '2009-06-01', 0), "
            "('30-87654321-5', '2009-05-01', 0)");
        poner("DDJJ_Empleados", {{"Cuit", "30-87654321-5"}});
        poner("DDJJ_Empleados");
        poner("DDJJ_Empleados", {{"Secuencia", 1}, {"Cuil", "20-00000009-1"}});
        poner("DDJJ_Empleados", {{"Periodo", abril}, {"Cuil", "27-00000002-1"}});
        poner("DDJJ_Empleados", {{"Periodo", abril}, {"Afiliado", false}, {"Sexo", nullptr}, {"Provincia", 2}});
        c.ejecutar("UPDATE DDJJ_Empleados SET Calle = 'Mitre', Numero = 7, Piso = '1', Depto = 'B', CodPos = '1900', "
                   "Localidad = 'Luján', Telefono = '44', Categoria = 3, Egreso = '2009-04-20', Sucursal = 4, "
                   "QHoras = 100, Sueldo = 20000100, Acuerdo = 1005000, Acuerdo2 = 502500, ART100 = 230100, "
                   "ART101A = 115000, ART101B = 115100, Familiares = 3 WHERE Cuil LIKE '27%'");
    }
    [[nodiscard]] std::string nomina(const ClaveDDJJ& de)
    {
        return filas("SELECT * FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND Secuencia = ? ORDER BY Cuil",
                     de.cuit, de.periodo, de.secuencia);
    }
};
} // namespace

TEST_F(Copia, ReemplazaSumaLosAcuerdosYPierdeLosFamiliares)
{
    EXPECT_EQ((std::vector<ClaveDDJJ>{{dePrueba::cuit, dePrueba::periodo, 0}, fuente}), fuentesDeCopia(c, destino));
    const std::string antes = nomina(fuente) + nomina({dePrueba::cuit, dePrueba::periodo, 0});
    EXPECT_EQ("", fueraDeTransaccion([&] { copiarNomina(c, destino, fuente); }));
    const std::string copia = nomina(destino);
    EXPECT_EQ(antes, nomina(fuente) + nomina({dePrueba::cuit, dePrueba::periodo, 0}));
    c.ejecutar("DELETE FROM DDJJ_Empleados WHERE Periodo = ?", destino.periodo);
    c.ejecutar("UPDATE DDJJ_Empleados SET Periodo = ?, Secuencia = 1, Acuerdo = Acuerdo + Acuerdo2, Acuerdo2 = 0, "
               "Familiares = 0",
               destino.periodo);
    EXPECT_EQ(nomina(destino), copia);
}

TEST_F(Copia, LoQueYaNoEstaDejaElDestinoComoEstaba)
{
    const std::string antes = nomina(destino);
    const auto copiar = [&] { copiarNomina(c, destino, fuente); };
    for (const ClaveDDJJ& borrada : {destino, fuente})
    {
        c.ejecutar("DELETE FROM DDJJ WHERE Periodo = ? AND Secuencia = ?", borrada.periodo, borrada.secuencia);
        EXPECT_THROW(copiar(), YaNoEsta);
        poner("DDJJ", {{"Periodo", borrada.periodo}, {"Secuencia", borrada.secuencia}});
    }
    c.ejecutar("DELETE FROM DDJJ_Empleados WHERE Periodo = ?", abril);
    EXPECT_THROW(copiar(), YaNoEsta);
    EXPECT_EQ(antes, nomina(destino));
}

// Branches and responsible persons in the save of a company.
#include "apoyo/base_de_prueba.h"
#include "companies/guardar_empresa.h"
#include "datos_empresa.h"
#include "platform/data/error_de_ejecucion.h"

#include <gtest/gtest.h>

namespace
{
const QString incompletas = QStringLiteral("Los datos de las Sucursales están incompletos.  Por favor, verifique los "
                                           "mismos (Nro. de Sucursal, Domicilio y Localidad).");
const QString incompletos =
    QStringLiteral("Los datos de los Responsables están incompletos.  Por favor, verifique los mismos.");

FilaSucursal sucursal(qint64 id, const char* codigo, const char* domicilio = "Calle 1",
                      std::optional<qint64> numero = 5, const char* localidad = "Berisso")
{
    return {id,
            QString::fromUtf8(codigo),
            QString::fromUtf8(domicilio),
            numero,
            QString::fromUtf8(localidad),
            QStringLiteral("1923"),
            QStringLiteral("461")};
}

FilaResponsable responsable(const char* ayn, const char* tipo = "DNI", std::optional<qint64> documento = 12345678)
{
    return {QString::fromUtf8(ayn), QString::fromLatin1(tipo), documento, QStringLiteral("Calle 2"), QString()};
}

struct PruebaListas : testing::Test
{
    PruebaListas() { sembrarEmpresa(conexion); }

    BaseDePrueba base;
    Conexion& conexion = base.conexion();

    std::optional<QString> guardar(std::vector<FilaSucursal> sucursales)
    {
        return guardarEmpresa(conexion,
                              {false, empresaCompleta(cuitUno, QStringLiteral("Cambiada")), std::move(sucursales), {}});
    }
    std::optional<QString> guardar(std::vector<FilaResponsable> responsables)
    {
        return guardarEmpresa(
            conexion, {false, empresaCompleta(cuitUno, QStringLiteral("Cambiada")), {}, std::move(responsables)});
    }
    /// The company's row and the branches as they were: nothing of a refused save is left.
    void esperaIntacta(const std::vector<FilaSucursal>& sucursales)
    {
        EXPECT_EQ(cargarEmpresa(conexion, cuitUno), empresaCompleta());
        EXPECT_EQ(cargarSucursales(conexion, cuitUno), sucursales);
        EXPECT_EQ(contar(conexion, "FROM Empresas_Sucursales WHERE Marca <> 0"), 0);
    }
};
} // namespace

TEST_F(PruebaListas, SucursalesNuevasCambiadasYBarridas)
{
    const qint64 queda = sembrarSucursal(conexion, cuitUno, QStringLiteral("1"), QStringLiteral("Berisso"));
    const qint64 sale = sembrarSucursal(conexion, cuitUno, QStringLiteral("2"), QStringLiteral("Ensenada"));
    const qint64 ajena = sembrarSucursal(conexion, cuitDos, QStringLiteral("2"), QStringLiteral("Ensenada"));
    sembrarEmpleado(conexion, cuitUno, queda);
    sembrarEmpleado(conexion, cuitDos, sale); // the same number at another company holds nothing

    EXPECT_EQ(guardar({sucursal(queda, "9", "D'Angelo", 0), FilaSucursal{.id = sale}, sucursal(0, "10")}),
              std::nullopt);
    const auto filas = cargarSucursales(conexion, cuitUno);
    ASSERT_EQ(filas.size(), 2U);
    EXPECT_EQ(filas[0], sucursal(ajena + 1, "10")); // by code, which is a text
    EXPECT_EQ(filas[1], sucursal(queda, "9", "D'Angelo", 0));
    EXPECT_EQ(cargarSucursales(conexion, cuitDos).size(), 1U);
    EXPECT_EQ(contar(conexion, "FROM Empresas_Sucursales WHERE Marca <> 0"), 0);
    EXPECT_EQ(cargarEmpresa(conexion, cuitUno)->razon, QStringLiteral("Cambiada"));
}

TEST_F(PruebaListas, SucursalesRechazadasDeshacenTodo)
{
    const qint64 usada = sembrarSucursal(conexion, cuitUno, QStringLiteral("7"), QStringLiteral("Berisso"));
    const qint64 libre = sembrarSucursal(conexion, cuitUno, QStringLiteral("8"), QStringLiteral("Ensenada"));
    const qint64 tambien = sembrarSucursal(conexion, cuitUno, QStringLiteral("3"), QStringLiteral("Gonnet"));
    conexion.ejecutar("UPDATE Empresas_Sucursales SET Domicilio = 'O''Higgins' WHERE ID = ?", usada);
    sembrarEmpleado(conexion, cuitUno, usada);
    conexion.ejecutar("INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, Sucursal) "
                      "VALUES (?, '2024-06-01', 0, '27-00000001-4', ?)",
                      cuitUno, tambien);
    const auto antes = cargarSucursales(conexion, cuitUno);

    EXPECT_EQ(guardar({sucursal(libre, "8"), sucursal(0, "20")}),
              QStringLiteral("Error - No se puede Eliminar la Sucursal 7 - O'Higgins 10 - Berisso.  Tiene Empleados "
                             "asignados a dicha Sucursal.")); // the first one only, by its ID
    esperaIntacta(antes);

    const FilaSucursal casos[] = {sucursal(0, ""), sucursal(0, "1", ""), sucursal(0, "1", "Calle", 1, ""),
                                  FilaSucursal{.numero = 0}, FilaSucursal{.telefono = QStringLiteral("461")}};
    for (const FilaSucursal& caso : casos)
    {
        EXPECT_EQ(guardar({sucursal(0, "30"), caso}), incompletas);
        esperaIntacta(antes);
    }

    const auto ausente =
        guardar({sucursal(usada, "7"), sucursal(libre, "8"), sucursal(tambien, "3"), sucursal(libre + 1000, "44")});
    ASSERT_TRUE(ausente); // deleted at the other desk
    EXPECT_TRUE(ausente->contains(QStringLiteral("La Sucursal 44 - Calle 1"))) << ausente->toStdString();
    esperaIntacta(antes);
}

TEST_F(PruebaListas, SucursalSinNumeroEsUnError)
{
    const auto antes = cargarSucursales(conexion, cuitUno);
    for (const qint64 id : {qint64{0}, sembrarSucursal(conexion, cuitDos, QStringLiteral("1"), QStringLiteral("x"))})
    {
        try
        {
            (void)guardar({sucursal(id, "1", "Calle", std::nullopt)});
            ADD_FAILURE() << "stored";
        }
        catch (const ErrorDeEjecucion& error)
        {
            EXPECT_EQ(error.numero(), ErrorDeEjecucion::NoCoincidenTipos);
        }
        esperaIntacta(antes);
    }
}

TEST_F(PruebaListas, LasListasSinTocarNoSeEscriben)
{
    const qint64 id = sembrarSucursal(conexion, cuitUno, QStringLiteral("1"), QStringLiteral("Berisso"));
    conexion.ejecutar("UPDATE Empresas_Sucursales SET Marca = 1, Numero = NULL WHERE ID = ?", id);
    conexion.ejecutar("INSERT INTO Empresas_Responsables (CUIT, AyN, TipoDoc) VALUES (?, 'Sin tipo', 0)", cuitUno);
    EXPECT_EQ(guardarEmpresa(conexion, {false, empresaCompleta(), {}, {}}), std::nullopt);
    EXPECT_EQ(contar(conexion, "FROM Empresas_Sucursales WHERE Marca = 1"), 1);
    EXPECT_EQ(contar(conexion, "FROM Empresas_Responsables"), 1);
    EXPECT_EQ(cargarResponsables(conexion, cuitUno).size(), 0U); // its document type is in no catalogue
}

TEST_F(PruebaListas, LaUnicaSucursalEnBlancoSeBorra)
{
    const qint64 id = sembrarSucursal(conexion, cuitUno, QStringLiteral("1"), QStringLiteral("Berisso"));
    EXPECT_EQ(guardar({FilaSucursal{.id = id}}), std::nullopt);
    EXPECT_EQ(contar(conexion, "FROM Empresas_Sucursales"), 0);
}

TEST_F(PruebaListas, LosResponsablesSeReemplazanYVanPorNombre)
{
    conexion.ejecutar("INSERT INTO Empresas_Responsables (CUIT, AyN, TipoDoc, NroDoc) VALUES (?, 'Ajeno', 1, 1)",
                      cuitDos);
    EXPECT_EQ(guardar({responsable("Zárate"), FilaResponsable{.tipoDoc = QStringLiteral("DNI"), .nroDoc = 0},
                       responsable("Álvarez O'Connor")}),
              std::nullopt);
    const std::vector<FilaResponsable> filas{responsable("Álvarez O'Connor"), responsable("Zárate")};
    EXPECT_EQ(cargarResponsables(conexion, cuitUno), filas);
    EXPECT_EQ(guardar(std::vector{responsable("Nueva")}), std::nullopt);
    EXPECT_EQ(cargarResponsables(conexion, cuitUno), std::vector{responsable("Nueva")});
    EXPECT_EQ(cargarResponsables(conexion, cuitDos).size(), 1U);
}

TEST_F(PruebaListas, ResponsablesIncompletosDeshacenTodo)
{
    EXPECT_EQ(guardar(std::vector{responsable("Queda")}), std::nullopt);
    const auto antes = cargarEmpresa(conexion, cuitUno);
    const FilaResponsable casos[] = {responsable(""), responsable("Uno", ""), responsable("Uno", "DNI", 0),
                                     responsable("Uno", "DNI", std::nullopt),
                                     FilaResponsable{.localidad = QStringLiteral("Berisso")}};
    for (const FilaResponsable& caso : casos)
    {
        EntradaEmpresa entrada{false, empresaCompleta(), std::vector{sucursal(0, "1")},
                               std::vector{responsable("Entra"), caso}};
        EXPECT_EQ(guardarEmpresa(conexion, entrada), incompletos);
        EXPECT_EQ(cargarResponsables(conexion, cuitUno), std::vector{responsable("Queda")});
        EXPECT_EQ(cargarEmpresa(conexion, cuitUno), antes);
        EXPECT_EQ(contar(conexion, "FROM Empresas_Sucursales"), 0);
    }
}

TEST_F(PruebaListas, EmpresaNuevaConSusListas)
{
    EXPECT_EQ(guardarEmpresa(conexion, {true, empresaCompleta(cuitDos), std::vector{sucursal(0, "1"), sucursal(0, "2")},
                                        std::vector{responsable("Uno")}}),
              std::nullopt);
    EXPECT_EQ(cargarSucursales(conexion, cuitDos).size(), 2U);
    EXPECT_EQ(cargarResponsables(conexion, cuitDos), std::vector{responsable("Uno")});
}

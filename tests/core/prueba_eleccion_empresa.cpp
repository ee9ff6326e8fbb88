// The choice of a company by its name, and the look-ups behind it. Leaving the CUIT is played by scripts.
#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/datos.h"
#include "core/lista_empresas.h"
#include "core/screens/eleccion_empresa.h"
#include "ui/fields/campo_mascara.h"

#include <QComboBox>
#include <gtest/gtest.h>

namespace
{
void sembrar(const char* cuit, const char* razon)
{
    poner("Empresas", {{"CUIT", cuit}, {"Razon", *razon == '\0' ? Valor(nullptr) : Valor(razon)}}); // no name is a null
}

struct Eleccion : testing::Test
{
    BaseDePrueba base;
    CajasDePrueba cajas;
    CampoMascara maskCuit;
    QComboBox cmbEmpresa;
    QString hechos; ///< calls of the hooks
    EleccionEmpresa eleccion{&maskCuit,
                             &cmbEmpresa,
                             {[this] { hechos += QLatin1Char('L'); },
                              [this] { hechos += "E(" + eleccion.cuit() + u',' + eleccion.razon() + u')'; }},
                             nullptr};

    Eleccion() { maskCuit.setClase(CampoMascara::Cuit); }
    QString elegir(int posicion)
    {
        cmbEmpresa.setCurrentIndex(posicion);
        Q_EMIT cmbEmpresa.activated(posicion);
        return std::exchange(hechos, {});
    }
};
} // namespace

TEST_F(Eleccion, CadaNombreEsElDeSuCuit)
{
    Conexion& conexion = base.conexion();
    EXPECT_EQ(std::nullopt, cuitDeUnicaEmpresa(conexion));
    sembrar("30-00000001-1", "Ñandú");
    EXPECT_EQ("30-00000001-1", cuitDeUnicaEmpresa(conexion).value_or(""));
    for (const auto& [cuit, razon] : {std::pair("30-00000002-1", "ÑANDÚ"),
                                      {"30-00000003-1", "Ñandu"},
                                      {"30-00000004-1", "D'Angelo"},
                                      {"30-00000006-1", ""}})
    {
        sembrar(cuit, razon);
        EXPECT_EQ(cuit, cuitDeRazon(conexion, razon).value_or(""));
    }
    sembrar("30-00000005-1", "D'Angelo"); // the name of two is that of the first
    EXPECT_EQ("30-00000004-1", cuitDeRazon(conexion, "D'Angelo").value_or(""));
    EXPECT_EQ(std::nullopt, cuitDeRazon(conexion, "D'Ang"));
    EXPECT_EQ(std::nullopt, cuitDeUnicaEmpresa(conexion));
    EXPECT_EQ("ÑANDÚ", razonDeCuit(conexion, "30-00000002-1").value_or(""));
    EXPECT_EQ(std::nullopt, razonDeCuit(conexion, "30-0000000_-_"));
}

TEST_F(Eleccion, EliminadasYAgregadasDespuesDeLlenarLaLista)
{
    sembrar("30-00000001-1", "Dos");
    sembrar("30-00000002-1", "Uno");
    EXPECT_TRUE(eleccion.cargar());
    EXPECT_EQ("LE(30-00000002-1,Uno)", elegir(1));
    sembrar("30-00000003-1", "Tres");
    base.conexion().ejecutar("DELETE FROM Empresas WHERE Razon = 'Dos'");
    eleccion.releer();
    EXPECT_EQ("LE(30-00000002-1,Uno)", std::exchange(hechos, {}));
    EXPECT_EQ(2, cmbEmpresa.count());

    base.conexion().ejecutar("DELETE FROM Empresas WHERE Razon = 'Tres'");
    cajas.espera(Caja::Critico, "La Empresa elegida ya no se encuentra en la Base de Empresas.");
    EXPECT_EQ("LE(__-________-_,)", elegir(0));
    EXPECT_EQ(1, cmbEmpresa.count());
}

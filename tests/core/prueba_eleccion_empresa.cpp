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

struct Eleccion : ConBase
{
    CajasDePrueba cajas;
    CampoMascara maskCuit;
    QComboBox cmbEmpresa;
    QString hechos; ///< calls of the hooks
    EleccionEmpresa eleccion{
        &maskCuit,
        &cmbEmpresa,
        {[this] { hechos = "L"; }, [this] { hechos += eleccion.cuit() + u' ' + eleccion.razon(); }},
        nullptr};

    Eleccion() { maskCuit.setClase(CampoMascara::Cuit); }
    QString elegir(int posicion)
    {
        cmbEmpresa.setCurrentIndex(posicion);
        Q_EMIT cmbEmpresa.activated(posicion);
        return hechos;
    }
};
} // namespace

TEST_F(Eleccion, CadaNombreEsElDeSuCuit)
{
    EXPECT_EQ(cuitDeUnicaEmpresa(conexion), std::nullopt);
    sembrar("30-00000001-1", "Ñandú");
    sembrar("30-00000002-1", "ÑANDÚ");
    sembrar("30-00000003-1", "Ñandu");
    sembrar("30-00000004-1", "");
    sembrar("30-00000005-1", "D'Angelo");
    sembrar("30-00000006-1", "D'Angelo"); // the name of two is that of the first
    EXPECT_EQ(cuitDeRazon(conexion, "Ñandú"), "30-00000001-1");
    EXPECT_EQ(cuitDeRazon(conexion, "ÑANDÚ"), "30-00000002-1");
    EXPECT_EQ(cuitDeRazon(conexion, "Ñandu"), "30-00000003-1");
    EXPECT_EQ(cuitDeRazon(conexion, ""), "30-00000004-1");
    EXPECT_EQ(cuitDeRazon(conexion, "D'Angelo"), "30-00000005-1");
    EXPECT_EQ(cuitDeRazon(conexion, "D'Ang"), std::nullopt);
    EXPECT_EQ(cuitDeUnicaEmpresa(conexion), std::nullopt);
    EXPECT_EQ(razonDeCuit(conexion, "30-00000002-1"), "ÑANDÚ");
    EXPECT_EQ(razonDeCuit(conexion, "30-0000000_-_"), std::nullopt);
}

TEST_F(Eleccion, EliminadasYAgregadasDespuesDeLlenarLaLista)
{
    sembrar("30-00000001-1", "Dos");
    sembrar("30-00000002-1", "Uno");
    EXPECT_TRUE(eleccion.cargar());
    EXPECT_EQ("L30-00000002-1 Uno", elegir(1));
    sembrar("30-00000003-1", "Tres");
    base.conexion().ejecutar("DELETE FROM Empresas WHERE Razon = 'Dos'");
    eleccion.releer();
    EXPECT_EQ("L30-00000002-1 Uno", hechos);
    EXPECT_EQ(2, cmbEmpresa.count());
    {
        OtroPuesto otro(base);
        otro.tomar();
        EXPECT_EQ(5, numeroDe([&] { eleccion.releer(); }));
    }
    EXPECT_EQ("L__-________-_ ", hechos);
    EXPECT_EQ(2, cmbEmpresa.count()) << "to choose from again";
    base.conexion().ejecutar("DELETE FROM Empresas WHERE Razon = 'Tres'");
    cajas.espera(Caja::Critico, "La Empresa elegida ya no se encuentra en la Base de Empresas.");
    EXPECT_EQ("L__-________-_ ", elegir(0));
    EXPECT_EQ(1, cmbEmpresa.count());
}

// The screen of the slip beside another desk.
#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/datos.h"
#include "slips/screens/boletas.h"

namespace
{
struct PantallaBoletas : ConBase
{
    CajasDePrueba cajas;
};

TEST_F(PantallaBoletas, LaQueNoSePudoPrepararSeCierra)
{
    poner("Empresas");
    poner("DDJJ");
    poner("DDJJ_Empleados");
    Rutinas::CuitActual = dePrueba::cuit;
    Rutinas::PeriodoActual = dePrueba::periodo;
    Rutinas::ModoAbrir = 0;
    Boletas boletas;
    boletas.cargar();
    boletas.activar();
    EXPECT_FALSE(boletas.cerrada());
    OtroPuesto otro(base);
    Rutinas::PeriodoActual = dePrueba::periodo.addMonths(-1); // chosen meanwhile
    otro.tomar();
    EXPECT_EQ(5, numeroDe([&] { boletas.activar(); }));
    EXPECT_TRUE(boletas.cerrada()) << "it would show May and be issued for April";
}
} // namespace

// The screen of the slip beside another desk.
#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/datos.h"
#include "slips/screens/boletas.h"
#include "ui/grid/grilla.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

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

TEST_F(PantallaBoletas, LosPagosQueNoSePudieronLeerNoSonLosDelOtroFondo)
{
    poner("Empresas");
    poner("PAGOS", {{"Cuit", dePrueba::cuit}, {"Tipo", 2}, {"Cuenta", 0}});
    Rutinas::CuitActual = dePrueba::cuit;
    Rutinas::ModoAbrir = 2;
    Boletas boletas;
    boletas.cargar();
    boletas.activar();
    auto& fondo = *boletas.findChild<QComboBox*>("cmbConcepto");
    auto& actas = *boletas.findChild<Grilla*>("vsActas");
    const auto elegir = [&](int cual)
    {
        fondo.setCurrentIndex(cual);
        Q_EMIT fondo.activated(cual);
    };
    elegir(0);
    Q_EMIT actas.clic(1, 1);
    boletas.findChild<QLineEdit*>("txtActa")->setText("77");
    OtroPuesto otro(base);
    otro.tomar();
    cajas.esperaQueDiga(Caja::Exclamacion, "La base de datos está ocupada");
    elegir(1);
    EXPECT_EQ(0, actas.filas());
    boletas.findChild<QPushButton*>("cmdEliminar")->click(); // none is chosen: nothing is asked
    EXPECT_EQ(5, numeroDe([&] { boletas.activar(); }));
    EXPECT_FALSE(boletas.cerrada()) << "an act is kept with what was typed of it";
    EXPECT_EQ("77", boletas.findChild<QLineEdit*>("txtActa")->text());
}
} // namespace

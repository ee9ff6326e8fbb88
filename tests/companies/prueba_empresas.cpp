// The screen of the companies beside another desk.
#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/datos.h"
#include "apoyo/pantalla_cerrada.h"
#include "companies/screens/empresas.h"
#include "ui/shell/navegacion.h"

#include <QLineEdit>
#include <QPushButton>

namespace
{
struct PantallaEmpresas : ConBase
{
    CajasDePrueba cajas;
};

TEST_F(PantallaEmpresas, LaQueNoSePudoLeerDejaLaQueEstaba)
{
    poner("Empresas", {{"Rubro", "012110"}});
    Empresas empresas;
    empresas.cargar();
    poner("Empresas", {{"CUIT", "30-87654321-5"}, {"Razon", "Abasto"}, {"Rubro", "012110"}});
    const auto elegir = []
    {
        Rutinas::CuitActual = "30-87654321-5";
        return new PantallaCerrada("BuscarEmpresa");
    };
    Navegacion::instancia().registrar("BuscarEmpresa", elegir);
    const auto buscar = [&]
    {
        empresas.findChild<QPushButton*>("CmdABM_3")->click();
        return empresas.findChild<QLineEdit*>("MaskCuit")->text() + ' ' +
               empresas.findChild<QLineEdit*>("txtRazon")->text();
    };
    const QString antes = dePrueba::cuit + ' ' + empresas.empresaEnCurso();
    OtroPuesto otro(base);
    otro.tomar();
    cajas.esperaQueDiga(Caja::Exclamacion, "La base de datos está ocupada");
    EXPECT_EQ(antes, buscar());
    otro.soltar();
    EXPECT_EQ("30-87654321-5 Abasto", buscar());
}
} // namespace

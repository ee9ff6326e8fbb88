// The screen of the roster beside another desk.
#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/datos.h"
#include "apoyo/pantalla_cerrada.h"
#include "roster/screens/empleados.h"
#include "ui/shell/navegacion.h"

#include <QLineEdit>
#include <QPushButton>

namespace
{
struct PantallaEmpleados : ConBase
{
    CajasDePrueba cajas;
};

TEST_F(PantallaEmpleados, ElQueNoSePudoLeerDejaElQueEstaba)
{
    poner("Empresas");
    poner("DDJJ");
    poner("DDJJ_Empleados", {{"AyN", "Gómez"}});
    poner("DDJJ_Empleados", {{"Cuil", "20-87654321-0"}, {"AyN", "Díaz"}});
    Rutinas::CuitActual = dePrueba::cuit;
    Rutinas::PeriodoActual = dePrueba::periodo;
    Empleados empleados;
    empleados.cargar();
    const auto elegir = []
    {
        Rutinas::CuilElegido = "20-87654321-0";
        return new PantallaCerrada("BuscarEmpleado");
    };
    Navegacion::instancia().registrar("BuscarEmpleado", elegir);
    const auto tras = [&](const char* mando)
    {
        empleados.findChild<QPushButton*>(mando)->click();
        return empleados.findChild<QLineEdit*>("MaskCuil_0")->text() + ' ' +
               empleados.findChild<QLineEdit*>("txtAyN_0")->text();
    };
    OtroPuesto otro(base);
    for (const char* mando : {"cmdEmpleado_5", "cmdFlecha_2"})
    {
        otro.tomar();
        cajas.esperaQueDiga(Caja::Exclamacion, "La base de datos está ocupada");
        EXPECT_EQ("20-12345678-6 Gómez", tras(mando)) << mando;
        otro.soltar();
    }
    EXPECT_EQ("20-87654321-0 Díaz", tras("cmdEmpleado_5"));
}
} // namespace

// What the commands of the declarations screen hand on, and that each tells once what another screen or another desk
// has deleted beside it.
#include "apoyo/abandono.h"
#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/datos.h"
#include "apoyo/pantalla_cerrada.h"
#include "declarations/screens/ddjj.h"
#include "fallos/base_grande.h"
#include "ui/fields/campo_mascara.h"
#include "ui/grid/grilla.h"
#include "ui/shell/navegacion.h"
#include "ui/shell/trabajo_largo.h"

#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <gtest/gtest.h>

namespace
{
struct MandosDDJJ : ConBase
{
    CajasDePrueba cajas;
    std::unique_ptr<DDJJ> pantalla;

    template <class Control>
    Control& control(const char* nombre)
    {
        return *pantalla->findChild<Control*>(nombre);
    }
    /// The screen on the only declaration of one of two companies.
    void abrir()
    {
        for (const QString nombre : {"Empleados", "DDJJ_Sueldos", "Importar", "BuscarDDJJ", "Boletas"})
        {
            Navegacion::instancia().registrar(nombre, [nombre]() -> Pantalla* { throw ErrorParaAvisar(0, nombre); });
        }
        base.conexion().ejecutar("DELETE FROM Empresas");
        poner("Empresas");
        poner("Empresas", {{"CUIT", "30-87654321-5"}, {"Razon", "Abasto"}});
        poner("DDJJ");
        poner("DDJJ_Empleados");
        pantalla = std::make_unique<DDJJ>();
        pantalla->cargar();
        auto& empresas = control<QComboBox>("cmbEmpresa");
        empresas.setCurrentIndex(1);
        Q_EMIT empresas.activated(1);
        Q_EMIT control<Grilla>("vsDDJJ").clic(1, 1);
    }
    void mandar(const char* mando)
    {
        if (auto* boton = pantalla->findChild<QPushButton*>(mando))
        {
            boton->click();
            return;
        }
        Rutinas::BoletaEmitida = true;
        *mando == 'v' ? control<Grilla>("vsDDJJ").clic(1, 1) : protegido([&] { pantalla->activar(); });
    }
    QStringList archivos() { return QDir(base.ruta({})).entryList({"*.txt"}); }
};
} // namespace

TEST_F(MandosDDJJ, LaBoletaRecibeSusCantidadesYSinEmpresaElegidaNoDejaArchivo)
{
    abrir();
    poner("DDJJ_Empleados", {{"Cuil", "20-00000002-1"}, {"Afiliado", false}});
    mandar("vsDDJJ");
    mandar("cmdBoletas_0");
    EXPECT_EQ(std::pair(2, 1), std::pair(int{Rutinas::CantidadEmpleados}, int{Rutinas::CantidadAfiliados}));
    pantalla = std::make_unique<DDJJ>();
    pantalla->cargar();
    cajas.esperaQueDiga(Caja::Pregunta, "Debe enviar").esperaQueDiga(Caja::Informacion, "Error: 13");
    mandar("activar");
    EXPECT_EQ(QStringList(), archivos());
}

TEST_F(MandosDDJJ, LoAbandonadoSeDiceConSusPalabrasYSePuedeRepetir)
{
    abrir();
    const auto importar = [this]
    {
        Rutinas::TextoDevuelto = base.escribir("nomina.dat", nominaDe(600));
        return new PantallaCerrada("Importar");
    };
    Navegacion::instancia().registrar("Importar", importar);
    const auto abandonar = [&](const char* mando)
    {
        const Abandono abandono;
        cajas.espera(Caja::Exclamacion, "La operación ha sido cancelada.");
        mandar(mando);
        EXPECT_FALSE(Puntero::estaOcupado());
    };
    abandonar("cmdImportar");
    cajas.esperaQueDiga(Caja::Exclamacion, "Se han ingresado 600");
    mandar("cmdImportar");
    EXPECT_FALSE(Puntero::estaOcupado());
    cajas.esperaQueDiga(Caja::Pregunta, "Debe enviar");
    abandonar("cmdBoletas_3");
    EXPECT_EQ(QStringList(), archivos());
}

// Nothing stays selected, the lists are those of now, and nothing was written, in the database or beside it.
TEST_F(MandosDDJJ, LoQueOtroPuestoBorroSeDiceUnaVez)
{
    for (const std::string mando :
         {"vsDDJJ", "cmdEliminar", "cmdNomina", "cmdSueldos", "cmdImportar", "cmdCopiar", "cmdBoletas_0",
          "cmdBoletas_1", "cmdBoletas_2", "cmdBoletas_3", "cmdInformes_0", "cmdInformes_1", "cmdInformes_2", "activar"})
    {
        for (const char* borrada : {"PAGOS", "Empresas WHERE Razon <> 'Abasto'"})
        {
            SCOPED_TRACE(mando + ", gone too: " + borrada);
            abrir();
            for (const std::string otra : {"DDJJ", "DDJJ_Empleados", borrada})
            {
                base.conexion().ejecutar("DELETE FROM " + otra);
            }
            if (mando == "cmdEliminar")
            {
                cajas.esperaQueDiga(Caja::Pregunta, {}).esperaQueDiga(Caja::Pregunta, {});
            }
            const bool conEmpresa = *borrada == 'P';
            cajas.espera(Caja::Exclamacion, (conEmpresa || mando == "vsDDJJ" || mando == "cmdEliminar"
                                                 ? QString("La Declaración Jurada 2009/05 - 0")
                                                 : QString("La Empresa 30-12345678-1")) +
                                                " ya no se encuentra en la Base: fue eliminada desde otra ventana u "
                                                "otro puesto.  No se ha grabado ningún dato.");
            mandar(mando.c_str());
            EXPECT_EQ(0U, cajas.pendientes());
            EXPECT_EQ("", control<QLineEdit>("txtAnio").text());
            EXPECT_EQ(0, control<Grilla>("vsDDJJ").filas());
            EXPECT_EQ(conEmpresa ? 2 : 1, control<QComboBox>("cmbEmpresa").count());
            EXPECT_EQ(0, cuantos("PAGOS") + cuantos("DDJJ_Empleados") + cuantos("DDJJ") + archivos().size());
        }
    }
}

TEST_F(MandosDDJJ, LoQueNoSePudoLeerNoQuedaElegidoNiALaVista)
{
    abrir();
    OtroPuesto otro(base);
    const auto& anio = control<QLineEdit>("txtAnio");
    const auto& lista = control<Grilla>("vsDDJJ");
    auto& empresas = control<QComboBox>("cmbEmpresa");
    otro.tomar();
    cajas.esperaQueDiga(Caja::Exclamacion, "La base de datos está ocupada");
    mandar("vsDDJJ");
    EXPECT_EQ("", anio.text()) << "no slip for nobody";
    cajas.esperaQueDiga(Caja::Exclamacion, "La base de datos está ocupada");
    empresas.setCurrentIndex(0);
    Q_EMIT empresas.activated(0);
    EXPECT_EQ(std::pair(-1, 0), std::pair(empresas.currentIndex(), lista.filas())) << "no company under another's name";
    EXPECT_TRUE(control<CampoMascara>("MaskCuit").vacio());
    otro.soltar();
    empresas.setCurrentIndex(1);
    Q_EMIT empresas.activated(1);
    mandar("vsDDJJ");
    EXPECT_EQ("2009", anio.text());
    cajas.esperaQueDiga(Caja::Pregunta, {}).esperaQueDiga(Caja::Pregunta, {});
    cajas.espera(Caja::Exclamacion, "La Declaración Jurada ha sido Eliminada.");
    cajas.esperaQueDiga(Caja::Exclamacion, "La base de datos está ocupada");
    const auto tomar = [&](const DatosDeCaja& /*caja*/) { cajas.pendientes() == 1 ? otro.tomar() : void(); };
    cajas.alVer(tomar); // once it is deleted, before the list is read
    mandar("cmdEliminar");
    EXPECT_EQ(0, lista.filas());
    otro.soltar();
}

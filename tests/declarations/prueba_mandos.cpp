// What the commands of the declarations screen hand on, and that each tells once what another screen or another desk
// has deleted beside it.
#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/datos.h"
#include "declarations/screens/ddjj.h"
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
/// A screen that the user leaves at once.
struct Cerrada : Pantalla
{
    using Pantalla::Pantalla;
    void cargar() override { cerrar(); }
};

struct MandosDDJJ : testing::Test
{
    BaseDePrueba base;
    CajasDePrueba cajas;
    std::unique_ptr<DDJJ> pantalla;

    template <class Control>
    Control& control(const char* nombre)
    {
        return *pantalla->findChild<Control*>(QString::fromLatin1(nombre));
    }
    /// The screen on the only declaration of one of two companies.
    void abrir()
    {
        for (const char* nombre : {"Empleados", "DDJJ_Sueldos", "Importar", "BuscarDDJJ", "Boletas"})
        {
            const QString suyo = QString::fromLatin1(nombre);
            Navegacion::instancia().registrar(suyo, [suyo]() -> Pantalla* { throw ErrorParaAvisar(0, suyo); });
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
    void mandar(const std::string& mando)
    {
        if (mando == "vsDDJJ")
        {
            Q_EMIT control<Grilla>("vsDDJJ").clic(1, 1);
        }
        else if (mando == "activar")
        {
            Rutinas::BoletaEmitida = true;
            protegido([&] { pantalla->activar(); });
        }
        else
        {
            control<QPushButton>(mando.c_str()).click();
        }
    }
};
} // namespace

TEST_F(MandosDDJJ, LaBoletaRecibeSusCantidades)
{
    abrir();
    poner("DDJJ_Empleados", {{"Cuil", "20-00000002-1"}, {"Afiliado", false}});
    mandar("vsDDJJ");
    mandar("cmdBoletas_0");
    EXPECT_EQ(2, Rutinas::CantidadEmpleados);
    EXPECT_EQ(1, Rutinas::CantidadAfiliados);
}

TEST_F(MandosDDJJ, UnaBoletaSinEmpresaElegidaNoDejaArchivo)
{
    abrir();
    pantalla = std::make_unique<DDJJ>();
    pantalla->cargar();
    cajas.esperaQueDiga(Caja::Pregunta, QStringLiteral("Debe enviar"))
        .esperaQueDiga(Caja::Informacion, QStringLiteral("Error: 13"));
    mandar("activar");
    EXPECT_EQ(QStringList(), QDir(base.ruta({})).entryList({QStringLiteral("*.txt")}));
}

TEST_F(MandosDDJJ, ElPunteroVuelveTrasImportar)
{
    abrir();
    Navegacion::instancia().registrar(QStringLiteral("Importar"),
                                      [this]
                                      {
                                          Rutinas::TextoDevuelto = base.escribir(QStringLiteral("vacio.txt"), {});
                                          return new Cerrada(QStringLiteral("Importar"));
                                      });
    cajas.esperaQueDiga(Caja::Exclamacion, QStringLiteral("No se ha actualizado ningún Registro"));
    mandar("cmdImportar");
    EXPECT_FALSE(Puntero::estaOcupado());
}

// Nothing stays selected, the lists are those of now, and nothing was written, in the database or beside it.
TEST_F(MandosDDJJ, LoQueOtroPuestoBorroSeDiceUnaVez)
{
    for (const std::string mando :
         {"vsDDJJ", "cmdEliminar", "cmdNomina", "cmdSueldos", "cmdImportar", "cmdCopiar", "cmdBoletas_0",
          "cmdBoletas_1", "cmdBoletas_2", "cmdBoletas_3", "cmdInformes_0", "cmdInformes_1", "cmdInformes_2", "activar"})
    {
        for (const bool conEmpresa : {true, false})
        {
            SCOPED_TRACE(testing::Message() << mando << (conEmpresa ? "" : ", its company gone too"));
            abrir();
            for (const char* borrado :
                 {"DDJJ", "DDJJ_Empleados", conEmpresa ? "PAGOS" : "Empresas WHERE Razon <> 'Abasto'"})
            {
                base.conexion().ejecutar(std::string("DELETE FROM ") + borrado);
            }
            if (mando == "cmdEliminar")
            {
                cajas.esperaQueDiga(Caja::Pregunta, {}).esperaQueDiga(Caja::Pregunta, {});
            }
            const bool sinMirarLaEmpresa = mando == "vsDDJJ" || mando == "cmdEliminar";
            cajas.espera(Caja::Exclamacion,
                         (conEmpresa || sinMirarLaEmpresa ? QStringLiteral("La Declaración Jurada 2009/05 - 0")
                                                          : QStringLiteral("La Empresa 30-12345678-1")) +
                             QStringLiteral(" ya no se encuentra en la Base: fue eliminada desde otra ventana u otro "
                                            "puesto.  No se ha grabado ningún dato."));
            mandar(mando);
            EXPECT_EQ(0U, cajas.pendientes());
            EXPECT_EQ(QString(), control<QLineEdit>("txtAnio").text());
            EXPECT_EQ(0, control<Grilla>("vsDDJJ").filas());
            EXPECT_EQ(conEmpresa ? 2 : 1, control<QComboBox>("cmbEmpresa").count());
            EXPECT_EQ(0, cuantos("PAGOS") + cuantos("DDJJ_Empleados") + cuantos("DDJJ"));
            EXPECT_EQ(QStringList(), QDir(base.ruta({})).entryList({QStringLiteral("*.txt")}));
        }
    }
}

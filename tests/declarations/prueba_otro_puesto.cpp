// What another screen or another desk deletes beside an open declarations screen: each command tells it, once.
#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/datos.h"
#include "declarations/screens/ddjj.h"
#include "platform/screens/grilla.h"
#include "platform/screens/navegacion.h"

#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <gtest/gtest.h>

namespace
{
struct Caso
{
    const char* mando;
    bool conPreguntas = false;
    bool sinMirarLaEmpresa = false;
};

void PrintTo(const Caso& caso, std::ostream* salida)
{
    *salida << caso.mando;
}

const Caso casos[] = {
    {"vsDDJJ", false, true}, {"cmdEliminar", true, true},
    {"cmdNomina"},           {"cmdSueldos"},
    {"cmdImportar"},         {"cmdCopiar"},
    {"cmdBoletas_0"},        {"cmdBoletas_1"},
    {"cmdBoletas_2"},        {"cmdBoletas_3"},
    {"cmdInformes_0"},       {"cmdInformes_1"},
    {"cmdInformes_2"},       {"activar"},
};

struct OtroPuesto : testing::TestWithParam<Caso>
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
            Navegacion::instancia().registrar(QString::fromLatin1(nombre),
                                              []() -> Pantalla*
                                              { throw ErrorParaAvisar(0, QStringLiteral("opened on what is gone")); });
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
    /// Nothing is selected, the lists are those of now, and nothing was written, in the database or beside it.
    void comprobar(int empresas)
    {
        EXPECT_EQ(0U, cajas.pendientes());
        EXPECT_EQ(QString(), control<QLineEdit>("txtAnio").text());
        EXPECT_EQ(0, control<Grilla>("vsDDJJ").filas());
        EXPECT_EQ(empresas, control<QComboBox>("cmbEmpresa").count());
        EXPECT_EQ(0, cuantos("PAGOS") + cuantos("DDJJ_Empleados") + cuantos("DDJJ"));
        EXPECT_EQ(QStringList(), QDir(base.ruta({})).entryList({QStringLiteral("*.txt")}));
    }
};

const QString fin =
    QStringLiteral(" ya no se encuentra en la Base: fue eliminada desde otra ventana u otro puesto.  No "
                   "se ha grabado ningún dato.");
} // namespace

TEST_P(OtroPuesto, SeDiceUnaVez)
{
    for (const bool conEmpresa : {true, false})
    {
        abrir();
        for (const char* borrado :
             {"DDJJ", "DDJJ_Empleados", conEmpresa ? "PAGOS" : "Empresas WHERE Razon <> 'Abasto'"})
        {
            base.conexion().ejecutar(std::string("DELETE FROM ") + borrado);
        }
        for (int preguntas = GetParam().conPreguntas ? 2 : 0; preguntas > 0; --preguntas)
        {
            cajas.esperaQueDiga(Caja::Pregunta, {});
        }
        cajas.espera(Caja::Exclamacion,
                     (conEmpresa || GetParam().sinMirarLaEmpresa ? QStringLiteral("La Declaración Jurada 2009/05 - 0")
                                                                 : QStringLiteral("La Empresa 30-12345678-1")) +
                         fin);
        mandar(GetParam().mando);
        comprobar(conEmpresa ? 2 : 1);
    }
}

INSTANTIATE_TEST_SUITE_P(Mandos, OtroPuesto, testing::ValuesIn(casos));

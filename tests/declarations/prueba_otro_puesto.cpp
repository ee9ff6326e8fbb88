// What another screen or another desk deletes beside an open declarations screen.
#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/datos.h"
#include "core/vigencia.h"
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
const QString fin =
    QStringLiteral(" ya no se encuentra en la Base: fue eliminada desde otra ventana u otro puesto.  No "
                   "se ha grabado ningún dato.");
const QString sinDeclaracion = QStringLiteral("La Declaración Jurada 2009/05 - 0") + fin;
const QString sinEmpresa = QStringLiteral("La Empresa 30-12345678-1") + fin;

/// A screen that does something and is gone.
class Fugaz : public Pantalla
{
public:
    Fugaz(const QString& nombre, const std::function<void()>& haz)
        : Pantalla(nombre)
        , m_haz(haz)
    {
    }
    void cargar() override
    {
        m_haz();
        cerrar();
    }

private:
    const std::function<void()>& m_haz;
};

/// The screen on the only declaration of one of two companies.
struct OtroPuesto : testing::Test
{
    BaseDePrueba base;
    CajasDePrueba cajas;
    std::function<void()> enOtraPantalla = [] { ADD_FAILURE() << "a screen was opened on what is gone"; };
    std::unique_ptr<DDJJ> pantalla;

    OtroPuesto()
    {
        for (const char* nombre : {"Empleados", "DDJJ_Sueldos", "Importar", "BuscarDDJJ", "Boletas"})
        {
            const QString suyo = QString::fromLatin1(nombre);
            Navegacion::instancia().registrar(suyo, [this, suyo] { return new Fugaz(suyo, enOtraPantalla); });
        }
        poner("Empresas", {{"CUIT", "30-87654321-5"}, {"Razon", "Otra"}});
    }
    template <class Control>
    Control& control(const char* nombre)
    {
        return *pantalla->findChild<Control*>(QString::fromLatin1(nombre));
    }
    void elegirYBorrar(const char* borrado)
    {
        for (const char* tabla : {"Empresas", "DDJJ", "DDJJ_Empleados"})
        {
            base.conexion().ejecutar(std::string("DELETE FROM ") + tabla + " WHERE CUIT = '30-12345678-1'");
            poner(tabla);
        }
        pantalla = std::make_unique<DDJJ>();
        pantalla->cargar();
        control<QComboBox>("cmbEmpresa").setCurrentIndex(1);
        Q_EMIT control<QComboBox>("cmbEmpresa").activated(1);
        Q_EMIT control<Grilla>("vsDDJJ").clic(1, 1);
        EXPECT_EQ(QStringLiteral("2009"), control<QLineEdit>("txtAnio").text());
        borrar(borrado);
    }
    void borrar(const std::string& tabla)
    {
        base.conexion().ejecutar("DELETE FROM " + tabla + " WHERE CUIT = '30-12345678-1'");
        if (tabla == "DDJJ")
        {
            base.conexion().ejecutar("DELETE FROM DDJJ_Empleados");
        }
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
    void comprobar(bool conEmpresa)
    {
        EXPECT_EQ(0U, cajas.pendientes());
        EXPECT_EQ(QString(), control<QLineEdit>("txtAnio").text());
        EXPECT_EQ(0, control<Grilla>("vsDDJJ").filas());
        EXPECT_EQ(conEmpresa ? 2 : 1, control<QComboBox>("cmbEmpresa").count());
        EXPECT_EQ(conEmpresa, control<QComboBox>("cmbEmpresa").currentIndex() != -1);
        EXPECT_EQ(0, cuantos("PAGOS") + cuantos("DDJJ_Empleados WHERE NOT EXISTS (SELECT 1 FROM DDJJ)"));
        EXPECT_EQ(QStringList(), QDir(base.ruta({})).entryList({QStringLiteral("*.txt")}));
    }
};
} // namespace

TEST_F(OtroPuesto, LoBorradoSeDiceUnaVezEnCadaMando)
{
    for (const char* mando :
         {"vsDDJJ", "cmdEliminar", "cmdNomina", "cmdSueldos", "cmdImportar", "cmdCopiar", "cmdBoletas_0",
          "cmdBoletas_1", "cmdBoletas_2", "cmdBoletas_3", "cmdInformes_0", "cmdInformes_1", "cmdInformes_2", "activar"})
    {
        SCOPED_TRACE(mando);
        elegirYBorrar("DDJJ");
        if (mando == std::string("cmdEliminar"))
        {
            cajas.esperaQueDiga(Caja::Pregunta, QStringLiteral("ELIMINAR"))
                .esperaQueDiga(Caja::Pregunta, QStringLiteral("Eliminaran"));
        }
        cajas.espera(Caja::Exclamacion, sinDeclaracion);
        mandar(mando);
        comprobar(true);
        if (mando != std::string("vsDDJJ") && mando != std::string("cmdEliminar")) // these do without the company
        {
            elegirYBorrar("Empresas");
            borrar("DDJJ");
            cajas.espera(Caja::Exclamacion, sinEmpresa);
            mandar(mando);
            comprobar(false);
        }
    }
}

TEST_F(OtroPuesto, LoBorradoTrasUnDialogoSeDiceUnaVez)
{
    for (const char* mando : {"cmdNomina", "cmdSueldos", "cmdImportar", "cmdCopiar"})
    {
        for (const bool dichoEnEl : {false, true})
        {
            SCOPED_TRACE(mando);
            elegirYBorrar("PAGOS");
            enOtraPantalla = [&]
            {
                borrar("DDJJ");
                Rutinas::TextoDevuelto = QStringLiteral("nomina.txt"); // the import's answer
                Rutinas::PeriodoActual = QDate(2009, 4, 1);            // the copy's
                if (dichoEnEl)
                {
                    protegido([] { exigirDeclaracion(Rutinas::Conexion, {dePrueba::cuit, dePrueba::periodo, 0}); });
                }
            };
            cajas.espera(Caja::Exclamacion, sinDeclaracion);
            mandar(mando);
            comprobar(true);
        }
    }
}

TEST_F(OtroPuesto, NadaSeCreaParaUnaEmpresaBorrada)
{
    elegirYBorrar("DDJJ");
    mandar("cmdNueva");
    control<QLineEdit>("txtAnio").setText(QStringLiteral("2009"));
    control<QLineEdit>("txtMes").setText(QStringLiteral("5"));
    borrar("Empresas");
    cajas.espera(Caja::Exclamacion, sinEmpresa);
    mandar("cmdGrabar");
    comprobar(false);
    EXPECT_EQ(0, cuantos("DDJJ"));
    EXPECT_TRUE(control<QPushButton>("cmdNueva").isEnabled());
}

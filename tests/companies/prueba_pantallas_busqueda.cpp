// The search dialogs, and the pair of fields that chooses a company.
#include "apoyo/entrada.h"
#include "companies/empresa.h"
#include "core/rutinas.h"
#include "core/screens/eleccion_empresa.h"
#include "datos_empresa.h"
#include "mesa_empresas.h"
#include "platform/screens/campo_mascara.h"
#include "platform/screens/grilla.h"
#include "platform/screens/navegacion.h"
#include "platform/screens/pantalla.h"

#include <QComboBox>
#include <QDialog>
#include <QHeaderView>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace
{
const QString noEsta =
    QStringLiteral("Verifique los datos de la Empresa.  El Nro. de CUIT no se encuentra en la Base de Empresas.");

/// A screen with nothing but the choice and a field after it.
class PantallaEleccion : public Pantalla
{
public:
    PantallaEleccion()
        : Pantalla(QStringLiteral("Eleccion"))
        , maskCuit(new CampoMascara(this))
        , cmbEmpresa(new QComboBox(this))
        , despues(new QLineEdit(this))
        , eleccion(new EleccionEmpresa(maskCuit, cmbEmpresa,
                                       {[this] { hechos += QLatin1Char('L'); }, [this] { elegida(); }}, this))
    {
        auto* columna = new QVBoxLayout(this);
        maskCuit->setObjectName(QStringLiteral("MaskCuit"));
        cmbEmpresa->setObjectName(QStringLiteral("cmbEmpresa"));
        despues->setObjectName(QStringLiteral("despues"));
        for (QWidget* control :
             {static_cast<QWidget*>(maskCuit), static_cast<QWidget*>(cmbEmpresa), static_cast<QWidget*>(despues)})
        {
            columna->addWidget(control);
        }
    }
    void cargar() override
    {
        if (!eleccion->cargar())
        {
            cerrar();
        }
    }
    void elegida() { hechos += QStringLiteral("E(%1,%2)").arg(eleccion->cuit(), eleccion->razon()); }

    CampoMascara* maskCuit;
    QComboBox* cmbEmpresa;
    QLineEdit* despues;
    QString hechos; ///< calls of the hooks
    EleccionEmpresa* eleccion;
};

struct Dialogos : testing::Test
{
    MesaEmpresas mesa;
    Conexion& conexion = mesa.conexion();

    Dialogos() { conexion.ejecutar("INSERT OR IGNORE INTO Rubros (Codigo, Nombre) VALUES ('522120', 'Panaderías')"); }
    void modal(const char* boton, const std::function<void()>& haz)
    {
        mesa.abrir();
        mesa.enDialogo(boton, haz);
    }
    static void cerrarDialogo() { qobject_cast<QDialog*>(MesaEmpresas::actual()->window())->reject(); }
};

struct Eleccion : testing::Test
{
    MesaEmpresas mesa;
    Conexion& conexion = mesa.conexion();
    PantallaEleccion* pantalla = nullptr;

    void abrir()
    {
        Navegacion::instancia().registrar(QStringLiteral("Eleccion"), [] { return new PantallaEleccion; });
        pantalla = dynamic_cast<PantallaEleccion*>(mesa.abrir("Eleccion"));
    }
    [[nodiscard]] QString hechos() { return std::exchange(pantalla->hechos, {}); }
};
} // namespace

TEST_F(Dialogos, CompanyFoundByNameAndByCuit)
{
    sembrarEmpresa(conexion, cuitUno, QStringLiteral("Panaderia D'Angelo"));
    sembrarEmpresa(conexion, cuitDos, QStringLiteral("Confiteria"));
    sembrarEmpresa(conexion, cuitTres, QStringLiteral("Abasto de pan"));
    const QString uno = cuitUno + QStringLiteral("|Panaderia D'Angelo");
    const QString dos = cuitDos + QStringLiteral("|Confiteria");
    const QString tres = cuitTres + QStringLiteral("|Abasto de pan");
    Rutinas::CuitActual = QStringLiteral("antes");
    modal("CmdABM_3",
          [&]
          {
              EXPECT_EQ(mesa.titulo(), QStringLiteral("B.R.I.V.O. Zona Sauce - Busqueda de Empresas"));
              EXPECT_EQ(mesa.foco(), QStringLiteral("MaskCuit"));
              EXPECT_EQ(mesa.filas("vsGrilla"), (QStringList{tres, dos, uno}));
              Entrada::tecla(Qt::Key_Return);
              EXPECT_EQ(mesa.foco(), QStringLiteral("txtNombre"));
              Entrada::escribir(QStringLiteral("pan"));
              EXPECT_EQ(mesa.filas("vsGrilla"), (QStringList{uno, tres}));
              Entrada::escribir(QStringLiteral("z"));
              EXPECT_EQ(mesa.filas("vsGrilla"), QStringList());
              mesa.escribir("txtNombre", "D'A");
              EXPECT_EQ(mesa.filas("vsGrilla"), QStringList{uno});
              mesa.escribir("MaskCuit", "305");
              EXPECT_EQ(mesa.filas("vsGrilla"), QStringList{uno}); // only on leaving the field
              Entrada::tecla(Qt::Key_Tab);
              EXPECT_EQ(mesa.foco(), QStringLiteral("txtNombre"));
              EXPECT_EQ(mesa.filas("vsGrilla"), QStringList());
              mesa.escribir("MaskCuit", "20123456786");
              Entrada::tecla(Qt::Key_Tab);
              EXPECT_EQ(mesa.filas("vsGrilla"), QStringList{uno});
              Entrada::pulsar(*mesa.grilla("vsGrilla").horizontalHeader()->viewport());
              EXPECT_EQ(Rutinas::CuitActual, QStringLiteral("antes"));
              mesa.pulsarCelda("vsGrilla", 2, 1);
          });
    EXPECT_EQ(Rutinas::CuitActual, cuitUno);
}

TEST_F(Dialogos, CompanyFoundByTheKeyboardAlone)
{
    sembrarEmpresa(conexion, cuitUno, QStringLiteral("Uno"));
    sembrarEmpresa(conexion, cuitDos, QStringLiteral("Dos"));
    modal("CmdABM_3",
          [&]
          {
              Entrada::tecla(Qt::Key_Tab);
              Entrada::tecla(Qt::Key_Tab);
              EXPECT_EQ(mesa.foco(), QStringLiteral("vsGrilla"));
              Entrada::tecla(Qt::Key_Down);
              Entrada::tecla(Qt::Key_Down);
              Entrada::tecla(Qt::Key_Return);
          });
    EXPECT_EQ(Rutinas::CuitActual, cuitUno);
    EXPECT_EQ(mesa.texto("txtRazon"), QStringLiteral("Uno"));
}

TEST_F(Dialogos, TradeOpensEmptyAndClearsItsAnswer)
{
    conexion.ejecutar("DELETE FROM Rubros");
    conexion.ejecutar("INSERT INTO Rubros (Codigo, Nombre) VALUES ('5', 'Panaderías'), ('511', 'Fábricas'), "
                      "('10', 'Otros')");
    Rutinas::TextoDevuelto = QStringLiteral("antes");
    mesa.abrir();
    mesa.pulsar("CmdABM_0");
    mesa.enDialogo("cmdRubro",
                   [&]
                   {
                       EXPECT_EQ(mesa.titulo(), QStringLiteral("B.R.I.V.O. Zona Sauce - Busqueda de Rubros"));
                       EXPECT_EQ(Rutinas::TextoDevuelto, QString());
                       EXPECT_EQ(mesa.filas("vsGrilla"), QStringList());
                       mesa.escribir("txtCodigo", "5");
                       EXPECT_EQ(mesa.filas("vsGrilla"), QStringList());
                       Entrada::tecla(Qt::Key_Return);
                       EXPECT_EQ(mesa.filas("vsGrilla"),
                                 (QStringList{QStringLiteral("5|Panaderías"), QStringLiteral("511|Fábricas")}));
                       Entrada::escribir(QStringLiteral("bric"));
                       EXPECT_EQ(mesa.filas("vsGrilla"), QStringList{QStringLiteral("511|Fábricas")});
                       mesa.pulsarCelda("vsGrilla", 2, 1);
                   });
    EXPECT_EQ(Rutinas::TextoDevuelto, QStringLiteral("511"));
    EXPECT_EQ(mesa.texto("txtNomRubro"), QStringLiteral("Fábricas"));
}

TEST_F(Eleccion, WithoutCompaniesItSaysSo)
{
    mesa.cajas.espera(Caja::Exclamacion, QStringLiteral("Debe Ingresar primero la Empresa correspondiente."));
    abrir();
    EXPECT_EQ(pantalla, nullptr);
}

TEST_F(Eleccion, OnlyCompanyIsChosenAtOnce)
{
    sembrarEmpresa(conexion);
    abrir();
    EXPECT_EQ(hechos(), QStringLiteral("LE(%1,Panadería D'Angelo)").arg(cuitUno));
    EXPECT_TRUE(pantalla->eleccion->hayEmpresa());
}

TEST_F(Eleccion, EachFieldFollowsTheOther)
{
    sembrarEmpresa(conexion, cuitUno, QStringLiteral("Panadería D'Angelo"));
    sembrarEmpresa(conexion, cuitDos, QStringLiteral("Abasto"));
    abrir();
    EXPECT_EQ(hechos(), QString());
    EXPECT_FALSE(pantalla->eleccion->hayEmpresa());

    mesa.escribir("MaskCuit", "20123456786");
    Entrada::tecla(Qt::Key_Return);
    EXPECT_EQ(hechos(), QStringLiteral("LE(%1,Panadería D'Angelo)").arg(cuitUno));
    EXPECT_EQ(mesa.foco(), QStringLiteral("cmbEmpresa"));
    Entrada::tecla(Qt::Key_Up);
    EXPECT_EQ(hechos(), QStringLiteral("LE(%1,Abasto)").arg(cuitDos));

    for (const bool porClic : {true, false})
    {
        mesa.escribir("MaskCuit", "3050001");
        mesa.cajas.espera(Caja::Critico, noEsta);
        if (porClic)
        {
            mesa.pulsar("despues");
        }
        else
        {
            Entrada::tecla(Qt::Key_Tab);
        }
        EXPECT_EQ(mesa.foco(), QStringLiteral("MaskCuit"));
        EXPECT_EQ(hechos(), QStringLiteral("L")); // cleared, and nothing chosen
        EXPECT_EQ(pantalla->eleccion->razon(), QStringLiteral("Abasto"));
    }
    mesa.escribir("MaskCuit", "");
    mesa.pulsar("despues");
    EXPECT_EQ(mesa.foco(), QStringLiteral("despues"));
    EXPECT_EQ(hechos(), QStringLiteral("LE(__-________-_,)"));
    EXPECT_FALSE(pantalla->eleccion->hayEmpresa());
}

TEST_F(Eleccion, NameOfTwoCompaniesIsTheFirstOnes)
{
    sembrarEmpresa(conexion, cuitUno, QStringLiteral("Igual"));
    sembrarEmpresa(conexion, cuitDos, QStringLiteral("Igual"));
    abrir();
    mesa.escribir("MaskCuit", "30500010912");
    Entrada::tecla(Qt::Key_Return);
    EXPECT_EQ(hechos(), QStringLiteral("LE(%1,Igual)").arg(cuitDos)); // a typed CUIT stands
    Entrada::tecla(Qt::Key_End);
    EXPECT_EQ(hechos(), QStringLiteral("LE(%1,Igual)").arg(cuitUno));
}

TEST_F(Eleccion, CompaniesEnteredAndDeletedSinceTheListWasFilled)
{
    sembrarEmpresa(conexion, cuitUno, QStringLiteral("Uno"));
    sembrarEmpresa(conexion, cuitDos, QStringLiteral("Dos"));
    abrir();
    sembrarEmpresa(conexion, cuitTres, QStringLiteral("Tres"));
    mesa.escribir("MaskCuit", "20202020207");
    Entrada::tecla(Qt::Key_Return);
    EXPECT_EQ(hechos(), QStringLiteral("LE(%1,Tres)").arg(cuitTres));
    (void)eliminarEmpresa(conexion, cuitDos);
    mesa.cajas.esperaQueDiga(Caja::Critico, QStringLiteral("ya no se encuentra"));
    Entrada::tecla(Qt::Key_Home);
    EXPECT_EQ(hechos(), QStringLiteral("LE(__-________-_,)"));
    EXPECT_EQ(pantalla->cmbEmpresa->count(), 2);
}

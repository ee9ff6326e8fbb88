// The choice of a company by its CUIT or its name, and the look-ups behind it.
#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/entrada.h"
#include "core/lista_empresas.h"
#include "core/screens/eleccion_empresa.h"
#include "core/screens/mdi_menu_ppal.h"
#include "platform/screens/campo_mascara.h"
#include "platform/screens/navegacion.h"
#include "platform/screens/pantalla.h"

#include <QComboBox>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace
{
const QString cuitUno = QStringLiteral("20-12345678-6");
const QString cuitDos = QStringLiteral("30-50001091-2");
const QString cuitTres = QStringLiteral("20-20202020-9");
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

struct ListaEmpresas : testing::Test
{
    BaseDePrueba base;

    void sembrar(const QString& cuit, const char* razon) const
    {
        agregar(base.conexion(), EmpresaDePrueba{.cuit = cuit, .razon = QString::fromUtf8(razon)});
    }
};

struct Eleccion : ListaEmpresas
{
    CajasDePrueba cajas;
    MDIMenuPpal menu;
    PantallaEleccion* pantalla = nullptr;

    void abrir()
    {
        Navegacion::instancia().registrar(QStringLiteral("Eleccion"), [] { return new PantallaEleccion; });
        Entrada::activar(menu);
        Navegacion::instancia().mostrar(QStringLiteral("Eleccion"));
        Entrada::asentar();
        pantalla = dynamic_cast<PantallaEleccion*>(Navegacion::instancia().abierta(QStringLiteral("Eleccion")));
    }
    void tipearCuit(const char* digitos) const
    {
        Entrada::pulsar(*pantalla->maskCuit);
        Entrada::tecla(Qt::Key_A, Qt::ControlModifier);
        Entrada::tecla(Qt::Key_Delete);
        Entrada::escribir(QString::fromLatin1(digitos));
    }
    [[nodiscard]] QString foco() const
    {
        const QWidget* enfocado = menu.focusWidget();
        return enfocado != nullptr ? enfocado->objectName() : QString();
    }
    [[nodiscard]] QString hechos() const { return std::exchange(pantalla->hechos, {}); }
};
} // namespace

TEST_F(ListaEmpresas, NombresYCuits)
{
    Conexion& conexion = base.conexion();
    EXPECT_EQ(cuitDeUnicaEmpresa(conexion), std::nullopt);
    sembrar(cuitUno, "Zapatería");
    EXPECT_EQ(cuitDeUnicaEmpresa(conexion), cuitUno);
    sembrar(cuitDos, "Ñandú S.A.");
    sembrar(cuitTres, "D'Angelo");
    EXPECT_EQ(cuitDeUnicaEmpresa(conexion), std::nullopt);
    EXPECT_EQ(razonesDeEmpresas(conexion),
              (QStringList{QStringLiteral("D'Angelo"), QStringLiteral("Ñandú S.A."), QStringLiteral("Zapatería")}));
    EXPECT_EQ(cuitDeRazon(conexion, QStringLiteral("D'Angelo")), cuitTres);
    EXPECT_EQ(cuitDeRazon(conexion, QStringLiteral("D'Ang")), std::nullopt);
    EXPECT_EQ(cuitDeRazon(conexion, QString()), std::nullopt);
    conexion.ejecutar("INSERT INTO Empresas (Cuit) VALUES ('30-00000000-7')"); // in the list as an empty line
    EXPECT_EQ(cuitDeRazon(conexion, QString()), QStringLiteral("30-00000000-7"));
    EXPECT_EQ(razonDeCuit(conexion, cuitDos), QStringLiteral("Ñandú S.A."));
    EXPECT_EQ(razonDeCuit(conexion, QStringLiteral("30-5000109_-_")), std::nullopt);
}

TEST_F(Eleccion, SinEmpresasLoDice)
{
    cajas.espera(Caja::Exclamacion, QStringLiteral("Debe Ingresar primero la Empresa correspondiente."));
    abrir();
    EXPECT_EQ(pantalla, nullptr);
}

TEST_F(Eleccion, LaUnicaSeEligeSola)
{
    sembrar(cuitUno, "D'Angelo");
    abrir();
    EXPECT_EQ(hechos(), QStringLiteral("LE(%1,D'Angelo)").arg(cuitUno));
    EXPECT_TRUE(pantalla->eleccion->hayEmpresa());
}

TEST_F(Eleccion, CadaCampoSigueAlOtro)
{
    sembrar(cuitUno, "D'Angelo");
    sembrar(cuitDos, "Abasto");
    abrir();
    EXPECT_EQ(hechos(), QString());
    EXPECT_FALSE(pantalla->eleccion->hayEmpresa());

    tipearCuit("20123456786");
    Entrada::tecla(Qt::Key_Return);
    EXPECT_EQ(hechos(), QStringLiteral("LE(%1,D'Angelo)").arg(cuitUno));
    EXPECT_EQ(foco(), QStringLiteral("cmbEmpresa"));
    Entrada::tecla(Qt::Key_Up);
    EXPECT_EQ(hechos(), QStringLiteral("LE(%1,Abasto)").arg(cuitDos));

    for (const bool porClic : {true, false})
    {
        tipearCuit("3050001");
        cajas.espera(Caja::Critico, noEsta);
        if (porClic)
        {
            Entrada::pulsar(*pantalla->despues);
        }
        else
        {
            Entrada::tecla(Qt::Key_Tab);
        }
        EXPECT_EQ(foco(), QStringLiteral("MaskCuit"));
        EXPECT_EQ(hechos(), QStringLiteral("L")); // cleared, and nothing chosen
        EXPECT_EQ(pantalla->eleccion->razon(), QStringLiteral("Abasto"));
    }
    tipearCuit("");
    Entrada::pulsar(*pantalla->despues);
    EXPECT_EQ(foco(), QStringLiteral("despues"));
    EXPECT_EQ(hechos(), QStringLiteral("LE(__-________-_,)"));
    EXPECT_FALSE(pantalla->eleccion->hayEmpresa());
}

TEST_F(Eleccion, ElNombreDeDosEsElDeLaPrimera)
{
    sembrar(cuitUno, "Igual");
    sembrar(cuitDos, "Igual");
    abrir();
    tipearCuit("30500010912");
    Entrada::tecla(Qt::Key_Return);
    EXPECT_EQ(hechos(), QStringLiteral("LE(%1,Igual)").arg(cuitDos)); // a typed CUIT stands
    Entrada::tecla(Qt::Key_End);
    EXPECT_EQ(hechos(), QStringLiteral("LE(%1,Igual)").arg(cuitUno));
}

TEST_F(Eleccion, EntradasYEliminadasDespuesDeLlenarLaLista)
{
    sembrar(cuitUno, "Uno");
    sembrar(cuitDos, "Dos");
    abrir();
    sembrar(cuitTres, "Tres");
    tipearCuit("20202020209");
    Entrada::tecla(Qt::Key_Return);
    EXPECT_EQ(hechos(), QStringLiteral("LE(%1,Tres)").arg(cuitTres));
    base.conexion().ejecutar("DELETE FROM Empresas WHERE Cuit = ?", cuitDos);
    cajas.esperaQueDiga(Caja::Critico, QStringLiteral("ya no se encuentra"));
    Entrada::tecla(Qt::Key_Home);
    EXPECT_EQ(hechos(), QStringLiteral("LE(__-________-_,)"));
    EXPECT_EQ(pantalla->cmbEmpresa->count(), 2);
}

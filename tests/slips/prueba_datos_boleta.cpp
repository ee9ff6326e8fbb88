#include "boletas_de_prueba.h"
#include "slips/datos_boleta.h"
#include "slips/numero_boleta.h"

#include <gtest/gtest.h>

using namespace dePrueba;

namespace
{
struct DatosDeBoleta : testing::Test
{
    BaseDePrueba base;
    TextosDeBoleta textos{QStringLiteral("Panadería D'Angelo"),
                          QStringLiteral("O'Higgins 1 - (1870) Avellaneda"),
                          QStringLiteral("PAGO DE ACTAS - SEGURO DE SEPELIO"),
                          {},
                          QStringLiteral("15"),
                          QStringLiteral("123456"),
                          QStringLiteral("3")};

    /// "name=value" in their order, exact amounts in plain form.
    [[nodiscard]] QStringList valores(const Boleta& boleta)
    {
        textos.numero = numeroBoleta(boleta);
        QStringList lista;
        for (const ValorDeInforme& valor : valoresDeBoleta(base.conexion(), boleta, textos))
        {
            struct Texto
            {
                QString operator()(const QString& texto) const { return QLatin1Char('\'') + texto + QLatin1Char('\''); }
                QString operator()(qint64 numero) const { return QString::number(numero); }
                QString operator()(Moneda importe) const { return importe.textoPlano(); }
                QString operator()(QDate fecha) const { return fecha.toString(Qt::ISODate); }
            };
            lista.append(valor.nombre + QLatin1Char('=') + std::visit(Texto(), valor.valor));
        }
        return lista;
    }
    [[nodiscard]] QStringList comunes(const Boleta& boleta, const char* total, const char* otros, const char* interes)
    {
        const QString numero = numeroBoleta(boleta);
        return {QStringLiteral("Version='2.0'"),
                QStringLiteral("CUIT='30-12345678-1'"),
                QStringLiteral("Domicilio='O'Higgins 1 - (1870) Avellaneda'"),
                QStringLiteral("Empresa='Panadería D'Angelo'"),
                QStringLiteral("ImporteTotal=") + QString::fromLatin1(total),
                QStringLiteral("Otros_Conceptos='%1'").arg(QString::fromLatin1(otros)),
                QStringLiteral("Interes=") + QString::fromLatin1(interes),
                QStringLiteral("BarCode='%1'").arg(StrToI2of5(numero, false)),
                QStringLiteral("BarNro='%1'").arg(numero)};
    }
};
} // namespace

TEST_F(DatosDeBoleta, ContributionsCountTheWholeRosterOfTheDeclarationAtHand)
{
    const auto empleado = [this](const char* cuil, bool afiliado, const char* imponible, const char* acuerdo,
                                 const char* acuerdo2, int secuencia = 1)
    {
        EmpleadoDePrueba uno;
        uno.secuencia = secuencia;
        uno.cuil = QString::fromLatin1(cuil);
        uno.afiliado = afiliado;
        uno.imponible = pesos(imponible);
        uno.acuerdo = pesos(acuerdo);
        uno.acuerdo2 = pesos(acuerdo2);
        agregar(base.conexion(), uno);
    };
    empleado("20-00000001-0", true, "1000", "100", "10,5");
    empleado("20-00000002-0", true, "2000,25", "0", "0");
    empleado("20-00000003-0", false, "500", "50", "0");
    empleado("20-00000004-0", true, "9999", "0", "0", 0); // the original's
    const Boleta boleta = boletaDeAportes();
    EXPECT_EQ(valores(boleta), comunes(boleta, "41.56", "INTERES 15 DIAS", "1.5") +
                                   QStringList({QStringLiteral("TipoPago='APORTE MENSUAL'"),
                                                QStringLiteral("Periodo='2009/05'"), QStringLiteral("Secuencia=1"),
                                                QStringLiteral("Aporte_2=20.01"), QStringLiteral("Aporte_1A=10.02"),
                                                QStringLiteral("Aporte_1B=10.03"), QStringLiteral("Empleados_2=3"),
                                                QStringLiteral("Remuneracion_2=3660.75"), // with both agreement sums
                                                QStringLiteral("Empleados_1=2"),
                                                QStringLiteral("Remuneracion_1=3000.25"), // without them
                                                QStringLiteral("Fecha=2009-06-10")}));
}

TEST_F(DatosDeBoleta, WithoutMembersTheirFiguresAreZero)
{
    agregar(base.conexion(), EmpleadoDePrueba{.secuencia = 1, .afiliado = false});
    const QStringList todos = valores(boletaDeAportes());
    EXPECT_EQ(todos.value(15), QStringLiteral("Empleados_2=1"));
    EXPECT_EQ(todos.value(17), QStringLiteral("Empleados_1=0"));
    EXPECT_EQ(todos.value(18), QStringLiteral("Remuneracion_1=0"));
}

TEST_F(DatosDeBoleta, InterestAndActsHaveTheirOwnValues)
{
    const Boleta interes = boletaDeInteres();
    EXPECT_EQ(valores(interes),
              comunes(interes, "1234.5", "INTERES 15 DIAS", "1234.5") +
                  QStringList({QStringLiteral("TipoPago='INTERES APORTE'"), QStringLiteral("Periodo='2009/05'"),
                               QStringLiteral("Secuencia=1"), QStringLiteral("Fecha=2009-06-10")}));
    Boleta acta = boletaDeActa();
    const QStringList deActa({QStringLiteral("TipoPago='PAGO DE ACTAS'"),
                              QStringLiteral("Cuenta='PAGO DE ACTAS - SEGURO DE SEPELIO'"),
                              QStringLiteral("Acta_Cuota='ACTA Nº 123456  -  CUOTA Nº 3'"),
                              QStringLiteral("Importe=1000"), QStringLiteral("Fecha=2009-06-10")});
    EXPECT_EQ(valores(acta), comunes(acta, "1100.25", "INTERES 15 DIAS", "100.25") + deActa);
    acta.dias = 0;
    acta.interes = Moneda();
    acta.importeTotal = acta.importeActa;
    EXPECT_EQ(valores(acta), comunes(acta, "1000", "", "0") + deActa);
}

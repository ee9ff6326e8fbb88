// The two reports of a declaration: what is left of them, and long ones. What they say is in a script.
#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/datos.h"
#include "apoyo/hojas.h"
#include "apoyo/rutas.h"
#include "base/error_de_ejecucion.h"
#include "exchange/informe_ddjj.h"
#include "exchange/screens/imprimir_informe.h"
#include "ui/report/informe_vista.h"

#include <QApplication>
#include <QFile>
#include <gtest/gtest.h>

using namespace dePrueba;

namespace
{
struct InformesDDJJ : ConBase
{
    CajasDePrueba cajas;

    void SetUp() override
    {
        for (const char* nombre : {"RptDDJJ.rpt", "RptDDJJ_Incompleto.rpt"})
        {
            ASSERT_TRUE(QFile::copy(rutas::enInstalacion(nombre), base.ruta(nombre)));
        }
        poner("Empresas", {{"Rubro", "012110"}});
    }
    static void empleado(int numero, const char* ayn = "Ana", qint64 sucursal = 0)
    {
        const QString cuil = QString("20-%1-0").arg(numero, 8, 10, QChar('0'));
        poner("DDJJ_Empleados", {{"Cuil", cuil}, {"AyN", ayn}, {"Categoria", 11}, {"Sucursal", sucursal}});
    }
    /// Prints into a PDF and gives its path; nothing when no preview came.
    [[nodiscard]] QString pdf(InformeDDJJ cual)
    {
        ImprimirInforme(clave, "5", "2009", cual);
        for (QWidget* ventana : QApplication::topLevelWidgets())
        {
            if (const std::unique_ptr<VistaDeInforme> vista{qobject_cast<VistaDeInforme*>(ventana)})
            {
                vista->guardarPdf(base.ruta("informe.pdf"));
                return base.ruta("informe.pdf");
            }
        }
        return {};
    }
};
} // namespace

// What is told without a roster, or without a layout, is in the scripts.
TEST_F(InformesDDJJ, SalgaBienOMalNadaQuedaPreparado)
{
    empleado(1);
    poner("RptEmpleados", {{"Indice", 0}}); // left by an earlier version
    // Not one row goes into the file itself, so that none is left by a program that is killed.
    conexion.ejecutar("CREATE TRIGGER Nunca BEFORE INSERT ON RptEmpleados BEGIN SELECT RAISE(FAIL, 'no'); END");
    EXPECT_EQ(hojas::textos(pdf(InformeDDJJ::Declaracion)).size(), 1);
    EXPECT_TRUE(hojas::textos(pdf(InformeDDJJ::DatosIncompletos))
                    .value(0)
                    .contains("Todos los empleados tienen sus datos completos."));
    base.escribir("RptDDJJ_Incompleto.rpt", "<html><body><table filas='x'>");
    cajas.esperaQueDiga(Caja::Simple, "RptDDJJ_Incompleto.rpt");
    EXPECT_EQ(pdf(InformeDDJJ::DatosIncompletos), QString());
    conexion.ejecutar("UPDATE Empresas SET Rubro = 'no esta'");
    EXPECT_THROW((void)pdf(InformeDDJJ::Declaracion), ErrorDeEjecucion);
    EXPECT_EQ(filas("SELECT count(*) FROM RptEmpleados"), "0");
}

TEST_F(InformesDDJJ, LasHojasDicenTodo)
{
    conexion.ejecutar("UPDATE Empresas SET CodPos = '', Localidad = '', Est_Localidad = 'Azul'");
    const char* const nombres[] = {"D'Angelo <b>Ana</b> & Compañía", "WWWWWWWWWWWWWWWWWWWWWW MMMMMMMMMMMMMMMMMMMMMM",
                                   "Ñáñez Óscar \"Fito\"", "Fernández de la Reguera Vizcaíno de Ofi"};
    const qint64 sucursales[] = {poner("Empresas_Sucursales"), poner("Empresas_Sucursales", {{"Sucursal", "2"}})};
    for (int i = 0; i < 160; ++i)
    {
        empleado(i, nombres[i % 4], sucursales[i / 80]);
    }
    conexion.ejecutar(
        "UPDATE DDJJ_Empleados SET Imponible = 5000000000000, Acuerdo = 9999999900, ART100 = 9999999900, "
        "ART101A = 9999999900, ART101B = 9999999900, Ingreso = CASE substr(Cuil, 11, 1) % 2 WHEN 0 THEN Ingreso END");
    const QString ruta = pdf(InformeDDJJ::Declaracion);
    const QStringList hojas = hojas::textos(ruta);
    ASSERT_GT(hojas.size(), 4);
    int seguidas = 0;
    for (qsizetype i = 0; i < hojas.size(); ++i)
    {
        EXPECT_EQ(hojas[i].count(QString("Página %1 de %2").arg(i + 1).arg(hojas.size())), 2);
        EXPECT_FALSE(hojas[i].contains("()"));
        seguidas += static_cast<int>(hojas[i].count("Aportes Sucursal: 1 (continuación) 20-"));
    }
    EXPECT_GE(seguidas, 1);
    const QString todo = hojas.join(QLatin1Char(' '));
    EXPECT_EQ(todo.count("500.000.000,00"), 160);
    EXPECT_EQ(todo.count(" 999.999,99"), 160 * 4);
    EXPECT_EQ(todo.count(QString::fromUtf8(nombres[0])), 40);
    EXPECT_EQ(todo.count(QString(22, QLatin1Char('M'))), 40);
    EXPECT_TRUE(todo.contains("TOTAL: 160 empleados 80.000.000.000,00 159.999.998,40"));
    EXPECT_TRUE(todo.contains(" Azul"));
    const QStringList incompletos = hojas::textos(pdf(InformeDDJJ::DatosIncompletos));
    EXPECT_TRUE(incompletos.back().contains("80 empleados con datos incompletos"));
    EXPECT_EQ(incompletos.join(QLatin1Char(' ')).count("FALTA"), 80);
}

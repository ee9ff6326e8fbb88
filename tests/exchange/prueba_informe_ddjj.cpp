// The two reports of a declaration: what is staged for them, what they are handed, what they print, what is left.
#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/datos.h"
#include "apoyo/hojas.h"
#include "apoyo/rutas.h"
#include "base/error_de_ejecucion.h"
#include "exchange/informe_ddjj.h"
#include "exchange/screens/imprimir_informe.h"
#include "ui/report/informe_plantilla.h"
#include "ui/report/informe_vista.h"

#include <QApplication>
#include <QFile>
#include <algorithm>
#include <gtest/gtest.h>

using namespace dePrueba;

namespace
{
const ClaveDDJJ clave{cuit, periodo, 0};

struct InformesDDJJ : testing::Test
{
    BaseDePrueba base;
    CajasDePrueba cajas;
    Conexion& conexion = base.conexion();

    void SetUp() override
    {
        for (const char* nombre : {"RptDDJJ.rpt", "RptDDJJ_Incompleto.rpt"})
        {
            ASSERT_TRUE(
                QFile::copy(rutas::enInstalacion(QString::fromLatin1(nombre)), base.ruta(QString::fromLatin1(nombre))));
        }
        poner("Empresas", {{"Rubro", "012110"}});
    }
    static void empleado(int numero, const char* ayn = "Ana", qint64 sucursal = 0)
    {
        const QString cuil = QStringLiteral("20-%1-0").arg(numero, 8, 10, QLatin1Char('0'));
        poner("DDJJ_Empleados", {{"Cuil", cuil}, {"AyN", ayn}, {"Categoria", 11}, {"Sucursal", sucursal}});
    }
    /// Prints into a PDF and gives its path; nothing when no preview came.
    [[nodiscard]] QString pdf(InformeDDJJ cual)
    {
        ImprimirInforme(clave, QStringLiteral("5"), QStringLiteral("2009"), cual);
        for (QWidget* ventana : QApplication::topLevelWidgets())
        {
            if (const std::unique_ptr<VistaDeInforme> vista{qobject_cast<VistaDeInforme*>(ventana)})
            {
                vista->guardarPdf(base.ruta(QStringLiteral("informe.pdf")));
                return base.ruta(QStringLiteral("informe.pdf"));
            }
        }
        return {};
    }
};
} // namespace

TEST_F(InformesDDJJ, LaDeclaracionPreparaSuNominaYLasSucursales)
{
    const qint64 centro = poner("Empresas_Sucursales", {{"Sucursal", "10"}});
    poner("Empresas_Sucursales", {{"Sucursal", "2"}, {"Domicilio", "Alsina"}});
    poner("Empresas_Sucursales", {{"CUIT", "30-87654321-5"}});
    empleado(1, "D'Angelo", centro);
    conexion.ejecutar("UPDATE DDJJ_Empleados SET Acuerdo = 105000, Acuerdo2 = 10000, Egreso = '2009-05-15'");
    poner("DDJJ_Empleados", {{"AyN", "Luis"}, {"Sucursal", 999}, {"Categoria", 9999}, {"Afiliado", 0}});
    poner("DDJJ_Empleados", {{"Secuencia", 1}});
    prepararInforme(conexion, clave, 7, InformeDDJJ::Declaracion);
    EXPECT_EQ(filas("SELECT Indice, Sucursal_Cod, Sucursal, AyN, Cuil, Ingreso, QHoras, Imponible, Art100, Art101A, "
                    "Art101B, Egreso, Acuerdo, Acuerdo2, Categoria IS NULL FROM RptEmpleados WHERE Tipo = 0"),
              "7|1|10|D'Angelo|20-00000001-0|2001-02-01|200|10000000|200000|100000|100000|2009-05-15|105000|10000|0;"
              "7|999|Null|Luis|20-12345678-6|2001-02-01|200|10000000|200000|100000|100000|Null|0|0|1");
    EXPECT_EQ(filas("SELECT Indice, Sucursal, Calle, Numero, Localidad FROM RptEmpleados WHERE Tipo = 1"),
              "7|2|Alsina|45|Avellaneda;7|10|Belgrano|45|Avellaneda");
}

TEST_F(InformesDDJJ, AQuienLeFaltaUnDatoVaAlSegundoInforme)
{
    const std::pair<const char*, bool> casos[] = {
        {"Afiliado = 1", false},  {"TipoDoc = 0", true},    {"TipoDoc = 99", true},  {"NroDoc = 0", true},
        {"NroDoc = NULL", false}, {"Sexo = NULL", true},    {"Sexo = 0", false},     {"Nacio = NULL", true},
        {"EstCivil = 0", true},   {"Ingreso = NULL", true}, {"Categoria = 0", true}, {"Sucursal = 0", false}};
    std::string esperados;
    int numero = 50; // the later ones first
    for (const auto& [cambio, falta] : casos)
    {
        empleado(--numero, cambio);
        conexion.ejecutar(std::string("UPDATE DDJJ_Empleados SET ") + cambio + " WHERE AyN = ?", cambio);
        esperados = falta ? cambio + (esperados.empty() ? "" : ";" + esperados) : esperados;
    }
    prepararInforme(conexion, clave, 7, InformeDDJJ::DatosIncompletos);
    EXPECT_EQ(filas("SELECT AyN FROM RptEmpleados WHERE Tipo IS NULL AND Indice = 7 ORDER BY rowid"), esperados);
    EXPECT_EQ(filas("SELECT TipoDoc, NroDoc, Sexo, Nacio, EstCivil, Categoria IS NULL, Ingreso FROM RptEmpleados "
                    "WHERE AyN IN ('Ingreso = NULL', 'Categoria = 0', 'NroDoc = 0') ORDER BY Cuil"),
              "DNI|12345678|1|1970-03-15|Soltero/a|1|2001-02-01;DNI|12345678|1|1970-03-15|Soltero/a|0|Null;"
              "DNI|0|1|1970-03-15|Soltero/a|0|2001-02-01");
}

TEST_F(InformesDDJJ, LosValoresSeEntreganPorIndice)
{
    conexion.ejecutar("UPDATE Empresas SET Razon = 'D''Angelo', Numero = 0, NroLocal = '', Piso = '2', Depto = NULL, "
                      "Telefono = '4222', Email = 'a@b', Estudio = 'Núñez', Est_Domicilio = 'Calle 7', "
                      "Est_CodPos = '1900', Est_Localidad = 'La Plata', Est_Telefono = '422', Est_EMail = 'e@b'");
    const auto valores = [this](InformeDDJJ cual)
    {
        const Recordset empresa = conexion.consultar("SELECT *, 'Pan' AS Nombre FROM Empresas");
        QStringList lista;
        for (const ValorDeInforme& valor :
             valoresDeInforme(empresa.primera(), clave, 7, QStringLiteral("5"), QStringLiteral("2009"), cual))
        {
            lista.append(valor.nombre + QLatin1Char('=') + textoDeValor(valor));
        }
        return lista.join(QLatin1Char('|')).toStdString();
    };
    const std::string comunes = "Indice=7|Empresa=D'Angelo|CUIT=30-12345678-1|Mes=5|Anio=2009";
    EXPECT_EQ(valores(InformeDDJJ::DatosIncompletos), comunes);
    EXPECT_EQ(valores(InformeDDJJ::Declaracion),
              comunes + "|Domicilio=San Martín 2|Localidad=(1870) Avellaneda|Telefono=4222|Actividad=Pan|EMail=a@b"
                        "|Estudio=Núñez|Estudio_Domicilio=Calle 7|Estudio_CodPos=(1900)|Estudio_Localidad=La Plata"
                        "|Estudio_Telefono=422|Estudio_EMail=e@b");
}

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
                    .contains(QStringLiteral("Todos los empleados tienen sus datos completos.")));
    base.escribir(QStringLiteral("RptDDJJ_Incompleto.rpt"), "<html><body><table filas='x'>");
    cajas.esperaQueDiga(Caja::Simple, QStringLiteral("RptDDJJ_Incompleto.rpt"));
    EXPECT_EQ(pdf(InformeDDJJ::DatosIncompletos), QString());
    conexion.ejecutar("UPDATE Empresas SET Rubro = 'no esta'");
    EXPECT_THROW((void)pdf(InformeDDJJ::Declaracion), ErrorDeEjecucion);
    EXPECT_EQ(filas("SELECT count(*) FROM RptEmpleados"), "0");
}

TEST_F(InformesDDJJ, CadaTotalEsLaSumaDeSuSucursal)
{
    std::vector<qint64> sucursales{0, 999};
    for (const char* nombre : {"2", "10", "a", "A", "A"})
    {
        sucursales.push_back(poner("Empresas_Sucursales", {{"Sucursal", nombre}}));
    }
    for (int i = 0; i < 14; ++i)
    {
        empleado(i, "Gómez", sucursales[static_cast<std::size_t>(i % 7)]);
    }
    conexion.ejecutar("WITH n AS (SELECT Cuil, 1 << substr(Cuil, 4, 8) AS n FROM DDJJ_Empleados) UPDATE DDJJ_Empleados "
                      "SET Imponible = n * 100000000, Acuerdo = n * 10100, Acuerdo2 = n * 100, ART100 = n * 300, "
                      "ART101A = n * 500, ART101B = n * 700 FROM n WHERE n.Cuil = DDJJ_Empleados.Cuil");
    prepararInforme(conexion, clave, 7, InformeDDJJ::Declaracion);
    const auto plantilla = PlantillaDeInforme::leer(base.ruta(QStringLiteral("RptDDJJ.rpt")));
    const auto datos = DatosDeInforme::leer(plantilla, conexion, {{QStringLiteral("Indice"), qint64{7}}});
    const FilasDeInforme& conjunto = datos.conjuntos.at(QStringLiteral("Empleados"));
    std::string dicho;
    for (const auto& fila : conjunto.filas)
    {
        const auto celda = [&](const char* columna) {
            return fila[static_cast<std::size_t>(std::ranges::find(conjunto.columnas, columna) -
                                                 conjunto.columnas.begin())];
        };
        if (!celda("EsTitulo").empty())
        {
            dicho += celda("AyN") + '\n';
        }
        if (!celda("EsTotal").empty())
        {
            dicho += celda("AyN") + ' ' + celda("Imponible") + ' ' + celda("Acuerdo") + ' ' + celda("Art100") + ' ' +
                     celda("Art101A") + ' ' + celda("Art101B") + ' ' + celda("Aportes") + '\n';
        }
    }
    EXPECT_EQ("Sucursal: sin asignar\n"
              "Sucursal sin asignar: 4 empleados 3.870.000,00 394,74 11,61 19,35 27,09 58,05\n"
              "Sucursal: A\n"
              "Sucursal A: 2 empleados 41.280.000,00 4.210,56 123,84 206,40 288,96 619,20\n"
              "Sucursal: A\n"
              "Sucursal A: 2 empleados 82.560.000,00 8.421,12 247,68 412,80 577,92 1.238,40\n"
              "Sucursal: a\n"
              "Sucursal a: 2 empleados 20.640.000,00 2.105,28 61,92 103,20 144,48 309,60\n"
              "Sucursal: 2\n"
              "Sucursal 2: 2 empleados 5.160.000,00 526,32 15,48 25,80 36,12 77,40\n"
              "Sucursal: 10\n"
              "Sucursal 10: 2 empleados 10.320.000,00 1.052,64 30,96 51,60 72,24 154,80\n"
              "TOTAL: 14 empleados 163.830.000,00 16.710,66 491,49 819,15 1.146,81 2.457,45\n",
              dicho);
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
        EXPECT_EQ(hojas[i].count(QStringLiteral("Página %1 de %2").arg(i + 1).arg(hojas.size())), 2);
        EXPECT_FALSE(hojas[i].contains(QStringLiteral("()")));
        seguidas += static_cast<int>(hojas[i].count(QStringLiteral("Aportes Sucursal: 1 (continuación) 20-")));
    }
    EXPECT_GE(seguidas, 1);
    const QString todo = hojas.join(QLatin1Char(' '));
    EXPECT_EQ(todo.count(QStringLiteral("500.000.000,00")), 160);
    EXPECT_EQ(todo.count(QStringLiteral(" 999.999,99")), 160 * 4);
    EXPECT_EQ(todo.count(QString::fromUtf8(nombres[0])), 40);
    EXPECT_EQ(todo.count(QString(22, QLatin1Char('M'))), 40);
    EXPECT_TRUE(todo.contains(QStringLiteral("TOTAL: 160 empleados 80.000.000.000,00 159.999.998,40")));
    EXPECT_TRUE(todo.contains(QStringLiteral(" Azul")));
    const QStringList incompletos = hojas::textos(pdf(InformeDDJJ::DatosIncompletos));
    EXPECT_TRUE(incompletos.back().contains(QStringLiteral("80 empleados con datos incompletos")));
    EXPECT_EQ(incompletos.join(QLatin1Char(' ')).count(QStringLiteral("FALTA")), 80);
}

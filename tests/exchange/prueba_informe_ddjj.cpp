// The two reports of a declaration: what is staged for them, what they are handed, what is left afterwards.
#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/rutas.h"
#include "exchange/informe_ddjj.h"
#include "exchange/screens/imprimir_informe.h"
#include "platform/data/error_de_ejecucion.h"
#include "platform/screens/informe_plantilla.h"
#include "platform/screens/informe_vista.h"

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <map>

using namespace dePrueba;

namespace
{
const ClaveDDJJ clave{cuit, periodo, 0};
const QStringList layouts{QStringLiteral("RptDDJJ.rpt"), QStringLiteral("RptDDJJ_Incompleto.rpt")};

Moneda pesos(const char* texto)
{
    return Moneda::deTexto(QString::fromLatin1(texto));
}

struct InformesDDJJ : testing::Test
{
    BaseDePrueba base;
    CajasDePrueba cajas;
    Conexion& conexion = base.conexion();

    void SetUp() override
    {
        for (const QString& nombre : layouts)
        {
            ASSERT_TRUE(QFile::copy(rutas::enInstalacion(nombre), base.ruta(nombre)));
        }
        agregar(conexion, EmpresaDePrueba());
        conexion.ejecutar("UPDATE Empresas SET Rubro = (SELECT min(Codigo) FROM Rubros)");
    }
    void TearDown() override
    {
        for (QWidget* ventana : QApplication::topLevelWidgets())
        {
            if (qobject_cast<VistaDeInforme*>(ventana) != nullptr)
            {
                delete ventana;
            }
        }
    }
    static EmpleadoDePrueba empleado(const char* cuil, const char* ayn, qint64 sucursal = 0)
    {
        EmpleadoDePrueba uno;
        uno.cuil = QString::fromLatin1(cuil);
        uno.ayn = QString::fromUtf8(ayn);
        uno.sucursal = sucursal;
        uno.categoria = 11; // in the seed
        return uno;
    }
    /// Rows of a query, values joined by "|", a Null as "Null".
    [[nodiscard]] QStringList filas(const char* sql)
    {
        QStringList lista;
        conexion.recorrer(sql,
                          [&](const Fila& fila)
                          {
                              QStringList celdas;
                              for (int c = 0; c < fila.columnas(); ++c)
                              {
                                  const char* nombre = fila.nombre(c);
                                  celdas.append(fila.esNulo(nombre) ? QStringLiteral("Null") : fila.texto(nombre));
                              }
                              lista.append(celdas.join(QLatin1Char('|')));
                          });
        return lista;
    }
    [[nodiscard]] QString uno(const char* sql) { return filas(sql).value(0); }
    [[nodiscard]] static VistaDeInforme* vista()
    {
        for (QWidget* ventana : QApplication::topLevelWidgets())
        {
            if (auto* hallada = qobject_cast<VistaDeInforme*>(ventana))
            {
                return hallada;
            }
        }
        return nullptr;
    }
    /// Text of each page of the report now in preview, blanks run together.
    [[nodiscard]] QStringList hojas() const
    {
        const QString pdf = base.ruta(QStringLiteral("informe.pdf"));
        vista()->guardarPdf(pdf);
        QProcess proceso;
        proceso.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
        EXPECT_TRUE(proceso.waitForFinished());
        QStringList textos =
            QString::fromUtf8(proceso.readAllStandardOutput()).split(QLatin1Char('\f'), Qt::SkipEmptyParts);
        for (QString& texto : textos)
        {
            texto = texto.simplified();
        }
        return textos;
    }
    struct Palabra
    {
        double izquierda;
        double derecha;
        double arriba;
        QString texto;
    };
    /// The words of the report now in preview where they stand, in points, in the order of the pages.
    [[nodiscard]] QList<Palabra> palabras() const
    {
        const QString pdf = base.ruta(QStringLiteral("informe.pdf"));
        vista()->guardarPdf(pdf);
        QProcess proceso;
        proceso.start(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), pdf, QStringLiteral("-")});
        EXPECT_TRUE(proceso.waitForFinished());
        static const QRegularExpression marca(
            QStringLiteral("<word xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\" xMax=\"([\\d.]+)\"[^>]*>([^<]*)</word>"));
        QList<Palabra> lista;
        for (auto i = marca.globalMatch(QString::fromUtf8(proceso.readAllStandardOutput())); i.hasNext();)
        {
            const auto m = i.next();
            lista.append({m.captured(1).toDouble(), m.captured(3).toDouble(), m.captured(2).toDouble(), m.captured(4)});
        }
        return lista;
    }
    void imprimir(InformeDDJJ cual) { ImprimirInforme(clave, QStringLiteral("5"), QStringLiteral("2009"), cual); }
};
} // namespace

TEST_F(InformesDDJJ, TheDeclarationStagesItsRosterAndTheBranches)
{
    const qint64 centro = agregar(conexion, SucursalDePrueba{.sucursal = QStringLiteral("10")});
    agregar(conexion,
            SucursalDePrueba{.sucursal = QStringLiteral("2"), .domicilio = QStringLiteral("Alsina"), .numero = 0});
    agregar(conexion, SucursalDePrueba{.cuit = QStringLiteral("30-87654321-5")});
    EmpleadoDePrueba ana = empleado("20-00000001-0", "D'Angelo Ana", centro);
    ana.acuerdo = pesos("10,5");
    ana.acuerdo2 = pesos("1");
    ana.egreso = QDate(2009, 5, 15);
    ana.qHoras = 100;
    agregar(conexion, ana);
    EmpleadoDePrueba luis = empleado("20-00000002-0", "Luis", 999);
    luis.categoria = 9999;
    luis.afiliado = false;
    agregar(conexion, luis);
    EmpleadoDePrueba otra = empleado("20-00000003-0", "Otra");
    otra.secuencia = 1;
    agregar(conexion, otra);
    prepararInforme(conexion, clave, 7, InformeDDJJ::Declaracion);
    EXPECT_EQ(
        filas("SELECT Indice, Tipo, Sucursal_Cod, Sucursal, AyN, Cuil, Ingreso, QHoras, Imponible, Art100, Art101A, "
              "Art101B, Egreso, Acuerdo, Acuerdo2 FROM RptEmpleados WHERE Tipo = 0 ORDER BY Cuil"),
        QStringList({QStringLiteral("7|0|%1|10|D'Angelo Ana|20-00000001-0|2001-02-01|100|10000000|200000|100000|"
                                    "100000|2009-05-15|105000|10000")
                         .arg(centro),
                     QStringLiteral("7|0|999|Null|Luis|20-00000002-0|2001-02-01|200|10000000|200000|100000|100000|"
                                    "Null|0|0")}));
    EXPECT_EQ(filas("SELECT Categoria IS NULL FROM RptEmpleados WHERE Tipo = 0 ORDER BY Cuil"),
              QStringList({QStringLiteral("0"), QStringLiteral("1")}));
    EXPECT_EQ(
        filas("SELECT Indice, Sucursal, Calle, Numero, Localidad FROM RptEmpleados WHERE Tipo = 1 ORDER BY rowid"),
        QStringList({QStringLiteral("7|2|Alsina|0|Avellaneda"), QStringLiteral("7|10|Belgrano|45|Avellaneda")}));
}

TEST_F(InformesDDJJ, WhoLacksADatumGoesToTheSecondReport)
{
    using Cambio = std::function<void(EmpleadoDePrueba&)>;
    const struct
    {
        const char* que;
        Cambio cambio;
        bool falta;
    } casos[] = {
        {"complete", [](EmpleadoDePrueba&) {}, false},
        {"document type", [](EmpleadoDePrueba& e) { e.tipoDoc = 0; }, true},
        {"document type that is none", [](EmpleadoDePrueba& e) { e.tipoDoc = 99; }, true},
        {"document number", [](EmpleadoDePrueba& e) { e.nroDoc = 0; }, true},
        {"sex", [](EmpleadoDePrueba& e) { e.sexo = std::nullopt; }, true},
        {"woman", [](EmpleadoDePrueba& e) { e.sexo = 0; }, false},
        {"birth", [](EmpleadoDePrueba& e) { e.nacio = QDate(); }, true},
        {"civil state", [](EmpleadoDePrueba& e) { e.estCivil = 0; }, true},
        {"category", [](EmpleadoDePrueba& e) { e.categoria = 0; }, true},
        {"entry", [](EmpleadoDePrueba& e) { e.ingreso = QDate(); }, true},
        {"branch and amounts",
         [](EmpleadoDePrueba& e)
         {
             e.sucursal = 0;
             e.imponible = Moneda();
         },
         false},
    };
    int numero = 50; // the later ones first
    QStringList esperados;
    for (const auto& caso : casos)
    {
        EmpleadoDePrueba uno = empleado("", caso.que);
        uno.cuil = QStringLiteral("20-000000%1-0").arg(--numero);
        caso.cambio(uno);
        agregar(conexion, uno);
        if (caso.falta)
        {
            esperados.prepend(QString::fromLatin1(caso.que));
        }
    }
    agregar(conexion, empleado("20-00000090-0", "null number"));
    conexion.ejecutar("UPDATE DDJJ_Empleados SET NroDoc = NULL WHERE AyN = 'null number'"); // not counted as missing
    prepararInforme(conexion, clave, 7, InformeDDJJ::DatosIncompletos);
    EXPECT_EQ(filas("SELECT AyN FROM RptEmpleados ORDER BY rowid"), esperados);
    EXPECT_EQ(uno("SELECT count(*) FROM RptEmpleados WHERE Tipo IS NULL AND Indice = 7"),
              QString::number(esperados.size()));
    EXPECT_EQ(filas("SELECT TipoDoc, NroDoc, Sexo, Nacio, EstCivil, Categoria IS NULL, Ingreso FROM RptEmpleados "
                    "WHERE AyN IN ('entry', 'category', 'document number') ORDER BY Cuil"),
              QStringList({QStringLiteral("DNI|12345678|1|1970-03-15|Soltero/a|0|Null"),
                           QStringLiteral("DNI|12345678|1|1970-03-15|Soltero/a|1|2001-02-01"),
                           QStringLiteral("DNI|0|1|1970-03-15|Soltero/a|0|2001-02-01")}));
}

TEST_F(InformesDDJJ, ValuesAreHandedOverByIndex)
{
    conexion.ejecutar(
        "UPDATE Empresas SET Razon = 'D''Angelo & Hijos', Numero = 0, NroLocal = '', Piso = '2', Depto = NULL, "
        "Telefono = '4222', Email = 'a@b.example', Estudio = 'Núñez', Est_Domicilio = 'Calle 7', "
        "Est_CodPos = '1900', Est_Localidad = 'La Plata', Est_Telefono = '422', Est_EMail = 'e@b.example'");
    const auto valores = [this](InformeDDJJ cual)
    {
        const Recordset empresa = conexion.consultar("SELECT Empresas.*, Rubros.Nombre FROM Empresas INNER JOIN Rubros "
                                                     "ON Empresas.Rubro = Rubros.Codigo");
        QStringList lista;
        for (const ValorDeInforme& valor :
             valoresDeInforme(empresa.primera(), clave, 7, QStringLiteral("5"), QStringLiteral("2009"), cual))
        {
            lista.append(valor.nombre + QLatin1Char('=') + textoDeValor(valor));
        }
        return lista;
    };
    const QStringList comunes({QStringLiteral("Indice=7"), QStringLiteral("Empresa=D'Angelo & Hijos"),
                               QStringLiteral("CUIT=30-12345678-1"), QStringLiteral("Mes=5"),
                               QStringLiteral("Anio=2009")});
    EXPECT_EQ(valores(InformeDDJJ::DatosIncompletos), comunes);
    const QString actividad = uno("SELECT Nombre FROM Rubros ORDER BY Codigo");
    EXPECT_EQ(valores(InformeDDJJ::Declaracion),
              comunes +
                  QStringList({QStringLiteral("Domicilio=San Martín 2"), QStringLiteral("Localidad=(1870) Avellaneda"),
                               QStringLiteral("Telefono=4222"), QStringLiteral("Actividad=") + actividad,
                               QStringLiteral("EMail=a@b.example"), QStringLiteral("Estudio=Núñez"),
                               QStringLiteral("Estudio_Domicilio=Calle 7"), QStringLiteral("Estudio_CodPos=(1900)"),
                               QStringLiteral("Estudio_Localidad=La Plata"), QStringLiteral("Estudio_Telefono=422"),
                               QStringLiteral("Estudio_EMail=e@b.example")}));
}

TEST_F(InformesDDJJ, ARunLeavesNothingButARaisedCounter)
{
    agregar(conexion, empleado("20-00000001-0", "Ana"));
    const int antes = uno("SELECT Indice FROM Parametros").toInt();
    for (const InformeDDJJ cual : {InformeDDJJ::Declaracion, InformeDDJJ::DatosIncompletos})
    {
        imprimir(cual);
        ASSERT_NE(vista(), nullptr);
        delete vista();
    }
    EXPECT_EQ(uno("SELECT count(*) FROM RptEmpleados"), QStringLiteral("0"));
    EXPECT_EQ(uno("SELECT Indice FROM Parametros").toInt(), antes + 2);
}

TEST_F(InformesDDJJ, WithoutARosterThereIsNoReportAndNoIndexIsTaken)
{
    const QString antes = uno("SELECT Indice FROM Parametros");
    cajas.espera(Caja::Exclamacion, QStringLiteral("Debe ingresar primero la Nómina de Empleados."));
    imprimir(InformeDDJJ::Declaracion);
    EXPECT_EQ(vista(), nullptr);
    EXPECT_EQ(uno("SELECT Indice FROM Parametros"), antes);
}

TEST_F(InformesDDJJ, ACompanyWhoseTradeIsNoneFailsWithItsRowsStaged)
{
    agregar(conexion, empleado("20-00000001-0", "Ana"));
    conexion.ejecutar("UPDATE Empresas SET Rubro = 'no esta'");
    EXPECT_THROW(imprimir(InformeDDJJ::Declaracion), ErrorDeEjecucion);
    EXPECT_EQ(vista(), nullptr);
    EXPECT_EQ(uno("SELECT count(*) FROM RptEmpleados"), QStringLiteral("1"));
    conexion.ejecutar("UPDATE Empresas SET Rubro = (SELECT min(Codigo) FROM Rubros)");
    imprimir(InformeDDJJ::Declaracion);
    ASSERT_NE(vista(), nullptr);
    EXPECT_TRUE(hojas().join(QLatin1Char(' ')).contains(QStringLiteral("TOTAL: 1 empleado")))
        << "a later run does not meet them";
    EXPECT_EQ(uno("SELECT count(*) FROM RptEmpleados"), QStringLiteral("1"));
}

TEST_F(InformesDDJJ, AFailingStagingLeavesNoRow)
{
    agregar(conexion, empleado("20-00000001-0", "Ana"));
    conexion.ejecutar(
        "CREATE TRIGGER Falla BEFORE INSERT ON RptEmpleados WHEN NEW.Tipo = 1 BEGIN SELECT RAISE(FAIL, 'no'); END");
    agregar(conexion, SucursalDePrueba());
    EXPECT_THROW(imprimir(InformeDDJJ::Declaracion), ErrorDeEjecucion);
    EXPECT_EQ(uno("SELECT count(*) FROM RptEmpleados"), QStringLiteral("0"));
    EXPECT_FALSE(conexion.enTransaccion());
}

TEST_F(InformesDDJJ, ALayoutThatIsMissingOrBrokenIsToldAndCleanedUpAfter)
{
    agregar(conexion, empleado("20-00000001-0", "Ana"));
    ASSERT_TRUE(QFile::remove(base.ruta(layouts[0])));
    QFile roto(base.ruta(layouts[1]));
    ASSERT_TRUE(roto.open(QIODevice::WriteOnly));
    roto.write("<html><body><table filas='x'>");
    roto.close();
    cajas.esperaQueDiga(Caja::Simple, layouts[0]).esperaQueDiga(Caja::Simple, layouts[1]);
    imprimir(InformeDDJJ::Declaracion);
    imprimir(InformeDDJJ::DatosIncompletos);
    EXPECT_EQ(vista(), nullptr);
    EXPECT_EQ(uno("SELECT count(*) FROM RptEmpleados"), QStringLiteral("0"));
}

TEST_F(InformesDDJJ, TotalsOfTheGroupsAreTheSumsOfTheirRows)
{
    const qint64 dos = agregar(conexion, SucursalDePrueba{.sucursal = QStringLiteral("2")});
    const qint64 diez = agregar(conexion, SucursalDePrueba{.sucursal = QStringLiteral("10")});
    const qint64 minuscula = agregar(conexion, SucursalDePrueba{.sucursal = QStringLiteral("a")});
    const qint64 mayuscula = agregar(conexion, SucursalDePrueba{.sucursal = QStringLiteral("A")});
    const qint64 gemela = agregar(conexion, SucursalDePrueba{.sucursal = QStringLiteral("A")});
    const qint64 sucursales[] = {dos, diez, 0, minuscula, mayuscula, gemela, 999};
    for (int i = 0; i < 90; ++i)
    {
        EmpleadoDePrueba uno = empleado("", "Gómez");
        uno.cuil = QStringLiteral("20-%1-0").arg(i, 8, 10, QLatin1Char('0'));
        uno.sucursal = sucursales[i % 7];
        uno.imponible = Moneda::deDiezMilesimos(99'999'999'900 - qint64{i} * 123'456'700);
        uno.acuerdo = Moneda::deDiezMilesimos(i * 10'100);
        uno.acuerdo2 = Moneda::deDiezMilesimos(i % 2 * 5'000);
        uno.art100 = Moneda::deDiezMilesimos(i * 333'300);
        agregar(conexion, uno);
    }
    prepararInforme(conexion, clave, 7, InformeDDJJ::Declaracion);
    const auto plantilla = PlantillaDeInforme::leer(base.ruta(layouts[0]));
    const auto datos = DatosDeInforme::leer(plantilla, base.rutaBase(), {{QStringLiteral("Indice"), qint64{7}}});
    const FilasDeInforme& conjunto = datos.conjuntos.at(QStringLiteral("Empleados"));
    const auto columna = [&](const char* nombre)
    {
        const auto hallada = std::find(conjunto.columnas.begin(), conjunto.columnas.end(), nombre);
        return static_cast<std::size_t>(hallada - conjunto.columnas.begin());
    };
    const char* const importes[] = {"Imponible", "Acuerdo", "Art100", "Art101A", "Art101B", "Aportes"};
    std::map<std::string, Moneda> grupo;
    std::map<std::string, Moneda> todo;
    QStringList grupos;
    int totales = 0;
    for (const auto& fila : conjunto.filas)
    {
        if (!fila[columna("EsTitulo")].empty())
        {
            grupo.clear();
            grupos.append(QString::fromStdString(fila[columna("AyN")]));
            continue;
        }
        const bool esTotal = !fila[columna("EsTotal")].empty();
        const bool esFinal = esTotal && fila[columna("AyN")] == "TOTAL: 90 empleados";
        totales += esTotal ? 1 : 0;
        for (const char* nombre : importes)
        {
            const Moneda importe = Moneda::deTexto(QString::fromStdString(fila[columna(nombre)]));
            if (esTotal)
            {
                EXPECT_EQ(importe, esFinal ? todo[nombre] : grupo[nombre]) << fila[columna("AyN")] << ' ' << nombre;
            }
            else
            {
                grupo[nombre] += importe;
                todo[nombre] += importe;
            }
        }
    }
    EXPECT_EQ(totales, 7);
    EXPECT_EQ(grupos, QStringList({QStringLiteral("Sucursal: sin asignar"), QStringLiteral("Sucursal: A"),
                                   QStringLiteral("Sucursal: A"), QStringLiteral("Sucursal: a"),
                                   QStringLiteral("Sucursal: 2"), QStringLiteral("Sucursal: 10")}));
}

TEST_F(InformesDDJJ, ThePagesPrintEveryNameAndAmountInFull)
{
    const QStringList nombres{QStringLiteral("D'Angelo <b>Ana</b> & Compañía"),
                              QString(22, QLatin1Char('W')) + QLatin1Char(' ') + QString(22, QLatin1Char('M')),
                              QStringLiteral("Ñáñez Óscar \"Fito\""),
                              QStringLiteral("Fernández de la Reguera Vizcaíno de Ofi")};
    agregar(conexion, SucursalDePrueba());
    for (int i = 0; i < 160; ++i)
    {
        EmpleadoDePrueba uno = empleado("", "");
        uno.cuil = QStringLiteral("20-%1-0").arg(i, 8, 10, QLatin1Char('0'));
        uno.ayn = nombres[i % 4];
        uno.imponible = uno.acuerdo = uno.art100 = uno.art101A = uno.art101B = pesos("9999999,99");
        uno.categoria = 22;
        uno.ingreso = i % 2 == 0 ? uno.ingreso : QDate();
        agregar(conexion, uno);
    }
    imprimir(InformeDDJJ::Declaracion);
    QStringList paginas = hojas();
    ASSERT_GT(paginas.size(), 3);
    for (qsizetype i = 0; i < paginas.size(); ++i)
    {
        const QString numero = QStringLiteral("Página %1 de %2").arg(i + 1).arg(paginas.size());
        EXPECT_TRUE(paginas[i].contains(QStringLiteral("DECLARACIÓN JURADA DE APORTES"))) << i;
        EXPECT_EQ(paginas[i].count(numero), 2) << i;
    }
    const QString todo = paginas.join(QLatin1Char(' '));
    EXPECT_EQ(todo.count(QStringLiteral("9.999.999,99")), 160 * 5);
    EXPECT_EQ(todo.count(nombres[0]), 40);
    EXPECT_EQ(todo.count(nombres[2]), 40);
    EXPECT_EQ(todo.count(QString(22, QLatin1Char('W'))), 40);
    EXPECT_EQ(todo.count(QString(22, QLatin1Char('M'))), 40);
    EXPECT_TRUE(todo.contains(QStringLiteral("TOTAL: 160 empleados 1.599.999.998,40 1.599.999.998,40")));
    delete vista();

    imprimir(InformeDDJJ::DatosIncompletos);
    paginas = hojas();
    EXPECT_TRUE(paginas.back().contains(QStringLiteral("80 empleados con datos incompletos")));
    EXPECT_EQ(paginas.join(QLatin1Char(' ')).count(QStringLiteral("FALTA")), 80);
}

TEST_F(InformesDDJJ, LargeTotalsStayUnderTheirColumns)
{
    for (const char* importe : {"499999999,99", "500000000"})
    {
        EmpleadoDePrueba uno = empleado(*importe == '4' ? "20-00000001-0" : "20-00000002-0", "Ana");
        uno.imponible = pesos(*importe == '4' ? "49999999999,99" : "50000000000");
        uno.acuerdo = uno.art100 = uno.art101A = uno.art101B = pesos(importe);
        agregar(conexion, uno);
    }
    imprimir(InformeDDJJ::Declaracion);
    const QList<Palabra> todas = palabras();
    const auto renglon = [&](const QString& primera)
    {
        QList<Palabra> suyas;
        const auto desde =
            std::find_if(todas.begin(), todas.end(), [&](const Palabra& p) { return p.texto == primera; });
        std::copy_if(desde, todas.end(), std::back_inserter(suyas),
                     [&](const Palabra& p) { return std::abs(p.arriba - desde->arriba) < 2; });
        std::sort(suyas.begin(), suyas.end(),
                  [](const Palabra& a, const Palabra& b) { return a.izquierda < b.izquierda; });
        return suyas.last(6);
    };
    const QList<Palabra> fila = renglon(QStringLiteral("20-00000001-0"));
    const QList<Palabra> total = renglon(QStringLiteral("TOTAL:"));
    EXPECT_EQ(total.first().texto, QStringLiteral("99.999.999.999,99"));
    EXPECT_EQ(total.last().texto, QStringLiteral("2.999.999.999,97"));
    for (int i = 0; i < 6; ++i)
    {
        EXPECT_NEAR(total[i].derecha, fila[i].derecha, 0.3) << total[i].texto.toStdString();
        EXPECT_TRUE(i == 0 || total[i].izquierda - total[i - 1].derecha > 2) << total[i].texto.toStdString();
    }
}

TEST_F(InformesDDJJ, BlanksInNamesPrintAsTheyAre)
{
    conexion.ejecutar("UPDATE Empresas SET Razon = 'Nombre  Doble'");
    EmpleadoDePrueba uno = empleado("20-00000001-0", "Nombre  Doble");
    uno.sexo = std::nullopt;
    uno.sucursal = agregar(conexion, SucursalDePrueba{.sucursal = QStringLiteral("Nombre  Doble")});
    agregar(conexion, uno);
    for (const auto& [cual, veces] : {std::pair(InformeDDJJ::Declaracion, 6), {InformeDDJJ::DatosIncompletos, 2}})
    {
        imprimir(cual); // in the page's head; the declaration also in its foot, and thrice as a branch
        int dobles = 0;
        const QList<Palabra> todas = palabras();
        for (qsizetype i = 1; i < todas.size(); ++i)
        {
            if (todas[i].texto.startsWith(QStringLiteral("Doble")))
            {
                ++dobles;
                EXPECT_GT(todas[i].izquierda - todas[i - 1].derecha, 3.2) << dobles << " a blank has 2.1 to 2.8";
            }
        }
        EXPECT_EQ(dobles, veces);
        delete vista();
    }
}

TEST_F(InformesDDJJ, TheAccountantsTownPrintsWithWhatIsKnownOfIt)
{
    agregar(conexion, empleado("20-00000001-0", "Ana"));
    const struct
    {
        const char* codigo;
        const char* localidad;
        const char* dice;
    } casos[] = {
        {"5500", "Mendoza", "(5500) Mendoza"}, {"", "Mendoza", " Mendoza"}, {"5500", "", "(5500)"}, {"", "", ""}};
    for (const auto& caso : casos)
    {
        conexion.ejecutar("UPDATE Empresas SET Est_CodPos = nullif(?, ''), Est_Localidad = nullif(?, '')", caso.codigo,
                          caso.localidad);
        imprimir(InformeDDJJ::Declaracion);
        const QString hoja = hojas().value(0);
        EXPECT_TRUE(hoja.contains(QString::fromLatin1(caso.dice))) << hoja.toStdString();
        EXPECT_FALSE(hoja.contains(QStringLiteral("()"))) << caso.localidad;
        delete vista();
    }
}

TEST_F(InformesDDJJ, ACompleteRosterSaysSo)
{
    agregar(conexion, empleado("20-00000001-0", "Ana"));
    imprimir(InformeDDJJ::DatosIncompletos);
    ASSERT_NE(vista(), nullptr);
    EXPECT_TRUE(hojas().value(0).contains(QStringLiteral("Todos los empleados tienen sus datos completos.")));
}

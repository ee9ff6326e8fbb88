// The report engine: layouts, pages, what stands on them.
#include "apoyo/rutas.h"
#include "informe_de_prueba.h"
#include "platform/data/error_de_ejecucion.h"
#include "platform/screens/informe.h"
#include "platform/screens/informe_filas.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QTextDocument>
#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <set>

namespace
{
using Palabra = InformeDePrueba::Palabra;

const QString tabla = QStringLiteral(
    "<header><table width=\"100%\"><tr><td>CABEZA {{Pagina}} de {{Paginas}}</td></tr></table></header>"
    "<table filas=\"Filas\" width=\"100%\" cellspacing=\"0\" cellpadding=\"1\"><thead><tr><th width=\"20%\">Clave</th>"
    "<th width=\"50%\" align=\"left\">Nombre</th><th width=\"30%\" align=\"right\">Importe</th></tr></thead>"
    "<tbody><tr><td class=\"f\">{{Clave}}</td><td class=\"f\">{{Nombre}}</td><td class=\"f\" "
    "align=\"right\">{{Importe}}"
    "</td></tr></tbody></table>"
    "<footer><table width=\"100%\"><tr><td>PIE</td></tr></table></footer>");
const QString estilo = QStringLiteral(
    "<style>td.f { font-size: 7pt; border-bottom: 1px solid #d5dde1; padding: 1px 2px 1px 2px; }</style>");

DatosDeInforme conFilas(std::vector<std::vector<std::string>> filas)
{
    DatosDeInforme datos;
    datos.conjuntos[QStringLiteral("Filas")] = filasDeTexto({"Clave", "Nombre", "Importe"}, std::move(filas));
    return datos;
}

std::string claveDe(int numero)
{
    return "F" + std::to_string(10000 + numero);
}

/// Words of one to nine letters, wide and narrow, with what HTML would take for its own.
std::string frase(std::mt19937& azar, unsigned palabras)
{
    static const char* const letras[] = {"a", "i", "W", "m", "ñ", "Á", "l", "&amp;", "&apos;", "&lt;", ".", "1", "fi"};
    std::string texto;
    for (auto p = 1 + azar() % palabras; p > 0; --p)
    {
        texto += texto.empty() ? "" : " ";
        for (auto l = 1 + azar() % 9; l > 0; --l)
        {
            texto += letras[azar() % std::size(letras)];
        }
    }
    return texto;
}
} // namespace

TEST(Informe, AFaultyLayoutIsNamedWithFileAndLine)
{
    const InformeDePrueba informe;
    const struct
    {
        const char* cuerpo;
        const char* cabeza;
        const char* dice;
    } casos[] = {
        {"<section>uno</p></section>", "", "El informe prueba.rpt no es válido, línea 3"},
        {"", "", "no tiene contenido"},
        {"<table filas=\"X\"><thead></thead></table>", "", "la tabla X no tiene tbody"},
        {"<section>x</section>", "<meta name=\"margenes\" content=\"10 10\"/>", "los márgenes son cuatro"},
        {"<section>{{#Abierta}}</section>", "", "El informe prueba.rpt no es válido: "},
        {"<table filas=\"X\"><tbody><tr><td>{{#Abierta}}</td></tr></tbody></table>", "",
         "El informe prueba.rpt no es válido: "},
        {"<header>{{</header><section>x</section>", "", "El informe prueba.rpt no es válido: "},
        {"<table filas=\"X\"><tbody><tr><td>x</td></tr></tbody></table>", "", "ninguna consulta da las filas de X"},
        {"<section filas=\"X\">x</section>", "<script type=\"consulta\" id=\"Y\">SELECT 1</script>",
         "El informe prueba.rpt no es válido: ninguna consulta da las filas de X"},
        {"<section>x</section>", "<script type=\"consulta\" id=\"X\">SELECT 1 FROM NoEsta</script>", "NoEsta"},
    };
    for (const auto& caso : casos)
    {
        Informe control;
        control.ArchivoInforme = informe.escribir(QString::fromUtf8(caso.cuerpo), QString::fromUtf8(caso.cabeza));
        control.ArchivoDatos = rutas::baseSembrada();
        EXPECT_NE(control.PrintReport(), 0) << caso.cuerpo;
        EXPECT_TRUE(control.LastErrorString().contains(QString::fromUtf8(caso.dice)))
            << caso.cuerpo << caso.cabeza << ": " << control.LastErrorString().toStdString();
    }
    Informe control;
    control.ArchivoInforme = informe.ruta(QStringLiteral("RptNoEsta.rpt"));
    EXPECT_EQ(control.PrintReport(), ErrorDeEjecucion::ArchivoNoEncontrado);
    EXPECT_TRUE(control.LastErrorString().contains(QStringLiteral("RptNoEsta.rpt")));
    for (const QWidget* ventana : QApplication::topLevelWidgets())
    {
        EXPECT_NE(ventana->objectName(), QStringLiteral("Informe")) << "nothing is shown";
    }
}

TEST(Informe, ValuesPrintAsTheyAreByTheirTypes)
{
    const InformeDePrueba informe;
    const QString hostil = QStringLiteral("<b>D'Angelo</b> & \"Hijos\" &amp; oficina {{Fecha}} ñÑáü");
    DatosDeInforme datos;
    datos.valores = {{QStringLiteral("Nombre"), hostil},
                     {QStringLiteral("Vacio"), QString()},
                     {QStringLiteral("Importe"), Moneda::deTexto(QStringLiteral("-1234567,895"))},
                     {QStringLiteral("Fecha"), QDate(2009, 6, 3)},
                     {QStringLiteral("Cantidad"), qint64{20000}},
                     {QStringLiteral("Una"), qint64{1}},
                     {QStringLiteral("SinCodigo"), QStringLiteral("()")}};
    datos.conjuntos[QStringLiteral("Lineas")] = filasDeTexto({"A"}, {{"uno"}, {"d<o>s"}});
    datos.conjuntos[QStringLiteral("Nada")] = filasDeTexto({"A"}, {});
    const QStringList hojas = informe.textos(informe.paginas(
        QStringLiteral("<section><p>[{{Nombre}}]</p><p>[{{Importe}}] [{{Fecha}}] [{{Cantidad}}] [{{NoEsta}}]</p>"
                       "<p>{{#hayNombre}}si{{/hayNombre}}{{#hayVacio}}no{{/hayVacio}}{{#noVacio}}vacio{{/noVacio}}</p>"
                       "<p>{{#unoUna}}una{{/unoUna}}{{^unoCantidad}}s{{/unoCantidad}}{{#haySinCodigo}}()"
                       "{{/haySinCodigo}}</p>"
                       "<p>{{#Lineas}}({{A}}){{/Lineas}}{{#noNada}}nada{{/noNada}}{{#hayNada}}algo{{/hayNada}}</p>"
                       "<p style=\"white-space: pre-wrap\">ACTA  -  CUOTA</p></section>"),
        datos));
    ASSERT_EQ(hojas.size(), 1);
    EXPECT_EQ(hojas[0],
              QStringLiteral("[%1] [-1.234.567,90] [03/06/2009] [20000] [] sivacio unas (uno)(d<o>s)nada ACTA - CUOTA")
                  .arg(hostil));
}

TEST(Informe, NoRowIsCutAndHeadAndFootStandOnEveryPage)
{
    const InformeDePrueba informe;
    std::mt19937 azar(11);
    std::vector<std::vector<std::string>> filas;
    for (int i = 0; i < 400; ++i)
    {
        filas.push_back(
            {claveDe(i), "Apellido " + std::to_string(i) + (i % 7 == 0 ? std::string(90, 'x') : ""), "1,00"});
        for (auto p = azar() % 25; p > 0; --p)
        {
            filas.back()[1] += " palabra";
        }
    }
    const auto palabras = informe.palabras(informe.paginas(tabla, conFilas(filas), estilo));
    std::map<int, double> pies;
    std::map<int, double> cabezas;
    std::map<int, int> titulos;
    for (const Palabra& palabra : palabras)
    {
        pies[palabra.hoja] = palabra.texto == QLatin1String("PIE") ? palabra.arriba : pies[palabra.hoja];
        cabezas[palabra.hoja] = palabra.texto == QLatin1String("CABEZA") ? palabra.abajo : cabezas[palabra.hoja];
        titulos[palabra.hoja] += palabra.texto == QLatin1String("Clave") ? 1 : 0;
    }
    const int hojas = palabras.back().hoja + 1;
    ASSERT_GT(hojas, 5);
    int siguiente = 0;
    int enHoja = 0;
    for (const Palabra& palabra : palabras)
    {
        EXPECT_EQ(titulos[palabra.hoja], 1) << palabra.hoja;
        if (palabra.texto.startsWith(QLatin1Char('F')))
        {
            EXPECT_EQ(palabra.texto.toStdString(), claveDe(siguiente++));
            EXPECT_TRUE(palabra.hoja == enHoja || palabra.hoja == enHoja + 1);
            enHoja = palabra.hoja;
        }
        if (palabra.texto != QLatin1String("PIE"))
        {
            EXPECT_LE(palabra.abajo, pies[palabra.hoja]) << palabra.texto.toStdString() << " on " << palabra.hoja;
        }
        if (palabra.texto.startsWith(QLatin1Char('F')) || palabra.texto == QLatin1String("Clave"))
        {
            EXPECT_GE(palabra.arriba, cabezas[palabra.hoja]) << palabra.texto.toStdString();
        }
    }
    EXPECT_EQ(siguiente, 400);
    const QStringList textos = informe.textos(informe.paginas(tabla, conFilas(filas), estilo));
    ASSERT_EQ(textos.size(), hojas);
    EXPECT_TRUE(textos[2].startsWith(QStringLiteral("CABEZA 3 de %1 ").arg(hojas)));
}

TEST(Informe, AWordWiderThanItsColumnMovesNoOtherRow)
{
    const InformeDePrueba informe;
    std::vector<std::vector<std::string>> filas;
    for (int i = 0; i < 60; ++i)
    {
        filas.push_back({claveDe(i), i == 20 ? std::string(80, 'W') : "Corto", "9.999.999,99"});
    }
    // In its narrowed column the head would take more lines than above the other rows.
    const QString conTitulos = QString(tabla).replace(QStringLiteral(">Importe<"), QStringLiteral(">Suma por mes<"));
    std::set<int> derechas;
    int largas = 0;
    int importes = 0;
    int titulos = 0;
    for (const Palabra& palabra : informe.palabras(informe.paginas(conTitulos, conFilas(filas), estilo)))
    {
        largas += static_cast<int>(palabra.texto.count(QLatin1Char('W')));
        titulos += palabra.texto == QLatin1String("Suma") ? 1 : 0;
        if (palabra.texto == QLatin1String("9.999.999,99"))
        {
            derechas.insert(qRound(palabra.derecha));
            ++importes;
        }
    }
    EXPECT_EQ(titulos, 1);
    EXPECT_EQ(largas, 80);
    EXPECT_EQ(importes, 60);
    EXPECT_EQ(derechas.size(), 1U);
}

TEST(Informe, HeightsForetoldAreThoseOfTheTableLaidOut)
{
    const DocumentoDeInforme::Hoja hoja{
        QStringLiteral("td.f { font-size: 6.8pt; border-bottom: 1px solid #d5dde1; "
                       "padding: 1px 2px 1px 2px; } .p { white-space: pre-wrap; } .g { font-size: 10pt; }"),
        QStringLiteral("."), 700};
    AltosDeFilas altos("<table width=\"100%\" cellspacing=\"0\" cellpadding=\"0\"><thead><tr><th width=\"12%\">A</th>"
                       "<th width=\"30%\">B</th><th width=\"40%\">C</th><th width=\"18%\">D</th></tr></thead>",
                       "</table>", hoja);
    std::mt19937 azar(3);
    const char* const blancos[] = {"  ", "\n", " "}; // each counts in the second column
    int juntas = 0;
    for (int tabla = 0; tabla < 15; ++tabla)
    {
        std::string filas;
        double suma = 0;
        for (int i = 0; i < 25; ++i)
        {
            const std::string clase = azar() % 4 == 0 ? "f g" : "f";
            const std::string fila = "<tr><td class=\"" + clase + "\">" + frase(azar, 3) + "</td><td class=\"f p\">" +
                                     frase(azar, 4) + blancos[std::min<std::size_t>(azar() % 20, 2)] + frase(azar, 5) +
                                     "</td><td class=\"f\" align=\"right\">" + frase(azar, 14) +
                                     "</td><td class=\"f\"><b>" + frase(azar, 2) + "</b></td></tr>\n";
            const AltosDeFilas::Alto alto = altos.de(fila);
            if (alto.regular)
            {
                ++juntas;
                filas += fila;
                suma += alto.puntos;
            }
            else
            {
                EXPECT_NEAR(DocumentoDeInforme::alto(*altos.suelta(fila)), altos.cabezaDeSuelta() + alto.puntos, 0.01);
            }
        }
        EXPECT_NEAR(DocumentoDeInforme::alto(*altos.documento(filas)), altos.cabeza() + suma, 0.2) << filas;
    }
    EXPECT_GT(juntas, 250);
}

TEST(Informe, ATitleStaysOnThePageOfItsFirstRow)
{
    const InformeDePrueba informe;
    const QString cuerpo =
        QStringLiteral("<table filas=\"Filas\" width=\"100%\" cellspacing=\"0\"><thead><tr><th>Nombre</th></tr></thead>"
                       "<tbody>{{#Titulo}}<tr class=\"junto\"><td>GRUPO</td></tr>{{/Titulo}}"
                       "{{#Fila}}<tr><td>fila</td></tr>{{/Fila}}</tbody></table>"
                       "<section class=\"junto\">AVISO</section>"
                       "<table filas=\"Otras\" class=\"junto\" width=\"100%\"><thead><tr><th>Otras</th></tr></thead>"
                       "<tbody><tr><td>{{Nombre}}</td></tr></tbody></table>"
                       "<section><p>JURO</p><p style=\"padding-top: 40px\">FIRMA</p></section>");
    for (int antes = 40; antes < 62; ++antes)
    {
        DatosDeInforme datos;
        FilasDeInforme& filas = datos.conjuntos[QStringLiteral("Filas")];
        filas.columnas = {"Titulo", "Fila"};
        filas.condicion = {true, true};
        for (int i = 0; i <= antes; ++i)
        {
            filas.filas.push_back(i == antes - 8 ? std::vector<std::string>{"1", ""}
                                                 : std::vector<std::string>{"", "1"});
        }
        datos.conjuntos[QStringLiteral("Otras")] = filasDeTexto({"Nombre"}, {{"otra"}});
        for (const QString& hoja : informe.textos(informe.paginas(cuerpo, datos)))
        {
            EXPECT_FALSE(hoja.endsWith(QStringLiteral("GRUPO"))) << antes;
            EXPECT_FALSE(hoja.endsWith(QStringLiteral("AVISO"))) << antes;
            EXPECT_FALSE(hoja.endsWith(QStringLiteral("Otras"))) << antes;
            EXPECT_EQ(hoja.contains(QStringLiteral("JURO")), hoja.contains(QStringLiteral("otra JURO FIRMA"))) << antes;
        }
    }
}

TEST(Informe, ASectionOfAGivenHeightStandsOncePerRow)
{
    const InformeDePrueba informe;
    DatosDeInforme datos;
    datos.valores = {{QStringLiteral("Empresa"), QStringLiteral("EMPRESA")}};
    datos.conjuntos[QStringLiteral("Talones")] = filasDeTexto({"Talon"}, {{"uno"}, {"dos"}, {"tres"}});
    const QString cuerpo =
        QStringLiteral("<section filas=\"Talones\" alto=\"90\"><p>{{Talon}}</p><p>{{Empresa}}</p></section>");
    const QString margenes = QStringLiteral("<meta name=\"margenes\" content=\"10 10 10 10\"/>");
    std::vector<double> alturas;
    for (const Palabra& palabra : informe.palabras(informe.paginas(cuerpo, datos, margenes)))
    {
        EXPECT_EQ(palabra.hoja, 0);
        if (palabra.texto == QLatin1String("EMPRESA"))
        {
            alturas.push_back(palabra.arriba);
        }
    }
    ASSERT_EQ(alturas.size(), 3U);
    constexpr double puntosPorMilimetro = 72 / 25.4;
    EXPECT_NEAR(alturas[1] - alturas[0], 90 * puntosPorMilimetro, 0.3);
    EXPECT_NEAR(alturas[2] - alturas[0], 180 * puntosPorMilimetro, 0.6);
}

TEST(Informe, OtherPaperLaysOutAnewAndTooSmallOneIsRefused)
{
    const InformeDePrueba informe;
    std::vector<std::vector<std::string>> filas;
    for (int i = 0; i < 200; ++i)
    {
        filas.push_back({claveDe(i), "Nombre", "1,00"});
    }
    PaginasDeInforme paginas = informe.paginas(tabla, conFilas(filas), estilo);
    const int vertical = paginas.cantidad();
    QPageLayout pagina = paginas.pagina();
    pagina.setOrientation(QPageLayout::Landscape);
    paginas.setPagina(pagina);
    const int apaisada = paginas.cantidad();
    EXPECT_GT(apaisada, vertical);
    QPageLayout chica(QPageSize(QSizeF(60, 40), QPageSize::Millimeter), QPageLayout::Portrait,
                      QMarginsF(10, 10, 10, 10), QPageLayout::Millimeter);
    EXPECT_THROW(paginas.setPagina(chica), ErrorDeEjecucion);
    EXPECT_EQ(paginas.cantidad(), apaisada);
    EXPECT_EQ(paginas.pagina(), pagina);
    EXPECT_EQ(informe.textos(std::move(paginas)).size(), apaisada);
}

TEST(Informe, OnlyPicturesBesideTheLayoutAreLoaded)
{
    const InformeDePrueba informe;
    const QTemporaryDir ajena;
    QImage roja(40, 40, QImage::Format_RGB32);
    roja.fill(Qt::red);
    ASSERT_TRUE(roja.save(informe.ruta(QStringLiteral("propia.png"))));
    ASSERT_TRUE(roja.save(ajena.filePath(QStringLiteral("ajena.png"))));
    const QString relativa = QStringLiteral("../%1/ajena.png").arg(QFileInfo(ajena.path()).fileName());
    const auto rojos = [&](const QString& archivo)
    {
        const PaginasDeInforme paginas =
            informe.paginas(QStringLiteral("<section><img src=\"%1\"/></section>").arg(archivo));
        QImage hoja(600, 850, QImage::Format_RGB32);
        hoja.fill(Qt::white);
        QPainter pintor(&hoja);
        paginas.pintar(pintor, 0);
        pintor.end();
        int cuantos = 0;
        for (int y = 0; y < hoja.height(); ++y)
        {
            for (int x = 0; x < hoja.width(); ++x)
            {
                cuantos += hoja.pixelColor(x, y) == QColor(Qt::red) ? 1 : 0;
            }
        }
        return cuantos;
    };
    EXPECT_GT(rojos(QStringLiteral("propia.png")), 10);
    for (const QString& archivo :
         {ajena.filePath(QStringLiteral("ajena.png")), relativa,
          QStringLiteral("file://") + ajena.filePath(QStringLiteral("ajena.png")), QStringLiteral("noesta.png")})
    {
        EXPECT_EQ(rojos(archivo), 0) << archivo.toStdString();
    }
}

TEST(Informe, ThousandsOfRowsTellHowFarTheyAre)
{
    const InformeDePrueba informe;
    std::vector<std::vector<std::string>> filas;
    for (int i = 0; i < 5000; ++i)
    {
        filas.push_back(
            {claveDe(i),
             i % 50 == 0 ? "Un nombre que no entra en el renglon de su columna, ni con ganas de entrar" : "Corto",
             "1,00"});
    }
    qint64 ultima = 0;
    int avisos = 0;
    const PaginasDeInforme paginas(PlantillaDeInforme::leer(informe.escribir(tabla, estilo)), conFilas(filas),
                                   [&](qint64 hecho, qint64 total)
                                   {
                                       EXPECT_EQ(total, 5000);
                                       EXPECT_GE(hecho, ultima);
                                       ultima = hecho;
                                       ++avisos;
                                   });
    EXPECT_EQ(ultima, 5000);
    EXPECT_GE(avisos, 50);
    EXPECT_GT(paginas.cantidad(), 50);
}

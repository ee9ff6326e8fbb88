// The report engine: layouts, pages, what stands on them.
#include "apoyo/rutas.h"
#include "base/db/conexion.h"
#include "base/error_de_ejecucion.h"
#include "informe_de_prueba.h"
#include "ui/report/informe.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <map>
#include <random>

TEST(Informe, UnFormatoConFallasSeNombraConArchivoYLinea)
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
        {"<section>x</section>", "<meta name=\"margenes\" content=\"10 10 900 10\"/>", "los márgenes no entran"},
        {"<section alto=\"1e308\">x</section>", "", "el alto de una sección no pasa de 1000 mm"},
        {"<section>{{#Abierta}}</section>", "", "El informe prueba.rpt no es válido: "},
        {"<table filas=\"X\"><tbody><tr><td>{{#A}}</td></tr></tbody></table>", "", "prueba.rpt no es válido: "},
        {"<header>{{</header><section>x</section>", "", "El informe prueba.rpt no es válido: "},
        {"<table filas=\"X\"><tbody><tr></tr></tbody></table>", "", "ninguna consulta da las filas de X"},
        {"<section filas=\"X\">x</section>", "<script type=\"consulta\" id=\"Y\">SELECT 1</script>", "las filas de X"},
        {"<section>x</section>", "<script type=\"consulta\" id=\"X\">SELECT 1 FROM NoEsta</script>", "NoEsta"},
    };
    Informe control;
    control.ArchivoDatos = rutas::baseSembrada();
    for (const auto& caso : casos)
    {
        control.ArchivoInforme = informe.escribir(QString::fromUtf8(caso.cuerpo), QString::fromUtf8(caso.cabeza));
        EXPECT_NE(control.PrintReport(), 0) << caso.cuerpo;
        EXPECT_TRUE(control.LastErrorString().contains(QString::fromUtf8(caso.dice)))
            << caso.cuerpo << caso.cabeza << ": " << control.LastErrorString().toStdString();
    }
    control.ArchivoInforme =
        informe.escribir(QStringLiteral("<section>") + QStringLiteral("<table><tr><td>").repeated(11) +
                         QStringLiteral("</td></tr></table>").repeated(11) + QStringLiteral("</section>"));
    EXPECT_NE(control.PrintReport(), 0);
    EXPECT_TRUE(control.LastErrorString().contains(QStringLiteral("hay más de 10 tablas una dentro de otra")));
    control.ArchivoInforme = informe.ruta("RptNoEsta.rpt");
    EXPECT_EQ(control.PrintReport(), ErrorDeEjecucion::ArchivoNoEncontrado);
    EXPECT_TRUE(control.LastErrorString().contains(QStringLiteral("RptNoEsta.rpt")));
    for (const QWidget* ventana : QApplication::topLevelWidgets())
    {
        EXPECT_NE(ventana->objectName(), QStringLiteral("Informe")) << "nothing is shown";
    }
}

TEST(Informe, LosValoresSeImprimenTalCualSegunSuTipo)
{
    const InformeDePrueba informe;
    const QString hostil = QStringLiteral("<b>D'Angelo</b> & \"Hijos\" &amp; oficina {{Fecha}} ñÑáü");
    DatosDeInforme datos = InformeDePrueba::filas({"A"}, {{"uno"}, {"d<o>s"}});
    datos.conjuntos[QStringLiteral("Nada")] = {};
    datos.valores = {{QStringLiteral("Nombre"), hostil},
                     {QStringLiteral("Vacio"), QString()},
                     {QStringLiteral("Importe"), Moneda::deTexto(QStringLiteral("-1234567,895"))},
                     {QStringLiteral("Fecha"), QDate(2009, 6, 3)},
                     {QStringLiteral("Cantidad"), qint64{20000}},
                     {QStringLiteral("Una"), qint64{1}},
                     {QStringLiteral("SinCodigo"), QStringLiteral("()")}};
    const QStringList hojas = informe.textos(informe.paginas(
        QStringLiteral("<section><p>[{{Nombre}}]</p><p>[{{Importe}}] [{{Fecha}}] [{{Cantidad}}] [{{NoEsta}}]</p>"
                       "<p>{{#hayNombre}}si{{/hayNombre}}{{#hayVacio}}no{{/hayVacio}}{{#noVacio}}vacio{{/noVacio}}</p>"
                       "<p>{{#unoUna}}una{{/unoUna}}{{^unoCantidad}}s{{/unoCantidad}}{{#haySinCodigo}}()"
                       "{{/haySinCodigo}}</p>"
                       "<p>{{#Filas}}({{A}}){{/Filas}}{{#noNada}}nada{{/noNada}}{{#hayNada}}algo{{/hayNada}}</p>"
                       "</section>"),
        datos));
    EXPECT_EQ(hojas, QStringList(QStringLiteral("[%1] [-1.234.567,90] [03/06/2009] [20000] [] sivacio unas "
                                                "(uno)(d<o>s)nada")
                                     .arg(hostil)));
}

/// Rows of all heights, the tallest cell anywhere in the row, some with a word that does not fit its column.
TEST(Informe, NingunaFilaSeCortaNiSeEncimaNiMueveASusVecinas)
{
    const InformeDePrueba informe;
    const std::string larga(90, 'W');
    const std::string entera(60, 'x');
    std::mt19937 azar(11);
    std::vector<std::vector<std::string>> filas;
    for (int i = 0; i < 400; ++i)
    {
        filas.push_back({std::to_string(10000 + i), i % 41 == 0 ? larga : "Nombre", "chico", i % 53 == 0 ? entera : "",
                         "9.999.999,99"});
        std::string& alta = filas.back()[1 + azar() % 2]; // the tallest cell may be any
        for (auto p = azar() % 3 == 0 ? azar() % 45 : 0; p > 0; --p)
        {
            alta.append(" palabra").append(azar() % 9, 'b');
        }
    }
    const QString pdf = informe.pdf(informe.paginas(
        QStringLiteral(
            "<header><table width=\"100%\"><tr><td>CABEZA {{Pagina}} de {{Paginas}}</td></tr></table></header>"
            "<table filas=\"Filas\" width=\"100%\" cellspacing=\"0\" cellpadding=\"1\"><thead><tr>"
            "<th width=\"10%\">Clave</th><th width=\"30%\" align=\"left\">Nombre</th><th width=\"30%\">Otro</th>"
            "<th width=\"10%\"></th><th width=\"20%\" align=\"right\">Suma por mes</th></tr></thead>"
            "<tbody><tr><td class=\"f\">{{Clave}}</td><td class=\"f p\">{{Nombre}}</td><td class=\"f\">{{Otro}}</td>"
            "<td class=\"f n\">{{Entera}}</td>"
            "<td class=\"f\" align=\"right\">{{Importe}}</td></tr></tbody></table>"
            "<footer><table width=\"100%\"><tr><td>PIE</td></tr></table></footer>"),
        InformeDePrueba::filas({"Clave", "Nombre", "Otro", "Entera", "Importe"}, filas),
        QStringLiteral("<style>td.f { font-size: 7pt; border-bottom: 1px solid #d5dde1; padding: 3px 2px 1px 2px; } "
                       "td.p { padding: 6px 2px 1px 2px; font-size: 9pt; } td.n { white-space: nowrap; }</style>")));
    const std::vector<hojas::Palabra> palabras = hojas::palabras(pdf);
    std::map<int, double> pies;
    std::map<int, double> cabezas;
    std::map<int, int> titulos;
    std::map<int, int> derechas;
    int siguiente = 10000;
    int letras = 0;
    double fondo = 0; // of the lowest word of the row before
    for (const hojas::Palabra& palabra : palabras)
    {
        pies[palabra.hoja] = palabra.texto == QLatin1String("PIE") ? palabra.arriba : pies[palabra.hoja];
        cabezas[palabra.hoja] = palabra.texto == QLatin1String("CABEZA") ? palabra.abajo : cabezas[palabra.hoja];
        titulos[palabra.hoja] += palabra.texto == QLatin1String("Clave") ? 1 : 0;
    }
    std::vector<hojas::Palabra> enOrden;
    for (const hojas::Palabra& palabra : palabras)
    {
        EXPECT_EQ(titulos[palabra.hoja], 1) << palabra.hoja;
        EXPECT_TRUE(palabra.texto == QLatin1String("PIE") || palabra.abajo <= pies[palabra.hoja]);
        letras += static_cast<int>(palabra.texto.count(QLatin1Char('W')));
        if (palabra.texto == QString::number(siguiente))
        {
            ++siguiente;
            EXPECT_GE(palabra.arriba, cabezas[palabra.hoja]);
            EXPECT_TRUE(enOrden.empty() || enOrden.back().hoja != palabra.hoja || palabra.arriba > fondo - 1.5)
                << palabra.texto.toStdString() << " begins inside the row above";
            fondo = 0;
            enOrden.push_back(palabra);
        }
        else if (!enOrden.empty() && palabra.texto != QLatin1String("PIE"))
        {
            fondo = std::max(fondo, palabra.abajo);
        }
        if (palabra.texto == QLatin1String("9.999.999,99"))
        {
            ++derechas[qRound(palabra.derecha)];
        }
    }
    EXPECT_EQ(siguiente, 10400);
    EXPECT_EQ(letras, 90 * 10);
    EXPECT_GT(enOrden.back().hoja, 5);
    const auto propia = [](const auto& a, const auto& b) { return a.second < b.second; };
    EXPECT_EQ(std::max_element(derechas.begin(), derechas.end(), propia)->second, 400 - 8) << "8 do not fit";
}

TEST(Informe, LoQueVaJuntoQuedaJunto)
{
    const InformeDePrueba informe;
    const QString cuerpo = QStringLiteral(
        "<table filas=\"Filas\" class=\"junto\" width=\"100%\" cellspacing=\"0\"><thead><tr><th>X</th></tr></thead>"
        "<tbody>{{#EsTitulo}}<tr class=\"junto grupo\"><td>GRUPO{{Nombre}}{{#Continua}} sigue{{/Continua}}</td></tr>"
        "{{/EsTitulo}}{{#EsFila}}<tr><td>fila</td></tr>{{/EsFila}}"
        "{{#EsTotal}}<tr class=\"otra unida\"><td>TOTAL{{Nombre}}</td></tr>{{/EsTotal}}</tbody></table>"
        "<section class=\"junto\">AVISO</section><section><p>JURO</p><p style=\"padding-top: "
        "40px\">FIRMA</p></section>");
    int seguidos = 0;
    for (int antes = 58; antes < 84; ++antes)
    {
        std::vector<std::vector<std::string>> filas{{"1", "", "", "1"}};
        for (int i = 0; i < antes; ++i)
        {
            filas.push_back({"", "1", "", ""});
        }
        filas.insert(filas.end(), {{"", "", "1", "1"}, {"1", "", "", "2"}, {"", "1", "", ""}, {"", "", "1", "2"}});
        const QStringList hojas = informe.textos(
            informe.paginas(cuerpo, InformeDePrueba::filas({"EsTitulo", "EsFila", "EsTotal", "Nombre"}, filas)));
        for (const QString& hoja : hojas)
        {
            EXPECT_FALSE(hoja.startsWith(QStringLiteral("X fila"))) << antes << ": the group is not named";
            EXPECT_FALSE(hoja.contains(QStringLiteral("X TOTAL")) || hoja.contains(QStringLiteral("sigue TOTAL")));
            EXPECT_FALSE(hoja.endsWith(QStringLiteral("GRUPO2")) || hoja.endsWith(QStringLiteral("AVISO"))) << antes;
            EXPECT_FALSE(hoja.startsWith(QStringLiteral("AVISO"))) << antes << ": alone";
            EXPECT_EQ(hoja.contains(QStringLiteral("JURO")), hoja.contains(QStringLiteral("TOTAL2 AVISO JURO FIRMA")));
            seguidos += hoja.startsWith(QStringLiteral("X GRUPO1 sigue fila")) ? 1 : 0;
            EXPECT_EQ(hoja.count(QStringLiteral("GRUPO1")) > 1, false);
        }
        EXPECT_EQ(hojas.join(QString()).count(QStringLiteral("fila")), antes + 1);
    }
    EXPECT_GT(seguidos, 5);
}

TEST(Informe, UnaSeccionConAltoEstaUnaVezPorFila)
{
    const InformeDePrueba informe;
    std::vector<double> alturas;
    for (const auto& palabra : hojas::palabras(
             informe.pdf(informe.paginas(QStringLiteral("<section filas=\"Filas\" alto=\"90\"><p>{{A}}</p></section>"),
                                         InformeDePrueba::filas({"A"}, {{"uno"}, {"dos"}, {"tres"}}),
                                         QStringLiteral("<meta name=\"margenes\" content=\"10 10 10 10\"/>")))))
    {
        EXPECT_EQ(palabra.hoja, 0);
        alturas.push_back(palabra.arriba * 25.4 / 72);
    }
    ASSERT_EQ(alturas.size(), 3U);
    EXPECT_NEAR(alturas[1] - alturas[0], 90, 0.1);
    EXPECT_NEAR(alturas[2] - alturas[1], 90, 0.1);
}

TEST(Informe, OtroPapelRehaceLasHojasYLoQueFallaLasDeja)
{
    const InformeDePrueba informe;
    const QString cuerpo =
        QStringLiteral("<table filas=\"Filas\"><tbody><tr><td>{{A}}</td></tr></tbody></table><section>x</section>");
    std::vector<qint64> avisos;
    PaginasDeInforme paginas =
        informe.paginas(cuerpo, InformeDePrueba::filas({"A"}, std::vector<std::vector<std::string>>(500, {"fila"})), {},
                        [&](qint64 hechas, qint64) { avisos.push_back(hechas); });
    EXPECT_GT(avisos.size(), 5U);
    EXPECT_EQ(*std::max_element(avisos.begin(), avisos.end()), 500);
    const int vertical = paginas.cantidad();
    QPageLayout pagina = paginas.pagina();
    pagina.setOrientation(QPageLayout::Landscape);
    paginas.setPagina(pagina);
    const int apaisada = paginas.cantidad();
    EXPECT_GT(apaisada, vertical);
    EXPECT_THROW(paginas.setPagina({QPageSize(QSizeF(20, 20), QPageSize::Millimeter), QPageLayout::Portrait, {}}),
                 ErrorDeEjecucion);
    EXPECT_THROW(paginas.setPagina(informe.paginas(cuerpo, InformeDePrueba::filas({"A"}, {})).pagina(),
                                   [](qint64, qint64) { throw std::runtime_error("cancelado"); }),
                 std::runtime_error);
    EXPECT_EQ(paginas.cantidad(), apaisada);
    EXPECT_EQ(paginas.pagina(), pagina);
    EXPECT_EQ(informe.textos(std::move(paginas)).join(QString()).count(QStringLiteral("fila")), 500);
}

TEST(Informe, UnaConsultaSinFinSePuedeCancelar)
{
    const InformeDePrueba informe;
    const auto plantilla = PlantillaDeInforme::leer(informe.escribir(
        QStringLiteral("<section>x</section>"),
        QStringLiteral("<script type=\"consulta\" id=\"X\">WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 "
                       "FROM n) SELECT count(*) FROM n</script>")));
    Conexion conexion;
    conexion.abrir(rutas::baseSembrada(), Conexion::Modo::SoloLectura);
    int veces = 0;
    const auto aviso = [&](qint64, qint64)
    {
        if (++veces == 20)
        {
            throw std::runtime_error("cancelado");
        }
    };
    EXPECT_THROW((void)DatosDeInforme::leer(plantilla, conexion, {}, aviso), std::runtime_error);
    EXPECT_TRUE(conexion.hay("SELECT 1")) << "the connection is good for more";
}

TEST(Informe, SoloSeCarganImagenesQueEstanJuntoAlFormato)
{
    const InformeDePrueba informe;
    const QTemporaryDir ajena;
    QImage roja(40, 40, QImage::Format_RGB32);
    roja.fill(Qt::red);
    ASSERT_TRUE(roja.save(informe.ruta("propia.png")) && roja.save(ajena.filePath(QStringLiteral("ajena.png"))));
    const QString relativa = QStringLiteral("../%1/ajena.png").arg(QFileInfo(ajena.path()).fileName());
    const QString absoluta = ajena.filePath(QStringLiteral("ajena.png"));
    for (const QString& archivo :
         {QStringLiteral("propia.png"), absoluta, relativa, QStringLiteral("file://") + absoluta})
    {
        QImage hoja(600, 850, QImage::Format_RGB32);
        hoja.fill(Qt::white);
        QPainter pintor(&hoja);
        informe.paginas(QStringLiteral("<section><img src=\"%1\"/></section>").arg(archivo)).pintar(pintor, 0);
        pintor.end();
        bool hayRojo = false;
        for (int i = 0; i < hoja.width() * hoja.height() && !hayRojo; ++i)
        {
            hayRojo = hoja.pixelColor(i % hoja.width(), i / hoja.width()) == QColor(Qt::red);
        }
        EXPECT_EQ(hayRojo, archivo == QLatin1String("propia.png")) << archivo.toStdString();
    }
}

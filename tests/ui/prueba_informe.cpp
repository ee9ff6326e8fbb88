// The report engine: layouts, pages, what stands on them.
#include "apoyo/rutas.h"
#include "base/db/conexion.h"
#include "base/error_de_ejecucion.h"
#include "informe_de_prueba.h"
#include "ui/report/informe.h"

#include <QtGui>
#include <random>
#include <ranges>

TEST(Informe, UnFormatoConFallasSeNombraConArchivoYLinea)
{
    const InformeDePrueba informe;
    const QString anidadas = "<section>" + QString("<table><tr><td>").repeated(11) +
                             QString("</td></tr></table>").repeated(11) + "</section>";
    const std::tuple<QString, const char*, const char*> casos[] = {
        {anidadas, "", "hay más de 10 tablas una dentro de otra"},
        {"<section>uno</p></section>", "", "El informe prueba.rpt no es válido, línea 3"},
        {"", "", "no tiene contenido"},
        {"<table filas=\"X\"><thead></thead></table>", "", "la tabla X no tiene tbody"},
        {"<section>x</section>", "<meta name=\"margenes\" content=\"10 10 900 10\"/>", "los márgenes no entran"},
        {"<section alto=\"1e308\">x</section>", "", "el alto de una sección no pasa de 1000 mm"},
        {"<section>{{#Abierta}}</section>", "", "El informe prueba.rpt no es válido: "},
        {"<table filas=\"X\"><tbody><tr><td>{{#A}}</td></tr></tbody></table>", "", "prueba.rpt no es válido: "},
        {"<section filas=\"X\">x</section>", "<script type=\"consulta\" id=\"Y\">SELECT 1</script>", "las filas de X"},
        {"<section>x</section>", "<script type=\"consulta\" id=\"X\">SELECT 1 FROM NoEsta</script>", "NoEsta"},
    };
    Informe control;
    control.ArchivoDatos = rutas::baseSembrada();
    for (const auto& [cuerpo, cabeza, dice] : casos)
    {
        control.ArchivoInforme = informe.escribir(cuerpo, cabeza);
        EXPECT_NE(control.PrintReport(), 0);
        EXPECT_TRUE(control.LastErrorString().contains(dice))
            << qPrintable(cuerpo + cabeza + control.LastErrorString());
    }
}

TEST(Informe, LosValoresSeImprimenTalCualSegunSuTipo)
{
    const InformeDePrueba informe;
    const QString hostil = "<b>D'Angelo</b> & \"Hijos\" &amp; oficina {{Fecha}} ñÑáü";
    DatosDeInforme datos = InformeDePrueba::filas({"A"}, {{"uno"}, {"d<o>s"}});
    datos.conjuntos["Nada"] = {};
    datos.valores = {
        {"Nombre", hostil},           {"Vacio", QString()},        {"Importe", Moneda::deTexto("-1234567,895")},
        {"Fecha", QDate(2009, 6, 3)}, {"Cantidad", qint64{20000}}, {"Una", qint64{1}},
        {"SinCodigo", "()"}};
    const QStringList hojas = informe.textos(
        informe.paginas("<section><p>[{{Nombre}}]</p><p>[{{Importe}}] [{{Fecha}}] [{{Cantidad}}] [{{NoEsta}}]</p>"
                        "<p>{{#hayNombre}}si{{/hayNombre}}{{#hayVacio}}no{{/hayVacio}}{{#noVacio}}vacio{{/noVacio}}</p>"
                        "<p>{{#unoUna}}una{{/unoUna}}{{^unoCantidad}}s{{/unoCantidad}}{{#haySinCodigo}}()"
                        "{{/haySinCodigo}}</p>"
                        "<p>{{#Filas}}({{A}}){{/Filas}}{{#noNada}}nada{{/noNada}}{{#hayNada}}algo{{/hayNada}}</p>"
                        "</section>",
                        datos));
    EXPECT_EQ(hojas.join(u'|'),
              '[' + hostil + "] [-1.234.567,90] [03/06/2009] [20000] [] sivacio unas (uno)(d<o>s)nada");
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
        "<header><table width=\"100%\"><tr><td>CABEZA {{Pagina}} de {{Paginas}}</td></tr></table></header>"
        "<table filas=\"Filas\" width=\"100%\" cellspacing=\"0\" cellpadding=\"1\"><thead><tr>"
        "<th width=\"10%\">Clave</th><th width=\"30%\" align=\"left\">Nombre</th><th width=\"30%\">Otro</th>"
        "<th width=\"10%\"></th><th width=\"20%\" align=\"right\">Suma por mes</th></tr></thead>"
        "<tbody><tr><td class=\"f\">{{Clave}}</td><td class=\"f p\">{{Nombre}}</td><td class=\"f\">{{Otro}}</td>"
        "<td class=\"f n\">{{Entera}}</td>"
        "<td class=\"f\" align=\"right\">{{Importe}}</td></tr></tbody></table>"
        "<footer><table width=\"100%\"><tr><td>PIE</td></tr></table></footer>",
        InformeDePrueba::filas({"Clave", "Nombre", "Otro", "Entera", "Importe"}, filas),
        "<style>td.f { font-size: 7pt; border-bottom: 1px solid #d5dde1; padding: 3px 2px 1px 2px; } "
        "td.p { padding: 6px 2px 1px 2px; font-size: 9pt; } td.n { white-space: nowrap; }</style>"));
    const std::vector<hojas::Palabra> palabras = hojas::palabras(pdf);
    const auto primera = [&](const QString& texto)
    { return *std::ranges::find(palabras, texto, &hojas::Palabra::texto); };
    const double pie = primera("PIE").arriba;
    const double cabeza = primera("CABEZA").abajo;
    std::map<int, int> derechas;
    int siguiente = 10000;
    qsizetype letras = 0;
    hojas::Palabra clave{}; // of the row at hand
    double fondo = 0;       // of its lowest word
    for (const hojas::Palabra& palabra : palabras)
    {
        EXPECT_TRUE(palabra.texto == "PIE" || palabra.abajo <= pie);
        derechas[qRound(palabra.derecha)] += palabra.texto == "9.999.999,99" ? 1 : 0;
        letras += palabra.texto.count(u'W');
        if (palabra.texto == QString::number(siguiente))
        {
            ++siguiente;
            EXPECT_GE(palabra.arriba, cabeza);
            EXPECT_TRUE(clave.hoja != palabra.hoja || palabra.arriba > fondo - 1.5)
                << qPrintable(palabra.texto) << " begins inside the row above";
            clave = palabra;
            fondo = 0;
        }
        fondo = palabra.texto == "PIE" ? fondo : std::max(fondo, palabra.abajo);
    }
    EXPECT_EQ(siguiente, 10400);
    EXPECT_EQ(letras, 90 * 10);
    EXPECT_GT(clave.hoja, 5);
    EXPECT_EQ(std::ranges::max_element(derechas, {}, &std::pair<const int, int>::second)->second, 400 - 8)
        << "8 do not fit";
}

TEST(Informe, LoQueVaJuntoQuedaJunto)
{
    const InformeDePrueba informe;
    const QString cuerpo =
        "<table filas=\"Filas\" class=\"junto\" width=\"100%\" cellspacing=\"0\"><thead><tr><th>X</th></tr></thead>"
        "<tbody>{{#EsTitulo}}<tr class=\"junto grupo\"><td>GRUPO{{Nombre}}{{#Continua}} sigue{{/Continua}}</td></tr>"
        "{{/EsTitulo}}{{#EsFila}}<tr><td>fila</td></tr>{{/EsFila}}"
        "{{#EsTotal}}<tr class=\"otra unida\"><td>TOTAL{{Nombre}}</td></tr>{{/EsTotal}}</tbody></table>"
        "<section class=\"junto\">AVISO</section><section><p>JURO</p><p style=\"padding-top: "
        "40px\">FIRMA</p></section>";
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
            EXPECT_FALSE(hoja.startsWith("X fila")) << antes << ": the group is not named";
            EXPECT_FALSE(hoja.contains("X TOTAL") || hoja.contains("sigue TOTAL"));
            EXPECT_FALSE(hoja.endsWith("GRUPO2") || hoja.endsWith("AVISO")) << antes;
            EXPECT_FALSE(hoja.startsWith("AVISO")) << antes << ": alone";
            EXPECT_EQ(hoja.contains("JURO"), hoja.contains("TOTAL2 AVISO JURO FIRMA"));
            seguidos += hoja.startsWith("X GRUPO1 sigue fila") ? 1 : 0;
            EXPECT_EQ(hoja.count("GRUPO1") > 1, false);
        }
        EXPECT_EQ(hojas.join(QString()).count("fila"), antes + 1);
    }
    EXPECT_GT(seguidos, 5);
}

TEST(Informe, OtroPapelRehaceLasHojasYLoQueFallaLasDeja)
{
    const InformeDePrueba informe;
    const QString cuerpo = "<table filas=\"Filas\"><tbody><tr><td>{{A}}</td></tr></tbody></table><section>x</section>";
    qint64 avisadas = 0;
    PaginasDeInforme paginas =
        informe.paginas(cuerpo, InformeDePrueba::filas({"A"}, std::vector<std::vector<std::string>>(500, {"fila"})), {},
                        [&](qint64 hechas, qint64) { avisadas = std::max(avisadas, hechas); });
    EXPECT_EQ(avisadas, 500);
    const int vertical = paginas.cantidad();
    QPageLayout pagina = paginas.pagina();
    pagina.setOrientation(QPageLayout::Landscape);
    paginas.setPagina(pagina);
    const int apaisada = paginas.cantidad();
    EXPECT_GT(apaisada, vertical);
    EXPECT_THROW(paginas.setPagina(informe.paginas(cuerpo, InformeDePrueba::filas({"A"}, {})).pagina(),
                                   [](qint64, qint64) { throw std::runtime_error("cancelado"); }),
                 std::runtime_error);
    EXPECT_EQ(paginas.cantidad(), apaisada);
    EXPECT_EQ(paginas.pagina(), pagina);
    EXPECT_EQ(informe.textos(std::move(paginas)).join(QString()).count("fila"), 500);
}

TEST(Informe, UnaConsultaSinFinSePuedeCancelar)
{
    const InformeDePrueba informe;
    const auto plantilla = PlantillaDeInforme::leer(
        informe.escribir("<section>x</section>",
                         "<script type=\"consulta\" id=\"X\">WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 "
                         "FROM n) SELECT count(*) FROM n</script>"));
    Conexion conexion;
    conexion.abrir(rutas::baseSembrada(), Conexion::Modo::SoloLectura);
    const auto aviso = [veces = 0](qint64, qint64) mutable { ++veces < 20 ? void() : throw std::runtime_error("no"); };
    EXPECT_THROW((void)DatosDeInforme::leer(plantilla, conexion, {}, aviso), std::runtime_error);
    EXPECT_TRUE(conexion.hay("SELECT 1")) << "the connection is good for more";
}

TEST(Informe, SoloSeCarganImagenesQueEstanJuntoAlFormato)
{
    const InformeDePrueba informe;
    const QTemporaryDir ajena;
    QImage roja(40, 40, QImage::Format_RGB32);
    roja.fill(Qt::red);
    ASSERT_TRUE(roja.save(informe.ruta("propia.png")) && roja.save(ajena.filePath("ajena.png")));
    const auto pintada = [&](const QString& archivo)
    {
        QImage hoja(600, 850, QImage::Format_RGB32);
        hoja.fill(Qt::white);
        QPainter pintor(&hoja);
        informe.paginas("<section><img src=\"" + archivo + "\"/></section>").pintar(pintor, 0);
        return hoja.copy();
    };
    const QString absoluta = ajena.filePath("ajena.png");
    const QString relativa = "../" + QFileInfo(ajena.path()).fileName() + "/ajena.png";
    for (const QString& archivo : {QString("propia.png"), absoluta, relativa, "file://" + absoluta})
    {
        EXPECT_EQ(pintada(archivo) != pintada("falta.png"), archivo == "propia.png") << qPrintable(archivo);
    }
}

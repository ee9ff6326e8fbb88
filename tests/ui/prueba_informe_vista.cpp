// The preview of a report.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/entrada.h"
#include "apoyo/limite_de_archivos.h"
#include "informe_de_prueba.h"
#include "ui/doors/dialogos.h"
#include "ui/doors/impresion.h"
#include "ui/report/informe_tabla.h"
#include "ui/shell/navegacion.h"
#include "ui/shell/trabajo_largo.h"

#include <QPrinter>
#include <QtWidgets>

namespace
{
struct VistaPrevia : testing::Test
{
    CajasDePrueba cajas;
    InformeDePrueba informe;
    VistaDeInforme vista{informe.paginas("<section filas=\"Filas\" alto=\"250\">hoja{{A}}</section>",
                                         InformeDePrueba::filas({"A"}, {{"1"}, {"2"}, {"3"}, {"4"}}))};

    VistaPrevia()
    {
        vista.setAttribute(Qt::WA_DeleteOnClose, false);
        vista.resize(1000, 700);
        Entrada::activar(vista);
    }
    ~VistaPrevia() override
    {
        reemplazarPedirImpresion({});
        reemplazarPedirPagina({});
    }
    void pulsar(const char* nombre)
    {
        Entrada::pulsar(*vista.findChild<QToolBar*>()->widgetForAction(vista.findChild<QAction*>(nombre)));
    }
    [[nodiscard]] QString pagina() const
    {
        return vista.findChild<QToolBar*>()->findChild<QLabel*>()->text().simplified();
    }
    /// The files that are there after saving as this one.
    std::string guardando(const QString& ruta)
    {
        cajas.archivo(ruta);
        pulsar("cmdPdf");
        return archivosDe(informe.ruta(""));
    }
};
} // namespace

TEST_F(VistaPrevia, SeRecorreConBotonesYTeclas)
{
    const std::pair<const char*, const char*> casos[] = {
        {"cmdAnterior", "1 de 4"}, {"cmdSiguiente", "2 de 4"}, {"cmdAcercar", "2 de 4"},   {"cmdAlejar", "2 de 4"},
        {"cmdAncho", "2 de 4"},    {"cmdUltima", "4 de 4"},    {"cmdSiguiente", "4 de 4"}, {"cmdAnterior", "3 de 4"},
        {"cmdPrimera", "1 de 4"},  {"PgDown", "2 de 4"},       {"PgUp", "1 de 4"},         {"End", "4 de 4"},
        {"Home", "1 de 4"}};
    for (const auto& [gesto, donde] : casos)
    {
        *gesto == 'c' ? pulsar(gesto) : Entrada::jugar(gesto);
        EXPECT_EQ(pagina(), QString("Página ") + donde) << gesto;
    }
    QStringList ayudas;
    Navegacion::instancia().fijarAyuda([&](const QString& ayuda) { ayudas << ayuda; });
    Entrada::jugar("F1");
    Navegacion::instancia().fijarAyuda({});
    EXPECT_EQ(ayudas.join(u','), "Informe");
    {
        const TrabajoLargo trabajo("Imprimiendo");
        EXPECT_FALSE(vista.close());
    }
    Entrada::jugar("Esc");
    EXPECT_FALSE(vista.isVisible());
}

TEST_F(VistaPrevia, GuardaUnPdfODicePorQueNo)
{
    EXPECT_EQ(guardando({}), "prueba.rpt") << "cancelled";
    cajas.esperaQueDiga(Caja::Simple, "salida.pdf - (76)");
    EXPECT_EQ(guardando(informe.ruta("no/esta/salida.pdf")), "prueba.rpt") << "no part of it stays";
    EXPECT_EQ(guardando(informe.ruta("salida.pdf")), "prueba.rpt salida.pdf");
    EXPECT_EQ(hojas::textos(informe.ruta("salida.pdf")).size(), 4);

    const QString otro = informe.ruta("otro.pdf");
    escribirArchivo(otro, "de otro");
#ifndef _WIN32
    {
        const LimiteDeArchivos lleno(static_cast<rlim_t>(QFileInfo(informe.ruta("salida.pdf")).size() - 64));
        cajas.espera(Caja::Pregunta, "El archivo 'otro.pdf' ya existe. ¿Desea reemplazarlo?", true);
        cajas.esperaQueDiga(Caja::Simple, "otro.pdf - (61)");
        EXPECT_EQ(guardando(otro), "otro.pdf prueba.rpt salida.pdf");
    }
#endif
    cajas.espera(Caja::Pregunta, "El archivo 'otro.pdf' ya existe. ¿Desea reemplazarlo?", false);
    guardando(otro);
    EXPECT_EQ(leerArchivo(otro), "de otro");
}

TEST_F(VistaPrevia, ProponeUnNombreExportaLaTablaYAbreLoGuardado)
{
    const auto boton = [](const QWidget& de, const char* nombre) { return de.findChild<QAction*>(nombre); };
    EXPECT_FALSE(boton(vista, "cmdExportar")->isEnabled()) << "no table";
    const QString filas = "<table filas=\"Filas\"><thead><tr><th>Nombre</th><th>Importe</th></tr></thead><tbody>"
                          "{{#EsTotal}}<tr><td colspan=\"2\">{{A}}</td><td>fin</td></tr>{{/EsTotal}}{{^EsTotal}}<tr>"
                          "<td> {{A}}<b>!</b></td><td>{{B}}</td></tr>{{/EsTotal}}</tbody></table>";
    VistaDeInforme otra(
        informe.paginas(
            filas + "<section>nada</section>" + filas,
            InformeDePrueba::filas({"A", "B", "EsTotal"}, {{"Ana & \x01;Eva", "1.234,50", ""}, {"Total", "", "1"}})),
        "30-1 2026/10 nomina");
    otra.setAttribute(Qt::WA_DeleteOnClose, false);
    QStringList pedidos;
    QString abierto;
    const auto elegir = [&](const PedidoDeArchivo& pedido)
    {
        pedidos << QFileInfo(pedido.propuesta).fileName();
        return pedidos.size() == 1 ? QString() : informe.ruta(pedidos.size() == 2 ? "salida" : "salida.csv");
    };
    reemplazarDialogoArchivo(elegir);
    reemplazarAbrirEnlace([&](const QString& enlace) { return abierto = enlace, !abierto.endsWith("csv"); });
    const std::tuple<VistaDeInforme*, const char*, const char*, const char*> casos[] = {
        {&vista, "cmdPdf", "Prueba.pdf", ""},
        {&vista, "cmdPdf", "Prueba.pdf", "salida.pdf"},
        {&otra, "cmdExportar", "30-1 2026-10 nomina.xlsx", "salida.csv"},
    };
    for (const auto& [cual, gesto, propuesto, queda] : casos)
    {
        EXPECT_FALSE(boton(*cual, "cmdAbrir")->isEnabled());
        boton(*cual, gesto)->trigger();
        EXPECT_EQ(pedidos.constLast(), propuesto);
        const QString ruta = QDir::toNativeSeparators(informe.ruta(queda));
        EXPECT_EQ(cual->statusBar()->currentMessage(), *queda == '\0' ? QString() : "Guardado en " + ruta);
        EXPECT_EQ(boton(*cual, "cmdAbrir")->isEnabled(), *queda != '\0');
    }
    reemplazarDialogoArchivo({});
    boton(vista, "cmdAbrir")->trigger();
    EXPECT_EQ(QFileInfo(abierto).fileName(), "salida.pdf");
    cajas.esperaQueDiga(Caja::Exclamacion, "No se pudo abrir '");
    boton(otra, "cmdAbrir")->trigger();
    reemplazarAbrirEnlace({});
    const QByteArray tabla = "Nombre;Importe\r\n\"Ana &  ;Eva!\";1.234,50\r\nTotal;;fin\r\n";
    EXPECT_EQ(leerArchivo(informe.ruta("salida.csv")), "\xEF\xBB\xBF" + tabla + "\r\n" + tabla);
    const auto sinTitulo = informe.paginas(
        "<table filas=\"Filas\"><tbody><tr><td>{{A}}</td><td align=\"right\">{{A}}</td></tr></tbody></table>",
        InformeDePrueba::filas({"A"}, {{"007"}, {"48"}, {"-1.234,50"}, {"05/03/1980"}, {"1,234"}}));
    QString clases;
    for (const auto& fila : filasDeTablas(sinTitulo.contenido()))
    {
        clases += QString("%1%2 ").arg(fila[0].valor.index()).arg(fila[1].valor.index());
    }
    EXPECT_EQ(clases, "00 01 22 33 00 ") << "texts, a whole number, amounts, dates";
}

TEST_F(VistaPrevia, ImprimeLasHojasPedidas)
{
    impresoraActual().setOutputFormat(QPrinter::PdfFormat);
    for (const bool acepta : {true, false})
    {
        const QString impreso = informe.ruta(acepta ? "impreso.pdf" : "cancelado.pdf");
        impresoraActual().setOutputFileName(impreso);
        const auto pedir = [acepta](int todas, PedidoDeImpresion& pedido)
        {
            pedido = {2, 3};
            return acepta && todas == 4;
        };
        reemplazarPedirImpresion(pedir);
        pulsar("cmdImprimir");
        EXPECT_EQ(acepta, QFile::exists(impreso));
        EXPECT_TRUE(!acepta || hojas::textos(impreso) == QStringList({"hoja2", "hoja3"}));
        EXPECT_TRUE(!acepta || impresoraActual().pageLayout().margins().isNull()); // the report's own are enough
    }
}

TEST_F(VistaPrevia, OtroPapelSeVeYUnoDemasiadoChicoSeRechaza)
{
    cajas.espera(Caja::Simple, "El informe no entra en una página tan chica.");
    for (const int lado : {150, 20})
    {
        const auto pedir = [lado](QPageLayout& pagina)
        {
            pagina = {QPageSize(QSizeF(lado, lado), QPageSize::Millimeter), QPageLayout::Portrait, {}};
            return true;
        };
        reemplazarPedirPagina(pedir);
        pulsar("cmdPagina");
        EXPECT_EQ(pagina(), "Página 1 de 8");
    }
}

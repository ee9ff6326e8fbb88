// The preview of a report.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/entrada.h"
#include "base/directorio_programa.h"
#include "informe_de_prueba.h"
#include "ui/doors/dialogos.h"
#include "ui/doors/impresion.h"
#include "ui/shell/navegacion.h"
#include "ui/shell/trabajo_largo.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QPrinter>
#include <QToolBar>

namespace
{
struct VistaPrevia : testing::Test
{
    CajasDePrueba cajas;
    InformeDePrueba informe;
    std::unique_ptr<VistaDeInforme> vista;

    void SetUp() override
    {
        vista = std::make_unique<VistaDeInforme>(
            informe.paginas(QStringLiteral("<section filas=\"Filas\" alto=\"250\">hoja{{A}}</section>"),
                            InformeDePrueba::filas({"A"}, {{"1"}, {"2"}, {"3"}, {"4"}})));
        vista->setAttribute(Qt::WA_DeleteOnClose, false);
        vista->resize(1000, 700);
        Entrada::activar(*vista);
    }
    void TearDown() override
    {
        reemplazarPedirImpresion({});
        reemplazarPedirPagina({});
    }
    void pulsar(const char* nombre)
    {
        auto* accion = vista->findChild<QAction*>(QString::fromLatin1(nombre));
        ASSERT_NE(accion, nullptr) << nombre;
        Entrada::pulsar(*vista->findChild<QToolBar*>()->widgetForAction(accion));
    }
    [[nodiscard]] QString pagina() const
    {
        for (const QLabel* rotulo : vista->findChildren<QLabel*>())
        {
            if (rotulo->text().contains(QStringLiteral("Página")))
            {
                return rotulo->text().simplified().remove(QStringLiteral("Página "));
            }
        }
        return {};
    }
    [[nodiscard]] QStringList archivos() const
    {
        return QDir(informe.ruta("")).entryList({QStringLiteral("*.pdf*")}, QDir::Files);
    }
};
} // namespace

TEST_F(VistaPrevia, SeRecorreConBotonesYTeclas)
{
    const std::pair<const char*, const char*> botones[] = {
        {"cmdAnterior", "1 de 4"},  {"cmdSiguiente", "2 de 4"}, {"cmdAcercar", "2 de 4"},
        {"cmdAlejar", "2 de 4"},    {"cmdAncho", "2 de 4"},     {"cmdUltima", "4 de 4"},
        {"cmdSiguiente", "4 de 4"}, {"cmdAnterior", "3 de 4"},  {"cmdPrimera", "1 de 4"}};
    for (const auto& [boton, donde] : botones)
    {
        pulsar(boton);
        EXPECT_EQ(pagina(), QString::fromLatin1(donde)) << boton;
    }
    const std::pair<Qt::Key, const char*> teclas[] = {
        {Qt::Key_PageDown, "2 de 4"}, {Qt::Key_PageUp, "1 de 4"}, {Qt::Key_End, "4 de 4"}, {Qt::Key_Home, "1 de 4"}};
    for (const auto& [tecla, donde] : teclas)
    {
        Entrada::tecla(tecla);
        EXPECT_EQ(pagina(), QString::fromLatin1(donde)) << tecla;
    }
    QStringList ayudas;
    Navegacion::instancia().fijarAyuda([&](const QString& ayuda) { ayudas << ayuda; });
    Entrada::tecla(Qt::Key_F1);
    Navegacion::instancia().fijarAyuda({});
    EXPECT_EQ(ayudas, QStringList{QStringLiteral("Informe")});
    {
        const TrabajoLargo trabajo(QStringLiteral("Imprimiendo"));
        EXPECT_FALSE(vista->close());
    }
    Entrada::tecla(Qt::Key_Escape);
    EXPECT_FALSE(vista->isVisible());
}

TEST_F(VistaPrevia, GuardaUnPdfODicePorQueNo)
{
    cajas.archivo(QString());
    pulsar("cmdPdf");
    EXPECT_EQ(archivos(), QStringList()) << "cancelled";
    cajas.archivo(informe.ruta("no/esta/salida.pdf")).esperaQueDiga(Caja::Simple, QStringLiteral("salida.pdf - (76)"));
    pulsar("cmdPdf");
    EXPECT_EQ(archivos(), QStringList()) << "no part of it stays";
    cajas.archivo(informe.ruta("salida.pdf"));
    pulsar("cmdPdf");
    EXPECT_EQ(archivos(), QStringList{QStringLiteral("salida.pdf")});
    EXPECT_EQ(hojas::textos(informe.ruta("salida.pdf")).size(), 4);

    const QString otro = informe.ruta("otro.pdf");
    escribirArchivo(otro, "de otro");
    cajas.archivo(otro).esperaPregunta(QStringLiteral("El archivo 'otro.pdf' ya existe. ¿Desea reemplazarlo?"), false);
    pulsar("cmdPdf");
    EXPECT_EQ(leerArchivo(otro), "de otro");
    const QString propio = DirectorioPrograma() + QStringLiteral("/RptNuevo.rpt");
    cajas.archivo(propio).esperaQueDiga(Caja::Exclamacion, QStringLiteral("es un archivo del programa"));
    pulsar("cmdPdf");
    EXPECT_FALSE(QFile::exists(propio));
}

TEST_F(VistaPrevia, ImprimeLasHojasPedidas)
{
    QPrinter& impresora = impresoraActual();
    impresora.setOutputFormat(QPrinter::PdfFormat);
    impresora.setOutputFileName(informe.ruta("impreso.pdf"));
    reemplazarPedirImpresion(
        [](int todas, PedidoDeImpresion& pedido)
        {
            pedido = {2, 3};
            return todas == 4;
        });
    pulsar("cmdImprimir");
    EXPECT_EQ(hojas::textos(informe.ruta("impreso.pdf")),
              QStringList({QStringLiteral("hoja2"), QStringLiteral("hoja3")}));
    reemplazarPedirImpresion([](int, PedidoDeImpresion&) { return false; });
    ASSERT_TRUE(QFile::remove(informe.ruta("impreso.pdf")));
    pulsar("cmdImprimir");
    EXPECT_EQ(archivos(), QStringList()) << "cancelled";
}

TEST_F(VistaPrevia, OtroPapelSeVeYUnoDemasiadoChicoSeRechaza)
{
    QSizeF papel(150, 150);
    reemplazarPedirPagina(
        [&](QPageLayout& pagina)
        {
            pagina = QPageLayout(QPageSize(papel, QPageSize::Millimeter), QPageLayout::Portrait, {});
            return true;
        });
    pulsar("cmdPagina");
    EXPECT_EQ(pagina(), QStringLiteral("1 de 8"));
    papel = QSizeF(20, 20);
    cajas.espera(Caja::Simple, QStringLiteral("El informe no entra en una página tan chica."));
    pulsar("cmdPagina");
    EXPECT_EQ(pagina(), QStringLiteral("1 de 8"));
}

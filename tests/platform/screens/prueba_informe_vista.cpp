// The preview of a report.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/entrada.h"
#include "informe_de_prueba.h"
#include "platform/data/directorio_programa.h"
#include "platform/data/error_de_ejecucion.h"
#include "platform/screens/dialogos.h"
#include "platform/screens/impresion.h"
#include "platform/screens/informe_vista.h"
#include "platform/screens/navegacion.h"
#include "platform/screens/trabajo_largo.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPrinter>
#include <QProcess>
#include <QProgressBar>
#include <QScrollBar>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <gtest/gtest.h>

namespace
{
struct VistaPrevia : testing::Test
{
    CajasDePrueba cajas;
    InformeDePrueba informe;
    std::unique_ptr<VistaDeInforme> vista;

    void SetUp() override
    {
        std::vector<std::vector<std::string>> filas;
        for (int i = 0; i < 200; ++i)
        {
            filas.push_back({"fila" + std::to_string(i)});
        }
        DatosDeInforme datos;
        datos.conjuntos[QStringLiteral("Filas")] = filasDeTexto({"A"}, std::move(filas));
        vista = std::make_unique<VistaDeInforme>(informe.paginas(
            QStringLiteral("<table filas=\"Filas\" width=\"100%\"><tbody><tr><td>{{A}}</td></tr></tbody></table>"),
            datos));
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
        auto* barra = vista->findChild<QToolBar*>(QStringLiteral("barraInforme"));
        auto* accion = vista->findChild<QAction*>(QString::fromLatin1(nombre));
        ASSERT_NE(accion, nullptr) << nombre;
        QWidget* boton = barra->widgetForAction(accion);
        ASSERT_TRUE(boton->isVisible()) << nombre;
        Entrada::pulsar(*boton);
    }
    [[nodiscard]] bool activa(const char* nombre) const
    {
        return vista->findChild<QAction*>(QString::fromLatin1(nombre))->isEnabled();
    }
    [[nodiscard]] QString pagina() const
    {
        for (const QLabel* rotulo : vista->findChildren<QLabel*>())
        {
            if (rotulo->text().contains(QStringLiteral("Página")))
            {
                return rotulo->text().simplified();
            }
        }
        return {};
    }
    [[nodiscard]] QStringList archivos() const
    {
        return QDir(informe.ruta(QString())).entryList({QStringLiteral("*.pdf*")}, QDir::Files);
    }
    [[nodiscard]] static int hojasDe(const QString& pdf)
    {
        QProcess proceso;
        proceso.start(QStringLiteral("pdfinfo"), {pdf});
        EXPECT_TRUE(proceso.waitForFinished());
        for (const QByteArray& linea : proceso.readAllStandardOutput().split('\n'))
        {
            if (linea.startsWith("Pages:"))
            {
                return linea.mid(6).trimmed().toInt();
            }
        }
        return 0;
    }
};
} // namespace

TEST_F(VistaPrevia, WalksThePagesByButtonsAndKeys)
{
    EXPECT_EQ(vista->windowTitle(), QStringLiteral("Prueba"));
    EXPECT_EQ(pagina(), QStringLiteral("Página 1 de 4"));
    EXPECT_FALSE(activa("cmdAnterior"));
    pulsar("cmdSiguiente");
    EXPECT_EQ(pagina(), QStringLiteral("Página 2 de 4"));
    pulsar("cmdUltima");
    EXPECT_EQ(pagina(), QStringLiteral("Página 4 de 4"));
    EXPECT_FALSE(activa("cmdSiguiente"));
    EXPECT_FALSE(activa("cmdUltima"));
    pulsar("cmdAnterior");
    EXPECT_EQ(pagina(), QStringLiteral("Página 3 de 4"));
    pulsar("cmdPrimera");
    EXPECT_EQ(pagina(), QStringLiteral("Página 1 de 4"));
    Entrada::tecla(Qt::Key_PageDown);
    EXPECT_EQ(pagina(), QStringLiteral("Página 2 de 4"));
    Entrada::tecla(Qt::Key_End);
    EXPECT_EQ(pagina(), QStringLiteral("Página 4 de 4"));
    Entrada::tecla(Qt::Key_Home);
    EXPECT_EQ(pagina(), QStringLiteral("Página 1 de 4"));
}

TEST_F(VistaPrevia, ZoomKeepsThePage)
{
    auto* hojas = vista->findChild<HojasDeInforme*>();
    pulsar("cmdSiguiente");
    const double antes = hojas->zoom();
    pulsar("cmdAcercar");
    EXPECT_GT(hojas->zoom(), antes);
    EXPECT_EQ(pagina(), QStringLiteral("Página 2 de 4"));
    pulsar("cmdAlejar");
    pulsar("cmdAlejar");
    EXPECT_LT(hojas->zoom(), antes);
    EXPECT_EQ(pagina(), QStringLiteral("Página 2 de 4"));
    pulsar("cmdAncho");
    EXPECT_NEAR(hojas->zoom(), antes, 0.05);
}

TEST_F(VistaPrevia, SavesAPdfOrSaysWhyNot)
{
    cajas.archivo(QString());
    pulsar("cmdPdf");
    EXPECT_EQ(archivos(), QStringList()) << "cancelled";
    cajas.archivo(informe.ruta(QStringLiteral("salida.pdf")));
    pulsar("cmdPdf");
    EXPECT_EQ(archivos(), QStringList{QStringLiteral("salida.pdf")});
    EXPECT_EQ(hojasDe(informe.ruta(QStringLiteral("salida.pdf"))), 4);
    ASSERT_EQ(cajas.archivosPedidos().size(), 2U);
    EXPECT_EQ(cajas.archivosPedidos()[1].extension, QStringLiteral("pdf"));

    cajas.archivo(informe.ruta(QStringLiteral("no/esta/salida.pdf")))
        .esperaQueDiga(Caja::Simple, QStringLiteral("salida.pdf - (76)"));
    pulsar("cmdPdf");
    EXPECT_EQ(archivos(), QStringList{QStringLiteral("salida.pdf")}) << "no part of it stays";

    const QString otro = informe.ruta(QStringLiteral("otro.pdf"));
    escribirArchivo(otro, "de otro");
    cajas.archivo(otro).esperaPregunta(QStringLiteral("El archivo 'otro.pdf' ya existe. ¿Desea reemplazarlo?"), false);
    pulsar("cmdPdf");
    EXPECT_EQ(leerArchivo(otro), "de otro");
    const QString propio = DirectorioPrograma() + QStringLiteral("/RptNuevo.rpt");
    cajas.archivo(propio).esperaQueDiga(Caja::Exclamacion, QStringLiteral("es un archivo del programa"));
    pulsar("cmdPdf");
    EXPECT_FALSE(QFile::exists(propio));
}

TEST_F(VistaPrevia, SavingAPdfShowsHowFarItIs)
{
    struct Avance : QObject
    {
        QList<int> milesimos;
        bool eventFilter(QObject* objeto, QEvent* evento) override
        {
            if (evento->type() == QEvent::Show && objeto->objectName() == QLatin1String("avance"))
            {
                connect(objeto->findChild<QProgressBar*>(), &QProgressBar::valueChanged, this,
                        [this](int valor) { milesimos.append(valor); });
            }
            return false;
        }
    } avance;
    qApp->installEventFilter(&avance);
    TrabajoLargo::fijarDemora(0);
    vista->guardarPdf(informe.ruta(QStringLiteral("salida.pdf")));
    TrabajoLargo::fijarDemora(500);
    ASSERT_FALSE(avance.milesimos.isEmpty());
    EXPECT_EQ(avance.milesimos.first(), 250) << "one page of four";
    EXPECT_TRUE(std::is_sorted(avance.milesimos.begin(), avance.milesimos.end()));
}

TEST_F(VistaPrevia, F1OpensItsPageOfTheHelp)
{
    QStringList paginas;
    Navegacion::instancia().fijarAyuda([&](const QString& pagina) { paginas << pagina; });
    Entrada::tecla(Qt::Key_F1);
    Navegacion::instancia().fijarAyuda({});
    EXPECT_EQ(paginas, QStringList{QStringLiteral("Informe")});
}

TEST_F(VistaPrevia, PrintsTheRangeAskedFor)
{
    const QString salida = informe.ruta(QStringLiteral("impreso.pdf"));
    QPrinter& impresora = impresoraActual();
    impresora.setOutputFormat(QPrinter::PdfFormat);
    impresora.setOutputFileName(salida);
    int hojas = 0;
    reemplazarPedirImpresion(
        [&](int todas, PedidoDeImpresion& pedido)
        {
            hojas = todas;
            pedido = {2, 3};
            return true;
        });
    pulsar("cmdImprimir");
    EXPECT_EQ(hojas, 4);
    EXPECT_EQ(hojasDe(salida), 2);
    reemplazarPedirImpresion([](int, PedidoDeImpresion&) { return false; });
    ASSERT_TRUE(QFile::remove(salida));
    pulsar("cmdImprimir");
    EXPECT_EQ(archivos(), QStringList()) << "cancelled";
}

TEST_F(VistaPrevia, AnotherPaperLaysThePagesOutAnew)
{
    reemplazarPedirPagina(
        [](QPageLayout& pagina)
        {
            pagina.setOrientation(QPageLayout::Landscape);
            return true;
        });
    pulsar("cmdPagina");
    const QString apaisada = pagina();
    EXPECT_NE(apaisada, QStringLiteral("Página 1 de 4"));
    reemplazarPedirPagina(
        [](QPageLayout& pagina)
        {
            pagina = QPageLayout(QPageSize(QSizeF(20, 20), QPageSize::Millimeter), QPageLayout::Portrait, {});
            return true;
        });
    cajas.espera(Caja::Simple, QStringLiteral("El informe no entra en una página tan chica."));
    pulsar("cmdPagina");
    EXPECT_EQ(pagina(), apaisada);
}

TEST_F(VistaPrevia, EscapeClosesIt)
{
    Entrada::tecla(Qt::Key_Escape);
    EXPECT_FALSE(vista->isVisible());
}

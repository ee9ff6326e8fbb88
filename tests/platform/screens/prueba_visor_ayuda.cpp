#include "apoyo/rutas.h"
#include "platform/screens/visor_ayuda.h"

#include <QtTest>
#include <QtWidgets>
#include <gmock/gmock.h>

namespace
{
const QDir ayuda(rutas::enInstalacion(QStringLiteral("ayuda")));

QString pagina(const QString& nombre)
{
    QFile archivo(ayuda.filePath(nombre + QStringLiteral(".html")));
    return archivo.open(QIODevice::ReadOnly) ? QString::fromUtf8(archivo.readAll()) : QString();
}

QStringList nombres()
{
    QStringList salida;
    for (const QString& archivo : ayuda.entryList({QStringLiteral("*.html")}))
    {
        salida << QFileInfo(archivo).completeBaseName();
    }
    return salida;
}

template <class Control>
Control* de(VisorDeAyuda& visor, const char* nombre)
{
    return visor.findChild<Control*>(QLatin1String(nombre));
}

QStringList titulos(VisorDeAyuda& visor)
{
    const auto* lista = de<QListWidget>(visor, "lstContenido");
    QStringList salida;
    for (int i = 0; i < lista->count(); ++i)
    {
        salida << lista->item(i)->text();
    }
    return salida;
}

TEST(Ayuda, SusPaginasSeCorresponden)
{
    VisorDeAyuda visor(ayuda.path());
    EXPECT_EQ(titulos(visor).size(), nombres().size()) << "a page is not in the contents, or the reverse";
    const QRegularExpression lugar(QStringLiteral("(?:href|src)=\"([^\"]*)\""));
    QSet<QString> retratos;
    for (const QString& nombre : nombres())
    {
        visor.mostrar(nombre);
        EXPECT_EQ(visor.paginaActual(), nombre);
        EXPECT_FALSE(de<QTextBrowser>(visor, "txtPagina")->toPlainText().startsWith(QStringLiteral("No se encuentra")));
        for (auto i = lugar.globalMatch(pagina(nombre)); i.hasNext();)
        {
            const QString archivo = i.next().captured(1);
            EXPECT_TRUE(ayuda.exists(archivo)) << qPrintable(nombre + QStringLiteral(": ") + archivo);
            retratos << archivo;
        }
    }
    for (const QString& retrato : ayuda.entryList({QStringLiteral("*.png")}))
    {
        EXPECT_TRUE(retratos.contains(retrato)) << qPrintable(retrato) << " stands on no page";
        EXPECT_FALSE(QImage(ayuda.filePath(retrato)).isNull()) << qPrintable(retrato);
    }
}

TEST(Ayuda, BuscaSinAcentosYVaDeUnaPaginaAOtra)
{
    VisorDeAyuda visor(ayuda.path());
    visor.show();
    visor.activateWindow();
    QApplication::processEvents();
    visor.mostrar(QString());
    EXPECT_EQ(visor.paginaActual(), QStringLiteral("inicio"));
    const QStringList todas = titulos(visor);

    QTest::keyClicks(de<QLineEdit>(visor, "txtBuscar"), QStringLiteral("codigo barras"));
    EXPECT_THAT(titulos(visor), testing::Contains(QStringLiteral("Boletas de pago")));
    EXPECT_LT(titulos(visor).size(), todas.size());
    EXPECT_FALSE(de<QLabel>(visor, "lblSinResultado")->isVisible());
    auto* lista = de<QListWidget>(visor, "lstContenido");
    const auto boletas = lista->findItems(QStringLiteral("Boletas de pago"), Qt::MatchExactly);
    ASSERT_EQ(boletas.size(), 1);
    QTest::mouseClick(lista->viewport(), Qt::LeftButton, {}, lista->visualItemRect(boletas.front()).center());
    EXPECT_EQ(visor.paginaActual(), QStringLiteral("Boletas"));
    auto* hoja = de<QTextBrowser>(visor, "txtPagina");
    const auto marcas = hoja->extraSelections();
    EXPECT_TRUE(std::any_of(marcas.begin(), marcas.end(),
                            [](const auto& marca) { return marca.cursor.selectedText() == QStringLiteral("código"); }));
    de<QLineEdit>(visor, "txtBuscar")->setText(QStringLiteral("zzz"));
    EXPECT_EQ(titulos(visor), QStringList());
    EXPECT_TRUE(de<QLabel>(visor, "lblSinResultado")->isVisible());
    EXPECT_EQ(visor.paginaActual(), QStringLiteral("Boletas"));
    de<QLineEdit>(visor, "txtBuscar")->clear();
    EXPECT_EQ(titulos(visor), todas);
    EXPECT_EQ(lista->currentItem()->text(), QStringLiteral("Boletas de pago"));

    Q_EMIT hoja->anchorClicked(QUrl(QStringLiteral("DDJJ.html")));
    EXPECT_EQ(visor.paginaActual(), QStringLiteral("DDJJ"));
    hoja->setFocus();
    QTest::keyClick(hoja, Qt::Key_Backspace);
    EXPECT_EQ(visor.paginaActual(), QStringLiteral("Boletas"));
    QTest::keyClick(&visor, Qt::Key_Escape);
    EXPECT_FALSE(visor.isVisible());
}

TEST(Ayuda, SobreUnDialogoRecibeClics)
{
    QDialog dialogo;
    dialogo.setWindowModality(Qt::ApplicationModal);
    VisorDeAyuda* visor = nullptr;
    for (QWidget* debajo :
         {static_cast<QWidget*>(nullptr), static_cast<QWidget*>(&dialogo), static_cast<QWidget*>(nullptr)})
    {
        dialogo.setVisible(debajo != nullptr);
        VisorDeAyuda::abrir(ayuda.path(), QStringLiteral("Empresas"));
        QApplication::processEvents();
        const QWidgetList ventanas = QApplication::topLevelWidgets();
        const auto hallado =
            std::find_if(ventanas.begin(), ventanas.end(),
                         [](const QWidget* ventana) { return ventana->objectName() == QStringLiteral("Ayuda"); });
        ASSERT_NE(hallado, ventanas.end());
        visor = qobject_cast<VisorDeAyuda*>(*hallado);
        EXPECT_EQ(visor->parentWidget(), debajo);
        EXPECT_EQ(visor->focusWidget(), de<QTextBrowser>(*visor, "txtPagina"));
        auto* lista = de<QListWidget>(*visor, "lstContenido");
        // Through the window system, which drops what a modal window shuts out.
        QTest::mouseClick(visor->windowHandle(), Qt::LeftButton, {},
                          lista->viewport()->mapTo(visor, lista->visualItemRect(lista->item(0)).center()));
        EXPECT_EQ(visor->paginaActual(), QStringLiteral("inicio"));
    }
    visor->close();
}

TEST(Ayuda, UnRetratoCabeEnLaHoja)
{
    VisorDeAyuda visor(ayuda.path());
    visor.show();
    visor.mostrar(QStringLiteral("Empresas"));
    auto* hoja = de<QTextBrowser>(visor, "txtPagina");
    for (const int ancho : {1000, 700, 1300})
    {
        visor.resize(ancho, 700);
        QApplication::processEvents();
        EXPECT_EQ(hoja->horizontalScrollBar()->maximum(), 0) << ancho;
    }
}

TEST(Ayuda, NoSaleDeSuCarpeta)
{
    QTemporaryDir carpeta;
    QDir(carpeta.path()).mkdir(QStringLiteral("ayuda"));
    QImage(50, 50, QImage::Format_RGB32).save(carpeta.filePath(QStringLiteral("ajena.png")));
    for (const auto& [nombre, texto] :
         {std::pair("ayuda/contenido.txt", "uno|Una\nfalta|Falta\n"),
          std::pair("ayuda/uno.html", "<p>Hola<img src=\"../ajena.png\"/><img src=\"file:///etc/hosts\"/></p>")})
    {
        QFile archivo(carpeta.filePath(QLatin1String(nombre)));
        ASSERT_TRUE(archivo.open(QIODevice::WriteOnly));
        archivo.write(texto);
    }
    VisorDeAyuda visor(carpeta.filePath(QStringLiteral("ayuda")));
    visor.mostrar(QStringLiteral("UNO"));
    EXPECT_EQ(visor.paginaActual(), QStringLiteral("uno"));
    auto* hoja = de<QTextBrowser>(visor, "txtPagina");
    EXPECT_TRUE(
        hoja->document()->resource(QTextDocument::ImageResource, QUrl(QStringLiteral("../ajena.png"))).isNull());
    for (const char* falta : {"falta", "otra", "../ajena"})
    {
        visor.mostrar(QLatin1String(falta));
        EXPECT_EQ(hoja->toPlainText(),
                  QStringLiteral("No se encuentra la página de ayuda «%1».").arg(QLatin1String(falta)));
    }
}
} // namespace

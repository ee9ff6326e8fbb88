#include "ui/look/visor_ayuda.h"

#include "apoyo/entrada.h"
#include "apoyo/rutas.h"

#include <QtTest>
#include <QtWidgets>
#include <gtest/gtest.h>

namespace
{
const QDir ayuda(rutas::enInstalacion(QStringLiteral("ayuda")));

template <class Control>
Control* de(VisorDeAyuda& visor, const char* nombre)
{
    return visor.findChild<Control*>(QLatin1String(nombre));
}

TEST(Ayuda, CadaPaginaEstaEnElContenidoYLoQueNombraExiste)
{
    VisorDeAyuda visor(ayuda.path());
    const QStringList paginas = ayuda.entryList({QStringLiteral("*.html")});
    ASSERT_FALSE(paginas.isEmpty());
    EXPECT_EQ(de<QListWidget>(visor, "lstContenido")->count(), paginas.size());
    const QRegularExpression lugar(QStringLiteral("(?:href|src)=\"([^\"]*)\""));
    for (const QString& archivo : paginas)
    {
        visor.mostrar(QFileInfo(archivo).completeBaseName());
        EXPECT_FALSE(de<QTextBrowser>(visor, "txtPagina")->toPlainText().startsWith(QStringLiteral("No se encuentra")));
        QFile pagina(ayuda.filePath(archivo));
        ASSERT_TRUE(pagina.open(QIODevice::ReadOnly));
        for (auto i = lugar.globalMatch(QString::fromUtf8(pagina.readAll())); i.hasNext();)
        {
            const QString nombrado = i.next().captured(1);
            EXPECT_TRUE(ayuda.exists(nombrado)) << qPrintable(archivo + QStringLiteral(": ") + nombrado);
        }
    }
}

TEST(Ayuda, BuscaSinAcentosYVaDeUnaPaginaAOtra)
{
    VisorDeAyuda visor(ayuda.path());
    Entrada::activar(visor);
    visor.mostrar(QString());
    EXPECT_EQ(visor.paginaActual(), QStringLiteral("inicio"));
    auto* lista = de<QListWidget>(visor, "lstContenido");
    auto* busqueda = de<QLineEdit>(visor, "txtBuscar");
    const int todas = lista->count();
    busqueda->setText(QStringLiteral("codigo barras"));
    const auto boletas = lista->findItems(QStringLiteral("Boletas de pago"), Qt::MatchExactly);
    ASSERT_EQ(boletas.size(), 1);
    EXPECT_LT(lista->count(), todas);
    QTest::mouseClick(lista->viewport(), Qt::LeftButton, {}, lista->visualItemRect(boletas.front()).center());
    EXPECT_EQ(visor.paginaActual(), QStringLiteral("Boletas"));
    auto* hoja = de<QTextBrowser>(visor, "txtPagina");
    EXPECT_EQ(hoja->extraSelections().constFirst().cursor.selectedText(), QStringLiteral("código"));
    busqueda->setText(QStringLiteral("zzz"));
    EXPECT_EQ(lista->count(), 0);
    EXPECT_TRUE(de<QLabel>(visor, "lblSinResultado")->isVisible());
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
    dialogo.show();
    VisorDeAyuda::abrir(ayuda.path(), QStringLiteral("Empresas"));
    QApplication::processEvents();
    auto* visor = dialogo.findChild<VisorDeAyuda*>();
    ASSERT_NE(visor, nullptr);
    // Through the window system, which drops what a modal window shuts out.
    auto* lista = de<QListWidget>(*visor, "lstContenido");
    QTest::mouseClick(visor->windowHandle(), Qt::LeftButton, {},
                      lista->viewport()->mapTo(visor, lista->visualItemRect(lista->item(0)).center()));
    EXPECT_EQ(visor->paginaActual(), QStringLiteral("inicio"));
    visor->close();
}

TEST(Ayuda, NoSaleDeSuCarpetaYNombraLaPaginaQueFalta)
{
    const QTemporaryDir carpeta;
    QDir(carpeta.path()).mkdir(QStringLiteral("ayuda"));
    QImage(50, 50, QImage::Format_RGB32).save(carpeta.filePath(QStringLiteral("ajena.png")));
    VisorDeAyuda visor(carpeta.filePath(QStringLiteral("ayuda")));
    visor.show();
    const auto* hoja = de<QTextBrowser>(visor, "txtPagina");
    for (const auto& [pedida, nombrada] : {std::pair("", "inicio"), std::pair("../ajena", "../ajena")})
    {
        visor.mostrar(QLatin1String(pedida));
        EXPECT_EQ(hoja->toPlainText(),
                  QStringLiteral("No se encuentra la página de ayuda «%1».").arg(QLatin1String(nombrada)));
    }
    EXPECT_TRUE(
        hoja->document()->resource(QTextDocument::ImageResource, QUrl(QStringLiteral("../ajena.png"))).isNull());
    de<QLineEdit>(visor, "txtBuscar")->setText(QStringLiteral(" "));
    EXPECT_FALSE(de<QLabel>(visor, "lblSinResultado")->isVisible());
}
} // namespace

#include "ui/look/visor_ayuda.h"

#include "apoyo/archivos_de_prueba.h"
#include "apoyo/entrada.h"
#include "apoyo/rutas.h"

#include <QtTest>
#include <QtWidgets>
#include <gtest/gtest.h>

namespace
{
const QDir ayuda(rutas::enInstalacion("ayuda"));

template <class Control>
Control* de(VisorDeAyuda& visor, const char* nombre)
{
    return visor.findChild<Control*>(nombre);
}

TEST(Ayuda, CadaPaginaEstaEnElContenidoYLoQueNombraExiste)
{
    VisorDeAyuda visor(ayuda.path());
    const QStringList paginas = ayuda.entryList({"*.html"});
    ASSERT_FALSE(paginas.isEmpty());
    EXPECT_EQ(de<QListWidget>(visor, "lstContenido")->count(), paginas.size());
    const QRegularExpression lugar("(?:href|src)=\"([^\"]*)\"");
    for (const QString& archivo : paginas)
    {
        visor.mostrar(QFileInfo(archivo).completeBaseName());
        EXPECT_FALSE(de<QTextBrowser>(visor, "txtPagina")->toPlainText().startsWith("No se encuentra"));
        for (const auto& hallado : lugar.globalMatch(leerArchivo(ayuda.filePath(archivo))))
        {
            EXPECT_TRUE(ayuda.exists(hallado.captured(1))) << qPrintable(archivo + ": " + hallado.captured(1));
        }
    }
}

TEST(Ayuda, SobreUnDialogoBuscaSinAcentosYVaDeUnaPaginaAOtra)
{
    QDialog dialogo;
    dialogo.setWindowModality(Qt::ApplicationModal);
    dialogo.show();
    VisorDeAyuda::abrir(ayuda.path(), {});
    auto& visor = *dialogo.findChild<VisorDeAyuda*>();
    Entrada::activar(visor);
    EXPECT_EQ(visor.paginaActual(), "inicio");
    auto* lista = de<QListWidget>(visor, "lstContenido");
    auto* busqueda = de<QLineEdit>(visor, "txtBuscar");
    const int todas = lista->count();
    busqueda->setText("codigo barras");
    const auto boletas = lista->findItems("Boletas de pago", Qt::MatchExactly);
    ASSERT_EQ(boletas.size(), 1);
    EXPECT_LT(lista->count(), todas);
    // Through the window system, which drops what a modal window shuts out.
    Entrada::pulsar(*lista->viewport(), lista->visualItemRect(boletas.front()).center());
    EXPECT_EQ(visor.paginaActual(), "Boletas");
    auto* hoja = de<QTextBrowser>(visor, "txtPagina");
    EXPECT_EQ(hoja->extraSelections().constFirst().cursor.selectedText(), "código");
    busqueda->setText("zzz");
    EXPECT_EQ(lista->count(), 0);
    EXPECT_TRUE(de<QLabel>(visor, "lblSinResultado")->isVisible());
    Q_EMIT hoja->anchorClicked(QUrl("DDJJ.html"));
    EXPECT_EQ(visor.paginaActual(), "DDJJ");
    hoja->setFocus();
    Entrada::jugar("Backspace");
    EXPECT_EQ(visor.paginaActual(), "Boletas");
    Entrada::jugar("Esc");
    EXPECT_EQ(dialogo.findChild<VisorDeAyuda*>(), nullptr);
}

TEST(Ayuda, NoSaleDeSuCarpetaYNombraLaPaginaQueFalta)
{
    const QTemporaryDir carpeta;
    QImage(50, 50, QImage::Format_RGB32).save(carpeta.filePath("ajena.png"));
    VisorDeAyuda visor(carpeta.filePath("ayuda"));
    const auto* hoja = de<QTextBrowser>(visor, "txtPagina");
    for (const auto& [pedida, nombrada] : {std::pair("", "inicio"), std::pair("../ajena", "../ajena")})
    {
        visor.mostrar(pedida);
        EXPECT_EQ(hoja->toPlainText(), QString("No se encuentra la página de ayuda «%1».").arg(nombrada));
    }
    EXPECT_TRUE(hoja->document()->resource(QTextDocument::ImageResource, QUrl("../ajena.png")).isNull());
}
} // namespace

#include "platform/screens/informe_documento.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QTextDocument>
#include <QUrl>

namespace
{
constexpr int puntosPorPulgada = 600; // of the layout; what is painted is scaled
constexpr double escala = 72.0 / puntosPorPulgada;
constexpr double resguardo = 0.4; // points kept below a piece, so that its last rule is whole

QImage& referencia()
{
    static QImage imagen = []
    {
        QImage fina(1, 1, QImage::Format_ARGB32);
        fina.setDotsPerMeterX(qRound(puntosPorPulgada / 0.0254));
        fina.setDotsPerMeterY(qRound(puntosPorPulgada / 0.0254));
        return fina;
    }();
    return imagen;
}

/// A document that loads nothing but pictures lying beside the layout.
class DocumentoCerrado : public QTextDocument
{
public:
    explicit DocumentoCerrado(QString carpeta)
        : m_carpeta(std::move(carpeta))
    {
    }

protected:
    QVariant loadResource(int tipo, const QUrl& nombre) override
    {
        const QString archivo = nombre.toString();
        const bool alLado = !archivo.contains(QLatin1Char('/')) && !archivo.contains(QLatin1Char('\\')) &&
                            !archivo.contains(QLatin1Char(':'));
        if (tipo != ImageResource)
        {
            return {};
        }
        QImage imagen;
        if (!alLado || !imagen.load(m_carpeta + QLatin1Char('/') + archivo))
        {
            // For no picture at all the document would look for a file of that name by itself.
            imagen = QImage(1, 1, QImage::Format_ARGB32);
            imagen.fill(Qt::transparent);
        }
        return imagen;
    }

private:
    QString m_carpeta;
};
} // namespace

std::unique_ptr<QTextDocument> DocumentoDeInforme::hacer(const std::string& html, const Hoja& hoja)
{
    auto documento = std::make_unique<DocumentoCerrado>(hoja.carpeta);
    documento->documentLayout()->setPaintDevice(&referencia());
    documento->setUndoRedoEnabled(false);
    documento->setDocumentMargin(0);
    // Each letter by itself: a ligature would be found by nobody who looks for the name in the PDF.
    QFont letra(QStringLiteral("DejaVu Sans"), 9);
    letra.setStyleStrategy(QFont::PreferNoShaping);
    documento->setDefaultFont(letra);
    documento->setDefaultStyleSheet(hoja.estilo);
    // The width first: set afterwards, it would lay everything out a second time.
    documento->setTextWidth(hoja.ancho / escala);
    documento->setHtml(QString::fromStdString(html));
    return documento;
}

double DocumentoDeInforme::alto(const QTextDocument& documento)
{
    return documento.size().height() * escala;
}

void DocumentoDeInforme::pintar(QPainter& pintor, const QTextDocument& documento, QPointF en, double desde,
                                double hasta)
{
    const double ancho = documento.textWidth() * escala;
    pintor.save();
    pintor.translate(en.x(), en.y() - desde);
    pintor.setClipRect(QRectF(-resguardo, desde, ancho + 2 * resguardo, hasta - desde + resguardo));
    pintor.scale(escala, escala);
    QAbstractTextDocumentLayout::PaintContext contexto;
    contexto.palette.setColor(QPalette::Text, Qt::black);
    contexto.clip = QRectF(0, desde / escala, documento.textWidth(), (hasta - desde + resguardo) / escala);
    documento.documentLayout()->draw(&pintor, contexto);
    pintor.restore();
}

QPaintDevice* DocumentoDeInforme::papel()
{
    return &referencia();
}

QFontMetricsF DocumentoDeInforme::medidas(const QFont& letra)
{
    return QFontMetricsF(letra, papel());
}

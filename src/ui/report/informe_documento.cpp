#include "ui/report/informe_documento.h"

#include <QAbstractTextDocumentLayout>
#include <QImage>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>
#include <QUrl>
#include <limits>

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

const QTextTable* primeraTabla(const QTextDocument& documento)
{
    for (const QTextFrame* marco : documento.rootFrame()->childFrames())
    {
        if (const auto* tabla = qobject_cast<const QTextTable*>(marco))
        {
            return tabla;
        }
    }
    return nullptr;
}

/// Where the text of a cell begins.
QPointF comienzoDe(const QTextTableCell& celda, const QTextDocument& documento)
{
    return documento.documentLayout()->blockBoundingRect(celda.firstCursorPosition().block()).topLeft();
}

/// The units of the layout that a pixel of a style sheet takes. Measured, since Qt takes it from the screen.
double unidadesPorPixel()
{
    static const double medidas = []
    {
        const auto alto = [](int pixeles)
        {
            return DocumentoDeInforme::hacer(
                       "<table cellspacing=\"0\" cellpadding=\"0\"><tr><td style=\"padding-top: " +
                           std::to_string(pixeles) + "px\">x</td></tr></table>",
                       {{}, {}, 72})
                ->size()
                .height();
        };
        constexpr int muestra = 100;
        return (alto(muestra) - alto(0)) / muestra;
    }();
    return medidas;
}

/// What a cell keeps free above its text.
double margenDe(const QTextTableCell& celda, const QTextTable& tabla)
{
    const QTextTableCellFormat formato = celda.format().toTableCellFormat();
    const double pixeles =
        formato.hasProperty(QTextFormat::TableCellTopPadding) ? formato.topPadding() : tabla.format().cellPadding();
    return pixeles * unidadesPorPixel();
}
} // namespace

std::unique_ptr<QTextDocument> DocumentoDeInforme::hacer(const std::string& html, const Hoja& hoja)
{
    auto documento = std::make_unique<DocumentoCerrado>(hoja.carpeta);
    documento->documentLayout()->setPaintDevice(&referencia());
    documento->setUndoRedoEnabled(false);
    documento->setDocumentMargin(0);
    // Each letter by itself: a ligature would be found by nobody who looks for the name in the PDF.
    QFont letra(QStringLiteral("DejaVu Sans"), 9);
    letra.setFamilies({letra.family(), QStringLiteral("Segoe UI")}); // for Windows, which has not the first
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
    // What only touches the part is not drawn, not even out of sight: it would be found in the PDF.
    contexto.clip =
        QRectF(0, (desde + resguardo) / escala, documento.textWidth(), (hasta - desde - 2 * resguardo) / escala);
    documento.documentLayout()->draw(&pintor, contexto);
    pintor.restore();
}

std::vector<double> DocumentoDeInforme::topes(const QTextDocument& documento)
{
    std::vector<double> lista;
    const QTextTable* tabla = primeraTabla(documento);
    for (int fila = tabla == nullptr ? 0 : tabla->format().headerRowCount(); tabla != nullptr && fila < tabla->rows();
         ++fila)
    {
        double tope = std::numeric_limits<double>::max();
        for (int columna = 0; columna < tabla->columns(); ++columna)
        {
            const QTextTableCell celda = tabla->cellAt(fila, columna);
            if (celda.row() != fila || celda.column() != columna) // spanned by another
            {
                continue;
            }
            tope = std::min(tope, (comienzoDe(celda, documento).y() - margenDe(celda, *tabla)) * escala);
            if (celda.format().verticalAlignment() == QTextCharFormat::AlignNormal)
            {
                break; // its text begins at the top: the others' cannot begin higher
            }
        }
        lista.push_back(tope);
    }
    return lista;
}

std::vector<double> DocumentoDeInforme::columnas(const QTextDocument& documento)
{
    std::vector<double> lista;
    const QTextTable* tabla = primeraTabla(documento);
    if (tabla != nullptr && tabla->format().headerRowCount() > 0)
    {
        for (int columna = 0; columna < tabla->columns(); ++columna)
        {
            lista.push_back(comienzoDe(tabla->cellAt(0, columna), documento).x() * escala);
        }
    }
    return lista;
}

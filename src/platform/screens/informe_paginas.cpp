#include "platform/screens/informe_paginas.h"

#include <QAbstractTextDocumentLayout>
#include <QFileInfo>
#include <QImage>
#include <QTextBlock>
#include <QTextFrame>
#include <QTextTable>
#include <QUrl>
#include <algorithm>
#include <cmath>

namespace
{
constexpr std::size_t filasPorTrozo = 200;
constexpr std::size_t trozosRecordados = 4;
constexpr int puntosPorPulgada = 600; // of the layout; what is painted is scaled
constexpr double escala = 72.0 / puntosPorPulgada;
constexpr double resguardo = 0.4; // points kept below a row, so that its rule is whole

/// A page measured in fine units: glyphs then stand where they will be printed, whatever the screen.
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
        if (tipo != ImageResource || !alLado)
        {
            return {};
        }
        return QImage(m_carpeta + QLatin1Char('/') + archivo);
    }

private:
    QString m_carpeta;
};

} // namespace

/// A laid-out block of rows and where each of its rows begins and ends, in points.
struct PaginasDeInforme::Trozo
{
    std::size_t banda = 0;
    std::size_t numero = 0;
    std::unique_ptr<QTextDocument> documento;
    double cabeza = 0;          ///< height of the table's head
    std::vector<double> cortes; ///< row i lies between cortes[i] and cortes[i + 1]
};

PaginasDeInforme::PaginasDeInforme(PlantillaDeInforme plantilla, DatosDeInforme datos,
                                   const std::function<void(qint64, qint64)>& aviso)
    : m_plantilla(std::move(plantilla))
    , m_datos(std::move(datos))
    , m_objeto(m_datos.objeto())
{
    using kainjow::mustache::data;
    // Row sets walked inside sections; those of tables are filled block by block instead.
    for (const auto& [nombre, conjunto] : m_datos.conjuntos)
    {
        const bool deTabla = std::any_of(m_plantilla.bandas.begin(), m_plantilla.bandas.end(),
                                         [&](const BandaDeInforme& banda) { return banda.filas == nombre; });
        if (deTabla)
        {
            m_objeto.set("hay" + nombre.toStdString(), data(!conjunto.filas.empty()));
            m_objeto.set("no" + nombre.toStdString(), data(conjunto.filas.empty()));
            continue;
        }
        data lista{data::type::list};
        for (const auto& fila : conjunto.filas)
        {
            data objeto{data::type::object};
            for (std::size_t c = 0; c < fila.size(); ++c)
            {
                objeto.set(conjunto.columnas[c], conjunto.condicion[c] ? data(!fila[c].empty()) : data(fila[c]));
            }
            lista.push_back(objeto);
        }
        m_objeto.set(nombre.toStdString(), lista);
    }
    compaginar(aviso);
}

PaginasDeInforme::~PaginasDeInforme() = default;
PaginasDeInforme::PaginasDeInforme(PaginasDeInforme&&) noexcept = default;

QRectF PaginasDeInforme::area() const
{
    return m_plantilla.pagina.paintRect(QPageLayout::Point);
}

std::unique_ptr<QTextDocument> PaginasDeInforme::documento(const std::string& html) const
{
    auto nuevo = std::make_unique<DocumentoCerrado>(m_plantilla.carpeta);
    nuevo->documentLayout()->setPaintDevice(&referencia());
    nuevo->setUndoRedoEnabled(false);
    nuevo->setDocumentMargin(0);
    nuevo->setDefaultFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    nuevo->setDefaultStyleSheet(m_plantilla.estilo);
    nuevo->setHtml(QString::fromStdString(html));
    nuevo->setTextWidth(area().width() / escala);
    return nuevo;
}

std::string PaginasDeInforme::conPagina(const std::string& html, int hoja, int hojas) const
{
    kainjow::mustache::data datos = m_objeto;
    datos.set("Pagina", std::to_string(hoja));
    datos.set("Paginas", std::to_string(hojas));
    return rellenar(html, datos);
}

std::string PaginasDeInforme::htmlDeTrozo(std::size_t banda, std::size_t trozo) const
{
    using kainjow::mustache::data;
    const BandaDeInforme& forma = m_plantilla.bandas[banda];
    kainjow::mustache::mustache plantilla(forma.html);
    if (!plantilla.is_valid())
    {
        return rellenar(forma.html, m_objeto); // throws, naming the fault
    }
    std::string html = rellenar(forma.apertura, m_objeto) + "<tbody>";
    const auto hallado = m_datos.conjuntos.find(forma.filas);
    if (hallado != m_datos.conjuntos.end())
    {
        const FilasDeInforme& conjunto = hallado->second;
        const std::size_t desde = trozo * filasPorTrozo;
        const std::size_t hasta = std::min(desde + filasPorTrozo, conjunto.filas.size());
        for (std::size_t f = desde; f < hasta; ++f)
        {
            data objeto{data::type::object};
            for (std::size_t c = 0; c < conjunto.columnas.size(); ++c)
            {
                const std::string& texto = conjunto.filas[f][c];
                objeto.set(conjunto.columnas[c], conjunto.condicion[c] ? data(!texto.empty()) : data(texto));
            }
            html += plantilla.render(objeto);
        }
    }
    return html + "</tbody>" + forma.cierre;
}

namespace
{
/// Top and bottom of what each row of the table holds, in points.
std::vector<std::pair<double, double>> extremosDeFilas(const QTextTable& tabla, const QTextDocument& documento)
{
    std::vector<std::pair<double, double>> extremos;
    for (int fila = 0; fila < tabla.rows(); ++fila)
    {
        double arriba = 1e12;
        double abajo = 0;
        for (int columna = 0; columna < tabla.columns(); ++columna)
        {
            const QTextTableCell celda = tabla.cellAt(fila, columna);
            for (auto trozo = celda.begin(); !trozo.atEnd(); ++trozo)
            {
                const QTextBlock bloque = trozo.currentBlock();
                if (bloque.isValid())
                {
                    const QRectF caja = documento.documentLayout()->blockBoundingRect(bloque);
                    arriba = std::min(arriba, caja.top() * escala);
                    abajo = std::max(abajo, caja.bottom() * escala);
                }
            }
        }
        extremos.emplace_back(arriba, abajo);
    }
    return extremos;
}

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
} // namespace

const PaginasDeInforme::Trozo& PaginasDeInforme::trozo(std::size_t banda, std::size_t numero) const
{
    for (const Trozo& reciente : m_recientes)
    {
        if (reciente.banda == banda && reciente.numero == numero)
        {
            return reciente;
        }
    }
    const BandaDeInforme& forma = m_plantilla.bandas[banda];
    Trozo nuevo;
    nuevo.banda = banda;
    nuevo.numero = numero;
    nuevo.documento = documento(forma.filas.isEmpty() ? rellenar(forma.html, m_objeto) : htmlDeTrozo(banda, numero));
    const double alto = nuevo.documento->size().height() * escala;
    const QTextTable* tabla = forma.filas.isEmpty() ? nullptr : primeraTabla(*nuevo.documento);
    if (tabla == nullptr)
    {
        nuevo.cortes = {0, alto};
    }
    else
    {
        const auto extremos = extremosDeFilas(*tabla, *nuevo.documento);
        const auto cabezas = static_cast<std::size_t>(std::max(0, tabla->format().headerRowCount()));
        std::vector<double> cortes{0};
        for (std::size_t f = 1; f < extremos.size(); ++f)
        {
            cortes.push_back((extremos[f - 1].second + extremos[f].first) / 2);
        }
        cortes.push_back(alto);
        nuevo.cabeza = cortes[std::min(cabezas, cortes.size() - 1)];
        nuevo.cortes.assign(cortes.begin() + static_cast<std::ptrdiff_t>(std::min(cabezas, cortes.size() - 1)),
                            cortes.end());
    }
    m_recientes.push_front(std::move(nuevo));
    if (m_recientes.size() > trozosRecordados)
    {
        m_recientes.pop_back();
    }
    return m_recientes.front();
}

void PaginasDeInforme::nuevaHoja()
{
    m_hojas.emplace_back();
    m_y = m_inicio;
}

void PaginasDeInforme::compaginar(const std::function<void(qint64, qint64)>& aviso)
{
    m_hojas.clear();
    m_recientes.clear();
    const double cabeza = documento(conPagina(m_plantilla.encabezado, 9999, 9999))->size().height() * escala;
    const double pie = documento(conPagina(m_plantilla.pie, 9999, 9999))->size().height() * escala;
    m_inicio = m_plantilla.encabezado.empty() ? 0 : cabeza;
    m_fin = area().height() - (m_plantilla.pie.empty() ? 0 : pie);
    nuevaHoja();
    for (std::size_t banda = 0; banda < m_plantilla.bandas.size(); ++banda)
    {
        if (m_plantilla.bandas[banda].filas.isEmpty())
        {
            ponerSeccion(banda);
        }
        else
        {
            ponerTabla(banda, aviso);
        }
    }
}

void PaginasDeInforme::ponerSeccion(std::size_t banda)
{
    const Trozo& seccion = trozo(banda, 0);
    const double alto = seccion.cortes.back();
    if (alto <= 0)
    {
        return;
    }
    if (m_y + alto > m_fin && m_y > m_inicio)
    {
        nuevaHoja();
    }
    // A section taller than a page is the one thing that is cut.
    for (double desde = 0; desde < alto;)
    {
        const double hasta = std::min(alto, desde + m_fin - m_y);
        m_hojas.back().push_back({banda, 0, desde, hasta, m_y});
        m_y += hasta - desde;
        desde = hasta;
        if (desde < alto)
        {
            nuevaHoja();
        }
    }
}

void PaginasDeInforme::ponerTabla(std::size_t banda, const std::function<void(qint64, qint64)>& aviso)
{
    const auto hallado = m_datos.conjuntos.find(m_plantilla.bandas[banda].filas);
    const std::size_t total = hallado == m_datos.conjuntos.end() ? 0 : hallado->second.filas.size();
    bool conCabeza = false;
    for (std::size_t numero = 0; numero * filasPorTrozo < total; ++numero)
    {
        const Trozo& actual = trozo(banda, numero);
        double abierta = -1; // where the piece being gathered begins
        for (std::size_t f = 0; f + 1 < actual.cortes.size(); ++f)
        {
            const double alto = actual.cortes[f + 1] - actual.cortes[f];
            const double cabeza = conCabeza ? 0 : actual.cabeza;
            if (m_y + cabeza + alto > m_fin && m_y > m_inicio)
            {
                abierta = -1;
                conCabeza = false;
                nuevaHoja();
            }
            if (!conCabeza)
            {
                m_hojas.back().push_back({banda, numero, 0, actual.cabeza, m_y});
                m_y += actual.cabeza;
                conCabeza = true;
            }
            if (abierta < 0)
            {
                abierta = actual.cortes[f];
                m_hojas.back().push_back({banda, numero, abierta, abierta, m_y});
            }
            m_hojas.back().back().hasta = actual.cortes[f + 1];
            m_y += alto;
        }
        if (aviso)
        {
            aviso(static_cast<qint64>(std::min((numero + 1) * filasPorTrozo, total)), static_cast<qint64>(total));
        }
    }
}

void PaginasDeInforme::setPagina(const QPageLayout& pagina)
{
    m_plantilla.pagina = pagina;
    compaginar({});
}

void PaginasDeInforme::pintarDocumento(QPainter& pintor, const QTextDocument& documento, QPointF en, double desde,
                                       double hasta) const
{
    pintor.save();
    pintor.translate(en.x(), en.y() - desde);
    pintor.setClipRect(QRectF(-resguardo, desde, area().width() + 2 * resguardo, hasta - desde + resguardo));
    pintor.scale(escala, escala);
    QAbstractTextDocumentLayout::PaintContext contexto;
    contexto.palette.setColor(QPalette::Text, Qt::black);
    contexto.clip = QRectF(0, desde / escala, area().width() / escala, (hasta - desde + resguardo) / escala);
    documento.documentLayout()->draw(&pintor, contexto);
    pintor.restore();
}

void PaginasDeInforme::pintar(QPainter& pintor, int hoja) const
{
    const QRectF caja = area();
    for (const Pieza& pieza : m_hojas[static_cast<std::size_t>(hoja)])
    {
        pintarDocumento(pintor, *trozo(pieza.banda, pieza.trozo).documento, QPointF(caja.left(), caja.top() + pieza.y),
                        pieza.desde, pieza.hasta);
    }
    const auto cabeza = documento(conPagina(m_plantilla.encabezado, hoja + 1, cantidad()));
    pintarDocumento(pintor, *cabeza, caja.topLeft(), 0, cabeza->size().height() * escala);
    const auto pie = documento(conPagina(m_plantilla.pie, hoja + 1, cantidad()));
    const double alto = pie->size().height() * escala;
    pintarDocumento(pintor, *pie, QPointF(caja.left(), caja.bottom() - alto), 0, alto);
}

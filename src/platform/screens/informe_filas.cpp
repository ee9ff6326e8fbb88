#include "platform/screens/informe_filas.h"

#include <QFontMetricsF>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextLayout>
#include <QTextTable>
#include <algorithm>
#include <array>
#include <numeric>
#include <optional>

namespace
{
constexpr double seguro = 0.98; // of a line's width: what kerning may add

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

bool esCelda(std::string_view etiqueta)
{
    return etiqueta.starts_with("<td") || etiqueta.starts_with("<th");
}

/// A letter into each element that holds nothing, so that its font shows; into those of one cell the given text.
std::string llenar(const std::string& etiquetas, std::size_t celda = 0, const std::string& texto = "x")
{
    std::string llena;
    std::size_t celdas = 0;
    for (std::size_t i = 0; i < etiquetas.size(); ++i)
    {
        celdas += std::size_t{esCelda(std::string_view(etiquetas).substr(i))};
        llena += etiquetas[i];
        const bool abre = etiquetas[i] == '>' && i > 0 && etiquetas[i - 1] != '/';
        if (abre && etiquetas.compare(i + 1, 2, "</") == 0 && etiquetas.compare(i + 1, 4, "</tr") != 0 &&
            etiquetas[etiquetas.rfind('<', i) + 1] != '/')
        {
            llena += celdas == celda + 1 ? texto : "x";
        }
    }
    return llena;
}

/// The text of a cell as HTML shows it; nothing when it holds what is not known here, as blanks that run together or
/// not by the style of the cell.
std::optional<QString> textoVisible(const std::string& html)
{
    QString texto = QString::fromStdString(html);
    if (texto.contains(QLatin1Char('&')))
    {
        static const std::array<std::pair<const char*, const char*>, 5> entidades = {
            {{"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&apos;", "'"}, {"&amp;", "&"}}};
        if (texto.count(QLatin1Char('&')) !=
            std::accumulate(entidades.begin(), entidades.end(), qsizetype{0},
                            [&](qsizetype suma, const auto& entidad)
                            { return suma + texto.count(QLatin1String(entidad.first)); }))
        {
            return std::nullopt;
        }
        for (const auto& [escrita, vista] : entidades)
        {
            texto.replace(QLatin1String(escrita), QLatin1String(vista));
        }
    }
    return texto == texto.simplified() ? std::optional(texto) : std::nullopt;
}
} // namespace

/// Advances of a font's characters, looked up instead of measured text by text.
class AltosDeFilas::Letra
{
public:
    explicit Letra(const QFont& letra)
        : m_letra(letra)
        , m_medidas(DocumentoDeInforme::medidas(letra))
    {
        m_anchos.fill(-1);
    }
    double ancho(QStringView texto)
    {
        double suma = 0;
        for (const QChar c : texto)
        {
            suma += c.unicode() < m_anchos.size() ? conocido(c) : m_medidas.horizontalAdvance(c);
        }
        return suma;
    }
    /// A word that takes most of a line.
    std::string palabra(double ancho)
    {
        return std::string(static_cast<std::size_t>(std::max(1.0, seguro * ancho / conocido(QLatin1Char('x')))), 'x');
    }
    [[nodiscard]] int lineas(const QString& texto, double ancho) const
    {
        QTextLayout disposicion(texto, m_letra, DocumentoDeInforme::papel());
        QTextOption opcion;
        opcion.setWrapMode(QTextOption::WordWrap);
        disposicion.setTextOption(opcion);
        int cuantas = 0;
        disposicion.beginLayout();
        for (QTextLine linea = disposicion.createLine(); linea.isValid(); linea = disposicion.createLine())
        {
            linea.setLineWidth(ancho);
            ++cuantas;
        }
        disposicion.endLayout();
        return cuantas;
    }

private:
    double conocido(QChar c)
    {
        double& guardado = m_anchos.at(c.unicode());
        if (guardado < 0)
        {
            guardado = m_medidas.horizontalAdvance(c);
        }
        return guardado;
    }
    QFont m_letra;
    QFontMetricsF m_medidas;
    std::array<double, 256> m_anchos{};
};

AltosDeFilas::AltosDeFilas(std::string tabla, std::string cierre, DocumentoDeInforme::Hoja hoja)
    : m_tabla(std::move(tabla))
    , m_cierre(std::move(cierre))
    , m_hoja(std::move(hoja))
{
    m_tablaMuda = desarmar(m_tabla).etiquetas;
    if (m_tabla.find("<thead") != std::string::npos)
    {
        m_cabeza = DocumentoDeInforme::alto(*documento({}));
        m_cabezaDeSuelta = DocumentoDeInforme::alto(*suelta({}));
    }
}

AltosDeFilas::~AltosDeFilas() = default;
AltosDeFilas::AltosDeFilas(AltosDeFilas&&) noexcept = default;
AltosDeFilas& AltosDeFilas::operator=(AltosDeFilas&&) noexcept = default;

std::unique_ptr<QTextDocument> AltosDeFilas::documento(const std::string& filas) const
{
    return DocumentoDeInforme::hacer(m_tabla + "<tbody>" + filas + "</tbody>" + m_cierre, m_hoja);
}

std::unique_ptr<QTextDocument> AltosDeFilas::suelta(const std::string& fila) const
{
    return DocumentoDeInforme::hacer(m_tablaMuda + "<tbody>" + fila + "</tbody>" + m_cierre, m_hoja);
}

AltosDeFilas::Alto AltosDeFilas::de(const std::string& fila)
{
    const Partes partes = desarmar(fila);
    if (partes.etiquetas.empty())
    {
        return {};
    }
    auto hallada = m_formas.find(partes.etiquetas);
    if (hallada == m_formas.end())
    {
        hallada = m_formas.emplace(partes.etiquetas, medir(partes)).first;
    }
    Forma& forma = hallada->second;
    Alto alto{forma.alto, forma.medible, partes.etiquetas.starts_with("<tr class=\"junto\"")};
    for (std::size_t celda = 0; alto.regular && celda < partes.textos.size(); ++celda)
    {
        const int cuantas = lineas(forma.celdas[celda], partes.textos[celda]);
        alto.regular = cuantas > 0;
        if (cuantas > 1)
        {
            alto.puntos = std::max(alto.puntos, altoCon(forma, partes.etiquetas, celda, cuantas));
        }
    }
    if (!alto.regular)
    {
        alto.puntos = DocumentoDeInforme::alto(*suelta(fila)) - m_cabezaDeSuelta;
    }
    return alto;
}

int AltosDeFilas::lineas(const Celda& celda, const std::string& texto)
{
    if (texto.empty())
    {
        return 1;
    }
    const double ancho = celda.ancho * seguro;
    const auto entra = [&](QStringView letras)
    {
        return std::all_of(celda.letras.begin(), celda.letras.end(),
                           [&](Letra* letra) { return letra->ancho(letras) <= ancho; });
    };
    // A line break or a tab may count or not, by the style of its cell.
    if (std::any_of(texto.begin(), texto.end(), [](unsigned char c) { return c < ' '; }))
    {
        return 0;
    }
    // An entity counts as the characters that it is written with, which are wider.
    if (entra(QString::fromStdString(texto)))
    {
        return 1;
    }
    const std::optional<QString> visible = textoVisible(texto);
    if (!visible || celda.letras.size() != 1)
    {
        return 0;
    }
    const auto palabras = QStringView(*visible).split(QLatin1Char(' '));
    return std::all_of(palabras.begin(), palabras.end(), entra) ? celda.letras[0]->lineas(*visible, celda.ancho) : 0;
}

double AltosDeFilas::altoCon(Forma& forma, const std::string& etiquetas, std::size_t celda, int lineas)
{
    auto& altos = forma.celdas[celda].altos;
    const auto sabido = altos.find(lineas);
    if (sabido != altos.end())
    {
        return sabido->second;
    }
    // Words of which two do not fit on a line.
    const std::string palabra = forma.celdas[celda].letras[0]->palabra(forma.celdas[celda].ancho);
    std::string texto = palabra;
    for (int linea = 1; linea < lineas; ++linea)
    {
        texto += ' ' + palabra;
    }
    const double alto = DocumentoDeInforme::alto(*documento(llenar(etiquetas, celda, texto))) - m_cabeza;
    return altos[lineas] = alto;
}

AltosDeFilas::Partes AltosDeFilas::desarmar(const std::string& fila)
{
    Partes partes;
    bool enCelda = false;
    for (std::size_t i = 0; i < fila.size();)
    {
        if (fila[i] == '<')
        {
            const std::size_t fin = std::min(fila.find('>', i), fila.size() - 1) + 1;
            const std::string_view etiqueta = std::string_view(fila).substr(i, fin - i);
            partes.etiquetas += etiqueta;
            if (esCelda(etiqueta))
            {
                partes.textos.emplace_back();
                enCelda = true;
            }
            enCelda = enCelda && !etiqueta.starts_with("</td") && !etiqueta.starts_with("</th");
            i = fin;
            continue;
        }
        const std::size_t fin = std::min(fila.find('<', i), fila.size());
        if (enCelda)
        {
            partes.textos.back().append(fila, i, fin - i);
        }
        i = fin;
    }
    return partes;
}

AltosDeFilas::Forma AltosDeFilas::medir(const Partes& partes)
{
    const auto muestra = documento(llenar(partes.etiquetas));
    Forma forma;
    forma.alto = DocumentoDeInforme::alto(*muestra) - m_cabeza;
    forma.celdas = celdasDe(*muestra);
    forma.medible = forma.celdas.size() == partes.textos.size();
    return forma;
}

std::vector<AltosDeFilas::Celda> AltosDeFilas::celdasDe(const QTextDocument& documento)
{
    std::vector<Celda> celdas;
    const QTextTable* tabla = primeraTabla(documento);
    for (int fila = tabla == nullptr ? 0 : tabla->format().headerRowCount(); tabla != nullptr && fila < tabla->rows();
         ++fila)
    {
        for (int columna = 0; columna < tabla->columns(); ++columna)
        {
            const QTextTableCell lugar = tabla->cellAt(fila, columna);
            if (lugar.row() != fila || lugar.column() != columna)
            {
                continue; // spanned by another
            }
            Celda celda{1e9, {}, {}};
            for (auto parte = lugar.begin(); !parte.atEnd(); ++parte)
            {
                const QTextBlock bloque = parte.currentBlock();
                if (!bloque.isValid() || bloque.layout()->lineCount() == 0)
                {
                    continue;
                }
                celda.ancho = std::min(celda.ancho, bloque.layout()->lineAt(0).width());
                celda.letras.push_back(letra(bloque.charFormat().font().resolve(documento.defaultFont())));
                for (auto tramo = bloque.begin(); !tramo.atEnd(); ++tramo)
                {
                    celda.letras.push_back(
                        letra(tramo.fragment().charFormat().font().resolve(documento.defaultFont())));
                }
            }
            std::sort(celda.letras.begin(), celda.letras.end());
            celda.letras.erase(std::unique(celda.letras.begin(), celda.letras.end()), celda.letras.end());
            celdas.push_back(std::move(celda));
        }
    }
    return celdas;
}

AltosDeFilas::Letra* AltosDeFilas::letra(const QFont& cual)
{
    auto& guardada = m_letras[cual.key()];
    if (!guardada)
    {
        guardada = std::make_unique<Letra>(cual);
    }
    return guardada.get();
}

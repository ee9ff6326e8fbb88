#include "ui/report/informe_paginas.h"

#include "base/error_de_ejecucion.h"

#include <QTextDocument>
#include <algorithm>
#include <numeric>

namespace
{
constexpr std::size_t dibujosRecordados = 36; // some 30 pages: they are printed as they were laid out
constexpr std::size_t filasPorBloque = 40;
constexpr double menorCuerpo = 72; // points: a page with less between head and foot is none
constexpr double holgura = 0.5;    // points: what rounding may take

/// Does the row's first tag name this class?
bool esDeClase(const std::string& fila, std::string_view clase)
{
    const std::string_view etiqueta = std::string_view(fila).substr(0, fila.find('>'));
    const std::size_t desde = etiqueta.find("class=\"");
    if (desde == std::string_view::npos)
    {
        return false;
    }
    const std::string_view clases = etiqueta.substr(desde + 7, etiqueta.find('"', desde + 7) - desde - 7);
    return (' ' + std::string(clases) + ' ').find(' ' + std::string(clase) + ' ') != std::string::npos;
}
} // namespace

PaginasDeInforme::PaginasDeInforme(PlantillaDeInforme plantilla, DatosDeInforme datos, const Aviso& aviso)
    : m_contenido(std::make_shared<const ContenidoDeInforme>(std::move(plantilla), std::move(datos)))
    , m_pagina(m_contenido->plantilla().pagina)
{
    compaginar(aviso);
}

PaginasDeInforme::PaginasDeInforme(std::shared_ptr<const ContenidoDeInforme> contenido, const QPageLayout& pagina,
                                   const Aviso& aviso)
    : m_contenido(std::move(contenido))
    , m_pagina(pagina)
{
    compaginar(aviso);
}

PaginasDeInforme::~PaginasDeInforme() = default;
PaginasDeInforme::PaginasDeInforme(PaginasDeInforme&&) noexcept = default;
PaginasDeInforme& PaginasDeInforme::operator=(PaginasDeInforme&&) noexcept = default;

void PaginasDeInforme::setPagina(const QPageLayout& pagina, const Aviso& aviso)
{
    *this = PaginasDeInforme(m_contenido, pagina, aviso);
}

DocumentoDeInforme::Hoja PaginasDeInforme::hoja() const
{
    return {m_contenido->plantilla().estilo, m_contenido->plantilla().carpeta, area().width()};
}

std::unique_ptr<QTextDocument> PaginasDeInforme::dePagina(const std::string& html, int hoja, int hojas) const
{
    return DocumentoDeInforme::hacer(m_contenido->dePagina(html, hoja, hojas), this->hoja());
}

const QTextDocument& PaginasDeInforme::dibujo(const Bloque& bloque) const
{
    const auto hecho =
        std::find_if(m_recientes.begin(), m_recientes.end(), [&](const Dibujo& otro) { return otro.bloque == bloque; });
    if (hecho != m_recientes.end())
    {
        m_recientes.splice(m_recientes.begin(), m_recientes, hecho);
        return *m_recientes.front().documento;
    }
    std::string html;
    if (m_contenido->banda(bloque.banda).tabla)
    {
        for (std::size_t fila = bloque.primera; fila < bloque.primera + bloque.cuantas; ++fila)
        {
            html += m_contenido->fila(bloque.banda, fila, bloque.continua);
        }
    }
    return dibujo(bloque, html);
}

const QTextDocument& PaginasDeInforme::dibujo(const Bloque& bloque, const std::string& filas) const
{
    const std::string html = m_contenido->banda(bloque.banda).tabla ? m_contenido->tabla(bloque.banda, filas)
                                                                    : m_contenido->fila(bloque.banda, bloque.primera);
    m_recientes.push_front({bloque, DocumentoDeInforme::hacer(html, hoja())});
    if (m_recientes.size() > dibujosRecordados)
    {
        m_recientes.pop_back();
    }
    return *m_recientes.front().documento;
}

void PaginasDeInforme::nuevaHoja()
{
    m_hojas.emplace_back();
    m_y = m_inicio;
}

void PaginasDeInforme::compaginar(const Aviso& aviso)
{
    const auto alto = [&](const std::string& html)
    { return html.empty() ? 0 : DocumentoDeInforme::alto(*dePagina(html, 9999, 9999)); };
    m_inicio = alto(m_contenido->plantilla().encabezado);
    m_fin = area().height() - alto(m_contenido->plantilla().pie);
    if (m_fin - m_inicio < menorCuerpo || area().width() < menorCuerpo)
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::NoCoincidenTipos,
                               QStringLiteral("El informe no entra en una página tan chica."));
    }
    m_tablas.resize(m_contenido->bandas());
    for (std::size_t banda = 0; banda < m_contenido->bandas(); ++banda)
    {
        if (m_contenido->banda(banda).tabla)
        {
            medirTabla(banda, aviso);
        }
    }
    nuevaHoja();
    for (std::size_t banda = 0; banda < m_contenido->bandas(); ++banda)
    {
        if (m_contenido->banda(banda).tabla)
        {
            ponerTabla(banda);
            continue;
        }
        for (std::size_t fila = 0; fila < m_contenido->filas(banda); ++fila)
        {
            ponerSeccion(banda, fila, aviso);
        }
    }
    m_tablas = {};
}

void PaginasDeInforme::medirTabla(std::size_t banda, const Aviso& aviso)
{
    const QTextDocument& cabeza = dibujo({.banda = banda});
    m_tablas[banda].columnas = DocumentoDeInforme::columnas(cabeza);
    m_tablas[banda].cabeza = m_tablas[banda].columnas.empty() ? 0 : DocumentoDeInforme::alto(cabeza);
    const std::size_t total = m_contenido->filas(banda);
    for (std::size_t fila = 0; fila < total;)
    {
        const std::size_t cuantas = std::min(filasPorBloque, total - fila);
        medirBloque({.banda = banda, .primera = fila, .cuantas = cuantas});
        fila += cuantas;
        if (aviso)
        {
            aviso(static_cast<qint64>(fila), static_cast<qint64>(total));
        }
    }
}

/// Rows of which one moves the columns, by a word that cannot be broken, do not go together: it stays alone.
void PaginasDeInforme::medirBloque(const Bloque& bloque)
{
    Tabla& tabla = m_tablas[bloque.banda];
    std::string filas;
    std::vector<std::size_t> renglones; // lines of the table that each row has
    for (std::size_t fila = 0; fila < bloque.cuantas; ++fila)
    {
        const std::string html = m_contenido->fila(bloque.banda, bloque.primera + fila);
        std::size_t cuantos = 0;
        for (std::size_t i = html.find("<tr"); i != std::string::npos; i = html.find("<tr", i + 1))
        {
            ++cuantos;
        }
        filas += html;
        renglones.push_back(cuantos);
        tabla.filas.push_back({.bloque = bloque,
                               .junto = esDeClase(html, "junto"),
                               .unida = esDeClase(html, "unida"),
                               .grupo = esDeClase(html, "grupo")});
    }
    const QTextDocument& documento = dibujo(bloque, filas);
    const std::vector<double> topes = DocumentoDeInforme::topes(documento);
    const std::size_t todos = std::accumulate(renglones.begin(), renglones.end(), std::size_t{0});
    const bool entero = topes.size() == todos && DocumentoDeInforme::columnas(documento) == tabla.columnas;
    if (!entero && bloque.cuantas > 1)
    {
        tabla.filas.resize(tabla.filas.size() - bloque.cuantas);
        const std::size_t mitad = bloque.cuantas / 2;
        medirBloque({.banda = bloque.banda, .primera = bloque.primera, .cuantas = mitad});
        medirBloque({.banda = bloque.banda, .primera = bloque.primera + mitad, .cuantas = bloque.cuantas - mitad});
        return;
    }
    const double fondo = DocumentoDeInforme::alto(documento);
    std::size_t renglon = 0;
    const auto tope = [&] { return renglon < topes.size() ? topes[renglon] : fondo; };
    for (std::size_t fila = 0; fila < bloque.cuantas; ++fila)
    {
        Fila& medida = tabla.filas[tabla.filas.size() - bloque.cuantas + fila];
        medida.desde = tope();
        renglon += renglones[fila];
        medida.hasta = fila + 1 == bloque.cuantas ? fondo : tope();
    }
}

double PaginasDeInforme::altoDeSeccion(std::size_t banda, std::size_t fila) const
{
    const double alto = DocumentoDeInforme::alto(dibujo({.banda = banda, .primera = fila}));
    return alto <= 0 ? 0 : std::max(alto, m_contenido->banda(banda).alto);
}

double PaginasDeInforme::altoDeCadena(std::size_t banda, std::size_t fila) const
{
    const std::vector<Fila>& filas = m_tablas[banda].filas;
    double alto = filas[fila].alto();
    for (; fila + 1 < filas.size() && alto < m_fin && (filas[fila].junto || filas[fila + 1].unida); ++fila)
    {
        alto += filas[fila + 1].alto();
    }
    return alto + (fila + 1 == filas.size() && m_contenido->banda(banda).junto ? comienzo(banda + 1) : 0);
}

double PaginasDeInforme::comienzo(std::size_t banda) const
{
    if (banda >= m_contenido->bandas())
    {
        return 0;
    }
    if (m_contenido->filas(banda) == 0)
    {
        return comienzo(banda + 1);
    }
    const BandaDeInforme& forma = m_contenido->banda(banda);
    if (forma.tabla)
    {
        return m_tablas[banda].cabeza + altoDeCadena(banda, 0);
    }
    return altoDeSeccion(banda, 0) + (forma.junto ? comienzo(banda + 1) : 0);
}

void PaginasDeInforme::poner(const Bloque& bloque, double desde, double hasta, const Aviso& aviso)
{
    while (desde < hasta)
    {
        const double parte = m_y + hasta - desde <= m_fin + holgura ? hasta : desde + m_fin - m_y;
        Hoja& hoja = m_hojas.back();
        if (!hoja.empty() && hoja.back().bloque == bloque && hoja.back().hasta == desde)
        {
            hoja.back().hasta = parte;
        }
        else
        {
            hoja.push_back({bloque, desde, parte, m_y});
        }
        m_y += parte - desde;
        desde = parte;
        if (desde < hasta)
        {
            nuevaHoja();
            if (aviso)
            {
                aviso(0, 0);
            }
        }
    }
}

void PaginasDeInforme::ponerSeccion(std::size_t banda, std::size_t fila, const Aviso& aviso)
{
    const double alto = altoDeSeccion(banda, fila);
    const double conSiguiente = alto + (m_contenido->banda(banda).junto ? comienzo(banda + 1) : 0);
    if (m_y + conSiguiente > m_fin + holgura && m_y > m_inicio && alto > 0)
    {
        nuevaHoja();
    }
    poner({.banda = banda, .primera = fila}, 0, alto, aviso);
    if (aviso)
    {
        aviso(0, 0);
    }
}

void PaginasDeInforme::ponerTabla(std::size_t banda)
{
    const Tabla& tabla = m_tablas[banda];
    bool conCabeza = false;
    for (std::size_t fila = 0; fila < tabla.filas.size(); ++fila)
    {
        const double cadena = altoDeCadena(banda, fila);
        const bool entra = m_inicio + tabla.cabeza + cadena <= m_fin; // in any page
        const double pedido = (conCabeza ? 0 : tabla.cabeza) + (entra ? cadena : tabla.filas[fila].alto());
        if (m_y + pedido > m_fin && m_y > m_inicio)
        {
            nuevaHoja();
            conCabeza = false;
        }
        if (!conCabeza)
        {
            ponerCabeza(banda, fila);
            conCabeza = true;
        }
        poner(tabla.filas[fila].bloque, tabla.filas[fila].desde, tabla.filas[fila].hasta);
    }
}

void PaginasDeInforme::ponerCabeza(std::size_t banda, std::size_t fila)
{
    const Tabla& tabla = m_tablas[banda];
    poner({.banda = banda}, 0, tabla.cabeza);
    std::size_t titulo = fila;
    while (titulo > 0 && !tabla.filas[titulo].grupo)
    {
        --titulo;
    }
    if (titulo < fila && tabla.filas[titulo].grupo)
    {
        const Bloque repetido{.banda = banda, .primera = titulo, .cuantas = 1, .continua = true};
        const QTextDocument& documento = dibujo(repetido);
        const std::vector<double> topes = DocumentoDeInforme::topes(documento);
        poner(repetido, topes.empty() ? tabla.cabeza : topes.front(), DocumentoDeInforme::alto(documento));
    }
}

void PaginasDeInforme::pintar(QPainter& pintor, int hoja) const
{
    const QRectF caja = area();
    for (const Pieza& pieza : m_hojas[static_cast<std::size_t>(hoja)])
    {
        DocumentoDeInforme::pintar(pintor, dibujo(pieza.bloque), QPointF(caja.left(), caja.top() + pieza.y),
                                   pieza.desde, pieza.hasta);
    }
    const PlantillaDeInforme& plantilla = m_contenido->plantilla();
    const auto cabeza = dePagina(plantilla.encabezado, hoja + 1, cantidad());
    DocumentoDeInforme::pintar(pintor, *cabeza, caja.topLeft(), 0, DocumentoDeInforme::alto(*cabeza));
    const auto pie = dePagina(plantilla.pie, hoja + 1, cantidad());
    const double alto = DocumentoDeInforme::alto(*pie);
    DocumentoDeInforme::pintar(pintor, *pie, QPointF(caja.left(), caja.bottom() - alto), 0, alto);
}

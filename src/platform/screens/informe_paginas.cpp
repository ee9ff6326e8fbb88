#include "platform/screens/informe_paginas.h"

#include "platform/data/error_de_ejecucion.h"

#include <QTextDocument>
#include <algorithm>
#include <tuple>

using kainjow::mustache::data;

namespace
{
constexpr std::size_t dibujosRecordados = 6;
constexpr std::size_t filasPorAviso = 100;
constexpr double menorCuerpo = 72; // points: a page with less between head and foot is none
} // namespace

PaginasDeInforme::PaginasDeInforme(PlantillaDeInforme plantilla, DatosDeInforme datos,
                                   const std::function<void(qint64, qint64)>& aviso)
    : m_plantilla(std::move(plantilla))
    , m_datos(std::move(datos))
    , m_objeto(m_datos.objeto())
{
    prepararDatos();
    compaginar(aviso);
}

PaginasDeInforme::~PaginasDeInforme() = default;
PaginasDeInforme::PaginasDeInforme(PaginasDeInforme&&) noexcept = default;

/// Takes the bands' tags apart, and puts the row sets that are walked inside sections beside the values; those of bands
/// are filled in row by row.
void PaginasDeInforme::prepararDatos()
{
    for (const BandaDeInforme& banda : m_plantilla.bandas)
    {
        m_formas.emplace_back(banda.html);
        if (!m_formas.back().is_valid())
        {
            (void)m_plantilla.rellenar(banda.html, m_objeto); // throws, naming the fault
        }
        if ((banda.tabla || !banda.filas.isEmpty()) && !m_datos.conjuntos.contains(banda.filas))
        {
            m_plantilla.fallar(QStringLiteral("ninguna consulta da las filas de %1").arg(banda.filas));
        }
    }
    for (const auto& [nombre, conjunto] : m_datos.conjuntos)
    {
        m_objeto.set("hay" + nombre.toStdString(), data(!conjunto.filas.empty()));
        m_objeto.set("no" + nombre.toStdString(), data(conjunto.filas.empty()));
        const bool deBanda = std::any_of(m_plantilla.bandas.begin(), m_plantilla.bandas.end(),
                                         [&cual = nombre](const BandaDeInforme& banda) { return banda.filas == cual; });
        if (deBanda)
        {
            continue;
        }
        data lista{data::type::list};
        for (std::size_t fila = 0; fila < conjunto.filas.size(); ++fila)
        {
            lista.push_back(conjunto.objeto(fila, data{data::type::object}));
        }
        m_objeto.set(nombre.toStdString(), lista);
    }
}

QRectF PaginasDeInforme::area() const
{
    return m_plantilla.pagina.paintRect(QPageLayout::Point);
}

DocumentoDeInforme::Hoja PaginasDeInforme::hoja() const
{
    return {m_plantilla.estilo, m_plantilla.carpeta, area().width()};
}

std::unique_ptr<QTextDocument> PaginasDeInforme::dePagina(const std::string& html, int hoja, int hojas) const
{
    data datos = m_objeto;
    datos.set("Pagina", std::to_string(hoja));
    datos.set("Paginas", std::to_string(hojas));
    return DocumentoDeInforme::hacer(m_plantilla.rellenar(html, datos), this->hoja());
}

const FilasDeInforme* PaginasDeInforme::conjunto(std::size_t banda) const
{
    const auto hallado = m_datos.conjuntos.find(m_plantilla.bandas[banda].filas);
    return hallado == m_datos.conjuntos.end() ? nullptr : &hallado->second;
}

std::size_t PaginasDeInforme::filasDe(std::size_t banda) const
{
    const FilasDeInforme* filas = conjunto(banda);
    return filas == nullptr ? 0 : filas->filas.size();
}

std::string PaginasDeInforme::htmlDeFila(std::size_t banda, std::size_t fila) const
{
    // A table's row is filled from its own columns alone: with the report's values beside them thousands of rows would
    // each copy them all.
    const bool tabla = m_plantilla.bandas[banda].tabla;
    const FilasDeInforme* filas = conjunto(banda);
    const data base = tabla ? data{data::type::object} : m_objeto;
    return m_formas[banda].render(filas == nullptr ? base : filas->objeto(fila, base));
}

const QTextDocument& PaginasDeInforme::dibujo(const Pieza& pieza) const
{
    const auto hecho = std::find_if(m_recientes.begin(), m_recientes.end(),
                                    [&](const Dibujo& otro)
                                    {
                                        return std::tie(otro.pieza.banda, otro.pieza.primera, otro.pieza.cuantas) ==
                                               std::tie(pieza.banda, pieza.primera, pieza.cuantas);
                                    });
    if (hecho != m_recientes.end())
    {
        m_recientes.splice(m_recientes.begin(), m_recientes, hecho);
        return *m_recientes.front().documento;
    }
    std::unique_ptr<QTextDocument> documento;
    if (m_plantilla.bandas[pieza.banda].tabla)
    {
        std::string filas;
        for (std::size_t fila = pieza.primera; fila < pieza.primera + pieza.cuantas; ++fila)
        {
            filas += htmlDeFila(pieza.banda, fila);
        }
        const AltosDeFilas& altos = m_altos.at(pieza.banda);
        documento = pieza.suelta ? altos.suelta(filas) : altos.documento(filas);
    }
    else
    {
        documento = DocumentoDeInforme::hacer(htmlDeFila(pieza.banda, pieza.primera), hoja());
    }
    m_recientes.push_front({pieza, std::move(documento)});
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

void PaginasDeInforme::compaginar(const std::function<void(qint64, qint64)>& aviso)
{
    const auto alto = [&](const std::string& html)
    { return html.empty() ? 0 : DocumentoDeInforme::alto(*dePagina(html, 9999, 9999)); };
    const double inicio = alto(m_plantilla.encabezado);
    const double fin = area().height() - alto(m_plantilla.pie);
    if (fin - inicio < menorCuerpo || area().width() < menorCuerpo)
    {
        throw ErrorDeEjecucion(int{ErrorDeEjecucion::NoCoincidenTipos},
                               QStringLiteral("El informe no entra en una página tan chica."));
    }
    m_inicio = inicio;
    m_fin = fin;
    m_hojas.clear();
    m_recientes.clear();
    m_altos.clear();
    for (std::size_t banda = 0; banda < m_plantilla.bandas.size(); ++banda)
    {
        const BandaDeInforme& forma = m_plantilla.bandas[banda];
        if (forma.tabla)
        {
            m_altos.emplace(banda, AltosDeFilas(m_plantilla.rellenar(forma.apertura, m_objeto), forma.cierre, hoja()));
        }
    }
    nuevaHoja();
    for (std::size_t banda = 0; banda < m_plantilla.bandas.size(); ++banda)
    {
        if (m_plantilla.bandas[banda].tabla)
        {
            ponerTabla(banda, aviso);
        }
        else
        {
            ponerSecciones(banda);
        }
    }
}

double PaginasDeInforme::altoDeSeccion(std::size_t banda, std::size_t fila) const
{
    const double alto = DocumentoDeInforme::alto(dibujo({.banda = banda, .primera = fila}));
    return alto <= 0 ? 0 : std::max(alto, m_plantilla.bandas[banda].alto);
}

double PaginasDeInforme::comienzo(std::size_t banda) const
{
    if (banda >= m_plantilla.bandas.size())
    {
        return 0;
    }
    const BandaDeInforme& forma = m_plantilla.bandas[banda];
    const bool vacia = !forma.filas.isEmpty() && filasDe(banda) == 0;
    if (vacia)
    {
        return comienzo(banda + 1);
    }
    if (forma.tabla)
    {
        AltosDeFilas& altos = m_altos.at(banda);
        const bool sola = forma.junto && filasDe(banda) == 1;
        return altos.cabeza() + altos.de(htmlDeFila(banda, 0)).puntos + (sola ? comienzo(banda + 1) : 0);
    }
    return altoDeSeccion(banda, 0) + (forma.junto ? comienzo(banda + 1) : 0);
}

void PaginasDeInforme::ponerSecciones(std::size_t banda)
{
    const std::size_t veces = m_plantilla.bandas[banda].filas.isEmpty() ? 1 : filasDe(banda);
    for (std::size_t fila = 0; fila < veces; ++fila)
    {
        ponerSeccion(banda, fila);
    }
}

void PaginasDeInforme::ponerSeccion(std::size_t banda, std::size_t fila)
{
    const double alto = altoDeSeccion(banda, fila);
    const double conSiguiente = alto + (m_plantilla.bandas[banda].junto ? comienzo(banda + 1) : 0);
    constexpr double holgura = 0.5; // points: what rounding may take
    if (m_y + conSiguiente > m_fin + holgura && m_y > m_inicio && alto > 0)
    {
        nuevaHoja();
    }
    // A section taller than a page is the one thing that is cut.
    for (double desde = 0; desde < alto;)
    {
        const bool entra = m_y + alto - desde <= m_fin + holgura;
        const double hasta = entra ? alto : desde + m_fin - m_y;
        m_hojas.back().push_back({banda, fila, 0, false, desde, hasta, m_y});
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
    AltosDeFilas& altos = m_altos.at(banda);
    const std::size_t total = filasDe(banda);
    const double trasUltima = m_plantilla.bandas[banda].junto ? comienzo(banda + 1) : 0;
    bool conCabeza = false;
    bool seguido = false; // the next row may join the last piece
    AltosDeFilas::Alto actual = total == 0 ? AltosDeFilas::Alto() : altos.de(htmlDeFila(banda, 0));
    for (std::size_t fila = 0; fila < total; ++fila)
    {
        const AltosDeFilas::Alto siguiente =
            fila + 1 < total ? altos.de(htmlDeFila(banda, fila + 1)) : AltosDeFilas::Alto();
        const double pedido =
            actual.puntos + (actual.junto ? siguiente.puntos : 0) + (fila + 1 == total ? trasUltima : 0);
        if (m_y + (conCabeza ? 0 : altos.cabeza()) + pedido > m_fin && m_y > m_inicio)
        {
            nuevaHoja();
            conCabeza = false;
            seguido = false;
        }
        if (!conCabeza)
        {
            m_hojas.back().push_back({banda, fila, 0, false, 0, altos.cabeza(), m_y});
            m_y += altos.cabeza();
            conCabeza = true;
            seguido = actual.regular; // they go together with their head
        }
        if (!seguido || !actual.regular)
        {
            const double desde = actual.regular ? altos.cabeza() : altos.cabezaDeSuelta();
            m_hojas.back().push_back({banda, fila, 0, !actual.regular, desde, desde, m_y});
        }
        Pieza& pieza = m_hojas.back().back();
        ++pieza.cuantas;
        pieza.hasta += actual.puntos;
        m_y += actual.puntos;
        seguido = actual.regular;
        actual = siguiente;
        if (aviso && (fila % filasPorAviso == 0 || fila + 1 == total))
        {
            aviso(static_cast<qint64>(fila) + 1, static_cast<qint64>(total));
        }
    }
}

void PaginasDeInforme::setPagina(const QPageLayout& pagina, const std::function<void(qint64, qint64)>& aviso)
{
    const QPageLayout anterior = std::exchange(m_plantilla.pagina, pagina);
    try
    {
        compaginar(aviso);
    }
    catch (const ErrorDeEjecucion&)
    {
        m_plantilla.pagina = anterior;
        throw;
    }
}

void PaginasDeInforme::pintar(QPainter& pintor, int hoja) const
{
    const QRectF caja = area();
    for (const Pieza& pieza : m_hojas[static_cast<std::size_t>(hoja)])
    {
        DocumentoDeInforme::pintar(pintor, dibujo(pieza), QPointF(caja.left(), caja.top() + pieza.y), pieza.desde,
                                   pieza.hasta);
    }
    const auto cabeza = dePagina(m_plantilla.encabezado, hoja + 1, cantidad());
    DocumentoDeInforme::pintar(pintor, *cabeza, caja.topLeft(), 0, DocumentoDeInforme::alto(*cabeza));
    const auto pie = dePagina(m_plantilla.pie, hoja + 1, cantidad());
    const double alto = DocumentoDeInforme::alto(*pie);
    DocumentoDeInforme::pintar(pintor, *pie, QPointF(caja.left(), caja.bottom() - alto), 0, alto);
}

#include "ui/report/informe_contenido.h"

#include <algorithm>

using kainjow::mustache::data;

ContenidoDeInforme::ContenidoDeInforme(PlantillaDeInforme plantilla, DatosDeInforme datos)
    : m_plantilla(std::move(plantilla))
    , m_datos(std::move(datos))
    , m_objeto(m_datos.objeto())
{
    tomarBandas();
    ponerConjuntos();
    for (const BandaDeInforme& banda : m_plantilla.bandas)
    {
        m_aperturas.push_back(banda.tabla ? m_plantilla.rellenar(banda.apertura, m_objeto) : std::string());
    }
}

void ContenidoDeInforme::tomarBandas()
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
}

/// Puts the row sets that are walked inside sections beside the values; those of bands are filled in row by row.
void ContenidoDeInforme::ponerConjuntos()
{
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

const FilasDeInforme* ContenidoDeInforme::conjunto(std::size_t banda) const
{
    const auto hallado = m_datos.conjuntos.find(m_plantilla.bandas[banda].filas);
    return hallado == m_datos.conjuntos.end() ? nullptr : &hallado->second;
}

std::size_t ContenidoDeInforme::filas(std::size_t banda) const
{
    const FilasDeInforme* filas = conjunto(banda);
    return filas == nullptr ? 1 : filas->filas.size();
}

std::string ContenidoDeInforme::fila(std::size_t banda, std::size_t numero, bool continua) const
{
    // A table's row is filled from its own columns alone: with the report's values beside them thousands of rows would
    // each copy them all.
    const FilasDeInforme* filas = conjunto(banda);
    data base = m_plantilla.bandas[banda].tabla ? data{data::type::object} : m_objeto;
    if (continua)
    {
        base.set("Continua", data(true));
    }
    return m_formas[banda].render(filas == nullptr ? base : filas->objeto(numero, base));
}

std::string ContenidoDeInforme::tabla(std::size_t banda, const std::string& filas) const
{
    return m_aperturas[banda] + "<tbody>" + filas + "</tbody>" + m_plantilla.bandas[banda].cierre;
}

std::string ContenidoDeInforme::dePagina(const std::string& html, int hoja, int hojas) const
{
    data datos = m_objeto;
    datos.set("Pagina", std::to_string(hoja));
    datos.set("Paginas", std::to_string(hojas));
    return m_plantilla.rellenar(html, datos);
}

#pragma once

#include "ui/report/informe_plantilla.h"

/// What a report prints, whatever its paper: a layout filled with its data, piece by piece as HTML. Bands are counted
/// from 0 as the layout has them, rows from 0 as their query gives them.
class ContenidoDeInforme
{
public:
    /// Throws ErrorDeEjecucion 13 for tags that do not parse and for a row set that no query gives.
    ContenidoDeInforme(PlantillaDeInforme plantilla, DatosDeInforme datos);

    [[nodiscard]] const PlantillaDeInforme& plantilla() const { return m_plantilla; }
    [[nodiscard]] std::size_t bandas() const { return m_plantilla.bandas.size(); }
    [[nodiscard]] const BandaDeInforme& banda(std::size_t cual) const { return m_plantilla.bandas[cual]; }
    /// Times that a band's row stands: once for a section without a row set.
    [[nodiscard]] std::size_t filas(std::size_t banda) const;
    /// One row of a table or one section. `continua`: it stands for a group that goes on over a page.
    [[nodiscard]] std::string fila(std::size_t banda, std::size_t numero, bool continua = false) const;
    /// A table, whole, around these rows.
    [[nodiscard]] std::string tabla(std::size_t banda, const std::string& filas) const;
    /// Head or foot of page `hoja`, from 1.
    [[nodiscard]] std::string dePagina(const std::string& html, int hoja, int hojas) const;

private:
    void tomarBandas();
    void ponerConjuntos();
    /// The row set of a band; null when it has none.
    [[nodiscard]] const FilasDeInforme* conjunto(std::size_t banda) const;

    PlantillaDeInforme m_plantilla;
    DatosDeInforme m_datos;
    kainjow::mustache::data m_objeto;
    mutable std::vector<kainjow::mustache::mustache> m_formas; ///< of each band, taken apart once
    std::vector<std::string> m_aperturas;                      ///< of each table, filled
};

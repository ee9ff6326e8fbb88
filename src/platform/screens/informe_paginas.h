#pragma once

#include "platform/screens/informe_documento.h"
#include "platform/screens/informe_filas.h"
#include "platform/screens/informe_plantilla.h"

#include <QPainter>
#include <functional>
#include <list>
#include <map>
#include <memory>

/// Lays a filled layout out on pages and paints them: head and foot on each, table heads repeated, no row or section
/// cut. What is kept of a page is where its pieces lie, so that memory does not grow with the pages on view.
class PaginasDeInforme
{
public:
    /// Lays everything out. `aviso` is told rows done and in all. Throws ErrorDeEjecucion 13 for tags that do not parse
    /// and when head and foot leave no room on the page; for a row set that no query gives.
    PaginasDeInforme(PlantillaDeInforme plantilla, DatosDeInforme datos,
                     const std::function<void(qint64, qint64)>& aviso = {});
    ~PaginasDeInforme();
    PaginasDeInforme(PaginasDeInforme&&) noexcept;

    [[nodiscard]] int cantidad() const { return static_cast<int>(m_hojas.size()); }
    [[nodiscard]] const QPageLayout& pagina() const { return m_plantilla.pagina; }
    [[nodiscard]] const QString& titulo() const { return m_plantilla.titulo; }
    /// Another paper or margins: everything is laid out again. Throws 13, with the pages as they were,
    /// when that is too small.
    void setPagina(const QPageLayout& pagina, const std::function<void(qint64, qint64)>& aviso = {});
    /// Paints page `hoja`, from 0, whole, with the paper's corner at the origin, in units of 1/72 inch.
    void pintar(QPainter& pintor, int hoja) const;

private:
    /// A section, or a run of a table's rows.
    struct Pieza
    {
        std::size_t banda = 0;
        std::size_t primera = 0; ///< row of the band's set
        std::size_t cuantas = 0;
        bool suelta = false; ///< a row that does not keep to the columns
        double desde = 0;    ///< part of its drawing, from top
        double hasta = 0;
        double y = 0; ///< where it goes on the page
    };
    using Hoja = std::vector<Pieza>;
    struct Dibujo
    {
        Pieza pieza;
        std::unique_ptr<QTextDocument> documento;
    };

    void prepararDatos();
    void compaginar(const std::function<void(qint64, qint64)>& aviso);
    void ponerSecciones(std::size_t banda);
    void ponerSeccion(std::size_t banda, std::size_t fila);
    void ponerTabla(std::size_t banda, const std::function<void(qint64, qint64)>& aviso);
    void nuevaHoja();
    /// The row set of a band; null when it has none.
    [[nodiscard]] const FilasDeInforme* conjunto(std::size_t banda) const;
    [[nodiscard]] std::size_t filasDe(std::size_t banda) const;
    [[nodiscard]] std::string htmlDeFila(std::size_t banda, std::size_t fila) const;
    [[nodiscard]] double altoDeSeccion(std::size_t banda, std::size_t fila) const;
    /// What the band needs to begin on a page.
    [[nodiscard]] double comienzo(std::size_t banda) const;
    /// The laid-out text of which a piece shows a part.
    [[nodiscard]] const QTextDocument& dibujo(const Pieza& pieza) const;
    [[nodiscard]] std::unique_ptr<QTextDocument> dePagina(const std::string& html, int hoja, int hojas) const;
    [[nodiscard]] QRectF area() const;
    [[nodiscard]] DocumentoDeInforme::Hoja hoja() const;

    PlantillaDeInforme m_plantilla;
    DatosDeInforme m_datos;
    kainjow::mustache::data m_objeto;
    mutable std::vector<kainjow::mustache::mustache> m_formas; ///< of each band, taken apart once
    mutable std::map<std::size_t, AltosDeFilas> m_altos;       ///< of each table
    std::vector<Hoja> m_hojas;
    double m_y = 0;
    double m_inicio = 0; ///< below the page's head
    double m_fin = 0;    ///< above the page's foot
    mutable std::list<Dibujo> m_recientes;
};

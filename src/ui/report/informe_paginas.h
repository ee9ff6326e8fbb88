#pragma once

#include "ui/report/informe_contenido.h"
#include "ui/report/informe_documento.h"

#include <QPainter>
#include <list>
#include <memory>

/// Lays a filled layout out on pages and paints them: head and foot on each, table heads and the title of a group that
/// goes on repeated, no row or section cut. What is kept of a page is where its pieces lie, so that memory does not
/// grow with the pages on view.
class PaginasDeInforme
{
public:
    /// Lays everything out. `aviso` is told rows done and in all, and often; what it throws ends the work. Throws
    /// ErrorDeEjecucion 13 for tags that do not parse and when head and foot leave no room on the page; for a row set
    /// that no query gives.
    PaginasDeInforme(PlantillaDeInforme plantilla, DatosDeInforme datos, const Aviso& aviso = {});
    ~PaginasDeInforme();
    PaginasDeInforme(PaginasDeInforme&&) noexcept;
    PaginasDeInforme& operator=(PaginasDeInforme&&) noexcept;

    [[nodiscard]] int cantidad() const { return static_cast<int>(m_hojas.size()); }
    [[nodiscard]] const QPageLayout& pagina() const { return m_pagina; }
    [[nodiscard]] const ContenidoDeInforme& contenido() const { return *m_contenido; }
    [[nodiscard]] const QString& titulo() const { return m_contenido->plantilla().titulo; }
    /// Another paper or margins: everything is laid out again. What it throws (13 when that is too small, what `aviso`
    /// throws) leaves the pages as they were.
    void setPagina(const QPageLayout& pagina, const Aviso& aviso = {});
    /// Paints page `hoja`, from 0, whole, with the paper's corner at the origin, in units of 1/72 inch.
    void pintar(QPainter& pintor, int hoja) const;

private:
    /// What is laid out together: a section, or a run of a table's rows under its head (of none: the head alone).
    struct Bloque
    {
        std::size_t banda = 0;
        std::size_t primera = 0; ///< row of the band's set
        std::size_t cuantas = 0;
        bool continua = false; ///< the title of a group that goes on
        bool operator==(const Bloque&) const = default;
    };
    /// A part of a block, from top, and where it goes on the page.
    struct Pieza
    {
        Bloque bloque;
        double desde = 0;
        double hasta = 0;
        double y = 0;
    };
    using Hoja = std::vector<Pieza>;
    /// A table's row where it lies in its block.
    struct Fila
    {
        Bloque bloque;
        double desde = 0;
        double hasta = 0;
        bool junto = false; ///< stays on the page of the row after it
        bool unida = false; ///< stays on the page of the row before it
        bool grupo = false; ///< the title of the rows after it, repeated where they go on over a page
        [[nodiscard]] double alto() const { return hasta - desde; }
    };
    struct Tabla
    {
        double cabeza = 0; ///< height of its head
        std::vector<double> columnas;
        std::vector<Fila> filas;
    };
    struct Dibujo
    {
        Bloque bloque;
        std::unique_ptr<QTextDocument> documento;
    };

    PaginasDeInforme(std::shared_ptr<const ContenidoDeInforme> contenido, const QPageLayout& pagina,
                     const Aviso& aviso);
    void compaginar(const Aviso& aviso);
    void medirTabla(std::size_t banda, const Aviso& aviso);
    void medirBloque(const Bloque& bloque);
    void ponerSeccion(std::size_t banda, std::size_t fila, const Aviso& aviso);
    void ponerTabla(std::size_t banda);
    /// Puts the table's head on the page, and the title of the group in which `fila` stands.
    void ponerCabeza(std::size_t banda, std::size_t fila);
    /// Puts a part of a block on the page; what is taller than a page goes on over the next ones.
    void poner(const Bloque& bloque, double desde, double hasta, const Aviso& aviso = {});
    void nuevaHoja();
    [[nodiscard]] double altoDeSeccion(std::size_t banda, std::size_t fila) const;
    /// Height of the rows from `fila` on that must stand on one page, and of what follows the table's last one there.
    [[nodiscard]] double altoDeCadena(std::size_t banda, std::size_t fila) const;
    /// What the band needs to begin on a page.
    [[nodiscard]] double comienzo(std::size_t banda) const;
    /// The laid-out text of a block.
    [[nodiscard]] const QTextDocument& dibujo(const Bloque& bloque) const;
    /// The same of a block that is not laid out yet, a table's with the HTML of its rows.
    [[nodiscard]] const QTextDocument& dibujo(const Bloque& bloque, const std::string& filas) const;
    [[nodiscard]] std::unique_ptr<QTextDocument> dePagina(const std::string& html, int hoja, int hojas) const;
    [[nodiscard]] QRectF area() const { return m_pagina.paintRect(QPageLayout::Point); }
    [[nodiscard]] DocumentoDeInforme::Hoja hoja() const;

    std::shared_ptr<const ContenidoDeInforme> m_contenido;
    QPageLayout m_pagina;
    std::vector<Tabla> m_tablas; ///< by band; only while it is laid out
    std::vector<Hoja> m_hojas;
    double m_y = 0;
    double m_inicio = 0; ///< below the page's head
    double m_fin = 0;    ///< above the page's foot
    mutable std::list<Dibujo> m_recientes;
};

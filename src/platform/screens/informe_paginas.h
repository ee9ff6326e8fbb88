#pragma once

#include "platform/screens/informe_plantilla.h"

#include <QPainter>
#include <QSizeF>
#include <QTextDocument>
#include <functional>
#include <list>
#include <memory>

/// Lays a filled layout out on pages and paints them: head and foot on each, table heads repeated, no row or section
/// cut. What is kept of a page is where its pieces lie, so that memory does not grow with the pages on view.
class PaginasDeInforme
{
public:
    /// Lays everything out. `aviso` is told rows done and in all.
    PaginasDeInforme(PlantillaDeInforme plantilla, DatosDeInforme datos,
                     const std::function<void(qint64, qint64)>& aviso = {});
    ~PaginasDeInforme();
    PaginasDeInforme(PaginasDeInforme&&) noexcept;

    [[nodiscard]] int cantidad() const { return static_cast<int>(m_hojas.size()); }
    [[nodiscard]] const QPageLayout& pagina() const { return m_plantilla.pagina; }
    [[nodiscard]] const QString& titulo() const { return m_plantilla.titulo; }
    /// Another paper or margins: everything is laid out again.
    void setPagina(const QPageLayout& pagina);
    /// Paints page `hoja`, from 0, whole, with the paper's corner at the origin, in units of 1/72 inch.
    void pintar(QPainter& pintor, int hoja) const;

private:
    struct Pieza
    {
        std::size_t banda;
        std::size_t trozo; ///< block of rows of a table
        double desde;      ///< part of the block's drawing, from top
        double hasta;
        double y; ///< where it goes on the page
    };
    using Hoja = std::vector<Pieza>;
    struct Trozo;

    void compaginar(const std::function<void(qint64, qint64)>& aviso);
    void ponerSeccion(std::size_t banda);
    void ponerTabla(std::size_t banda, const std::function<void(qint64, qint64)>& aviso);
    void nuevaHoja();
    [[nodiscard]] std::unique_ptr<QTextDocument> documento(const std::string& html) const;
    [[nodiscard]] std::string htmlDeTrozo(std::size_t banda, std::size_t trozo) const;
    [[nodiscard]] const Trozo& trozo(std::size_t banda, std::size_t numero) const;
    void pintarDocumento(QPainter& pintor, const QTextDocument& documento, QPointF en, double desde,
                         double hasta) const;
    [[nodiscard]] std::string conPagina(const std::string& html, int hoja, int hojas) const;
    [[nodiscard]] QRectF area() const;

    PlantillaDeInforme m_plantilla;
    DatosDeInforme m_datos;
    kainjow::mustache::data m_objeto;
    std::vector<Hoja> m_hojas;
    double m_y = 0;
    double m_inicio = 0; ///< below the page's head
    double m_fin = 0;    ///< above the page's foot
    mutable std::list<Trozo> m_recientes;
};

#pragma once

#include "ui/grid/grilla_celdas.h"

/// The rows of a grid, in memory. Rows and columns count from 0 here, as Qt does; but the toolkit is told of the
/// columns that are shown alone, or a screen reader would tell of the others.
class Grilla::Modelo : public QAbstractTableModel
{
public:
    using QAbstractTableModel::QAbstractTableModel;

    void setColumnas(std::vector<ColumnaDeGrilla> columnas);
    [[nodiscard]] int columnas() const { return int(m_columnas.size()); }
    [[nodiscard]] const ColumnaDeGrilla& columna(int columna) const { return m_columnas[std::size_t(columna)]; }
    [[nodiscard]] const ColumnaDeGrilla& columna(const QModelIndex& celda) const
    {
        return columna(propia(celda.column()));
    }
    /// The column that the toolkit knows by this number.
    [[nodiscard]] int propia(int vista) const { return m_vistas[std::size_t(vista)]; }
    /// The toolkit's number of a column; -1 where it is not shown.
    [[nodiscard]] int vista(int columna) const;
    void setOpciones(int columna, const QStringList& opciones);

    void setFilas(int filas);
    void cargar(std::vector<FilaDeGrilla> filas);
    void borrar(int fila);
    /// The rows in another order: `orden` tells which one goes to each place.
    void ordenar(const std::vector<int>& orden);
    [[nodiscard]] bool contiene(int columna, int fila) const;
    [[nodiscard]] QVariant valor(int columna, int fila) const;
    void poner(int columna, int fila, const QVariant& valor);

    /// All rows at once whatever their number: a row's own colour counts only until the next call.
    void pintarTodo(QRgb color);
    void pintar(int fila, QRgb color);
    [[nodiscard]] QRgb color(int fila) const;

    bool editable = false;

    [[nodiscard]] int rowCount(const QModelIndex& padre = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& padre = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& celda, int papel) const override;
    [[nodiscard]] QVariant headerData(int seccion, Qt::Orientation orientacion, int papel) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& celda) const override;

private:
    struct Fila
    {
        std::vector<QVariant> celdas;
        QRgb color = 0;
        unsigned pintada = 0; ///< the painting that `color` belongs to
    };
    [[nodiscard]] Fila filaVacia() const;
    [[nodiscard]] static bool esTilde(const ColumnaDeGrilla& columna)
    {
        return columna.clase == ColumnaDeGrilla::Tilde;
    }

    std::vector<ColumnaDeGrilla> m_columnas;
    std::vector<int> m_vistas; ///< the columns shown
    std::vector<Fila> m_filas;
    QRgb m_fondo = 0xffffffff;
    unsigned m_pintada = 1;
};

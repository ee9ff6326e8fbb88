#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <QStringList>
#include <QTableView>
#include <QVariant>
#include <functional>
#include <vector>

/// What one column of a Grilla holds.
struct ColumnaDeGrilla
{
    enum Clase
    {
        Fija,    ///< shown, not edited
        Texto,   ///< `maximo` characters, 0 for no limit
        Entero,  ///< whole number from 0 to `maximo` (0: no limit); empty is allowed
        Decimal, ///< Moneda with two decimals, shown "#,##0.00"; `maximo` in pesos
        Fecha,   ///< QDate, shown DD/MM/YYYY; empty is allowed; two-digit years completed
        Lista,   ///< one of `opciones`; empty is allowed until something is chosen
        Tilde,   ///< bool
    };
    Clase clase = Fija;
    QString titulo;
    int ancho = 100; ///< pixels at 96 dpi; 0 hides the column, -1 takes what is left over
    qint64 maximo = 0;
    QStringList opciones;
    bool derecha = false; ///< right-aligned whatever its kind (whole numbers and amounts are anyway)
};

/// The grid of every screen: a table over rows kept in memory, rows and columns counted from 1, row 0 the header.
/// Cells hold QString, qlonglong, Moneda, QDate or bool by their column's kind; an invalid QVariant is an empty cell.
class Grilla : public QTableView
{
    Q_OBJECT
public:
    explicit Grilla(QWidget* padre = nullptr);
    ~Grilla() override;

    void setColumnas(std::vector<ColumnaDeGrilla> columnas);
    void setOpciones(int columna, const QStringList& opciones);
    [[nodiscard]] int filas() const;
    [[nodiscard]] int columnas() const;
    /// Sets the row count: rows are added empty at the end or dropped from it. Does not touch the changed flag, and
    /// raises no event.
    void setFilas(int filas);
    /// Replaces all rows at once; the fast way for 20,000 of them. No current row afterwards, no event.
    void cargar(std::vector<std::vector<QVariant>> filas);
    [[nodiscard]] QVariant valor(int columna, int fila) const;
    /// The cell's value, by program: no event, no changed flag.
    void setValor(int columna, int fila, const QVariant& valor);
    /// As it is shown, empty for an empty cell: amounts "#,##0.00", dates DD/MM/YYYY.
    [[nodiscard]] QString texto(int columna, int fila) const;
    /// 0 for an empty cell.
    [[nodiscard]] qint64 entero(int columna, int fila) const;
    [[nodiscard]] bool celdaVacia(int columna, int fila) const; ///< empty text, no date, no number at all
    void borrarFila(int fila);

    [[nodiscard]] int filaActual() const; ///< 0 when there is none
    [[nodiscard]] int columnaActual() const;
    /// By program: paints nothing and raises no event.
    void setFilaActual(int fila, int columna = 1);

    /// Set when the user edits a cell, and by the screens.
    [[nodiscard]] bool cambiada() const { return m_cambiada; }
    void setCambiada(bool cambiada) { m_cambiada = cambiada; }
    /// Rows whose cells the user edited since cargar() or olvidarCambios().
    [[nodiscard]] bool filaCambiada(int fila) const;
    void olvidarCambios();

    // Row painting. By default the screen paints; with pintaActual the current row is always the one yellow row.
    void pintarTodo(QColor color);
    void pintarFila(int fila, QColor color);
    [[nodiscard]] QColor colorDeFila(int fila) const;
    void setPintaActual(bool pinta);

    /// May cells be edited at all? False by default; fixed columns never are.
    void setEditable(bool editable);
    /// Keys in browsing. `agregar` is asked on Down or Insert on the last row (true: add an empty one and go there);
    /// `quitar` on Delete with the row (true: delete it; the grid keeps at least one row and sets the changed flag).
    void setTeclasDeFila(std::function<bool()> agregar, std::function<bool(int fila)> quitar);

    /// Commits the cell being edited. False when its text is refused (the box has been shown, the editor stays).
    bool confirmarEdicion();
    [[nodiscard]] bool editando() const;

    static const QColor amarillo; ///< colour value 65535
    static const QColor blanco;   ///< colour value 16777215

Q_SIGNALS:
    /// Row 0 is the header.
    void clic(int columna, int fila);
    void dobleClic(int columna, int fila);
    /// The current cell moves, by mouse or keyboard. nuevaFila is -1 when the grid is left for another control.
    void dejarCelda(int columna, int fila, int nuevaColumna, int nuevaFila);
    /// The user changed a cell.
    void celdaEditada(int columna, int fila);

protected:
    void currentChanged(const QModelIndex& actual, const QModelIndex& anterior) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;
    void mouseDoubleClickEvent(QMouseEvent* evento) override;
    void focusOutEvent(QFocusEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;

private:
    class Modelo;
    class Delegado;
    Modelo* m_modelo;
    bool m_cambiada = false;
    bool m_pintaActual = false;
    bool m_silencio = false;
    std::function<bool()> m_agregar;
    std::function<bool(int)> m_quitar;
};

Q_DECLARE_METATYPE(class Moneda)

#pragma once

#include "base/numbers/moneda.h"

#include <QAbstractTableModel>
#include <QColor>
#include <QDate>
#include <QPointer>
#include <QStringList>
#include <QTableView>
#include <QVariant>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// What one column of a Grilla holds.
struct ColumnaDeGrilla
{
    enum Clase
    {
        Fija,    ///< shown, not edited; an amount or a date put into it is shown as in its own kind of column
        Texto,   ///< `maximo` characters, 0 for no limit
        Entero,  ///< whole number from 0 to `maximo` (0: no limit); empty is allowed
        Decimal, ///< Moneda with two decimals, shown "#,##0.00"; from 0 to `maximo` pesos and 99 cents; may be empty
        Fecha,   ///< QDate of 1900 to 2100, shown DD/MM/YYYY; empty is allowed; two-digit years completed
        Lista,   ///< one of `opciones`; empty is allowed until something is chosen
        Tilde,   ///< bool
    };
    Clase clase = Fija;
    QString titulo = {};
    int ancho = 100;   ///< pixels at 96 dpi; 0 hides the column, -1 takes what is left over
    qint64 maximo = 0; ///< whole pesos for amounts: 9999999 lets 9999999,99 pass
    QStringList opciones = {};
    bool derecha = false;   ///< right-aligned whatever its kind (whole numbers and amounts are anyway)
    bool anioCorto = false; ///< its dates are shown DD/MM/YY
};

/// The cells of one row, from the first column on.
using FilaDeGrilla = std::vector<QVariant>;

/// The grid of every screen: a table over rows kept in memory, rows and columns counted from 1, row 0 the header.
/// Cells hold QString, qlonglong, Moneda, QDate or bool by their column's kind; an invalid QVariant is an empty cell.
/// Keys: arrows move; typing replaces a cell's value, F2 and double click edit it, Escape gives up; Enter commits and
/// goes to the next cell that can be edited; Space sets a tick; Tab leaves the grid (from an editor: the next cell).
/// A grid that is edited has a current cell as soon as it has the focus, and Up and Down keep to columns that can be
/// typed into; what is typed into a fixed one is announced. Ctrl+C copies the whole grid for a spreadsheet, or the rows
/// marked by Shift or Ctrl where they are several; a right click opens the menu of what can be done with it.
class Grilla : public QTableView
{
    Q_OBJECT
public:
    explicit Grilla(QWidget* padre = nullptr);
    ~Grilla() override;

    void setColumnas(std::vector<ColumnaDeGrilla> columnas);
    void setOpciones(int columna, const QStringList& opciones);
    [[nodiscard]] int filas() const;
    [[nodiscard]] int columnas() const; ///< those hidden included
    [[nodiscard]] bool seVe(int columna) const;
    [[nodiscard]] const ColumnaDeGrilla& columna(int columna) const; ///< from 1 to columnas()
    /// The cell as the toolkit knows it; none where the column is hidden.
    [[nodiscard]] QModelIndex indice(int columna, int fila) const;
    /// Sets the row count: rows are added empty at the end or dropped from it. Does not touch the changed flag, and
    /// raises no event.
    void setFilas(int filas);
    /// Replaces all rows at once; the fast way for 20,000 of them. No current row afterwards, no event.
    void cargar(std::vector<FilaDeGrilla> filas);
    /// The same with a row for each of `datos`, of the cells that `celdas` gives for it.
    template <class Datos, class Celdas>
    void cargar(const Datos& datos, Celdas celdas)
    {
        std::vector<FilaDeGrilla> filas;
        filas.reserve(std::size(datos));
        for (const auto& dato : datos)
        {
            filas.push_back(celdas(dato));
        }
        cargar(std::move(filas));
    }
    [[nodiscard]] QVariant valor(int columna, int fila) const;
    /// The cell's value, of its column's own type, by program: no event, no changed flag.
    void setValor(int columna, int fila, const QVariant& valor);
    /// As it is shown, empty for an empty cell: amounts "#,##0.00", dates DD/MM/YYYY. Row 0 gives the header.
    [[nodiscard]] QString texto(int columna, int fila) const;
    /// 0 for an empty cell.
    [[nodiscard]] qint64 entero(int columna, int fila) const { return valor(columna, fila).toLongLong(); }
    /// 0 for an empty cell.
    [[nodiscard]] Moneda importe(int columna, int fila) const { return valor(columna, fila).value<Moneda>(); }
    /// Invalid for an empty cell.
    [[nodiscard]] QDate fecha(int columna, int fila) const { return valor(columna, fila).toDate(); }
    [[nodiscard]] bool tilde(int columna, int fila) const { return valor(columna, fila).toBool(); }
    [[nodiscard]] bool celdaVacia(int columna, int fila) const; ///< empty text, no date, no number at all
    void borrarFila(int fila);

    [[nodiscard]] int filaActual() const { return currentIndex().row() + 1; } ///< 0 when there is none
    [[nodiscard]] int columnaActual() const;
    /// By program: paints nothing and raises no event. A hidden column stands for the first one shown; row 0: none.
    void setFilaActual(int fila, int columna = 1);

    /// Set when the user edits a cell (also when he types the value it had), and by the screens.
    [[nodiscard]] bool cambiada() const { return m_cambiada; }
    void setCambiada(bool cambiada); ///< once it is cleared, no paste can be undone

    // Row painting. By default the screen paints; with pintaActual the current row is always the one yellow row.
    void pintarTodo(QColor color);
    void pintarFila(int fila, QColor color);
    [[nodiscard]] QColor colorDeFila(int fila) const;
    void setPintaActual(bool pinta);

    /// What stands in the place of the rows while there are none.
    void setTextoVacio(const QString& texto);

    // Spreadsheets.
    /// The name proposed for an exported file; without one, the end of the window's title.
    void setNombreDePlanilla(const QString& nombre);
    /// Lets amounts be pasted (Ctrl+V) into the columns of that kind, by their place or by the texts of `columnaClave`,
    /// and the last paste be undone (Ctrl+Z). Each value goes in as if it were typed.
    void setPegable(int columnaClave);
    /// A click on a header sorts the rows by its column, and again the other way, until other rows come in.
    void setOrdenable();

    /// May cells be edited at all? False by default; fixed columns never are.
    void setEditable(bool editable);
    [[nodiscard]] bool editable() const { return m_editable; }
    /// Keys in browsing. `agregar` is asked on Down or Insert on the last row (true: add an empty one and go there);
    /// `quitar` on Delete with the row (true: delete it; the grid keeps at least one row and sets the changed flag).
    void setTeclasDeFila(std::function<bool()> agregar, std::function<bool(int fila)> quitar);

    /// Commits the cell being edited. False when its text is refused (the box has been shown, the editor stays).
    bool confirmarEdicion();
    /// Gives up the cell being edited; it keeps the value it had.
    void cancelarEdicion();
    [[nodiscard]] bool editando() const;

    [[nodiscard]] QSize sizeHint() const override;

    static const QColor amarillo; ///< colour value 65535
    static const QColor blanco;   ///< colour value 16777215

Q_SIGNALS:
    /// Row 0 is the header.
    void clic(int columna, int fila);
    void dobleClic(int columna, int fila);
    /// The current cell moves, by mouse or keyboard; with none before, the first cell is the one left. nuevaFila is -1
    /// when the grid is left for another control of its window.
    void dejarCelda(int columna, int fila, int nuevaColumna, int nuevaFila);
    /// A row, from 1 on, is clicked, or the current cell moves to or within it; before whoever else listens to clic or
    /// dejarCelda. A click that moves the cell tells it twice: at the press and at the release.
    void elegida(int fila);
    /// The user changed a cell.
    void celdaEditada(int columna, int fila);
    /// Enter on a row of a grid that is not edited. When nobody listens, Enter goes to the next control.
    void entrar(int columna, int fila);
    /// A sign typed into a fixed column of a grid that is edited. When nobody listens, it is announced as lost.
    void teclaEnFija(const QString& signo);

protected:
    void currentChanged(const QModelIndex& actual, const QModelIndex& anterior) override;
    void paintEvent(QPaintEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseMoveEvent(QMouseEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;
    void mouseDoubleClickEvent(QMouseEvent* evento) override;
    void contextMenuEvent(QContextMenuEvent* evento) override;
    void focusInEvent(QFocusEvent* evento) override;
    void changeEvent(QEvent* evento) override;
    QModelIndex moveCursor(CursorAction accion, Qt::KeyboardModifiers teclas) override;
    bool edit(const QModelIndex& celda, EditTrigger disparo, QEvent* evento) override;
    void keyboardSearch(const QString& letra) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& celda,
                                                                       const QEvent* evento) const override;
    void selectionChanged(const QItemSelection& marcadas, const QItemSelection& anteriores) override;

private:
    class Modelo;
    class Delegado;
    class Edicion;
    class Planilla;
    struct Salto
    {
        int columna = 0;
        int fila = 0;
        int nuevaColumna = 0;
        int nuevaFila = 0;
    };

    void elegir(int fila);
    [[nodiscard]] int columnaDe(const QModelIndex& celda) const; ///< 0 for none
    [[nodiscard]] int primeraVisible() const;
    [[nodiscard]] int primeraEditable() const; ///< the first one shown where there is none
    /// Where there is no current cell yet, the first one that can be typed into; true when it moved there.
    bool irALoEditable();
    void medir();
    void alCambiarFoco(QWidget* nuevo);
    /// Runs `entrada`, and raises dejarCelda once for where the current cell went in it.
    void conSalto(const std::function<void()>& entrada);
    bool tecla(QKeyEvent* evento);
    /// A sign is typed into the current cell.
    void signo(QKeyEvent* evento);
    bool teclaDeFila(int codigo);
    void agregarFila();
    /// Next cell that can be edited in this direction, or none.
    [[nodiscard]] QModelIndex siguienteEditable(int paso) const;
    bool avanzar(int paso);
    /// What the editor's key does once the value is stored.
    void seguirDespuesDeEditar(int codigo);
    void alternarTilde(const QModelIndex& celda);
    /// The user has changed this cell by hand: it is no longer of the last paste.
    void tipeada(int columna, int fila);

    void abrirMenu(QPoint lugar);
    void abrirMenuConTeclado();
    [[nodiscard]] std::vector<int> filasMarcadas() const; ///< from the first to the last
    void ordenar(int columna, Qt::SortOrder sentido);

    Modelo* m_modelo;
    Delegado* m_delegado;
    std::unique_ptr<Planilla> m_planilla;
    bool m_cambiada = false;
    bool m_editable = false;
    bool m_silencio = false;
    bool m_tieneFoco = false;
    bool m_sinCursor = false;
    bool m_variasMarcadas = false; ///< for the painting: more rows than the current one
    QString m_textoVacio;
    int m_entradas = 0;
    std::optional<Salto> m_salto;
    QPersistentModelIndex m_presionada;
    std::function<bool()> m_agregar;
    std::function<bool(int)> m_quitar;
};

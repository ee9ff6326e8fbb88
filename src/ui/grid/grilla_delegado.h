#pragma once

#include "ui/grid/grilla.h"
#include "ui/grid/grilla_celdas.h"

#include <QStyledItemDelegate>
#include <memory>

/// Paints the cells of a grid and makes their editors.
class Grilla::Delegado : public QStyledItemDelegate
{
public:
    explicit Delegado(Grilla* grilla);
    ~Delegado() override;

    bool pintaActual = false;
    /// An editor opened with F2 or a double click drops its list down; one opened by typing does not.
    bool abrirLista = false;

    [[nodiscard]] Edicion& edicion() const { return *m_edicion; }

    /// The colour that tells what the row is; it is painted in the user's own under high contrast.
    [[nodiscard]] QColor fondo(int fila) const;

    void paint(QPainter* pintor, const QStyleOptionViewItem& opcion, const QModelIndex& celda) const override;
    QWidget* createEditor(QWidget* padre, const QStyleOptionViewItem& opcion, const QModelIndex& celda) const override;
    void setEditorData(QWidget* editor, const QModelIndex& celda) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* modelo, const QModelIndex& celda) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& opcion,
                              const QModelIndex& celda) const override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    bool editorEvent(QEvent* evento, QAbstractItemModel* modelo, const QStyleOptionViewItem& opcion,
                     const QModelIndex& celda) override;

protected:
    void initStyleOption(QStyleOptionViewItem* opcion, const QModelIndex& celda) const override;

private:
    struct Colores
    {
        QColor fondo;
        QColor letra;
        QColor marco; ///< of the current cell
    };
    [[nodiscard]] Colores coloresDe(int fila) const;
    [[nodiscard]] const ColumnaDeGrilla& columna(const QModelIndex& celda) const;
    [[nodiscard]] QWidget* editorDeLista(QWidget* padre, const ColumnaDeGrilla& columna) const;
    bool teclaDelEditor(QWidget* editor, const QKeyEvent& evento);

    Grilla* m_grilla;
    std::unique_ptr<Edicion> m_edicion;
    bool m_coloresDelUsuario; ///< he has asked for high contrast
};

/// The cell being edited: there is one at most.
class Grilla::Edicion
{
public:
    Edicion(Grilla* grilla, Delegado* delegado)
        : m_grilla(grilla)
        , m_delegado(delegado)
    {
    }
    void empezar(QWidget* editor, const QModelIndex& celda);
    [[nodiscard]] QWidget* editor() const { return m_editor; } ///< none while nothing is edited
    /// True when the editor's text can be stored; else shows why not, once.
    [[nodiscard]] bool aceptable(const QWidget* editor) const;
    /// What the editor's text would be in the cell.
    [[nodiscard]] LecturaDeCelda leida(const QWidget* editor) const;
    void guardar(QWidget* editor);
    void cancelar();
    /// Puts the editor's text into the cell, when the user has touched it and it can stand there.
    void almacenar(const QWidget* editor);
    /// Tells of the cell just stored, once its editor is closed.
    void avisarEditada();

private:
    Grilla* m_grilla;
    Delegado* m_delegado;
    QPointer<QWidget> m_editor;
    QPersistentModelIndex m_celda;
    QPersistentModelIndex m_guardada; ///< stored and not yet told
};

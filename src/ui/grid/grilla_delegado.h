#pragma once

#include "ui/grid/grilla.h"

#include <QStyledItemDelegate>

/// Paints the cells of a grid and makes their editors.
class Grilla::Delegado : public QStyledItemDelegate
{
public:
    explicit Delegado(Grilla* grilla);

    bool pintaActual = false;
    /// An editor opened with F2 or a double click drops its list down; one opened by typing does not.
    bool abrirLista = false;

    [[nodiscard]] bool editando() const;
    /// True when the editor's text can be stored; else shows why not, once.
    bool aceptable(QWidget* editor);
    void guardar(QWidget* editor);
    void cancelar();
    /// Tells of the cell just stored, once its editor is closed.
    void avisarEditada();
    [[nodiscard]] QWidget* editor() const { return m_editor; }

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
    bool m_coloresDelUsuario;           ///< he has asked for high contrast
    mutable QPointer<QWidget> m_editor; ///< there is one at most
    mutable QPersistentModelIndex m_celda;
    mutable QPersistentModelIndex m_guardada; ///< stored and not yet told
};

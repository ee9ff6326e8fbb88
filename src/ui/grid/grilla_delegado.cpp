#include "ui/grid/grilla_delegado.h"

#include "ui/doors/contraste.h"
#include "ui/doors/mensajes.h"
#include "ui/grid/editor_de_texto.h"
#include "ui/grid/grilla_modelo.h"
#include "ui/shell/campos.h"
#include "ui/shell/validacion.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

namespace
{
/// List editor that tells a choice made in the open list from a move by key in the closed one.
class ListaDeCelda : public QComboBox
{
public:
    using QComboBox::QComboBox;
    [[nodiscard]] bool eligeEnLista() const { return m_abierta; }
    void showPopup() override
    {
        m_abierta = true;
        QComboBox::showPopup();
    }
    void hidePopup() override
    {
        QComboBox::hidePopup();
        QMetaObject::invokeMethod(
            this, [this] { m_abierta = false; }, Qt::QueuedConnection); // the choice comes first
    }

private:
    bool m_abierta = false;
};

QString textoDelEditor(const QWidget* editor)
{
    if (const auto* lista = qobject_cast<const QComboBox*>(editor))
    {
        return lista->currentText();
    }
    return qobject_cast<const QLineEdit*>(editor)->displayText();
}

/// Did the user type, or choose something else than what stood there?
bool tocado(const QWidget* editor, const QModelIndex& celda)
{
    if (const auto* linea = qobject_cast<const QLineEdit*>(editor))
    {
        return linea->isModified();
    }
    const QString elegido = textoDelEditor(editor);
    return !elegido.isEmpty() && elegido != celda.data(Qt::EditRole).toString();
}

constexpr QColor marcoDeCelda{0x14, 0x3f, 0x5e};
constexpr QColor bordeDeTilde{0xb0, 0xbb, 0xc4};
constexpr QColor filaMarcada{0xcf, 0xe3, 0xf2};
constexpr QColor amarilloInactivo{0xf4, 0xf1, 0xb8};
} // namespace

Grilla::Delegado::Delegado(Grilla* grilla)
    : QStyledItemDelegate(grilla)
    , m_grilla(grilla)
    , m_edicion(std::make_unique<Edicion>(grilla, this))
    , m_coloresDelUsuario(altoContraste())
{
}

Grilla::Delegado::~Delegado() = default;

const ColumnaDeGrilla& Grilla::Delegado::columna(const QModelIndex& celda) const
{
    return m_grilla->m_modelo->columna(celda);
}

QColor Grilla::Delegado::fondo(int fila) const
{
    if (pintaActual && fila == m_grilla->currentIndex().row())
    {
        return Grilla::amarillo;
    }
    return QColor::fromRgb(m_grilla->m_modelo->color(fila));
}

Grilla::Delegado::Colores Grilla::Delegado::coloresDe(int fila) const
{
    const QPalette paleta = m_grilla->palette();
    const bool amarilla = fondo(fila) == Grilla::amarillo;
    if (m_coloresDelUsuario) // a yellow row is his chosen one; what another colour tells, the row's text tells too
    {
        const QColor letra = paleta.color(amarilla ? QPalette::HighlightedText : QPalette::Text);
        return {paleta.color(amarilla ? QPalette::Highlight : QPalette::Base), letra, letra};
    }
    if (!m_grilla->isEnabled())
    {
        return {amarilla ? amarilloInactivo : paleta.color(QPalette::Base),
                paleta.color(QPalette::Disabled, QPalette::Text), marcoDeCelda};
    }
    return {fondo(fila), Qt::black, marcoDeCelda};
}

void Grilla::Delegado::initStyleOption(QStyleOptionViewItem* opcion, const QModelIndex& celda) const
{
    QStyledItemDelegate::initStyleOption(opcion, celda);
    opcion->state &= ~(QStyle::State_Selected | QStyle::State_HasFocus); // their tint would spoil the row's colour
    opcion->features &= ~QStyleOptionViewItem::HasCheckIndicator;        // painted in the middle of the cell
}

void Grilla::Delegado::paint(QPainter* pintor, const QStyleOptionViewItem& opcion, const QModelIndex& celda) const
{
    Colores colores = coloresDe(celda.row());
    if (m_grilla->m_variasMarcadas && (opcion.state & QStyle::State_Selected) && m_grilla->isEnabled() &&
        fondo(celda.row()) != Grilla::amarillo)
    {
        const QPalette& paleta = m_grilla->palette();
        colores.fondo = m_coloresDelUsuario ? paleta.color(QPalette::Highlight) : filaMarcada;
        colores.letra = m_coloresDelUsuario ? paleta.color(QPalette::HighlightedText) : colores.letra;
        colores.marco = m_coloresDelUsuario ? colores.letra : colores.marco;
    }
    pintor->fillRect(opcion.rect, colores.fondo);

    QStyleOptionViewItem pintada = opcion;
    pintada.palette.setColor(QPalette::All, QPalette::Text, colores.letra);
    QStyledItemDelegate::paint(pintor, pintada, celda);

    if (columna(celda).clase == ColumnaDeGrilla::Tilde)
    {
        QStyleOptionViewItem marca = m_coloresDelUsuario ? opcion : pintada; // its box has a ground of its own
        const QColor borde = m_coloresDelUsuario ? marca.palette.color(QPalette::Text) : bordeDeTilde;
        marca.palette.setColor(QPalette::Window, borde); // the outline is drawn a shade darker
        marca.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus);
        marca.state |= celda.data(Qt::CheckStateRole).toInt() == Qt::Checked ? QStyle::State_On : QStyle::State_Off;
        const QStyle* estilo = m_grilla->style();
        const QSize lado(estilo->pixelMetric(QStyle::PM_IndicatorWidth, &marca, m_grilla),
                         estilo->pixelMetric(QStyle::PM_IndicatorHeight, &marca, m_grilla));
        marca.rect = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, lado, opcion.rect);
        estilo->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &marca, pintor, m_grilla);
    }
    if (m_grilla->isEnabled() && m_grilla->hasFocus() && celda == m_grilla->currentIndex())
    {
        pintor->save();
        pintor->setRenderHint(QPainter::Antialiasing, false);
        pintor->setBrush(Qt::NoBrush);
        pintor->setPen(QPen(colores.marco, 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        pintor->drawRect(opcion.rect.adjusted(1, 1, -1, -1));
        pintor->restore();
    }
}

QWidget* Grilla::Delegado::editorDeLista(QWidget* padre, const ColumnaDeGrilla& columna) const
{
    auto* lista = new ListaDeCelda(padre);
    lista->addItems(columna.opciones);
    QObject::connect(lista, &QComboBox::activated, this,
                     [edicion = m_edicion.get(), lista]
                     {
                         if (lista->eligeEnLista())
                         {
                             edicion->guardar(lista);
                         }
                     });
    if (abrirLista)
    {
        QMetaObject::invokeMethod(
            lista, [lista] { lista->showPopup(); }, Qt::QueuedConnection);
    }
    return lista;
}

QWidget* Grilla::Delegado::createEditor(QWidget* padre, const QStyleOptionViewItem&, const QModelIndex& celda) const
{
    const ColumnaDeGrilla& col = columna(celda);
    QWidget* editor = col.clase == ColumnaDeGrilla::Lista ? editorDeLista(padre, col) : new EditorDeTexto(col, padre);
    editor->setAccessibleName(col.titulo);
    m_edicion->empezar(editor, celda);
    return editor;
}

void Grilla::Delegado::setEditorData(QWidget* editor, const QModelIndex& celda) const
{
    const QString texto = celda.data(Qt::EditRole).toString();
    if (auto* lista = qobject_cast<QComboBox*>(editor))
    {
        lista->setCurrentIndex(lista->findText(texto));
        return;
    }
    auto* linea = qobject_cast<QLineEdit*>(editor);
    linea->setText(texto);
    linea->selectAll();
}

void Grilla::Delegado::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex&) const
{
    m_edicion->almacenar(editor);
}

void Grilla::Delegado::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& opcion,
                                            const QModelIndex&) const
{
    editor->setGeometry(opcion.rect);
}

bool Grilla::Delegado::teclaDelEditor(QWidget* editor, const QKeyEvent& evento)
{
    const int codigo = evento.key();
    const bool enLista = qobject_cast<QComboBox*>(editor) != nullptr;
    switch (codigo)
    {
    case Qt::Key_Escape:
        m_edicion->cancelar();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        if (enLista)
        {
            return false; // they change the choice
        }
        break;
    case Qt::Key_Enter:
    case Qt::Key_Return:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        break;
    default:
        return false;
    }
    if (evento.modifiers() & (Qt::ControlModifier | Qt::AltModifier))
    {
        return false;
    }
    if (m_edicion->aceptable(editor))
    {
        const QPointer<Delegado> yo = this;
        m_edicion->guardar(editor);
        if (yo)
        {
            m_grilla->seguirDespuesDeEditar(codigo);
        }
    }
    return true;
}

bool Grilla::Delegado::eventFilter(QObject* objeto, QEvent* evento)
{
    auto* editor = qobject_cast<QWidget*>(objeto);
    if (editor == nullptr || editor != m_edicion->editor())
    {
        return false;
    }
    switch (evento->type())
    {
    case QEvent::ShortcutOverride: // or Escape closes the dialog
        if (static_cast<QKeyEvent*>(evento)->key() == Qt::Key_Escape)
        {
            evento->accept();
            return true;
        }
        return false;
    case QEvent::KeyPress:
        return teclaDelEditor(editor, *static_cast<QKeyEvent*>(evento));
    case QEvent::FocusOut:
    {
        // A box, another window or the editor's own list takes the focus for a while only. A text that cannot be stored
        // stays: the leaving check tells so and brings the focus back.
        const auto motivo = static_cast<QFocusEvent*>(evento)->reason();
        if (motivo != Qt::ActiveWindowFocusReason && motivo != Qt::PopupFocusReason && !campos::tieneElFoco(editor) &&
            m_edicion->leida(editor).error.isEmpty())
        {
            m_edicion->guardar(editor);
        }
        return false;
    }
    default:
        return false;
    }
}

bool Grilla::Delegado::editorEvent(QEvent*, QAbstractItemModel*, const QStyleOptionViewItem&, const QModelIndex&)
{
    return false; // ticks are the grid's own
}

// ---- the cell being edited

void Grilla::Edicion::empezar(QWidget* editor, const QModelIndex& celda)
{
    m_editor = editor;
    m_celda = celda;
    const QPointer<QWidget> vivo = editor;
    Validacion::instancia().alDejarEditor(
        editor, [this, vivo] { return !vivo || aceptable(vivo); },
        [this, vivo]
        {
            if (vivo)
            {
                guardar(vivo);
            }
        });
}

LecturaDeCelda Grilla::Edicion::leida(const QWidget* editor) const
{
    return leerCelda(m_grilla->m_modelo->columna(m_celda), textoDelEditor(editor));
}

bool Grilla::Edicion::aceptable(const QWidget* editor) const
{
    if (editor != m_editor || !m_celda.isValid() || !tocado(editor, m_celda))
    {
        return true;
    }
    const QString error = leida(editor).error;
    if (!error.isEmpty())
    {
        MsgBox(error, Caja::Informacion);
    }
    return error.isEmpty();
}

void Grilla::Edicion::almacenar(const QWidget* editor)
{
    if (editor != m_editor || !m_celda.isValid() || !tocado(editor, m_celda))
    {
        return;
    }
    const LecturaDeCelda nueva = leida(editor);
    if (nueva.error.isEmpty())
    {
        m_grilla->m_modelo->poner(m_grilla->columnaDe(m_celda) - 1, m_celda.row(), nueva.valor);
        m_grilla->tipeada(m_grilla->columnaDe(m_celda), m_celda.row() + 1);
        m_guardada = m_celda;
    }
}

void Grilla::Edicion::guardar(QWidget* editor)
{
    if (editor != m_editor)
    {
        return;
    }
    const QPointer<QWidget> vivo = editor;
    const QPointer<Delegado> yo = m_delegado;
    Q_EMIT m_delegado->commitData(editor);
    if (yo && vivo && m_editor == vivo)
    {
        m_editor = nullptr; // closing moves the focus, which would store a second time
        Q_EMIT m_delegado->closeEditor(vivo, QAbstractItemDelegate::NoHint);
    }
    if (yo)
    {
        avisarEditada();
    }
}

void Grilla::Edicion::avisarEditada()
{
    if (m_guardada.isValid())
    {
        const QModelIndex celda = m_guardada;
        m_guardada = QPersistentModelIndex();
        Q_EMIT m_grilla->celdaEditada(m_grilla->columnaDe(celda), celda.row() + 1);
    }
}

void Grilla::Edicion::cancelar()
{
    if (QWidget* editor = m_editor)
    {
        m_editor = nullptr;
        Q_EMIT m_delegado->closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
    }
}

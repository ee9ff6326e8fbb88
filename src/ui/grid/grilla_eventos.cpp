// What the keyboard, the mouse and the focus do to a grid.
#include "ui/doors/anuncio.h"
#include "ui/fields/busqueda_por_letras.h"
#include "ui/grid/editor_de_texto.h"
#include "ui/grid/grilla_delegado.h"
#include "ui/grid/grilla_modelo.h"
#include "ui/grid/grilla_orden.h"
#include "ui/grid/grilla_planilla.h"
#include "ui/shell/campos.h"
#include "ui/shell/contenedores.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <algorithm>

void Grilla::currentChanged(const QModelIndex& actual, const QModelIndex& anterior)
{
    QTableView::currentChanged(actual, anterior);
    viewport()->update(); // the yellow is a whole row's
    auto* marco = hasFocus() ? campos::antepasado<MarcoDePantalla>(this) : nullptr;
    if (marco != nullptr)
    {
        marco->mostrarFoco(this);
    }
    if (m_silencio || !actual.isValid())
    {
        return;
    }
    const Salto salto{anterior.isValid() ? columnaDe(anterior) : primeraVisible(),
                      anterior.row() < 0 ? 1 : anterior.row() + 1, columnaDe(actual), actual.row() + 1};
    if (m_entradas == 0)
    {
        Q_EMIT dejarCelda(salto.columna, salto.fila, salto.nuevaColumna, salto.nuevaFila);
    }
    else if (!m_salto)
    {
        m_salto = salto;
    }
    else
    {
        m_salto->nuevaColumna = salto.nuevaColumna;
        m_salto->nuevaFila = salto.nuevaFila;
    }
}

void Grilla::conSalto(const std::function<void()>& entrada)
{
    // A handler may reload the grid or close its screen: it runs when nothing of the view is left on the stack.
    const QPointer<Grilla> yo = this;
    {
        ++m_entradas;
        const auto sale = qScopeGuard(
            [&yo]
            {
                if (yo)
                {
                    --yo->m_entradas;
                }
            });
        entrada();
    }
    if (!yo || m_entradas > 0)
    {
        return;
    }
    m_delegado->edicion().avisarEditada();
    if (yo && m_salto)
    {
        const Salto salto = *std::exchange(m_salto, std::nullopt);
        Q_EMIT dejarCelda(salto.columna, salto.fila, salto.nuevaColumna, salto.nuevaFila);
    }
}

void Grilla::alCambiarFoco(QWidget* nuevo)
{
    if (nuevo == nullptr)
    {
        return;
    }
    if (nuevo == this || isAncestorOf(nuevo))
    {
        m_tieneFoco = true;
        return;
    }
    if (!m_tieneFoco || campos::ventanaDe(nuevo) != campos::ventanaDe(this) ||
        qobject_cast<QMenuBar*>(nuevo) != nullptr)
    {
        return; // boxes, menus, lists and other windows come and go
    }
    m_tieneFoco = false;
    if (currentIndex().isValid())
    {
        Q_EMIT dejarCelda(columnaActual(), filaActual(), -1, -1);
    }
}

void Grilla::focusInEvent(QFocusEvent* evento)
{
    {
        const QScopedValueRollback quieto(m_sinCursor, true);
        QTableView::focusInEvent(evento);
    }
    if (evento->reason() != Qt::MouseFocusReason) // the press chooses
    {
        irALoEditable();
    }
}

bool Grilla::irALoEditable()
{
    if (!m_editable || currentIndex().isValid() || filas() == 0)
    {
        return false;
    }
    conSalto([this] { setCurrentIndex(indice(primeraEditable(), 1)); });
    return true;
}

QModelIndex Grilla::moveCursor(CursorAction accion, Qt::KeyboardModifiers teclas)
{
    if (m_sinCursor) // entering by Tab chooses nothing
    {
        return {};
    }
    const QModelIndex destino = QTableView::moveCursor(accion, teclas);
    const bool porFilas = accion == MoveUp || accion == MoveDown || accion == MovePageUp || accion == MovePageDown;
    const bool fija = destino.isValid() && m_modelo->columna(destino).clase == ColumnaDeGrilla::Fija;
    return m_editable && porFilas && fija ? indice(primeraEditable(), destino.row() + 1) : destino;
}

void Grilla::mousePressEvent(QMouseEvent* evento)
{
    m_presionada = QPersistentModelIndex();
    if (evento->button() != Qt::LeftButton || !confirmarEdicion())
    {
        return;
    }
    m_presionada = indexAt(evento->position().toPoint());
    conSalto([this, evento] { QTableView::mousePressEvent(evento); });
}

void Grilla::mouseMoveEvent(QMouseEvent* evento)
{
    if (evento->buttons() == Qt::NoButton) // dragging does not run through the rows
    {
        QTableView::mouseMoveEvent(evento);
    }
}

void Grilla::mouseReleaseEvent(QMouseEvent* evento)
{
    QTableView::mouseReleaseEvent(evento);
    const QModelIndex celda = std::exchange(m_presionada, QPersistentModelIndex());
    if (evento->button() != Qt::LeftButton || !celda.isValid() ||
        !viewport()->rect().contains(evento->position().toPoint()))
    {
        return;
    }
    const QPointer<Grilla> yo = this;
    const int columna = columnaDe(celda);
    const int fila = celda.row() + 1;
    if (m_modelo->flags(celda) & Qt::ItemIsUserCheckable)
    {
        alternarTilde(celda);
    }
    if (yo)
    {
        Q_EMIT clic(columna, fila);
    }
}

void Grilla::elegir(int fila)
{
    if (fila > 0)
    {
        Q_EMIT elegida(fila);
    }
}

void Grilla::mouseDoubleClickEvent(QMouseEvent* evento)
{
    m_presionada = QPersistentModelIndex();
    const QModelIndex celda = indexAt(evento->position().toPoint());
    if (evento->button() != Qt::LeftButton || !celda.isValid() || !confirmarEdicion())
    {
        return;
    }
    const QPointer<Grilla> yo = this;
    const int columna = columnaDe(celda);
    const int fila = celda.row() + 1;
    if (m_modelo->flags(celda) & Qt::ItemIsUserCheckable)
    {
        alternarTilde(celda); // two quick clicks are two changes
    }
    else
    {
        conSalto([this, evento] { QTableView::mouseDoubleClickEvent(evento); });
    }
    if (yo)
    {
        Q_EMIT dobleClic(columna, fila);
    }
}

void Grilla::keyboardSearch(const QString& letra)
{
    const int columna = std::max(columnaActual(), primeraVisible());
    const int fila = BusquedaPorLetras::seguir(this, letra, filaActual() - 1, filas(),
                                               [&](int i) { return texto(columna, i + 1); }) +
                     1;
    if (fila > 0)
    {
        setCurrentIndex(indice(columna, fila));
    }
    else if (m_delegado->pintaActual)
    {
        setCurrentIndex({}); // it began with no row: Enter must not choose a half match
    }
}

void Grilla::keyPressEvent(QKeyEvent* evento)
{
    const QPointer<Grilla> yo = this;
    const bool hecha = tecla(evento);
    if (!yo || hecha)
    {
        return;
    }
    conSalto([this, evento] { QTableView::keyPressEvent(evento); });
}

bool Grilla::tecla(QKeyEvent* evento)
{
    const bool recienEntra = irALoEditable();
    const QModelIndex actual = currentIndex();
    const bool conMando = evento->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const int codigo = evento->key();
    if (recienEntra && (codigo == Qt::Key_Up || codigo == Qt::Key_Down))
    {
        return true;
    }
    if (codigo == Qt::Key_F10 && evento->modifiers() == Qt::ShiftModifier)
    {
        abrirMenuConTeclado();
        return true;
    }
    if (!conMando && teclaDeFila(codigo))
    {
        return true;
    }
    if (!conMando && (codigo == Qt::Key_Enter || codigo == Qt::Key_Return))
    {
        if (!m_editable && actual.isValid() && isSignalConnected(QMetaMethod::fromSignal(&Grilla::entrar)))
        {
            Q_EMIT entrar(columnaDe(actual), actual.row() + 1);
        }
        else if (!m_editable || !avanzar(1))
        {
            focusNextPrevChild(true);
        }
        return true;
    }
    if (codigo == Qt::Key_Space && actual.isValid() && (m_modelo->flags(actual) & Qt::ItemIsUserCheckable))
    {
        alternarTilde(actual);
        return true;
    }
    if (m_editable && escribe(*evento))
    {
        signo(evento);
        return true; // no jumping about by letters where cells are typed into
    }
    return false;
}

void Grilla::signo(QKeyEvent* evento)
{
    const QModelIndex actual = currentIndex();
    const ColumnaDeGrilla columna = actual.isValid() ? m_modelo->columna(actual) : ColumnaDeGrilla();
    const bool fija = columna.clase == ColumnaDeGrilla::Fija;
    const bool seOye = isSignalConnected(QMetaMethod::fromSignal(&Grilla::teclaEnFija));
    if (fija && seOye && evento->key() != Qt::Key_Space)
    {
        Q_EMIT teclaEnFija(evento->text());
    }
    else if (fija)
    {
        anunciar(QStringLiteral("La columna «%1» no se modifica").arg(columna.titulo));
    }
    else if (admiteEnCelda(columna, evento->text().at(0)))
    {
        edit(actual, AnyKeyPressed, evento);
    }
    else
    {
        anunciar(noEntraEnCelda(columna, evento->text()));
    }
}

bool Grilla::teclaDeFila(int codigo)
{
    const int fila = filaActual();
    if (fila < 1)
    {
        return false;
    }
    if (m_agregar && fila == filas() && (codigo == Qt::Key_Down || codigo == Qt::Key_Insert))
    {
        const QPointer<Grilla> yo = this;
        if (m_agregar() && yo)
        {
            agregarFila();
        }
        return true;
    }
    if (m_quitar && codigo == Qt::Key_Delete)
    {
        const QPointer<Grilla> yo = this;
        if (m_quitar(fila) && yo)
        {
            borrarFila(fila);
            if (filas() == 0)
            {
                setFilas(1);
                setFilaActual(1);
            }
            m_cambiada = true;
        }
        return true;
    }
    return false;
}

void Grilla::agregarFila()
{
    setFilas(filas() + 1);
    conSalto([this] { setCurrentIndex(indice(primeraEditable(), filas())); });
}

void Grilla::contextMenuEvent(QContextMenuEvent* evento)
{
    evento->accept();
    if (evento->reason() == QContextMenuEvent::Keyboard)
    {
        abrirMenuConTeclado();
        return;
    }
    if (!confirmarEdicion())
    {
        return;
    }
    const QModelIndex celda = indexAt(viewport()->mapFromGlobal(evento->globalPos()));
    if (m_planilla->pegable() && celda.isValid()) // what is pasted goes where the menu was asked for
    {
        conSalto([this, celda] { setCurrentIndex(celda); });
    }
    abrirMenu(evento->globalPos());
}

void Grilla::abrirMenuConTeclado()
{
    const QRect celda = visualRect(currentIndex()).intersected(viewport()->rect());
    abrirMenu(viewport()->mapToGlobal(celda.isValid() ? celda.bottomLeft() : QPoint()));
}

void Grilla::abrirMenu(QPoint lugar)
{
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addActions(actions());
    menu->popup(lugar);
}

QItemSelectionModel::SelectionFlags Grilla::selectionCommand(const QModelIndex& celda, const QEvent* evento) const
{
    // What the program moves to is marked alone, whatever keys are held down meanwhile.
    return evento != nullptr ? QTableView::selectionCommand(celda, evento)
                             : QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
}

void Grilla::selectionChanged(const QItemSelection& marcadas, const QItemSelection& anteriores)
{
    QTableView::selectionChanged(marcadas, anteriores);
    const QItemSelection todas = selectionModel()->selection();
    const bool varias = std::any_of(todas.cbegin(), todas.cend(),
                                    [&](const QItemSelectionRange& tramo)
                                    { return tramo.top() != todas.front().top() || tramo.height() > 1; });
    if (varias || m_variasMarcadas)
    {
        viewport()->update(); // the current row shows its mark only beside others
    }
    m_variasMarcadas = varias;
}

std::vector<int> Grilla::filasMarcadas() const
{
    std::vector<int> filas;
    const QItemSelection marcadas = selectionModel()->selection();
    for (const QItemSelectionRange& tramo : marcadas)
    {
        for (int fila = tramo.top(); fila <= tramo.bottom(); ++fila)
        {
            filas.push_back(fila + 1);
        }
    }
    std::sort(filas.begin(), filas.end());
    filas.erase(std::unique(filas.begin(), filas.end()), filas.end());
    return filas;
}

void Grilla::setOrdenable()
{
    horizontalHeader()->setSortIndicatorShown(true);
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, // the header has turned its own mark by then
            [this](int seccion) { ordenar(m_modelo->propia(seccion) + 1, horizontalHeader()->sortIndicatorOrder()); });
}

void Grilla::ordenar(int columna, Qt::SortOrder sentido)
{
    const std::vector<int> orden = ordenDeFilas(*this, columna, sentido);
    const QScopedValueRollback callado(m_silencio, true);
    cancelarEdicion();
    m_planilla->olvidarPegado();
    const int columnaAntes = columnaActual();
    const auto actual = std::find(orden.begin(), orden.end(), filaActual() - 1);
    m_modelo->ordenar(orden);
    if (actual != orden.end())
    {
        setFilaActual(int(actual - orden.begin()) + 1, columnaAntes); // the same row, wherever it is now
    }
}

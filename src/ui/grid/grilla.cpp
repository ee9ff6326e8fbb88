#include "ui/grid/grilla.h"

#include "ui/fields/anchos.h"
#include "ui/grid/grilla_delegado.h"
#include "ui/grid/grilla_modelo.h"
#include "ui/grid/grilla_planilla.h"

#include <QApplication>
#include <QHeaderView>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>

const QColor Grilla::amarillo{0xff, 0xff, 0x00};
const QColor Grilla::blanco{0xff, 0xff, 0xff};

Grilla::Grilla(QWidget* padre)
    : QTableView(padre)
    , m_modelo(new Modelo(this))
    , m_delegado(new Delegado(this))
    , m_planilla(std::make_unique<Planilla>(this))
{
    setModel(m_modelo);
    setItemDelegate(m_delegado);
    setSelectionMode(ExtendedSelection); // of rows to copy; what is chosen is the current one
    setSelectionBehavior(SelectRows);    // a press on the header must not move the current cell
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setTabKeyNavigation(false); // Tab leads out of the grid
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(true);
    medir();
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this](int seccion) { Q_EMIT clic(m_modelo->propia(seccion) + 1, 0); });
    connect(horizontalHeader(), &QHeaderView::sectionDoubleClicked, this,
            [this](int seccion) { Q_EMIT dobleClic(m_modelo->propia(seccion) + 1, 0); });
    connect(this, &Grilla::clic, this, [this](int, int fila) { elegir(fila); });
    connect(this, &Grilla::dejarCelda, this, [this](int, int, int, int nuevaFila) { elegir(nuevaFila); });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* nuevo) { alCambiarFoco(nuevo); });
}

Grilla::~Grilla()
{
    // The classes below still lose the focus and their current cell while they go.
    m_silencio = true;
    disconnect(qApp, nullptr, this, nullptr);
    cancelarEdicion();
}

// ---- rows and cells

void Grilla::setColumnas(std::vector<ColumnaDeGrilla> columnas)
{
    const QScopedValueRollback callado(m_silencio, true);
    cancelarEdicion();
    m_planilla->olvidarPegado();
    m_modelo->setColumnas(std::move(columnas));
    medir();
}

void Grilla::setOpciones(int columna, const QStringList& opciones)
{
    if (columna >= 1 && columna <= columnas())
    {
        m_modelo->setOpciones(columna - 1, opciones);
    }
}

int Grilla::filas() const
{
    return m_modelo->rowCount();
}

int Grilla::columnas() const
{
    return m_modelo->columnas();
}

void Grilla::setFilas(int filas)
{
    const QScopedValueRollback callado(m_silencio, true);
    if (editando() && filas < filaActual())
    {
        cancelarEdicion();
    }
    const bool sobrevive = filaActual() <= filas;
    m_planilla->olvidarPegado();
    m_modelo->setFilas(std::max(0, filas));
    if (!sobrevive)
    {
        setCurrentIndex({});
    }
}

void Grilla::cargar(std::vector<FilaDeGrilla> filas)
{
    const QScopedValueRollback callado(m_silencio, true);
    cancelarEdicion();
    m_planilla->olvidarPegado();
    m_modelo->cargar(std::move(filas));
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    scrollToTop();
}

QVariant Grilla::valor(int columna, int fila) const
{
    return m_modelo->valor(columna - 1, fila - 1);
}

void Grilla::setValor(int columna, int fila, const QVariant& valor)
{
    if (m_modelo->contiene(columna - 1, fila - 1))
    {
        m_modelo->poner(columna - 1, fila - 1, valor);
        m_planilla->soltar(columna, fila);
        viewport()->update(); // a load of many cells paints once
    }
}

QString Grilla::texto(int columna, int fila) const
{
    if (fila == 0)
    {
        return columna >= 1 && columna <= columnas() ? m_modelo->columna(columna - 1).titulo : QString();
    }
    return m_modelo->contiene(columna - 1, fila - 1)
               ? textoDeCelda(m_modelo->columna(columna - 1), valor(columna, fila))
               : QString();
}

bool Grilla::celdaVacia(int columna, int fila) const
{
    return ::celdaVacia(valor(columna, fila));
}

void Grilla::borrarFila(int fila)
{
    if (fila < 1 || fila > filas())
    {
        return;
    }
    const QScopedValueRollback callado(m_silencio, true);
    cancelarEdicion();
    m_planilla->olvidarPegado();
    const int actual = filaActual();
    const int columna = columnaActual();
    m_modelo->borrar(fila - 1);
    if (actual > 0)
    {
        setFilaActual(std::min(actual > fila ? actual - 1 : actual, filas()), columna);
    }
}

QModelIndex Grilla::indice(int columna, int fila) const
{
    const int vista = m_modelo->vista(columna - 1);
    return vista >= 0 && m_modelo->contiene(columna - 1, fila - 1) ? m_modelo->index(fila - 1, vista) : QModelIndex();
}

const ColumnaDeGrilla& Grilla::columna(int columna) const
{
    return m_modelo->columna(columna - 1);
}

bool Grilla::seVe(int columna) const
{
    return m_modelo->vista(columna - 1) >= 0;
}

int Grilla::columnaDe(const QModelIndex& celda) const
{
    return celda.isValid() ? m_modelo->propia(celda.column()) + 1 : 0;
}

int Grilla::primeraVisible() const
{
    return m_modelo->columnCount() > 0 ? m_modelo->propia(0) + 1 : 1;
}

int Grilla::primeraEditable() const
{
    for (int columna = 1; m_editable && columna <= columnas(); ++columna)
    {
        if (seVe(columna) && m_modelo->columna(columna - 1).clase != ColumnaDeGrilla::Fija)
        {
            return columna;
        }
    }
    return primeraVisible();
}

int Grilla::columnaActual() const
{
    return columnaDe(currentIndex());
}

void Grilla::setFilaActual(int fila, int columna)
{
    const QScopedValueRollback callado(m_silencio, true);
    setCurrentIndex(indice(seVe(columna) ? columna : primeraVisible(), fila));
}

// ---- painting and measures

void Grilla::pintarTodo(QColor color)
{
    m_modelo->pintarTodo(color.rgb());
    viewport()->update();
}

void Grilla::pintarFila(int fila, QColor color)
{
    if (m_modelo->contiene(0, fila - 1))
    {
        m_modelo->pintar(fila - 1, color.rgb());
        viewport()->update();
    }
}

QColor Grilla::colorDeFila(int fila) const
{
    return m_modelo->contiene(0, fila - 1) ? m_delegado->fondo(fila - 1) : blanco;
}

void Grilla::setPintaActual(bool pinta)
{
    m_delegado->pintaActual = pinta;
    viewport()->update();
}

void Grilla::setTextoVacio(const QString& texto)
{
    m_textoVacio = texto;
    viewport()->update();
}

void Grilla::paintEvent(QPaintEvent* evento)
{
    QTableView::paintEvent(evento);
    if (filas() == 0 && !m_textoVacio.isEmpty())
    {
        QPainter pintor(viewport());
        pintor.setPen(palette().color(QPalette::PlaceholderText));
        constexpr int margen = 12;
        pintor.drawText(viewport()->rect().adjusted(margen, margen, -margen, -margen), Qt::AlignHCenter | Qt::AlignTop,
                        m_textoVacio);
    }
}

void Grilla::medir()
{
    ensurePolished();
    const QFontMetrics letra = fontMetrics();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(letra.height() + 9);
    const double escala = std::clamp(fontInfo().pixelSize() / double(letraDeFormularios), 0.75, 6.0);
    QHeaderView* cabeza = horizontalHeader();
    for (int i = 0; i < m_modelo->columnCount(); ++i)
    {
        const int ancho = m_modelo->columna(m_modelo->propia(i)).ancho;
        cabeza->setSectionResizeMode(i, ancho < 0 ? QHeaderView::Stretch : QHeaderView::Interactive);
        if (ancho > 0)
        {
            setColumnWidth(i, std::max(qRound(ancho * escala), cabeza->sectionSizeHint(i)));
        }
    }
}

QSize Grilla::sizeHint() const
{
    int ancho = 2 * frameWidth() + verticalScrollBar()->sizeHint().width();
    for (int i = 0; i < m_modelo->columnCount(); ++i)
    {
        const int pedido = m_modelo->columna(m_modelo->propia(i)).ancho;
        ancho += pedido < 0 ? horizontalHeader()->sectionSizeHint(i) * 2 : columnWidth(i);
    }
    const int alto = 8 * verticalHeader()->defaultSectionSize() + horizontalHeader()->sizeHint().height();
    return {ancho, alto + 2 * frameWidth()};
}

void Grilla::changeEvent(QEvent* evento)
{
    QTableView::changeEvent(evento);
    if (evento->type() == QEvent::FontChange || evento->type() == QEvent::StyleChange)
    {
        medir();
    }
    else if (evento->type() == QEvent::EnabledChange && !isEnabled())
    {
        cancelarEdicion();
    }
}

void Grilla::setNombreDePlanilla(const QString& nombre)
{
    m_planilla->nombre = nombre;
}

void Grilla::setPegable(int columnaClave)
{
    m_planilla->setPegable(columnaClave);
}

// ---- editing

void Grilla::setCambiada(bool cambiada)
{
    m_cambiada = cambiada;
    if (!cambiada)
    {
        m_planilla->olvidarPegado(); // what it would bring back is no longer what is stored
    }
}

void Grilla::tipeada(int columna, int fila)
{
    m_cambiada = true;
    m_planilla->tipeada(columna, fila);
}

void Grilla::setEditable(bool editable)
{
    if (!editable)
    {
        cancelarEdicion();
    }
    m_editable = editable;
    m_modelo->editable = editable;
}

void Grilla::setTeclasDeFila(std::function<bool()> agregar, std::function<bool(int)> quitar)
{
    m_agregar = std::move(agregar);
    m_quitar = std::move(quitar);
}

bool Grilla::editando() const
{
    return m_delegado->edicion().editor() != nullptr;
}

bool Grilla::confirmarEdicion()
{
    const QPointer<QWidget> editor = m_delegado->edicion().editor();
    if (editor == nullptr)
    {
        return true;
    }
    if (m_delegado->edicion().aceptable(editor))
    {
        m_delegado->edicion().guardar(editor);
        return true;
    }
    if (editor)
    {
        editor->setFocus(Qt::OtherFocusReason);
        if (auto* linea = qobject_cast<QLineEdit*>(editor.data()))
        {
            linea->selectAll();
        }
    }
    return false;
}

void Grilla::cancelarEdicion()
{
    m_delegado->edicion().cancelar();
}

bool Grilla::edit(const QModelIndex& celda, EditTrigger disparo, QEvent* evento)
{
    m_delegado->abrirLista = disparo != AnyKeyPressed;
    return QTableView::edit(celda, disparo, evento);
}

void Grilla::alternarTilde(const QModelIndex& celda)
{
    m_modelo->poner(columnaDe(celda) - 1, celda.row(), celda.data(Qt::CheckStateRole).toInt() != Qt::Checked);
    tipeada(columnaDe(celda), celda.row() + 1);
    viewport()->update();
    Q_EMIT celdaEditada(columnaDe(celda), celda.row() + 1);
}

QModelIndex Grilla::siguienteEditable(int paso) const
{
    const QModelIndex actual = currentIndex();
    const int ancho = m_modelo->columnCount();
    const int celdas = ancho * filas();
    for (int i = actual.row() * ancho + actual.column() + paso; actual.isValid() && i >= 0 && i < celdas; i += paso)
    {
        const QModelIndex celda = m_modelo->index(i / ancho, i % ancho);
        if (m_modelo->columna(celda).clase != ColumnaDeGrilla::Fija)
        {
            return celda;
        }
        if (std::abs(i - (actual.row() * ancho + actual.column())) > 2 * ancho)
        {
            break; // nothing to edit in this grid
        }
    }
    return {};
}

bool Grilla::avanzar(int paso)
{
    const QModelIndex celda = siguienteEditable(paso);
    if (celda.isValid())
    {
        conSalto([this, celda] { setCurrentIndex(celda); });
    }
    return celda.isValid();
}

void Grilla::seguirDespuesDeEditar(int codigo)
{
    switch (codigo)
    {
    case Qt::Key_Enter:
    case Qt::Key_Return:
        avanzar(1);
        break;
    case Qt::Key_Tab:
        if (!avanzar(1))
        {
            focusNextPrevChild(true);
        }
        break;
    case Qt::Key_Backtab:
        if (!avanzar(-1))
        {
            focusNextPrevChild(false);
        }
        break;
    default: // a move up or down, that may add a row
        QKeyEvent pulsada(QEvent::KeyPress, codigo, Qt::NoModifier);
        keyPressEvent(&pulsada);
    }
}

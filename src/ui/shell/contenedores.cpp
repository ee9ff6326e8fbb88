#include "ui/shell/contenedores.h"

#include "ui/shell/campos.h"
#include "ui/shell/navegacion.h"
#include "ui/shell/trabajo_largo.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>

namespace
{
/// Puts the cursor back where the screen's load left it: a screen that moves into its window forgets it.
void ponerFoco(const QPointer<QWidget>& inicial)
{
    if (!inicial.isNull())
    {
        inicial->setFocus();
    }
}

/// A screen that customizes its window keeps its own buttons: without those to minimize and maximize, say.
Qt::WindowFlags marco(const Pantalla& pantalla)
{
    return pantalla.windowFlags().testFlag(Qt::CustomizeWindowHint) ? Qt::SubWindow | pantalla.windowFlags()
                                                                    : Qt::WindowFlags();
}

/// The size that a window takes in a place: with room for the bar that a lack of the other room brings.
QSize tamanoEn(const QWidget& ventana, QSize lugar)
{
    const int barra = ventana.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &ventana);
    QSize pedido = ventana.sizeHint().expandedTo(ventana.minimumSizeHint());
    const bool baja = pedido.height() > lugar.height();
    const bool angosta = pedido.width() > lugar.width();
    pedido += QSize(baja ? barra : 0, angosta ? barra : 0);
    return pedido.boundedTo(lugar);
}
} // namespace

MarcoDePantalla::MarcoDePantalla(Pantalla* pantalla)
{
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(pantalla);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* nuevo) { mostrarFoco(nuevo); });
}

MarcoDePantalla::~MarcoDePantalla()
{
    disconnect(qApp, nullptr, this, nullptr); // the screen loses the focus after this frame has ended
}

QSize MarcoDePantalla::sizeHint() const
{
    return widget() != nullptr
               ? widget()->sizeHint().expandedTo(widget()->minimumSizeHint()).expandedTo(widget()->minimumSize())
               : QSize();
}

QSize MarcoDePantalla::minimumSizeHint() const
{
    constexpr QSize menor{160, 80};
    return sizeHint().boundedTo(menor);
}

void MarcoDePantalla::closeEvent(QCloseEvent* evento)
{
    evento->setAccepted(widget() == nullptr || widget()->close()); // asks the screen
}

void MarcoDePantalla::resizeEvent(QResizeEvent* evento)
{
    QScrollArea::resizeEvent(evento);
    mostrarFoco(QApplication::focusWidget());
}

void MarcoDePantalla::mostrarFoco(QWidget* control)
{
    // What is clicked is in sight, and must not move away under the mouse.
    const bool conTeclado = QGuiApplication::mouseButtons() == Qt::NoButton;
    if (conTeclado && control != nullptr && isAncestorOf(control) && control != widget())
    {
        // The whole of it; the toolkit is content with the cursor.
        const auto mostrar = [this](const QRect& lugar)
        {
            const auto margen = [](int hay, int mide) { return qBound(0, (hay - mide) / 2, 8); };
            const int aLoAncho = margen(viewport()->width(), lugar.width());
            const int aLoAlto = margen(viewport()->height(), lugar.height());
            ensureVisible(lugar.right(), lugar.bottom(), aLoAncho, aLoAlto);
            ensureVisible(lugar.left(), lugar.top(), aLoAncho, aLoAlto);
        };
        mostrar({control->mapTo(widget(), QPoint()), control->size()});
        const auto* vista = qobject_cast<const QAbstractItemView*>(control);
        if (vista != nullptr && vista->currentIndex().isValid())
        {
            const QRect celda = vista->visualRect(vista->currentIndex());
            mostrar({vista->viewport()->mapTo(widget(), celda.topLeft()), celda.size()});
        }
    }
}

void MarcoDePantalla::keyPressEvent(QKeyEvent* evento)
{
    QScrollArea::keyPressEvent(evento);
    QWidget* foco = QApplication::focusWidget();
    if (campos::entraComoTab(foco)) // what is typed stays in sight; with a button at work the keys go on scrolling
    {
        mostrarFoco(foco);
    }
}

VentanaHija::VentanaHija(Pantalla* pantalla)
    : QMdiSubWindow(nullptr, marco(*pantalla))
    , m_pantalla(pantalla)
{
    const QPointer<QWidget> inicial = pantalla->focusWidget();
    setAttribute(Qt::WA_DeleteOnClose);
    setWidget(new MarcoDePantalla(pantalla));
    ponerFoco(inicial);
    setWindowIcon(pantalla->windowIcon());
    for (QAction* orden : systemMenu()->actions())
    {
        if (!orden->shortcuts().isEmpty()) // to close it, by other keys on each system
        {
            orden->setShortcuts({Qt::CTRL | Qt::Key_F4, Qt::CTRL | Qt::Key_W});
        }
    }
    setObjectName(QStringLiteral("hija_") + pantalla->objectName());
    setWindowTitle(pantalla->windowTitle());
    connect(pantalla, &QWidget::windowTitleChanged, this, &QWidget::setWindowTitle);
    connect(pantalla, &Pantalla::pideCerrar, this, &QWidget::close);
}

Pantalla* VentanaHija::pantalla() const
{
    return m_pantalla.isNull() || m_pantalla->cerrada() ? nullptr : m_pantalla.data();
}

void VentanaHija::centrar(QSize area)
{
    resize(tamanoEn(*this, area));
    m_encogida = size() != sizeHint();
    move(qMax(0, (area.width() - width()) / 2), qMax(0, (area.height() - height()) / 2));
}

void VentanaHija::acomodar(QSize area)
{
    if (isMaximized() || isMinimized())
    {
        return;
    }
    const bool cabe = size() == size().boundedTo(area);
    if (m_encogida || !cabe)
    {
        resize(tamanoEn(*this, area));
        m_encogida = size() != sizeHint();
    }
    move(qBound(0, x(), qMax(0, area.width() - width())), qBound(0, y(), qMax(0, area.height() - height())));
}

void VentanaHija::recordarFoco()
{
    QWidget* foco = QApplication::focusWidget();
    if (foco != nullptr && foco != this && isAncestorOf(foco))
    {
        m_foco = foco;
    }
}

void VentanaHija::devolverFoco()
{
    if (!m_foco.isNull() && isAncestorOf(m_foco) && m_foco->isVisible() && m_foco->isEnabled())
    {
        m_foco->setFocus(Qt::ActiveWindowFocusReason);
    }
}

void VentanaHija::closeEvent(QCloseEvent* evento)
{
    if (TrabajoLargo::enCurso() && pantalla() != nullptr)
    {
        evento->ignore();
        return;
    }
    QMdiSubWindow::closeEvent(evento); // asks the screen by its own close event
}

VentanaModal::VentanaModal(Pantalla* pantalla, QWidget* padre)
    : QDialog(padre, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint)
    , m_pantalla(pantalla)
{
    const QPointer<QWidget> inicial = pantalla->focusWidget();
    setWindowModality(Qt::ApplicationModal);
    setObjectName(QStringLiteral("modal_") + pantalla->objectName());
    auto* disposicion = new QVBoxLayout(this);
    disposicion->setContentsMargins(0, 0, 0, 0);
    disposicion->addWidget(new MarcoDePantalla(pantalla));
    ponerFoco(inicial);
    setWindowTitle(pantalla->windowTitle());
    setWindowIcon(pantalla->windowIcon());
    connect(pantalla, &QWidget::windowTitleChanged, this, &QWidget::setWindowTitle);
    connect(pantalla, &Pantalla::pideCerrar, this, [this] { done(Rejected); });
}

Pantalla* VentanaModal::pantalla() const
{
    return m_pantalla.isNull() || m_pantalla->cerrada() ? nullptr : m_pantalla.data();
}

void VentanaModal::centrar(const QScreen& monitor)
{
    const QRect libre = monitor.availableGeometry();
    resize(tamanoEn(*this, libre.size() - marcoDelSistema));
    QRect lugar(QPoint(), size());
    lugar.moveCenter(libre.center());
    const QPoint ultimo = libre.bottomRight() - QPoint(width(), height()) -
                          QPoint(marcoDelSistema.width(), marcoDelSistema.height()); // move() places the frame
    move(qMin(lugar.x(), ultimo.x() + 1), qMin(lugar.y(), ultimo.y() + 1));
}

void VentanaModal::reject()
{
    if (!TrabajoLargo::enCurso() && (m_pantalla.isNull() || m_pantalla->pedirCierre(Pantalla::Cierre::DeLaVentana)))
    {
        QDialog::reject();
    }
}

void VentanaModal::keyPressEvent(QKeyEvent* evento)
{
    switch (evento->key())
    {
    case Qt::Key_Return: // a dialog would press whatever button it holds for its default one
    case Qt::Key_Enter:
        return;
    case Qt::Key_F1:
        Navegacion::instancia().ayuda();
        return;
    default:
        QDialog::keyPressEvent(evento);
    }
}

#include "ui/shell/contenedores.h"

#include "ui/shell/navegacion.h"
#include "ui/shell/trabajo_largo.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>

namespace
{
/// Puts the cursor back where the screen's load left it: a screen that moves into its window forgets it.
void devolverFoco(const QPointer<QWidget>& inicial)
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
} // namespace

VentanaHija::VentanaHija(Pantalla* pantalla)
    : QMdiSubWindow(nullptr, marco(*pantalla))
    , m_pantalla(pantalla)
{
    const QPointer<QWidget> inicial = pantalla->focusWidget();
    setAttribute(Qt::WA_DeleteOnClose);
    setWidget(pantalla);
    devolverFoco(inicial);
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
    resize(sizeHint().expandedTo(minimumSizeHint()).boundedTo(area));
    move(qMax(0, (area.width() - width()) / 2), qMax(0, (area.height() - height()) / 2));
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
    disposicion->addWidget(pantalla);
    devolverFoco(inicial);
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
    resize(sizeHint().expandedTo(minimumSizeHint()).boundedTo(libre.size()));
    QRect lugar(QPoint(), size());
    lugar.moveCenter(libre.center());
    move(lugar.topLeft());
}

void VentanaModal::reject()
{
    if (!TrabajoLargo::enCurso() && (m_pantalla.isNull() || m_pantalla->pedirCierre()))
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

#pragma once

#include "ui/shell/pantalla.h"

#include <QDialog>
#include <QMdiSubWindow>
#include <QPointer>
#include <QScrollArea>

class QScreen;

/// What the frame of the system takes from a window's place, rather too much than too little.
inline constexpr QSize marcoDelSistema{16, 40};

/// Holds a screen in its window. Where the window is smaller than the screen, it scrolls, to the control with the focus
/// before all: nothing that a key reaches is out of sight.
class MarcoDePantalla : public QScrollArea
{
    Q_OBJECT
public:
    explicit MarcoDePantalla(Pantalla* pantalla);
    ~MarcoDePantalla() override;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    /// Scrolls to a control; in a grid, to its current cell.
    void mostrarFoco(QWidget* control);

protected:
    void closeEvent(QCloseEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    // Not the scroll area's, which scrolls as well: `mostrarFoco` does.
    bool focusNextPrevChild(bool siguiente) override
    {
        return QWidget::focusNextPrevChild(siguiente); // NOLINT(bugprone-parent-virtual-call)
    }
};

/// The child window around a modeless screen.
class VentanaHija : public QMdiSubWindow
{
    Q_OBJECT
public:
    explicit VentanaHija(Pantalla* pantalla);

    /// None once it is closed.
    [[nodiscard]] Pantalla* pantalla() const;
    /// Sizes it to its contents, inside the given area, and puts it in the middle.
    void centrar(QSize area);
    /// Brings it into the given area, and back to its size where the area had not room for it.
    void acomodar(QSize area);
    /// The control worked on last comes back with the child: the toolkit hides a maximised one that is put away, and
    /// moves its focus on.
    void recordarFoco();
    void devolverFoco();
    /// A click beside the fields of the active child does not take the focus from them; one on another child brings
    /// that one forward.
    void setActiva(bool activa) { setFocusPolicy(activa ? Qt::NoFocus : Qt::StrongFocus); }

protected:
    void closeEvent(QCloseEvent* evento) override;

private:
    QPointer<Pantalla> m_pantalla;
    QPointer<QWidget> m_foco;
    bool m_encogida = false;
};

/// The dialog around a modal screen.
class VentanaModal : public QDialog
{
    Q_OBJECT
public:
    VentanaModal(Pantalla* pantalla, QWidget* padre);

    [[nodiscard]] Pantalla* pantalla() const;
    void centrar(const QScreen& monitor);
    /// The close command and Escape: asks the screen first.
    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* evento) override;

private:
    QPointer<Pantalla> m_pantalla;
};

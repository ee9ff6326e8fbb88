#pragma once

#include "ui/shell/pantalla.h"

#include <QDialog>
#include <QMdiSubWindow>
#include <QPointer>

class QScreen;

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
    /// A click beside the fields of the active child does not take the focus from them; one on another child brings
    /// that one forward.
    void setActiva(bool activa) { setFocusPolicy(activa ? Qt::NoFocus : Qt::StrongFocus); }

protected:
    void closeEvent(QCloseEvent* evento) override;

private:
    QPointer<Pantalla> m_pantalla;
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

#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>

/// Leaving checks of all fields and the rule that Enter acts as Tab: one filter over the whole application.
/// A field whose check refuses keeps the focus with its text selected, and the click or key that would have left it is
/// swallowed, buttons, menu, tabs and grids included. Leaving because the program loses the focus, or because a box of
/// the program opens, checks nothing.
class Validacion : public QObject
{
    Q_OBJECT
public:
    /// The application's filter, made at the first call and owned by the application.
    static Validacion& instancia();

    /// `puedeDejar` is called when the user leaves `campo`; false keeps him there. It may show a message box. A check
    /// that moves the focus itself (setFocus on another field) and returns true is obeyed: its move stands.
    void alDejar(QWidget* campo, std::function<bool()> puedeDejar);
    /// A grid's editor: `guardar` stores its value after a check that passed on a click or a shortcut.
    void alDejarEditor(QWidget* editor, std::function<bool()> puedeDejar, std::function<void()> guardar);
    /// Runs the check of the field that holds the focus; true when it may be left. For code that leaves it by itself.
    bool intentarDejar();
    /// Suspends all checks while it lives: for screens that are being closed or filled by code.
    class Pausa
    {
    public:
        Pausa();
        ~Pausa();
        Pausa(const Pausa&) = delete;
        Pausa& operator=(const Pausa&) = delete;
    };

    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    Validacion();
};

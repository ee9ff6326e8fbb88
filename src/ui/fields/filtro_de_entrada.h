#pragma once

#include <QObject>
#include <functional>

class QInputMethodEvent;
class QKeyEvent;
class QLineEdit;

/// Lets only some characters into a line edit, whichever way the user brings them: keys, pasting, an input method. What
/// the program sets is not touched.
class FiltroDeEntrada : public QObject
{
    Q_OBJECT
public:
    /// `alTeclear` gives what a key's character becomes, a null character to refuse it; `alPegar` what is inserted for
    /// a pasted text.
    FiltroDeEntrada(QLineEdit* campo, std::function<QChar(QChar)> alTeclear,
                    std::function<void(QLineEdit*, const QString&)> alPegar);

    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    bool filtrarTecla(const QKeyEvent& evento);
    bool filtrarMetodo(const QInputMethodEvent& evento);
    void pegar();
    void mostrarMenu(QPoint global);

    QLineEdit* m_campo;
    std::function<QChar(QChar)> m_alTeclear;
    std::function<void(QLineEdit*, const QString&)> m_alPegar;
};

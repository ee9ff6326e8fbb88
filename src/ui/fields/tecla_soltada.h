#pragma once

#include <QLineEdit>
#include <QObject>

/// Tells of every key released in a field, and of a text that came in without one (pasted or cut by the mouse).
class TeclaSoltada : public QObject
{
    Q_OBJECT
public:
    explicit TeclaSoltada(QLineEdit* campo);

Q_SIGNALS:
    void soltada();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    bool m_teclaAbajo = false;
};

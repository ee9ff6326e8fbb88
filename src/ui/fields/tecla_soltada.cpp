#include "ui/fields/tecla_soltada.h"

#include <QKeyEvent>

TeclaSoltada::TeclaSoltada(QLineEdit* campo)
    : QObject(campo)
{
    campo->installEventFilter(this);
    connect(campo, &QLineEdit::textEdited, this,
            [this]
            {
                if (!m_teclaAbajo)
                {
                    Q_EMIT soltada();
                }
            });
}

bool TeclaSoltada::eventFilter(QObject* objeto, QEvent* evento)
{
    if (evento->type() == QEvent::KeyPress)
    {
        m_teclaAbajo = true;
    }
    else if (evento->type() == QEvent::FocusOut)
    {
        m_teclaAbajo = false;
    }
    else if (evento->type() == QEvent::KeyRelease && !static_cast<QKeyEvent*>(evento)->isAutoRepeat())
    {
        m_teclaAbajo = false;
        Q_EMIT soltada();
    }
    return QObject::eventFilter(objeto, evento);
}

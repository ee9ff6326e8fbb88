#pragma once

#include "ui/shell/trabajo_largo.h"

#include <QApplication>
#include <QPushButton>
#include <QTimer>

/// The user presses "Cancelar" as soon as the next long work tells how far it is.
class Abandono
{
public:
    Abandono()
    {
        TrabajoLargo::fijarDemora(0);
        QTimer::singleShot(0, qApp, [] { emergente()->click(); });
    }
    ~Abandono() { TrabajoLargo::fijarDemora(500); }

private:
    static QPushButton* emergente()
    {
        const QWidgetList todos = QApplication::allWidgets();
        const auto es = [](const QWidget* control) { return control->objectName() == "cmdCancelarTrabajo"; };
        return qobject_cast<QPushButton*>(*std::find_if(todos.begin(), todos.end(), es));
    }
};

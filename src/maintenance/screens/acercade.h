#pragma once

#include "ui/shell/pantalla.h"

#include <memory>

namespace Ui
{
class Acercade;
}

/// The program's name, the schema version of its database and the support contacts.
class Acercade : public Pantalla
{
    Q_OBJECT
public:
    explicit Acercade(QWidget* padre = nullptr);
    ~Acercade() override;

    void cargar() override;

private:
    std::unique_ptr<Ui::Acercade> ui;
};

#pragma once

#include "ui/shell/pantalla.h"

#include <memory>

namespace Ui
{
class Version;
}

/// Notice of a new version of the program, with a link to it.
class Version : public Pantalla
{
    Q_OBJECT
public:
    explicit Version(QWidget* padre = nullptr);
    ~Version() override;

    void cargar() override;

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void mouseMoveEvent(QMouseEvent* evento) override;

private:
    void lblLink_Click();
    void colorDelEnlace(bool encima);

    std::unique_ptr<Ui::Version> ui;
};

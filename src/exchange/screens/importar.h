#pragma once

#include "ui/shell/pantalla.h"

#include <memory>

namespace Ui
{
class Importar;
}

/// Asks for a roster file and its format. The answer stands in Rutinas::TextoDevuelto, the file's path, and
/// Rutinas::FormatoImportar; whoever opens the dialog empties the first before, and finds it so when nothing is to be
/// imported.
class Importar : public Pantalla
{
    Q_OBJECT
public:
    explicit Importar(QWidget* padre = nullptr);
    ~Importar() override;

private:
    void cmdExaminar_Click();
    void cmdOK_Click();

    std::unique_ptr<Ui::Importar> ui;
};

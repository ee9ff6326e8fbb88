#pragma once

#include "ui/shell/pantalla.h"

#include <memory>
#include <optional>

class ErrorDeEjecucion;
namespace Ui
{
class Backup;
}

/// Copies the whole database to a dated folder, and brings a copy back over it.
class Backup : public Pantalla
{
    Q_OBJECT
public:
    explicit Backup(QWidget* padre = nullptr);
    ~Backup() override;

    void cargar() override;

private:
    void SSTab1_Click();
    void cmdExaminar_Click();
    void cmdOK_Click();
    void resguardarBase();
    void restaurarBase();
    [[nodiscard]] bool puedeRestaurar();
    void contarResguardo(const std::optional<ErrorDeEjecucion>& falla, const QString& dano);
    static void informarFalla(const ErrorDeEjecucion& error);

    std::unique_ptr<Ui::Backup> ui;
    QString CarpetaCopia;
};

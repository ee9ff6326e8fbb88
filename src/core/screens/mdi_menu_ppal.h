#pragma once

#include "core/ultima_copia.h"
#include "ui/shell/espera_de_base.h"

#include <QMainWindow>
#include <memory>
#include <optional>

class QLabel;
namespace Ui
{
class MDIMenuPpal;
}

/// The frame of the program: menu bar, background picture, child windows, status bar. It only routes.
class MDIMenuPpal : public QMainWindow
{
    Q_OBJECT
public:
    /// Reads the schema version into the title. Throws ErrorDeEjecucion when it cannot be read.
    explicit MDIMenuPpal(QWidget* padre = nullptr);
    ~MDIMenuPpal() override;

    /// Shows the notice of a new version at the next activation, once.
    bool MostrarVersion = false;
    /// The user ends his session of the operating system: closes the program as the window's closing does, with the
    /// same question. False when it stays open. When nothing may be asked, what is half entered is given up.
    [[nodiscard]] bool terminarSesion(bool sePuedePreguntar);

protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;
    void changeEvent(QEvent* evento) override;

private:
    void mnuSalir_Click();
    void MDIForm_Activate();
    void mantenimiento();
    void conectarMenu();
    void armarBarraDeEstado();
    void mostrarAnuncio(const QString& texto);
    QLabel* parteDeEstado(const QString& nombre);
    void leerCopia();
    void mostrarEstado();

    std::unique_ptr<Ui::MDIMenuPpal> ui;
    EsperaDeBase m_esperaDeBase;
    QLabel* m_rutaBase = nullptr;
    QLabel* m_copia = nullptr;
    QLabel* m_lugar = nullptr;
    QLabel* m_empresa = nullptr;
    std::optional<UltimaCopia> m_ultimaCopia; ///< none where it cannot be read
};

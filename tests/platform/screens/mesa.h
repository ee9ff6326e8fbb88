#pragma once

#include "platform/screens/campo_mascara.h"
#include "platform/screens/navegacion.h"
#include "platform/screens/pantalla.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QStringList>
#include <QTabWidget>
#include <QTableWidget>
#include <functional>
#include <memory>

/// A screen with one field of each kind. The fields `a` and `b` refuse what begins with "mal".
class PantallaDePrueba : public Pantalla
{
    Q_OBJECT
public:
    explicit PantallaDePrueba(const QString& nombre);

    void cargar() override;
    void activar() override;
    [[nodiscard]] bool descargar() override;

    QLineEdit* a;
    QLineEdit* b;
    CampoMascara* fecha;
    QComboBox* lista;
    QCheckBox* tilde;
    QPushButton* accion;
    QPushButton* cancelar;
    QTabWidget* paginas;
    QTableWidget* grilla;

    int acciones = 0;
    int cancelaciones = 0;
    int activaciones = 0;
    int descargas = 0;
    bool dejaCerrar = true;
    QStringList chequeos; ///< names of the fields whose check ran
    std::function<void()> alRechazar;
    std::function<void()> alActivar;

    [[nodiscard]] bool chequear(QLineEdit* campo);
    using Pantalla::alDejar;
    using Pantalla::conectar;

private:
    void accion_Click() { ++acciones; }
};

/// A main window with its menu and the area of the children, and two screens "Una" and "Otra" to open.
class Mesa
{
public:
    Mesa();
    ~Mesa();
    Mesa(const Mesa&) = delete;
    Mesa& operator=(const Mesa&) = delete;

    PantallaDePrueba& abrir(const QString& nombre);
    [[nodiscard]] static PantallaDePrueba* pantalla(const QString& nombre);

    QMainWindow ventana;
    QMdiArea* area;
    QMenu* menu;
    QAction* orden;
    int ordenes = 0;
    std::function<void(PantallaDePrueba&)> alCargar; ///< run in the load of every screen
};

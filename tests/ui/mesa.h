#pragma once

#include "apoyo/cajas_de_prueba.h"
#include "apoyo/entrada.h"
#include "ui/fields/campo_mascara.h"
#include "ui/shell/campos.h"
#include "ui/shell/navegacion.h"
#include "ui/shell/pantalla.h"

#include <QtTest>
#include <QtWidgets>
#include <gtest/gtest.h>

using namespace Entrada;

/// A screen with one field of each kind. The fields `a` and `b` refuse what begins with "mal".
class PantallaDePrueba : public Pantalla
{
public:
    explicit PantallaDePrueba(const QString& nombre)
        : Pantalla(nombre)
    {
        setWindowTitle("Pantalla " + nombre);
        fecha->setClase(CampoMascara::Fecha);
        lista->addItems({"uno", "dos"});
        paginas->addTab(grilla, "Primera");
        paginas->addTab(new QLineEdit, "Segunda");
        grilla->setCurrentCell(0, 0);
        auto* disposicion = new QFormLayout(this);
        const std::tuple<const char*, const char*, QWidget*> controles[] = {
            {"a", "A:", a},       {"b", "&B:", b},        {"fecha", "", fecha},    {"lista", "", lista},
            {"tilde", "", tilde}, {"accion", "", accion}, {"paginas", "", paginas}};
        for (const auto& [suyo, rotulo, control] : controles)
        {
            control->setObjectName(suyo);
            disposicion->addRow(rotulo, control);
        }
        conectar(accion, &QPushButton::clicked, [this] { ++acciones; });
        alDejar(a, [this] { return chequear(*a); });
        alDejar(b, [this] { return chequear(*b); });
    }
    void cargar() override { alCargar(*this); }
    void activar() override
    {
        ++activaciones;
        alActivar();
    }
    [[nodiscard]] bool descargar() override
    {
        ++descargas;
        return dejaCerrar;
    }
    /// The child window around it.
    [[nodiscard]] QMdiSubWindow& hija() { return *campos::antepasado<QMdiSubWindow>(this); }
    using Pantalla::alDejar;
    using Pantalla::conectar;

    QLineEdit* a = new QLineEdit;
    QLineEdit* b = new QLineEdit;
    CampoMascara* fecha = new CampoMascara;
    QComboBox* lista = new QComboBox;
    QCheckBox* tilde = new QCheckBox("Afiliado");
    QPushButton* accion = new QPushButton("&Grabar");
    QTabWidget* paginas = new QTabWidget;
    QTableWidget* grilla = new QTableWidget(3, 2);
    int acciones = 0, activaciones = 0, descargas = 0, chequeos = 0;
    bool dejaCerrar = true;
    std::function<void()> alRechazar = [] {};
    std::function<void()> alActivar = [] {};
    static inline std::function<void(PantallaDePrueba&)> alCargar = [](auto&) {}; ///< the load of every screen

private:
    bool chequear(const QLineEdit& campo)
    {
        ++chequeos;
        const bool bien = !campo.text().startsWith("mal");
        bien ? void() : alRechazar();
        return bien;
    }
};
using P = PantallaDePrueba&;

/// A main window with its menu and the area of the children, and two screens "Una" and "Otra" to open.
class Mesa
{
public:
    Mesa()
    {
        QObject::connect(orden, &QAction::triggered, &ventana, [this] { ++ordenes; });
        ventana.setCentralWidget(area);
        ventana.resize(1000, 700);
        navegacion.fijarVentana(&ventana, area);
        for (const QString nombre : {"Una", "Otra"})
        {
            navegacion.registrar(nombre, [nombre] { return new PantallaDePrueba(nombre); });
        }
        Entrada::activar(ventana);
    }
    ~Mesa()
    {
        menu->hide();
        navegacion.fijarVentana(nullptr, nullptr);
        PantallaDePrueba::alCargar = [](P) {};
    }

    P abrir(const QString& nombre)
    {
        navegacion.mostrar(nombre);
        asentar();
        return *dynamic_cast<PantallaDePrueba*>(navegacion.abierta(nombre));
    }
    /// Runs `hacer` in the modal screen "Otra" once it is up, and gives how often it ran.
    int enModal(const std::function<void(P)>& hacer)
    {
        int hechos = 0;
        PantallaDePrueba::alCargar = [&](P modal)
        {
            const auto dentro = [&]
            {
                Entrada::activar(*modal.window());
                ++hechos;
                hacer(modal);
            };
            QMetaObject::invokeMethod(&modal, dentro, Qt::QueuedConnection);
        };
        navegacion.mostrarModal("Otra");
        PantallaDePrueba::alCargar = [](P) {};
        Entrada::activar(ventana); // a window manager does it
        return hechos;
    }
    /// A box of the program comes and is answered; the user goes to another program and comes back.
    void conCaja()
    {
        conLaCaja([](QMessageBox&) { jugar("Return"); });
        MsgBox("Listo", Caja::Informacion);
        Entrada::activar(ventana);
    }
    void irseYVolver()
    {
        QWidget otroPrograma;
        Entrada::activar(otroPrograma);
        otroPrograma.hide();
        Entrada::activar(ventana);
    }

    Navegacion& navegacion = Navegacion::instancia();
    QMainWindow ventana;
    QMdiArea* area = new QMdiArea;
    QMenu* menu = ventana.menuBar()->addMenu("&Procesos");
    QAction* orden = menu->addAction("&Mantenimiento", QKeySequence(Qt::CTRL | Qt::Key_M));
    int ordenes = 0;
};

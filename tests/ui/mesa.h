#pragma once

#include "apoyo/entrada.h"
#include "ui/fields/campo_mascara.h"
#include "ui/shell/navegacion.h"
#include "ui/shell/pantalla.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>

/// A screen with one field of each kind. The fields `a` and `b` refuse what begins with "mal".
class PantallaDePrueba : public Pantalla
{
public:
    explicit PantallaDePrueba(const QString& nombre)
        : Pantalla(nombre)
    {
        setWindowTitle(QStringLiteral("Pantalla ") + nombre);
        fecha->setClase(CampoMascara::Fecha);
        lista->addItems({QStringLiteral("uno"), QStringLiteral("dos")});
        auto* disposicion = new QFormLayout(this);
        disposicion->addRow(QStringLiteral("A:"), a);
        disposicion->addRow(QStringLiteral("&B:"), b);
        for (QWidget* control : std::initializer_list<QWidget*>{fecha, lista, tilde, accion, paginas})
        {
            disposicion->addRow(control);
        }
        paginas->addTab(grilla, QStringLiteral("Primera"));
        paginas->addTab(new QLineEdit, QStringLiteral("Segunda"));
        for (int fila = 0; fila < 3; ++fila)
        {
            grilla->setItem(fila, 0, new QTableWidgetItem(QString::number(fila)));
        }
        grilla->setCurrentCell(0, 0);
        conectar(accion, &QPushButton::clicked, [this] { ++acciones; });
        alDejar(a, [this] { return chequear(*a); });
        alDejar(b, [this] { return chequear(*b); });
    }
    void cargar() override
    {
        if (alCargar)
        {
            alCargar(*this);
        }
    }
    void activar() override
    {
        ++activaciones;
        if (alActivar)
        {
            alActivar();
        }
    }
    [[nodiscard]] bool descargar() override
    {
        ++descargas;
        return dejaCerrar;
    }
    using Pantalla::alDejar;
    using Pantalla::conectar;

    QLineEdit* a = new QLineEdit;
    QLineEdit* b = new QLineEdit;
    CampoMascara* fecha = new CampoMascara;
    QComboBox* lista = new QComboBox;
    QCheckBox* tilde = new QCheckBox(QStringLiteral("Afiliado"));
    QPushButton* accion = new QPushButton(QStringLiteral("&Grabar"));
    QTabWidget* paginas = new QTabWidget;
    QTableWidget* grilla = new QTableWidget(3, 2);
    int acciones = 0;
    int activaciones = 0;
    int descargas = 0;
    int chequeos = 0;
    bool dejaCerrar = true;
    std::function<void()> alRechazar;
    std::function<void()> alActivar;
    static inline std::function<void(PantallaDePrueba&)> alCargar; ///< run in the load of every screen

private:
    bool chequear(const QLineEdit& campo)
    {
        ++chequeos;
        const bool bien = !campo.text().startsWith(QStringLiteral("mal"));
        if (!bien && alRechazar)
        {
            alRechazar();
        }
        return bien;
    }
};

/// A main window with its menu and the area of the children, and two screens "Una" and "Otra" to open.
class Mesa
{
public:
    Mesa()
    {
        QObject::connect(orden, &QAction::triggered, &ventana, [this] { ++ordenes; });
        ventana.setCentralWidget(area);
        ventana.resize(1000, 700);
        Navegacion::instancia().fijarVentana(&ventana, area);
        for (const QString& nombre : {QStringLiteral("Una"), QStringLiteral("Otra")})
        {
            Navegacion::instancia().registrar(nombre, [nombre] { return new PantallaDePrueba(nombre); });
        }
        Entrada::activar(ventana);
    }
    ~Mesa()
    {
        menu->hide();
        Navegacion::instancia().fijarVentana(nullptr, nullptr);
        PantallaDePrueba::alCargar = {};
    }
    Mesa(const Mesa&) = delete;
    Mesa& operator=(const Mesa&) = delete;

    PantallaDePrueba& abrir(const QString& nombre)
    {
        Navegacion::instancia().mostrar(nombre);
        Entrada::asentar();
        return *pantalla(nombre);
    }
    [[nodiscard]] static PantallaDePrueba* pantalla(const QString& nombre)
    {
        return dynamic_cast<PantallaDePrueba*>(Navegacion::instancia().abierta(nombre));
    }
    /// Runs `hacer` in the modal screen "Otra" once it is up, and gives how often it ran.
    int enModal(const std::function<void(PantallaDePrueba&)>& hacer)
    {
        int hechos = 0;
        PantallaDePrueba::alCargar = [&](PantallaDePrueba& modal)
        {
            const auto dentro = [&]
            {
                Entrada::activar(*modal.window());
                ++hechos;
                hacer(modal);
            };
            QMetaObject::invokeMethod(&modal, dentro, Qt::QueuedConnection);
        };
        Navegacion::instancia().mostrarModal(QStringLiteral("Otra"));
        PantallaDePrueba::alCargar = {};
        Entrada::activar(ventana); // a window manager does it
        return hechos;
    }

    QMainWindow ventana;
    QMdiArea* area = new QMdiArea;
    QMenu* menu = ventana.menuBar()->addMenu(QStringLiteral("&Procesos"));
    QAction* orden = menu->addAction(QStringLiteral("&Mantenimiento"), QKeySequence(Qt::CTRL | Qt::Key_M));
    int ordenes = 0;
};

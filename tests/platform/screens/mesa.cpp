#include "mesa.h"

#include "apoyo/entrada.h"

#include <QFormLayout>
#include <QMenuBar>
#include <QVBoxLayout>

namespace
{
Mesa* enUso = nullptr;

QWidget* conDisposicion(QWidget* contenido)
{
    auto* pagina = new QWidget;
    auto* disposicion = new QVBoxLayout(pagina);
    disposicion->addWidget(contenido);
    return pagina;
}
} // namespace

PantallaDePrueba::PantallaDePrueba(const QString& nombre)
    : Pantalla(nombre)
    , a(new QLineEdit)
    , b(new QLineEdit)
    , fecha(new CampoMascara)
    , lista(new QComboBox)
    , tilde(new QCheckBox(QStringLiteral("Afiliado")))
    , accion(new QPushButton(QStringLiteral("&Grabar")))
    , cancelar(new QPushButton(QStringLiteral("Cancelar")))
    , paginas(new QTabWidget)
    , grilla(new QTableWidget(3, 2))
{
    setWindowTitle(QStringLiteral("Pantalla ") + nombre);
    a->setObjectName(QStringLiteral("a"));
    b->setObjectName(QStringLiteral("b"));
    fecha->setClase(CampoMascara::Fecha);
    lista->addItems({QStringLiteral("uno"), QStringLiteral("dos")});
    auto* disposicion = new QFormLayout(this);
    disposicion->addRow(QStringLiteral("A:"), a);
    disposicion->addRow(QStringLiteral("&B:"), b);
    disposicion->addRow(QStringLiteral("Fecha:"), fecha);
    disposicion->addRow(QStringLiteral("Lista:"), lista);
    disposicion->addRow(tilde);
    disposicion->addRow(accion);
    disposicion->addRow(cancelar);
    disposicion->addRow(paginas);
    paginas->addTab(conDisposicion(grilla), QStringLiteral("Primera"));
    paginas->addTab(conDisposicion(new QLineEdit), QStringLiteral("Segunda"));
    grilla->setCurrentCell(0, 0);

    conectar(accion, &QPushButton::clicked, &PantallaDePrueba::accion_Click);
    conectar(cancelar, &QPushButton::clicked, [this] { ++cancelaciones; });
    alDejar(a, [this] { return chequear(a); });
    alDejar(b, [this] { return chequear(b); });
}

bool PantallaDePrueba::chequear(QLineEdit* campo)
{
    chequeos.append(campo->objectName());
    const bool bien = !campo->text().startsWith(QStringLiteral("mal"));
    if (!bien && alRechazar)
    {
        alRechazar();
    }
    return bien;
}

void PantallaDePrueba::cargar()
{
    if (enUso != nullptr && enUso->alCargar)
    {
        enUso->alCargar(*this);
    }
}

void PantallaDePrueba::activar()
{
    ++activaciones;
    if (alActivar)
    {
        alActivar();
    }
}

bool PantallaDePrueba::descargar()
{
    ++descargas;
    return dejaCerrar;
}

Mesa::Mesa()
    : area(new QMdiArea)
    , menu(ventana.menuBar()->addMenu(QStringLiteral("&Procesos")))
{
    enUso = this;
    orden = menu->addAction(QStringLiteral("&Mantenimiento"), QKeySequence(Qt::CTRL | Qt::Key_M));
    QObject::connect(orden, &QAction::triggered, &ventana, [this] { ++ordenes; });
    ventana.setCentralWidget(area);
    ventana.resize(1000, 700);
    Navegacion& navegacion = Navegacion::instancia();
    navegacion.fijarVentana(&ventana, area);
    for (const QString& nombre : {QStringLiteral("Una"), QStringLiteral("Otra")})
    {
        navegacion.registrar(nombre, [nombre] { return new PantallaDePrueba(nombre); });
    }
    Entrada::activar(ventana);
}

Mesa::~Mesa()
{
    Navegacion::instancia().fijarVentana(nullptr, nullptr);
    enUso = nullptr;
}

PantallaDePrueba& Mesa::abrir(const QString& nombre)
{
    Navegacion::instancia().mostrar(nombre);
    Entrada::asentar();
    return *pantalla(nombre);
}

PantallaDePrueba* Mesa::pantalla(const QString& nombre)
{
    return qobject_cast<PantallaDePrueba*>(Navegacion::instancia().abierta(nombre));
}

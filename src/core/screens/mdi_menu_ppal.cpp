#include "core/screens/mdi_menu_ppal.h"

#include "base/error_de_ejecucion.h"
#include "core/rutinas.h"
#include "core/screens/base_cerrada.h"
#include "ui/doors/anuncio.h"
#include "ui/doors/dialogos.h"
#include "ui/doors/mensajes.h"
#include "ui/look/estilo.h"
#include "ui/look/visor_ayuda.h"
#include "ui/shell/contenedores.h"
#include "ui/shell/error_fatal.h"
#include "ui/shell/navegacion.h"
#include "ui/shell/pantalla.h"
#include "ui/shell/trabajo_largo.h"
#include "ui_mdi_menu_ppal.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QScreen>
#include <QSessionManager>

namespace
{
QString carpetaDeAyuda()
{
    return Rutinas::RutaApp + QStringLiteral("ayuda");
}
} // namespace

MDIMenuPpal::MDIMenuPpal(QWidget* padre)
    : QMainWindow(padre)
    , ui(std::make_unique<Ui::MDIMenuPpal>())
{
    ui->setupUi(this);
    const QString version = Rutinas::Conexion.consultar("SELECT * FROM Parametros").primera().texto("Version");
    setWindowTitle(windowTitle() + QStringLiteral(" - Versión: ") + version);
    MostrarVersion = false;

    Navegacion::instancia().fijarVentana(this, ui->area);
    Navegacion::instancia().fijarAyuda(
        [](const QString& pagina)
        { VisorDeAyuda::abrir(carpetaDeAyuda(), pagina.isEmpty() ? QStringLiteral("MDIMenuPpal") : pagina); });
    connect(
        qApp, &QGuiApplication::commitDataRequest, this,
        [this](QSessionManager& sesion)
        {
            if (!terminarSesion(sesion.allowsInteraction()))
            {
                sesion.cancel();
            }
        },
        Qt::DirectConnection);
    conectarMenu();
    armarBarraDeEstado();
    const QSize libre = screen()->availableGeometry().size() - marcoDelSistema;
    if (size() != size().boundedTo(libre))
    {
        resize(size().boundedTo(libre)); // what it goes back to
        setWindowState(Qt::WindowMaximized);
    }
}

MDIMenuPpal::~MDIMenuPpal()
{
    reemplazarAnuncios({});
    Navegacion::instancia().fijarAyuda({});
    Navegacion::instancia().fijarVentana(nullptr, nullptr);
}

void MDIMenuPpal::conectarMenu()
{
    const auto alElegir = [this](QAction* entrada, const QString& icono, auto accion)
    {
        entrada->setIcon(Estilo::icono(icono));
        connect(entrada, &QAction::triggered, this, [accion] { protegido(accion); });
    };
    alElegir(ui->mnuArchivo_0, QStringLiteral("empresa"), [this] { mnuArchivo_Click(0); });
    alElegir(ui->mnuProceso_0, QStringLiteral("declaracion"), [this] { mnuProceso_Click(0); });
    alElegir(ui->mnuProceso_2, QStringLiteral("acta"), [this] { mnuProceso_Click(2); });
    alElegir(ui->mnuTool_0, QStringLiteral("impresora"), [this] { mnuTool_Click(0); });
    alElegir(ui->mnuTool_1, QStringLiteral("respaldo"), [this] { mnuTool_Click(1); });
    alElegir(ui->mnuTool_2, QStringLiteral("mantenimiento"), [this] { mnuTool_Click(2); });
    alElegir(ui->mnuTool_3, QStringLiteral("depurar"), [this] { mnuTool_Click(3); });
    // The entries of the bar itself carry no icon: the style would show it in the place of their caption.
    // The bar has no letters of its own: Alt and a letter belongs to the buttons of the screens. F10 opens it.
    connect(ui->mnuAyuda, &QAction::triggered, this, [this] { protegido([this] { mnuAyuda_Click(); }); });
    connect(ui->mnuAcerca, &QAction::triggered, this, [this] { protegido([this] { mnuAcerca_Click(); }); });
    connect(ui->mnuSalir, &QAction::triggered, this, [this] { protegido([this] { mnuSalir_Click(); }); });
}

void MDIMenuPpal::armarBarraDeEstado()
{
    m_rutaBase = new QLabel(Rutinas::rutaBase(), this);
    m_rutaBase->setAccessibleName(QStringLiteral("Base de datos en uso"));
    m_rutaBase->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_empresa = new QLabel(this);
    m_empresa->setObjectName(QStringLiteral("lblEmpresaEnCurso"));
    m_empresa->setTextFormat(Qt::PlainText);
    m_empresa->setAccessibleName(QStringLiteral("Empresa en curso"));
    for (QLabel* parte : {m_empresa, m_rutaBase})
    {
        parte->setMinimumWidth(1); // a long one is no reason for a window wider than the screen
        statusBar()->addPermanentWidget(parte);
    }
    connect(&Navegacion::instancia(), &Navegacion::cambioDePantalla, this, &MDIMenuPpal::mostrarEmpresaEnCurso);
    constexpr int aLaVista = 8000; // ms
    reemplazarAnuncios([this](const QString& texto) { statusBar()->showMessage(texto, aLaVista); });
}

void MDIMenuPpal::mostrarEmpresaEnCurso()
{
    m_empresa->setText(Navegacion::instancia().empresaEnCurso());
}

void MDIMenuPpal::mnuArchivo_Click(int indice)
{
    if (indice == 0)
    {
        Rutinas::ModoAbrir = 0;
        Navegacion::instancia().mostrar(QStringLiteral("Empresas"));
    }
}

void MDIMenuPpal::mnuProceso_Click(int indice)
{
    if (indice == 0)
    {
        Rutinas::ModoAbrir = 0;
        Navegacion::instancia().mostrar(QStringLiteral("DDJJ"));
    }
    else if (indice == 2)
    {
        Rutinas::ModoAbrir = 2;
        Rutinas::CuitActual.clear();
        Navegacion::instancia().mostrar(QStringLiteral("Boletas"));
    }
}

void MDIMenuPpal::mnuTool_Click(int indice)
{
    switch (indice)
    {
    case 0:
        ConfigurarImpresora();
        break;
    case 1:
        Navegacion::instancia().mostrar(QStringLiteral("Backup"));
        break;
    case 2:
        mantenimiento();
        break;
    case 3:
        Navegacion::instancia().mostrar(QStringLiteral("Depurar"));
        break;
    default:
        break;
    }
}

void MDIMenuPpal::mantenimiento()
{
    Rutinas::ConLaBaseCerrada(
        QStringLiteral("Compactando la base de datos"), Rutinas::CompactarBase,
        [](const std::optional<ErrorDeEjecucion>& falla)
        {
            if (falla)
            {
                MsgBox(QStringLiteral("%1 - %2").arg(QString::number(falla->numero()), falla->descripcion()));
            }
            else
            {
                MsgBox(QStringLiteral("LA BASE HA SIDO COMPACTADA Y REPARADA CON EXITO."), Caja::Exclamacion);
            }
        });
}

void MDIMenuPpal::mnuAyuda_Click()
{
    VisorDeAyuda::abrir(carpetaDeAyuda(), QString());
}

void MDIMenuPpal::mnuAcerca_Click()
{
    Navegacion::instancia().mostrarModal(QStringLiteral("Acercade"));
}

void MDIMenuPpal::mnuSalir_Click()
{
    Rutinas::CerrarBase();
    terminarProceso(0);
}

void MDIMenuPpal::closeEvent(QCloseEvent* evento)
{
    evento->ignore();
    protegido(
        [&]
        {
            if (TrabajoLargo::enCurso() || !Navegacion::instancia().cerrarTodas())
            {
                return;
            }
            evento->accept();
            Rutinas::CerrarBase();
            terminarProceso(0);
        });
}

bool MDIMenuPpal::terminarSesion(bool sePuedePreguntar)
{
    return !sePuedePreguntar || close();
}

void MDIMenuPpal::keyPressEvent(QKeyEvent* evento)
{
    if (evento->key() == Qt::Key_F10)
    {
        ui->barra->setFocus(Qt::MenuBarFocusReason);
        ui->barra->setActiveAction(ui->barra->actions().constFirst());
        return;
    }
    QMainWindow::keyPressEvent(evento);
}

void MDIMenuPpal::changeEvent(QEvent* evento)
{
    QMainWindow::changeEvent(evento);
    if (evento->type() == QEvent::ActivationChange && isActiveWindow())
    {
        protegido([this] { MDIForm_Activate(); });
    }
}

void MDIMenuPpal::MDIForm_Activate()
{
    if (std::exchange(MostrarVersion, false))
    {
        Navegacion::instancia().mostrar(QStringLiteral("Version"));
    }
}

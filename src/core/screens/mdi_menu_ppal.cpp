#include "core/screens/mdi_menu_ppal.h"

#include "base/error_de_ejecucion.h"
#include "base/reloj.h"
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
#include <QToolTip>

namespace
{
QString carpetaDeAyuda()
{
    return Rutinas::RutaApp + QStringLiteral("ayuda");
}

/// For the screens that read ModoAbrir. The others must not touch it: an open slip goes on reading it.
void abrirEn(quint8 modo, const QString& pantalla)
{
    Rutinas::ModoAbrir = modo;
    Navegacion::instancia().mostrar(pantalla);
}
} // namespace

MDIMenuPpal::MDIMenuPpal(QWidget* padre)
    : QMainWindow(padre)
    , ui(std::make_unique<Ui::MDIMenuPpal>())
{
    ui->setupUi(this);
    setWindowTitle(windowTitle() + QStringLiteral(" - Versión: ") + Rutinas::VersionDe(Rutinas::Conexion));
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
    Rutinas::fijarTrasLaBaseCerrada({});
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
    alElegir(ui->mnuArchivo_0, QStringLiteral("empresa"), [] { abrirEn(0, QStringLiteral("Empresas")); });
    alElegir(ui->mnuProceso_0, QStringLiteral("declaracion"), [] { abrirEn(0, QStringLiteral("DDJJ")); });
    alElegir(ui->mnuProceso_2, QStringLiteral("acta"),
             []
             {
                 Rutinas::CuitActual.clear();
                 abrirEn(2, QStringLiteral("Boletas"));
             });
    alElegir(ui->mnuTool_0, QStringLiteral("impresora"), ConfigurarImpresora);
    alElegir(ui->mnuTool_1, QStringLiteral("respaldo"),
             [] { Navegacion::instancia().mostrar(QStringLiteral("Backup")); });
    alElegir(ui->mnuTool_2, QStringLiteral("mantenimiento"), [this] { mantenimiento(); });
    alElegir(ui->mnuTool_3, QStringLiteral("depurar"),
             [] { Navegacion::instancia().mostrar(QStringLiteral("Depurar")); });
    ui->barra->setAccessibleName(QStringLiteral("Menú"));
    for (QMenu* menu : ui->barra->findChildren<QMenu*>())
    {
        menu->setAccessibleName(menu->title());
    }
    // The entries of the bar itself carry no icon: the style would show it in the place of their caption.
    // The bar has no letters of its own: Alt and a letter belongs to the buttons of the screens. F10 opens it.
    connect(ui->mnuAyuda, &QAction::triggered, this,
            [] { protegido([] { VisorDeAyuda::abrir(carpetaDeAyuda(), QString()); }); });
    connect(ui->mnuAcerca, &QAction::triggered, this,
            [] { protegido([] { Navegacion::instancia().mostrarModal(QStringLiteral("Acercade")); }); });
    connect(ui->mnuSalir, &QAction::triggered, this, [this] { protegido([this] { mnuSalir_Click(); }); });
}

void MDIMenuPpal::armarBarraDeEstado()
{
    m_rutaBase = parteDeEstado(QStringLiteral("lblRutaBase"));
    m_rutaBase->setText(Rutinas::rutaBase());
    m_rutaBase->setToolTip(Rutinas::rutaBase());
    m_rutaBase->setAccessibleName(QStringLiteral("Base de datos en uso: ") + Rutinas::rutaBase());
    m_rutaBase->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_copia = parteDeEstado(QStringLiteral("lblUltimaCopia"));
    m_lugar = parteDeEstado(QStringLiteral("lblLugarEnCurso"));
    m_empresa = parteDeEstado(QStringLiteral("lblEmpresaEnCurso"));
    m_rutaBase->setMinimumWidth(1);  // where there is little room it is cut before the others
    statusBar()->setMinimumWidth(1); // long texts are no reason for a window wider than the screen
    connect(&Navegacion::instancia(), &Navegacion::cambioDePantalla, this, &MDIMenuPpal::mostrarEstado);
    reemplazarAnuncios([this](const QString& texto) { mostrarAnuncio(texto); });
    connect(statusBar(), &QStatusBar::messageChanged, this,
            [this](const QString& texto)
            {
                for (QLabel* parte : {m_rutaBase, m_copia})
                {
                    parte->setVisible(texto.isEmpty()); // they leave their room to what was announced
                }
            });
    Rutinas::fijarTrasLaBaseCerrada([this] { leerCopia(); });
    leerCopia();
}

void MDIMenuPpal::mostrarAnuncio(const QString& texto)
{
    constexpr int aLaVista = 8000; // ms
    statusBar()->showMessage(texto, aLaVista);
    QWidget* foco = QApplication::focusWidget();
    if (foco != nullptr && foco->window() != this) // a dialog may cover the bar
    {
        QToolTip::showText(foco->mapToGlobal(QPoint(0, foco->height())),
                           QStringLiteral("<qt>%1</qt>").arg(texto.toHtmlEscaped()), foco, {}, aLaVista);
    }
}

QLabel* MDIMenuPpal::parteDeEstado(const QString& nombre)
{
    constexpr int margen = 6;
    auto* parte = new QLabel(this);
    parte->setObjectName(nombre);
    parte->setTextFormat(Qt::PlainText);
    parte->setContentsMargins(margen, 0, margen, 0);
    statusBar()->addPermanentWidget(parte);
    return parte;
}

void MDIMenuPpal::leerCopia()
{
    m_ultimaCopia.reset();
    try
    {
        m_ultimaCopia = leerUltimaCopia(Rutinas::Conexion);
    }
    catch (const ErrorDeEjecucion&)
    {
        // A restored older database may not know of it: nothing is told, and the program goes on.
    }
    mostrarEstado();
}

void MDIMenuPpal::mostrarEstado()
{
    const Navegacion& navegacion = Navegacion::instancia();
    m_lugar->setText(navegacion.lugarEnCurso());
    m_lugar->setVisible(!m_lugar->text().isEmpty()); // a screen reader hears no part without a text
    m_empresa->setText(navegacion.empresaEnCurso());
    m_empresa->setVisible(!m_empresa->text().isEmpty());
    m_empresa->setAccessibleName(QStringLiteral("Empresa en curso: ") + m_empresa->text());
    const AvisoDeCopia aviso = m_ultimaCopia ? avisoDeCopia(*m_ultimaCopia, Reloj::Hoy()) : AvisoDeCopia{};
    m_copia->setText(aviso.texto);
    Estilo::atencion(m_copia, aviso.atencion);
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
    const bool sola = evento->modifiers() == Qt::NoModifier;
    if (sola && evento->key() == Qt::Key_F10)
    {
        ui->barra->setFocus(Qt::MenuBarFocusReason);
        ui->barra->setActiveAction(ui->barra->actions().constFirst());
        return;
    }
    if (sola && evento->key() == Qt::Key_F9)
    {
        protegido([] { Navegacion::instancia().mostrar(QStringLiteral("MesDeEmpresas")); });
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

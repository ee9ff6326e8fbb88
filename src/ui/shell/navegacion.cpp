#include "ui/shell/navegacion.h"

#include "ui/doors/caja_abierta.h"
#include "ui/fields/anchos.h"
#include "ui/shell/contenedores.h"
#include "ui/shell/trabajo_largo.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMdiArea>
#include <QScopedValueRollback>
#include <QScreen>
#include <QTimer>
#include <map>

struct Navegacion::Interno
{
    std::map<QString, std::function<Pantalla*()>> fabricas;
    QPointer<QMainWindow> ventana;
    QPointer<QMdiArea> area;
    std::unique_ptr<QObject> conexiones; ///< ends the area's signals with it
    std::vector<QPointer<VentanaHija>> hijas;
    std::vector<QPointer<VentanaModal>> modales;
    QPointer<VentanaHija> ultima; ///< the child whose activation ran last
    bool suspendida = false;
    std::function<void(const QString&)> ayuda;

    /// Open ones only; forgets those that are gone.
    std::vector<VentanaHija*> abiertas()
    {
        std::erase_if(hijas, [](const auto& hija) { return hija.isNull(); });
        std::vector<VentanaHija*> vivas;
        for (const auto& hija : hijas)
        {
            if (hija->pantalla() != nullptr)
            {
                vivas.push_back(hija);
            }
        }
        return vivas;
    }
    /// The screens of the dialogs, that on top first.
    [[nodiscard]] std::vector<Pantalla*> enDialogos() const
    {
        std::vector<Pantalla*> pantallas;
        for (auto modal = modales.rbegin(); modal != modales.rend(); ++modal)
        {
            if (!modal->isNull() && (*modal)->pantalla() != nullptr)
            {
                pantallas.push_back((*modal)->pantalla());
            }
        }
        return pantallas;
    }
};

namespace
{
constexpr int milisegundosDeEspera = 50;
} // namespace

Navegacion::Navegacion()
    : m_interno(std::make_unique<Interno>())
{
}

Navegacion::~Navegacion() = default;

Navegacion& Navegacion::instancia()
{
    static Navegacion unica;
    return unica;
}

void Navegacion::registrar(const QString& nombre, std::function<Pantalla*()> fabrica)
{
    m_interno->fabricas[nombre] = std::move(fabrica);
}

void Navegacion::fijarVentana(QMainWindow* ventana, QMdiArea* area)
{
    if (!m_interno->ventana.isNull())
    {
        m_interno->ventana->removeEventFilter(this);
    }
    m_interno->conexiones.reset();
    m_interno->hijas.clear();
    m_interno->ultima = nullptr;
    m_interno->ventana = ventana;
    fijarVentanaParaCajas(ventana);
    m_interno->area = area;
    if (ventana != nullptr)
    {
        ventana->installEventFilter(this);
    }
    if (area != nullptr)
    {
        m_interno->conexiones = std::make_unique<QObject>();
        area->setActivationOrder(
            QMdiArea::ActivationHistoryOrder); // closing one brings back the one worked on before it
        connect(area, &QMdiArea::subWindowActivated, m_interno->conexiones.get(), [this] { pedirRevision(); });
        connect(qApp, &QApplication::focusChanged, m_interno->conexiones.get(),
                [this](QWidget*, QWidget* nuevo) { alTomarFoco(nuevo); });
        // Once the toolkit is through with changing windows.
        const auto recordar = [this]
        {
            if (!m_interno->ultima.isNull() && m_interno->area->currentSubWindow() == m_interno->ultima)
            {
                m_interno->ultima->recordarFoco();
            }
        };
        connect(qApp, &QApplication::focusChanged, m_interno->conexiones.get(), recordar, Qt::QueuedConnection);
        area->installEventFilter(this);
    }
}

Pantalla* Navegacion::cargada(const QString& nombre)
{
    const auto fabrica = m_interno->fabricas.find(nombre);
    if (fabrica == m_interno->fabricas.end())
    {
        return nullptr;
    }
    QPointer<Pantalla> pantalla;
    bool lista = false;
    protegido(
        [&]
        {
            const Validacion::Pausa pausa;
            pantalla = fabrica->second();
            if (!pantalla.isNull())
            {
                ensancharCampos(*pantalla);
                pantalla->cargar();
                lista = true;
            }
        });
    if (lista && !pantalla.isNull() && !pantalla->cerrada())
    {
        return pantalla;
    }
    if (!pantalla.isNull())
    {
        pantalla->deleteLater();
    }
    return nullptr;
}

void Navegacion::mostrar(const QString& nombre)
{
    for (VentanaHija* hija : m_interno->abiertas())
    {
        if (hija->pantalla()->objectName() == nombre)
        {
            traerAlFrente(hija);
            return;
        }
    }
    if (m_interno->area.isNull())
    {
        return;
    }
    if (Pantalla* pantalla = cargada(nombre))
    {
        agregarHija(pantalla);
    }
}

void Navegacion::agregarHija(Pantalla* pantalla)
{
    auto* hija = new VentanaHija(pantalla);
    connect(hija, &QObject::destroyed, m_interno->conexiones.get(), [this] { pedirRevision(); });
    m_interno->hijas.emplace_back(hija);
    m_interno->area->addSubWindow(hija);
    hija->centrar(m_interno->area->viewport()->size());
    traerAlFrente(hija);
}

void Navegacion::traerAlFrente(VentanaHija* hija)
{
    {
        // A button has left its field before it acts, and a menu leaves none: what comes up leaves no field either.
        Validacion::instancia().posponer();
        const Validacion::Pausa pausa;
        hija->isMinimized() ? hija->showNormal() : hija->show();
        m_interno->area->setActiveSubWindow(hija);
    }
    revisarActiva();
}

void Navegacion::mostrarModal(const QString& nombre)
{
    Pantalla* pantalla = cargada(nombre);
    if (pantalla == nullptr)
    {
        return;
    }
    QWidget* padre = m_interno->ventana;
    for (const auto& modal : m_interno->modales)
    {
        padre = modal.isNull() ? padre : modal.data();
    }
    const QPointer<VentanaModal> dialogo = new VentanaModal(pantalla, padre);
    const QScreen* monitor =
        m_interno->ventana.isNull() ? QGuiApplication::primaryScreen() : m_interno->ventana->screen();
    dialogo->centrar(*monitor);
    m_interno->modales.push_back(dialogo);
    dialogo->show();
    Q_EMIT cambioDePantalla();
    protegido([pantalla] { pantalla->activar(); });
    if (!dialogo.isNull() && dialogo->isVisible())
    {
        dialogo->exec();
    }
    std::erase_if(m_interno->modales, [&](const auto& modal) { return modal.isNull() || modal == dialogo; });
    if (!dialogo.isNull())
    {
        dialogo->deleteLater();
    }
    Q_EMIT cambioDePantalla();
}

Pantalla* Navegacion::abierta(const QString& nombre) const
{
    for (const auto& pantallas : {m_interno->enDialogos(), hijas()})
    {
        for (Pantalla* pantalla : pantallas)
        {
            if (pantalla->objectName() == nombre)
            {
                return pantalla;
            }
        }
    }
    return nullptr;
}

Pantalla* Navegacion::actual() const
{
    const std::vector<Pantalla*> pantallas = m_interno->enDialogos();
    return pantallas.empty() ? hijaActiva() : pantallas.front();
}

Pantalla* Navegacion::hijaActiva() const
{
    const auto* hija =
        m_interno->area.isNull() ? nullptr : qobject_cast<VentanaHija*>(m_interno->area->currentSubWindow());
    return hija != nullptr ? hija->pantalla() : nullptr;
}

QString Navegacion::empresaEnCurso() const
{
    std::vector<Pantalla*> pantallas = m_interno->enDialogos();
    pantallas.push_back(hijaActiva());
    for (const Pantalla* pantalla : pantallas)
    {
        if (pantalla != nullptr && !pantalla->empresaEnCurso().isEmpty())
        {
            return pantalla->empresaEnCurso();
        }
    }
    return {};
}

QString Navegacion::lugarEnCurso() const
{
    const Pantalla* pantalla = actual();
    return pantalla != nullptr ? pantalla->lugarEnCurso() : QString();
}

std::vector<Pantalla*> Navegacion::hijas() const
{
    std::vector<Pantalla*> pantallas;
    for (const VentanaHija* hija : m_interno->abiertas())
    {
        pantallas.push_back(hija->pantalla());
    }
    return pantallas;
}

bool Navegacion::cerrarTodas()
{
    if (TrabajoLargo::enCurso())
    {
        return false;
    }
    // Each closes one by one below, but only once all have agreed: a refusal keeps every window.
    std::vector<QPointer<VentanaHija>> abiertas;
    for (VentanaHija* hija : m_interno->abiertas())
    {
        if (!hija->pantalla()->puedeCerrarse())
        {
            return false;
        }
        abiertas.emplace_back(hija);
    }
    {
        // The children in between become active for a moment, which is nothing that the user did.
        const QScopedValueRollback suspendida(m_interno->suspendida, true);
        for (const auto& hija : abiertas)
        {
            if (!hija.isNull() && hija->pantalla() != nullptr)
            {
                hija->pantalla()->m_cerrada = true;
                hija->close();
            }
        }
    }
    pedirRevision();
    return true;
}

/// A child of which a part was moved out of the area comes in with the focus, and a control that is clicked is the one
/// worked on before its child is the active one.
void Navegacion::alTomarFoco(QWidget* control)
{
    const QWidget* vista = m_interno->area->viewport();
    for (VentanaHija* hija : m_interno->abiertas())
    {
        if (control == nullptr || control == hija || !hija->isAncestorOf(control))
        {
            continue;
        }
        if (QGuiApplication::mouseButtons() != Qt::NoButton)
        {
            hija->recordarFoco();
        }
        else if (!vista->rect().contains(QRect(control->mapTo(vista, QPoint()), control->size())))
        {
            hija->acomodar(vista->size());
        }
    }
}

void Navegacion::pedirRevision()
{
    QMetaObject::invokeMethod(this, &Navegacion::revisarActiva, Qt::QueuedConnection);
}

void Navegacion::revisarActiva()
{
    if (m_interno->suspendida || m_interno->area.isNull())
    {
        return;
    }
    if (TrabajoLargo::enCurso()) // what a screen does when it is activated would run in the middle of the work
    {
        QTimer::singleShot(milisegundosDeEspera, this, &Navegacion::revisarActiva);
        return;
    }
    auto* hija = qobject_cast<VentanaHija*>(m_interno->area->currentSubWindow());
    if (hija == m_interno->ultima)
    {
        return;
    }
    if (hija == nullptr || hija->pantalla() == nullptr)
    {
        Q_EMIT cambioDePantalla();
        return;
    }
    if (!m_interno->ultima.isNull())
    {
        m_interno->ultima->setActiva(false);
    }
    hija->setActiva(true);
    m_interno->ultima = hija;
    {
        const Validacion::Pausa pausa;
        hija->devolverFoco();
    }
    Q_EMIT cambioDePantalla();
    protegido([pantalla = hija->pantalla()] { pantalla->activar(); });
}

/// The control with the focus may be gone or disabled by the time that the window comes back from a box: the toolkit
/// would then give it to the first child by the order of the keys, and bring that one forward.
void Navegacion::darFocoALaActiva()
{
    QWidget* hija = m_interno->area.isNull() ? nullptr : m_interno->area->currentSubWindow();
    if (hija != nullptr)
    {
        hija->setFocus(Qt::ActiveWindowFocusReason);
    }
}

void Navegacion::fijarAyuda(std::function<void(const QString&)> abrir)
{
    m_interno->ayuda = std::move(abrir);
}

void Navegacion::ayuda()
{
    const Pantalla* pantalla = actual();
    ayuda(pantalla != nullptr ? pantalla->objectName() : QString());
}

void Navegacion::ayuda(const QString& pagina)
{
    if (m_interno->ayuda)
    {
        protegido([&] { m_interno->ayuda(pagina); });
    }
}

QMainWindow* Navegacion::ventana() const
{
    return m_interno->ventana;
}

bool Navegacion::eventFilter(QObject* objeto, QEvent* evento)
{
    if (objeto == m_interno->area && evento->type() == QEvent::Resize)
    {
        const auto acomodar = [this]
        {
            for (VentanaHija* hija : m_interno->abiertas())
            {
                hija->acomodar(m_interno->area->viewport()->size());
            }
        };
        QMetaObject::invokeMethod(m_interno->conexiones.get(), acomodar, Qt::QueuedConnection);
    }
    if (objeto != m_interno->ventana)
    {
        return false;
    }
    if (evento->type() == QEvent::WindowActivate && m_interno->ventana->focusWidget() == nullptr)
    {
        darFocoALaActiva();
    }
    if (evento->type() == QEvent::Close && TrabajoLargo::enCurso())
    {
        evento->ignore();
        return true;
    }
    if (evento->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(evento)->key() == Qt::Key_F1)
    {
        ayuda();
        return true;
    }
    return false;
}

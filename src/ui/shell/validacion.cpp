#include "ui/shell/validacion.h"

#include "ui/doors/mensajes.h"
#include "ui/shell/campos.h"
#include "ui/shell/pantalla.h"
#include "ui/shell/trabajo_largo.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMouseEvent>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QStyleHints>
#include <algorithm>

namespace
{
int pausas = 0;
} // namespace

Validacion::Pausa::Pausa()
{
    ++pausas;
}

Validacion::Pausa::~Pausa()
{
    --pausas;
}

Validacion::Validacion()
    : QObject(qApp)
{
    qApp->installEventFilter(this);
}

Validacion& Validacion::instancia()
{
    static QPointer<Validacion> unica;
    if (unica.isNull())
    {
        unica = new Validacion;
    }
    return *unica;
}

Validacion::Chequeo& Validacion::chequeoDe(QWidget* campo)
{
    if (!m_chequeos.contains(campo))
    {
        connect(campo, &QObject::destroyed, this, [this](const QObject* ido) { m_chequeos.remove(ido); });
    }
    return m_chequeos[campo];
}

void Validacion::alDejar(QWidget* campo, std::function<bool()> puedeDejar)
{
    chequeoDe(campo).puedeDejar.push_back(std::move(puedeDejar));
}

void Validacion::alDejarEditor(QWidget* editor, std::function<bool()> puedeDejar, std::function<void()> guardar)
{
    Chequeo& chequeo = chequeoDe(editor);
    chequeo.puedeDejar.push_back(std::move(puedeDejar));
    chequeo.guardar = std::move(guardar);
}

bool Validacion::intentarDejar()
{
    QWidget* campo = QApplication::focusWidget();
    if (campo == nullptr && QApplication::activeWindow() != nullptr)
    {
        campo = QApplication::activeWindow()->focusWidget();
    }
    return dejar(campo, Gesto::Otro) != Salida::Rechazada;
}

bool Validacion::ocupada(const QWidget* campo) const
{
    // A check that opens a modal screen leaves the fields of that screen checked.
    return !m_enChequeo.empty() && (m_enChequeo.back().isNull() || m_enChequeo.back()->window() == campo->window());
}

Validacion::Salida Validacion::dejar(QWidget* campo, Gesto gesto)
{
    const auto hallado = m_chequeos.constFind(campo);
    if (campo == nullptr || hallado == m_chequeos.constEnd() || pausas > 0 || ocupada(campo) || !campo->isEnabled() ||
        !campo->isVisible())
    {
        return Salida::Libre;
    }
    const Chequeo chequeo = *hallado; // NOLINT(performance-unnecessary-copy-initialization): a check may bind others
    const QPointer<QWidget> vivo = campo;
    const QPointer<QWidget> ventana = campo->window();
    const auto enChequeo = [&](const auto& pruebas)
    {
        m_enChequeo.emplace_back(campo);
        const auto fin = qScopeGuard([this] { m_enChequeo.pop_back(); });
        return std::all_of(pruebas.begin(), pruebas.end(), [](const auto& prueba) { return prueba(); });
    };
    const bool puede = enChequeo(chequeo.puedeDejar);
    if (vivo.isNull() || ventana.isNull())
    {
        return puede ? Salida::Libre : Salida::Rechazada;
    }
    if (!puede)
    {
        volver(campo);
        return Salida::Rechazada;
    }
    m_paso = campo;
    m_pasoTexto = campos::contenido(campo);
    if (ventana->focusWidget() != nullptr && ventana->focusWidget() != campo)
    {
        return Salida::YaMovida;
    }
    if (gesto == Gesto::Otro && chequeo.guardar)
    {
        chequeo.guardar();
    }
    return Salida::Libre;
}

void Validacion::volver(QWidget* campo)
{
    if (!campo->isVisible() || !campo->isEnabled())
    {
        return;
    }
    m_paso = nullptr;
    // The field that gives the focus back has not been left by the user.
    const QScopedValueRollback volviendo(m_volviendo, true);
    campo->window()->activateWindow();
    campo->setFocus(Qt::OtherFocusReason);
    campos::seleccionar(campo);
}

bool Validacion::eventFilter(QObject* objeto, QEvent* evento)
{
    switch (evento->type())
    {
    // At the window: when a filter sees a widget's press, the application has moved the focus already.
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return objeto->isWindowType() && alPulsar(objeto, static_cast<QMouseEvent*>(evento));
    case QEvent::MouseButtonRelease:
        return objeto->isWindowType() && alSoltar(objeto);
    case QEvent::KeyPress:
        return evento != m_tabPropio && alTeclear(objeto, static_cast<QKeyEvent*>(evento));
    case QEvent::Shortcut:
        return alAtajo(objeto);
    case QEvent::FocusIn:
        if (objeto == m_paso && !campos::esPasajero(static_cast<QFocusEvent*>(evento)->reason()))
        {
            m_paso = nullptr;
        }
        if (m_chequeos.contains(objeto))
        {
            alRecibirFoco(static_cast<QWidget*>(objeto));
        }
        return false;
    case QEvent::FocusOut:
        if (m_chequeos.contains(objeto))
        {
            alPerderFoco(static_cast<QWidget*>(objeto), static_cast<QFocusEvent*>(evento)->reason());
        }
        return false;
    default:
        return false;
    }
}

void Validacion::posponer()
{
    QWidget* campo = QApplication::focusWidget();
    if (m_chequeos.contains(campo) && campo != m_paso)
    {
        m_pospuesto = campo;
    }
}

bool Validacion::dejarPospuesto(QWidget* destino, QPoint lugar)
{
    QWidget* campo = m_pospuesto;
    const auto* suya = campos::antepasado<QMdiSubWindow>(campo);
    if (suya == nullptr || suya != campos::antepasado<QMdiSubWindow>(destino) || destino == campo ||
        campo->hasFocus() || !campos::sacaDe(campo, destino, lugar))
    {
        return true;
    }
    m_pospuesto = nullptr;
    // The field that holds the focus has passed its own check just before.
    const QPointer<QWidget> paso = m_paso;
    const QString texto = m_pasoTexto;
    if (dejar(campo, Gesto::Otro) == Salida::Rechazada)
    {
        return false;
    }
    m_paso = paso;
    m_pasoTexto = texto;
    return true;
}

bool Validacion::alPulsar(QObject* ventana, QMouseEvent* evento)
{
    // The rest of a double click whose first press was swallowed goes the same way, without a second box.
    const bool sigueAlTragado =
        m_tragadoEn == ventana && (evento->type() == QEvent::MouseButtonDblClick ||
                                   evento->timestamp() - m_tragadoA <
                                       static_cast<quint64>(QGuiApplication::styleHints()->mouseDoubleClickInterval()));
    if (sigueAlTragado)
    {
        return true;
    }
    m_tragadoEn = nullptr;
    QWidget* superior = QApplication::activePopupWidget() == nullptr ? campos::superficie(ventana) : nullptr;
    QWidget* campo = superior != nullptr ? campos::campoEn(superior) : nullptr;
    if (campo == nullptr)
    {
        return false;
    }
    const QPoint lugar = evento->position().toPoint();
    QWidget* destino = superior->childAt(lugar);
    if (destino == nullptr || destino == campo || campo->isAncestorOf(destino) ||
        !campos::sacaDe(campo, destino, lugar))
    {
        return false;
    }
    if (dejar(campo, Gesto::Otro) == Salida::Libre && dejarPospuesto(destino, lugar))
    {
        return false;
    }
    m_tragadoEn = ventana;
    m_tragadoA = evento->timestamp();
    return true;
}

bool Validacion::alSoltar(QObject* ventana)
{
    // A release without its press still counts as a click for a grid whose row was clicked before. The mark stays for
    // the second press of a double click.
    return m_tragadoEn == ventana;
}

bool Validacion::alTeclear(QObject* objeto, QKeyEvent* evento)
{
    if (objeto != QApplication::focusWidget() || QApplication::activePopupWidget() != nullptr)
    {
        return false;
    }
    auto* campo = static_cast<QWidget*>(objeto);
    if (campos::antepasado<QAbstractItemView>(campo) != nullptr)
    {
        // A grid walks its cells by itself; here its editor is only checked.
        return m_chequeos.contains(campo) && campos::dejaEditor(campo, *evento) &&
               dejar(campo, Gesto::Tecla) != Salida::Libre;
    }
    if (campos::esTab(*evento))
    {
        return dejar(campo, Gesto::Tecla) != Salida::Libre;
    }
    const bool deLaCasa = m_chequeos.contains(campo) || campos::antepasado<Pantalla>(campo) != nullptr;
    return campos::esEnter(*evento) && deLaCasa && alEntrar(campo, evento->isAutoRepeat());
}

bool Validacion::alEntrar(QWidget* campo, bool repetida)
{
    if (!campos::entraComoTab(campo))
    {
        auto* boton = qobject_cast<QAbstractButton*>(campo);
        if (boton != nullptr && !repetida) // a key held down walks the fields and presses nothing
        {
            boton->click();
        }
        return boton != nullptr;
    }
    if (dejar(campo, Gesto::Tecla) == Salida::Libre)
    {
        QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
        const QScopedValueRollback<const QEvent*> propio(m_tabPropio, &tab);
        QCoreApplication::sendEvent(campo, &tab);
    }
    return true;
}

bool Validacion::alAtajo(QObject* destino)
{
    QWidget* campo = QApplication::focusWidget();
    if (campo == nullptr && QApplication::activeWindow() != nullptr)
    {
        campo = QApplication::activeWindow()->focusWidget();
    }
    const auto* rotulo = qobject_cast<QLabel*>(destino);
    if (campo == nullptr || destino == campo || qobject_cast<QMenuBar*>(destino) != nullptr ||
        (rotulo != nullptr && rotulo->buddy() == campo))
    {
        return false;
    }
    // The system menu of a child window moves or closes it.
    if (qobject_cast<QAction*>(destino) != nullptr && campos::antepasado<Pantalla>(destino) == nullptr &&
        campos::antepasado<QMdiSubWindow>(destino) != nullptr)
    {
        return false;
    }
    return dejar(campo, Gesto::Otro) != Salida::Libre;
}

void Validacion::alRecibirFoco(QWidget* campo)
{
    m_recienLlegado = campo;
    m_pospuesto = m_pospuesto == campo ? nullptr : m_pospuesto;
    QMetaObject::invokeMethod(
        this, [this] { m_recienLlegado = nullptr; }, Qt::QueuedConnection);
}

void Validacion::alPerderFoco(QWidget* campo, Qt::FocusReason motivo)
{
    // A page or a button that goes hands the focus from one to the next: the user was never in the ones in between.
    if (m_recienLlegado == campo)
    {
        m_recienLlegado = nullptr;
        return;
    }
    if (campos::esPasajero(motivo) || pausas > 0 || m_volviendo || ocupada(campo))
    {
        return;
    }
    if (m_paso == campo && m_pasoTexto == campos::contenido(campo))
    {
        m_paso = nullptr;
        return;
    }
    // What moved the focus goes on first: code, a group of options walked by its arrows.
    QMetaObject::invokeMethod(
        this,
        [this, vivo = QPointer<QWidget>(campo)]
        {
            if (!vivo.isNull())
            {
                chequearTarde(vivo);
            }
        },
        Qt::QueuedConnection);
}

void Validacion::chequearTarde(QWidget* campo)
{
    if (campos::tieneElFoco(campo) || hayCajaAbierta())
    {
        return;
    }
    if (TrabajoLargo::enCurso()) // a wait for another desk: asked when the user goes on
    {
        m_pospuesto = campo;
        return;
    }
    const QPointer<QWidget> vivo = campo;
    dejar(campo, Gesto::Otro);
    if (!vivo.isNull() && m_paso == campo)
    {
        m_paso = nullptr; // it has lost the focus already
    }
}

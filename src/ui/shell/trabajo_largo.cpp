#include "ui/shell/trabajo_largo.h"

#include "ui/doors/caja_abierta.h"
#include "ui/doors/mensajes.h"

#include <QApplication>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <cmath>

namespace
{
constexpr qint64 entreDibujos = 80; // ms
constexpr int anchoDelAvance = 360; // pixels
constexpr int numeroDeCancelacion = 32755;
constexpr qint64 antesDeEstimar = 2000; // ms
int enMarcha = 0;
int demora = 500; // ms
bool punteroOcupado = false;
QPointer<QPushButton> botonCancelar; ///< of the progress on view

/// Throws away what the user types, clicks and closes while nobody listens, save for the button that cancels the work.
/// A box that the work itself shows is answered as always.
class Sordo : public QObject
{
public:
    bool eventFilter(QObject* objeto, QEvent* evento) override
    {
        if (hayCajaAbierta())
        {
            return false;
        }
        switch (evento->type())
        {
        case QEvent::MouseMove:
            return static_cast<QMouseEvent*>(evento)->buttons() != Qt::NoButton && !esParaCancelar(objeto, evento);
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
            return !esParaCancelar(objeto, evento);
        case QEvent::ShortcutOverride: // else the window's own shortcut would keep Escape from the work
            evento->accept();
            return true;
        case QEvent::KeyPress:
            if (objeto->isWindowType() && !botonCancelar.isNull() &&
                static_cast<QKeyEvent*>(evento)->key() == Qt::Key_Escape)
            {
                botonCancelar->click();
            }
            return true;
        case QEvent::Close: // asked for by the user, not by the program
            if (evento->spontaneous())
            {
                evento->ignore();
            }
            return evento->spontaneous();
        case QEvent::KeyRelease:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::Shortcut:
        case QEvent::InputMethod:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TabletPress:
        case QEvent::TabletRelease:
        case QEvent::DragEnter:
        case QEvent::Drop:
            return true;
        default:
            return false;
        }
    }

private:
    /// The mouse reaches a window first and then what lies there in it.
    static bool esParaCancelar(const QObject* objeto, const QEvent* evento)
    {
        if (botonCancelar.isNull() || objeto == botonCancelar)
        {
            return objeto == botonCancelar;
        }
        const QPoint lugar = static_cast<const QMouseEvent*>(evento)->globalPosition().toPoint();
        return objeto == botonCancelar->window()->windowHandle() &&
               (botonCancelar->isDown() || botonCancelar->rect().contains(botonCancelar->mapFromGlobal(lugar)));
    }
};

std::unique_ptr<Sordo> sordo; ///< there while any work is under way
} // namespace

TrabajoCancelado::TrabajoCancelado()
    : ErrorParaAvisar(numeroDeCancelacion, QStringLiteral("La operación ha sido cancelada."))
{
}

void TrabajoCancelado::pasar(const ErrorDeEjecucion& error)
{
    if (dynamic_cast<const TrabajoCancelado*>(&error) != nullptr)
    {
        throw;
    }
}

QString tiempoRestante(qint64 transcurrido, qint64 hecho, qint64 total)
{
    if (transcurrido < antesDeEstimar || hecho <= 0 || hecho >= total)
    {
        return {};
    }
    constexpr double paso = 5; // s: nearer than this it would only flicker
    constexpr double minuto = 60;
    constexpr double loMasQueSeDice = 999;
    const double segundos =
        static_cast<double>(transcurrido) / 1000 / static_cast<double>(hecho) * static_cast<double>(total - hecho);
    if (segundos <= minuto - paso)
    {
        return QStringLiteral("faltan unos %1 s").arg(std::ceil(segundos / paso) * paso);
    }
    const double minutos = std::max(1.0, std::round(segundos / minuto));
    if (minutos > loMasQueSeDice)
    {
        return {};
    }
    return minutos < 2 ? QStringLiteral("falta 1 min") : QStringLiteral("faltan %1 min").arg(minutos);
}

struct TrabajoLargo::Interno
{
    QString titulo;
    bool cancelable = false;
    bool cancelado = false;
    QElapsedTimer comienzo;
    QElapsedTimer dibujo;
    QPointer<QFrame> cuadro; ///< lies in the window at work, so that no window loses its place to it
    QPointer<QProgressBar> barra;
    QPointer<QLabel> resto;

    void mostrar()
    {
        QWidget* ventana = ventanaParaCaja();
        cuadro = new QFrame(ventana, ventana == nullptr ? Qt::SplashScreen : Qt::Widget);
        cuadro->setObjectName(QStringLiteral("avance"));
        cuadro->setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
        cuadro->setAutoFillBackground(true);
        auto* rotulo = new QLabel(titulo, cuadro);
        rotulo->setTextFormat(Qt::PlainText);
        rotulo->setWordWrap(true);
        barra = new QProgressBar(cuadro);
        barra->setAccessibleName(titulo);
        auto* disposicion = new QVBoxLayout(cuadro);
        disposicion->setContentsMargins(16, 16, 16, 16);
        disposicion->setSpacing(8);
        disposicion->addWidget(rotulo);
        disposicion->addWidget(barra);
        resto = new QLabel(QStringLiteral(" "), cuadro); // its line is there from the beginning
        resto->setObjectName(QStringLiteral("lblResto"));
        disposicion->addWidget(resto);
        if (cancelable)
        {
            disposicion->addWidget(botonDeCancelar(), 0, Qt::AlignRight);
        }
        cuadro->setFixedWidth(ventana != nullptr ? qMin(anchoDelAvance, ventana->width()) : anchoDelAvance);
        cuadro->adjustSize();
        if (ventana != nullptr)
        {
            cuadro->move((ventana->width() - cuadro->width()) / 2, (ventana->height() - cuadro->height()) / 2);
        }
        cuadro->show();
        cuadro->raise();
    }

    void medir(qint64 hecho, qint64 total)
    {
        if (barra.isNull() || resto.isNull())
        {
            return;
        }
        constexpr int milesimos = 1000;
        const qint64 parte = total > 0 ? qBound<qint64>(0, hecho, total) : 0;
        barra->setRange(0, total > 0 ? milesimos : 0);
        barra->setValue(
            total > 0 ? static_cast<int>(static_cast<double>(parte) / static_cast<double>(total) * milesimos) : 0);
        resto->setText(tiempoRestante(comienzo.elapsed(), hecho, total));
    }

    QPushButton* botonDeCancelar()
    {
        auto* boton = new QPushButton(QStringLiteral("Cancelar"), cuadro);
        boton->setObjectName(QStringLiteral("cmdCancelarTrabajo"));
        boton->setFocusPolicy(Qt::NoFocus); // the focus stays where the user left it
        boton->setCursor(Qt::ArrowCursor);
        QObject::connect(boton, &QPushButton::clicked, boton,
                         [this, boton]
                         {
                             cancelado = true;
                             boton->setEnabled(false);
                         });
        botonCancelar = boton;
        return boton;
    }
};

TrabajoLargo::TrabajoLargo(const QString& titulo, Cancelable cancelable)
    : m_interno(std::make_unique<Interno>())
{
    m_interno->titulo = titulo;
    m_interno->cancelable = cancelable == Cancelable::Si;
    m_interno->comienzo.start();
    if (enMarcha++ == 0)
    {
        sordo = std::make_unique<Sordo>();
        qApp->installEventFilter(sordo.get());
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

TrabajoLargo::~TrabajoLargo()
{
    if (!m_interno->cuadro.isNull())
    {
        QGuiApplication::sync(); // what the window system still holds is thrown away, too
        delete m_interno->cuadro;
    }
    QApplication::restoreOverrideCursor();
    if (--enMarcha == 0)
    {
        sordo.reset();
    }
}

void TrabajoLargo::avanzar(qint64 hecho, qint64 total)
{
    const bool seVe = !m_interno->cuadro.isNull();
    if (seVe ? m_interno->dibujo.elapsed() < entreDibujos : m_interno->comienzo.elapsed() < demora)
    {
        return;
    }
    if (!seVe)
    {
        m_interno->mostrar();
    }
    m_interno->medir(hecho, total);
    QCoreApplication::processEvents();
    m_interno->dibujo.start();
    if (m_interno->cancelado)
    {
        throw TrabajoCancelado();
    }
}

Aviso TrabajoLargo::aviso()
{
    return [this](qint64 hecho, qint64 total) { avanzar(hecho, total); };
}

bool TrabajoLargo::enCurso()
{
    return enMarcha > 0;
}

void TrabajoLargo::fijarDemora(int milisegundos)
{
    demora = milisegundos;
}

void Puntero::ocupado()
{
    if (!punteroOcupado)
    {
        punteroOcupado = true;
        QApplication::setOverrideCursor(Qt::WaitCursor);
    }
}

void Puntero::normal()
{
    if (punteroOcupado)
    {
        punteroOcupado = false;
        QApplication::restoreOverrideCursor();
    }
}

bool Puntero::estaOcupado()
{
    return punteroOcupado;
}

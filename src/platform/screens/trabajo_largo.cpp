#include "platform/screens/trabajo_largo.h"

#include "platform/screens/caja_abierta.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFrame>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QVBoxLayout>
#include <exception>
#include <limits>

namespace
{
constexpr qint64 entreDibujos = 80; // ms
constexpr int anchoDelAvance = 360; // pixels
int enMarcha = 0;
int demora = 500; // ms
bool punteroOcupado = false;

/// Throws away what the user typed and clicked while nobody listened.
class Sordo : public QObject
{
public:
    bool eventFilter(QObject* /*objeto*/, QEvent* evento) override
    {
        switch (evento->type())
        {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::ShortcutOverride:
        case QEvent::Shortcut:
        case QEvent::TouchBegin:
        case QEvent::TouchEnd:
            return true;
        default:
            return false;
        }
    }
};
} // namespace

struct TrabajoLargo::Interno
{
    QString titulo;
    QElapsedTimer comienzo;
    QElapsedTimer dibujo;
    QPointer<QFrame> cuadro; ///< lies in the window at work, so that no window loses its place to it
    QPointer<QProgressBar> barra;
    int excepciones = 0;

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
        cuadro->setFixedWidth(ventana != nullptr ? qMin(anchoDelAvance, ventana->width()) : anchoDelAvance);
        cuadro->adjustSize();
        if (ventana != nullptr)
        {
            cuadro->move((ventana->width() - cuadro->width()) / 2, (ventana->height() - cuadro->height()) / 2);
        }
        cuadro->show();
        cuadro->raise();
    }
};

TrabajoLargo::TrabajoLargo(const QString& titulo)
    : m_interno(std::make_unique<Interno>())
{
    m_interno->titulo = titulo;
    m_interno->comienzo.start();
    m_interno->excepciones = std::uncaught_exceptions();
    ++enMarcha;
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

TrabajoLargo::~TrabajoLargo()
{
    if (!m_interno->cuadro.isNull())
    {
        if (std::uncaught_exceptions() == m_interno->excepciones)
        {
            Sordo sordo;
            qApp->installEventFilter(&sordo);
            QCoreApplication::processEvents();
        }
        delete m_interno->cuadro;
    }
    QApplication::restoreOverrideCursor();
    --enMarcha;
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
    if (!m_interno->barra.isNull())
    {
        constexpr int milesimos = 1000;
        m_interno->barra->setRange(0, total > 0 ? milesimos : 0);
        const qint64 parte = total > 0 ? qBound<qint64>(0, hecho, total) : 0;
        m_interno->barra->setValue(
            total > 0 ? static_cast<int>(static_cast<double>(parte) / static_cast<double>(total) * milesimos) : 0);
    }
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    m_interno->dibujo.start();
}

std::function<void(qint64, qint64)> TrabajoLargo::aviso()
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

#include "maintenance/screens/version.h"

#include "configuracion.h"
#include "maintenance/screens/rotulos.h"
#include "ui/doors/dialogos.h"
#include "ui/look/estilo.h"
#include "ui_version.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>

Version::Version(QWidget* padre)
    : Pantalla(QStringLiteral("Version"), padre)
    , ui(std::make_unique<Ui::Version>())
{
    ui->setupUi(this);
    setWindowFlags(Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowCloseButtonHint);
    ui->Image1->setPixmap(Estilo::iconoDelPrograma().pixmap(96, 96));
    rotuloDePrograma(ui->Label1);
    ui->lblLink->setText(QString::fromUtf8(configuracion::enlaceVersion));
    QFont subrayada = ui->lblLink->font();
    subrayada.setUnderline(true);
    ui->lblLink->setFont(subrayada);
    ui->lblLink->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred); // the ground beside it is no link
    ui->lblLink->setCursor(Qt::PointingHandCursor);
    ui->lblLink->setFocusPolicy(Qt::StrongFocus);
    ui->lblLink->setAccessibleName(QStringLiteral("Enlace a la nueva versión: ") + ui->lblLink->text());
    ui->lblLink->setMouseTracking(true);
    ui->lblLink->installEventFilter(this);
    setMouseTracking(true);
    colorDelEnlace(false);
}

Version::~Version() = default;

void Version::cargar()
{
    ui->lblVersion->setVisible(!ui->lblVersion->text().isEmpty());
    ui->lblLink->setVisible(!ui->lblLink->text().isEmpty());
}

bool Version::eventFilter(QObject* objeto, QEvent* evento)
{
    if (objeto != ui->lblLink)
    {
        return Pantalla::eventFilter(objeto, evento);
    }
    switch (evento->type())
    {
    case QEvent::MouseMove:
    case QEvent::Enter:
        colorDelEnlace(true);
        break;
    case QEvent::Leave:
        colorDelEnlace(false);
        break;
    case QEvent::MouseButtonRelease:
        if (const auto* raton = static_cast<QMouseEvent*>(evento);
            raton->button() == Qt::LeftButton && ui->lblLink->rect().contains(raton->position().toPoint()))
        {
            protegido([this] { lblLink_Click(); });
        }
        break;
    case QEvent::KeyPress:
        if (const int tecla = static_cast<QKeyEvent*>(evento)->key();
            tecla == Qt::Key_Return || tecla == Qt::Key_Enter || tecla == Qt::Key_Space)
        {
            protegido([this] { lblLink_Click(); });
        }
        break;
    default:
        break;
    }
    return Pantalla::eventFilter(objeto, evento);
}

void Version::mouseMoveEvent(QMouseEvent* evento)
{
    colorDelEnlace(false);
    Pantalla::mouseMoveEvent(evento);
}

void Version::lblLink_Click()
{
    AbrirEnlace(ui->lblLink->text());
}

void Version::colorDelEnlace(bool encima)
{
    QPalette paleta = ui->lblLink->palette();
    const QColor color = encima ? QColor(255, 0, 0) : QColor(0, 0, 255);
    paleta.setColor(QPalette::WindowText, Estilo::deAltoContraste() ? palette().color(QPalette::WindowText) : color);
    ui->lblLink->setPalette(paleta);
}

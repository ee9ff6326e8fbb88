#include "maintenance/screens/acercade.h"

#include "configuracion.h"
#include "core/rutinas.h"
#include "maintenance/screens/rotulos.h"
#include "ui/look/estilo.h"
#include "ui_acercade.h"

Acercade::Acercade(QWidget* padre)
    : Pantalla(QStringLiteral("Acercade"), padre)
    , ui(std::make_unique<Ui::Acercade>())
{
    ui->setupUi(this);
    ui->Image1->setPixmap(Estilo::iconoDelPrograma().pixmap(96, 96));
    rotuloDePrograma(ui->Label1);
    ui->Label4_0->setText(QString::fromUtf8(configuracion::web));
    ui->Label4_1->setText(QString::fromUtf8(configuracion::correoSoporte));
    ui->Label4_2->setText(QString::fromUtf8(configuracion::telefonoSoporte));
    for (QLabel* dato : {ui->Label4_0, ui->Label4_1, ui->Label4_2})
    {
        dato->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
}

Acercade::~Acercade() = default;

void Acercade::cargar()
{
    ui->lblVersion->setText(QStringLiteral("Versión: ") + Rutinas::VersionDe(Rutinas::Conexion));
}

#include "exchange/screens/importar.h"

#include "core/rutinas.h"
#include "ui/doors/dialogos.h"
#include "ui/doors/mensajes.h"
#include "ui/look/estilo.h"
#include "ui_importar.h"

Importar::Importar(QWidget* padre)
    : Pantalla(QStringLiteral("Importar"), padre)
    , ui(std::make_unique<Ui::Importar>())
{
    ui->setupUi(this);
    Estilo::boton(ui->cmdExaminar, QStringLiteral("examinar"));
    Estilo::boton(ui->cmdOK, QStringLiteral("importar"), true);
    Estilo::boton(ui->cmdSalir, QStringLiteral("salir"));
    conectar(ui->cmdExaminar, &QPushButton::clicked, &Importar::cmdExaminar_Click);
    conectar(ui->cmdOK, &QPushButton::clicked, &Importar::cmdOK_Click);
    conectar(ui->cmdSalir, &QPushButton::clicked, &Importar::cerrar);
}

Importar::~Importar() = default;

void Importar::cmdExaminar_Click()
{
    PedidoDeArchivo pedido;
    pedido.titulo = QStringLiteral("Seleccione el Archivo a Importar");
    pedido.nombreInicial = ui->txtOrigen->text();
    const QString elegido = DialogoArchivo(pedido);
    if (!elegido.isEmpty())
    {
        ui->txtOrigen->setText(elegido);
    }
}

void Importar::cmdOK_Click()
{
    if (ui->txtOrigen->text().isEmpty())
    {
        MsgBox(QStringLiteral("Debe seleccionar el Nombre y la Ubicación del Archivo de Texto a Importar."),
               Caja::Informacion);
        return;
    }
    if (!ui->optFormato_0->isChecked() && !ui->optFormato_1->isChecked())
    {
        MsgBox(QStringLiteral("Debe seleccionar el Formato correspondiente del Archivo Seleccionado."),
               Caja::Informacion);
        return;
    }
    if (!Preguntar(QStringLiteral("Está seguro que desea Importar los Datos de la DDJJ desde el Achivo Seleccionado?")))
    {
        return;
    }
    Rutinas::TextoDevuelto = ui->txtOrigen->text();
    Rutinas::FormatoImportar = ui->optFormato_0->isChecked() ? 0 : 1;
    cerrar();
}

#include "maintenance/screens/backup.h"

#include "core/rutinas.h"
#include "maintenance/respaldo.h"
#include "platform/data/directorio_programa.h"
#include "platform/data/error_de_ejecucion.h"
#include "platform/data/formato.h"
#include "platform/data/reloj.h"
#include "platform/screens/dialogos.h"
#include "platform/screens/estilo.h"
#include "platform/screens/mensajes.h"
#include "platform/screens/trabajo_largo.h"
#include "ui_backup.h"

Backup::Backup(QWidget* padre)
    : Pantalla(QStringLiteral("Backup"), padre)
    , ui(std::make_unique<Ui::Backup>())
{
    ui->setupUi(this);
    for (QLineEdit* campo : {ui->txtOrigen_0, ui->txtDestino_0, ui->txtDestino_1})
    {
        Estilo::soloMuestra(campo);
    }
    Estilo::boton(ui->cmdOK, QStringLiteral("respaldo"), true);
    Estilo::boton(ui->cmdSalir, QStringLiteral("salir"));
    Estilo::boton(ui->cmdExaminar, QStringLiteral("examinar"));
    conectar(ui->SSTab1, &QTabWidget::currentChanged, [this] { SSTab1_Click(); });
    conectar(ui->cmdExaminar, &QPushButton::clicked, [this] { cmdExaminar_Click(); });
    conectar(ui->cmdOK, &QPushButton::clicked, [this] { cmdOK_Click(); });
    conectar(ui->cmdSalir, &QPushButton::clicked, [this] { cmdSalir_Click(); });
}

Backup::~Backup() = default;

void Backup::cargar()
{
    ui->SSTab1->setCurrentIndex(0);
    SSTab1_Click();
    ui->txtOrigen_0->setText(Rutinas::rutaBase());
    ui->txtDestino_1->setText(Rutinas::rutaBase());
    const UltimaCopia ultima = leerUltimaCopia(Rutinas::Conexion);
    if (ultima.carpeta.isEmpty())
    {
        ui->lblUltimo->clear();
        return;
    }
    ui->lblUltimo->setText(QLatin1Char('\'') + ultima.carpeta + QStringLiteral("'  -  Fecha: ") +
                           Formato(ultima.fecha, u"DD/MM/YY") + QStringLiteral("  -  Hora: ") +
                           Formato(ultima.hora, u"HH:MM"));
    ui->txtOrigen_1->setText(ultima.carpeta);
}

void Backup::SSTab1_Click()
{
    const int pagina = ui->SSTab1->currentIndex();
    ui->cmdOK->setText(ui->SSTab1->tabText(pagina));
    Estilo::boton(ui->cmdOK, pagina == 0 ? QStringLiteral("respaldo") : QStringLiteral("restaurar"), true);
}

void Backup::cmdExaminar_Click()
{
    PedidoDeArchivo pedido;
    pedido.titulo = QStringLiteral("Seleccione la Base de Datos a Recuperar");
    ui->txtOrigen_1->setText(DialogoArchivo(pedido));
}

void Backup::cmdSalir_Click()
{
    cerrar();
}

void Backup::cmdOK_Click()
{
    const bool resguarda = ui->SSTab1->currentIndex() == 0;
    if (!resguarda && !puedeRestaurar())
    {
        return;
    }
    try
    {
        resguarda ? resguardarBase() : restaurarBase();
        cerrar();
    }
    catch (const ErrorDeEjecucion& error)
    {
        informarFalla(error);
    }
}

void Backup::resguardarBase()
{
    Rutinas::CerrarBase();
    CarpetaCopia = carpetaDeCopia(DirectorioPrograma(), Reloj::Ahora());
    ui->txtDestino_0->setText(prepararCopia(CarpetaCopia));
    {
        TrabajoLargo trabajo(QStringLiteral("Copiando la base de datos"));
        resguardar(ui->txtOrigen_0->text(), ui->txtDestino_0->text(), trabajo.aviso());
    }
    Rutinas::AbrirBase();
    anotarCopia(Rutinas::Conexion, ui->txtDestino_0->text(), Reloj::Ahora());
    MsgBox(QStringLiteral("Se ha realizado una Copia de la Base de Datos en la Ubicación: '") +
               ui->txtDestino_0->text() + QLatin1Char('\''),
           Caja::Informacion);
}

bool Backup::puedeRestaurar()
{
    switch (revisarRestauracion(ui->txtOrigen_1->text(), ui->txtDestino_1->text()))
    {
    case FallaDeRestauracion::SinOrigen:
        MsgBox(QStringLiteral("Debe seleccionar la Ubicación de la Base de Datos a Recuperar"));
        return false;
    case FallaDeRestauracion::SobreSiMisma:
        MsgBox(QStringLiteral(
                   "Debe seleccionar otra Ubicación de la Base de Datos.  No se puede recuperar sobre si misma."),
               Caja::Exclamacion);
        return false;
    case FallaDeRestauracion::NoEsDelSistema:
        MsgBox(QStringLiteral("La Base de Datos a Recuperar no es la que corresponde al Sistema.  Por favor, verifique "
                              "la misma."),
               Caja::Exclamacion);
        return false;
    case FallaDeRestauracion::Ninguna:
        break;
    }
    return Preguntar(QStringLiteral("Está seguro que desea reemplazar la Base de Datos Actual?"));
}

void Backup::restaurarBase()
{
    Rutinas::CerrarBase();
    {
        TrabajoLargo trabajo(QStringLiteral("Restaurando la base de datos"));
        restaurar(ui->txtOrigen_1->text(), ui->txtDestino_1->text(),
                  Rutinas::RutaApp + QStringLiteral("DBBrivo_Bak.mdb"), trabajo.aviso());
    }
    MsgBox(QStringLiteral("La Base de Datos ha sido reemplazada con exito."), Caja::Informacion);
    Rutinas::AbrirBase();
}

void Backup::informarFalla(const ErrorDeEjecucion& error)
{
    if (error.numero() == ErrorDeEjecucion::EnUso)
    {
        MsgBox(
            QStringLiteral("Disculpe, no se puede hacer la Copia de Seguridad porque otro Usuario está Ejecutando el "
                           "Sistema."),
            Caja::Critico);
    }
    else
    {
        MsgBox(QString::number(error.numero()) + QLatin1Char(' ') + error.descripcion());
    }
    Rutinas::AbrirBase();
}

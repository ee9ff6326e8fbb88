#include "maintenance/screens/backup.h"

#include "base/directorio_programa.h"
#include "base/error_de_ejecucion.h"
#include "base/reloj.h"
#include "core/rutinas.h"
#include "core/screens/base_cerrada.h"
#include "core/ultima_copia.h"
#include "core/versiones.h"
#include "maintenance/respaldo.h"
#include "ui/doors/dialogos.h"
#include "ui/doors/mensajes.h"
#include "ui/look/estilo.h"
#include "ui/shell/trabajo_largo.h"
#include "ui_backup.h"

#include <QDir>

namespace
{
/// What the user must do when the database that was brought back is an older one: each start upgrades it by one
/// version. Nothing when the base could not be opened again or read, which is told by who opens it.
QString avisoDeVersion()
{
    QString version;
    try
    {
        version = Rutinas::VersionDe(Rutinas::Conexion);
    }
    catch (const ErrorDeEjecucion&)
    {
        return {};
    }
    return !version.isEmpty() && version < versiones::actual
               ? QStringLiteral("\n\nLa que se restauró es de la versión %1: cierre y vuelva a abrir el programa para "
                                "actualizarla.")
                     .arg(version)
               : QString();
}

/// A copy that was made with the damage of its origin is kept, and told.
void avisarDano(const QString& dano)
{
    if (!dano.isEmpty())
    {
        MsgBox(QStringLiteral(
                   "La copia tiene el daño de la Base de Datos: %1.\n\nNo borre las copias anteriores y avise a "
                   "quien da soporte.")
                   .arg(dano),
               Caja::Exclamacion);
    }
}
} // namespace

Backup::Backup(QWidget* padre)
    : Pantalla(QStringLiteral("Backup"), padre)
    , ui(std::make_unique<Ui::Backup>())
{
    ui->setupUi(this);
    Estilo::soloMuestra({ui->txtOrigen_0, ui->txtDestino_0, ui->txtDestino_1});
    Estilo::boton(ui->cmdOK, QStringLiteral("respaldo"), true);
    Estilo::boton(ui->cmdSalir, QStringLiteral("salir"));
    Estilo::boton(ui->cmdExaminar, QStringLiteral("examinar"));
    conectar(ui->SSTab1, &QTabWidget::currentChanged, &Backup::SSTab1_Click);
    conectar(ui->cmdExaminar, &QPushButton::clicked, &Backup::cmdExaminar_Click);
    conectar(ui->cmdOK, &QPushButton::clicked, &Backup::cmdOK_Click);
    conectar(ui->cmdSalir, &QPushButton::clicked, &Backup::cerrar);
}

Backup::~Backup() = default;

void Backup::cargar()
{
    ui->SSTab1->setCurrentIndex(0);
    SSTab1_Click();
    ui->txtOrigen_0->setText(Rutinas::rutaBase());
    ui->txtDestino_1->setText(Rutinas::rutaBase());
    const UltimaCopia ultima = leerUltimaCopia(Rutinas::Conexion);
    ui->lblUltimo->setHidden(ultima.carpeta.isEmpty());
    if (ultima.carpeta.isEmpty())
    {
        ui->lblUltimo->clear();
        return;
    }
    ui->lblUltimo->setText(QLatin1Char('\'') + ultima.carpeta + QStringLiteral("'  -  Fecha: ") +
                           ultima.fecha.toString(u"dd/MM/yy") + QStringLiteral("  -  Hora: ") +
                           ultima.hora.toString(u"HH:mm"));
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

void Backup::cmdOK_Click()
{
    if (ui->SSTab1->currentIndex() == 0)
    {
        resguardarBase();
    }
    else if (puedeRestaurar())
    {
        restaurarBase();
    }
}

void Backup::resguardarBase()
{
    QString dano;
    Rutinas::ConLaBaseCerrada(
        QStringLiteral("Copiando la base de datos"),
        [&](const Aviso& aviso)
        {
            CarpetaCopia = carpetaDeCopia(DirectorioPrograma(), Reloj::Ahora());
            ui->txtDestino_0->setText(prepararCopia(CarpetaCopia));
            try
            {
                dano = resguardar(ui->txtOrigen_0->text(), ui->txtDestino_0->text(), aviso);
            }
            catch (const TrabajoCancelado&)
            {
                QDir().rmdir(CarpetaCopia); // unless a copy of this minute lies in it
                ui->txtDestino_0->clear();
                throw;
            }
        },
        [&](const std::optional<ErrorDeEjecucion>& falla) { contarResguardo(falla, dano); });
}

void Backup::contarResguardo(const std::optional<ErrorDeEjecucion>& falla, const QString& dano)
{
    try
    {
        if (falla)
        {
            throw ErrorDeEjecucion(*falla);
        }
        anotarCopia(Rutinas::Conexion, ui->txtDestino_0->text(), Reloj::Ahora());
    }
    catch (const ErrorDeEjecucion& error)
    {
        informarFalla(error);
        avisarDano(dano); // the copy stands, noted or not
        return;
    }
    MsgBox(QStringLiteral("Se ha realizado una Copia de la Base de Datos en la Ubicación: '") +
               ui->txtDestino_0->text() + QLatin1Char('\''),
           Caja::Informacion);
    avisarDano(dano);
    cerrar();
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
    Rutinas::ConLaBaseCerrada(
        QStringLiteral("Restaurando la base de datos"),
        [&](const Aviso& aviso)
        {
            restaurar(ui->txtOrigen_1->text(), ui->txtDestino_1->text(),
                      Rutinas::RutaApp + QStringLiteral("DBBrivo_Bak.mdb"), aviso);
        },
        [&](const std::optional<ErrorDeEjecucion>& falla)
        {
            if (falla)
            {
                informarFalla(*falla);
                return;
            }
            MsgBox(QStringLiteral("La Base de Datos ha sido reemplazada con exito."), Caja::Informacion);
            MsgBox(QStringLiteral("La Base de Datos anterior quedó guardada en 'DBBrivo_Bak.mdb', en la carpeta del "
                                  "programa.") +
                       avisoDeVersion(),
                   Caja::Informacion);
            cerrar();
        });
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
        decirError(error);
    }
}

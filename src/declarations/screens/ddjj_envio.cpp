#include "core/rutinas.h"
#include "declarations/screens/ddjj.h"
#include "exchange/archivo_ddjj.h"
#include "exchange/informe_ddjj.h"
#include "exchange/screens/ftp_class.h"
#include "exchange/screens/imprimir_informe.h"
#include "platform/data/archivos.h"
#include "platform/data/error_de_ejecucion.h"
#include "platform/data/servidor_ftp.h"
#include "platform/screens/dialogos.h"
#include "platform/screens/mensajes.h"
#include "platform/screens/trabajo_largo.h"
#include "ui_ddjj.h"

namespace
{
// The account of the declarations on the union's server; only the host is a choice of the installation.
const QString usuarioFtp = QStringLiteral("administrador");
const QString claveFtp = QStringLiteral("KT-marcados");
const QString directorioFtp = QStringLiteral("/DDJJ/");
constexpr long transferenciaAscii = 1;
constexpr int archivoUno = 1;
} // namespace

void DDJJ::ImprimirInforme(int indice)
{
    ::ImprimirInforme(clave(), ui->txtMes->text(), ui->txtAnio->text(), static_cast<InformeDDJJ>(indice));
}

void DDJJ::EnviarDDJJPorFtp(bool Avisar)
{
    if (!GrabarArchivoDDJJ())
    {
        return;
    }
    try
    {
        {
            TrabajoLargo trabajo(QStringLiteral("Enviando la Declaración Jurada"));
            FtpDDJJ = std::make_unique<FTP_Class>(LimitesFtp());
            FtpDDJJ->setAviso(trabajo.aviso());
            FtpDDJJ->TipoTransferencia = transferenciaAscii;
            ConectarServidorFtp();
            if (!FtpConectado)
            {
                return;
            }
            const QString local = rutaArchivoDDJJ(ArchivoDDJJ);
            FtpDDJJ->CambiarDirectorio(directorioFtp);
            FtpDDJJ->SubirArchivo(local, ArchivoDDJJ);
            // The upload has no result: the file goes whether it worked or not.
            Archivos::borrar(local);
            FtpDDJJ->Desconectar();
            FtpDDJJ.reset();
        }
        if (Avisar)
        {
            MsgBox(QStringLiteral("LE DDJJ HA SIDO ENVIADA CON EXITO.  MUCHAS GRACIAS."), Caja::Informacion);
        }
    }
    catch (const ErrorDeEjecucion& error)
    {
        MsgBox(QStringLiteral("Error: %1 - %2").arg(error.numero()).arg(error.descripcion()), Caja::Informacion,
               QStringLiteral("Error de Apertura"));
        Archivos::cerrar(archivoUno);
    }
}

void DDJJ::ConectarServidorFtp()
{
    FtpConectado = true;
    FtpDDJJ->Inicializar([](bool ocupado) { ocupado ? Puntero::ocupado() : Puntero::normal(); });
    FtpDDJJ->PassWord = claveFtp;
    FtpDDJJ->Usuario = usuarioFtp;
    FtpDDJJ->Servidor = ServidorFtp();
    // The status texts overwrite the caption "Cantidad Empleados", which is not put back.
    if (!FtpDDJJ->ConectarFtp([this](const QString& texto) { ui->Label4->setText(texto); }))
    {
        FtpConectado = false;
    }
}

void DDJJ::EnviarDDJJPorCorreo()
{
    if (!GrabarArchivoDDJJ())
    {
        return;
    }
    try
    {
        const Recordset parametros = Rutinas::Conexion.consultar("SELECT * FROM Parametros");
        Correo({parametros.primera().texto("EMail"), ArchivoDDJJ + QStringLiteral(" - Envio DD.JJ."), QString(),
                rutaArchivoDDJJ(ArchivoDDJJ)});
        MsgBox(QStringLiteral("El Correo correspondiente ha sido enviado correctamente."));
    }
    catch (const ErrorDeEjecucion& error)
    {
        MsgBox(QStringLiteral("%1 - (%2)").arg(error.descripcion(), QString::number(error.numero())));
    }
}

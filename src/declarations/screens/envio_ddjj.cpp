#include "declarations/screens/envio_ddjj.h"

#include "base/error_de_ejecucion.h"
#include "base/files/archivos.h"
#include "core/rutinas.h"
#include "core/vigencia.h"
#include "exchange/archivo_ddjj.h"
#include "exchange/archivo_uno.h"
#include "exchange/screens/ftp_class.h"
#include "exchange/servidor_ftp.h"
#include "ui/doors/dialogos.h"
#include "ui/doors/mensajes.h"
#include "ui/shell/trabajo_largo.h"

#include <utility>

namespace
{
constexpr long transferenciaAscii = 1;

/// Tells it and closes file number 1.
void avisarErrorDeApertura(const ErrorDeEjecucion& error)
{
    MsgBox(QStringLiteral("Error: %1 - %2").arg(error.numero()).arg(error.descripcion()), Caja::Informacion,
           QStringLiteral("Error de Apertura"));
    ArchivoUno::cerrar();
}
} // namespace

EnvioDeDDJJ::EnvioDeDDJJ(std::optional<ClaveDDJJ> clave, std::function<void(const QString&)> estado)
    : m_clave(std::move(clave))
    , m_estado(std::move(estado))
{
}

bool EnvioDeDDJJ::GrabarArchivoDDJJ()
{
    try
    {
        if (!m_clave)
        {
            throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::NoCoincidenTipos, QStringLiteral("secuencia"));
        }
        exigirEmpresa(Rutinas::Conexion, m_clave->cuit);
        exigirDeclaracion(Rutinas::Conexion, *m_clave);
        TrabajoLargo trabajo(QStringLiteral("Grabando la Declaración Jurada"), TrabajoLargo::Cancelable::Si);
        ::GrabarArchivoDDJJ(Rutinas::Conexion, *m_clave, ArchivoDDJJ, trabajo.aviso());
    }
    catch (const YaNoEsta&)
    {
        throw;
    }
    catch (const ErrorDeEjecucion& error)
    {
        TrabajoCancelado::pasar(error);
        avisarErrorDeApertura(error);
        return false;
    }
    return true;
}

void EnvioDeDDJJ::GuardarArchivoComo()
{
    if (!GrabarArchivoDDJJ())
    {
        return;
    }
    try
    {
        // An open-file form, and a cancelled one gives the initial name back: the copy then goes to that bare name.
        const QString destino = DialogoArchivo(
            {QStringLiteral("Guardar como"), ArchivoDDJJ, QStringLiteral("*.txt"), QStringLiteral("txt"), false});
        if (!ConfirmarDestino(destino, rutaArchivoDDJJ(ArchivoDDJJ)))
        {
            return;
        }
        Archivos::copiar(rutaArchivoDDJJ(ArchivoDDJJ), destino);
    }
    catch (const ErrorDeEjecucion& error)
    {
        decirErrorDeArchivo(error);
        return;
    }
    MsgBox(QStringLiteral("El Archivo correspondiente ha sido grabado en la Ubicación especificada."),
           Caja::Informacion);
}

void EnvioDeDDJJ::EnviarDDJJPorFtp(bool Avisar)
{
    if (!GrabarArchivoDDJJ())
    {
        return;
    }
    try
    {
        if (subir() && Avisar)
        {
            MsgBox(QStringLiteral("LE DDJJ HA SIDO ENVIADA CON EXITO.  MUCHAS GRACIAS."), Caja::Informacion);
        }
    }
    catch (const ErrorDeEjecucion& error)
    {
        avisarErrorDeApertura(error);
    }
}

bool EnvioDeDDJJ::subir()
{
    TrabajoLargo trabajo(QStringLiteral("Enviando la Declaración Jurada"));
    FTP_Class ftp{limitesFtp};
    ftp.setAviso(trabajo.aviso());
    ftp.TipoTransferencia = transferenciaAscii;
    if (!ConectarServidorFtp(ftp))
    {
        return false;
    }
    const QString local = rutaArchivoDDJJ(ArchivoDDJJ);
    ftp.CambiarDirectorio(QString::fromUtf16(directorioFtp));
    ftp.SubirArchivo(local, ArchivoDDJJ);
    // The upload has no result: the file goes whether it worked or not.
    Archivos::borrar(local);
    ftp.Desconectar();
    return true;
}

bool EnvioDeDDJJ::ConectarServidorFtp(FTP_Class& ftp) const
{
    ftp.Inicializar([](bool ocupado) { ocupado ? Puntero::ocupado() : Puntero::normal(); });
    const TransporteFtp::Cuenta cuenta = CuentaFtp();
    ftp.PassWord = cuenta.clave;
    ftp.Usuario = cuenta.usuario;
    ftp.Servidor = cuenta.servidor;
    return ftp.ConectarFtp(m_estado);
}

void EnvioDeDDJJ::EnviarDDJJPorCorreo()
{
    if (!GrabarArchivoDDJJ())
    {
        return;
    }
    try
    {
        const QString buzon =
            Rutinas::Conexion.primera("SELECT * FROM Parametros", [](const Fila& fila) { return fila.texto("EMail"); });
        Correo({buzon, ArchivoDDJJ + QStringLiteral(" - Envio DD.JJ."), QString(), rutaArchivoDDJJ(ArchivoDDJJ)});
        MsgBox(QStringLiteral("El Correo correspondiente ha sido enviado correctamente."));
    }
    catch (const ErrorDeEjecucion& error)
    {
        decirErrorDeArchivo(error);
    }
}

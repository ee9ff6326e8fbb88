#include "exchange/screens/ftp_class.h"

#include "base/error_de_ejecucion.h"
#include "ui/doors/mensajes.h"

#include <limits>

namespace
{
constexpr qsizetype largoDeDirectorio = 260;
} // namespace

FTP_Class::FTP_Class(TransporteFtp::Limites limites)
    : m_transporte(limites)
{
}

FTP_Class::~FTP_Class()
{
    terminar();
}

void FTP_Class::Mensaje(const QString& texto) const
{
    if (m_controlStatus)
    {
        m_controlStatus(texto);
    }
}

void FTP_Class::puntero(bool ocupado) const
{
    if (!m_formulario)
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::ObjetoNoEstablecido);
    }
    m_formulario(ocupado);
}

TransporteFtp::Tipo FTP_Class::tipo() const
{
    return TipoTransferencia == 1 ? TransporteFtp::Tipo::Ascii : TransporteFtp::Tipo::Binario;
}

bool FTP_Class::ConectarFtp(ControlDeEstado controlStatus)
{
    if (Servidor.isEmpty() || Usuario.isEmpty() || PassWord.isEmpty())
    {
        MsgBox(QStringLiteral("No se puede conectar. Verifique el Nombre de usuario,"
                              "El nombre del Servidor y la contraseña que estén establecidas"),
               Caja::Critico);
        return false;
    }
    m_controlStatus = std::move(controlStatus);
    Mensaje(QStringLiteral("...Intentando conectar a: ") + Servidor);
    puntero(true);
    const bool conectado = m_transporte.conectar({Servidor, Usuario, PassWord});
    if (conectado)
    {
        Mensaje(QStringLiteral("Conectado a: ") + Servidor);
    }
    else
    {
        Mensaje(m_transporte.iniciada()
                    ? QStringLiteral("Error. Compruebe los datos del servidor Ftp sin son correctos")
                    : QStringLiteral("Error en la conexión a internet, compruebe la conexión"));
    }
    puntero(false);
    return conectado;
}

void FTP_Class::Desconectar()
{
    if (!m_transporte.cerrar())
    {
        Mensaje(QStringLiteral("Error al desconectar"));
        return;
    }
    Mensaje(QStringLiteral("Desconectado de: ") + Servidor);
    terminar();
}

void FTP_Class::terminar()
{
    m_transporte.cerrar();
    m_controlStatus = nullptr;
    m_formulario = nullptr;
}

QString FTP_Class::GetDirectorioActual()
{
    // A buffer of fixed length: what the answer does not fill stays NUL.
    const QString directorio = m_transporte.directorioActual();
    m_directorioActual =
        (directorio.size() < largoDeDirectorio ? directorio : QString()).leftJustified(largoDeDirectorio, QChar(0));
    return m_directorioActual;
}

void FTP_Class::CambiarDirectorio(const QString& pathDirectorio)
{
    const QString actual = QString(m_directorioActual).remove(QChar(0));
    puntero(true);
    if (!m_transporte.cambiarDirectorio(actual + QLatin1Char('/') + pathDirectorio))
    {
        Mensaje(QStringLiteral("Error al cambiar de directorio"));
    }
    puntero(false);
}

void FTP_Class::SubirArchivo(const QString& localArchivo, const QString& nombreArchivoRemoto)
{
    if (!m_transporte.subir(localArchivo, nombreArchivoRemoto, tipo()))
    {
        Mensaje(QStringLiteral("Error al subir el fichero:") + nombreArchivoRemoto);
    }
}

bool FTP_Class::ObtenerArchivo(const QString& archivoRemoto, const QString& archivoLocal, bool sobreEscribir)
{
    const bool bajado = m_transporte.bajar(archivoRemoto, archivoLocal, sobreEscribir, tipo());
    Mensaje(bajado ? QStringLiteral("Archivo descargado correctamente:")
                   : QStringLiteral("Error al intentar descargar el fichero: ") + archivoRemoto);
    return bajado;
}

void FTP_Class::EliminarArchivo(const QString& archivo)
{
    if (!m_transporte.borrar(archivo))
    {
        Mensaje(QStringLiteral("Error. No se pudo eliminar el archivo: ") + archivo);
    }
}

void FTP_Class::EliminarDirectorio(const QString& directorio)
{
    if (!m_transporte.borrarDirectorio(directorio))
    {
        Mensaje(QStringLiteral("Error. No se pudo eliminar el Directorio: ") + directorio);
    }
}

void FTP_Class::Inicializar(Formulario formulario)
{
    m_formulario = std::move(formulario);
}

void FTP_Class::MostrarRespuestaFtp() const
{
    MsgBox(QStringLiteral("Error %1: ").arg(m_transporte.ultimoCodigo()) + m_transporte.ultimoError(), Caja::Critico);
}

std::optional<QDateTime> FTP_Class::FechaDeArchivo(quint64 fileTime)
{
    constexpr quint64 pasosPorMilisegundo = 10'000;
    if (fileTime > static_cast<quint64>(std::numeric_limits<qint64>::max()))
    {
        return std::nullopt;
    }
    return QDateTime(QDate(1601, 1, 1), QTime(0, 0), Qt::UTC)
        .addMSecs(static_cast<qint64>(fileTime / pasosPorMilisegundo));
}

void FTP_Class::setAviso(Aviso aviso)
{
    m_transporte.setAviso(std::move(aviso));
}

void FTP_Class::setLimites(TransporteFtp::Limites limites)
{
    m_transporte.setLimites(limites);
}

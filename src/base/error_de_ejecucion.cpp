#include "base/error_de_ejecucion.h"

namespace
{
QString descripcionDe(ErrorDeEjecucion::Numero numero)
{
    switch (numero)
    {
    case ErrorDeEjecucion::Desbordamiento:
        return QStringLiteral("Desbordamiento");
    case ErrorDeEjecucion::SinMemoria:
        return QStringLiteral("No hay memoria suficiente");
    case ErrorDeEjecucion::DivisionPorCero:
        return QStringLiteral("División por cero");
    case ErrorDeEjecucion::NoCoincidenTipos:
        return QStringLiteral("No coinciden los tipos");
    case ErrorDeEjecucion::LineaDemasiadoLarga:
        return QStringLiteral("El archivo tiene una línea demasiado larga");
    case ErrorDeEjecucion::ErrorDeDispositivo:
        return QStringLiteral("Error de lectura o escritura del disco");
    case ErrorDeEjecucion::ArchivoNoEncontrado:
        return QStringLiteral("No se encontró el archivo");
    case ErrorDeEjecucion::ArchivoYaAbierto:
        return QStringLiteral("El archivo ya está abierto");
    case ErrorDeEjecucion::DiscoLleno:
        return QStringLiteral("El disco está lleno");
    case ErrorDeEjecucion::EnUso:
        return QStringLiteral("Permiso denegado o archivo en uso");
    case ErrorDeEjecucion::SinAcceso:
        return QStringLiteral("Error de acceso a la ruta o al archivo");
    case ErrorDeEjecucion::RutaNoEncontrada:
        return QStringLiteral("No se encontró la ruta de acceso");
    case ErrorDeEjecucion::ObjetoNoEstablecido:
        return QStringLiteral("El objeto no está establecido");
    case ErrorDeEjecucion::UsoDeNull:
        return QStringLiteral("Uso no válido de Null");
    case ErrorDeEjecucion::SinRegistro:
        return QStringLiteral("No hay un registro actual");
    case ErrorDeEjecucion::ColumnaDesconocida:
        return QStringLiteral("No se encontró la columna");
    case ErrorDeEjecucion::ErrorInterno:
        return QStringLiteral("Error interno");
    case ErrorDeEjecucion::LlamadaNoValida:
        break;
    }
    return QStringLiteral("Error de ejecución");
}
} // namespace

ErrorDeEjecucion::ErrorDeEjecucion(int numero, QString descripcion)
    : m_numero(numero)
    , m_descripcion(std::move(descripcion))
    , m_texto((QString::number(m_numero) + QStringLiteral(" - ") + m_descripcion).toUtf8())
{
}

ErrorDeEjecucion::ErrorDeEjecucion(Numero numero)
    : ErrorDeEjecucion(numero, descripcionDe(numero))
{
}

ErrorDeEjecucion ErrorDeEjecucion::conDetalle(Numero numero, const QString& detalle)
{
    return {numero, detalle.isEmpty() ? descripcionDe(numero) : descripcionDe(numero) + QStringLiteral(": ") + detalle};
}

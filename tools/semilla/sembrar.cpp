#include "sembrar.h"

#include "configuracion.h"
#include "csv.h"
#include "platform/data/archivos.h"
#include "platform/data/conexion.h"
#include "platform/data/error_de_ejecucion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStringList>
#include <filesystem>

namespace
{
QByteArray leerArchivo(const QString& ruta)
{
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly))
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::ArchivoNoEncontrado, ruta);
    }
    return archivo.readAll();
}

/// Runs `paso`; puts where the fault lies before what it throws.
template <class Paso>
void enLugar(const QString& lugar, Paso&& paso)
{
    try
    {
        paso();
    }
    catch (const ErrorDeEjecucion& error)
    {
        throw ErrorDeEjecucion(error.numero(), lugar + QStringLiteral(": ") + error.descripcion());
    }
}

/// Names come out of file names and headers and go into statements.
QString comoIdentificador(const QString& nombre)
{
    static const QRegularExpression valido(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*$"));
    if (!valido.match(nombre).hasMatch())
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::NoCoincidenTipos, QStringLiteral("nombre inválido: %1").arg(nombre));
    }
    return nombre;
}

/// A statement ends with the line that ends in ";"; comments stand on lines of their own.
void crearTablas(Conexion& conexion, const QString& esquema)
{
    QString sentencia;
    int numero = 0;
    for (const QStringView lineaEntera : QStringView(esquema).split(QLatin1Char('\n')))
    {
        ++numero;
        const QStringView linea = lineaEntera.trimmed();
        if (linea.isEmpty() || linea.startsWith(QLatin1String("--")))
        {
            continue;
        }
        sentencia += linea;
        sentencia += QLatin1Char('\n');
        if (linea.endsWith(QLatin1Char(';')))
        {
            enLugar(QString::number(numero), [&] { conexion.ejecutar(sentencia.toStdString()); });
            sentencia.clear();
        }
    }
    if (!sentencia.isEmpty())
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::NoCoincidenTipos, QStringLiteral("la última sentencia no termina"));
    }
}

std::string insercion(const QString& tabla, const FilaCsv& cabecera)
{
    QStringList columnas;
    QStringList marcas;
    for (const std::optional<QString>& columna : cabecera.campos)
    {
        columnas += comoIdentificador(columna.value_or(QString()));
        marcas += QStringLiteral("?");
    }
    return QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
        .arg(comoIdentificador(tabla), columnas.join(QStringLiteral(", ")), marcas.join(QStringLiteral(", ")))
        .toStdString();
}

/// What an installation supplies stands in the texts between "@".
Valor valorDe(const std::optional<QString>& campo)
{
    return campo == QStringLiteral("@BUZON_DDJJ@") ? Valor(configuracion::buzonDdjj) : Valor(campo);
}

void llenarTabla(Conexion& conexion, const QString& tabla, const QByteArray& csv)
{
    const std::vector<FilaCsv> filas = leerCsv(csv);
    if (filas.empty())
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::NoCoincidenTipos, QStringLiteral("falta la línea de las columnas"));
    }
    Sentencia sentencia = conexion.preparar(insercion(tabla, filas.front()));
    for (std::size_t n = 1; n < filas.size(); ++n)
    {
        const FilaCsv& fila = filas[n];
        enLugar(QStringLiteral("línea %1").arg(fila.linea),
                [&]
                {
                    if (fila.campos.size() != filas.front().campos.size())
                    {
                        throw ErrorDeEjecucion(ErrorDeEjecucion::NoCoincidenTipos,
                                               QStringLiteral("%1 valores para %2 columnas")
                                                   .arg(fila.campos.size())
                                                   .arg(filas.front().campos.size()));
                    }
                    std::vector<Valor> valores;
                    for (const std::optional<QString>& campo : fila.campos)
                    {
                        valores.push_back(valorDe(campo));
                    }
                    sentencia.ejecutarCon(valores.data(), valores.size());
                });
    }
}

void llenar(const QString& ruta, const QDir& carpeta)
{
    Conexion conexion;
    conexion.abrir(ruta);
    Transaccion transaccion(conexion);
    const QString esquema = carpeta.filePath(QStringLiteral("esquema.sql"));
    enLugar(esquema, [&] { crearTablas(conexion, deUtf8(leerArchivo(esquema))); });
    for (const QFileInfo& csv : carpeta.entryInfoList({QStringLiteral("*.csv")}, QDir::Files, QDir::Name))
    {
        enLugar(csv.filePath(), [&] { llenarTabla(conexion, csv.completeBaseName(), leerArchivo(csv.filePath())); });
    }
    transaccion.confirmar();
    conexion.cerrar();
}
} // namespace

void sembrar(const QString& carpeta, const QString& destino)
{
    const QFileInfo como(destino);
    const QString base = como.dir().filePath(como.completeBaseName() + QStringLiteral("_nueva"));
    const QString temporal = base + QStringLiteral(".mdb");
    const QString candado = base + QStringLiteral(".ldb"); // the lock that opening leaves beside the file
    QFile::remove(temporal);
    try
    {
        Conexion::crear(temporal);
        llenar(temporal, QDir(carpeta));
        Conexion::comprobar(temporal);
        Archivos::asegurarEnDisco(temporal);
        std::filesystem::rename(temporal.toStdU16String(), destino.toStdU16String());
        QFile::remove(candado);
    }
    catch (...)
    {
        QFile::remove(temporal);
        QFile::remove(candado);
        throw;
    }
}

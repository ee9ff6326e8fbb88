#include "base/files/destino.h"

#include "base/directorio_programa.h"
#include "base/files/archivos.h"
#include "base/files/archivos_de_base.h"
#include "base/files/sistema.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <set>

namespace
{
const QStringList nombresPropios = {QStringLiteral("*.mdb"), QStringLiteral("*.mdb-*"), QStringLiteral("*.ldb"),
                                    QStringLiteral("*.rpt"), QStringLiteral("*.ttf"),   QStringLiteral("*.exe"),
                                    QStringLiteral("*.dll")};
const QString ayuda = QStringLiteral("ayuda");

/// The path of a file below the program's folder, whatever name leads there; empty when it lies elsewhere.
QString debajoDelPrograma(const QFileInfo& archivo)
{
    const auto programa = sistema::identidad(DirectorioPrograma());
    QString resto = archivo.fileName();
    QDir carpeta = archivo.absoluteDir();
    while (sistema::identidad(carpeta.path()) != programa)
    {
        resto.prepend(carpeta.dirName() + QLatin1Char('/'));
        if (carpeta.isRoot() || !carpeta.cdUp())
        {
            return {};
        }
    }
    return resto;
}

/// Would a file at this place be one of the program's, there now or not?
bool nombrePropio(const QFileInfo& archivo)
{
    const QString lugar = debajoDelPrograma(archivo);
    return !lugar.isEmpty() && (lugar.startsWith(ayuda + QLatin1Char('/'), Qt::CaseInsensitive) ||
                                QDir::match(nombresPropios, archivo.fileName()));
}

/// The files that the program has now, behind their links.
std::set<sistema::Identidad> archivosPropios()
{
    std::set<sistema::Identidad> todos;
    const auto agregar = [&](const QString& ruta)
    {
        if (const auto cual = sistema::identidad(ruta))
        {
            todos.insert(*cual);
        }
    };
    const QDir programa(DirectorioPrograma());
    const QStringList bases = programa.entryList({QStringLiteral("*.mdb")}, QDir::Files | QDir::Hidden);
    for (const QString& base : bases) // one that is a link has its lock and its journal behind it
    {
        agregar(archivoDeCandado(programa.filePath(base)));
        for (const QString& junto : acompanantes(programa.filePath(base)))
        {
            agregar(junto);
        }
    }
    for (const QString& nombre : programa.entryList(nombresPropios, QDir::Files | QDir::Hidden))
    {
        agregar(programa.filePath(nombre));
    }
    for (const auto& [carpeta, nombres] :
         {std::pair(QStringLiteral("Copias"), nombresPropios), std::pair(ayuda, QStringList())})
    {
        QDirIterator archivos(programa.filePath(carpeta), nombres, QDir::Files | QDir::Hidden,
                              QDirIterator::Subdirectories);
        while (archivos.hasNext())
        {
            agregar(archivos.next());
        }
    }
    agregar(QCoreApplication::applicationFilePath());
    return todos;
}
} // namespace

Destino puedeEscribirse(const QString& ruta)
{
    const QString real = Archivos::detrasDeEnlaces(ruta);
    const auto identidad = sistema::identidad(real);
    const auto rechazar = [&](const QString& porque)
    {
        return Destino{
            identidad.has_value(),
            QStringLiteral("'%1' %2. Elija otro nombre u otra carpeta.").arg(QFileInfo(ruta).fileName(), porque)};
    };
    if (nombrePropio(QFileInfo(real)) || (identidad && archivosPropios().contains(*identidad)))
    {
        return rechazar(QStringLiteral("es un archivo del programa"));
    }
    if (const QString motivo = Archivos::impedimento(real); !motivo.isEmpty())
    {
        return rechazar(motivo);
    }
    return {identidad.has_value(), {}};
}

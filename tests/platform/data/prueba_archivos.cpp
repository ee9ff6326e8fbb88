// Whole files: copies that are whole or none, and the number and name that each failure is told by.
#include "apoyo/archivos_de_prueba.h"
#include "errores.h"
#include "limite_de_archivos.h"
#include "platform/data/archivos.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <filesystem>
#include <gtest/gtest.h>

namespace
{
class ArchivosEnteros : public testing::Test
{
protected:
    ArchivosEnteros()
    {
        QDir(carpeta.path()).mkpath(QStringLiteral("carpeta/adentro"));
        escribirArchivo(en("uno"), "primero");
        escribirArchivo(en("dos"), "segundo, más largo");
        escribirArchivo(en("grande"), QByteArray(3'000'001, 'x').replace(1'500'000, 1, QByteArray(1, '\0')));
        escribirArchivo(en("nada"), "");
        escribirArchivo(en("solo"), "se lee");
        QFile::setPermissions(en("solo"), QFile::ReadOwner);
        std::filesystem::create_hard_link(en("uno").toStdString(), en("duro").toStdString());
#ifndef _WIN32
        std::filesystem::create_symlink("uno", en("blando").toStdString());
        std::filesystem::create_symlink("carpeta/lejos", en("colgado").toStdString());
#endif
    }
    [[nodiscard]] QString en(const char* nombre) const
    {
        return carpeta.filePath(QString::fromUtf8(nombre));
    }
    /// Every file below the folder with what is in it.
    [[nodiscard]] std::map<QString, QByteArray> contenido() const
    {
        std::map<QString, QByteArray> todo;
        QDirIterator archivos(carpeta.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (archivos.hasNext())
        {
            const QString ruta = archivos.next();
            todo[QDir(carpeta.path()).relativeFilePath(ruta)] = leerArchivo(ruta);
        }
        return todo;
    }
    QTemporaryDir carpeta;
};
} // namespace

TEST_F(ArchivosEnteros, UnaCopiaEsEnteraONadaYSuFallaNombraLoQueNombroElUsuario)
{
    struct Caso
    {
        const char* origen;
        const char* destino;
        const char* falla = ""; ///< without the path
        const char* real = nullptr;
    };
    const Caso casos[] = {
        {"uno", "copia ñ"},
        {"grande", "dos"},
        {"nada", "dos"},
        {"falta", "dos", "53 No se encontró el archivo: <falta>"},
        {"falta/falta", "dos", "76 No se encontró la ruta de acceso: <falta/falta>"},
        {"uno", "falta/copia", "76 No se encontró la ruta de acceso: <falta/copia>"},
        {"uno", "dos/copia", "76 No se encontró la ruta de acceso: <dos/copia>"},
        {"carpeta", "dos", "75 Error de acceso a la ruta o al archivo: <carpeta> es una carpeta"},
        {"uno", "carpeta", "75 Error de acceso a la ruta o al archivo: <carpeta> es una carpeta"},
        {"uno", "solo", "75 Error de acceso a la ruta o al archivo: <solo> está protegido contra escritura"},
        {"uno", "uno", "70 Permiso denegado o archivo en uso: <uno>"},
        {"uno", "carpeta/../uno", "70 Permiso denegado o archivo en uso: <carpeta/../uno>"},
        {"uno", "duro", "70 Permiso denegado o archivo en uso: <duro>"},
#ifndef _WIN32
        {"blando", "dos"},
        {"blando", "duro", "70 Permiso denegado o archivo en uso: <duro>"},
        {"uno", "blando", "70 Permiso denegado o archivo en uso: <blando>"},
        {"grande", "blando", "", "uno"}, // a link stays a link
        {"grande", "colgado", "", "carpeta/lejos"},
#endif
    };
    for (const Caso& caso : casos)
    {
        SCOPED_TRACE(std::string(caso.origen) + " -> " + caso.destino);
        std::map<QString, QByteArray> despues = contenido();
        QString falla = QString::fromUtf8(caso.falla);
        if (falla.isEmpty())
        {
            const QByteArray bytes = leerArchivo(en(caso.origen));
            for (const char* nombre : {caso.destino, caso.real != nullptr ? caso.real : caso.destino})
            {
                despues[QString::fromUtf8(nombre)] = bytes;
            }
        }
        falla.replace(u'<', carpeta.path() + u'/').remove(u'>');
        EXPECT_EQ(QDir::toNativeSeparators(falla).toStdString(),
                  fallaDe([&] { Archivos::copiar(en(caso.origen), en(caso.destino)); }).toStdString());
        EXPECT_EQ(despues, contenido());
#ifndef _WIN32
        EXPECT_TRUE(QFileInfo(en("blando")).isSymbolicLink() && QFileInfo(en("colgado")).isSymbolicLink());
#endif
    }
}

TEST_F(ArchivosEnteros, LosRestosSeVanYElNuevoEsTanAbiertoComoElViejo)
{
    const auto todos = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::WriteGroup;
    QFile::setPermissions(en("dos"), todos);
    escribirArchivo(en("dos.parte"), "de una copia que murió");
    escribirArchivo(en("dos.parte-journal"), "y lo que había al lado");
    Archivos::copiar(en("uno"), en("dos"));
    EXPECT_EQ(todos, QFile::permissions(en("dos")) & ~(QFile::ReadUser | QFile::WriteUser));
    EXPECT_EQ("primero", leerArchivo(en("dos")));
    EXPECT_FALSE(QFile::exists(en("dos.parte")) || QFile::exists(en("dos.parte-journal")));

    QDir(carpeta.path()).mkdir(QStringLiteral("dos.parte"));
    EXPECT_TRUE(fallaDe([&] { Archivos::copiar(en("grande"), en("dos")); }).endsWith(u"dos"));
    EXPECT_TRUE(QDir(en("dos.parte")).exists());
    EXPECT_EQ("primero", leerArchivo(en("dos")));
}

TEST_F(ArchivosEnteros, BorrarYCrearCarpeta)
{
    EXPECT_EQ(0, numeroDe([&] { Archivos::borrar(en("uno")); }));
    EXPECT_EQ(53, numeroDe([&] { Archivos::borrar(en("uno")); }));
    EXPECT_EQ(76, numeroDe([&] { Archivos::borrar(en("falta/uno")); }));
    EXPECT_EQ(53, numeroDe([&] { Archivos::borrar(en("carpeta/adentro")); }));
    EXPECT_EQ(0, numeroDe([&] { Archivos::crearCarpeta(en("nueva")); }));
    EXPECT_EQ(75, numeroDe([&] { Archivos::crearCarpeta(en("nueva")); }));
    EXPECT_EQ(75, numeroDe([&] { Archivos::crearCarpeta(en("dos")); }));
    EXPECT_EQ(76, numeroDe([&] { Archivos::crearCarpeta(en("falta/nueva")); }));
    EXPECT_FALSE(Archivos::existe(en("uno")));
    EXPECT_TRUE(QDir(en("nueva")).exists() && QDir(en("carpeta/adentro")).exists());
}

#ifndef _WIN32
TEST_F(ArchivosEnteros, ElDiscoSeLlenaAMitadDeLaCopiaOElOrigenNoSePuedeLeer)
{
    const auto antes = contenido();
    {
        const LimiteDeArchivos limite(700'000);
        EXPECT_EQ("61 El disco está lleno: " + en("dos").toStdString(),
                  fallaDe([&] { Archivos::copiar(en("grande"), en("dos")); }).toStdString());
        EXPECT_EQ(61, numeroDe([&] { Archivos::copiar(en("grande"), en("nuevo")); }));
    }
    // There is nothing at the bottom of a process's memory: the file opens, and reading it fails.
    EXPECT_EQ(57, numeroDe([&] { Archivos::copiar(QStringLiteral("/proc/self/mem"), en("dos")); }));
    EXPECT_EQ(antes, contenido());
}
#endif

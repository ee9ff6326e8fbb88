// What a save dialog may write over, by what it is.
#include "apoyo/archivos_de_prueba.h"
#include "base/directorio_programa.h"
#include "base/files/destino.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <filesystem>
#include <gtest/gtest.h>

#ifndef _WIN32 // links are only for some there

// The program's folder P, with its database on a share S, and the user's own folder U.
TEST(PuedeEscribirse, LosArchivosDelProgramaSeReconocenPorLoQueSon)
{
    const QTemporaryDir carpeta;
    const QDir raiz(carpeta.path());
    for (const char* ruta : {"P/DBBrivo_Bak.mdb", "P/DBBrivo.ldb", "P/RptDDJJ.rpt", "P/PF_I2OF5.ttf", "P/suelto.txt",
                             "P/Copias/20090603_1007/DBBrivo.mdb", "P/ayuda/index.html", "P/ayuda/fotos/uno.png",
                             "S/datos.mdb", "S/datos.ldb", "S/datos.mdb-journal", "U/hay.txt", "U/solo.txt"})
    {
        raiz.mkpath(QFileInfo(QString::fromLatin1(ruta)).path());
        escribirArchivo(raiz.filePath(QString::fromLatin1(ruta)), "x");
    }
    QFile::setPermissions(raiz.filePath("U/solo.txt"), QFile::ReadOwner | QFile::ReadGroup);
    const std::filesystem::path aqui(carpeta.path().toStdString());
    std::filesystem::create_symlink(aqui / "S/datos.mdb", aqui / "P/DBBrivo.mdb");
    std::filesystem::create_symlink(aqui / "P/RptDDJJ.rpt", aqui / "U/enlace.pdf");
    std::filesystem::create_symlink(aqui / "P/RptNuevo.rpt", aqui / "U/colgado.pdf");
    std::filesystem::create_symlink(aqui / "P", aqui / "U/programa");
    std::filesystem::create_hard_link(aqui / "P/DBBrivo_Bak.mdb", aqui / "U/duro.txt");
    std::filesystem::create_hard_link(aqui / "P/ayuda/fotos/uno.png", aqui / "U/foto.txt");
    reemplazarDirectorioPrograma(raiz.filePath("P"));
    const QString antes = QDir::currentPath();
    QDir::setCurrent(raiz.filePath("P"));

    const QString propio = "es un archivo del programa";
    const QString protegido = "está protegido contra escritura";
    // Why it may not be written; "" it may, "?" another file would be replaced.
    const std::pair<QString, QString> casos[] = {
        {"P/DBBrivo.mdb", propio},
        {"P/DBBRIVO.MDB", propio}, // there or not, as the file system likes
        {"P/DBBrivo.mdb-journal", propio},
        {"P/DBBrivoTemporal.mdb", propio},
        {"P/DBBrivo_Bak.mdb", propio},
        {"P/PF_I2OF5.ttf", propio},
        {"P/ayuda/otra.html", propio},
        {"P/Copias/20090603_1007/DBBrivo.mdb", propio},
        {"P/Copias/20090603_1007/DDJJ.txt", ""},
        {"P/suelto.txt", "?"},
        {"P/nuevo.txt", ""},
        {"P/../P/Copias/../RptDDJJ.rpt", propio},
        {"S/datos.mdb", propio},
        {"S/datos.ldb", propio},
        {"S/datos.mdb-journal", propio},
        {"S/otra.mdb", ""},
        {"U/enlace.pdf", propio},
        {"U/colgado.pdf", propio},
        {"U/programa/RptDDJJ.rpt", propio},
        {"U/duro.txt", propio},
        {"U/foto.txt", propio},
        {"U/hay.txt", "?"},
        {"U/solo.txt", protegido},
        {"U", "es una carpeta"},
        {"U/nuevo.txt", ""},
        {"/dev/null", "no es un archivo"},
        {QCoreApplication::applicationFilePath(), propio},
    };
    for (const auto& [nombre, porque] : casos)
    {
        const QString ruta = raiz.filePath(nombre);
        const Destino destino = puedeEscribirse(ruta);
        const QString rechazo = "'%1' %2. Elija otro nombre u otra carpeta.";
        const bool puede = porque.isEmpty() || porque == u'?';
        EXPECT_EQ(puede ? "" : rechazo.arg(QFileInfo(ruta).fileName(), porque).toStdString(),
                  destino.rechazo.toStdString());
        EXPECT_TRUE(!puede || destino.existe == !porque.isEmpty()) << ruta.toStdString();
    }
    EXPECT_FALSE(puedeEscribirse("DBBrivo.mdb").rechazo.isEmpty()) << "in the current folder";
    QDir::setCurrent(antes);
    reemplazarDirectorioPrograma({});
}

#endif

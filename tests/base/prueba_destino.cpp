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

    // Why they may not be written; "" they may, "?" another file would be replaced. Some names are there or not, as the
    // file system likes.
    const std::pair<QString, QStringList> casos[] = {
        {"es un archivo del programa",
         {"P/DBBrivo.mdb", "P/DBBRIVO.MDB", "P/DBBrivo.mdb-journal", "P/DBBrivoTemporal.mdb", "P/DBBrivo_Bak.mdb",
          "P/PF_I2OF5.ttf", "P/ayuda/otra.html", "P/Copias/20090603_1007/DBBrivo.mdb", "P/../P/Copias/../RptDDJJ.rpt",
          "S/datos.mdb", "S/datos.ldb", "S/datos.mdb-journal", "U/enlace.pdf", "U/colgado.pdf",
          "U/programa/RptDDJJ.rpt", "U/duro.txt", "U/foto.txt", QCoreApplication::applicationFilePath()}},
        {"", {"P/Copias/20090603_1007/DDJJ.txt", "P/nuevo.txt", "S/otra.mdb", "U/nuevo.txt"}},
        {"?", {"P/suelto.txt", "U/hay.txt"}},
        {"está protegido contra escritura", {"U/solo.txt"}},
        {"es una carpeta", {"U"}},
        {"no es un archivo", {"/dev/null"}},
    };
    for (const auto& [porque, nombres] : casos)
    {
        for (const QString& nombre : nombres)
        {
            const QString ruta = raiz.filePath(nombre);
            const Destino destino = puedeEscribirse(ruta);
            const QString rechazo = "'%1' %2. Elija otro nombre u otra carpeta.";
            const bool puede = porque.isEmpty() || porque == u'?';
            EXPECT_EQ(puede ? "" : rechazo.arg(QFileInfo(ruta).fileName(), porque).toStdString(),
                      destino.rechazo.toStdString());
            EXPECT_TRUE(!puede || destino.existe == !porque.isEmpty()) << ruta.toStdString();
        }
    }
    EXPECT_FALSE(puedeEscribirse("DBBrivo.mdb").rechazo.isEmpty()) << "in the current folder";
    QDir::setCurrent(antes);
    reemplazarDirectorioPrograma({});
}

#endif

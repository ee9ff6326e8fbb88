#include "apoyo/archivos_de_prueba.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

QByteArray leerArchivo(const QString& ruta)
{
    QFile archivo(ruta);
    EXPECT_TRUE(archivo.open(QIODevice::ReadOnly)) << ruta.toStdString();
    return archivo.readAll();
}

std::string archivosDe(const QString& carpeta)
{
    QStringList nombres;
    QDirIterator archivos(carpeta, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (archivos.hasNext())
    {
        nombres += QDir(carpeta).relativeFilePath(archivos.next());
    }
    nombres = nombres.filter(QRegularExpression("(?<!\\.ldb)$"));
    nombres.sort();
    return nombres.join(u' ').toStdString();
}

void escribirArchivo(const QString& ruta, const QByteArray& bytes)
{
    QFile archivo(ruta);
    EXPECT_TRUE(archivo.open(QIODevice::WriteOnly)) << ruta.toStdString();
    EXPECT_EQ(bytes.size(), archivo.write(bytes)) << ruta.toStdString();
}

#include "apoyo/archivos_de_prueba.h"

#include <QFile>
#include <gtest/gtest.h>

QByteArray leerArchivo(const QString& ruta)
{
    QFile archivo(ruta);
    EXPECT_TRUE(archivo.open(QIODevice::ReadOnly)) << ruta.toStdString();
    return archivo.readAll();
}

void escribirArchivo(const QString& ruta, const QByteArray& bytes)
{
    QFile archivo(ruta);
    EXPECT_TRUE(archivo.open(QIODevice::WriteOnly)) << ruta.toStdString();
    EXPECT_EQ(bytes.size(), archivo.write(bytes)) << ruta.toStdString();
}

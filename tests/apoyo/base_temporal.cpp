#include "apoyo/base_temporal.h"

#include "core/rutinas.h"
#include "platform/data/directorio_programa.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

BaseTemporal::BaseTemporal()
{
    EXPECT_TRUE(m_carpeta.isValid());
    reemplazarDirectorioPrograma(m_carpeta.path());
    Rutinas::RutaApp = QDir::toNativeSeparators(m_carpeta.path()) + QDir::separator();
    const QString base = ruta(QStringLiteral("DBBrivo.mdb"));
    EXPECT_TRUE(QFile::copy(QStringLiteral(BASE_SEMBRADA), base));
    EXPECT_TRUE(QFile::setPermissions(base, QFile::ReadOwner | QFile::WriteOwner));
    Rutinas::Conexion.abrir(base);
    Rutinas::Conexion.ejecutar("PRAGMA synchronous=OFF"); // no test waits for the disk
}

BaseTemporal::~BaseTemporal()
{
    Rutinas::Conexion.cerrar();
    Rutinas::RutaApp.clear();
    reemplazarDirectorioPrograma({});
}

Conexion& BaseTemporal::conexion() const
{
    return Rutinas::Conexion;
}

QString BaseTemporal::ruta(const QString& nombre) const
{
    return QDir::toNativeSeparators(m_carpeta.filePath(nombre));
}

QByteArray BaseTemporal::leer(const QString& nombre) const
{
    QFile archivo(ruta(nombre));
    EXPECT_TRUE(archivo.open(QIODevice::ReadOnly)) << nombre.toStdString();
    return archivo.readAll();
}

QString BaseTemporal::escribir(const QString& nombre, const QByteArray& contenido) const
{
    QFile archivo(ruta(nombre));
    EXPECT_TRUE(archivo.open(QIODevice::WriteOnly));
    EXPECT_EQ(contenido.size(), archivo.write(contenido));
    return archivo.fileName();
}

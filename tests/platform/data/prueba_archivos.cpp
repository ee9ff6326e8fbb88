#include "apoyo/archivos_de_prueba.h"
#include "errores.h"
#include "limite_de_archivos.h"
#include "platform/data/archivos.h"
#include "platform/data/conexion.h"

#include <QDir>
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
        escribir("uno", "primero");
        escribir("dos", "segundo, más largo");
        QDir(carpeta.path()).mkdir(QStringLiteral("carpeta"));
    }
    [[nodiscard]] QString en(const char* nombre) const { return carpeta.filePath(QString::fromUtf8(nombre)); }
    void escribir(const char* nombre, const QByteArray& bytes) const { escribirArchivo(en(nombre), bytes); }
    [[nodiscard]] QByteArray leer(const char* nombre) const { return leerArchivo(en(nombre)); }
    [[nodiscard]] QStringList contenido() const
    {
        return QDir(carpeta.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
    const QStringList inicial{QStringLiteral("carpeta"), QStringLiteral("dos"), QStringLiteral("uno")};
    QTemporaryDir carpeta;
};
} // namespace

TEST_F(ArchivosEnteros, Copiar)
{
    Archivos::copiar(en("uno"), en("copia ñ"));
    EXPECT_EQ("primero", leer("copia ñ"));
    Archivos::copiar(en("uno"), en("dos"));
    EXPECT_EQ("primero", leer("dos"));
    QByteArray grande(3'000'001, 'x');
    grande[1'500'000] = '\0';
    escribir("uno", grande);
    Archivos::copiar(en("uno"), en("dos"));
    EXPECT_EQ(grande, leer("dos"));
    escribir("uno", "");
    Archivos::copiar(en("uno"), en("dos"));
    EXPECT_EQ("", leer("dos"));
    EXPECT_EQ(QStringList(
                  {QStringLiteral("carpeta"), QStringLiteral("copia ñ"), QStringLiteral("dos"), QStringLiteral("uno")}),
              contenido());
}

TEST_F(ArchivosEnteros, UnaCopiaQueFallaDejaTodoComoEstaba)
{
    struct Caso
    {
        const char* origen;
        const char* destino;
        int numero;
    };
    const Caso casos[] = {
        {"falta", "dos", 53},   {"falta/falta", "dos", 76}, {"uno", "falta/copia", 76}, {"uno", "dos/copia", 76},
        {"carpeta", "dos", 70}, {"uno", "carpeta", 70},     {"uno", "uno", 70},         {"uno", "carpeta/../uno", 70},
    };
    for (const Caso& caso : casos)
    {
        EXPECT_EQ(caso.numero, numeroDe([&] { Archivos::copiar(en(caso.origen), en(caso.destino)); }))
            << caso.origen << " -> " << caso.destino;
    }
    EXPECT_EQ(inicial, contenido());
    EXPECT_EQ("primero", leer("uno"));
    EXPECT_EQ("segundo, más largo", leer("dos"));
}

TEST_F(ArchivosEnteros, UnArchivoSobreSiMismoPorOtroNombre)
{
    std::filesystem::create_hard_link(en("uno").toStdString(), en("duro").toStdString());
    EXPECT_EQ(70, numeroDe([&] { Archivos::copiar(en("uno"), en("duro")); }));
#ifndef _WIN32
    std::filesystem::create_symlink("uno", en("blando").toStdString());
    EXPECT_EQ(70, numeroDe([&] { Archivos::copiar(en("uno"), en("blando")); }));
    EXPECT_EQ(70, numeroDe([&] { Archivos::copiar(en("blando"), en("uno")); }));
    EXPECT_EQ(70, numeroDe([&] { Archivos::copiar(en("blando"), en("duro")); }));
#endif
    EXPECT_EQ("primero", leer("uno"));
}

TEST_F(ArchivosEnteros, ReemplazarYRenombrar)
{
    QFile::setPermissions(en("dos"), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::WriteGroup);
    const QFile::Permissions antes = QFile::permissions(en("dos"));
    Archivos::reemplazar(en("uno"), en("dos"));
    EXPECT_EQ("primero", leer("dos"));
    EXPECT_EQ(antes, QFile::permissions(en("dos"))) << "the others who used the old file can use the new one";
    EXPECT_EQ(53, numeroDe([&] { Archivos::reemplazar(en("uno"), en("dos")); }));
    EXPECT_EQ("primero", leer("dos"));
    Archivos::reemplazar(en("dos"), en("tres"));
    EXPECT_EQ(70, numeroDe([&] { Archivos::reemplazar(en("tres"), en("carpeta")); }));
    EXPECT_EQ(76, numeroDe([&] { Archivos::reemplazar(en("tres"), en("falta/x")); }));

    escribir("cuatro", "4");
    EXPECT_EQ(75, numeroDe([&] { Archivos::renombrar(en("tres"), en("cuatro")); }));
    EXPECT_EQ("4", leer("cuatro"));
    Archivos::renombrar(en("tres"), en("cinco"));
    EXPECT_EQ("primero", leer("cinco"));
    EXPECT_EQ(53, numeroDe([&] { Archivos::renombrar(en("tres"), en("seis")); }));
    EXPECT_EQ(76, numeroDe([&] { Archivos::renombrar(en("cinco"), en("falta/seis")); }));
    EXPECT_EQ(QStringList({QStringLiteral("carpeta"), QStringLiteral("cinco"), QStringLiteral("cuatro")}), contenido());
}

TEST_F(ArchivosEnteros, BorrarYCrearCarpeta)
{
    Archivos::borrar(en("uno"));
    EXPECT_FALSE(Archivos::existe(en("uno")));
    EXPECT_TRUE(Archivos::existe(en("dos")));
    EXPECT_EQ(53, numeroDe([&] { Archivos::borrar(en("uno")); }));
    EXPECT_EQ(76, numeroDe([&] { Archivos::borrar(en("falta/uno")); }));
    EXPECT_EQ(53, numeroDe([&] { Archivos::borrar(en("carpeta")); }));

    Archivos::crearCarpeta(en("nueva"));
    EXPECT_TRUE(QFileInfo(en("nueva")).isDir());
    EXPECT_EQ(75, numeroDe([&] { Archivos::crearCarpeta(en("nueva")); }));
    EXPECT_EQ(75, numeroDe([&] { Archivos::crearCarpeta(en("dos")); }));
    EXPECT_EQ(76, numeroDe([&] { Archivos::crearCarpeta(en("falta/nueva")); }));
    EXPECT_EQ(53, numeroDe([&] { Archivos::asegurarEnDisco(en("falta")); }));
    EXPECT_EQ(0, numeroDe([&] { Archivos::asegurarEnDisco(en("dos")); }));
}

#ifndef _WIN32
TEST_F(ArchivosEnteros, ElDiscoSeLlenaAMitadDeLaCopia)
{
    escribir("uno", QByteArray(2'000'000, 'x'));
    {
        const LimiteDeArchivos limite(700'000);
        EXPECT_EQ(61, numeroDe([&] { Archivos::copiar(en("uno"), en("dos")); }));
        EXPECT_EQ(61, numeroDe([&] { Archivos::copiar(en("uno"), en("nuevo")); }));
    }
    EXPECT_EQ(inicial, contenido());
    EXPECT_EQ("segundo, más largo", leer("dos"));
    Archivos::copiar(en("uno"), en("dos"));
    EXPECT_EQ(2'000'000, leer("dos").size());
}

TEST_F(ArchivosEnteros, ElOrigenNoSePuedeLeer)
{
    // There is nothing at the bottom of a process's memory: the file opens, and reading it fails.
    EXPECT_EQ(57, numeroDe([&] { Archivos::copiar(QStringLiteral("/proc/self/mem"), en("dos")); }));
    EXPECT_EQ(inicial, contenido());
    EXPECT_EQ("segundo, más largo", leer("dos"));
}

TEST_F(ArchivosEnteros, ElDiscoSeLlenaAlCompactar)
{
    Conexion::crear(en("Base.mdb"));
    {
        Conexion conexion;
        conexion.abrir(en("Base.mdb"));
        conexion.ejecutar("CREATE TABLE t (n TEXT)");
        conexion.ejecutar("WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c WHERE i < 5000) "
                          "INSERT INTO t SELECT hex(randomblob(100)) FROM c");
    }
    const QStringList antes = contenido();
    const QByteArray base = leer("Base.mdb");
    {
        const LimiteDeArchivos limite(300'000);
        EXPECT_NE(0, numeroDe([&] { Conexion::compactar(en("Base.mdb"), en("Nueva.mdb")); }));
    }
    EXPECT_EQ(antes, contenido());
    EXPECT_EQ(base, leer("Base.mdb"));
}
#endif

// Whole files: copies that are whole or none, and the number and name that each failure is told by.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/datos.h"
#include "apoyo/limite_de_archivos.h"
#include "base/files/archivos.h"

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
        QDir(carpeta.path()).mkpath("carpeta/adentro");
        escribirArchivo(en("uno"), "primero");
        escribirArchivo(en("dos"), "segundo, más largo");
        escribirArchivo(en("grande"), QByteArray(3'000'001, 'x').replace(1'500'000, 1, QByteArray(1, '\0')));
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
        return carpeta.filePath(nombre);
    }
    /// What it throws, with paths from the folder on.
    template <class A>
    [[nodiscard]] std::string falla(A accion) const
    {
        return fallaDe(accion).remove(carpeta.path() + u'/').toStdString();
    }
    [[nodiscard]] std::string copiando(const char* origen, const char* destino) const
    {
        return falla([&] { Archivos::copiar(en(origen), en(destino)); });
    }
    QTemporaryDir carpeta;
};
const std::string enUso = "70 Permiso denegado o archivo en uso: ";
const std::string sinAcceso = "75 Error de acceso a la ruta o al archivo: ";
const std::string sinRuta = "76 No se encontró la ruta de acceso: ";
} // namespace

TEST_F(ArchivosEnteros, UnaCopiaQueFallaNombraLoQueNombroElUsuarioYNoCambiaNada)
{
    const std::tuple<const char*, const char*, std::string> casos[] = {
        {"falta", "dos", "53 No se encontró el archivo: falta"},
        {"falta/falta", "dos", sinRuta + "falta/falta"},
        {"uno", "falta/copia", sinRuta + "falta/copia"},
        {"uno", "dos/copia", sinRuta + "dos/copia"},
        {"carpeta", "dos", sinAcceso + "carpeta es una carpeta"},
        {"uno", "carpeta", sinAcceso + "carpeta es una carpeta"},
        {"uno", "solo", sinAcceso + "solo está protegido contra escritura"},
        {"uno", "carpeta/../uno", enUso + "carpeta/../uno"},
        {"uno", "duro", enUso + "duro"},
#ifndef _WIN32
        {"blando", "duro", enUso + "duro"},
        {"uno", "blando", enUso + "blando"},
#endif
    };
    const std::string antes = archivosDe(carpeta.path());
    for (const auto& [origen, destino, falla] : casos)
    {
        EXPECT_EQ(falla, copiando(origen, destino));
    }
#ifndef _WIN32
    {
        const LimiteDeArchivos limite(700'000);
        EXPECT_EQ("61 El disco está lleno: dos", copiando("grande", "dos"));
        EXPECT_EQ("61 El disco está lleno: nuevo", copiando("grande", "nuevo"));
    }
    // There is nothing at the bottom of a process's memory: the file opens, and reading it fails.
    EXPECT_EQ(57, numeroDe([&] { Archivos::copiar("/proc/self/mem", en("dos")); }));
#endif
    EXPECT_EQ(antes, archivosDe(carpeta.path()));
    EXPECT_EQ("primero|segundo, más largo|se lee",
              leerArchivo(en("uno")) + '|' + leerArchivo(en("dos")) + '|' + leerArchivo(en("solo")));
}

TEST_F(ArchivosEnteros, UnaCopiaEsEnteraTanAbiertaComoLaViejaYDejaLosEnlaces)
{
    const auto todos = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::WriteGroup;
    QFile::setPermissions(en("dos"), todos);
    escribirArchivo(en("dos.parte"), "de una copia que murió");
    escribirArchivo(en("dos.parte-journal"), "y lo que había al lado");
    EXPECT_EQ("", copiando("grande", "dos") + copiando("grande", "copia ñ"));
    EXPECT_EQ(leerArchivo(en("grande")), leerArchivo(en("dos")));
    EXPECT_EQ(leerArchivo(en("grande")), leerArchivo(en("copia ñ")));
    EXPECT_FALSE(QFile::exists(en("dos.parte")) || QFile::exists(en("dos.parte-journal")));
#ifndef _WIN32
    EXPECT_EQ(todos, QFile::permissions(en("dos")) & ~(QFile::ReadUser | QFile::WriteUser));
    EXPECT_EQ("", copiando("dos", "blando") + copiando("dos", "colgado"));
    EXPECT_TRUE(QFileInfo(en("blando")).isSymbolicLink() && QFileInfo(en("colgado")).isSymbolicLink());
    EXPECT_EQ(leerArchivo(en("dos")), leerArchivo(en("uno")));
    EXPECT_EQ(leerArchivo(en("dos")), leerArchivo(en("carpeta/lejos")));
#endif
    QDir(carpeta.path()).mkpath("solo.parte");
    QFile::setPermissions(en("solo"), todos);
    EXPECT_TRUE(copiando("uno", "solo").ends_with(": solo")); // a folder of that name is not removed
    EXPECT_TRUE(QDir(en("solo.parte")).exists());
}

TEST_F(ArchivosEnteros, BorrarYCrearCarpeta)
{
    const auto borrando = [&](const char* que) { return falla([&] { Archivos::borrar(en(que)); }); };
    const auto creando = [&](const char* que) { return falla([&] { Archivos::crearCarpeta(en(que)); }); };
    EXPECT_EQ("53 No se encontró el archivo: uno", borrando("uno") + borrando("uno"));
    EXPECT_EQ("53 No se encontró el archivo: carpeta/adentro", borrando("carpeta/adentro"));
    EXPECT_EQ(sinAcceso + "nueva", creando("nueva") + creando("nueva"));
    EXPECT_EQ(sinRuta + "falta/nueva", creando("falta/nueva"));
    EXPECT_TRUE(QDir(en("nueva")).exists() && QDir(en("carpeta/adentro")).exists());
}

#include "apoyo/base_de_prueba.h"
#include "apoyo/datos.h"
#include "apoyo/version_anterior.h"

#include <QFile>
#include <gtest/gtest.h>
#include <map>
#include <sqlite3.h>
#include <utility>

namespace
{
/// The database and its journal as a death at some moment leaves them.
using Estado = std::pair<QByteArray, QByteArray>;

const BaseDePrueba* laBase = nullptr;
std::vector<Estado> momentos;
std::size_t llenoEn = 0; ///< the write that finds the disk full, from 1; 0 for none
sqlite3_vfs* real = nullptr;
decltype(sqlite3_io_methods::xWrite) escribir = nullptr;

void guardar()
{
    const QString diario = laBase->ruta("DBBrivo.mdb-journal");
    momentos.emplace_back(laBase->leer("DBBrivo.mdb"),
                          QFile::exists(diario) ? laBase->leer("DBBrivo.mdb-journal") : QByteArray());
}

int escribirDespuesDeGuardar(sqlite3_file* archivo, const void* datos, int largo, sqlite3_int64 lugar)
{
    guardar();
    return momentos.size() == llenoEn ? SQLITE_FULL : escribir(archivo, datos, largo, lugar);
}

int abrir(sqlite3_vfs*, const char* nombre, sqlite3_file* archivo, int modo, int* salida)
{
    static std::map<const sqlite3_io_methods*, sqlite3_io_methods> propios; // one for each kind of file
    const int codigo = real->xOpen(real, nombre, archivo, modo, salida);
    if (archivo->pMethods != nullptr)
    {
        sqlite3_io_methods& metodos = propios.emplace(archivo->pMethods, *archivo->pMethods).first->second;
        escribir = archivo->pMethods->xWrite;
        metodos.xWrite = escribirDespuesDeGuardar;
        archivo->pMethods = &metodos;
    }
    return codigo;
}

int borrar(sqlite3_vfs*, const char* nombre, int asegurar)
{
    guardar();
    const int codigo = real->xDelete(real, nombre, asegurar);
    guardar();
    return codigo;
}

/// A start on which the files are kept before each write, and around each deletion.
void arrancarGuardando()
{
    momentos.clear();
    real = sqlite3_vfs_find(nullptr);
    sqlite3_vfs propio = *real;
    propio.zName = "guarda";
    propio.xOpen = abrir;
    propio.xDelete = borrar;
    sqlite3_vfs_register(&propio, 1);
    BaseDePrueba::arrancar();
    Rutinas::CerrarBase();
    sqlite3_vfs_unregister(&propio);
    sqlite3_vfs_register(real, 1);
}

TEST(Subida, UnaMuerteEnCualquierMomentoNoDetieneLosArranquesQueSiguen)
{
    // At the end the sums of the agreements that the version had stay.
    for (const auto& [version, alFinal] :
         {std::pair("1.0", "2.0|0|0"), std::pair("1.1", "2.0|300000|0"), std::pair("1.2", "2.0|300000|400000")})
    {
        const BaseDePrueba propia;
        laBase = &propia;
        poner("DDJJ_Empleados", {{"Acuerdo", "30"}, {"Acuerdo2", "40"}});
        poner("RptEmpleados", {{"Indice", 1}});
        Rutinas::CerrarBase();
        volverAVersion(laBase->rutaBase(), version);
        arrancarGuardando();
        EXPECT_GT(momentos.size(), 5U);
        std::vector<Estado> cortados = std::exchange(momentos, {});
        for (llenoEn = 1; llenoEn <= 5; ++llenoEn) // the same on a disk that fills up
        {
            laBase->escribir("DBBrivo.mdb", cortados.front().first);
            arrancarGuardando();
            cortados.emplace_back(laBase->leer("DBBrivo.mdb"), QByteArray());
        }
        llenoEn = 0;
        for (const auto& [archivo, diario] : cortados)
        {
            laBase->escribir("DBBrivo.mdb", archivo);
            laBase->escribir("DBBrivo.mdb-journal", diario);
            for (int vez = 1; vez <= 4; ++vez)
            {
                BaseDePrueba::arrancar();
            }
            ASSERT_EQ(filas("SELECT Version, D.Acuerdo AS A, D.Acuerdo2 AS B FROM Parametros, DDJJ_Empleados D, "
                            "RptEmpleados R WHERE R.Acuerdo + R.Acuerdo2 = 0"),
                      alFinal)
                << version;
        }
    }
}
} // namespace

#include "apoyo/base_de_prueba.h"
#include "apoyo/version_anterior.h"
#include "core/rutinas.h"

#include <QFile>
#include <gtest/gtest.h>
#include <map>
#include <sqlite3.h>
#include <vector>

namespace
{
/// While it lives, what the database writes goes through here: before each change of a file, and after each deletion,
/// the state of the files is kept, which is what a death at that moment would leave.
class Muertes
{
public:
    explicit Muertes(const BaseDePrueba& base)
        : m_base(base)
    {
        una = this;
        real = sqlite3_vfs_find(nullptr);
        static sqlite3_vfs propio;
        propio = *real;
        propio.zName = "muertes";
        propio.xOpen = abrir;
        propio.xDelete = borrar;
        sqlite3_vfs_register(&propio, 1);
    }
    ~Muertes()
    {
        sqlite3_vfs_unregister(sqlite3_vfs_find("muertes"));
        sqlite3_vfs_register(real, 1);
        una = nullptr;
    }
    Muertes(const Muertes&) = delete;
    Muertes& operator=(const Muertes&) = delete;

    struct Estado
    {
        QByteArray base;
        QByteArray diario;
    };
    std::vector<Estado> estados;

private:
    static int abrir(sqlite3_vfs*, const char* nombre, sqlite3_file* archivo, int modo, int* salida)
    {
        una->guardar();
        const int codigo = real->xOpen(real, nombre, archivo, modo, salida);
        if (archivo->pMethods != nullptr)
        {
            sqlite3_io_methods& propios = una->m_metodos[archivo->pMethods];
            propios = *archivo->pMethods;
            una->m_escribir = propios.xWrite;
            una->m_cortar = propios.xTruncate;
            propios.xWrite = [](sqlite3_file* cual, const void* datos, int largo, sqlite3_int64 lugar)
            {
                una->guardar();
                return una->m_escribir(cual, datos, largo, lugar);
            };
            propios.xTruncate = [](sqlite3_file* cual, sqlite3_int64 largo)
            {
                una->guardar();
                return una->m_cortar(cual, largo);
            };
            archivo->pMethods = &propios;
        }
        return codigo;
    }
    static int borrar(sqlite3_vfs*, const char* nombre, int asegurar)
    {
        una->guardar();
        const int codigo = real->xDelete(real, nombre, asegurar);
        una->guardar();
        return codigo;
    }
    void guardar()
    {
        const QString diario = QStringLiteral("DBBrivo.mdb-journal");
        estados.push_back({m_base.leer(QStringLiteral("DBBrivo.mdb")),
                           QFile::exists(m_base.ruta(diario)) ? m_base.leer(diario) : QByteArray()});
    }

    static inline Muertes* una = nullptr;
    static inline sqlite3_vfs* real = nullptr;
    const BaseDePrueba& m_base;
    std::map<const sqlite3_io_methods*, sqlite3_io_methods> m_metodos;
    int (*m_escribir)(sqlite3_file*, const void*, int, sqlite3_int64) = nullptr;
    int (*m_cortar)(sqlite3_file*, sqlite3_int64) = nullptr;
};

void arrancar()
{
    Rutinas::CerrarBase();
    Rutinas::Main([] {});
}

/// The one value of a query, or why there is none.
std::string valorDe(std::string_view consulta)
{
    try
    {
        return Rutinas::Conexion.consultar(consulta).primera().texto("v").toStdString();
    }
    catch (const std::exception& error)
    {
        return error.what();
    }
}

TEST(Subida, UnaMuerteEnCualquierMomentoNoDetieneLasSiguientes)
{
    struct Caso
    {
        const char* version;
        const char* alFinal; ///< sums of both agreements: those that the version had stay
    };
    const Caso casos[] = {{"1.0", "2.0|0|0"}, {"1.1", "2.0|300000|0"}, {"1.2", "2.0|300000|400000"}};
    for (const Caso& caso : casos)
    {
        BaseDePrueba base;
        agregar(base.conexion(), EmpleadoDePrueba{.acuerdo = Moneda::deEntero(30), .acuerdo2 = Moneda::deEntero(40)});
        Rutinas::CerrarBase();
        volverAVersion(base.rutaBase(), QString::fromLatin1(caso.version));
        std::vector<Muertes::Estado> estados;
        {
            Muertes muertes(base);
            arrancar();
            Rutinas::CerrarBase();
            estados = std::move(muertes.estados);
        }
        EXPECT_GT(estados.size(), 5U);
        for (std::size_t n = 0; n < estados.size(); ++n)
        {
            base.escribir(QStringLiteral("DBBrivo.mdb"), estados[n].base);
            base.escribir(QStringLiteral("DBBrivo.mdb-journal"), estados[n].diario);
            for (int arranque = 1; arranque <= 4; ++arranque)
            {
                arrancar();
            }
            EXPECT_EQ(
                valorDe("SELECT Version || '|' || Acuerdo || '|' || Acuerdo2 AS v FROM Parametros, DDJJ_Empleados"),
                caso.alFinal)
                << caso.version << ", death " << n;
            EXPECT_EQ(valorDe("SELECT count(Acuerdo) + count(Acuerdo2) AS v FROM RptEmpleados"), "0")
                << caso.version << ", death " << n;
            Rutinas::CerrarBase();
        }
        Rutinas::AbrirBase();
    }
}
} // namespace

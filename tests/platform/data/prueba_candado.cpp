// The lock between running copies.
#include "apoyo/datos.h"
#include "apoyo/hijo.h"
#include "platform/data/candado.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace
{
using Modo = Candado::Modo;

/// Whether a lock can be had alone and together with others, as "70 0".
std::string tomando(const QString& ruta)
{
    const auto tomar = [&](Modo modo) { return numeroDe([&] { const Candado candado(ruta, modo); }); };
    return std::to_string(tomar(Modo::Exclusivo)) + ' ' + std::to_string(tomar(Modo::Compartido));
}

class DosProcesos : public testing::Test
{
protected:
    DosProcesos() { Conexion::crear(base); }
    /// What another process can have of the lock.
    [[nodiscard]] std::string otroProceso() const
    {
        Hijo otro(QStringLiteral("HijoDeCandado.DISABLED_Prueba"), candado);
        return otro.dicho().toStdString();
    }
    QTemporaryDir carpeta;
    QString base = carpeta.filePath(QStringLiteral("DBBrivo.mdb"));
    QString candado = carpeta.filePath(QStringLiteral("DBBrivo.ldb"));
    Conexion conexion;
};
} // namespace

// The parts of the other process.
TEST(HijoDeCandado, DISABLED_Prueba)
{
    hijo::listoYEsperar(QString::fromStdString(tomando(hijo::ruta())));
}

TEST(HijoDeCandado, DISABLED_Excluye)
{
    const Candado solo(hijo::ruta(), Modo::Exclusivo);
    hijo::listoYEsperar();
}

TEST(HijoDeCandado, DISABLED_TieneLaBaseAbierta)
{
    Conexion conexion;
    conexion.abrir(hijo::ruta());
    hijo::listoYEsperar();
}

TEST_F(DosProcesos, UnExclusivoNoVaConNinguno)
{
    {
        Hijo otro(QStringLiteral("HijoDeCandado.DISABLED_TieneLaBaseAbierta"), base);
        EXPECT_EQ("70 0", tomando(candado));
    }
    EXPECT_EQ("0 0", tomando(candado));
    Hijo otro(QStringLiteral("HijoDeCandado.DISABLED_Excluye"), candado);
    EXPECT_EQ("70 70", tomando(candado));
    EXPECT_EQ(70, numeroDe([&] { conexion.abrir(base); }));
    EXPECT_FALSE(conexion.abierta());
    otro.matar();
    EXPECT_EQ(0, numeroDe([&] { conexion.abrir(base); })) << "the system frees what a dead process held";
    EXPECT_EQ("76 76", tomando(carpeta.filePath(QStringLiteral("falta/x.ldb"))));
    EXPECT_EQ("75 75", tomando(carpeta.path()));
}

TEST_F(DosProcesos, VariasConexionesDeUnProcesoSonUnSoloCandado)
{
    conexion.abrir(base);
    {
        Conexion otra;
        otra.abrir(carpeta.filePath(QStringLiteral("./DBBrivo.mdb"))); // the same file by another name
        EXPECT_EQ("70 0", tomando(candado));
    }
    EXPECT_EQ("70 0", otroProceso()) << "closing one connection must not drop the lock of the other";
    conexion.cerrar();
    EXPECT_EQ("0 0", otroProceso());
    Candado solo(candado, Modo::Exclusivo);
    EXPECT_EQ("70 70", tomando(candado));
    EXPECT_EQ(70, numeroDe([&] { conexion.abrir(base); }));
    const Candado movido = std::move(solo);
    EXPECT_EQ("70 70", otroProceso());
    EXPECT_EQ(0, numeroDe([&] { Conexion::comprobar(base); })) << "checking takes no lock";
}

// The lock between running copies.
#include "apoyo/hijo.h"
#include "base/files/candado.h"
#include "base_nueva.h"

namespace
{
using Modo = Candado::Modo;

/// Whether a lock can be had alone and together with others, as "70 0".
std::string tomando(const QString& ruta)
{
    const auto tomar = [&](Modo modo) { return numeroDe([&] { const Candado candado(ruta, modo); }); };
    return std::to_string(tomar(Modo::Exclusivo)) + ' ' + std::to_string(tomar(Modo::Compartido));
}

class DosProcesos : public BaseNueva
{
protected:
    DosProcesos() { conexion.cerrar(); }
    const QString candado = en("Bäse ñ.ldb");
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

TEST_F(DosProcesos, UnExclusivoNoVaConNinguno)
{
    Hijo otro("HijoDeCandado.DISABLED_Excluye", candado);
    EXPECT_EQ("70 70", tomando(candado));
    EXPECT_EQ(70, numeroDe([&] { conexion.abrir(base); }));
    EXPECT_FALSE(conexion.abierta());
    otro.matar();
    EXPECT_EQ(0, numeroDe([&] { conexion.abrir(base); })) << "the system frees what a dead process held";
    EXPECT_EQ("76 76", tomando(en("falta/x.ldb")));
    EXPECT_EQ("75 75", tomando(carpeta.path()));
}

TEST_F(DosProcesos, VariasConexionesDeUnProcesoSonUnSoloCandado)
{
    /// What another process can have of the lock.
    const auto otroProceso = [&] { return Hijo("HijoDeCandado.DISABLED_Prueba", candado).dicho().toStdString(); };
    conexion.abrir(base);
    {
        Conexion otra;
        otra.abrir(en("./Bäse ñ.mdb")); // the same file by another name
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

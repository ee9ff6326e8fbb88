#include "apoyo/base_de_prueba.h"
#include "companies/busqueda_empresa.h"
#include "companies/busqueda_rubro.h"
#include "datos_empresa.h"

#include <gtest/gtest.h>

namespace
{
const QString vacio = QStringLiteral("__-________-_");

struct PruebaBusquedas : testing::Test
{
    BaseDePrueba base;
    Conexion& conexion = base.conexion();

    [[nodiscard]] QStringList razones(const QString& cuit, const char* nombre)
    {
        QStringList lista;
        for (const EmpresaHallada& hallada : buscarEmpresas(conexion, cuit, QString::fromUtf8(nombre)))
        {
            lista.append(hallada.razon);
        }
        return lista;
    }
    [[nodiscard]] QStringList rubros(const char* codigo, const char* nombre)
    {
        QStringList lista;
        for (const RubroHallado& hallado : buscarRubros(conexion, QString::fromUtf8(codigo), QString::fromUtf8(nombre)))
        {
            lista.append(hallado.codigo);
        }
        return lista;
    }
};
} // namespace

TEST_F(PruebaBusquedas, EmpresasPorCuitYNombre)
{
    sembrarEmpresa(conexion, cuitUno, QStringLiteral("Panadería D'Angelo"));
    sembrarEmpresa(conexion, cuitDos, QStringLiteral("Confitería 100% Ñoquis"));
    sembrarEmpresa(conexion, cuitTres, QStringLiteral("Abasto y Panificación"));
    const QString uno = QStringLiteral("Panadería D'Angelo");
    const QString dos = QStringLiteral("Confitería 100% Ñoquis");
    const QString tres = QStringLiteral("Abasto y Panificación");

    EXPECT_EQ(razones(vacio, ""), (QStringList{tres, dos, uno})); // the full list by name
    EXPECT_EQ(razones(vacio, "PAN"), (QStringList{uno, tres}));   // a narrowed one by CUIT
    EXPECT_EQ(razones(vacio, "ÑOQUIS"), QStringList{dos});
    EXPECT_EQ(razones(vacio, "D'A"), QStringList{uno});
    EXPECT_EQ(razones(vacio, "D_A"), QStringList{uno}); // wild cards
    EXPECT_EQ(razones(vacio, "0%q"), QStringList{dos});
    EXPECT_EQ(razones(vacio, "\\"), QStringList());
    EXPECT_EQ(razones(cuitUno, ""), QStringList{uno});
    EXPECT_EQ(razones(cuitUno, "pan"), QStringList{uno});
    EXPECT_EQ(razones(cuitUno, "Abasto"), QStringList());
    EXPECT_EQ(razones(QStringLiteral("20-1_______-_"), ""), QStringList());
}

TEST_F(PruebaBusquedas, RubrosDesdeUnCodigo)
{
    conexion.ejecutar("DELETE FROM Rubros");
    const std::pair<const char*, const char*> datos[] = {
        {"", "Sin código"}, {"10", "Pan"}, {"5", "Panadería"}, {"511", "Fábrica de pan"}, {"9", "Otros"}};
    for (const auto& [codigo, nombre] : datos)
    {
        conexion.ejecutar("INSERT INTO Rubros (Codigo, Nombre) VALUES (?, ?)", codigo, nombre);
    }
    EXPECT_EQ(rubros("", ""), (QStringList{"10", "5", "511", "9"}));
    EXPECT_EQ(rubros("5", ""), (QStringList{"5", "511", "9"}));
    EXPECT_EQ(rubros("", "pan"), (QStringList{"10", "5", "511"}));
    EXPECT_EQ(rubros("51", "PAN"), QStringList{"511"});
    EXPECT_EQ(rubros("", "p_n"), (QStringList{"10", "5", "511"})); // wild cards
    EXPECT_EQ(rubros("'", ""), (QStringList{"10", "5", "511", "9"}));
}

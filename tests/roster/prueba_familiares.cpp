#include "apoyo/base_de_prueba.h"
#include "platform/data/error_de_ejecucion.h"
#include "roster/familiares.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace
{
const FilaFamiliar completa{QStringLiteral("Hijo"),       QStringLiteral("DNI"),   12345678,
                            QStringLiteral("Pérez Luis"), QStringLiteral("Masc."), QDate(2005, 1, 31)};

FilaFamiliar con(const std::function<void(FilaFamiliar&)>& cambio)
{
    FilaFamiliar fila = completa;
    cambio(fila);
    return fila;
}

QStringList guardados(Conexion& conexion)
{
    QStringList filas;
    conexion.recorrer("SELECT * FROM Empleados_Familiares ORDER BY rowid",
                      [&](const Fila& fila)
                      {
                          filas += QStringList{fila.texto("Familiar"), fila.texto("AyN"),  fila.texto("TipoDoc"),
                                               fila.texto("NroDoc"),   fila.texto("Sexo"), fila.texto("Nacio")}
                                       .join(QLatin1Char('|'));
                      });
    return filas;
}

class FamiliaresTest : public testing::Test
{
protected:
    void insertar(int familiar, const char* ayn, int tipoDoc, const char* resto)
    {
        conexion.ejecutar(std::string("INSERT INTO Empleados_Familiares VALUES (?, ?, ?, ?, ") + resto + ")",
                          dePrueba::cuil, familiar, ayn, tipoDoc);
    }
    QStringList nombres()
    {
        QStringList lista;
        for (const FilaFamiliar& fila : cargarFamiliares(conexion, dePrueba::cuil))
        {
            lista += fila.ayn + QLatin1Char(' ') + fila.sexo;
        }
        return lista;
    }

    BaseDePrueba base;
    Conexion& conexion = base.conexion();
};

TEST_F(FamiliaresTest, SeListanPorRelacionYDelMenorAlMayor)
{
    insertar(2, "segundo", 1, "10, 1, '2000-01-01'"); // Hijo
    insertar(2, "primero", 1, "11, 1, '2005-01-01'");
    insertar(2, "sin fecha", 1, "NULL, NULL, NULL");
    insertar(1, "pareja", 1, "12, 0, '1970-01-01'"); // Cónyuge
    insertar(99, "otra relación", 1, "13, 0, '1970-01-01'");
    insertar(1, "otro documento", 99, "14, 0, '1970-01-01'");
    conexion.ejecutar("INSERT INTO Empleados_Familiares VALUES ('27-1', 1, 'ajeno', 1, 15, 0, '1970-01-01')");

    EXPECT_EQ((QStringList{QStringLiteral("pareja Fem."), QStringLiteral("primero Masc."),
                           QStringLiteral("segundo Masc."), QStringLiteral("sin fecha Masc.")}),
              nombres());
    EXPECT_EQ(std::nullopt, cargarFamiliares(conexion, dePrueba::cuil).back().nroDoc);
}

TEST_F(FamiliaresTest, GuardarReemplazaLaListaEnteraTambienLoQueNoSeVe)
{
    insertar(99, "oculto", 1, "13, 0, '1970-01-01'");
    insertar(1, "de 1925", 1, "14, 0, '1925-12-31'");
    conexion.ejecutar("INSERT INTO Empleados_Familiares VALUES ('27-1', 1, 'ajeno', 1, 15, 0, '1970-01-01')");
    const auto filas = cargarFamiliares(conexion, dePrueba::cuil);

    EXPECT_TRUE(guardarFamiliares(conexion, dePrueba::cuil, filas));

    // A birth date that was not touched keeps its century.
    EXPECT_EQ((QStringList{QStringLiteral("1|ajeno|1|15|0|1970-01-01"), QStringLiteral("1|de 1925|1|14|0|1925-12-31")}),
              guardados(conexion));
}

struct FilaDeCaso
{
    const char* que;
    FilaFamiliar fila;
    enum
    {
        Guardada,
        Salteada,
        Incompleta,
        Falla,
    } destino;
    int error = 0;
};

TEST_F(FamiliaresTest, CadaFilaSeGuardaSeSalteaOSeRechaza)
{
    using Caso = FilaDeCaso;
    const Caso casos[] = {
        {"complete", completa, Caso::Guardada},
        {"apostrophe", con([](auto& f) { f.ayn = QStringLiteral("D'Angelo \"Ñ\" 100%_"); }), Caso::Guardada},
        {"spare row", {}, Caso::Salteada},
        {"type and sex only",
         con(
             [](auto& f)
             {
                 f.familiar.clear();
                 f.nroDoc.reset();
                 f.ayn.clear();
                 f.nacio = {};
             }),
         Caso::Salteada},
        {"number only",
         con(
             [](auto& f)
             {
                 f = {};
                 f.nroDoc = 0;
             }),
         Caso::Incompleta},
        {"no relation", con([](auto& f) { f.familiar.clear(); }), Caso::Incompleta},
        {"no type", con([](auto& f) { f.tipoDoc.clear(); }), Caso::Incompleta},
        {"no name", con([](auto& f) { f.ayn.clear(); }), Caso::Incompleta},
        {"no sex", con([](auto& f) { f.sexo.clear(); }), Caso::Incompleta},
        {"no date", con([](auto& f) { f.nacio = {}; }), Caso::Incompleta},
        {"no number", con([](auto& f) { f.nroDoc.reset(); }), Caso::Falla, 13},
        {"unknown relation", con([](auto& f) { f.familiar = QStringLiteral("Vecino"); }), Caso::Falla, 3021},
        {"unknown type", con([](auto& f) { f.tipoDoc = QStringLiteral("Carnet"); }), Caso::Falla, 3021},
    };
    for (const Caso& caso : casos)
    {
        SCOPED_TRACE(caso.que);
        conexion.ejecutar("DELETE FROM Empleados_Familiares");
        int error = 0;
        bool entera = false;
        try
        {
            entera = guardarFamiliares(conexion, dePrueba::cuil, {completa, caso.fila});
        }
        catch (const ErrorDeEjecucion& fallo)
        {
            error = fallo.numero();
        }
        EXPECT_EQ(caso.error, error);
        EXPECT_EQ(caso.destino == Caso::Guardada || caso.destino == Caso::Salteada, entera);
        EXPECT_EQ(caso.destino == Caso::Guardada ? 2 : 1, guardados(conexion).size());
        if (caso.destino == Caso::Guardada)
        {
            EXPECT_EQ(QStringLiteral("2|%1|1|12345678|1|2005-01-31").arg(caso.fila.ayn), guardados(conexion).last());
        }
    }
}
} // namespace

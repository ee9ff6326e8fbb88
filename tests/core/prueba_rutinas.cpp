#include "core/rutinas.h"

#include "apoyo/base_de_prueba.h"
#include "apoyo/datos.h"
#include "core/ultima_copia.h"

#include <QDir>
#include <gtest/gtest.h>

namespace
{
TEST(VerificarCuit, ElDigitoYSusRechazos)
{
    // Sums worked by hand over the weights 5 4 3 2 7 6 5 4 3 2.
    const std::pair<const char*, bool> casos[] = {
        {"20-12345678-6", true},  // 148, remainder 5
        {"20-12345678-5", false}, // another digit
        {"20-12345678-_", false}, // a digit missing
        {"__-________-_", false}, // nothing typed
        {"02-12345678-6", false}, // begins with 0: ten digits as a number
        {"20-1234567A-6", false}, // a letter, by pasting
        {"20-00000040-0", true},  // 22, remainder 0
        {"20-00000040-1", false},
    };
    for (const auto& [cuit, bien] : casos)
    {
        EXPECT_EQ(Rutinas::VerificarCuit(cuit), bien) << cuit;
    }
    for (int digito = 0; digito <= 9; ++digito)
    {
        EXPECT_FALSE(Rutinas::VerificarCuit(qint64{20000000010} + digito)) << "12, remainder 1: none exists";
    }
}

TEST(UltimaCopia, PasadosTreintaDiasPideOtra)
{
    const auto aviso = [](const QString& carpeta, QDate fecha)
    {
        const AvisoDeCopia dicho = avisoDeCopia({carpeta, fecha, {}}, QDate(2026, 11, 24));
        return dicho.texto + (dicho.atencion ? "!" : "");
    };
    EXPECT_EQ(aviso("/c", QDate(2026, 11, 24)), "Última copia: 24/11/26");
    EXPECT_EQ(aviso("/c", QDate(2026, 10, 25)), "Última copia: 25/10/26");
    EXPECT_EQ(aviso("/c", QDate(2026, 10, 24)), "Última copia: 24/10/26 (hace 31 días)!");
    EXPECT_EQ(aviso("", QDate(2026, 11, 24)), "Sin copias!");
}

TEST(Indices, ElContadorSoloCreceYLiberarBorraLoPreparado)
{
    const BaseDePrueba base;
    const qint64 primero = Rutinas::ObtenerIndice();
    const qint64 segundo = Rutinas::ObtenerIndice();
    EXPECT_EQ(segundo, primero + 1);
    poner("RptEmpleados", {{"Indice", primero}});
    poner("RptEmpleados", {{"Indice", segundo}});
    Rutinas::LiberarIndice(primero);
    Rutinas::LiberarIndice(primero);
    EXPECT_EQ(filas("SELECT Indice FROM RptEmpleados"), std::to_string(segundo));
    EXPECT_EQ(Rutinas::ObtenerIndice(), segundo + 1);
}

TEST(Inicio, UnaColumnaQueYaExisteCortaElPasoYLaVersionQueda)
{
    const BaseDePrueba base;
    Rutinas::Conexion.ejecutar("UPDATE Parametros SET Version = '1.1'");
    poner("DDJJ_Empleados", {{"Acuerdo2", "7"}});
    BaseDePrueba::arrancar();
    EXPECT_EQ(filas("SELECT Version, Acuerdo2 FROM Parametros, DDJJ_Empleados"), "1.2|70000") << "the sum stays";
}

TEST(Inicio, SinParametrosCorrenLosTresPasosYNoPoderMostrarseSeSabe)
{
    const BaseDePrueba base;
    poner("DDJJ_Empleados", {{"Acuerdo", nullptr}, {"Acuerdo2", nullptr}});
    Rutinas::Conexion.ejecutar("DROP TABLE Parametros");
    BaseDePrueba::arrancar();
    EXPECT_EQ(filas("SELECT Acuerdo, Acuerdo2 FROM DDJJ_Empleados"), "0|0");
    EXPECT_TRUE(QDir(base.ruta("Copias")).exists());
    EXPECT_EQ(numeroDe([] { Rutinas::Main([] { throw ErrorDeEjecucion(3021, {}); }); }), 3021);
}

} // namespace

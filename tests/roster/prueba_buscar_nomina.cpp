// The two pick lists of the employees' screen: what they find, and what they hand back.
#include "apoyo/entrada.h"
#include "apoyo/mesa.h"
#include "platform/screens/grilla.h"
#include "platform/screens/navegacion.h"
#include "roster/busqueda_empleado.h"
#include "roster/busqueda_sucursal.h"
#include "roster/screens/buscar_empleado.h"
#include "roster/screens/buscar_sucursal.h"

#include <gtest/gtest.h>

namespace
{
const QString sinCuil = QStringLiteral("__-________-_");

class Busquedas : public testing::Test
{
protected:
    Busquedas()
    {
        Navegacion::instancia().registrar(QStringLiteral("BuscarEmpleado"), [] { return new BuscarEmpleado; });
        Navegacion::instancia().registrar(QStringLiteral("BuscarSucursal"), [] { return new BuscarSucursal; });
        agregar(c, EmpresaDePrueba());
        agregar(c, DeclaracionDePrueba());
        Rutinas::CuitActual = dePrueba::cuit;
        Rutinas::EmpresaActual = QStringLiteral("Panadería Ñandú");
        Rutinas::PeriodoActual = dePrueba::periodo;
        Rutinas::SecuenciaActual = 0;
        // By CUIL: Zapata, Nuñez, O'Higgins, Núñez. Membership is told by the amount, not by the tick.
        empleado("20-00000001-1", "Zapata Ana", true, 0);
        empleado("20-00000002-1", "Nuñez Beto", false, 10);
        empleado("20-00000003-1", "O'Higgins Caro", true, 10);
        empleado("20-00000004-1", "NÚÑEZ Dora", false, 0);
        c.ejecutar("UPDATE DDJJ_Empleados SET ART101A = -1 WHERE Cuil = '20-00000003-1'");
    }
    void empleado(const char* cuil, const char* ayn, bool afiliado, int art101A)
    {
        EmpleadoDePrueba e;
        e.cuil = QString::fromLatin1(cuil);
        e.ayn = QString::fromUtf8(ayn);
        e.afiliado = afiliado;
        e.art101A = Moneda::deEntero(art101A);
        agregar(c, e);
    }
    /// First letters of the given names of what is found.
    [[nodiscard]] QString hallar(const char* nombre, FiltroAfiliado filtro = FiltroAfiliado::Todos,
                                 const QString& cuil = sinCuil)
    {
        const ClaveDDJJ clave{dePrueba::cuit, dePrueba::periodo, 0};
        QString letras;
        for (const EmpleadoHallado& hallado : buscarEmpleados(c, clave, cuil, QString::fromUtf8(nombre), filtro))
        {
            letras += hallado.ayn.section(QLatin1Char(' '), 1).at(0);
        }
        return letras;
    }
    /// The same of what the grid shows.
    [[nodiscard]] static QString enLista()
    {
        QString letras;
        for (int fila = 1; fila <= Mesa::grilla("vsGrilla").filas(); ++fila)
        {
            letras += Mesa::grilla("vsGrilla").texto(2, fila).section(QLatin1Char(' '), 1).at(0);
        }
        return letras;
    }

    Mesa mesa;
    Conexion& c = mesa.conexion();
};
} // namespace

TEST_F(Busquedas, ElOrdenSeCruzaYLaAfiliacionEsElImporte)
{
    agregar(c, DeclaracionDePrueba{.secuencia = 1});
    EmpleadoDePrueba deOtra;
    deOtra.secuencia = 1;
    agregar(c, deOtra);
    struct Caso
    {
        const char* nombre;
        FiltroAfiliado filtro;
        const char* hallados;
    };
    const Caso casos[] = {
        {"", FiltroAfiliado::Todos, "BDCA"},  // by name, accents in their place
        {"z", FiltroAfiliado::Todos, "ABD"},  // by CUIL, case ignored
        {"UÑEZ", FiltroAfiliado::Todos, "B"}, // an accent is another letter
        {"ñ", FiltroAfiliado::Todos, "BD"},   {"'", FiltroAfiliado::Todos, "C"}, {"Z%a a", FiltroAfiliado::Todos, "A"},
        {"nadie", FiltroAfiliado::Todos, ""}, {"", FiltroAfiliado::Si, "BC"},    {"", FiltroAfiliado::No, "DA"},
        {"z", FiltroAfiliado::No, "AD"},
    };
    for (const Caso& caso : casos)
    {
        EXPECT_EQ(QString::fromLatin1(caso.hallados), hallar(caso.nombre, caso.filtro)) << caso.nombre;
    }
    EXPECT_EQ(QStringLiteral("B"), hallar("z", FiltroAfiliado::Todos, QStringLiteral("20-00000002-1")));
    EXPECT_EQ(QString(), hallar("", FiltroAfiliado::Todos, QStringLiteral("20-00000002-_"))); // compared whole
}

TEST_F(Busquedas, UnEmpleadoSeEligeConDosClics)
{
    Rutinas::CuilElegido.clear();
    Rutinas::TextoDevuelto = QStringLiteral("antes");
    Mesa::abrirModal("BuscarEmpleado",
                     []
                     {
                         EXPECT_EQ(QStringLiteral("B.R.I.V.O. Zona Sauce - Busqueda de Empleados"), Mesa::titulo());
                         EXPECT_EQ(QString(), Rutinas::TextoDevuelto);
                         EXPECT_EQ(QStringLiteral("MaskCuil"), Mesa::foco());
                         EXPECT_EQ(QStringLiteral("BDCA"), enLista());
                         EXPECT_TRUE(Mesa::grilla("vsGrilla").tilde(3, 1));
                         EXPECT_TRUE(Mesa::grilla("vsGrilla").tilde(3, 3));
                         EXPECT_FALSE(Mesa::grilla("vsGrilla").tilde(3, 4));
                         Entrada::tecla(Qt::Key_Return);
                         Entrada::escribir(QStringLiteral("z"));
                         EXPECT_EQ(QStringLiteral("ABD"), enLista());
                         Mesa::pulsar("optAfiliado_2");
                         EXPECT_EQ(QStringLiteral("AD"), enLista());
                         Mesa::pulsar("optAfiliado_1");
                         EXPECT_EQ(QStringLiteral("B"), enLista());
                         Mesa::pulsar("optAfiliado_0");
                         Mesa::escribir("MaskCuil", "20000000");
                         EXPECT_EQ(QStringLiteral("ABD"), enLista()); // not before the field is left
                         Entrada::tecla(Qt::Key_Tab);
                         EXPECT_EQ(QString(), enLista());
                         Mesa::escribir("MaskCuil", "20000000041");
                         Mesa::pulsar("optAfiliado_0");
                         EXPECT_EQ(QStringLiteral("D"), enLista());
                         Mesa::pulsarDosVeces("vsGrilla", 2, 0);
                         EXPECT_EQ(QString(), Rutinas::CuilElegido);
                         Mesa::pulsarDosVeces("vsGrilla", 2, 1);
                     });
    EXPECT_EQ(QStringLiteral("20-00000004-1"), Rutinas::CuilElegido);
}

TEST_F(Busquedas, CerrarNoEligeNada)
{
    Rutinas::CuilElegido.clear();
    Rutinas::SucursalElegida = 0;
    for (const char* dialogo : {"BuscarEmpleado", "BuscarSucursal"})
    {
        Mesa::abrirModal(dialogo, [] { Mesa::cerrar(); });
        Mesa::abrirModal(dialogo, [] { Entrada::tecla(Qt::Key_Escape); });
    }
    EXPECT_EQ(QString(), Rutinas::CuilElegido);
    EXPECT_EQ(0, Rutinas::SucursalElegida);
}

TEST_F(Busquedas, LasSucursalesDeLaEmpresa)
{
    agregar(c, EmpresaDePrueba{.cuit = QStringLiteral("30-87654321-5"), .razon = QStringLiteral("Otra")});
    agregar(c, SucursalDePrueba{.cuit = QStringLiteral("30-87654321-5")});
    const qint64 dos = agregar(c, SucursalDePrueba{.sucursal = QStringLiteral("2")});
    const qint64 diez = agregar(c, SucursalDePrueba{.sucursal = QStringLiteral("10"), .numero = 0});
    Mesa::abrirModal("BuscarSucursal",
                     [&]
                     {
                         EXPECT_EQ(QStringLiteral("B.R.I.V.O. Zona Sauce - Busqueda de Sucursales x Empresa"),
                                   Mesa::titulo());
                         EXPECT_EQ(QStringLiteral("Panadería Ñandú"), Mesa::texto("txtEmpresa"));
                         EXPECT_EQ(dePrueba::cuit, Mesa::texto("txtCuit"));
                         const Grilla& lista = Mesa::grilla("vsGrilla");
                         ASSERT_EQ(2, lista.filas()); // the codes are texts
                         EXPECT_EQ(diez, lista.entero(1, 1));
                         EXPECT_EQ(QStringLiteral("Belgrano "), lista.texto(3, 1)); // no number
                         EXPECT_EQ(QStringLiteral("Belgrano 45"), lista.texto(3, 2));
                         Mesa::pulsarDosVeces("vsGrilla", 3, 0);
                         Mesa::pulsarDosVeces("vsGrilla", 3, 2);
                     });
    EXPECT_EQ(dos, Rutinas::SucursalElegida);

    c.ejecutar("DELETE FROM Empresas_Sucursales");
    Rutinas::SucursalElegida = 0;
    Mesa::abrirModal("BuscarSucursal",
                     []
                     {
                         EXPECT_EQ(0, Mesa::grilla("vsGrilla").filas());
                         Entrada::pulsarDosVeces(*Mesa::grilla("vsGrilla").viewport());
                         Mesa::cerrar();
                     });
    EXPECT_EQ(0, Rutinas::SucursalElegida);
}

// The save of an employee with his dependants, and what another desk did meanwhile.
#include "companies/cambios_en_texto.h"
#include "fallos/base_grande.h"

#include <gtest/gtest.h>

namespace
{
using dePrueba::clave;
const FilaFamiliar hijo{"Hijo", "DNI", 12345678, "Pérez Luis", "Masc.", QDate(2005, 1, 31)};

FilaFamiliar hijoCon(const std::function<void(FilaFamiliar&)>& cambio)
{
    FilaFamiliar fila = hijo;
    cambio(fila);
    return fila;
}

EntradaEmpleado nuevo()
{
    EntradaEmpleado e = entrada("20-12345678-6", 1000, true);
    e.haberes = "1000,00";
    e.acuerdo = "0";
    e.afiliado = true;
    return e;
}

struct GuardarEmpleado : ConBase
{
    GuardarEmpleado() { poner("DDJJ"); }

    /// Every cell of the roster and of the family lists.
    [[nodiscard]] std::string todo() const
    {
        return filas("SELECT * FROM DDJJ_Empleados") + '#' + filas("SELECT * FROM Empleados_Familiares ORDER BY rowid");
    }
    /// The error number of a save; 0 when it went through, -1 for an incomplete family.
    [[nodiscard]] int guardar(const EntradaEmpleado& entrada) const
    {
        return numeroDe([&] { return guardarEmpleado(conexion, clave, entrada) ? 0 : throw ErrorDeEjecucion(-1, {}); });
    }
    /// One who stands in the roster, with a wife, as a screen that read him gives him back.
    [[nodiscard]] EntradaEmpleado leido() const
    {
        poner("DDJJ_Empleados", {{"Acuerdo", "40"}, {"Acuerdo2", "60"}, {"Familiares", 3}});
        poner("Empleados_Familiares");
        EntradaEmpleado e = nuevo();
        e.nuevo = false;
        e.ayn = "Cambiado";
        e.leido = leerEmpleado(conexion, clave, e.cuil);
        return e;
    }
    /// Nothing is written when something is asked.
    [[nodiscard]] std::string cambios(const EntradaEmpleado& entrada) const
    {
        const std::string antes = todo();
        std::string textos = cambiosAl([&] { return guardarEmpleado(conexion, clave, entrada); });
        EXPECT_TRUE(textos == "stored" || antes == todo());
        return textos;
    }
};
} // namespace

// What else is asked for: in the script.
TEST_F(GuardarEmpleado, LasHorasYLaSucursalQueHacenFalta)
{
    poner("Empresas_Sucursales");
    EntradaEmpleado e = nuevo();
    for (const auto& [horas, falta] : {std::pair{"", CampoEmpleado::QHoras},
                                       {"99", CampoEmpleado::QHoras},
                                       {"201", CampoEmpleado::QHoras},
                                       {"4294967496", CampoEmpleado::QHoras},
                                       {"100", CampoEmpleado::Sucursal},
                                       {"200", CampoEmpleado::Sucursal},
                                       {"0150", CampoEmpleado::Sucursal}})
    {
        e.qHoras = horas;
        EXPECT_EQ(falta, revisarEmpleado(conexion, clave.cuit, e)->campo) << horas;
    }
    EXPECT_FALSE(revisarEmpleado(conexion, "20-1", e)) << "a company without any";
}

TEST_F(GuardarEmpleado, UnoNuevoUnaVezEnCadaDeclaracion)
{
    EntradaEmpleado e = nuevo();
    e.familia = {{}, hijo};
    std::optional<EmpleadoLeido> guardado;
    EXPECT_EQ("", fueraDeTransaccion([&] { guardado = guardarEmpleado(conexion, clave, e); }));
    EXPECT_EQ((Aportes{1000, 20, 10, 10}), aportesDe(e));
    EXPECT_EQ(1U, guardado->familia.size());
    const std::string antes = todo();
    EXPECT_NE(0, guardar(e));
    EXPECT_EQ(antes, todo());
    EXPECT_TRUE(cuilExistente(conexion, clave, e.cuil));
    EXPECT_FALSE(cuilExistente(conexion, {clave.cuit, clave.periodo, 1}, e.cuil));
    EXPECT_FALSE(cuilExistente(conexion, {clave.cuit, clave.periodo.addMonths(1), 0}, e.cuil));
}

TEST_F(GuardarEmpleado, LoQueNoSeInformaQuedaNuloYElTotalPierdeLosCentavosQueElImponibleConserva)
{
    const std::tuple<const char*, const char*, const char*> casos[] = {
        {"1000,00", "0", "10000000|10000000"},
        {"1234567,89", "0", "12345680000|12345678900"},
        {"123456,78", "0", "1234568000|1234567800"}, // seven digits, of which one is a decimal
        {"12345,67", "0,01", "123456800|123456700"},
        {"12345678,99", "", "123456800000|123456789900"},
        {"0,1", "0,2", "3000|1000"},
        {"", "", "0|0"},
    };
    for (const auto& [haberes, acuerdo, queda] : casos)
    {
        conexion.ejecutar("DELETE FROM DDJJ_Empleados");
        EntradaEmpleado e = nuevo();
        e.haberes = haberes;
        e.acuerdo = acuerdo;
        ASSERT_EQ(0, guardar(e)) << haberes;
        EXPECT_EQ(queda, filas("SELECT Sueldo, Imponible FROM DDJJ_Empleados"));
    }
    EXPECT_EQ("Null|Null|0||Null|Null|Null|Null|Null|0",
              filas("SELECT Sexo, Nacio, Numero, Calle, Provincia, EstCivil, Categoria, Ingreso, Egreso, Sucursal "
                    "FROM DDJJ_Empleados"));
}

TEST_F(GuardarEmpleado, LoQueFallaNoDejaNadaEscrito)
{
    const EntradaEmpleado bueno = leido();
    const std::string antes = todo();
    const std::vector<FilaFamiliar> sinSexo = {hijo, hijoCon([](auto& f) { f.sexo.clear(); })};
    const std::vector<FilaFamiliar> conVecino = {hijo, hijoCon([](auto& f) { f.familiar = "Vecino"; })};
    const std::pair<int, std::function<void(EntradaEmpleado&)>> casos[] = {
        {-1, [&](auto& e) { e.familia = sinSexo; }},
        {3021, [&](auto& e) { e.familia = conVecino; }},
        {13, [](auto& e) { e.familia = {hijoCon([](auto& f) { f.nroDoc.reset(); })}; }},
        {3021, [](auto& e) { e.familia = {hijoCon([](auto& f) { f.tipoDoc = "Carnet"; })}; }},
        {13, [](auto& e) { e.haberes = "1,2,3"; }},
        {6, [](auto& e) { e.haberes = "9999999999999999999999999"; }},
        {6, [](auto& e) { e.acuerdo = "999999999999999"; }},
        {11, [](auto& e) { e.qHoras = "0"; }},
        {6, [](auto& e) { e.qHoras = "4294967496"; }},
        {13, [](auto& e) { e.qHoras = "9999999999999999999999999"; }},
        {13, [](auto& e) { e.documento = "x"; }},
        {13, [](auto& e) { e.numero = "9999999999999999999999999"; }},
        {3021, [](auto& e) { e.sucursal = 78; }},
        {3021, [](auto& e) { e.cuil = "20-1"; }},
    };
    for (const auto& [error, cambio] : casos)
    {
        EntradaEmpleado e = bueno;
        cambio(e);
        EXPECT_EQ(error, guardar(e));
        EXPECT_EQ(antes, todo());
    }
}

TEST_F(GuardarEmpleado, LosFamiliaresSeListanPorRelacionYSeReemplazanEnteros)
{
    conexion.ejecutar("INSERT INTO Empleados_Familiares VALUES "
                      "('20-1', 2, 'segundo', 1, 1, 1, '2000-01-01'), ('20-1', 2, 'primero', 1, 1, 1, '2005-01-01'), "
                      "('20-1', 2, 'sin fecha', 1, 1, 1, NULL), ('20-1', 1, 'pareja', 1, 1, 0, '1925-12-31'), "
                      "('20-1', 99, 'otra relación', 1, 1, 1, '1970-01-01'), "
                      "('20-1', 1, 'otro documento', 99, 1, 1, '1970-01-01'), ('27-1', 1, 'ajeno', 1, 1, 1, NULL)");
    auto lista = cargarFamiliares(conexion, "20-1");
    ASSERT_EQ(4U, lista.size());
    EXPECT_EQ("pareja primero", lista[0].ayn + ' ' + lista[1].ayn);
    EXPECT_EQ("segundo sin fecha", lista[2].ayn + ' ' + lista[3].ayn);
    lista.resize(1);
    lista.push_back(hijoCon([](auto& f) { f.ayn = "D'Angelo \"Ñ\" 100%_"; }));
    EXPECT_TRUE(guardarFamiliares(conexion, "20-1", lista)); // what is not shown goes, too
    EXPECT_EQ("ajeno|1|Null;pareja|0|1925-12-31;D'Angelo \"Ñ\" 100%_|1|2005-01-31",
              filas("SELECT AyN, Sexo, Nacio FROM Empleados_Familiares ORDER BY rowid"));
}

TEST_F(GuardarEmpleado, CadaFilaDeFamiliaSeGuardaSeSalteaOSeRechaza)
{
    const std::tuple<FilaFamiliar, bool, int> casos[] = {
        {hijo, true, 2},
        {{{}, "DNI", {}, {}, "Fem.", {}}, true, 1}, // spare: type and sex only
        {{{}, {}, 0, {}, {}, {}}, false, 1},        // number only
        {hijoCon([](auto& f) { f.familiar.clear(); }), false, 1},
        {hijoCon([](auto& f) { f.tipoDoc.clear(); }), false, 1},
        {hijoCon([](auto& f) { f.ayn.clear(); }), false, 1},
        {hijoCon([](auto& f) { f.sexo.clear(); }), false, 1},
        {hijoCon([](auto& f) { f.nacio = {}; }), false, 1},
    };
    for (const auto& [fila, entera, guardadas] : casos)
    {
        EXPECT_EQ(entera, guardarFamiliares(conexion, "20-1", {hijo, fila})) << fila.ayn.toStdString();
        EXPECT_EQ(guardadas, cuantos("Empleados_Familiares"));
    }
}

TEST_F(GuardarEmpleado, EnLoQueOtroPuestoEliminoNadaSeEscribe)
{
    EntradaEmpleado e = leido();
    e.familia = {hijo};
    conexion.ejecutar("DELETE FROM DDJJ_Empleados");
    const std::string antes = todo();
    EXPECT_THROW((void)guardarEmpleado(conexion, clave, e), EmpleadoEliminado);
    e.leido.reset();
    EXPECT_THROW((void)guardarEmpleado(conexion, clave, e), EmpleadoEliminado);
    e.nuevo = true;
    conexion.ejecutar("DELETE FROM DDJJ");
    EXPECT_THROW((void)guardarEmpleado(conexion, clave, e), YaNoEsta);
    EXPECT_EQ(antes, todo());
}

TEST_F(GuardarEmpleado, LoQueOtroPuestoCambioSePreguntaAntesDeReemplazarlo)
{
    poner("Empresas_Sucursales");
    EntradaEmpleado e = leido();
    // What the screen does not keep, and what it computes anew, is no change.
    conexion.ejecutar("UPDATE DDJJ_Empleados SET Familiares = 5, ART100 = 1, ART101A = 1, ART101B = 1, Sueldo = 1");
    EXPECT_EQ("stored", cambios(e));
    e.leido = leerEmpleado(conexion, clave, e.cuil);
    conexion.ejecutar(
        "UPDATE DDJJ_Empleados SET AyN = 'a', TipoDoc = 3, NroDoc = 7, Sexo = 0, Nacio = '1971-01-02', "
        "Calle = 'b', Numero = 9, Piso = 'c', Depto = 'd', Localidad = 'e', CodPos = 'f', Provincia = 99, "
        "Telefono = 'g', EstCivil = 2, Ingreso = '2001-02-01', Categoria = 11, QHoras = 150, "
        "Egreso = '2009-05-20', Sucursal = 1, Imponible = 10001234, Acuerdo2 = 500000, Afiliado = 0");
    poner("Empleados_Familiares", {{"Familiar", 2}, {"AyN", "Nuevo"}, {"Sexo", 1}, {"Nacio", "2008-01-31"}});
    EXPECT_EQ(
        "Apellido y Nombre=Cambiado>a;Tipo y Nro. Documento=DNI 12345678>LC 7;Sexo=>Femenino;"
        "Fecha de Nacimiento=>02/01/1971;Domicilio - Calle=>b;Nro.=0>9;Piso=>c;Depto=>d;Localidad=>e;Cód.Postal=>f;"
        "Teléfono=>g;Estado Civil=>Casado/a;Fecha de Ingreso=>01/02/2001;Categoría=>Peón de bodega;"
        "Jornada Mensual Laboral=200>150;Fecha de Egreso=>20/05/2009;Sucursal=>1 - Belgrano 45 - Avellaneda;"
        "Total de Haberes=1000,00>1000,12;Acuerdo Colectivo Vigente=0,00>50,00;Turismo y Rec.=Sí>No;"
        "Familiares=->Hijo, DNI, 45111222, Nuevo, Masc., 31/01/2008",
        cambios(e));
    conexion.ejecutar("UPDATE DDJJ_Empleados SET Provincia = 7");
    EXPECT_TRUE(QString::fromStdString(cambios(e)).contains(";Provincia=>Mendoza;"));
    e.leido.reset();                             // asked for a second time, it is replaced
    poner("DDJJ_Empleados", {{"Secuencia", 1}}); // the same person in another declaration
    EXPECT_EQ("stored", cambios(e));
    EXPECT_EQ(
        "0|Cambiado|0|5;1|Pérez Juan|0|0",
        filas(
            "SELECT Secuencia, AyN, (SELECT count(*) FROM Empleados_Familiares) AS F, Familiares FROM DDJJ_Empleados"));
}

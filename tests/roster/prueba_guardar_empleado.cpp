// The save of an employee with his dependants, and what another desk did meanwhile.
#include "apoyo/base_de_prueba.h"
#include "apoyo/datos.h"
#include "companies/cambios_en_texto.h"
#include "roster/guardar_empleado.h"

#include <gtest/gtest.h>

namespace
{
const ClaveDDJJ clave{"30-12345678-1", QDate(2009, 5, 1), 0};
const FilaFamiliar hijo{"Hijo", "DNI", 12345678, "Pérez Luis", "Masc.", QDate(2005, 1, 31)};

FilaFamiliar hijoCon(const std::function<void(FilaFamiliar&)>& cambio)
{
    FilaFamiliar fila = hijo;
    cambio(fila);
    return fila;
}

EntradaEmpleado nuevo()
{
    EntradaEmpleado e;
    e.nuevo = true;
    e.cuil = "20-12345678-6";
    e.ayn = "Pérez Juan";
    e.tipoDoc = 1;
    e.documento = "12345678";
    e.qHoras = "200";
    e.haberes = "1000,00";
    e.acuerdo = "0";
    e.afiliado = true;
    return e;
}

struct GuardarEmpleado : testing::Test
{
    GuardarEmpleado() { poner("DDJJ"); }

    BaseDePrueba base;
    Conexion& conexion = base.conexion();

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
        const std::string textos = cambiosAl([&] { return guardarEmpleado(conexion, clave, entrada); });
        EXPECT_TRUE(textos == "stored" || antes == todo());
        return textos;
    }
};
} // namespace

TEST_F(GuardarEmpleado, LasHorasYLaSucursalQueHacenFalta)
{
    poner("Empresas_Sucursales");
    EntradaEmpleado e = nuevo();
    const auto falta = [&](const char* cuit = "30-12345678-1")
    {
        const auto una = revisarEmpleado(conexion, cuit, e);
        return una ? std::optional(una->campo) : std::nullopt;
    };
    for (const char* horas : {"", "0", "99", "201", "00000", "4294967496", "9999999999999999999999999"})
    {
        e.qHoras = horas;
        EXPECT_EQ(CampoEmpleado::QHoras, falta()) << horas;
    }
    for (const char* horas : {"100", "128", "200", "0150"})
    {
        e.qHoras = horas;
        EXPECT_EQ(CampoEmpleado::Sucursal, falta()) << horas;
    }
    EXPECT_EQ(std::nullopt, falta("20-1")); // a company without any
    e.sucursal = 1;
    EXPECT_EQ(std::nullopt, falta());
}

TEST_F(GuardarEmpleado, UnoNuevoUnaVezEnCadaDeclaracion)
{
    EntradaEmpleado e = nuevo();
    e.familia = {{}, hijo};
    std::optional<EmpleadoGuardado> guardado;
    EXPECT_EQ("", fueraDeTransaccion([&] { guardado = guardarEmpleado(conexion, clave, e); }));
    EXPECT_EQ((Aportes{1000, 20, 10, 10}), guardado->aportes);
    EXPECT_EQ(1U, guardado->leido.familia.size());
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

TEST_F(GuardarEmpleado, UnCambioRecalculaJuntaLosAcuerdosYDejaElConteoDeFamiliares)
{
    EntradaEmpleado e = leido();
    poner("DDJJ_Empleados", {{"Secuencia", 1}}); // the same person in another declaration
    const std::string otra = filas("SELECT * FROM DDJJ_Empleados WHERE Secuencia = 1");
    e.haberes = "900,00";
    e.acuerdo = "100,00";
    e.afiliado = false;
    e.qHoras = "128";
    e.sucursal = 77; // as it was stored, though there is no such branch
    conexion.ejecutar("UPDATE DDJJ_Empleados SET Sucursal = 77 WHERE Secuencia = 0");
    e.leido = leerEmpleado(conexion, clave, e.cuil);
    const auto guardado = guardarEmpleado(conexion, clave, e);
    ASSERT_TRUE(guardado);
    EXPECT_EQ((Aportes{1000, 20, 0, 0}), guardado->aportes);
    EXPECT_EQ("9000000|1000000|0|10000000|128|3|200000|0|77|0",
              filas("SELECT Imponible, Acuerdo, Acuerdo2, Sueldo, QHoras, Familiares, ART100, ART101A, Sucursal, "
                    "Secuencia FROM DDJJ_Empleados WHERE Secuencia = 0"));
    EXPECT_EQ(otra, filas("SELECT * FROM DDJJ_Empleados WHERE Secuencia = 1"));
    EXPECT_EQ(0, cuantos("Empleados_Familiares"));
    e.leido = guardado->leido; // what was stored is what was read
    EXPECT_EQ("stored", cambios(e));
}

TEST_F(GuardarEmpleado, LoQueFallaNoDejaNadaEscrito)
{
    const EntradaEmpleado bueno = leido();
    const std::string antes = todo();
    const FilaFamiliar sinSexo = hijoCon([](auto& f) { f.sexo.clear(); });
    const FilaFamiliar vecino = hijoCon([](auto& f) { f.familiar = "Vecino"; });
    const FilaFamiliar sinNumero = hijoCon([](auto& f) { f.nroDoc.reset(); });
    const std::pair<int, std::function<void(EntradaEmpleado&)>> casos[] = {
        {-1,
         [&](auto& e) {
             e.familia = {hijo, sinSexo};
         }},
        {3021,
         [&](auto& e) {
             e.familia = {hijo, vecino};
         }},
        {13, [&](auto& e) { e.familia = {sinNumero}; }},
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
    for (std::size_t i = 0; i < std::size(casos); ++i)
    {
        EntradaEmpleado e = bueno;
        casos[i].second(e);
        EXPECT_EQ(casos[i].first, guardar(e)) << i;
        EXPECT_EQ(antes, todo()) << i;
    }
}

TEST_F(GuardarEmpleado, LosFamiliaresSeListanPorRelacionYSeReemplazanEnteros)
{
    const auto pone = [](int familiar, const char* ayn, const Valor& nacio, int tipo = 1) {
        poner("Empleados_Familiares", {{"Familiar", familiar}, {"AyN", ayn}, {"Nacio", nacio}, {"TipoDoc", tipo}});
    };
    pone(2, "segundo", "2000-01-01"); // Hijo
    pone(2, "primero", "2005-01-01");
    pone(2, "sin fecha", nullptr);
    pone(1, "pareja", "1925-12-31"); // Cónyuge
    pone(99, "otra relación", "1970-01-01");
    pone(1, "otro documento", "1970-01-01", 99);
    poner("Empleados_Familiares", {{"CUIL", "27-1"}, {"AyN", "ajeno"}});
    std::string nombres;
    auto lista = cargarFamiliares(conexion, "20-12345678-6");
    for (const FilaFamiliar& fila : lista)
    {
        nombres += fila.ayn.toStdString() + ';';
    }
    EXPECT_EQ("pareja;primero;segundo;sin fecha;", nombres);
    lista.erase(lista.begin() + 1, lista.end());
    lista.push_back(hijoCon([](auto& f) { f.ayn = "D'Angelo \"Ñ\" 100%_"; }));
    EXPECT_TRUE(guardarFamiliares(conexion, "20-12345678-6", lista)); // what is not shown goes, too
    EXPECT_EQ("ajeno|0|Null;pareja|0|1925-12-31;D'Angelo \"Ñ\" 100%_|1|2005-01-31",
              filas("SELECT AyN, Sexo, Nacio FROM Empleados_Familiares ORDER BY rowid"));
}

TEST_F(GuardarEmpleado, CadaFilaDeFamiliaSeGuardaSeSalteaOSeRechaza)
{
    constexpr int incompleta = -1;
    const std::tuple<const char*, FilaFamiliar, int, int> casos[] = {
        {"complete", hijo, 0, 2},
        {"spare row", {}, 0, 1},
        {"type and sex only", {{}, "DNI", {}, {}, "Fem.", {}}, 0, 1},
        {"number only", {{}, {}, 0, {}, {}, {}}, incompleta, 1},
        {"no relation", hijoCon([](auto& f) { f.familiar.clear(); }), incompleta, 1},
        {"no type", hijoCon([](auto& f) { f.tipoDoc.clear(); }), incompleta, 1},
        {"no name", hijoCon([](auto& f) { f.ayn.clear(); }), incompleta, 1},
        {"no sex", hijoCon([](auto& f) { f.sexo.clear(); }), incompleta, 1},
        {"no date", hijoCon([](auto& f) { f.nacio = {}; }), incompleta, 1},
        {"unknown type", hijoCon([](auto& f) { f.tipoDoc = "Carnet"; }), 3021, 1},
    };
    for (const auto& [que, fila, error, guardadas] : casos)
    {
        const auto guardar = [&, otra = fila] {
            return guardarFamiliares(conexion, "20-1", {hijo, otra}) ? 0 : throw ErrorDeEjecucion(incompleta, {});
        };
        EXPECT_EQ(error, numeroDe(guardar)) << que;
        EXPECT_EQ(guardadas, cuantos("Empleados_Familiares")) << que;
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
    e.leido.reset(); // asked for a second time, it is replaced
    EXPECT_EQ("stored", cambios(e));
    EXPECT_EQ("Cambiado|0", filas("SELECT AyN, (SELECT count(*) FROM Empleados_Familiares) AS F FROM DDJJ_Empleados"));
}
